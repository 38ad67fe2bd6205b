#include "person_record.h"

#include <QDateTime>
#include <QSqlRecord>
#include <array>

namespace personnel {

namespace {

using core::Db;
using core::Money;

struct TextColumn {
    const char* column;
    QString PersonRecord::*member;
    bool trimmed;
};

// The plain text columns. The leaving texts are not here: their value depends on HasLeft.
const std::array<TextColumn, 46> TextColumns{{
    {"Title", &PersonRecord::title, false},
    {"firstnames", &PersonRecord::firstnames, true},
    {"surname", &PersonRecord::surname, true},
    {"NI_Number", &PersonRecord::niNumber, false},
    {"address1", &PersonRecord::address1, true},
    {"address2", &PersonRecord::address2, true},
    {"address3", &PersonRecord::address3, true},
    {"PostCode", &PersonRecord::postCode, true},
    {"phone", &PersonRecord::phone, false},
    {"MaritalStatus", &PersonRecord::maritalStatus, true},
    {"Dependents", &PersonRecord::dependents, true},
    {"Nationality", &PersonRecord::nationality, true},
    {"EthOrigin", &PersonRecord::ethOrigin, true},
    {"Employment_Type", &PersonRecord::employmentType, true},
    {"Recruitment", &PersonRecord::recruitment, true},
    {"FullTime", &PersonRecord::fullTime, true},
    {"Line_Manager", &PersonRecord::lineManager, true},
    {"extno", &PersonRecord::extno, true},
    {"jhnote", &PersonRecord::jhNote, true},
    {"NOK1_Name", &PersonRecord::nok1Name, true},
    {"NOK1_Relationship", &PersonRecord::nok1Relationship, true},
    {"NOK1_Address", &PersonRecord::nok1Address, true},
    {"NOK1_Home_PH", &PersonRecord::nok1HomePh, true},
    {"NOK1_Mobile_PH", &PersonRecord::nok1MobilePh, true},
    {"NOK2_Name", &PersonRecord::nok2Name, true},
    {"NOK2_Relationship", &PersonRecord::nok2Relationship, true},
    {"NOK2_Address", &PersonRecord::nok2Address, true},
    {"NOK2_Home_PH", &PersonRecord::nok2HomePh, true},
    {"NOK2_Mobile_PH", &PersonRecord::nok2MobilePh, true},
    {"BankName", &PersonRecord::bankName, true},
    {"BankADD1", &PersonRecord::bankAdd1, true},
    {"BankADD2", &PersonRecord::bankAdd2, true},
    {"BankADD3", &PersonRecord::bankAdd3, true},
    {"BankPC", &PersonRecord::bankPc, true},
    {"AccName", &PersonRecord::accName, true},
    {"AccNo", &PersonRecord::accNo, true},
    {"SortCode", &PersonRecord::sortCode, true},
    {"RegNo", &PersonRecord::regNo, true},
    {"CarGrade", &PersonRecord::carGrade, true},
    {"CarCategory", &PersonRecord::carCategory, true},
    {"CarTrade", &PersonRecord::carTrade, true},
    {"MedCover", &PersonRecord::medCover, true},
    {"LifeCover", &PersonRecord::lifeCover, true},
    {"LifeLevel", &PersonRecord::lifeLevel, true},
    {"PHICover", &PersonRecord::phiCover, true},
    {"PHILevel", &PersonRecord::phiLevel, true},
}};

struct DateColumn {
    const char* column;
    QDate PersonRecord::*member;
};

// Dates written as they are, NULL when blank.
const std::array<DateColumn, 6> DateColumns{{
    {"DOB", &PersonRecord::dob},
    {"startdate", &PersonRecord::startDate},
    {"JHDate", &PersonRecord::jhDate},
    {"PensionEF", &PersonRecord::pensionEF},
    {"AllocationDate", &PersonRecord::allocationDate},
    {"DeAllocationDate", &PersonRecord::deAllocationDate},
}};

struct FlagColumn {
    const char* column;
    bool PersonRecord::*member;
};

const std::array<FlagColumn, 3> FlagColumns{{
    {"blncompfig", &PersonRecord::blnCompFig},
    {"blnempfig", &PersonRecord::blnEmpFig},
    {"IsManager", &PersonRecord::isManager},
}};

struct MoneyColumn {
    const char* column;
    std::optional<Money> PersonRecord::*member;
};

// Money columns other than the salary: an empty box is NULL.
const std::array<MoneyColumn, 5> MoneyColumns{{
    {"MedCoCost", &PersonRecord::medCoCost},
    {"MedEmpCost", &PersonRecord::medEmpCost},
    {"CarTradeMoney", &PersonRecord::carTradeMoney},
    {"PetrolAllowance", &PersonRecord::petrolAllowance},
    {"CarAllowance", &PersonRecord::carAllowance},
}};

struct NumberColumn {
    const char* column;
    QString PersonRecord::*member;
    core::NumericColumn size;
};

// Numbers the screen keeps as the text in their boxes.
const std::array<NumberColumn, 4> NumberColumns{{
    {"CompCon", &PersonRecord::compCon, PercentColumn},
    {"EmpCon", &PersonRecord::empCon, PercentColumn},
    {"EmpHours", &PersonRecord::empHours, HoursColumn},
    {"DaysHoliday", &PersonRecord::daysHoliday, HolidayDaysColumn},
}};

// The two-part key of the PostgreSQL lock a program holds on a provisional employee.
constexpr int ProvisionalLockSpace = 0x5150;

struct KeyColumn {
    const char* column;
    std::optional<qint64> PersonRecord::*member;
    std::optional<qint64> PersonRecord::Stored::*stored;
};

const std::array<KeyColumn, 4> KeyColumns{{
    {"Location_ID", &PersonRecord::locationId, &PersonRecord::Stored::locationId},
    {"Department_ID", &PersonRecord::departmentId, &PersonRecord::Stored::departmentId},
    {"Position_ID", &PersonRecord::positionId, &PersonRecord::Stored::positionId},
    {"Company_ID", &PersonRecord::companyId, &PersonRecord::Stored::companyId},
}};

bool isFlagSet(const QVariant& v) {
    return !v.isNull() && v.toInt() == 1;
}

QVariant dateValue(const QDate& d) {
    return Db::dateOrNull(d);
}

QVariant nullText() {
    return QVariant(QMetaType::fromType<QString>());
}

// "48.00" and 48.0 both read back as "48", so an untouched box writes the same number.
QString numberText(const QVariant& v) {
    if (v.isNull() || !v.isValid()) return {};
    return core::plainNumber(Money::fromVariant(v));
}

// Rounded to the column's scale before it is bound, so both backends store one value.
QVariant fittedValue(const std::optional<Money>& m, core::NumericColumn size) {
    return m ? size.fit(*m).toVariant() : nullText();
}

// How a numeric text box is stored: NULL when blank; nullopt (the column left alone) for
// text the screen's check would have refused.
std::optional<QVariant> numberValue(const QString& text, core::NumericColumn size) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return nullText();
    if (const auto m = Money::parseTyped(t)) return fittedValue(m, size);
    return std::nullopt;
}

QVariant moneyValue(const std::optional<Money>& m) {
    return fittedValue(m, core::MoneyColumn);
}

// The columns the early insert and the save share.
core::Fields commonFields(const PersonRecord& r) {
    core::Fields f;
    for (const auto& c : TextColumns)
        f.emplace_back(c.column, c.trimmed ? (r.*c.member).trimmed() : r.*c.member);
    for (const auto& c : DateColumns)
        f.emplace_back(c.column, dateValue(r.*c.member));
    for (const auto& c : FlagColumns)
        f.emplace_back(c.column, (r.*c.member) ? 1 : 0);
    for (const auto& c : MoneyColumns)
        f.emplace_back(c.column, moneyValue(r.*c.member));
    for (const auto& c : NumberColumns)
        if (const auto v = numberValue(r.*c.member, c.size)) f.emplace_back(c.column, *v);
    for (const auto& c : KeyColumns)
        if (const auto& id = r.*c.member) f.emplace_back(c.column, *id);

    f.emplace_back("firstaider", r.firstAider ? 1 : 0);
    if (!r.firstAider)
        f.emplace_back("firstaiderdate", dateValue({}));
    else if (r.firstAiderDate.isValid())
        f.emplace_back("firstaiderdate", r.firstAiderDate);

    f.emplace_back("HasLeft", r.hasLeft ? 1 : 0);
    if (r.hasLeft) {
        if (r.finishDate.isValid()) f.emplace_back("finishdate", r.finishDate);
        f.emplace_back("FinReason", r.finReason.trimmed());
        if (r.exitIntDate.isValid()) f.emplace_back("ExitIntDate", r.exitIntDate);
        f.emplace_back("ExitInt", r.exitInt.trimmed());
        f.emplace_back("ExitNotes", r.exitNotes.trimmed());
    } else {
        // Unticking "Leaver" wipes the leaving data.
        f.emplace_back("finishdate", dateValue({}));
        f.emplace_back("FinReason", QString(""));
        f.emplace_back("ExitIntDate", dateValue({}));
        f.emplace_back("ExitInt", QString(""));
        f.emplace_back("ExitNotes", QString(""));
    }
    return f;
}

const QString LoadStatement = QStringLiteral(
    "SELECT Person.*, Position.Position_name AS join_position, "
    "Company.Company_Name AS join_company, Department.Department AS join_department, "
    "Location.Location AS join_location "
    "FROM Person "
    "LEFT JOIN Position ON Position.PositionID = Person.Position_ID "
    "LEFT JOIN Company ON Person.Company_ID = Company.Company_ID "
    "LEFT JOIN Department ON Person.Department_ID = Department.Department_ID "
    "LEFT JOIN Location ON Person.Location_ID = Location.Location_ID "
    "WHERE Person.Person_ID = ?");

const char* const ChildTables[] = {"JobHistory", "Holiday", "Absence",  "Appraisal",
                                   "Reprimands", "Notes",   "Document", "PersonTraining"};

ComboEntries entries(core::Db& db, const QString& sql, const char* textColumn,
                     const char* keyColumn, bool trim = false) {
    ComboEntries out;
    for (const QSqlRecord& r : db.rows(sql)) {
        const QString text = Db::text(r.value(textColumn));
        out.push_back({trim ? text.trimmed() : text, keyColumn ? Db::toId(r.value(keyColumn)) : 0});
    }
    return out;
}

ComboEntries personNames(core::Db& db, const QString& sql) {
    ComboEntries out;
    for (const QSqlRecord& r : db.rows(sql))
        out.push_back({managerName(Db::text(r.value("surname")), Db::text(r.value("firstnames"))),
                       Db::toId(r.value("Person_ID"))});
    return out;
}

} // namespace

