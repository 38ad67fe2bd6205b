#include "db.h"
#include "money.h"
#include "options.h"
#include "regional.h"
#include "salary_increase.h"
#include "session.h"
#include "testdb.h"

#include <QtTest>

using core::Db;
using core::Money;
using testsupport::TestDatabase;

namespace {

const QDate Today(2025, 6, 18);

Money money(const char* text) {
    return *Money::parse(QString::fromLatin1(text));
}

qint64 addPerson(Db& db, const QVariant& salary, const core::Fields& more = {}) {
    core::Fields f{{"surname", "Test"}, {"salary", salary}};
    f.insert(f.end(), more.begin(), more.end());
    return db.insert("Person", "Person_ID", f);
}

QString salaryOf(Db& db, qint64 id) {
    const QVariant v = db.scalar("SELECT salary FROM Person WHERE Person_ID = ?", {id});
    return v.isNull() ? QStringLiteral("<null>") : Money::fromVariant(v).toString(4);
}

} // namespace

class TestOptionsSalary : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void optionChecks_data();
    void optionChecks();
    void optionsSaveAndReload_data();
    void optionsSaveAndReload();
    void anotherUsersChangeIsNeverOverwritten();
    void raisedSalaries_data();
    void raisedSalaries();
    void increaseWritesHistoryForCurrentSalariedEmployees();
    void failureMidwayChangesNothing();

private:
    std::unique_ptr<TestDatabase> db_;
};

void TestOptionsSalary::init() {
    db_ = std::make_unique<TestDatabase>();
    core::session() = core::SessionState{};
    core::session().language = core::regional::UK;
}

void TestOptionsSalary::cleanup() {
    db_.reset();
}

void TestOptionsSalary::optionChecks_data() {
    QTest::addColumn<QString>("absence");
    QTest::addColumn<QString>("backup");
    QTest::addColumn<QString>("pat");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("patLength");
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("message");
    using F = admin::OptionsField;
    const QString backupMessage = "Please enter a number in the Backup notification box";
    const QString absenceMessage = "Please enter a number in the days absent notification box only";
    QTest::newRow("fine") << "10"
                          << "7"
                          << ""
                          << "20"
                          << "" << int(F::None) << "";
    QTest::newRow("backup blank") << "10"
                                  << ""
                                  << ""
                                  << ""
                                  << "" << int(F::DaysBackup) << backupMessage;
    QTest::newRow("backup checked first") << "x"
                                          << "y"
                                          << ""
                                          << ""
                                          << "" << int(F::DaysBackup) << backupMessage;
    QTest::newRow("absence words") << "ten"
                                   << "7"
                                   << ""
                                   << ""
                                   << "" << int(F::DaysAbsence) << absenceMessage;
    QTest::newRow("absence too big") << "99999"
                                     << "7"
                                     << ""
                                     << ""
                                     << "" << int(F::DaysAbsence) << absenceMessage;
    QTest::newRow("pat date unreadable") << "10"
                                         << "7"
                                         << "31/02/2025"
                                         << ""
                                         << "" << int(F::PatTest) << "";
    QTest::newRow("blank tax is 0, no message") << "10"
                                                << "7"
                                                << ""
                                                << "  "
                                                << "" << int(F::None) << "";
    QTest::newRow("tax that is no number")
        << "10"
        << "7"
        << ""
        << "twenty"
        << "" << int(F::BaseRate) << "Please enter Basic rate tax as a number";
    QTest::newRow("tax with a currency sign")
        << "10"
        << "7"
        << ""
        << "£20"
        << "" << int(F::BaseRate) << "Please enter Basic rate tax as a number";
    QTest::newRow("length that is no number")
        << "10"
        << "7"
        << "03/04/2025"
        << ""
        << "a year" << int(F::PatLength)
        << "Please enter the months the PAT test is valid for as a number";
    QTest::newRow("length without its date is not read") << "10"
                                                         << "7"
                                                         << ""
                                                         << ""
                                                         << "a year" << int(F::None) << "";
}

