#include "absence_records.h"
#include "datebox.h"
#include "frmabsence.h"
#include "frmemployee.h"
#include "frmholiday.h"
#include "holiday_absence_pages.h"
#include "holiday_bookings.h"
#include "job_history.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSqlRecord>
#include <QtTest>

using core::Money;
using core::MsgAnswer;
using personnel::HolidayBooking;
using personnel::HolidayBookings;
using testsupport::TestDatabase;

namespace {

const QDate Monday(2026, 3, 2);

qint64 addPerson(core::Db& db) {
    return db.insert(
        "Person", "Person_ID",
        {{"firstnames", "Ann"}, {"surname", "Lee"}, {"HasLeft", 0}, {"blndeleted", 0}});
}

// "{from}..{to} {days}" for each row of a table, in date order.
QStringList stored(core::Db& db, const QString& table, const QString& from, const QString& to) {
    QStringList out;
    for (const QSqlRecord& r :
         db.rows(QStringLiteral("SELECT %2, %3, days FROM %1 ORDER BY %2").arg(table, from, to)))
        out << QStringLiteral("%1..%2 %3")
                   .arg(core::Db::toDate(r.value(0)).toString(Qt::ISODate),
                        core::Db::toDate(r.value(1)).toString(Qt::ISODate),
                        core::plainNumber(Money::fromVariant(r.value(2))));
    return out;
}

Money days(const char* text) {
    return *Money::parse(text);
}

qint64 addAbsence(core::Db& db, qint64 person, const QDate& from, const QDate& to, const char* d,
                  const char* code) {
    return db.insert("Absence", "absence_ID",
                     {{"person_id", person},
                      {"startdate", from},
                      {"enddate", to},
                      {"days", days(d).toVariant()},
                      {"reason", code}});
}

} // namespace

class TestHolidayAbsence : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }
    void entitlement_data();
    void entitlement();
    void bookingChecks_data();
    void bookingChecks();
    void clashesCountBothEnds();
    void sickDays_data();
    void sickDays();
    void absentButton_data();
    void absentButton();
    void trainingReminders();
    void editKeepsCodesWithoutLookup();
    void editsAreCheckedAgainstTheRowAsLoaded_data();
    void editsAreCheckedAgainstTheRowAsLoaded();
    void pagesOnTheScreen();
    void yearBox();
};

void TestHolidayAbsence::entitlement_data() {
    QTest::addColumn<QString>("total");
    QTest::addColumn<QString>("taken"); // one earlier booking in January, "" for none
    QTest::addColumn<QDate>("end");
    QTest::addColumn<QString>("days");
    QTest::addColumn<int>("answer"); // -1: no question expected
    QTest::addColumn<QStringList>("holidays");
    QTest::addColumn<QStringList>("absences");
    QTest::addColumn<bool>("over");
    const QDate fri = Monday.addDays(4);
    QTest::newRow("blank total") << ""
                                 << "30" << fri << "5" << -1
                                 << QStringList{"2026-01-05..2026-01-05 30",
                                                "2026-03-02..2026-03-06 5"}
                                 << QStringList{} << false;
    QTest::newRow("exactly reaching")
        << "25"
        << "24.5" << Monday << "0.5" << -1
        << QStringList{"2026-01-05..2026-01-05 24.5", "2026-03-02..2026-03-02 0.5"} << QStringList{}
        << false;
    QTest::newRow("yes splits the booking")
        << "25"
        << "22" << fri << "5" << int(MsgAnswer::Yes)
        << QStringList{"2026-01-05..2026-01-05 22", "2026-03-02..2026-03-04 3"}
        << QStringList{"2026-03-05..2026-03-06 2"} << false;
    QTest::newRow("yes shares a half day")
        << "25"
        << "22.5" << fri << "5" << int(MsgAnswer::Yes)
        << QStringList{"2026-01-05..2026-01-05 22.5", "2026-03-02..2026-03-04 2.5"}
        << QStringList{"2026-03-04..2026-03-06 2.5"} << false;
    QTest::newRow("yes with nothing left")
        << "25"
        << "25" << Monday.addDays(1) << "2" << int(MsgAnswer::Yes)
        << QStringList{"2026-01-05..2026-01-05 25"} << QStringList{"2026-03-02..2026-03-03 2"}
        << false;
    QTest::newRow("yes ending on a weekend")
        << "25"
        << "24" << Monday.addDays(6) << "5" << int(MsgAnswer::Yes)
        << QStringList{"2026-01-05..2026-01-05 24", "2026-03-02..2026-03-02 1"}
        << QStringList{"2026-03-03..2026-03-08 4"} << false;
    QTest::newRow("no goes over") << "25"
                                  << "22" << fri << "5" << int(MsgAnswer::No)
                                  << QStringList{"2026-01-05..2026-01-05 22",
                                                 "2026-03-02..2026-03-06 5"}
                                  << QStringList{} << true;
    QTest::newRow("cancel changes nothing")
        << "25"
        << "22" << fri << "5" << int(MsgAnswer::Cancel) << QStringList{"2026-01-05..2026-01-05 22"}
        << QStringList{} << false;
}