PersonRecord loadPerson(core::Db& db, qint64 personId) {
    const auto found = db.row(LoadStatement, {personId});
    if (!found)
        throw core::DbError(
            core::DbErrorKind::Other,
            QStringLiteral("There is no employee with the number %1").arg(personId));
    const QSqlRecord& row = *found;
    PersonRecord r;
    for (const auto& c : TextColumns) {
        const QString v = Db::text(row.value(c.column));
        r.*c.member = c.trimmed ? v.trimmed() : v;
    }
    for (const auto& c : DateColumns)
        r.*c.member = Db::toDate(row.value(c.column));
    for (const auto& c : FlagColumns)
        r.*c.member = isFlagSet(row.value(c.column));
    for (const auto& c : MoneyColumns) {
        const QVariant v = row.value(c.column);
        r.*c.member = v.isNull() ? std::nullopt : std::optional<Money>(Money::fromVariant(v));
    }
    for (const auto& c : NumberColumns)
        r.*c.member = numberText(row.value(c.column));
    for (const auto& c : KeyColumns) {
        const QVariant v = row.value(c.column);
        if (!v.isNull()) r.stored.*c.stored = v.toLongLong();
    }
    const QVariant salary = row.value("salary");
    if (!salary.isNull()) r.salary = Money::fromVariant(salary);

    r.firstAider = isFlagSet(row.value("firstaider"));
    r.firstAiderDate = Db::toDate(row.value("firstaiderdate"));
    r.hasLeft = isFlagSet(row.value("HasLeft"));
    r.finishDate = Db::toDate(row.value("finishdate"));
    r.finReason = Db::text(row.value("FinReason")).trimmed();
    r.exitIntDate = Db::toDate(row.value("ExitIntDate"));
    r.exitInt = Db::text(row.value("ExitInt")).trimmed();
    r.exitNotes = Db::text(row.value("ExitNotes")).trimmed();

    r.stored.personId = Db::toId(row.value("Person_ID"));
    r.stored.positionName = Db::text(row.value("join_position")).trimmed();
    r.stored.companyName = Db::text(row.value("join_company")).trimmed();
    r.stored.department = Db::text(row.value("join_department")).trimmed();
    r.stored.location = Db::text(row.value("join_location")).trimmed();
    return r;
}