void TestOptionsSalary::optionChecks() {
    QFETCH(QString, absence);
    QFETCH(QString, backup);
    QFETCH(QString, pat);
    QFETCH(QString, rate);
    QFETCH(QString, patLength);
    QFETCH(int, field);
    QFETCH(QString, message);
    admin::OptionsInput in;
    in.daysAbsence = absence;
    in.daysBackup = backup;
    in.patTest = pat;
    in.baseRate = rate;
    in.patLength = patLength;
    const admin::OptionsRefusal r = admin::checkOptions(in);
    QCOMPARE(int(r.field), field);
    QCOMPARE(r.message, message);
}

void TestOptionsSalary::optionsSaveAndReload_data() {
    QTest::addColumn<bool>("emptyTable");
    QTest::addColumn<QString>("rate");
    QTest::addColumn<QString>("pat");
    QTest::addColumn<QString>("patLength");
    QTest::addColumn<QString>("fire");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QVariant>("storedRate");
    QTest::addColumn<QDate>("storedPat");
    QTest::addColumn<QVariant>("storedPatLength");
    QTest::addColumn<QDate>("storedFire");
    QTest::addColumn<QString>("storedLanguage");
    QTest::newRow("every field") << false << "20"
                                 << "03/04/2025"
                                 << "12"
                                 << "01/12/2024"
                                 << "English (US)" << QVariant(20) << QDate(2025, 4, 3)
                                 << QVariant(12) << QDate(2024, 12, 1) << "English (US)";
    QTest::newRow("cleared dates and blank tax")
        << false << " "
        << ""
        << "12"
        << "  "
        << "English (UK)" << QVariant(0) << QDate() << QVariant() << QDate() << "English (UK)";
    QTest::newRow("figures as people type them")
        << false << "1,000"
        << "03/04/2025"
        << " 6 "
        << ""
        << "" << QVariant(1000) << QDate(2025, 4, 3) << QVariant(6) << QDate() << "English (UK)";
    QTest::newRow("empty table gets its row") << true << "22"
                                              << ""
                                              << ""
                                              << "03/04/2025"
                                              << "English (UK)" << QVariant(22) << QDate()
                                              << QVariant() << QDate(2025, 4, 3) << "English (UK)";
}

void TestOptionsSalary::optionsSaveAndReload() {
    QFETCH(bool, emptyTable);
    QFETCH(QString, rate);
    QFETCH(QString, pat);
    QFETCH(QString, patLength);
    QFETCH(QString, fire);
    QFETCH(QString, language);
    QFETCH(QVariant, storedRate);
    QFETCH(QDate, storedPat);
    QFETCH(QVariant, storedPatLength);
    QFETCH(QDate, storedFire);
    QFETCH(QString, storedLanguage);
    Db& db = db_->db();
    if (emptyTable)
        db.exec("DELETE FROM options");
    else
        db.exec("UPDATE options SET pattest = ?, patlength = 6, fireexttest = ?, firelength = 6",
                {QDate(2020, 1, 1), QDate(2020, 1, 1)});
    admin::OptionsInput in{"15", rate, pat, patLength, fire, "24", "30", language};
    QVERIFY(admin::checkOptions(in).message.isEmpty());
    admin::saveOptions(db, in);

    QCOMPARE(db.scalar("SELECT COUNT(*) FROM options").toInt(), 1);
    const QSqlRecord r = *db.row("SELECT * FROM options");
    QCOMPARE(r.value("nodaysabsence").toInt(), 15);
    QCOMPARE(r.value("baserate").toInt(), storedRate.toInt());
    QCOMPARE(Db::toDate(r.value("pattest")), storedPat);
    QCOMPARE(r.isNull("pattest"), !storedPat.isValid());
    QCOMPARE(r.isNull("patlength"), !storedPatLength.isValid());
    if (storedPatLength.isValid()) QCOMPARE(r.value("patlength").toInt(), storedPatLength.toInt());
    QCOMPARE(Db::toDate(r.value("fireexttest")), storedFire);
    QCOMPARE(r.isNull("fireexttest"), !storedFire.isValid());
    QCOMPARE(r.isNull("firelength"), !storedFire.isValid());
    QCOMPARE(r.value("nodaysbackup").toInt(), 30);
    QCOMPARE(Db::text(r.value("language")).trimmed(), storedLanguage);

    // The session follows at once, but the backup interval waits for the next login.
    const auto& s = core::session();
    QCOMPARE(s.NoDaysAbsence, 15);
    QCOMPARE(s.baserate, storedRate.toInt());
    QCOMPARE(s.pattest, storedPat);
    QCOMPARE(s.patlength, storedPatLength.toInt());
    QCOMPARE(s.fireexttest, storedFire);
    QCOMPARE(s.nodaysbackup, 0);
    QCOMPARE(s.language, storedLanguage);
}

