#include "attendance_grid.h"
#include "frmemployee.h"
#include "frmsickness.h"
#include "readback.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

using reports::GridRow;
using testsupport::TestDatabase;

namespace {

const QDate Today(2024, 3, 20);

qint64 person(core::Db& db, const QString& surname, const QDate& start, const QDate& finish = {},
              int hasLeft = 0) {
    return db.insert("Person", "Person_ID",
                     {{"surname", surname},
                      {"firstnames", "Test"},
                      {"startdate", core::Db::dateOrNull(start)},
                      {"finishdate", core::Db::dateOrNull(finish)},
                      {"HasLeft", hasLeft}});
}

// "H 2024-03-01 2024-03-04 1", "S 2024-03-05 - 0.5" (no last day), "C 2024-03-06 2024-03-06",
// "c ..." (a deleted programme).
void book(core::Db& db, qint64 id, const QString& booking) {
    const QStringList f = booking.split(' ');
    const QDate first = QDate::fromString(f[1], Qt::ISODate);
    const QVariant last = core::Db::dateOrNull(QDate::fromString(f[2], Qt::ISODate));
    const QString days = f.value(3, "1");
    if (f[0] == "C" || f[0] == "c") {
        const qint64 training =
            db.insert("Training", "Training_ID",
                      {{"TDate", first}, {"Edate", last}, {"BlnDeleted", f[0] == "c" ? 1 : 0}});
        db.insertRow("PersonTraining", {{"person_id", id}, {"Training_ID", training}});
    } else if (f[0] == "H") {
        db.insert("Holiday", "holiday_ID",
                  {{"person_id", id}, {"date_from", first}, {"date_to", last}, {"days", days}});
    } else {
        db.insert("Absence", "absence_ID",
                  {{"person_id", id},
                   {"startdate", first},
                   {"enddate", last},
                   {"days", days},
                   {"reason", f[0] + "  "}});
    }
}

} // namespace