void TestHolidayAbsence::entitlement() {
    QFETCH(QString, total);
    QFETCH(QString, taken);
    QFETCH(QDate, end);
    QFETCH(QString, days);
    QFETCH(int, answer);
    QFETCH(QStringList, holidays);
    QFETCH(QStringList, absences);
    QFETCH(bool, over);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 person = addPerson(db);
    db.insert("Holiday", "holiday_ID",
              {{"person_id", person},
               {"date_from", QDate(2026, 1, 5)},
               {"date_to", QDate(2026, 1, 5)},
               {"days", Money::parse(taken)->toVariant()}});
    const HolidayBookings shown = personnel::holidayRows(db, person, 2026);
    int asked = 0;
    const auto result = personnel::addHoliday(
        db, person, shown, {Monday, end, days, "Easter"}, "2026", total, [&](const QString& q) {
            ++asked;
            [&] { QCOMPARE(q, personnel::entitlementQuestion()); }();
            return MsgAnswer(answer);
        });
    QVERIFY(result.message.isEmpty());
    QCOMPARE(asked, answer < 0 ? 0 : 1);
    QCOMPARE(stored(db, "Holiday", "date_from", "date_to"), holidays);
    QCOMPARE(stored(db, "Absence", "startdate", "enddate"), absences);
    QCOMPARE(result.overTotal, over);
    if (!absences.isEmpty())
        QCOMPARE(db.scalar("SELECT reason FROM Absence").toString(), QStringLiteral("U"));
}

void TestHolidayAbsence::bookingChecks_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("days");
    QTest::addColumn<QString>("message"); // "" when accepted
    QTest::addColumn<QString>("stored");
    const QString spans =
        "You cannot enter a holiday that spans 2 years. Please enter each year seperately";
    QTest::newRow("half day") << "02/03/2026"
                              << "02/03/2026"
                              << "0.5"
                              << ""
                              << "0.5";
    QTest::newRow("half day without the nought") << "02/03/2026"
                                                 << "02/03/2026"
                                                 << ".5"
                                                 << ""
                                                 << "0.5";
    QTest::newRow("quarter day") << "02/03/2026"
                                 << "02/03/2026"
                                 << "0.25"
                                 << "To enter half a day please enter 0.5"
                                 << "";
    QTest::newRow("day and a half") << "02/03/2026"
                                    << "03/03/2026"
                                    << "1.5"
                                    << "You have to enter half days seperately"
                                    << "";
    QTest::newRow("spans two years") << "31/12/2026"
                                     << "01/01/2027"
                                     << "1" << spans << "";
    QTest::newRow("end before start") << "03/03/2026"
                                      << "02/03/2026"
                                      << "1"
                                      << "Please make sure the start date is before the end date"
                                      << "";
    QTest::newRow("days no number") << "02/03/2026"
                                    << "02/03/2026"
                                    << "x"
                                    << "Please enter a start date, end date and number of days."
                                    << "";
}

