#include "create_database.h"
#include "db.h"
#include "demo_organisation.h"
#include "logins.h"
#include "money.h"
#include "schema.h"
#include "session.h"
#include "settings.h"
#include "testdb.h"

#include <QFileInfo>
#include <QtTest>

using core::Db;
using core::Money;
using testsupport::TestDatabase;

namespace {

// A fixed day, so that a run just before midnight compares like with like.
const QDate Today(2025, 6, 18);

struct Fingerprint {
    std::vector<std::pair<QString, qint64>> counts;
    QStringList names;
    QString holidayDays;
    QString salaries;
    bool operator==(const Fingerprint&) const = default;
};

Fingerprint fingerprint(Db& db, const admin::DemoSummary& summary) {
    Fingerprint f;
    for (const auto& [table, rows] : summary.tables)
        f.counts.emplace_back(
            table, db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)).toLongLong());
    for (const QSqlRecord& r :
         db.rows("SELECT firstnames, surname FROM Person ORDER BY Person_ID LIMIT 10"))
        f.names << Db::text(r.value(0)) + ' ' + Db::text(r.value(1));
    f.holidayDays = Money::fromVariant(db.scalar("SELECT SUM(days) FROM Holiday")).toString(1);
    f.salaries = Money::fromVariant(db.scalar("SELECT SUM(salary) FROM Person")).toString(4);
    return f;
}

int workingDays(const QDate& from, const QDate& to) {
    int n = 0;
    for (QDate d = from; d <= to; d = d.addDays(1))
        if (d.dayOfWeek() < 6) ++n;
    return n;
}

} // namespace

class TestDemo : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void sameSeedGivesSameOrganisation();
    void organisationIsPlausible();
    void recordsAgreeWithEachOther();
    void noRowPointsNowhere_data();
    void noRowPointsNowhere();
    void newRowsFollowTheDemoKeys();
    void createDatabaseMakesItOnceAndRefusesData();

private:
    int count(const QString& sql, const QVariantList& args = {}) {
        return demoDb_->scalar(sql, args).toInt();
    }

    static constexpr int Employees = 400;
    std::unique_ptr<TestDatabase> demo_;
    std::unique_ptr<Db> demoDb_; // a connection of its own: other tests replace the session
    admin::DemoSummary summary_;
};

void TestDemo::initTestCase() {
    demo_ = std::make_unique<TestDatabase>();
    demoDb_ = demo_->openSecond("demo-shared");
    // Each test database opens its session under the same connection name, and closing the
    // old session would take a newer one of that name with it: the shared database gives its
    // session up before the other tests make theirs.
    core::setDb(nullptr);
    summary_ = admin::generateDemoOrganisation(*demoDb_, Employees, 3, Today);
}

void TestDemo::cleanupTestCase() {
    demoDb_.reset();
    demo_.reset();
}

void TestDemo::sameSeedGivesSameOrganisation() {
    Fingerprint first, again, other;
    {
        TestDatabase t;
        first = fingerprint(t.db(), admin::generateDemoOrganisation(t.db(), 120, 11, Today));
    }
    {
        TestDatabase t;
        again = fingerprint(t.db(), admin::generateDemoOrganisation(t.db(), 120, 11, Today));
    }
    {
        TestDatabase t;
        other = fingerprint(t.db(), admin::generateDemoOrganisation(t.db(), 120, 12, Today));
    }
    QCOMPARE(first.names.size(), 10);
    QCOMPARE(again.names, first.names);
    QCOMPARE(again.holidayDays, first.holidayDays);
    QCOMPARE(again.salaries, first.salaries);
    QVERIFY(again == first);
    QVERIFY(other.names != first.names);
}

