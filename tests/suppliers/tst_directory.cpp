#include "directory.h"
#include "supplier_record.h"
#include "testdb.h"

#include <QtTest>
#include <algorithm>

using namespace suppliers;
using testsupport::TestDatabase;

namespace {

QStringList listed(const DirectoryRows& rows) {
    QStringList out;
    for (const auto& r : rows) {
        const char* kind = r.kind == EntryKind::Employee         ? "E"
                           : r.kind == EntryKind::Contact        ? "C"
                           : r.kind == EntryKind::CompanyContact ? "Co"
                                                                 : "S";
        out << QString("%1:%2:%3").arg(kind, r.name, r.number);
    }
    return out;
}

void addPerson(core::Db& db, const QString& surname, const QString& first, const QString& ext,
               int left = 0, int deleted = 0) {
    db.insert("Person", "Person_ID",
              {{"firstnames", first},
               {"surname", surname},
               {"extno", ext},
               {"startdate", QDate(2020, 1, 1)},
               {"HasLeft", left},
               {"blndeleted", deleted}});
}

qint64 supplier(core::Db& db, const QString& name, const QString& phone) {
    SupplierText s;
    s.name = name;
    s.phone = phone;
    return insertSupplier(db, s);
}

qint64 count(core::Db& db, const QString& sql, const core::Params& params = {}) {
    return db.scalar(sql, params).toLongLong();
}

} // namespace

class TestDirectory : public QObject {
    Q_OBJECT
private slots:
    void findPeople_data();
    void findPeople();
    void findSuppliers_data();
    void findSuppliers();
    void letterTab_data();
    void letterTab();
    void contactChecks_data();
    void contactChecks();
    void contactsAddEditDelete();
    void deleteSupplierLeavesAssetsWithoutSupplier();
    void duplicateServiceEndsTheStep();
    void serviceInUseIsNotDeleted();
    void officesKeepTheirTown();
};

void TestDirectory::findPeople_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    const QStringList everyone{"E:O'Neil, Eve:104", "E:Smith, Ann:101",   "E:smithy, Bob:102",
                               "E:Öztürk, Ali:105", "C:Smalls, Tim:0207", "C:Sm_th, Joe:0208",
                               "Co:100% Dry:0300",  "Co:1000 Ltd:0301",   "C:Smith, Carla:0209"};
    QTest::newRow("nothing typed lists all, employees first") << "" << everyone;
    QTest::newRow("one letter, either case")
        << "S"
        << QStringList{"E:Smith, Ann:101", "E:smithy, Bob:102", "C:Smalls, Tim:0207",
                       "C:Sm_th, Joe:0208", "C:Smith, Carla:0209"};
    QTest::newRow("leavers and deleted left out")
        << "smith" << QStringList{"E:Smith, Ann:101", "E:smithy, Bob:102", "C:Smith, Carla:0209"};
    QTest::newRow("underscore is a letter") << "SM_" << QStringList{"C:Sm_th, Joe:0208"};
    QTest::newRow("percent is a letter") << "100%" << QStringList{"Co:100% Dry:0300"};
    QTest::newRow("digits find companies")
        << "100" << QStringList{"Co:100% Dry:0300", "Co:1000 Ltd:0301"};
    QTest::newRow("apostrophe") << "o'n" << QStringList{"E:O'Neil, Eve:104"};
    QTest::newRow("accented capital") << "ÖZ" << QStringList{"E:Öztürk, Ali:105"};
    QTest::newRow("backslash") << "\\" << QStringList{};
    QTest::newRow("quote and semicolon") << "x'; DELETE FROM Person; --" << QStringList{};
    QTest::newRow("no match") << "zz" << QStringList{};
}