void TestHolidayAbsence::bookingChecks() {
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, days);
    QFETCH(QString, message);
    QFETCH(QString, stored);
    const auto holiday = personnel::checkHolidayEntry(start, end, days);
    QCOMPARE(holiday.check.message, message);
    QCOMPARE(holiday.check.ok, message.isEmpty());
    QCOMPARE(holiday.days, stored);
    // The absence dialog words the year rule its own way but agrees on everything else.
    const auto absence = personnel::checkAbsenceEntry(start, end, days, "Sickness");
    QCOMPARE(absence.check.ok, message.isEmpty());
    QCOMPARE(absence.days, stored);

    // The page checks the year again, and against the year on show.
    if (QTest::currentDataTag() != QByteArray("spans two years")) return;
    TestDatabase t;
    const qint64 person = addPerson(t.db());
    const auto year = [&](const QDate& s, const QDate& e, const char* shownYear) {
        return personnel::addHoliday(t.db(), person, {}, {s, e, "1", ""}, shownYear, "",
                                     [](const QString&) { return MsgAnswer::Yes; })
            .message;
    };
    QCOMPARE(year(QDate(2026, 12, 31), QDate(2027, 1, 1), "2026"), message);
    QVERIFY(year(Monday, Monday, "2027").startsWith("Please select the correct holiday year"));
    QCOMPARE(t.db().scalar("SELECT COUNT(*) FROM Holiday").toInt(), 0);
}

void TestHolidayAbsence::clashesCountBothEnds() {
    const std::vector<personnel::DatePeriod> booked{{Monday, Monday.addDays(4)}};
    QVERIFY(personnel::checkdateclash(booked, Monday.addDays(4), Monday.addDays(7)));
    QVERIFY(personnel::checkdateclash(booked, Monday.addDays(-3), Monday));
    QVERIFY(personnel::checkdateclash(booked, Monday.addDays(1), Monday.addDays(2)));
    QVERIFY(!personnel::checkdateclash(booked, Monday.addDays(5), Monday.addDays(7)));
    QVERIFY(!personnel::checkdateclash(booked, Monday.addDays(-3), Monday.addDays(-1)));
}

void TestHolidayAbsence::sickDays_data() {
    QTest::addColumn<QStringList>("rows"); // "{year} {days} {code}"
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("message");
    const QString ten = "This employee has had 10 days off sick this year";
    QTest::newRow("at the threshold") << QStringList{"2026 9 S", "2026 1 S"} << 10 << ten;
    QTest::newRow("below it") << QStringList{"2026 9 S", "2026 1 D"} << 10 << "";
    QTest::newRow("other year not counted") << QStringList{"2026 9 S", "2025 1 S"} << 10 << "";
    QTest::newRow("option off") << QStringList{"2026 20 S"} << 0 << "";
    QTest::newRow("halves to the even day")
        << QStringList{"2026 0.5 S", "2026 0.5 S", "2026 8.5 S"} << 8
        << "This employee has had 8 days off sick this year";
}

void TestHolidayAbsence::sickDays() {
    QFETCH(QStringList, rows);
    QFETCH(int, limit);
    QFETCH(QString, message);
    TestDatabase t;
    const qint64 person = addPerson(t.db());
    for (const QString& r : rows) {
        const QStringList p = r.split(' ');
        const QDate d(p[0].toInt(), 2, 2);
        addAbsence(t.db(), person, d, d, p[1].toLatin1().constData(), p[2].toLatin1().constData());
    }
    const auto list = personnel::absenceRows(t.db(), person);
    QCOMPARE(personnel::sickDaysMessage(list, 2026, limit), message);
}

void TestHolidayAbsence::absentButton_data() {
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QDate>("lastEnd"); // the latest row, invalid for none
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("absences");
    const QDate tue = Monday.addDays(1), fri = Monday.addDays(-3);
    QTest::newRow("first absence") << tue << QDate() << "S"
                                   << "" << QStringList{"2026-03-03..2026-03-03 1"};
    QTest::newRow("Tuesday after Monday") << tue << Monday << "S"
                                          << "" << QStringList{"2026-03-02..2026-03-03 2"};
    QTest::newRow("Monday after Friday")
        << Monday << fri << "S"
        << "" << QStringList{"2026-02-27..2026-02-27 1", "2026-03-02..2026-03-02 1"};
    QTest::newRow("after other leave")
        << tue << Monday << "D"
        << "" << QStringList{"2026-03-02..2026-03-02 1", "2026-03-03..2026-03-03 1"};
    QTest::newRow("twice in a day") << tue << tue << "S"
                                    << "The employee is already down as absent today"
                                    << QStringList{"2026-03-03..2026-03-03 1"};
}