void TestOptionsSalary::anotherUsersChangeIsNeverOverwritten() {
    Db& db = db_->db();
    db.exec("UPDATE options SET baserate = 20, pattest = ?, patlength = 12", {QDate(2025, 1, 2)});
    const core::LoadedRow loaded = admin::loadedOptionsRow(db);
    QVERIFY(!loaded.isEmpty());
    // Saved as loaded: nobody else wrote, so it goes through.
    admin::OptionsInput mine{"15", "21", "", "", "", "", "30", "English (UK)"};
    admin::saveOptions(db, mine, admin::loadedOptionsRow(db));
    QCOMPARE(db.scalar("SELECT baserate FROM options").toInt(), 21);

    // Another user saves after this screen opened: this save writes nothing.
    const core::LoadedRow before = admin::loadedOptionsRow(db);
    {
        auto other = db_->openSecond("other-user");
        other->exec("UPDATE options SET baserate = 40");
    }
    mine.baseRate = "25";
    QVERIFY_THROWS_EXCEPTION(core::RowChanged, admin::saveOptions(db, mine, before));
    QVERIFY(!db.inTransaction());
    QCOMPARE(db.scalar("SELECT baserate FROM options").toInt(), 40);
    QCOMPARE(core::session().baserate, 21);
    // The reload shows the row as the other user left it.
    const admin::OptionsInput now = admin::readOptions(db);
    QCOMPARE(now.baseRate, QString("40"));
    QCOMPARE(now.daysAbsence, QString("15"));
    QCOMPARE(now.patTest, QString());
    QCOMPARE(now.patLength, QString());
    QCOMPARE(now.daysBackup, QString("30"));
}

void TestOptionsSalary::raisedSalaries_data() {
    QTest::addColumn<QString>("salary");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<QString>("raised");
    QTest::newRow("3.5% of 20000") << "20000"
                                   << "3.5"
                                   << "20700.00";
    QTest::newRow("to 12.056 rounds up a penny") << "11.6"
                                                 << "3.93103448"
                                                 << "";
    QTest::newRow("12.056") << "12.056"
                            << "0"
                            << "12.06";
    QTest::newRow("12.996 carries") << "12.996"
                                    << "0"
                                    << "13.00";
    QTest::newRow("half a penny up") << "10.01"
                                     << "50"
                                     << "15.02";
    QTest::newRow("3.5% of 33333.33") << "33333.33"
                                      << "3.5"
                                      << "34500.00";
    QTest::newRow("3.5% of 33333.32") << "33333.32"
                                      << "3.5"
                                      << "34499.99";
    QTest::newRow("a cut") << "1000"
                           << "-2.5"
                           << "975.00";
    QTest::newRow("point five") << "200"
                                << ".5"
                                << "201.00";
}

void TestOptionsSalary::raisedSalaries() {
    QFETCH(QString, salary);
    QFETCH(QString, percent);
    QFETCH(QString, raised);
    const auto pct = admin::parsePercent(percent);
    if (raised.isEmpty()) {
        QVERIFY(!pct); // more than four decimals is no percentage the box takes
        return;
    }
    QVERIFY(pct);
    QCOMPARE(admin::raisedSalary(*Money::parse(salary), *pct).toString(2), raised);
}

