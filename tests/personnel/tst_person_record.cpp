#include "loadedrow.h"
#include "person_record.h"
#include "personrows.h"
#include "session.h"
#include "testdb.h"

#include <QSqlField>
#include <QSqlRecord>
#include <QtTest>

using core::Money;
using personnel::PersonRecord;
using testsupport::TestDatabase;

namespace {

const QVariant NullText = QVariant(QMetaType::fromType<QString>());

qint64 addNamed(core::Db& db, const char* table, const char* key, const char* column,
                const QVariant& name) {
    return db.insert(table, key, {{column, name}});
}

QStringList snapshot(core::Db& db, qint64 id) {
    return testsupport::personSnapshot(db, id);
}

QVariant column(core::Db& db, qint64 id, const QString& name) {
    return db.scalar(QStringLiteral("SELECT %1 FROM Person WHERE Person_ID = ?").arg(name), {id});
}

PersonRecord newRecord(const QString& firstnames, const QString& surname) {
    PersonRecord r;
    r.firstnames = firstnames;
    r.surname = surname;
    r.startDate = QDate(2020, 1, 6);
    return r;
}

QStringList texts(const personnel::ComboEntries& entries) {
    QStringList out;
    for (const auto& e : entries)
        out << e.text;
    return out;
}

int childCount(core::Db& db, const QString& table, qint64 personId) {
    return db
        .scalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE person_id = ?").arg(table),
                {personId})
        .toInt();
}

const QStringList ChildTables = {"JobHistory", "Holiday", "Absence",  "Appraisal",
                                 "Reprimands", "Notes",   "Document", "PersonTraining"};

void addChildRows(core::Db& db, qint64 personId, qint64 trainingId) {
    const QDate d(2024, 3, 4);
    db.insert("JobHistory", "JobHistory_ID",
              {{"person_id", personId}, {"date_from", d}, {"Position", "Clerk"}});
    db.insert("Holiday", "holiday_ID",
              {{"person_id", personId}, {"date_from", d}, {"date_to", d}, {"days", 1}});
    db.insert("Absence", "absence_ID",
              {{"person_id", personId}, {"startdate", d}, {"enddate", d}, {"reason", "S"}});
    db.insert("Appraisal", "Appraisal_ID", {{"person_id", personId}, {"ADate", d}});
    db.insert("Reprimands", "Reprimand_ID", {{"person_id", personId}, {"Date", d}});
    db.insert("Notes", "Note_ID", {{"person_id", personId}, {"Date", d}, {"Description", "x"}});
    db.insert("Document", "document_id", {{"person_id", personId}, {"Date", d}});
    db.insertRow("PersonTraining", {{"person_id", personId}, {"Training_ID", trainingId}});
}

} // namespace

class TestPersonRecord : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = QStringLiteral("English (UK)"); }

    void provisionalInsertIsHiddenUntilSaved();
    void discardRemovesOnlyAProvisionalPersonAndItsRows_data();
    void discardRemovesOnlyAProvisionalPersonAndItsRows();
    void untouchedSaveChangesNothing_data();
    void untouchedSaveChangesNothing();
    void nullColumnsLoadAsEmpty();
    void saveWritesByTheRules_data();
    void saveWritesByTheRules();
    void failedSaveLeavesTheRowAsItWas();
    void saveNeverUndeletes_data();
    void saveNeverUndeletes();
    void twoUsersEditingOneEmployee_data();
    void twoUsersEditingOneEmployee();
    void numbersAreStoredAlikeOnBothBackends_data();
    void numbersAreStoredAlikeOnBothBackends();
    void abandonedEntriesAreRemovedAtStartUp();
    void comboFillsKeepTheirOrdersAndFilters();
};

