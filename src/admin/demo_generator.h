#pragma once

// The demo organisation is written by one Generator whose parts live by subsystem:
// demo_people.cpp (companies, departments, posts, employees), demo_holiday_absence.cpp,
// demo_training.cpp, demo_assets.cpp, demo_helpdesk.cpp, demo_suppliers.cpp and
// demo_pettycash.cpp. A new subsystem adds its own demo_<subsystem>.cpp: it declares its part
// below as a member (void <subsystem>();), defines it in its file over the shared state and
// helpers here, puts any name lists it needs into demo_names.cpp, and takes its place in
// run() (demo_organisation.cpp) after the parts whose rows it refers to. Parts draw from the
// one Random in a fixed order, so that a seed gives the same organisation on every backend:
// a new part goes at the end of run() unless it must come earlier.

#include "demo_names.h"

namespace admin::demo {

struct Site {
    QString name;
    int town;
};

struct Staff {
    qint64 id = 0;
    QString first;
    QString surname;
    bool male = false;
    QDate dob;
    QDate start;
    QDate finish; // leavers only
    QDate jobStart;
    int company = 0;
    Dept dept = Operations;
    int role = 0;
    int site = 0;
    int town = 0;
    Money salary;
    double daysHoliday = 25;
    bool leaver = false;
    bool deleted = false;
    bool manager = false;
    QString lineManager;
    QString managerName; // "{firstnames} {surname}" of the line manager, for appraisals
    qint64 computer = 0;
    qint64 monitor = 0;

    bool current() const { return !leaver && !deleted; }
    QDate lastDay(const QDate& today) const { return leaver ? finish : today; }
    QString listName() const { return surname + ", " + first; }
    QString fullName() const { return first + ' ' + surname; }
};

class Generator {
public:
    Generator(Db& db, int employees, quint32 seed, QDate today)
        : db_(db)
        , rnd_(seed)
        , employees_(std::max(0, employees))
        , today_(today) {}

    // Reads what the installation brought, then runs the parts in order.
    DemoSummary run();

private:
    std::vector<QString> sortedTexts(const char* sql);
    void readLookups();

    // People and organisation (demo_people.cpp)
    void organisation();
    // Managers and directors were no school leavers when they started; born accordingly.
    void seasoned(Staff& s);
    void people();
    // The named contacts of a company are its own directors and managers where it has them.
    void writeCompanies();
    void writePeople();

    // Job history, holidays, absences, appraisals, reprimands, notes, documents
    // (demo_holiday_absence.cpp)
    QString holidayNote(const QDate& first, double days);
    // An earlier post in the same department that paid no more than the present one.
    int earlierRole(const Staff& s);
    bool overlaps(const std::vector<std::pair<QDate, QDate>>& taken, const QDate& from,
                  const QDate& to);
    void personnelRecords();

    // Training (demo_training.cpp)
    void training();

    // Computers, software, peripherals (demo_assets.cpp)
    void assets();

    // Helpdesk (demo_helpdesk.cpp)
    void helpdesk();

    // Suppliers and directory contacts (demo_suppliers.cpp)
    void suppliers();
    void contacts();

    // Petty cash (demo_pettycash.cpp)
    void pettyCash();

    // Shared by the parts.
    QString postcode(int town) {
        return QStringLiteral("%1%2 %3%4")
            .arg(QLatin1String(Towns[town].postcodeArea))
            .arg(rnd_.between(1, 28))
            .arg(rnd_.below(10))
            .arg(rnd_.letters(2, "ABDEFGHJLNPQRSTUWXYZ"));
    }
    QString phone(int town) { return QLatin1String(Towns[town].phonePrefix) + rnd_.digits(3); }
    QString mobile() { return QStringLiteral("07700 900") + rnd_.digits(3); }
    QString street() {
        return QStringLiteral("%1 %2")
            .arg(rnd_.between(1, 240))
            .arg(QLatin1String(rnd_.pick(Streets)));
    }
    QString locality(int town) { return QLatin1String(rnd_.pick(Towns[town].localities)); }
    QString firstName(bool male) {
        return QLatin1String(male ? rnd_.pick(MaleNames) : rnd_.pick(FemaleNames));
    }
    QString surname() { return QLatin1String(rnd_.pick(Surnames)); }
    QString personName() { return firstName(rnd_.percent(50)) + ' ' + surname(); }
    QString email(const QString& person, const QString& domain) {
        QString local = person.toLower();
        local.remove('\'');
        local.replace(' ', '.');
        return local + '@' + domain;
    }
    static QString domainOf(const QString& company) {
        QString d = company.toLower();
        d.remove(QLatin1String(" ltd"));
        d.remove(QLatin1String(" plc"));
        d.remove('&');
        d.remove('\'');
        d = d.simplified();
        d.replace(' ', '-');
        return d + QStringLiteral(".co.uk");
    }
    QDate dayWithin(const QDate& from, const QDate& to) {
        const qint64 span = from.daysTo(to);
        if (span <= 0) return from;
        return from.addDays(rnd_.below(static_cast<int>(std::min<qint64>(span + 1, 1 << 30))));
    }
    qint64 invoice(const QDate& when, Money price) {
        const qint64 id = nextInvoice_++;
        invoices_->add({id, date(when), QStringLiteral("INV") + rnd_.digits(7), money(price)});
        return id;
    }

    Db& db_;
    Random rnd_;
    int employees_;
    QDate today_;
    DemoSummary summary_;

    std::vector<QString> origins_;
    std::vector<QString> actions_;
    bool mostOrigin_ = false;
    std::map<QString, qint64> services_;
    std::vector<std::pair<qint64, QString>> courses_;

    std::vector<qint64> companyIds_;
    std::vector<int> companyTowns_;
    std::vector<qint64> deptIds_;
    std::vector<Site> sites_;
    std::vector<qint64> siteIds_;
    std::vector<qint64> roleIds_;
    std::vector<qint64> hardwareSuppliers_;
    std::vector<qint64> softwareSuppliers_;
    std::vector<qint64> printerSuppliers_;

    std::vector<Staff> staff_;
    std::vector<std::vector<QDate>> cuts_;
    Batch* invoices_ = nullptr;
    qint64 nextInvoice_ = 1;
    std::vector<qint64> printers_;
    std::vector<qint64> scanners_;
    std::vector<qint64> monitors_;
};

} // namespace admin::demo