class TestAttendance : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(tmp_.isValid()); }

    // One employee's bookings and the code of one day of a month.
    void dayCodes_data() {
        QTest::addColumn<QDate>("start");
        QTest::addColumn<QStringList>("bookings");
        QTest::addColumn<QDate>("month");
        QTest::addColumn<int>("day");
        QTest::addColumn<QString>("code");
        const QDate march(2024, 3, 1); // a Friday; the 2nd and 3rd are the weekend
        const QDate old(2020, 1, 1);
        QTest::newRow("weekday worked") << old << QStringList{} << march << 4 << "x";
        QTest::newRow("today") << old << QStringList{} << march << 20 << "x";
        QTest::newRow("weekday after today") << old << QStringList{} << march << 21 << " ";
        QTest::newRow("weekend before start")
            << QDate(2024, 3, 15) << QStringList{} << march << 2 << "W";
        QTest::newRow("weekday before start")
            << QDate(2024, 3, 15) << QStringList{} << march << 14 << "";
        QTest::newRow("start day") << QDate(2024, 3, 15) << QStringList{} << march << 15 << "x";
        QTest::newRow("holiday over weekend, Saturday")
            << old << QStringList{"H 2024-03-01 2024-03-04 2"} << march << 2 << "W";
        QTest::newRow("holiday over weekend, Monday")
            << old << QStringList{"H 2024-03-01 2024-03-04 2"} << march << 4 << "H";
        QTest::newRow("holiday over absence over training")
            << old
            << QStringList{"H 2024-03-05 2024-03-05", "C 2024-03-05 2024-03-05",
                           "S 2024-03-05 2024-03-05"}
            << march << 5 << "H";
        QTest::newRow("absence over training")
            << old << QStringList{"C 2024-03-05 2024-03-07", "S 2024-03-06 2024-03-06"} << march
            << 6 << "S";
        QTest::newRow("training") << old << QStringList{"C 2024-03-05 2024-03-07"} << march << 7
                                  << "C";
        QTest::newRow("training on a weekend")
            << old << QStringList{"C 2024-03-01 2024-03-04"} << march << 3 << "W";
        QTest::newRow("deleted programme")
            << old << QStringList{"c 2024-03-05 2024-03-07"} << march << 7 << "x";
        QTest::newRow("half-day holiday")
            << old << QStringList{"H 2024-03-12 2024-03-12 0.5"} << march << 12 << "H/";
        QTest::newRow("half-day sickness")
            << old << QStringList{"S 2024-03-12 2024-03-12 0.5"} << march << 12 << "S/";
        QTest::newRow("half-day absence on a weekend")
            << old << QStringList{"S 2024-03-02 2024-03-02 0.5"} << march << 2 << "W/";
        QTest::newRow("half-day holiday on a weekend")
            << old << QStringList{"H 2024-03-02 2024-03-02 0.5"} << march << 2 << "W";
        QTest::newRow("the later of two absences")
            << old << QStringList{"S 2024-03-12 2024-03-15", "D 2024-03-13 2024-03-13"} << march
            << 13 << "D";
        QTest::newRow("a half day booked after a whole one")
            << old << QStringList{"H 2024-03-12 2024-03-12", "H 2024-03-12 2024-03-12 0.5"} << march
            << 12 << "H/";
        QTest::newRow("code without a legend")
            << old << QStringList{"Z 2024-03-12 2024-03-13"} << march << 13 << "Z";
        QTest::newRow("no last day: first day")
            << old << QStringList{"H 2024-03-11 -"} << march << 11 << "H";
        QTest::newRow("no last day: not the next")
            << old << QStringList{"H 2024-03-11 -"} << march << 12 << "x";
        QTest::newRow("across the year end, December")
            << old << QStringList{"H 2023-12-20 2024-01-05 10"} << QDate(2023, 12, 1) << 20 << "H";
        QTest::newRow("across the year end, January")
            << old << QStringList{"H 2023-12-20 2024-01-05 10"} << QDate(2024, 1, 1) << 5 << "H";
        QTest::newRow("across the year end, next December")
            << old << QStringList{"H 2023-12-20 2024-01-05 10"} << QDate(2024, 12, 1) << 20 << " ";
        QTest::newRow("longer than a year, inside")
            << old << QStringList{"H 2022-03-10 2023-03-06 250"} << QDate(2023, 3, 1) << 4 << "W";
        QTest::newRow("longer than a year, covered weekday")
            << old << QStringList{"H 2022-03-10 2023-03-06 250"} << QDate(2023, 3, 1) << 6 << "H";
        QTest::newRow("longer than a year, same day a year on")
            << old << QStringList{"H 2022-03-10 2023-03-06 250"} << QDate(2023, 3, 1) << 20 << "x";
    }
    void dayCodes() {
        QFETCH(QDate, start);
        QFETCH(QStringList, bookings);
        QFETCH(QDate, month);
        QFETCH(int, day);
        QFETCH(QString, code);
        TestDatabase t;
        auto& db = t.db();
        // A neighbour with bookings of every kind on every day, which must not leak across.
        const qint64 other = person(db, "Other", QDate(2000, 1, 1));
        for (const char* kind : {"C", "S", "H"})
            book(db, other, QString(kind) + " 2022-01-01 2025-12-31");
        const qint64 id = person(db, "Tested", start);
        for (const QString& b : bookings)
            book(db, id, b);
        const auto grid = reports::calculateGrid(db, month, {{id, "Tested, Test", start}}, Today);
        QCOMPARE(grid.days(), month.daysInMonth());
        QCOMPARE(grid.code(0, day), code);
    }

    // Who a month lists, by the finish date and the leavers check box.
    void monthEmployees_data() {
        QTest::addColumn<QDate>("finish");
        QTest::addColumn<int>("hasLeft");
        QTest::addColumn<bool>("leavers");
        QTest::addColumn<bool>("listed");
        const QDate first(2024, 3, 1);
        QTest::newRow("no finish") << QDate() << 0 << false << true;
        QTest::newRow("left on the first, leavers") << first << 1 << true << true;
        QTest::newRow("left the day before, leavers") << first.addDays(-1) << 1 << true << false;
        QTest::newRow("left on the first, no leavers") << first << 1 << false << false;
        QTest::newRow("leaving later, not yet left") << QDate(2024, 4, 30) << 0 << false << true;
    }
    void monthEmployees() {
        QFETCH(QDate, finish);
        QFETCH(int, hasLeft);
        QFETCH(bool, leavers);
        QFETCH(bool, listed);
        TestDatabase t;
        const qint64 id = person(t.db(), "Leaver", QDate(2020, 1, 1), finish, hasLeft);
        person(t.db(), "Later", QDate(2024, 4, 1));
        const auto rows =
            reports::monthEmployees(t.db(), QDate(2024, 3, 31), QDate(2024, 3, 1), leavers);
        QCOMPARE(rows.size(), std::size_t(listed ? 1 : 0));
        if (listed) QCOMPARE(rows.front().id, id);
    }

    // The screen: back from January to December of the year before, "GO", and a double click
    // opens the employee.
    void screen() {
        TestDatabase t;
        testsupport::MessageRecorder boxes;
        const qint64 id = person(t.db(), "Bell", QDate(2001, 6, 1));
        book(t.db(), id, "H 2001-12-24 2001-12-24");
        auto* screen = new frmsickness;
        screen->setAttribute(Qt::WA_DeleteOnClose);
        QPointer<frmsickness> alive(screen);
        screen->showMonth(QDate(2002, 1, 15));
        QCOMPARE(screen->lblMonth->text(), "January : 2002");
        screen->show();
        screen->previousMonth();
        QCOMPARE(screen->lblMonth->text(), "December : 2001");
        QVERIFY(!screen->cmdExport->isEnabled());
        auto* model = screen->ListView1->model();
        QCOMPARE(model->rowCount(), 1);
        QCOMPARE(model->index(0, 24).data().toString(), "");
        screen->cmdGo->click();
        QVERIFY(screen->cmdExport->isEnabled());
        QCOMPARE(model->index(0, 0).data().toString(), "Bell, Test");
        QCOMPARE(model->index(0, 24).data().toString(), "H");
        QCOMPARE(model->index(0, 1).data().toString(), "W"); // 1 December 2001, a Saturday
        screen->nextMonth();
        QCOMPARE(screen->lblMonth->text(), "January : 2002");
        QVERIFY(!screen->cmdExport->isEnabled());
        emit screen->ListView1->doubleClicked(model->index(0, 3));
        QTRY_VERIFY(alive.isNull());
        frmemployee* opened = nullptr;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* e = qobject_cast<frmemployee*>(w)) opened = e;
        QVERIFY(opened);
        QCOMPARE(opened->personId(), id);
        QCOMPARE(opened->txtSurname->text(), "Bell");
        delete opened;
        QVERIFY(boxes.texts().isEmpty());
    }

    // The export read back: day numbers, names, codes, and red cells where the grid has "W".
    void exportReadBack() {
        TestDatabase t;
        const qint64 ann = person(t.db(), "Ash", QDate(2020, 1, 1));
        const qint64 bob = person(t.db(), "Bell", QDate(2024, 2, 12));
        book(t.db(), ann, "S 2024-02-05 2024-02-06 0.5");
        book(t.db(), bob, "H 2024-02-12 2024-02-12");
        const QDate feb(2024, 2, 1);
        const auto grid = reports::calculateGrid(
            t.db(), feb, reports::monthEmployees(t.db(), QDate(2024, 2, 29), feb, false), Today);
        const QString path = tmp_.filePath("grid.xlsx");
        reports::writeWorkbook(reports::attendanceSheet(grid),
                               reports::templatePath("sickness.xltx"), path);
        const auto book = testsupport::readWorkbook(path);
        QVERIFY2(book.ok, qPrintable(book.error));
        QCOMPARE(book.cells["A2"].value, "Ash, Test");
        QCOMPARE(book.cells["A3"].value, "Bell, Test");
        QCOMPARE(book.cells["B1"].value, "1");
        QCOMPARE(book.cells["B1"].type, "n");
        QCOMPARE(book.cells["AD1"].value, "29");
        QVERIFY(!book.cells.contains("AE1") || book.cells["AE1"].type == "e");
        QCOMPARE(book.cells["F2"].value, "S/"); // 5 February
        QCOMPARE(book.cells["M3"].value, "H");  // 12 February
        QCOMPARE(book.cells["L3"].type, "e");   // 11 February is a Sunday
        QCOMPARE(book.cells["L3"].fill, "FFFF0000");
        QCOMPARE(book.cells["L1"].fill, "FFFF0000");
        QCOMPARE(book.cells["M1"].fill, "-");
        QVERIFY(!book.cells.contains("C3")); // before Bell's start: nothing written
        QCOMPARE(book.cells["C2"].value, "x");
    }

    // What the screen shows is what goes out: a weekend's "W/" in red like its "W", and the
    // rows exported in the order a header click sorted them into.
    void shownGrid() {
        TestDatabase t;
        testsupport::MessageRecorder boxes;
        const qint64 ash = person(t.db(), "Ash", QDate(2020, 1, 1));
        const qint64 bell = person(t.db(), "Bell", QDate(2020, 1, 1));
        book(t.db(), ash, "S 2024-02-03 2024-02-03 0.5"); // a Saturday
        book(t.db(), bell, "H 2024-02-05 2024-02-05");
        frmsickness screen;
        screen.showMonth(QDate(2024, 3, 1));
        screen.previousMonth();
        screen.cmdGo->click();
        auto* model = screen.ListView1->model();
        const auto colour = [&](int row, int day) {
            return model->index(row, day).data(Qt::ForegroundRole).value<QColor>();
        };
        QCOMPARE(model->index(0, 3).data().toString(), "W/");
        QCOMPARE(colour(0, 3), QColor(Qt::red));
        QCOMPARE(colour(0, 4), QColor(Qt::red));
        QVERIFY(!colour(0, 5).isValid());

        screen.ListView1->horizontalHeader()->sectionClicked(5); // "H" before "x"
        QCOMPARE(model->index(0, 0).data().toString(), "Bell, Test");
        QTemporaryDir folder;
        reports::setExportFolder(folder.path());
        QStringList opened;
        reports::setSpreadsheetOpener([&](const QString& path) {
            opened << path;
            return true;
        });
        screen.cmdExport->click();
        reports::setSpreadsheetOpener({});
        reports::setExportFolder({});
        QCOMPARE(boxes.texts(), QStringList());
        QCOMPARE(opened.size(), 1);
        const auto book = testsupport::readWorkbook(opened.first());
        QVERIFY2(book.ok, qPrintable(book.error));
        QCOMPARE(book.cells["A2"].value, "Bell, Test");
        QCOMPARE(book.cells["F2"].value, "H");
        QCOMPARE(book.cells["A3"].value, "Ash, Test");
        QCOMPARE(book.cells["D3"].value, "W/");
    }

private:
    QTemporaryDir tmp_;
};

QTEST_MAIN(TestAttendance)
#include "tst_attendance.moc"
