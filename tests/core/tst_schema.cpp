#include "db.h"
#include "logins.h"
#include "money.h"
#include "schema.h"
#include "testdb.h"

#include <QTemporaryDir>
#include <QtTest>

using core::Db;
using core::DbError;
using core::DbErrorKind;
using core::Money;
using testsupport::TestDatabase;

namespace {

int countWhere(Db& db, const QString& table, const QString& condition, const QVariantList& args) {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(table, condition), args)
        .toInt();
}

qint64 addPerson(Db& db, const QString& surname = QStringLiteral("Tester")) {
    return db.insert("Person", "Person_ID", {{"firstnames", "Pat"}, {"surname", surname}});
}

QStringList texts(Db& db, const QString& sql, const QVariantList& args = {}) {
    QStringList out;
    for (const QSqlRecord& r : db.rows(sql, args)) {
        QStringList cells;
        for (int i = 0; i < r.count(); ++i)
            cells << Db::text(r.value(i));
        out << cells.join('|');
    }
    return out;
}

} // namespace

class TestSchema : public QObject {
    Q_OBJECT
private slots:
    void referencedRowsCannotBeDeleted_data();
    void referencedRowsCannotBeDeleted();
    void flagsAndTextsHaveDefaults_data();
    void flagsAndTextsHaveDefaults();
    void seedRowsArePresent_data();
    void seedRowsArePresent();
    void optionsRowAndLogins();
    void columnOrderThatScreensRelyOn_data();
    void columnOrderThatScreensRelyOn();
    void generatedKeysAre64BitAndFollowExplicitOnes_data();
    void generatedKeysAre64BitAndFollowExplicitOnes();
    void awkwardNamesWorkUnquoted_data();
    void awkwardNamesWorkUnquoted();
    void hostileTextIsStoredAndFound_data();
    void hostileTextIsStoredAndFound();
    void moneyIsExact_data();
    void moneyIsExact();
    void datesAreComparedAsDates_data();
    void datesAreComparedAsDates();
    void emptyAndDataHoldingDatabasesAreTold_data();
    void emptyAndDataHoldingDatabasesAreTold();
    void freshDatabaseIsEmptyUntilCreated();
};

// -- the delete guards the screens turn into their messages --------------------------------

void TestSchema::referencedRowsCannotBeDeleted_data() {
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("parentKey");
    QTest::addColumn<QString>("parentName");
    QTest::addColumn<QString>("child");
    QTest::addColumn<QString>("childKey");
    QTest::addColumn<QString>("reference");

    QTest::newRow("company of an employee") << "Company"
                                            << "Company_ID"
                                            << "Company_Name"
                                            << "Person"
                                            << "Person_ID"
                                            << "Company_ID";
    QTest::newRow("department of an employee") << "Department"
                                               << "Department_ID"
                                               << "Department"
                                               << "Person"
                                               << "Person_ID"
                                               << "Department_ID";
    QTest::newRow("location of an employee") << "Location"
                                             << "Location_ID"
                                             << "Location"
                                             << "Person"
                                             << "Person_ID"
                                             << "Location_ID";
    QTest::newRow("position of an employee") << "Position"
                                             << "PositionID"
                                             << "Position_name"
                                             << "Person"
                                             << "Person_ID"
                                             << "Position_ID";
    QTest::newRow("supplier of software") << "Supplier"
                                          << "Supplier_ID"
                                          << "Name"
                                          << "Software"
                                          << "Software_ID"
                                          << "supplier_id";
    QTest::newRow("service a supplier offers") << "services"
                                               << "service_id"
                                               << "service"
                                               << "supplierservices"
                                               << "supplierservices_id"
                                               << "Services_ID";
    QTest::newRow("employee with a holiday") << "Person"
                                             << "Person_ID"
                                             << "surname"
                                             << "Holiday"
                                             << "holiday_ID"
                                             << "person_id";
    QTest::newRow("call with history") << "HelpdeskCalls"
                                       << "Call_ID"
                                       << "Description"
                                       << "CallHistory"
                                       << "CallHistory_ID"
                                       << "Call_ID";
}