void TestPersonRecord::provisionalInsertIsHiddenUntilSaved() {
    TestDatabase t;
    core::Db& db = t.db();
    PersonRecord r = newRecord("Sean", "O'Brien");
    r.isManager = true;
    const qint64 id = personnel::insertProvisionalPerson(db, r);

    QVERIFY(id > 0);
    QVERIFY(!db.inTransaction());
    QCOMPARE(column(db, id, "blndeleted").toInt(), 1);
    // Committed: another connection sees the row at once.
    auto second = t.openSecond("provisional-check");
    QCOMPARE(second->scalar("SELECT surname FROM Person WHERE Person_ID = ?", {id}).toString(),
             QStringLiteral("O'Brien"));
    QVERIFY(!texts(personnel::interviewerEntries(db)).contains("O'Brien, Sean"));
    QVERIFY(!texts(personnel::lineManagerEntries(db)).contains("O'Brien, Sean"));

    personnel::savePerson(db, id, r);
    QVERIFY(!db.inTransaction());
    QCOMPARE(column(db, id, "blndeleted").toInt(), 0);
    QVERIFY(texts(personnel::interviewerEntries(db)).contains("O'Brien, Sean"));
    QVERIFY(texts(personnel::lineManagerEntries(db)).contains("O'Brien, Sean"));
}

void TestPersonRecord::discardRemovesOnlyAProvisionalPersonAndItsRows_data() {
    QTest::addColumn<bool>("savedFirst");
    QTest::newRow("cancel of a new employee") << false;
    QTest::newRow("employee saved since") << true;
}

void TestPersonRecord::discardRemovesOnlyAProvisionalPersonAndItsRows() {
    QFETCH(bool, savedFirst);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 course = db.scalar("SELECT MIN(Course_ID) FROM Courses").toLongLong();
    const qint64 training =
        db.insert("Training", "Training_ID", {{"Course_ID", course}, {"TDate", QDate(2024, 4, 1)}});

    const qint64 other = personnel::insertPerson(db, newRecord("Kate", "Other"));
    addChildRows(db, other, training);
    const qint64 id = personnel::insertProvisionalPerson(db, newRecord("New", "Starter"));
    addChildRows(db, id, training);
    if (savedFirst) personnel::savePerson(db, id, newRecord("New", "Starter"));

    QCOMPARE(personnel::discardProvisionalPerson(db, id), !savedFirst);
    QVERIFY(!db.inTransaction());
    QCOMPARE(column(db, id, "Person_ID").isValid(), savedFirst);
    for (const QString& table : ChildTables) {
        QCOMPARE(childCount(db, table, id), savedFirst ? 1 : 0);
        QCOMPARE(childCount(db, table, other), 1);
    }
    QCOMPARE(column(db, other, "surname").toString(), QStringLiteral("Other"));
}

void TestPersonRecord::untouchedSaveChangesNothing_data() {
    QTest::addColumn<bool>("namedJoins");
    QTest::addColumn<bool>("keys");
    QTest::newRow("keys with names") << true << true;
    QTest::newRow("keys whose names are NULL") << false << true;
    QTest::newRow("no keys") << true << false;
}

void TestPersonRecord::untouchedSaveChangesNothing() {
    QFETCH(bool, namedJoins);
    QFETCH(bool, keys);
    TestDatabase t;
    core::Db& db = t.db();
    auto name = [&](const char* n) { return namedJoins ? QVariant(n) : NullText; };
    const qint64 company = addNamed(db, "Company", "Company_ID", "Company_Name", name("Acme"));
    const qint64 department =
        addNamed(db, "Department", "Department_ID", "Department", name("Sales"));
    const qint64 position = addNamed(db, "Position", "PositionID", "Position_name", name("Clerk"));
    const qint64 location = addNamed(db, "Location", "Location_ID", "Location", name("Leeds"));
    core::Fields row = testsupport::fullPersonRow(company, department, position, location);
    if (!keys)
        for (auto& [c, v] : row)
            if (c.endsWith("_ID")) v = QVariant(QMetaType::fromType<qint64>());
    const qint64 id = db.insert("Person", "Person_ID", row);
    const QStringList before = snapshot(db, id);

    const PersonRecord loaded = personnel::loadPerson(db, id);
    QCOMPARE(loaded.stored.personId, id);
    QCOMPARE(loaded.stored.companyName, keys && namedJoins ? QString("Acme") : QString());
    QCOMPARE(loaded.stored.positionName, keys && namedJoins ? QString("Clerk") : QString());
    QCOMPARE(loaded.stored.companyId.has_value(), keys);
    QVERIFY(!loaded.companyId && !loaded.departmentId && !loaded.positionId && !loaded.locationId);
    QCOMPARE(loaded.surname, QStringLiteral("O'Neil"));
    QCOMPARE(loaded.salary, Money::parse("30000.5"));
    QCOMPARE(loaded.empHours, QStringLiteral("37.5"));
    QCOMPARE(loaded.finishDate, QDate(2024, 5, 31));

    personnel::savePerson(db, id, loaded);
    QCOMPARE(snapshot(db, id), before);
}