void TestDirectory::findPeople() {
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    TestDatabase t;
    core::Db& db = t.db();
    addPerson(db, "Smith", "Ann", "101");
    addPerson(db, "smithy", "Bob", "102");
    addPerson(db, "Smithers", "Carl", "103", 1, 0);
    addPerson(db, "Smithson", "Dan", "106", 0, 1);
    addPerson(db, "O'Neil", "Eve", "104");
    addPerson(db, "Öztürk", "Ali", "105");
    addPersonContact(db, {"Tim", "Smalls", "0207", "", ""});
    addPersonContact(db, {"Joe", "Sm_th", "0208", "", ""});
    addCompanyContact(db, {"100% Dry", "Fay", "0300", "", ""});
    addCompanyContact(db, {"1000 Ltd", "Gus", "0301", "", ""});
    addPersonContact(db, {"Carla", "Smith", "0209", "", ""});
    // Rows of another kind the directory never lists.
    db.insert("contact", "contact_id", {{"contact_type", "Other"}, {"surname", "Smith"}});
    QCOMPARE(listed(suppliers::findPeople(db, typed)), expected);
    QCOMPARE(count(db, "SELECT COUNT(*) FROM Person"), 6);
}

void TestDirectory::findSuppliers_data() {
    QTest::addColumn<QString>("service");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("all by name") << ""
                                 << ""
                                 << QStringList{"S:Acme Cars:111", "S:acme hire:222",
                                                "S:Best_Print:333", "S:Bestprint:444"};
    QTest::newRow("prefix ignores case")
        << ""
        << "ACME" << QStringList{"S:Acme Cars:111", "S:acme hire:222"};
    QTest::newRow("underscore literal") << ""
                                        << "best_" << QStringList{"S:Best_Print:333"};
    QTest::newRow("percent literal") << ""
                                     << "%" << QStringList{};
    QTest::newRow("by service, all") << "Car Hire"
                                     << "" << QStringList{"S:Acme Cars:111", "S:acme hire:222"};
    QTest::newRow("by service and name") << "Car Hire"
                                         << "acme h" << QStringList{"S:acme hire:222"};
    QTest::newRow("by service, apostrophe") << "Printing"
                                            << "'" << QStringList{};
    QTest::newRow("service nobody provides") << "Couriers"
                                             << "" << QStringList{};
}

void TestDirectory::findSuppliers() {
    QFETCH(QString, service);
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 bestUnderscore = supplier(db, "Best_Print", "333");
    const qint64 acmeHire = supplier(db, "acme hire", "222");
    const qint64 acmeCars = supplier(db, "Acme Cars", "111");
    const qint64 bestprint = supplier(db, "Bestprint", "444");
    const qint64 cars = addService(db, "Car Hire");
    const qint64 printing = addService(db, "Printing");
    const qint64 couriers = addService(db, "Couriers");
    QVERIFY(addSupplierServices(db, acmeHire, {cars}));
    QVERIFY(addSupplierServices(db, acmeCars, {cars, printing}));
    QVERIFY(addSupplierServices(db, bestUnderscore, {printing}));
    QVERIFY(addSupplierServices(db, bestprint, {printing}));
    const QMap<QString, qint64> services{
        {"Car Hire", cars}, {"Printing", printing}, {"Couriers", couriers}};
    const DirectoryRows rows = service.isEmpty()
                                   ? suppliers::findSuppliers(db, typed)
                                   : findSuppliersByService(db, services.value(service), typed);
    QCOMPARE(listed(rows), expected);
}

void TestDirectory::letterTab_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("tab"); // -1: the strip stays
    QTest::newRow("lower case") << "smith" << 18;
    QTest::newRow("capital") << "Adams" << 0;
    QTest::newRow("last letter") << "z" << 25;
    QTest::newRow("digit") << "9 to 5" << -1;
    QTest::newRow("apostrophe first") << "'t Hooft" << -1;
    QTest::newRow("accented letter") << "Öztürk" << -1;
    QTest::newRow("empty") << "" << -1;
}