void TestDemo::organisationIsPlausible() {
    QCOMPARE(summary_.employees, qint64(Employees));
    QCOMPARE(count("SELECT COUNT(*) FROM Person"), Employees);
    QCOMPARE(summary_.count("Person"), qint64(Employees));
    const int companies = count("SELECT COUNT(*) FROM Company");
    QVERIFY2(companies >= 3 && companies <= 5, qPrintable(QString::number(companies)));
    QCOMPARE(summary_.companies, qint64(companies));
    for (const char* table : {"Department", "Location", "Position", "Supplier", "Training",
                              "Computers", "Software", "Peripherals", "contact", "pettycash"})
        QVERIFY2(count(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)) > 0, table);
    // The directory lists people and companies; each company has its name and a phone.
    QVERIFY(count("SELECT COUNT(*) FROM contact WHERE contact_type = 'Person'") > 0);
    QCOMPARE(count("SELECT COUNT(*) FROM contact WHERE contact_type = 'Company'"), 10);
    QCOMPARE(count("SELECT COUNT(*) FROM contact WHERE contact_type = 'Company' AND"
                   " (company = '' OR phone = '' OR contactname = '')"),
             0);

    const auto share = [&](const char* condition) {
        return 100.0 *
               count(QStringLiteral("SELECT COUNT(*) FROM Person WHERE %1").arg(condition)) /
               Employees;
    };
    const double managers = share("IsManager = 1");
    const double leavers = share("HasLeft = 1");
    QVERIFY2(managers >= 3 && managers <= 10, qPrintable(QString::number(managers)));
    QVERIFY2(leavers >= 3 && leavers <= 15, qPrintable(QString::number(leavers)));

    // First aiders carry the date they qualified; some are due a refresher (35 months).
    QCOMPARE(count("SELECT COUNT(*) FROM Person WHERE (firstaider = 1) <> "
                   "(firstaiderdate IS NOT NULL)"),
             0);
    const QDate refresher = Today.addMonths(-35);
    QVERIFY(count("SELECT COUNT(*) FROM Person WHERE firstaider = 1 AND firstaiderdate < ?",
                  {refresher}) > 0);
    QVERIFY(count("SELECT COUNT(*) FROM Person WHERE firstaider = 1 AND firstaiderdate >= ?",
                  {refresher}) > 0);

    // Holidays and absences over the last three years, with half days among them.
    QVERIFY(count("SELECT COUNT(*) FROM Holiday") > Employees * 10);
    QVERIFY(count("SELECT COUNT(*) FROM Holiday WHERE days = ?", {0.5}) > 0);
    QVERIFY(count("SELECT COUNT(*) FROM Absence WHERE days = ?", {0.5}) > 0);
    QCOMPARE(count("SELECT COUNT(*) FROM Absence WHERE startdate < ? OR enddate >= ?",
                   {Today.addYears(-3).addDays(-1), Today}),
             0);
    QVERIFY(count("SELECT COUNT(DISTINCT reason) FROM Absence") >= 4);

    // Calls open and closed, each with its history.
    QVERIFY(count("SELECT COUNT(*) FROM HelpdeskCalls WHERE currentstatus = ?", {"Open"}) > 0);
    QVERIFY(count("SELECT COUNT(*) FROM HelpdeskCalls WHERE currentstatus = ?", {"Closed"}) > 0);
}