void TestOptionsSalary::increaseWritesHistoryForCurrentSalariedEmployees() {
    Db& db = db_->db();
    const qint64 pos = db.insert("Position", "PositionID", {{"Position_Name", "Clerk"}});
    const qint64 a = addPerson(db, money("20000").toVariant(),
                               {{"Position_ID", pos},
                                {"JHDate", QDate(2024, 1, 1)},
                                {"jhnote", " Promoted "},
                                {"startdate", QDate(2020, 5, 5)}});
    const qint64 b =
        addPerson(db, money("12345.67").toVariant(), {{"startdate", QDate(2021, 2, 3)}});
    const qint64 noSalary = addPerson(db, QVariant());
    const qint64 leaver = addPerson(db, money("5000").toVariant(), {{"HasLeft", 1}});
    const qint64 deleted = addPerson(db, money("6000").toVariant(), {{"blndeleted", 1}});

    QCOMPARE(admin::increaseSalaries(db, "3.5", Today), 2);
    QVERIFY(!db.inTransaction());
    QCOMPARE(salaryOf(db, a), QString("20700.0000"));
    QCOMPARE(salaryOf(db, b), QString("12777.77") + "00"); // 12777.768... rounds up
    QCOMPARE(salaryOf(db, noSalary), QString("<null>"));
    QCOMPARE(salaryOf(db, leaver), QString("5000.0000"));
    QCOMPARE(salaryOf(db, deleted), QString("6000.0000"));

    const auto rows = db.rows("SELECT person_id, date_from, date_to, Position, salary, notes "
                              "FROM JobHistory ORDER BY person_id");
    QCOMPARE(rows.size(), size_t(2));
    QCOMPARE(Db::toId(rows[0].value(0)), a);
    QCOMPARE(Db::toDate(rows[0].value(1)), QDate(2024, 1, 1));
    QCOMPARE(Db::toDate(rows[0].value(2)), Today);
    QCOMPARE(Db::text(rows[0].value(3)), QString("Clerk"));
    QCOMPARE(Money::fromVariant(rows[0].value(4)), money("20000"));
    QCOMPARE(Db::text(rows[0].value(5)), QString("Promoted"));
    QCOMPARE(Db::toId(rows[1].value(0)), b);
    QCOMPARE(Db::toDate(rows[1].value(1)), QDate(2021, 2, 3)); // no JHDate: the start date
    QVERIFY(rows[1].isNull(3));
    QCOMPARE(Money::fromVariant(rows[1].value(4)), money("12345.67"));

    const QSqlRecord p = *db.row("SELECT JHDate, jhnote FROM Person WHERE Person_ID = ?", {b});
    QCOMPARE(Db::toDate(p.value(0)), Today);
    QCOMPARE(Db::text(p.value(1)), QString("3.5% Salary increase"));
    const QSqlRecord l = *db.row("SELECT JHDate, jhnote FROM Person WHERE Person_ID = ?", {leaver});
    QVERIFY(l.isNull(0));
}

void TestOptionsSalary::failureMidwayChangesNothing() {
    Db& db = db_->db();
    QList<qint64> ids;
    for (int i = 0; i < 6; ++i)
        ids << addPerson(db, Money::fromInt(1000 * (i + 1)).toVariant());
    // The fifth employee's update is refused by the database itself.
    if (testsupport::testingPostgres()) {
        db.exec("CREATE FUNCTION refuse_raise() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN "
                "RAISE EXCEPTION 'refused'; END $$");
        db.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON Person FOR EACH ROW WHEN "
                               "(OLD.Person_ID = %1) EXECUTE FUNCTION refuse_raise()")
                    .arg(ids[4]));
    } else {
        db.exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON Person WHEN OLD.Person_ID "
                               "= %1 BEGIN SELECT RAISE(ABORT, 'refused'); END")
                    .arg(ids[4]));
    }
    QVERIFY_THROWS_EXCEPTION(core::DbError, admin::increaseSalaries(db, "10", Today));
    QVERIFY(!db.inTransaction());
    for (int i = 0; i < ids.size(); ++i)
        QCOMPARE(salaryOf(db, ids[i]), Money::fromInt(1000 * (i + 1)).toString(4));
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM JobHistory").toInt(), 0);
    QVERIFY(db.scalar("SELECT COUNT(*) FROM Person WHERE jhnote IS NOT NULL").toInt() == 0);
}

QTEST_MAIN(TestOptionsSalary)
#include "tst_options_salary.moc"