void TestDirectory::letterTab() {
    QFETCH(QString, typed);
    QFETCH(int, tab);
    QCOMPARE(letterTabFor(typed).value_or(-1), tab);
    QCOMPARE(letterTabText("ALL"), QString());
    QCOMPARE(letterTabText("Q"), QString("Q"));
}

void TestDirectory::contactChecks_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("phone");
    QTest::addColumn<bool>("refused");
    QTest::newRow("both") << "Smith"
                          << "0207" << false;
    QTest::newRow("blank name") << "  "
                                << "0207" << true;
    QTest::newRow("blank phone") << "Smith"
                                 << " " << true;
}

void TestDirectory::contactChecks() {
    QFETCH(QString, name);
    QFETCH(QString, phone);
    QFETCH(bool, refused);
    QCOMPARE(checkPersonContact({"Ann", name, phone, "", ""}),
             refused ? QString("Please enter name and phone number") : QString());
    QCOMPARE(checkCompanyContact({name, "", phone, "", ""}),
             refused ? QString("Please enter the company name and phone number") : QString());
}

void TestDirectory::contactsAddEditDelete() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 id = addPersonContact(db, {"Ann", "Smith", "0207", "0208", "ann@example.org"});
    QCOMPARE(db.scalar("SELECT contact_type FROM contact WHERE contact_id = ?", {id}).toString(),
             QString("Person"));
    updatePersonContact(db, id, {"Anne", "O'Brien", "0209", "", "anne@example.org"});
    const auto c = loadPersonContact(db, id);
    QVERIFY(c);
    QCOMPARE(QStringList({c->firstname, c->surname, c->phone, c->fax, c->email}),
             QStringList({"Anne", "O'Brien", "0209", "", "anne@example.org"}));
    QCOMPARE(listed(suppliers::findPeople(db, "o'b")), QStringList{"C:O'Brien, Anne:0209"});

    const qint64 firm = addCompanyContact(db, {"Acme", "Fay", "0300", "f@acme.test", "0301"});
    updateCompanyContact(db, firm, {"Acme Ltd", "Gus", "0302", "", ""});
    QCOMPARE(loadCompanyContact(db, firm)->company, QString("Acme Ltd"));
    QCOMPARE(db.scalar("SELECT contact_type FROM contact WHERE contact_id = ?", {firm}).toString(),
             QString("Company"));

    deleteContact(db, id);
    QVERIFY(!loadPersonContact(db, id));
    QCOMPARE(listed(suppliers::findPeople(db, "")), QStringList{"Co:Acme Ltd:0302"});
}

void TestDirectory::deleteSupplierLeavesAssetsWithoutSupplier() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 gone = supplier(db, "Gone Ltd", "1");
    const qint64 kept = supplier(db, "Kept Ltd", "2");
    const qint64 service = addService(db, "Repairs");
    QVERIFY(addSupplierServices(db, gone, {service}));
    QVERIFY(addSupplierServices(db, kept, {service}));
    addOffice(db, gone, {"Leeds", "", "", "", "", "", "", ""});
    addOffice(db, kept, {"York", "", "", "", "", "", "", ""});
    for (qint64 s : {gone, kept}) {
        db.insert("Computers", "Computer_ID", {{"Model", "PC"}, {"supplier_id", s}});
        db.insert("Software", "Software_ID", {{"Product", "Office"}, {"supplier_id", s}});
        db.insert("Peripherals", "peripheral_ID",
                  {{"Type", "Printer"}, {"BlnDeleted", 0}, {"supplier_id", s}});
    }

    deleteSupplier(db, gone);

    QVERIFY(!loadSupplier(db, gone));
    for (const char* table : {"Computers", "Software", "Peripherals"}) {
        QCOMPARE(count(db, QString("SELECT COUNT(*) FROM %1").arg(table)), 2);
        QCOMPARE(count(db, QString("SELECT COUNT(*) FROM %1 WHERE supplier_id IS NULL").arg(table)),
                 1);
        QCOMPARE(
            count(db, QString("SELECT COUNT(*) FROM %1 WHERE supplier_id = ?").arg(table), {kept}),
            1);
    }
    // No link or office is left pointing at the supplier that went.
    QCOMPARE(count(db, "SELECT COUNT(*) FROM supplierservices WHERE supplier_id NOT IN"
                       " (SELECT Supplier_ID FROM Supplier)"),
             0);
    QCOMPARE(count(db, "SELECT COUNT(*) FROM supplieroffice WHERE supplier_id NOT IN"
                       " (SELECT Supplier_ID FROM Supplier)"),
             0);
    QCOMPARE(supplierServices(db, kept).size(), size_t(1));
    QCOMPARE(supplierOffices(db, kept).size(), size_t(1));
    // The service itself stays for the others.
    const Entries services = allServices(db);
    QVERIFY(std::any_of(services.begin(), services.end(),
                        [](const Entry& e) { return e.text == "Repairs"; }));
}