void TestPersonRecord::nullColumnsLoadAsEmpty() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 id = db.insert("Person", "Person_ID", {{"surname", NullText}});
    const PersonRecord r = personnel::loadPerson(db, id);
    QCOMPARE(r.stored.personId, id);
    QVERIFY(r.surname.isEmpty() && r.firstnames.isEmpty() && r.phone.isEmpty());
    QVERIFY(!r.dob.isValid() && !r.startDate.isValid() && !r.finishDate.isValid());
    QVERIFY(!r.salary && !r.medCoCost && !r.carAllowance);
    QVERIFY(r.empHours.isEmpty() && r.compCon.isEmpty());
    QVERIFY(!r.stored.companyId && r.stored.companyName.isEmpty());
    QVERIFY(!r.firstAider && !r.hasLeft && !r.isManager);
    QVERIFY_THROWS_EXCEPTION(core::DbError, personnel::loadPerson(db, id + 1000));
}

// Each row starts from the full record above, changes one thing on the screen's side and
// names the columns the save must leave behind.
void TestPersonRecord::saveWritesByTheRules_data() {
    using Change = std::function<void(PersonRecord&)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<QVariantMap>("expected");
    const QVariant nullDate = QVariant(QMetaType::fromType<QDate>());

    QTest::newRow("salary not given keeps the old one")
        << Change([](PersonRecord& r) { r.salary.reset(); }) << QVariantMap{{"salary", "30000.5"}};
    QTest::newRow("salary given is written")
        << Change([](PersonRecord& r) { r.salary = Money::parse("31250.75"); })
        << QVariantMap{{"salary", "31250.75"}};
    QTest::newRow("unticking leaver wipes the leaving data")
        << Change([](PersonRecord& r) { r.hasLeft = false; })
        << QVariantMap{{"HasLeft", 0},    {"finishdate", nullDate}, {"ExitIntDate", nullDate},
                       {"FinReason", ""}, {"ExitInt", ""},          {"ExitNotes", ""}};
    QTest::newRow("leaver without a date left keeps the stored one") << Change([](PersonRecord& r) {
        r.finishDate = QDate();
        r.finReason = "  Retired ";
    }) << QVariantMap{{"HasLeft", 1}, {"finishdate", QDate(2024, 5, 31)}, {"FinReason", "Retired"}};
    QTest::newRow("not a first aider clears the qualification date")
        << Change([](PersonRecord& r) { r.firstAider = false; })
        << QVariantMap{{"firstaider", 0}, {"firstaiderdate", nullDate}};
    QTest::newRow("first aider without a date keeps the stored one")
        << Change([](PersonRecord& r) { r.firstAiderDate = QDate(); })
        << QVariantMap{{"firstaider", 1}, {"firstaiderdate", QDate(2018, 9, 30)}};
    QTest::newRow("blank dates are NULL") << Change([](PersonRecord& r) {
        r.dob = QDate();
        r.pensionEF = QDate();
        r.deAllocationDate = QDate();
    }) << QVariantMap{{"DOB", nullDate}, {"PensionEF", nullDate}, {"DeAllocationDate", nullDate}};
    QTest::newRow("hours that are no number leave the column, blank is NULL")
        << Change([](PersonRecord& r) {
               r.empHours = "abc";
               r.daysHoliday = " ";
               r.compCon = "7.25";
           })
        << QVariantMap{{"EmpHours", "37.5"}, {"DaysHoliday", NullText}, {"CompCon", "7.25"}};
    QTest::newRow("texts trimmed except title and phone")
        << Change([](PersonRecord& r) {
               r.surname = "  D'Arcy ";
               r.title = "Mr ";
               r.phone = " 0117 ";
               r.nok1Name = " Jo ";
           })
        << QVariantMap{
               {"surname", "D'Arcy"}, {"Title", "Mr "}, {"phone", " 0117 "}, {"NOK1_Name", "Jo"}};
    QTest::newRow("empty money boxes are NULL")
        << Change([](PersonRecord& r) { r.carAllowance.reset(); })
        << QVariantMap{{"CarAllowance", NullText}, {"PetrolAllowance", "80.75"}};
}