void TestDemo::recordsAgreeWithEachOther() {
    // Every employee has 1-4 earlier posts, the last one ending where the present post began.
    const auto posts =
        demoDb_->row("SELECT MIN(n), MAX(n) FROM (SELECT p.Person_ID, COUNT(j.JobHistory_ID) AS n "
                     "FROM Person p LEFT JOIN JobHistory j ON j.person_id = p.Person_ID "
                     "GROUP BY p.Person_ID) x");
    QCOMPARE(posts->value(0).toInt(), 1);
    QVERIFY(posts->value(1).toInt() <= 4);
    QCOMPARE(count("SELECT COUNT(*) FROM Person p WHERE p.JHDate <> "
                   "(SELECT MAX(j.date_to) FROM JobHistory j WHERE j.person_id = p.Person_ID)"),
             0);

    // Line managers are named "{surname}, {firstnames}" after someone who is a manager.
    QCOMPARE(count("SELECT COUNT(*) FROM Person p WHERE p.IsManager = 0 AND NOT EXISTS "
                   "(SELECT 1 FROM Person m WHERE m.IsManager = 1 "
                   "AND m.surname || ? || m.firstnames = p.Line_Manager)",
                   {", "}),
             0);

    // Leavers and only leavers have leaving data.
    QCOMPARE(count("SELECT COUNT(*) FROM Person WHERE HasLeft = 1 AND "
                   "(finishdate IS NULL OR FinReason = ? OR finishdate > ?)",
                   {"", Today}),
             0);
    QCOMPARE(count("SELECT COUNT(*) FROM Person WHERE HasLeft = 0 AND "
                   "(finishdate IS NOT NULL OR FinReason <> ? OR ExitInt <> ?)",
                   {"", ""}),
             0);

    // No one is away twice on one day.
    QCOMPARE(count("SELECT COUNT(*) FROM Holiday a JOIN Holiday b ON a.person_id = b.person_id "
                   "AND a.holiday_ID < b.holiday_ID AND a.date_from <= b.date_to "
                   "AND b.date_from <= a.date_to"),
             0);
    QCOMPARE(count("SELECT COUNT(*) FROM Holiday h JOIN Absence a ON a.person_id = h.person_id "
                   "AND h.date_from <= a.enddate AND a.startdate <= h.date_to"),
             0);

    // A booking counts its working days; a half day is one day.
    QSqlQuery q = demoDb_->query("SELECT date_from, date_to, days FROM Holiday "
                                 "UNION ALL SELECT startdate, enddate, days FROM Absence");
    int rows = 0;
    while (q.next()) {
        const QDate from = Db::toDate(q.value(0));
        const QDate to = Db::toDate(q.value(1));
        const double days = q.value(2).toDouble();
        ++rows;
        if (days == 0.5)
            QCOMPARE(to, from);
        else
            QCOMPARE(days, double(workingDays(from, to)));
    }
    QVERIFY(rows > 0);

    // Licences in use are the installations counted.
    QCOMPARE(count("SELECT COUNT(*) FROM Software s WHERE s.licensesused <> "
                   "(SELECT COUNT(*) FROM ComputerSoftware c WHERE c.Software_ID = s.Software_ID)"),
             0);

    // An invoice belongs to one asset.
    const int invoiced = count("SELECT COUNT(*) FROM (SELECT Invoice_ID FROM Computers "
                               "UNION ALL SELECT Invoice_ID FROM Software "
                               "UNION ALL SELECT Invoice_ID FROM Peripherals) a "
                               "WHERE Invoice_ID IS NOT NULL");
    QCOMPARE(invoiced, count("SELECT COUNT(*) FROM Invoices"));
    QCOMPARE(count("SELECT COUNT(*) FROM (SELECT Invoice_ID FROM Computers "
                   "UNION SELECT Invoice_ID FROM Software "
                   "UNION SELECT Invoice_ID FROM Peripherals) a WHERE Invoice_ID IS NOT NULL"),
             invoiced);

    // Each call opens with "Opened Call"; closed ones end with "Closed Call" and a date.
    QCOMPARE(count("SELECT COUNT(*) FROM HelpdeskCalls c WHERE 1 <> (SELECT COUNT(*) FROM "
                   "CallHistory h WHERE h.Call_ID = c.Call_ID AND h.Action = ?)",
                   {"Opened Call"}),
             0);
    QCOMPARE(count("SELECT COUNT(*) FROM HelpdeskCalls c WHERE (c.currentstatus = ?) <> "
                   "(c.DateClosed IS NOT NULL) OR (c.currentstatus = ?) <> EXISTS (SELECT 1 FROM "
                   "CallHistory h WHERE h.Call_ID = c.Call_ID AND h.Action = ?)",
                   {"Closed", "Closed", "Closed Call"}),
             0);
    QCOMPARE(count("SELECT COUNT(*) FROM HelpdeskCalls c JOIN CallHistory h ON h.Call_ID = "
                   "c.Call_ID JOIN CallHistory o ON o.Call_ID = c.Call_ID AND o.Action = ? "
                   "WHERE h.Date < o.Date",
                   {"Opened Call"}),
             0);

    // The petty cash box never goes below nothing, its amounts read by their sign.
    QSqlQuery cash = demoDb_->query("SELECT amount FROM pettycash ORDER BY Date, pettyid");
    Money balance;
    int entries = 0;
    while (cash.next()) {
        const QString amount = Db::text(cash.value(0));
        QVERIFY2(amount.startsWith('+') || amount.startsWith('-'), qPrintable(amount));
        const auto figure = Money::parse(amount.mid(1));
        QVERIFY2(figure, qPrintable(amount));
        balance += amount.startsWith('+') ? *figure : -*figure;
        QVERIFY2(balance >= Money(), qPrintable(amount));
        ++entries;
    }
    QVERIFY(entries > 0);
}