qint64 insertProvisionalPerson(core::Db& db, const PersonRecord& record) {
    core::Fields f = commonFields(record);
    f.emplace_back("salary", moneyValue(record.salary));
    f.emplace_back("blndeleted", 1);
    f.emplace_back("provisional_since", QDateTime::currentDateTime());
    core::Transaction t(db);
    const qint64 id = db.insert("Person", "Person_ID", f);
    t.commit();
    if (db.backend() == core::Backend::Postgres)
        db.query("SELECT pg_advisory_lock(?, ?)", {ProvisionalLockSpace, int(id)});
    return id;
}

qint64 insertPerson(core::Db& db, const PersonRecord& record) {
    core::Fields f = commonFields(record);
    if (record.salary) f.emplace_back("salary", moneyValue(record.salary));
    f.emplace_back("blndeleted", 0);
    core::Transaction t(db);
    const qint64 id = db.insert("Person", "Person_ID", f);
    t.commit();
    return id;
}

core::LoadedRow loadedPersonRow(core::Db& db, qint64 personId) {
    return core::LoadedRow::read(db, "Person", "Person_ID", personId);
}

namespace {
void releaseProvisionalLock(core::Db& db, qint64 personId) {
    if (db.backend() != core::Backend::Postgres) return;
    db.query("SELECT pg_advisory_unlock(?, ?)", {ProvisionalLockSpace, int(personId)});
}

void removePersonWithChildren(core::Db& db, qint64 personId) {
    for (const char* table : ChildTables)
        db.exec(QStringLiteral("DELETE FROM %1 WHERE person_id = ?").arg(table), {personId});
    db.exec("DELETE FROM Person WHERE Person_ID = ? AND provisional_since IS NOT NULL", {personId});
}
} // namespace