void TestHolidayAbsence::absentButton() {
    QFETCH(QDate, today);
    QFETCH(QDate, lastEnd);
    QFETCH(QString, code);
    QFETCH(QString, message);
    QFETCH(QStringList, absences);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 person = addPerson(db);
    if (lastEnd.isValid())
        addAbsence(db, person, lastEnd, lastEnd, "1", code.toLatin1().constData());
    const QString said =
        personnel::markAbsent(db, person, personnel::absenceRows(db, person), today, 0);
    QCOMPARE(said, message);
    QCOMPARE(stored(db, "Absence", "startdate", "enddate"), absences);
}

void TestHolidayAbsence::trainingReminders() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 person = addPerson(db);
    const qint64 course = db.insert("Courses", "Course_ID", {{"Title", "First Aid"}});
    const auto book = [&](const QDate& from, const QDate& to) {
        const qint64 training =
            db.insert("Training", "Training_ID",
                      {{"Course_ID", course}, {"TDate", from}, {"Edate", to}, {"BlnDeleted", 0}});
        db.insertRow("PersonTraining", {{"person_id", person}, {"Training_ID", training}});
    };
    book(Monday.addDays(-2), Monday);             // runs into the absence
    book(Monday.addDays(3), Monday.addDays(3));   // inside it
    book(Monday.addDays(10), Monday.addDays(11)); // after it
    const QStringList reminders = personnel::checktraining(db, person, Monday, Monday.addDays(4));
    QCOMPARE(reminders.size(), 2);
    QCOMPARE(reminders[1], QStringLiteral("This employee is booked on the following training "
                                          "course.\n\nCourse StartDate: 05/03/2026\n\nCourse "
                                          "Title: First Aid\n\nPlease update training record"));
    QVERIFY(personnel::checktraining(db, person, Monday.addDays(20), Monday.addDays(20)).isEmpty());
}

void TestHolidayAbsence::editKeepsCodesWithoutLookup() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 person = addPerson(db);
    const qint64 a = addAbsence(db, person, Monday, Monday, "1", "A");
    const qint64 u = addAbsence(db, person, Monday.addDays(1), Monday.addDays(1), "1", "U");
    const auto rows = personnel::absenceRows(db, person);
    QCOMPARE(rows[0].reason, QStringLiteral("Unpaid Leave"));
    QCOMPARE(rows[1].reason, QStringLiteral("Unauthorised Absence"));
    for (const auto& r : rows)
        personnel::updateAbsence(db, r.id, {r.from, r.to, "0.5", r.reason, "edited"});
    QCOMPARE(db.scalar("SELECT reason FROM Absence WHERE absence_ID = ?", {a}).toString(),
             QStringLiteral("A"));
    QCOMPARE(db.scalar("SELECT reason FROM Absence WHERE absence_ID = ?", {u}).toString(),
             QStringLiteral("U"));
    QCOMPARE(personnel::certificateMessage("Sickness", Money::fromInt(8), 7),
             QStringLiteral("This employee has been off sick for more than 7 days. A doctor's "
                            "certificate is required."));
    QVERIFY(personnel::certificateMessage("Sickness", Money::fromInt(7), 7).isEmpty());
    QVERIFY(personnel::certificateMessage("Sickness", Money::fromInt(70), 0).isEmpty());
}

void TestHolidayAbsence::editsAreCheckedAgainstTheRowAsLoaded_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("other"); // what the second user did after the rows were read
    for (const char* table : {"Holiday", "Absence", "JobHistory"})
        for (const char* other : {"nothing", "changed", "deleted"})
            QTest::addRow("%s, %s", table, other) << QString(table) << QString(other);
}