void TestDirectory::duplicateServiceEndsTheStep() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 s = supplier(db, "Acme", "1");
    const qint64 a = addService(db, "A");
    const qint64 b = addService(db, "B");
    const qint64 c = addService(db, "C");
    const qint64 d = addService(db, "D");
    QVERIFY(addSupplierServices(db, s, {a, b}));
    QVERIFY(!addSupplierServices(db, s, {c, a, d}));
    QStringList texts;
    for (const auto& e : supplierServices(db, s))
        texts << e.text;
    QCOMPARE(texts, (QStringList{"A", "B", "C"}));
    removeSupplierService(db, s, b);
    QCOMPARE(supplierServices(db, s).size(), size_t(2));
    QVERIFY(addSupplierServices(db, s, {b}));
}

void TestDirectory::serviceInUseIsNotDeleted() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 s = supplier(db, "Acme", "1");
    const size_t seeded = allServices(db).size();
    const qint64 used = addService(db, "Used");
    const qint64 unused = addService(db, "Unused");
    QVERIFY(addSupplierServices(db, s, {used}));
    QVERIFY(!deleteService(db, used));
    QVERIFY(deleteService(db, unused));
    QCOMPARE(allServices(db).size(), seeded + 1);
    QCOMPARE(allServices(db).back().text, QString("Used"));
    QCOMPARE(checkNewService("  "), QString("Please enter a new service or press cancel to exit"));
    QCOMPARE(checkNewService("Couriers"), QString());
}

void TestDirectory::officesKeepTheirTown() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 s = supplier(db, "Acme", "1");
    QCOMPARE(checkOffice({" ", "1 High St", "", "", "", "", "", ""}),
             QString("You must enter a town or city in the relevant box"));
    const qint64 office =
        addOffice(db, s, {"Leeds", "1 High St", "Headingley", "LS6 1AA", "0113", "Ann", "", ""});
    updateOffice(db, office, {"York", "2 Low St", "", "YO1 1AA", "01904", "Bob", "b@x.test", "9"});
    const auto o = loadOffice(db, office);
    QVERIFY(o);
    QCOMPARE(QStringList({o->town, o->address1, o->pcode, o->phone, o->contact, o->email, o->fax}),
             QStringList({"York", "2 Low St", "YO1 1AA", "01904", "Bob", "b@x.test", "9"}));
    const auto rows = supplierOffices(db, s);
    QCOMPARE(rows.size(), size_t(1));
    QCOMPARE(rows.front().town + "/" + rows.front().phone, QString("York/01904"));
    QCOMPARE(branchCaption(o->town), QString("York Branch"));
    QCOMPARE(deleteOfficeQuestion(o->town),
             QString("Are you sure you want to delete the York Branch"));
    deleteOffice(db, office);
    QVERIFY(supplierOffices(db, s).empty());
}

QTEST_MAIN(TestDirectory)
#include "tst_directory.moc"