void TestSchema::referencedRowsCannotBeDeleted() {
    QFETCH(QString, parent);
    QFETCH(QString, parentKey);
    QFETCH(QString, parentName);
    QFETCH(QString, child);
    QFETCH(QString, childKey);
    QFETCH(QString, reference);
    TestDatabase t;
    Db& db = t.db();
    const qint64 used = db.insert(parent, parentKey, {{parentName, "Used"}});
    const qint64 unused = db.insert(parent, parentKey, {{parentName, "Unused"}});
    db.insert(child, childKey, {{reference, used}});
    const QString remove = QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(parent, parentKey);

    try {
        db.exec(remove, {used});
        QFAIL("deleting a referenced row must fail");
    } catch (const DbError& e) {
        QCOMPARE(e.kind(), DbErrorKind::Constraint);
        QCOMPARE(e.number(), DbError::ConstraintNumber);
    }
    QCOMPARE(countWhere(db, parent, parentKey + " = ?", {used}), 1);

    // The failure leaves the connection usable, and the unreferenced row goes.
    QCOMPARE(db.exec(remove, {unused}), 1);
    QCOMPARE(countWhere(db, parent, parentKey + " = ?", {unused}), 0);

    // Nor can a row refer to one that is not there.
    QVERIFY_THROWS_EXCEPTION(DbError, db.insert(child, childKey, {{reference, unused}}));
    QCOMPARE(countWhere(db, child, reference + " = ?", {unused}), 0);
}

// -- defaults that the lists' filters depend on ----------------------------------------------

void TestSchema::flagsAndTextsHaveDefaults_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("nameColumn");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("expected");

    QTest::newRow("employee not deleted") << "Person"
                                          << "Person_ID"
                                          << "surname"
                                          << "blndeleted"
                                          << "0";
    QTest::newRow("employee not left") << "Person"
                                       << "Person_ID"
                                       << "surname"
                                       << "HasLeft"
                                       << "0";
    QTest::newRow("employee no first aider") << "Person"
                                             << "Person_ID"
                                             << "surname"
                                             << "firstaider"
                                             << "0";
    QTest::newRow("employee no manager") << "Person"
                                         << "Person_ID"
                                         << "surname"
                                         << "IsManager"
                                         << "0";
    QTest::newRow("programme not deleted") << "Training"
                                           << "Training_ID"
                                           << "Description"
                                           << "BlnDeleted"
                                           << "0";
    QTest::newRow("peripheral not deleted") << "Peripherals"
                                            << "peripheral_ID"
                                            << "Model"
                                            << "BlnDeleted"
                                            << "0";
    QTest::newRow("programme location empty") << "Training"
                                              << "Training_ID"
                                              << "Description"
                                              << "Location"
                                              << "";
    QTest::newRow("programme instructor empty") << "Training"
                                                << "Training_ID"
                                                << "Description"
                                                << "Instructor"
                                                << "";
}

void TestSchema::flagsAndTextsHaveDefaults() {
    QFETCH(QString, table);
    QFETCH(QString, key);
    QFETCH(QString, nameColumn);
    QFETCH(QString, column);
    QFETCH(QString, expected);
    TestDatabase t;
    Db& db = t.db();
    const qint64 id = db.insert(table, key, {{nameColumn, "No flag given"}});
    const QVariant value =
        db.scalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, table, key), {id});
    QVERIFY(!value.isNull());
    QCOMPARE(Db::text(value), expected);
    if (expected == "0")
        QCOMPARE(countWhere(db, table, column + " <> 1 AND " + key + " = ?", {id}), 1);

    // A NULL would hide the row from every list: it is refused.
    try {
        db.insert(table, key, {{nameColumn, "Null"}, {column, QVariant()}});
        QFAIL("NULL must be refused");
    } catch (const DbError& e) {
        QCOMPARE(e.kind(), DbErrorKind::Constraint);
    }
}

// -- rows a new database starts with ---------------------------------------------------------

void TestSchema::seedRowsArePresent_data() {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QVariantList>("args");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("absence reasons")
        << "SELECT Code, Reason FROM Absence_Lookup ORDER BY Code" << QVariantList{}
        << QStringList{"D|Doctors/Dentist", "M|Maternity Leave", "P|Parental leave",
                       "R|Paternity Leave", "S|Sickness",        "U|Unpaid leave"};
    QTest::newRow("call statuses") << "SELECT Status FROM CallStatus ORDER BY Status"
                                   << QVariantList{} << QStringList{"Closed", "Open"};
    QTest::newRow("fault types") << "SELECT Fault_Types FROM Faults ORDER BY Fault_Types"
                                 << QVariantList{}
                                 << QStringList{"Computer/Software", "Monitor", "Printer",
                                                "Scanner"};
    QTest::newRow("note action") << "SELECT Action FROM CallAction WHERE Action = ?"
                                 << QVariantList{"Note/Comment only"}
                                 << QStringList{"Note/Comment only"};
    QTest::newRow("peripheral types with screens")
        << "SELECT Type FROM PeripheralType WHERE Type IN (?, ?, ?) ORDER BY Type"
        << QVariantList{"Printer", "Scanner", "Monitor"}
        << QStringList{"Monitor", "Printer", "Scanner"};
    QTest::newRow("no users yet") << "SELECT users FROM users" << QVariantList{} << QStringList{};
}