// A booking or a past post edited on a page is written only when nobody changed or removed it
// since the page read it; a refused edit leaves the other user's row as it is.
void TestHolidayAbsence::editsAreCheckedAgainstTheRowAsLoaded() {
    QFETCH(QString, table);
    QFETCH(QString, other);
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 person = addPerson(db);
    const QString key = table == "Holiday"   ? "holiday_ID"
                        : table == "Absence" ? "absence_ID"
                                             : "JobHistory_ID";
    qint64 id = 0;
    if (table == "Holiday")
        id = db.insert("Holiday", "holiday_ID",
                       {{"person_id", person},
                        {"date_from", Monday},
                        {"date_to", Monday},
                        {"days", days("1").toVariant()},
                        {"notes", "First"}});
    else if (table == "Absence")
        id = addAbsence(db, person, Monday, Monday, "1", "A");
    else
        id = personnel::insertJobPeriod(
            db, person, {0, Monday.addYears(-1), Monday, "Clerk", "100", "First", false});
    const auto loaded =
        core::LoadedRow::of(core::LoadedRow::readEach(db, table, key, "person_id", person), id);

    auto userB = t.openSecond("user-b");
    if (other == "changed")
        userB->exec(QStringLiteral("UPDATE %1 SET notes = ? WHERE %2 = ?").arg(table, key),
                    {"By B", id});
    else if (other == "deleted")
        userB->exec(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(table, key), {id});

    bool refused = false;
    try {
        if (table == "Holiday")
            personnel::updateHoliday(db, id, {Monday, Monday, "0.5", "By A"}, loaded);
        else if (table == "Absence")
            personnel::updateAbsence(
                db, id, {Monday, Monday, "0.5", "Unauthorised Absence", "By A"}, loaded);
        else
            personnel::updateJobPeriod(
                db, {id, Monday.addYears(-1), Monday, "Clerk", "100", "By A", false}, loaded);
    } catch (const core::RowChanged&) {
        refused = true;
    }
    QCOMPARE(refused, other != "nothing");
    const auto notes =
        db.rows(QStringLiteral("SELECT notes FROM %1 WHERE person_id = ?").arg(table), {person});
    if (other == "deleted") {
        QVERIFY(notes.empty()); // never written back as a new row
        return;
    }
    QCOMPARE(notes.size(), std::size_t(1));
    QCOMPARE(notes.front().value(0).toString(), other == "changed" ? "By B" : "By A");
}

void TestHolidayAbsence::pagesOnTheScreen() {
    TestDatabase t;
    core::Db& db = t.db();
    testsupport::MessageRecorder messages;
    testsupport::DialogDriver dialogs;
    const int year = QDate::currentDate().year();
    // A week away from today, so that "Absent" below meets nothing.
    QDate mon(year, QDate::currentDate().month() == 3 ? 6 : 3, 2);
    while (mon.dayOfWeek() != 1)
        mon = mon.addDays(1);
    const qint64 person = db.insert("Person", "Person_ID",
                                    {{"firstnames", "Ann"},
                                     {"surname", "Lee"},
                                     {"DaysHoliday", 25},
                                     {"HasLeft", 0},
                                     {"blndeleted", 0}});
    db.insert("Holiday", "holiday_ID",
              {{"person_id", person},
               {"date_from", QDate(year, 1, 5)},
               {"date_to", QDate(year, 1, 5)},
               {"days", 22}});
    QPointer<frmemployee> w = new frmemployee;
    w->loadcombos();
    w->loadperson(QString::number(person));
    HolidayPage* holiday = w->holidayPage;
    QCOMPARE(holiday->cboHolidayYear->currentText(), QString::number(year));
    QCOMPARE(holiday->lblDaysTaken->text(), QStringLiteral("22"));

    // Five days over three left: Yes books Monday to Wednesday and two days of unpaid leave,
    // which the absence page shows at once.
    dialogs.then([&](QDialog& d) {
        auto& h = static_cast<frmHoliday&>(d);
        h.txtStartDate->setDate(mon);
        h.txtDays->setText("2");
        // A day picked on the calendar counts the working days, over what was typed.
        emit h.txtEndDate->calendar()->clicked(mon.addDays(6));
        [&] { QCOMPARE(h.txtDays->text(), QStringLiteral("5")); }();
        h.txtEndDate->setDate(mon.addDays(4));
        h.cmdOK->click();
        return int(QDialog::Accepted);
    });
    messages.answerNext(core::MsgAnswer::Yes);
    holiday->add();
    QCOMPARE(holiday->list()->count(), 2);
    QCOMPARE(holiday->lblDaysTaken->text(), QStringLiteral("25"));
    QCOMPARE(w->absencePage->list()->count(), 1);
    QCOMPARE(w->absencePage->list()->topLevelItem(0)->text(3), QStringLiteral("Unpaid Leave"));

    // "Absent" twice: one row, then the refusal.
    w->absencePage->cmdAbsent->click();
    w->absencePage->cmdAbsent->click();
    QCOMPARE(w->absencePage->list()->count(), 2);
    QVERIFY(messages.saw("The employee is already down as absent today"));

    // A sickness added on the page counts with today's at the threshold, once it is listed.
    const QDate day = QDate::currentDate().month() == 1 ? QDate(year, 12, 1) : QDate(year, 1, 5);
    dialogs.then([&](QDialog& d) {
        auto& a = static_cast<frmabsence&>(d);
        a.txtStartDate->setDate(day);
        a.txtEndDate->setDate(day);
        a.txtDays->setText("1");
        a.cboReason->setEditText("Sickness");
        a.cmdOK->click();
        return int(QDialog::Accepted);
    });
    core::session().NoDaysAbsence = 2;
    w->absencePage->add();
    core::session().NoDaysAbsence = 0;
    QCOMPARE(w->absencePage->list()->count(), 3);
    QVERIFY(messages.saw("This employee has had 2 days off sick this year"));
    delete w.data();
}