void TestPersonRecord::saveWritesByTheRules() {
    using Change = std::function<void(PersonRecord&)>;
    QFETCH(Change, change);
    QFETCH(QVariantMap, expected);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 company = addNamed(db, "Company", "Company_ID", "Company_Name", "Acme");
    core::Fields row = testsupport::fullPersonRow(company, 0, 0, 0);
    std::erase_if(row, [](const auto& f) {
        return f.first == "Department_ID" || f.first == "Position_ID" || f.first == "Location_ID";
    });
    const qint64 id = db.insert("Person", "Person_ID", row);

    PersonRecord r = personnel::loadPerson(db, id);
    change(r);
    personnel::savePerson(db, id, r);

    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        const QVariant stored = column(db, id, it.key());
        const QVariant want = it.value();
        if (want.isNull()) {
            QVERIFY2(stored.isNull(), qPrintable(it.key()));
        } else if (want.typeId() == QMetaType::QDate) {
            QCOMPARE(core::Db::toDate(stored), want.toDate());
        } else if (want.typeId() == QMetaType::Int) {
            QCOMPARE(stored.toInt(), want.toInt());
        } else if (Money::parse(want.toString())) {
            QCOMPARE(Money::fromVariant(stored), *Money::parse(want.toString()));
        } else {
            QCOMPARE(stored.toString(), want.toString());
        }
    }
    // Keys not picked on the screen stay as they were.
    QCOMPARE(column(db, id, "Company_ID").toLongLong(), company);
    QCOMPARE(column(db, id, "blndeleted").toInt(), 0);
}

void TestPersonRecord::failedSaveLeavesTheRowAsItWas() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 company = addNamed(db, "Company", "Company_ID", "Company_Name", "Acme");
    const qint64 other = addNamed(db, "Company", "Company_ID", "Company_Name", "Other");
    const qint64 id = personnel::insertPerson(db, newRecord("Ann", "Lee"));

    PersonRecord r = personnel::loadPerson(db, id);
    r.companyId = company;
    personnel::savePerson(db, id, r);
    QCOMPARE(column(db, id, "Company_ID").toLongLong(), company);

    const QStringList before = snapshot(db, id);
    r.surname = "Changed";
    r.companyId = other + 1000; // no such company
    QVERIFY_THROWS_EXCEPTION(core::DbError, personnel::savePerson(db, id, r));
    QVERIFY(!db.inTransaction());
    QCOMPARE(snapshot(db, id), before);
    QVERIFY_THROWS_EXCEPTION(core::DbError, personnel::savePerson(db, id + 1000, r));
}

void TestPersonRecord::saveNeverUndeletes_data() {
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("deletedAfter");
    QTest::newRow("a deleted employee stays deleted") << "deleted" << 1;
    QTest::newRow("a provisional new employee becomes real") << "provisional" << 0;
    QTest::newRow("a listed employee stays listed") << "listed" << 0;
}