void TestSchema::seedRowsArePresent() {
    QFETCH(QString, sql);
    QFETCH(QVariantList, args);
    QFETCH(QStringList, expected);
    TestDatabase t;
    QCOMPARE(texts(t.db(), sql, args), expected);
}

void TestSchema::optionsRowAndLogins() {
    TestDatabase t;
    Db& db = t.db();
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM options").toInt(), 1);
    const auto row = db.row("SELECT * FROM options");
    QVERIFY(row);
    QCOMPARE(row->value("NoDaysAbsence").toInt(), 10);
    QCOMPARE(row->value("SickBeforeDoc").toInt(), 7);
    QCOMPARE(row->value("baserate").toInt(), 22);
    QCOMPARE(row->value("nodaysbackup").toInt(), 7);
    QCOMPARE(Db::text(row->value("language")), QString("English (UK)"));
    for (const char* none : {"fireexttest", "pattest", "firelength", "patlength"})
        QVERIFY2(row->value(none).isNull(), none);
    // A date goes in and comes back as a date.
    db.exec("UPDATE options SET fireexttest = ?", {QDate(2024, 3, 31)});
    QCOMPARE(Db::toDate(db.scalar("SELECT fireexttest FROM options")), QDate(2024, 3, 31));

    if (testsupport::testingPostgres()) {
        // PostgreSQL keeps its logins as roles: no table of them.
        QVERIFY_THROWS_EXCEPTION(DbError, db.scalar("SELECT COUNT(*) FROM logins"));
    } else {
        core::verifyEmbeddedLogin(db, "sa", "");
        QVERIFY_THROWS_EXCEPTION(DbError, core::verifyEmbeddedLogin(db, "sa", "x"));
    }
}

// -- what "select *" readers take by position -----------------------------------------------

void TestSchema::columnOrderThatScreensRelyOn_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("leading");
    QTest::newRow("person") << "Person" << QStringList{"person_id", "firstnames", "surname"};
    QTest::newRow("department") << "Department" << QStringList{"department_id", "department"};
    QTest::newRow("location") << "Location" << QStringList{"location_id", "location"};
    QTest::newRow("position") << "Position" << QStringList{"positionid", "position_name"};
    QTest::newRow("call action") << "CallAction" << QStringList{"action"};
}

void TestSchema::columnOrderThatScreensRelyOn() {
    QFETCH(QString, table);
    QFETCH(QStringList, leading);
    TestDatabase t;
    const QSqlRecord record = t.db().query("SELECT * FROM " + table).record();
    QStringList names;
    for (int i = 0; i < leading.size() && i < record.count(); ++i)
        names << record.fieldName(i).toLower();
    QCOMPARE(names, leading);
}

// -- keys ---------------------------------------------------------------------------------

void TestSchema::generatedKeysAre64BitAndFollowExplicitOnes_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("column");
    QTest::newRow("employee") << "Person"
                              << "Person_ID"
                              << "surname";
    QTest::newRow("department") << "Department"
                                << "Department_ID"
                                << "Department";
    QTest::newRow("call") << "HelpdeskCalls"
                          << "Call_ID"
                          << "Description";
    QTest::newRow("petty cash") << "pettycash"
                                << "pettyid"
                                << "reason";
    QTest::newRow("course") << "Courses"
                            << "Course_ID"
                            << "Title";
}

void TestSchema::generatedKeysAre64BitAndFollowExplicitOnes() {
    QFETCH(QString, table);
    QFETCH(QString, key);
    QFETCH(QString, column);
    TestDatabase t;
    Db& db = t.db();
    // As a restore writes rows back with their own keys.
    const qint64 big = (qint64(1) << 40) + 7;
    db.exec(QStringLiteral("INSERT INTO %1 (%2, %3) VALUES (?, ?)").arg(table, key, column),
            {big, "restored"});
    QCOMPARE(db.scalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(key, table, column),
                       {"restored"})
                 .toLongLong(),
             big);
    const qint64 next = db.insert(table, key, {{column, "new"}});
    QCOMPARE(next, big + 1);
    QCOMPARE(db.insert(table, key, {{column, "newer"}}), big + 2);
}

