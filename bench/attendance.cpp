// Times "GO" of the attendance grid on a demo organisation of 10,000 employees with five years
// of holiday and absence bookings (and the demo's training): from pressing GO to a filled,
// shown grid. In the same run it times the same month through the old way of computing it
// (one query per employee per day for the start date, and one per employee for each of
// training, absence and holiday) on a slice of 1,000 employees, and compares per row.
// Ends with the peak memory of the process with the grid shown.
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
// Run with QT_QPA_PLATFORM=offscreen.
#include "attendance_grid.h"
#include "bench_bookings.h"
#include "bench_database.h"
#include "bench_timing.h"
#include "frmsickness.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <cstdio>

namespace {

// The old algorithm, kept only as the yardstick: the list was its working store.
qint64 referenceGrid(core::Db& db, const QDate& monthStart,
                     const std::vector<reports::GridRow>& rows) {
    const QDate today = QDate::currentDate();
    const int days = monthStart.daysInMonth();
    const QDate monthEnd = monthStart.addDays(days - 1);
    std::vector<QString> cells(rows.size() * 31);
    qint64 queries = 0;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (int d = 1; d <= days; ++d) {
            const QDate start = core::Db::toDate(
                db.scalar("select startdate from person where person_id = ?", {rows[r].id}));
            ++queries;
            const QDate day = monthStart.addDays(d - 1);
            QString& cell = cells[r * 31 + d - 1];
            if (day.dayOfWeek() >= 6)
                cell = "W";
            else if (start.isValid() && start <= day)
                cell = today >= day ? "x" : " ";
        }
        const char* passes[] = {
            "SELECT Training.TDate, Training.Edate, '' AS reason, 0 AS days FROM Training "
            "LEFT JOIN PersonTraining ON Training.Training_ID = PersonTraining.Training_ID "
            "WHERE Training.blndeleted <> 1 AND person_id = ?",
            "SELECT startdate, enddate, reason, days FROM Absence WHERE Person_ID = ?",
            "SELECT date_from, date_to, '' AS reason, days FROM Holiday WHERE Person_ID = ?"};
        for (int pass = 0; pass < 3; ++pass) {
            auto q = db.query(passes[pass], {rows[r].id});
            ++queries;
            while (q.next()) {
                const QDate first = core::Db::toDate(q.value(0));
                const QDate last = core::Db::toDate(q.value(1));
                if (!first.isValid() || !last.isValid()) continue;
                if (first < monthStart ? last < monthStart : first > monthEnd) continue;
                for (QDate d = first; d <= last; d = d.addDays(1)) {
                    if (d.month() != monthStart.month()) continue;
                    QString& cell = cells[r * 31 + d.day() - 1];
                    if (cell.trimmed() == "W") continue;
                    cell = pass == 0 ? "C" : pass == 1 ? q.value(2).toString().trimmed() : "H";
                }
            }
        }
    }
    return queries;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 5;
    const int slice = argc > 3 ? std::atoi(argv[3]) : 1000;
    BenchDatabase database("bench_attendance", employees);
    auto& db = core::db();
    addBookingYears(db, 5, 10, 8);
    const qint64 holidays = db.scalar("SELECT COUNT(*) FROM Holiday").toLongLong();
    const qint64 absences = db.scalar("SELECT COUNT(*) FROM Absence").toLongLong();
    const qint64 trainings = db.scalar("SELECT COUNT(*) FROM PersonTraining").toLongLong();
    std::printf("%s: %d employees, %lld holiday, %lld absence, %lld training booking rows\n",
                database.backend(), employees, holidays, absences, trainings);

    // A month with bookings of every kind: last month.
    const QDate today = QDate::currentDate();
    const QDate month = QDate(today.year(), today.month(), 1).addMonths(-1);
    auto* screen = new frmsickness;
    screen->showMonth(month.addMonths(1));
    screen->show();
    screen->previousMonth(); // lists the month's employees
    QApplication::processEvents();
    const int rows = screen->ListView1->model()->rowCount();

    const Runs go = timeRuns(runs, [&] {
        screen->cmdGo->click();
        QApplication::processEvents();
        return rows;
    });
    const double median = go.median();
    std::printf("%s: GO to a filled grid, %s, %d rows: median %.1f ms, min %.1f ms, max %.1f ms "
                "(%d runs)\n",
                database.backend(), qPrintable(screen->lblMonth->text()), rows, median, go.min(),
                go.max(), go.count());
    std::printf("%s: peak memory with the grid shown: %.1f MB\n", database.backend(),
                peakMegabytes());

    // Where the calculation spends its time: the stages it reports as progress (training,
    // absence, holiday, laying out), without the screen.
    {
        const auto monthRows =
            reports::monthEmployees(db, month.addDays(month.daysInMonth() - 1), month, false);
        QElapsedTimer stage;
        std::vector<double> stages;
        stage.start();
        reports::calculateGrid(db, month, monthRows, today, [&](int done, int) {
            if (done > 0) stages.push_back(stage.nsecsElapsed() / 1e6);
            stage.restart();
        });
        const QDate end = month.addDays(month.daysInMonth() - 1);
        const auto touching = [&](const char* table, const char* first, const char* last) {
            return db
                .scalar(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 <= ? AND "
                                       "COALESCE(%3, %2) >= ?")
                            .arg(table, first, last),
                        {end, month})
                .toLongLong();
        };
        std::printf("%s: the calculation alone: training %.1f ms, absence %.1f ms (%lld rows), "
                    "holiday %.1f ms (%lld rows), laying out %.1f ms\n",
                    database.backend(), stages.at(0), stages.at(1),
                    touching("Absence", "startdate", "enddate"), stages.at(2),
                    touching("Holiday", "date_from", "date_to"), stages.at(3));
    }

    auto listed = reports::monthEmployees(db, month.addDays(month.daysInMonth() - 1), month, false);
    listed.resize(std::min<std::size_t>(listed.size(), std::size_t(slice)));
    QElapsedTimer timer;
    timer.start();
    const qint64 queries = referenceGrid(db, month, listed);
    const double reference = timer.nsecsElapsed() / 1e6;
    const double perRowOld = reference / double(listed.size());
    const double perRowNew = median / double(std::max(rows, 1));
    std::printf("%s: old way, %zu rows: %.1f ms (%lld queries), %.3f ms a row; new way %.4f ms "
                "a row: %.0fx faster a row; old way extrapolated to %d rows: %.1f s\n",
                database.backend(), listed.size(), reference, queries, perRowOld, perRowNew,
                perRowOld / perRowNew, rows, perRowOld * rows / 1000.0);
    delete screen;
    return 0;
}