void TestPersonRecord::saveNeverUndeletes() {
    QFETCH(QString, state);
    QFETCH(int, deletedAfter);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 id = state == "provisional"
                          ? personnel::insertProvisionalPerson(db, newRecord("New", "Starter"))
                          : personnel::insertPerson(db, newRecord("Old", "Hand"));
    if (state == "deleted") db.exec("UPDATE Person SET blndeleted = 1 WHERE Person_ID = ?", {id});
    PersonRecord r = personnel::loadPerson(db, id);
    r.nationality = "British";
    personnel::savePerson(db, id, r, personnel::loadedPersonRow(db, id));
    QCOMPARE(column(db, id, "blndeleted").toInt(), deletedAfter);
    QVERIFY(column(db, id, "provisional_since").isNull());
    QCOMPARE(column(db, id, "Nationality").toString(), QString("British"));
}

void TestPersonRecord::twoUsersEditingOneEmployee_data() {
    QTest::addColumn<QString>("byB");
    QTest::addColumn<bool>("refused");
    QTest::newRow("B changed the surname") << "surname" << true;
    QTest::newRow("B deleted the employee") << "delete" << true;
    QTest::newRow("B only read it") << "" << false;
}

void TestPersonRecord::twoUsersEditingOneEmployee() {
    QFETCH(QString, byB);
    QFETCH(bool, refused);
    TestDatabase t;
    core::Db& a = t.db();
    auto b = t.openSecond("user-b");
    const qint64 id = personnel::insertPerson(a, newRecord("Ann", "Lee"));

    // Both open the employee.
    const core::LoadedRow loadedByA = personnel::loadedPersonRow(a, id);
    PersonRecord onA = personnel::loadPerson(a, id);
    PersonRecord onB = personnel::loadPerson(*b, id);
    if (byB == "surname") {
        onB.surname = "Leigh";
        personnel::savePerson(*b, id, onB, personnel::loadedPersonRow(*b, id));
    } else if (byB == "delete") {
        b->exec("UPDATE Person SET blndeleted = 1 WHERE Person_ID = ?", {id});
    }
    onA.salary = Money::parse("31000");
    if (refused) {
        QVERIFY_THROWS_EXCEPTION(core::RowChanged, personnel::savePerson(a, id, onA, loadedByA));
        QVERIFY(!a.inTransaction());
        QVERIFY(column(a, id, "salary").isNull());
        QCOMPARE(column(a, id, "surname").toString(),
                 byB == "surname" ? QString("Leigh") : QString("Lee"));
        QCOMPARE(column(a, id, "blndeleted").toInt(), byB == "delete" ? 1 : 0);
    } else {
        personnel::savePerson(a, id, onA, loadedByA);
        QCOMPARE(Money::fromVariant(column(*b, id, "salary")), *Money::parse("31000"));
    }
}

void TestPersonRecord::numbersAreStoredAlikeOnBothBackends_data() {
    QTest::addColumn<QString>("columnName");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("hours to two decimals") << "EmpHours"
                                           << "12.345678"
                                           << "12.35";
    QTest::newRow("holiday days to two decimals") << "DaysHoliday"
                                                  << "25.125"
                                                  << "25.13";
    QTest::newRow("percent to four decimals") << "CompCon"
                                              << "7.123456"
                                              << "7.1235";
    QTest::newRow("hours typed with a separator") << "EmpHours"
                                                  << "1,000.5"
                                                  << "1000.5";
    QTest::newRow("money to four decimals") << "MedCoCost"
                                            << "10.123456"
                                            << "10.1235";
    QTest::newRow("salary to four decimals") << "salary"
                                             << "30000.123456"
                                             << "30000.1235";
}

void TestPersonRecord::numbersAreStoredAlikeOnBothBackends() {
    QFETCH(QString, columnName);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 id = personnel::insertPerson(db, newRecord("Ann", "Lee"));
    PersonRecord r = personnel::loadPerson(db, id);
    if (columnName == "EmpHours") r.empHours = typed;
    if (columnName == "DaysHoliday") r.daysHoliday = typed;
    if (columnName == "CompCon") r.compCon = typed;
    if (columnName == "MedCoCost") r.medCoCost = Money::parse(typed);
    if (columnName == "salary") r.salary = Money::parse(typed);
    personnel::savePerson(db, id, r, personnel::loadedPersonRow(db, id));
    QCOMPARE(Money::fromVariant(column(db, id, columnName)), *Money::parse(stored));
}