// -- names that are keywords somewhere, written the way the screens write them -----------

void TestSchema::awkwardNamesWorkUnquoted_data() {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QVariantList>("args"); // "@person" stands for an employee's key
    const QDate day(2024, 5, 17);
    QTest::newRow("reprimand") << "INSERT INTO Reprimands (person_id, Date, Action, reason) "
                                  "VALUES (?, ?, ?, ?)"
                               << QVariantList{"@person", day, "Verbal warning", "Lateness"};
    QTest::newRow("reprimands by date")
        << "SELECT Date, Action FROM Reprimands WHERE Date >= ? ORDER BY Date" << QVariantList{day};
    QTest::newRow("document") << "INSERT INTO Document (person_id, Date, Title, Document) "
                                 "VALUES (?, ?, ?, ?)"
                              << QVariantList{"@person", day, "Contract", "/tmp/contract.pdf"};
    QTest::newRow("documents") << "SELECT Document, Title FROM Document WHERE Date = ?"
                               << QVariantList{day};
    QTest::newRow("note") << "INSERT INTO Notes (person_id, Date, Description) VALUES (?, ?, ?)"
                          << QVariantList{"@person", day, "Moved house"};
    QTest::newRow("notes") << "SELECT Notes.Date, Notes.Description FROM Notes ORDER BY Date DESC"
                           << QVariantList{};
    QTest::newRow("job history") << "INSERT INTO JobHistory (person_id, Position) VALUES (?, ?)"
                                 << QVariantList{"@person", "Clerk"};
    QTest::newRow("positions held")
        << "SELECT Position FROM JobHistory ORDER BY Position" << QVariantList{};
    QTest::newRow("peripheral") << "INSERT INTO Peripherals (Type, Size, Location) VALUES (?, ?, ?)"
                                << QVariantList{"Monitor", "24\"", "Reception"};
    QTest::newRow("peripherals") << "SELECT Type, Size, Location FROM Peripherals WHERE Type = ?"
                                 << QVariantList{"Monitor"};
    QTest::newRow("user") << "INSERT INTO users (users) VALUES (?)" << QVariantList{"jsmith"};
    QTest::newRow("users") << "SELECT users FROM users WHERE users = ?" << QVariantList{"jsmith"};
    QTest::newRow("options") << "SELECT language, NoDaysAbsence FROM options" << QVariantList{};
    QTest::newRow("software") << "SELECT Version, Product FROM Software ORDER BY Version"
                              << QVariantList{};
    QTest::newRow("supplier") << "SELECT Name FROM Supplier ORDER BY Name" << QVariantList{};
    QTest::newRow("petty cash") << "SELECT Date, amount FROM pettycash ORDER BY Date DESC, pettyid"
                                << QVariantList{};
    QTest::newRow("call history") << "SELECT Date, Action, Status FROM CallHistory ORDER BY Date"
                                  << QVariantList{};
    QTest::newRow("position names")
        << "SELECT Position_name FROM Position ORDER BY Position_name" << QVariantList{};
    QTest::newRow("location names")
        << "SELECT Location FROM Location ORDER BY Location" << QVariantList{};
    QTest::newRow("mixed case") << "select PERSON_ID, FirstNames, SURNAME from PERSON "
                                   "where Person_Id = ?"
                                << QVariantList{"@person"};
}

void TestSchema::awkwardNamesWorkUnquoted() {
    QFETCH(QString, sql);
    QFETCH(QVariantList, args);
    TestDatabase t;
    Db& db = t.db();
    const qint64 person = addPerson(db);
    for (QVariant& a : args)
        if (a == QVariant("@person")) a = person;
    db.exec(sql, args);
}

// -- names as people have them, and as attackers type them ---------------------------------

void TestSchema::hostileTextIsStoredAndFound_data() {
    QTest::addColumn<QString>("surname");
    QTest::addColumn<bool>("asciiOnly");
    QTest::newRow("apostrophe") << "O'Neil" << true;
    QTest::newRow("statement end") << "'; DROP TABLE person; --" << true;
    QTest::newRow("double quotes") << "Robert\"); DROP TABLE Person;--" << true;
    QTest::newRow("backslashes") << "Smith\\'\\\\" << true;
    QTest::newRow("like wildcards") << "100% _sure" << true;
    QTest::newRow("accents") << QString::fromUtf8("Öztürk-Ångström") << false;
}

