#include "frmemployee.h"
#include "job_history.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QSqlRecord>
#include <QTabWidget>
#include <QtTest>

using personnel::JobPeriod;
using personnel::JobPeriods;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

const QDate Today = QDate::currentDate();

qint64 addClerk(core::Db& db, const QDate& jhDate) {
    const qint64 clerk = db.insert("Position", "PositionID", {{"Position_name", "Clerk"}});
    db.insert("Position", "PositionID", {{"Position_name", "Manager"}});
    return db.insert("Person", "Person_ID",
                     {{"firstnames", "Ann"},
                      {"surname", "Lee"},
                      {"startdate", QDate(2019, 4, 1)},
                      {"JHDate", core::Db::dateOrNull(jhDate)},
                      {"Position_ID", clerk},
                      {"salary", "20000"},
                      {"HasLeft", 0},
                      {"blndeleted", 0}});
}

int archived(core::Db& db, qint64 person) {
    return db.scalar("SELECT COUNT(*) FROM JobHistory WHERE person_id = ?", {person}).toInt();
}

// What the user does on the Job Details page, then a visit to the Job History page.
enum class Step { Salary, PickPosition, TypePosition, VisitHistory };
struct Action {
    Step step;
    QString value;
};

} // namespace

class TestJobHistory : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }
    void changesArchiveOncePerDay_data();
    void changesArchiveOncePerDay();
    void clashEdges_data();
    void clashEdges();
    void addedPeriodsFindTheirPlace();
    void dialogChecks_data();
    void dialogChecks();
};

void TestJobHistory::changesArchiveOncePerDay_data() {
    QTest::addColumn<QDate>("jhDate");
    QTest::addColumn<QList<Action>>("actions");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("salary");
    QTest::addColumn<bool>("jhToday");
    const QDate past(2021, 6, 1);
    using A = Action;
    QTest::newRow("salary changed twice in a day") << past
                                                   << QList<A>{{Step::Salary, "21000"},
                                                               {Step::VisitHistory, {}},
                                                               {Step::Salary, "22000"},
                                                               {Step::VisitHistory, {}}}
                                                   << 1 << "22000" << true;
    QTest::newRow("salary changed back")
        << past
        << QList<A>{{Step::Salary, "21000"}, {Step::Salary, "20000"}, {Step::VisitHistory, {}}} << 0
        << "20000" << false;
    QTest::newRow("same position picked again")
        << past << QList<A>{{Step::PickPosition, "Clerk"}} << 1 << "20000" << true;
    QTest::newRow("position completed by typing")
        << past << QList<A>{{Step::TypePosition, "Man"}} << 1 << "20000" << true;
    QTest::newRow("period already begun today")
        << Today << QList<A>{{Step::Salary, "25000"}} << 0 << "25000" << true;
}

void TestJobHistory::changesArchiveOncePerDay() {
    QFETCH(QDate, jhDate);
    QFETCH(QList<Action>, actions);
    QFETCH(int, rows);
    QFETCH(QString, salary);
    QFETCH(bool, jhToday);
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addClerk(db, jhDate);
    QPointer<frmemployee> w = new frmemployee;
    w->loadcombos();
    w->loadperson(QString::number(id));
    for (const Action& a : actions) {
        w->tabs->setCurrentIndex(1);
        if (a.step == Step::Salary) w->txtSalary->setText(a.value);
        if (a.step == Step::PickPosition) {
            const int i = w->cboPosition->findText(a.value);
            w->cboPosition->setCurrentIndex(i);
            emit w->cboPosition->activated(i);
        }
        if (a.step == Step::TypePosition) {
            w->cboPosition->lineEdit()->clear();
            QTest::keyClicks(w->cboPosition, a.value);
        }
        if (a.step == Step::VisitHistory) w->tabs->setCurrentIndex(4);
    }
    QVERIFY(w->ok());
    delete w.data();

    QCOMPARE(archived(db, id), rows);
    const auto person = db.row("SELECT salary, JHDate FROM Person WHERE Person_ID = ?", {id});
    QCOMPARE(core::Money::fromVariant(person->value(0)), *core::Money::parse(salary));
    QCOMPARE(core::Db::toDate(person->value(1)) == Today, jhToday);
    if (rows == 1) {
        const auto r = db.row("SELECT date_from, date_to, Position, salary FROM JobHistory");
        QCOMPARE(core::Db::toDate(r->value(0)), jhDate);
        QCOMPARE(core::Db::toDate(r->value(1)), Today);
        QCOMPARE(r->value(2).toString(), QStringLiteral("Clerk"));
        QCOMPARE(core::Money::fromVariant(r->value(3)), core::Money::fromInt(20000));
    }
}