void TestPersonRecord::abandonedEntriesAreRemovedAtStartUp() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 training = db.insert("Training", "Training_ID", {{"Location", "Leeds"}});
    // A program killed during a new-employee entry: its row and the rows under it stay.
    auto killed = t.openSecond("killed-program");
    const qint64 abandoned = personnel::insertProvisionalPerson(*killed, newRecord("Half", "Done"));
    addChildRows(*killed, abandoned, training);
    killed.reset();
    // A deleted employee looks the same in every list, but is no entry under way.
    const qint64 deleted = personnel::insertPerson(db, newRecord("Gone", "Away"));
    db.exec("UPDATE Person SET blndeleted = 1 WHERE Person_ID = ?", {deleted});
    QTest::qWait(1100);
    const QDateTime sessionStart = QDateTime::currentDateTime();
    // Another program, still running, is entering an employee now.
    auto running = t.openSecond("running-program");
    const qint64 underWay =
        personnel::insertProvisionalPerson(*running, newRecord("In", "Progress"));

    QCOMPARE(personnel::removeAbandonedProvisionalPeople(db, sessionStart), 1);
    QVERIFY(!db.row("SELECT 1 FROM Person WHERE Person_ID = ?", {abandoned}));
    for (const QString& table : ChildTables)
        QCOMPARE(childCount(db, table, abandoned), 0);
    QCOMPARE(column(db, deleted, "blndeleted").toInt(), 1);
    QVERIFY(!column(db, underWay, "provisional_since").isNull());
    // Once that program is done with it, its entry can be saved as ever.
    personnel::savePerson(*running, underWay, newRecord("In", "Progress"));
    QCOMPARE(column(db, underWay, "blndeleted").toInt(), 0);
}

void TestPersonRecord::comboFillsKeepTheirOrdersAndFilters() {
    TestDatabase t;
    core::Db& db = t.db();
    for (const char* n : {"Manager", "Clerk  ", "Analyst"})
        addNamed(db, "Position", "PositionID", "Position_name", n);
    for (const char* n : {"Zeta Ltd", "Acme"})
        addNamed(db, "Company", "Company_ID", "Company_Name", n);
    const qint64 sales = addNamed(db, "Department", "Department_ID", "Department", "Sales");
    addNamed(db, "Department", "Department_ID", "Department", "Accounts");

    auto person = [&](const char* first, const char* last, bool manager, int deleted, int left) {
        PersonRecord r = newRecord(first, last);
        r.isManager = manager;
        r.hasLeft = left;
        const qint64 id = personnel::insertPerson(db, r);
        db.exec("UPDATE Person SET blndeleted = ? WHERE Person_ID = ?", {deleted, id});
    };
    person("Mary", "O'Neil", true, 0, 0);
    person("Gone", "Deleted", true, 1, 0);
    person("Pat", "Brown", false, 0, 0);
    person("Left", "Walker", true, 0, 1);
    person("Ann", "Adams", true, 0, 0);

    QCOMPARE(texts(personnel::positionEntries(db)), QStringList({"Analyst", "Clerk", "Manager"}));
    QCOMPARE(texts(personnel::companyEntries(db)), QStringList({"Acme", "Zeta Ltd"}));
    const auto departments = personnel::departmentEntries(db);
    QCOMPARE(texts(departments), QStringList({"Accounts", "Sales"}));
    QCOMPARE(departments.back().id, sales);
    QVERIFY(!personnel::ethOriginEntries(db).empty());
    QCOMPARE(texts(personnel::lineManagerEntries(db)),
             QStringList({"Adams, Ann", "O'Neil, Mary", "Walker, Left"}));
    QCOMPARE(texts(personnel::interviewerEntries(db)),
             QStringList({"Adams, Ann", "Brown, Pat", "O'Neil, Mary", "Walker, Left"}));
}

QTEST_MAIN(TestPersonRecord)
#include "tst_person_record.moc"