void TestHolidayAbsence::yearBox() {
    TestDatabase t;
    core::Db& db = t.db();
    testsupport::MessageRecorder messages;
    testsupport::DialogDriver dialogs;
    const int year = QDate::currentDate().year();
    const int started = year - 5;
    const qint64 person = db.insert("Person", "Person_ID",
                                    {{"firstnames", "Ann"},
                                     {"surname", "Lee"},
                                     {"startdate", QDate(started, 3, 1)},
                                     {"DaysHoliday", 25},
                                     {"HasLeft", 0},
                                     {"blndeleted", 0}});
    db.insert("Holiday", "holiday_ID",
              {{"person_id", person},
               {"date_from", QDate(year - 2, 6, 1)},
               {"date_to", QDate(year - 2, 6, 1)},
               {"days", 1}});
    QPointer<frmemployee> w = new frmemployee;
    w->loadcombos();
    w->loadperson(QString::number(person));
    HolidayPage* holiday = w->holidayPage;
    QStringList offered;
    for (int i = 0; i < holiday->cboHolidayYear->count(); ++i)
        offered << holiday->cboHolidayYear->itemText(i);
    QStringList expected;
    for (int y = started; y <= year + 1; ++y)
        expected << QString::number(y);
    QCOMPARE(offered, expected);
    QCOMPARE(holiday->list()->count(), 0);

    // A year typed in shows its bookings once the box is left.
    holiday->cboHolidayYear->setEditText(QString::number(year - 2));
    emit holiday->cboHolidayYear->lineEdit()->editingFinished();
    QCOMPARE(holiday->year(), year - 2);
    QCOMPARE(holiday->list()->count(), 1);

    // A year typed but not yet shown takes no booking: the one on show is the year booked into.
    holiday->cboHolidayYear->setEditText(QString::number(year - 1));
    dialogs.then([&](QDialog& d) {
        auto& h = static_cast<frmHoliday&>(d);
        h.txtStartDate->setDate(QDate(year - 1, 6, 3));
        h.txtEndDate->setDate(QDate(year - 1, 6, 3));
        h.txtDays->setText("1");
        h.cmdOK->click();
        return int(QDialog::Accepted);
    });
    holiday->add();
    QVERIFY(messages.saw("Please select the correct holiday year before entering days off for "
                         "that year\nHolidays that overlap from one year to the next must be "
                         "entered individually"));
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM Holiday WHERE person_id = ?", {person}).toInt(), 1);
    delete w.data();
}

QTEST_MAIN(TestHolidayAbsence)
#include "tst_holiday_absence.moc"