void TestJobHistory::clashEdges_data() {
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<bool>("clash");
    // Closed 2020-01-01..2020-12-31 and the open present post from 2023-01-01.
    QTest::newRow("ends where a period starts") << QDate(2019, 1, 1) << QDate(2020, 1, 1) << false;
    QTest::newRow("starts where a period ends")
        << QDate(2020, 12, 31) << QDate(2021, 5, 1) << false;
    QTest::newRow("overlaps the start") << QDate(2019, 6, 1) << QDate(2020, 2, 1) << true;
    QTest::newRow("inside") << QDate(2020, 3, 1) << QDate(2020, 4, 1) << true;
    QTest::newRow("between") << QDate(2021, 1, 1) << QDate(2022, 12, 31) << false;
    QTest::newRow("inside the open period")
        << Today.addYears(-1) << Today.addYears(-1).addDays(5) << true;
}

void TestJobHistory::clashEdges() {
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(bool, clash);
    const JobPeriods rows{{0, QDate(2023, 1, 1), {}, "Manager", "30000", {}, false},
                          {7, QDate(2020, 1, 1), QDate(2020, 12, 31), "Clerk", "20000", {}, false}};
    QCOMPARE(personnel::checkjobclash(rows, from, to, Today), clash);
}

void TestJobHistory::addedPeriodsFindTheirPlace() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 id = addClerk(db, QDate(2023, 1, 1));
    JobPeriods rows = personnel::jobHistoryRows(db, id, {QDate(2023, 1, 1), {}, "Clerk", {}, {}});
    const qint64 older = personnel::insertJobPeriod(
        db, id, {0, QDate(2019, 4, 1), QDate(2020, 1, 1), "Trainee", "15000", {}, false});
    rows = personnel::jobHistoryRows(db, id, {QDate(2023, 1, 1), {}, "Clerk", {}, {}});
    QCOMPARE(int(rows.size()), 2);

    // A past period without an end runs to the start of the next newer one.
    auto added = personnel::addJobPeriod(db, id, rows, {QDate(2020, 1, 1), {}, "Junior", "", ""},
                                         QDate(2019, 4, 1), Today);
    QVERIFY(!added.refused);
    QCOMPARE(added.place, 1);
    QVERIFY(!added.presentPost);
    auto r = db.row("SELECT date_to, Position, salary FROM JobHistory WHERE JobHistory_ID = ?",
                    {rows[1].id});
    QCOMPARE(core::Db::toDate(r->value(0)), QDate(2023, 1, 1));
    QVERIFY(r->value(2).isNull());
    QCOMPARE(archived(db, id), 2);
    QCOMPARE(rows[2].id, older);

    // A newer period becomes the present post and closes the one it replaces.
    added = personnel::addJobPeriod(db, id, rows, {QDate(2025, 3, 1), {}, "Manager", "30000", ""},
                                    QDate(2019, 4, 1), Today);
    QVERIFY(added.presentPost);
    QCOMPARE(added.place, 0);
    QCOMPARE(rows[0].id, 0);
    QVERIFY(rows[1].id != 0);
    r = db.row("SELECT date_from, date_to, Position FROM JobHistory WHERE JobHistory_ID = ?",
               {rows[1].id});
    QCOMPARE(core::Db::toDate(r->value(0)), QDate(2023, 1, 1));
    QCOMPARE(core::Db::toDate(r->value(1)), QDate(2025, 3, 1));
    QCOMPARE(r->value(2).toString(), QStringLiteral("Clerk"));

    // Refusals write nothing: before the start date, and a clash.
    const int before = archived(db, id);
    added = personnel::addJobPeriod(
        db, id, rows, {QDate(2018, 1, 1), QDate(2018, 6, 1), "", "", ""}, QDate(2019, 4, 1), Today);
    QVERIFY(added.refused);
    QVERIFY(added.message.startsWith("You cannot enter a history"));
    added = personnel::addJobPeriod(
        db, id, rows, {QDate(2019, 6, 1), QDate(2019, 8, 1), "", "", ""}, QDate(2019, 4, 1), Today);
    QCOMPARE(added.message, QStringLiteral("Dates Clash"));
    QCOMPARE(archived(db, id), before);
}

void TestJobHistory::dialogChecks_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("salary");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("dateFormat");
    QTest::addColumn<QString>("message");
    QTest::newRow("salary no number")
        << "01/01/2020"
        << ""
        << "12a" << false << false << "Only numeric values are permitted in the salary box";
    QTest::newRow("no start") << ""
                              << ""
                              << "" << false << true << "";
    QTest::newRow("end no date") << "01/01/2020"
                                 << "31/02/2020"
                                 << "" << false << true << "";
    QTest::newRow("end first") << "02/01/2020"
                               << "01/01/2020"
                               << "" << false << false << "Start date must come before end date";
    QTest::newRow("same day") << "01/01/2020"
                              << "01/01/2020"
                              << "100" << true << false << "";
}

void TestJobHistory::dialogChecks() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, salary);
    QFETCH(bool, ok);
    QFETCH(bool, dateFormat);
    QFETCH(QString, message);
    const auto r = personnel::checkJobHistoryEntry(from, to, salary);
    QCOMPARE(r.check.ok, ok);
    QCOMPARE(r.check.dateFormat, dateFormat);
    QCOMPARE(r.check.message, message);
}

QTEST_MAIN(TestJobHistory)
#include "tst_job_history.moc"