void TestSchema::hostileTextIsStoredAndFound() {
    QFETCH(QString, surname);
    QFETCH(bool, asciiOnly);
    TestDatabase t;
    Db& db = t.db();
    addPerson(db, "Bystander");
    const qint64 id = addPerson(db, surname);

    QCOMPARE(Db::text(db.scalar("SELECT surname FROM Person WHERE Person_ID = ?", {id})), surname);
    const auto found = [&](const QString& condition, const QString& value) {
        QList<qint64> ids;
        for (const QSqlRecord& r :
             db.rows("SELECT Person_ID FROM Person WHERE " + condition + " ORDER BY Person_ID",
                     {value}))
            ids << r.value(0).toLongLong();
        return ids;
    };
    QCOMPARE(found("surname = ?", surname), QList<qint64>{id});
    QCOMPARE(found(Db::ciEquals("surname"), surname), QList<qint64>{id});
    QVERIFY(found(Db::ciLike("surname"), surname.left(4) + '%').contains(id));
    if (asciiOnly) {
        QCOMPARE(found(Db::ciEquals("surname"), surname.toUpper()), QList<qint64>{id});
        QCOMPARE(found(Db::ciEquals("surname"), surname.toLower()), QList<qint64>{id});
        QVERIFY(found(Db::ciLike("surname"), surname.left(4).toLower() + '%').contains(id));
    }
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM Person").toInt(), 2);
}

// -- money and dates -----------------------------------------------------------------------

void TestSchema::moneyIsExact_data() {
    QTest::addColumn<QString>("amount");
    QTest::newRow("salary with four decimals") << "1234567.8901";
    QTest::newRow("smallest unit") << "0.0001";
    QTest::newRow("negative half") << "-42.5";
    QTest::newRow("large") << "98765432.1234";
    QTest::newRow("zero") << "0";
}

void TestSchema::moneyIsExact() {
    QFETCH(QString, amount);
    const Money m = *Money::parse(amount);
    TestDatabase t;
    Db& db = t.db();
    const qint64 person =
        db.insert("Person", "Person_ID", {{"surname", "Paid"}, {"salary", QVariant::fromValue(m)}});
    const qint64 invoice = db.insert("Invoices", "Invoice_ID", {{"Price", m.toVariant()}});
    QCOMPARE(
        Money::fromVariant(db.scalar("SELECT salary FROM Person WHERE Person_ID = ?", {person})),
        m);
    QCOMPARE(
        Money::fromVariant(db.scalar("SELECT Price FROM Invoices WHERE Invoice_ID = ?", {invoice})),
        m);
    // Compared as numbers, not as text.
    QCOMPARE(countWhere(db, "Person", "salary > ? AND Person_ID = ?",
                        {(m - Money::fromUnits(1)).toVariant(), person}),
             1);
    QCOMPARE(countWhere(db, "Person", "salary >= ? AND Person_ID = ?",
                        {(m + Money::fromUnits(1)).toVariant(), person}),
             0);
}

void TestSchema::datesAreComparedAsDates_data() {
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::newRow("leap day") << QDate(1960, 2, 29) << QDate(1960, 3, 2);
    QTest::newRow("across a year end") << QDate(2024, 12, 30) << QDate(2025, 1, 3);
    QTest::newRow("single digit months") << QDate(2025, 9, 8) << QDate(2025, 10, 14);
    QTest::newRow("beyond 2038") << QDate(2038, 1, 19) << QDate(2038, 1, 20);
}