void savePerson(core::Db& db, qint64 personId, const PersonRecord& record,
                const core::LoadedRow& loaded) {
    core::Fields f = commonFields(record);
    if (record.salary) f.emplace_back("salary", moneyValue(record.salary));
    core::Transaction t(db);
    loaded.verify(db);
    if (db.update("Person", "Person_ID", personId, f) != 1)
        throw core::DbError(
            core::DbErrorKind::Other,
            QStringLiteral("The employee with the number %1 no longer exists").arg(personId));
    // The one change of blndeleted a save makes: a new employee's early row becomes real.
    const bool wasProvisional =
        db.exec("UPDATE Person SET blndeleted = 0, provisional_since = NULL "
                "WHERE Person_ID = ? AND provisional_since IS NOT NULL",
                {personId}) > 0;
    t.commit();
    if (wasProvisional) releaseProvisionalLock(db, personId);
}

bool discardProvisionalPerson(core::Db& db, qint64 personId) {
    core::Transaction t(db);
    const QVariant since =
        db.scalar("SELECT provisional_since FROM Person WHERE Person_ID = ?", {personId});
    if (!since.isValid() || since.isNull()) return false;
    removePersonWithChildren(db, personId);
    t.commit();
    releaseProvisionalLock(db, personId);
    return true;
}

int removeAbandonedProvisionalPeople(core::Db& db, const QDateTime& sessionStart) {
    const bool postgres = db.backend() == core::Backend::Postgres;
    core::Params params;
    QString sql =
        QStringLiteral("SELECT Person_ID FROM Person WHERE provisional_since IS NOT NULL");
    if (!postgres) {
        sql += QStringLiteral(" AND provisional_since < ?");
        params << sessionStart;
    }
    int removed = 0;
    for (const QSqlRecord& r : db.rows(sql, params)) {
        const qint64 id = Db::toId(r.value(0));
        // A lock that can be taken has no program behind it any more.
        if (postgres &&
            !db.scalar("SELECT pg_try_advisory_lock(?, ?)", {ProvisionalLockSpace, int(id)})
                 .toBool())
            continue;
        try {
            core::Transaction t(db);
            removePersonWithChildren(db, id);
            t.commit();
            ++removed;
        } catch (...) {
            releaseProvisionalLock(db, id);
            throw;
        }
        releaseProvisionalLock(db, id);
    }
    return removed;
}

QString managerName(const QString& surname, const QString& firstnames) {
    return surname + QStringLiteral(", ") + firstnames;
}

ComboEntries positionEntries(core::Db& db) {
    return entries(db, "SELECT PositionID, Position_name FROM Position ORDER BY Position_name",
                   "Position_name", "PositionID", true);
}

ComboEntries ethOriginEntries(core::Db& db) {
    return entries(db, "SELECT origin FROM EthOrigin ORDER BY origin", "origin", nullptr);
}

ComboEntries locationEntries(core::Db& db) {
    return entries(db, "SELECT Location_ID, Location FROM Location ORDER BY Location", "Location",
                   "Location_ID");
}

ComboEntries departmentEntries(core::Db& db) {
    return entries(db, "SELECT Department_ID, Department FROM Department ORDER BY Department",
                   "Department", "Department_ID");
}

ComboEntries companyEntries(core::Db& db) {
    return entries(db, "SELECT Company_ID, Company_Name FROM Company ORDER BY Company_Name",
                   "Company_Name", "Company_ID");
}

ComboEntries lineManagerEntries(core::Db& db) {
    return personNames(db, "SELECT Person_ID, surname, firstnames FROM Person "
                           "WHERE IsManager = 1 AND blndeleted <> 1 ORDER BY surname");
}

ComboEntries interviewerEntries(core::Db& db) {
    return personNames(db, "SELECT Person_ID, surname, firstnames FROM Person "
                           "WHERE blndeleted <> 1 ORDER BY surname");
}

} // namespace personnel