void TestDemo::noRowPointsNowhere_data() {
    QTest::addColumn<QString>("child");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("exempt"); // a value that needs no parent row

    const QVariant none = qint64(-1); // no key is negative
    const QVariant noText = QStringLiteral("(none)");
    const auto row = [&](const char* child, const char* column, const char* parent, const char* key,
                         const QVariant& exempt) {
        QTest::addRow("%s.%s", child, column) << child << column << parent << key << exempt;
    };
    for (const char* table : {"JobHistory", "Holiday", "Absence", "Appraisal", "Reprimands",
                              "Notes", "Document", "PersonTraining", "HelpdeskCalls", "Computers"})
        row(table, "person_id", "Person", "Person_ID", none);
    row("Person", "Company_ID", "Company", "Company_ID", none);
    row("Person", "Department_ID", "Department", "Department_ID", none);
    row("Person", "Location_ID", "Location", "Location_ID", none);
    row("Person", "Position_ID", "Position", "PositionID", none);
    row("Person", "EthOrigin", "EthOrigin", "origin", noText);
    row("JobHistory", "Position", "Position", "Position_name", noText);
    row("Absence", "reason", "Absence_Lookup", "Code", QStringLiteral("A"));
    row("PersonTraining", "Training_ID", "Training", "Training_ID", none);
    row("Training", "Course_ID", "Courses", "Course_ID", none);
    row("HelpdeskCalls", "computer_id", "Computers", "Computer_ID", none);
    row("HelpdeskCalls", "peripheral_ID", "Peripherals", "peripheral_ID", none);
    row("HelpdeskCalls", "Fault_Type", "Faults", "Fault_Types", noText);
    row("HelpdeskCalls", "currentstatus", "CallStatus", "Status", noText);
    row("CallHistory", "Call_ID", "HelpdeskCalls", "Call_ID", none);
    row("Computers", "supplier_id", "Supplier", "Supplier_ID", none);
    row("Computers", "Invoice_ID", "Invoices", "Invoice_ID", none);
    row("ComputerSoftware", "Software_ID", "Software", "Software_ID", none);
    row("ComputerSoftware", "computer_id", "Computers", "Computer_ID", none);
    row("Software", "supplier_id", "Supplier", "Supplier_ID", none);
    row("Software", "Invoice_ID", "Invoices", "Invoice_ID", none);
    row("Peripherals", "computer_id", "Computers", "Computer_ID", none);
    row("Peripherals", "supplier_id", "Supplier", "Supplier_ID", none);
    row("Peripherals", "Invoice_ID", "Invoices", "Invoice_ID", none);
    row("Peripherals", "Type", "PeripheralType", "Type", noText);
    row("supplierservices", "supplier_id", "Supplier", "Supplier_ID", none);
    row("supplierservices", "Services_ID", "services", "service_id", none);
    row("supplieroffice", "supplier_id", "Supplier", "Supplier_ID", none);
}