void TestSchema::datesAreComparedAsDates() {
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    TestDatabase t;
    Db& db = t.db();
    const qint64 person = addPerson(db);
    const qint64 id =
        db.insert("Holiday", "holiday_ID",
                  {{"person_id", person}, {"date_from", from}, {"date_to", to}, {"days", 2}});
    // A row on either side, so that a text comparison of dates would show.
    db.insert(
        "Holiday", "holiday_ID",
        {{"person_id", person}, {"date_from", from.addDays(-40)}, {"date_to", from.addDays(-39)}});
    db.insert("Holiday", "holiday_ID",
              {{"person_id", person}, {"date_from", to.addDays(40)}, {"date_to", to.addDays(41)}});

    const auto row = db.row("SELECT date_from, date_to FROM Holiday WHERE holiday_ID = ?", {id});
    QCOMPARE(Db::toDate(row->value(0)), from);
    QCOMPARE(Db::toDate(row->value(1)), to);
    const QDate inside = from.addDays(1);
    QCOMPARE(countWhere(db, "Holiday", "date_from <= ? AND date_to >= ?", {inside, inside}), 1);
    QCOMPARE(countWhere(db, "Holiday", "date_from BETWEEN ? AND ?", {from, to}), 1);
    QCOMPARE(countWhere(db, "Holiday", "date_from > ?", {from}), 1);
    QCOMPARE(Db::toDate(db.scalar("SELECT MAX(date_to) FROM Holiday")), to.addDays(41));

    // An empty date stays empty; a moment keeps its time.
    QVERIFY(db.scalar("SELECT DOB FROM Person WHERE Person_ID = ?", {person}).isNull());
    const qint64 call = db.insert("HelpdeskCalls", "Call_ID", {{"Description", "x"}});
    const QDateTime at(from, QTime(13, 45, 10));
    db.insert("CallHistory", "CallHistory_ID", {{"Call_ID", call}, {"Date", at}});
    QCOMPARE(Db::toDateTime(db.scalar("SELECT Date FROM CallHistory WHERE Call_ID = ?", {call})),
             at);
}

// -- what the start-up and the admin tool ask of a database ---------------------------------

void TestSchema::emptyAndDataHoldingDatabasesAreTold_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("column");
    QTest::newRow("an employee") << "Person"
                                 << "Person_ID"
                                 << "surname";
    QTest::newRow("a company") << "Company"
                               << "Company_ID"
                               << "Company_Name";
    QTest::newRow("a call") << "HelpdeskCalls"
                            << "Call_ID"
                            << "Description";
}

void TestSchema::emptyAndDataHoldingDatabasesAreTold() {
    QFETCH(QString, table);
    QFETCH(QString, key);
    QFETCH(QString, column);
    TestDatabase t;
    Db& db = t.db();
    QVERIFY(!core::schema::isEmpty(db));
    QVERIFY(!core::schema::holdsData(db));
    // Lookup rows of an organisation are no data a clean install would lose.
    db.insert("Department", "Department_ID", {{"Department", "Sales"}});
    QVERIFY(!core::schema::holdsData(db));
    db.insert(table, key, {{column, "Something"}});
    QVERIFY(core::schema::holdsData(db));
}

void TestSchema::freshDatabaseIsEmptyUntilCreated() {
    core::ConnectionParams params;
    QTemporaryDir dir;
    if (testsupport::testingPostgres()) {
        params = testsupport::postgresAdminParams();
        // A name that must be quoted to survive: mixed case and a double quote.
        params.database = QStringLiteral("Fresh \"%1\"").arg(QCoreApplication::applicationPid());
        core::schema::ensurePostgresDatabase(params);
        core::schema::ensurePostgresDatabase(params); // there already: nothing to do
        auto admin = Db::open(testsupport::postgresAdminParams(), "fresh-admin");
        QCOMPARE(
            admin->scalar("SELECT COUNT(*) FROM pg_database WHERE datname = ?", {params.database})
                .toInt(),
            1);
    } else {
        params.sqlitePath = dir.path() + "/fresh.db";
    }
    {
        auto db = Db::open(params, "fresh");
        QVERIFY(core::schema::isEmpty(*db));
        QVERIFY(!core::schema::holdsData(*db));
        core::schema::create(*db);
        QVERIFY(!core::schema::isEmpty(*db));
        QVERIFY(!core::schema::holdsData(*db));
        // The whole schema or none: a second run fails without leaving anything behind.
        QVERIFY_THROWS_EXCEPTION(DbError, core::schema::create(*db));
        QCOMPARE(db->scalar("SELECT COUNT(*) FROM Absence_Lookup").toInt(), 6);
        QVERIFY(!db->inTransaction());
    }
    if (testsupport::testingPostgres()) {
        auto admin = Db::open(testsupport::postgresAdminParams(), "fresh-admin");
        admin->exec("DROP DATABASE " + admin->quoteIdentifier(params.database) + " WITH (FORCE)");
    }
}

QTEST_MAIN(TestSchema)
#include "tst_schema.moc"
