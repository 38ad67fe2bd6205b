#include "demo_generator.h"

// Companies, departments, locations, positions and the employees themselves.

namespace admin::demo {

void Generator::organisation() {
    // The companies themselves are written once their people are known (writeCompanies).
    const int companies = 3 + rnd_.below(3);
    qint64 id = firstFreeKey(db_, "Company", "Company_ID");
    for (int i = 0; i < companies; ++i) {
        companyIds_.push_back(id++);
        companyTowns_.push_back(Companies[i].town);
    }

    Batch department(db_, summary_, "Department", {"Department_ID", "Department"});
    id = firstFreeKey(db_, "Department", "Department_ID");
    for (const char* name : DeptNames) {
        deptIds_.push_back(id);
        department.add({id++, QLatin1String(name)});
    }
    department.finish();

    // A site in every company's town, the first one the head office, and a branch or two.
    for (int i = 0; i < companies; ++i) {
        const int town = companyTowns_[i];
        const QString name = QLatin1String(Towns[town].name);
        sites_.push_back({i == 0 ? name + QStringLiteral(" Head Office") : name, town});
    }
    for (int extra = 1 + rnd_.below(2), t = 6; extra > 0; --extra, t += 1 + rnd_.below(3))
        sites_.push_back({QLatin1String(Towns[t].name) + QStringLiteral(" Branch"), t});
    Batch location(db_, summary_, "Location", {"Location_ID", "Location"});
    id = firstFreeKey(db_, "Location", "Location_ID");
    for (const Site& s : sites_) {
        siteIds_.push_back(id);
        location.add({id++, s.name});
    }
    location.finish();

    Batch position(db_, summary_, "Position", {"PositionID", "Position_name"});
    id = firstFreeKey(db_, "Position", "PositionID");
    for (const Role& r : Roles) {
        roleIds_.push_back(id);
        position.add({id++, QLatin1String(r.name)});
    }
    position.finish();
    summary_.companies = companies;
}

// Managers and directors were no school leavers when they started; born accordingly.
void Generator::seasoned(Staff& s) {
    if (s.dob.isValid() && s.dob.daysTo(s.start) >= 28 * 365) return;
    s.dob = s.start.addYears(-rnd_.between(28, 50)).addDays(-rnd_.below(365));
}

void Generator::people() {
    staff_.resize(employees_);
    const int companies = static_cast<int>(companyIds_.size());
    // The board: a managing director in each company and a director or two more,
    // once the organisation is big enough to have one.
    const int directors = std::min(companies * 2, employees_ / 20);
    qint64 id = firstFreeKey(db_, "Person", "Person_ID");
    for (int i = 0; i < employees_; ++i) {
        Staff& s = staff_[i];
        s.id = id++;
        s.male = rnd_.percent(52);
        s.first = firstName(s.male);
        if (rnd_.percent(25)) {
            const QString middle = firstName(s.male);
            if (middle != s.first) s.first += ' ' + middle;
        }
        s.surname = surname();
        if (i < directors) {
            s.dept = Directors;
            s.company = i % companies;
            s.role = i < companies ? 0 : 1 + rnd_.below(3);
            s.manager = true;
        } else {
            s.company = rnd_.weighted({40, 25, 18, 10, 7}) % companies;
            int d = rnd_.below(100);
            int dept = 1;
            while (d >= DeptWeights[dept]) {
                d -= DeptWeights[dept];
                ++dept;
            }
            s.dept = static_cast<Dept>(dept);
            s.role = staffRole(rnd_, s.dept);
        }
        // Most people work at their company's own site.
        s.site = rnd_.percent(80) ? s.company : rnd_.below(static_cast<int>(sites_.size()));
        s.town =
            rnd_.percent(85) ? sites_[s.site].town : rnd_.below(static_cast<int>(Towns.size()));
        const int band = rnd_.weighted({35, 40, 25});
        int tenure = band == 0   ? rnd_.between(120, 730)
                     : band == 1 ? rnd_.between(731, 2920)
                                 : rnd_.between(2921, 9000);
        if (s.manager) tenure += 730;
        s.start = nextWeekday(today_.addDays(-tenure));
        const int ageAtStart = rnd_.weighted({20, 45, 25, 10}) * 10 + rnd_.between(17, 26);
        s.dob = s.start.addYears(-ageAtStart).addDays(-rnd_.below(365));
        if (s.manager) seasoned(s);
        s.salary = salaryFor(rnd_, Roles[s.role]);
    }

    // About one in twenty are line managers: each department's manager, one for every
    // twenty or so of its staff.
    for (int dept = 1; dept < DeptCount; ++dept) {
        std::vector<int> members;
        for (int i = directors; i < employees_; ++i)
            if (staff_[i].dept == dept) members.push_back(i);
        if (members.empty()) continue;
        const int wanted = std::max<int>(1, (static_cast<int>(members.size()) + 10) / 20);
        std::vector<int> chosen;
        for (int tries = 0; static_cast<int>(chosen.size()) < wanted && tries < wanted * 10;
             ++tries) {
            const int m = rnd_.pick(members);
            if (staff_[m].manager) continue;
            Staff& s = staff_[m];
            s.manager = true;
            s.role = managerRole(static_cast<Dept>(dept));
            s.salary = salaryFor(rnd_, Roles[s.role]);
            seasoned(s);
            chosen.push_back(m);
        }
        for (int m : members) {
            Staff& s = staff_[m];
            if (s.manager) continue;
            // Preferably someone in the same company.
            int boss = rnd_.pick(chosen);
            for (int c : chosen)
                if (staff_[c].company == s.company) {
                    boss = c;
                    if (rnd_.percent(50)) break;
                }
            s.lineManager = staff_[boss].listName();
            s.managerName = staff_[boss].fullName();
        }
    }
    // Managers answer to a director of their company, directors to its managing
    // director (the first directors are the managing directors, one per company).
    const auto reportsTo = [](Staff& s, const Staff& boss) {
        s.lineManager = boss.listName();
        s.managerName = boss.fullName();
    };
    for (int i = directors; i < employees_; ++i) {
        Staff& s = staff_[i];
        if (!s.manager) continue;
        std::vector<int> board;
        for (int d = 0; d < directors; ++d)
            if (staff_[d].company == s.company) board.push_back(d);
        if (!board.empty()) reportsTo(s, staff_[rnd_.pick(board)]);
    }
    for (int d = companies; d < directors; ++d)
        reportsTo(staff_[d], staff_[staff_[d].company]);

    // Leavers and the odd deleted record, never among the managers.
    for (Staff& s : staff_) {
        if (s.manager) continue;
        const int tenure = static_cast<int>(s.start.daysTo(today_));
        if (rnd_.percent(8) && tenure > 90) {
            s.leaver = true;
            const int back = rnd_.between(1, std::min(1095, tenure - 60));
            s.finish = today_.addDays(-back);
        } else if (rnd_.permille(5)) {
            s.deleted = true;
        }
    }
    writePeople();
}

// The named contacts of a company are its own directors and managers where it has them.
void Generator::writeCompanies() {
    Batch company(db_, summary_, "Company",
                  {"Company_ID", "Company_Name", "address1", "address2", "address3", "Tel_NO",
                   "fax", "MD_Name", "MD_Phone", "PA_Name", "PA_Phone", "Compliance_name",
                   "Compliance_Phone", "IT_Name", "IT_Phone", "Finance_Name", "Finance_Phone"});
    for (std::size_t c = 0; c < companyIds_.size(); ++c) {
        const auto holder = [&](std::initializer_list<int> roles) {
            for (int role : roles)
                for (const Staff& s : staff_)
                    if (s.company == static_cast<int>(c) && s.role == role && s.current())
                        return s.fullName();
            return personName();
        };
        const int town = companyTowns_[c];
        const QString md = holder({0});
        const QString finance = holder({1, managerRole(Accounts)});
        const QString it = holder({managerRole(IT)});
        const QString compliance = holder({managerRole(HumanResources)});
        company.add({companyIds_[c], QLatin1String(Companies[c].name),
                     QLatin1String(Companies[c].premises), locality(town),
                     QLatin1String(Towns[town].name) + ' ' + postcode(town), phone(town),
                     phone(town), md, phone(town), personName(), phone(town), compliance,
                     phone(town), it, phone(town), finance, phone(town)});
    }
    company.finish();
}

void Generator::writePeople() {
    writeCompanies();
    Batch person(db_, summary_, "Person",
                 {"Person_ID",
                  "firstnames",
                  "surname",
                  "Title",
                  "DOB",
                  "MaritalStatus",
                  "Dependents",
                  "NI_Number",
                  "address1",
                  "address2",
                  "address3",
                  "PostCode",
                  "phone",
                  "NOK1_Name",
                  "NOK1_Relationship",
                  "NOK1_Address",
                  "NOK1_Home_PH",
                  "NOK1_Mobile_PH",
                  "NOK2_Name",
                  "NOK2_Relationship",
                  "NOK2_Address",
                  "NOK2_Home_PH",
                  "NOK2_Mobile_PH",
                  "startdate",
                  "Employment_Type",
                  "Recruitment",
                  "EthOrigin",
                  "Nationality",
                  "Location_ID",
                  "Department_ID",
                  "Position_ID",
                  "Company_ID",
                  "salary",
                  "JHDate",
                  "jhnote",
                  "firstaider",
                  "firstaiderdate",
                  "MedCover",
                  "MedCoCost",
                  "MedEmpCost",
                  "PensionEF",
                  "CompCon",
                  "EmpCon",
                  "blncompfig",
                  "blnempfig",
                  "LifeCover",
                  "PHICover",
                  "LifeLevel",
                  "PHILevel",
                  "BankName",
                  "BankADD1",
                  "BankADD2",
                  "BankADD3",
                  "BankPC",
                  "AccName",
                  "AccNo",
                  "SortCode",
                  "IsManager",
                  "Line_Manager",
                  "FullTime",
                  "EmpHours",
                  "DaysHoliday",
                  "AllocationDate",
                  "DeAllocationDate",
                  "RegNo",
                  "CarGrade",
                  "CarCategory",
                  "CarTrade",
                  "CarTradeMoney",
                  "PetrolAllowance",
                  "CarAllowance",
                  "extno",
                  "HasLeft",
                  "finishdate",
                  "ExitIntDate",
                  "FinReason",
                  "ExitInt",
                  "ExitNotes",
                  "blndeleted"});
    static const std::array<const char*, 8> banks{"Barclays Bank",
                                                  "Lloyds Bank",
                                                  "HSBC UK",
                                                  "NatWest",
                                                  "Santander UK",
                                                  "Halifax",
                                                  "Nationwide Building Society",
                                                  "TSB Bank"};
    static const std::array<const char*, 10> nationalities{
        "British", "British", "British", "British",  "British",
        "Irish",   "Polish",  "Indian",  "Nigerian", "Portuguese"};
    static const std::array<const char*, 6> leaving{"Resigned - new job",
                                                    "Resigned - personal reasons",
                                                    "Retired",
                                                    "Relocated",
                                                    "End of contract",
                                                    "Redundancy"};
    static const std::array<const char*, 4> reviewNotes{"", "", "Annual salary review",
                                                        "Regraded after review"};
    QString hrManager = QStringLiteral("Human Resources");
    for (const Staff& s : staff_)
        if (s.dept == HumanResources && s.manager) {
            hrManager = s.fullName();
            break;
        }

    for (int i = 0; i < employees_; ++i) {
        Staff& s = staff_[i];
        const int age = static_cast<int>(s.dob.daysTo(today_) / 365);
        const int marital =
            age < 25 ? rnd_.weighted({85, 12, 1, 1, 0}) : rnd_.weighted({30, 50, 6, 11, 3});
        static const std::array<const char*, 5> maritalNames{"Single", "Married", "Seperated",
                                                             "Divorced", "Widowed"};
        QString title;
        if (rnd_.permille(15))
            title = rnd_.percent(80) ? QStringLiteral("Doctor") : QStringLiteral("Prof");
        else if (s.male)
            title = QStringLiteral("Mr");
        else
            title = marital == 1 ? (rnd_.percent(85) ? QStringLiteral("Mrs") : QStringLiteral("Ms"))
                    : marital == 0
                        ? (rnd_.percent(70) ? QStringLiteral("Miss") : QStringLiteral("Ms"))
                        : QStringLiteral("Ms");
        QString ni;
        do {
            ni = rnd_.letters(1, "ABCEGHJKLMNOPRSTWXYZ") + rnd_.letters(1, "ABCEGHJKLMNPRSTWXYZ");
        } while (ni == "BG" || ni == "GB" || ni == "NK" || ni == "KN" || ni == "TN" || ni == "NT" ||
                 ni == "ZZ");
        ni += QStringLiteral("-%1-%2-%3-%4")
                  .arg(rnd_.digits(2), rnd_.digits(2), rnd_.digits(2), rnd_.letters(1, "ABCD"));
        const QString address1 = street();
        const QString address2 = locality(s.town);
        const QString town = QLatin1String(Towns[s.town].name);
        const QString pc = postcode(s.town);
        const QString home = phone(s.town);
        const QString fullAddress = address1 + ", " + address2 + ", " + town + ' ' + pc;

        QString nok1Name, nok1Rel, nok1Address = fullAddress, nok1Home = home;
        if (marital == 1) {
            nok1Name = firstName(!s.male) + ' ' + s.surname;
            nok1Rel = rnd_.percent(90)
                          ? (s.male ? QStringLiteral("Wife") : QStringLiteral("Husband"))
                          : QStringLiteral("Partner");
        } else {
            const bool mother = rnd_.percent(60);
            nok1Name = firstName(!mother) + ' ' + s.surname;
            nok1Rel = mother ? QStringLiteral("Mother") : QStringLiteral("Father");
            const int t = rnd_.percent(70) ? s.town : rnd_.below(static_cast<int>(Towns.size()));
            nok1Address = street() + ", " + locality(t) + ", " + QLatin1String(Towns[t].name) +
                          ' ' + postcode(t);
            nok1Home = phone(t);
        }
        const QString nok1Mobile = mobile();
        QString nok2Name, nok2Rel, nok2Address, nok2Home, nok2Mobile;
        if (rnd_.percent(40)) {
            const bool sibling = rnd_.percent(60);
            const bool brother = rnd_.percent(50);
            nok2Name = firstName(brother) + ' ' + (sibling ? s.surname : surname());
            nok2Rel = sibling ? (brother ? QStringLiteral("Brother") : QStringLiteral("Sister"))
                              : QStringLiteral("Friend");
            const int t = rnd_.below(static_cast<int>(Towns.size()));
            nok2Address = street() + ", " + locality(t) + ", " + QLatin1String(Towns[t].name) +
                          ' ' + postcode(t);
            nok2Home = phone(t);
            nok2Mobile = mobile();
        }

        static const std::array<const char*, 3> employment{"Permanent", "Temporary", "Contract"};
        static const std::array<const char*, 3> recruitment{"Direct", "Agency", "Advertisment"};
        const QString employmentType = QLatin1String(employment[rnd_.weighted({85, 8, 7})]);
        const QString recruited = QLatin1String(recruitment[rnd_.weighted({50, 25, 25})]);
        const QString origin = rnd_.percent(75) && mostOrigin_ ? QStringLiteral("White - British")
                                                               : rnd_.pick(origins_);
        const QString nationality = QLatin1String(rnd_.pick(nationalities));

        // The present post began at the last of 1-4 earlier periods (written below).
        const QDate end = s.lastDay(today_);
        const int tenure = static_cast<int>(s.start.daysTo(end));
        const int periods = std::max(1, std::min(1 + rnd_.below(4), tenure / 90));
        std::vector<QDate> cuts;
        for (int p = 0; p < periods; ++p)
            cuts.push_back(s.start.addDays(45 + rnd_.below(std::max(1, tenure - 75))));
        std::sort(cuts.begin(), cuts.end());
        cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
        cuts_.push_back(cuts);
        s.jobStart = cuts.back();

        const bool firstAider = rnd_.percent(4) && !s.leaver;
        const QDate aidDate = firstAider ? today_.addDays(-rnd_.between(60, 4 * 365)) : QDate();

        const int cover = rnd_.weighted({40, 30, 15, 15});
        static const std::array<const char*, 4> covers{"None - refused", "Employee",
                                                       "Emp + Partner", "Emp + family"};
        static const std::array<int, 4> companyCost{0, 3850, 7200, 9600}; // pence
        static const std::array<int, 4> employeeCost{0, 0, 1500, 2500};   // pence
        const bool pension = rnd_.percent(70);
        const QDate pensionFrom = pension ? s.start.addMonths(3) : QDate();
        const int compCon = pension ? rnd_.between(3, 8) : 0;
        const int empCon = pension ? rnd_.between(3, 6) : 0;
        const bool life = rnd_.percent(70);
        const bool phi = rnd_.percent(55);
        static const std::array<const char*, 3> lifeLevels{"2*", "3*", "4*"};

        const bool fullTime = rnd_.percent(85);
        const double hours = fullTime ? 37.5 : rnd_.between(8, 30);
        const int years = static_cast<int>(s.start.daysTo(today_) / 365);
        const double fullEntitlement = 25 + std::min(5, years / 2);
        s.daysHoliday =
            fullTime ? fullEntitlement : std::round(fullEntitlement * hours / 37.5 * 2) / 2;

        const bool car = (s.manager || s.dept == Sales) ? rnd_.percent(60) : rnd_.percent(3);
        QDate carFrom, carTo;
        QString regNo, grade, category, trade;
        std::optional<Money> tradeMoney, petrol, allowance;
        if (car) {
            carFrom = dayWithin(s.start, std::min(end, s.start.addYears(3)));
            if (s.leaver) carTo = s.finish;
            regNo = rnd_.letters(2, "ABCDEFGHKLMNOPRSVWY") + rnd_.digits(2) + ' ' +
                    rnd_.letters(3, "ABCDEFGHJKLMNOPRSTUVWXYZ");
            grade = QString(QChar('A' + rnd_.below(4)));
            category =
                rnd_.percent(60) ? QStringLiteral("Business Need") : QStringLiteral("Benefit Car");
            static const std::array<const char*, 3> trades{"UP", "DOWN", "NONE"};
            trade = QLatin1String(trades[rnd_.weighted({15, 10, 75})]);
            tradeMoney =
                trade == QLatin1String("NONE") ? Money() : pounds(rnd_.between(5, 60) * 10);
            petrol = pounds(rnd_.between(6, 20) * 10);
            allowance = category == QLatin1String("Benefit Car") ? pounds(rnd_.between(30, 70) * 10)
                                                                 : Money();
        }

        QString finReason, exitBy, exitNotes;
        QDate exitDate;
        if (s.leaver) {
            finReason = QLatin1String(rnd_.pick(leaving));
            exitBy = hrManager;
            exitDate = s.finish.addDays(-rnd_.between(1, 10));
            exitNotes = rnd_.percent(50) ? QStringLiteral("Would recommend the company")
                                         : QStringLiteral("Left on good terms");
        }
        const QString initial = s.first.left(1);
        person.add({s.id,
                    s.first,
                    s.surname,
                    title,
                    date(s.dob),
                    QLatin1String(maritalNames[marital]),
                    QString::number(marital == 0 ? rnd_.weighted({80, 12, 8})
                                                 : rnd_.weighted({30, 25, 30, 10, 4, 1})),
                    ni,
                    address1,
                    address2,
                    town,
                    pc,
                    home,
                    nok1Name,
                    nok1Rel,
                    nok1Address,
                    nok1Home,
                    nok1Mobile,
                    nok2Name,
                    nok2Rel,
                    nok2Address,
                    nok2Home,
                    nok2Mobile,
                    date(s.start),
                    employmentType,
                    recruited,
                    origin,
                    nationality,
                    siteIds_[s.site],
                    deptIds_[s.dept],
                    roleIds_[s.role],
                    companyIds_[s.company],
                    money(s.salary),
                    date(s.jobStart),
                    QLatin1String(rnd_.pick(reviewNotes)),
                    firstAider ? 1 : 0,
                    date(aidDate),
                    QLatin1String(covers[cover]),
                    money(Money::fromUnits(companyCost[cover] * (Money::Scale / 100))),
                    money(Money::fromUnits(employeeCost[cover] * (Money::Scale / 100))),
                    date(pensionFrom),
                    compCon,
                    empCon,
                    pension && rnd_.percent(80) ? 1 : 0,
                    pension && rnd_.percent(80) ? 1 : 0,
                    life ? QStringLiteral("Yes") : QStringLiteral("Refused"),
                    phi ? QStringLiteral("Yes") : QStringLiteral("Refused"),
                    life ? QLatin1String(rnd_.pick(lifeLevels)) : QString(""),
                    phi ? (rnd_.percent(60) ? QStringLiteral("50 %") : QStringLiteral("75 %"))
                        : QString(""),
                    QLatin1String(rnd_.pick(banks)),
                    street(),
                    QString(""),
                    town,
                    postcode(s.town),
                    title + ' ' + initial + ' ' + s.surname,
                    rnd_.digits(8),
                    QStringLiteral("%1-%2-%3").arg(rnd_.digits(2), rnd_.digits(2), rnd_.digits(2)),
                    s.manager ? 1 : 0,
                    s.lineManager,
                    fullTime ? QStringLiteral("Full Time") : QStringLiteral("Part Time"),
                    hours,
                    s.daysHoliday,
                    date(carFrom),
                    date(carTo),
                    regNo,
                    grade,
                    category,
                    trade,
                    money(tradeMoney),
                    money(petrol),
                    money(allowance),
                    QString::number(2000 + i % 8000),
                    s.leaver ? 1 : 0,
                    date(s.finish),
                    date(exitDate),
                    finReason,
                    exitBy,
                    exitNotes,
                    s.deleted ? 1 : 0});
    }
    person.finish();
}

} // namespace admin::demo