void TestDemo::noRowPointsNowhere() {
    QFETCH(QString, child);
    QFETCH(QString, column);
    QFETCH(QString, parent);
    QFETCH(QString, key);
    QFETCH(QVariant, exempt);
    const QString sql = QStringLiteral("SELECT COUNT(*) FROM %1 c WHERE c.%2 IS NOT NULL "
                                       "AND c.%2 <> ? AND NOT EXISTS "
                                       "(SELECT 1 FROM %3 p WHERE p.%4 = c.%2)")
                            .arg(child, column, parent, key);
    QCOMPARE(count(sql, {exempt}), 0);
    QVERIFY2(
        count(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 IS NOT NULL").arg(child, column)) >
            0,
        "the relation is used at all");
}

void TestDemo::newRowsFollowTheDemoKeys() {
    for (const auto& [table, key] :
         std::vector<std::pair<QString, QString>>{{"Person", "Person_ID"},
                                                  {"Holiday", "holiday_ID"},
                                                  {"HelpdeskCalls", "Call_ID"},
                                                  {"Invoices", "Invoice_ID"}}) {
        const qint64 highest =
            demoDb_->scalar(QStringLiteral("SELECT MAX(%1) FROM %2").arg(key, table)).toLongLong();
        core::Fields fields;
        if (table == "Holiday")
            fields = {{"person_id", demoDb_->scalar("SELECT MIN(Person_ID) FROM Person")}};
        else if (table == "Person")
            fields = {{"surname", "Newcomer"}};
        else if (table == "HelpdeskCalls")
            fields = {{"Description", "After the demo"}};
        else
            fields = {{"InvoiceNumber", "INV1"}};
        QCOMPARE(demoDb_->insert(table, key, fields), highest + 1);
    }
}

void TestDemo::createDatabaseMakesItOnceAndRefusesData() {
    testsupport::TempInstall install;
    auto& settings = core::InstallSettings::instance();
    QString user, password;
    const core::ConnectionParams server = testsupport::postgresAdminParams();
    if (testsupport::testingPostgres()) {
        settings.setValue(core::InstallSettings::Server,
                          QStringLiteral("%1:%2").arg(server.host).arg(server.port));
        settings.setValue(core::InstallSettings::Database,
                          QStringLiteral("qt_create_%1").arg(QCoreApplication::applicationPid()));
        user = server.user;
        password = server.password;
    }
    const core::ConnectionParams params = settings.connectionParams(user, password);

    // Nothing to fill before it exists, and asking leaves no file behind.
    if (!testsupport::testingPostgres()) {
        QVERIFY_THROWS_EXCEPTION(admin::CreateRefused,
                                 admin::fillDemoDatabase(settings, user, password, 10));
        QVERIFY(!QFileInfo::exists(params.sqlitePath));
    }

    const admin::CreateReport made = admin::createDatabase(settings, user, password);
    QVERIFY(made.schemaCreated);
    QCOMPARE(made.demo.employees, 0);
    QCOMPARE(settings.cleanInstall(), QString("No"));
    {
        auto db = Db::open(params, "created");
        QVERIFY(!core::schema::isEmpty(*db));
        if (!testsupport::testingPostgres()) core::verifyEmbeddedLogin(*db, "sa", "");
    }

    // Tables without data may still be filled, by either road.
    settings.setValue(core::InstallSettings::CleanInstall, "Yes");
    const admin::CreateReport filled = admin::createDatabase(settings, user, password, 25, 5);
    QVERIFY(!filled.schemaCreated);
    QCOMPARE(filled.demo.employees, 25);
    QCOMPARE(settings.cleanInstall(), QString("No"));

    // Data is never overwritten.
    QVERIFY_THROWS_EXCEPTION(admin::CreateRefused,
                             admin::createDatabase(settings, user, password, 25));
    QVERIFY_THROWS_EXCEPTION(admin::CreateRefused,
                             admin::fillDemoDatabase(settings, user, password, 25));
    {
        auto db = Db::open(params, "created");
        QCOMPARE(db->scalar("SELECT COUNT(*) FROM Person").toInt(), 25);
    }

    if (testsupport::testingPostgres()) {
        auto maintenance = Db::open(server, "create-admin");
        maintenance->exec("DROP DATABASE " + maintenance->quoteIdentifier(params.database) +
                          " WITH (FORCE)");
    }
}

QTEST_MAIN(TestDemo)
#include "tst_demo.moc"
