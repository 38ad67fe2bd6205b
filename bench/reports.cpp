// Times the holiday and absence reports on a demo organisation of 10,000 employees with five
// years of bookings: "Run" for "All Employees" over one whole year (from the button to a
// filled list), and the export of that list to a new .xlsx from its template. Ends with the
// peak memory of the process.
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
// Run with QT_QPA_PLATFORM=offscreen.
#include "bench_bookings.h"
#include "bench_database.h"
#include "bench_timing.h"
#include "booking_report.h"
#include "datebox.h"
#include "frmbookingreport.h"
#include "recordlist.h"
#include "regional.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

namespace {

// The median of runs of a step that lists nothing.
template <class F> double median(int runs, F&& step) {
    return timeRuns(runs,
                    [&] {
                        step();
                        return 0;
                    })
        .median();
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 5;
    BenchDatabase database("bench_reports", employees);
    auto& db = core::db();
    addBookingYears(db, 5, 10, 8);
    const char* backend = database.backend();
    std::printf("%s: %d employees, %lld holiday and %lld absence rows\n", backend, employees,
                db.scalar("SELECT COUNT(*) FROM Holiday").toLongLong(),
                db.scalar("SELECT COUNT(*) FROM Absence").toLongLong());
    // A year of the five that has the most bookings.
    const int year = QDate::currentDate().year() - 4;
    const QDate from(year, 1, 1), to(year, 12, 31);
    QTemporaryDir out;
    int file = 0;
    for (auto kind : {reports::BookingKind::Holiday, reports::BookingKind::Absence}) {
        const bool absence = kind == reports::BookingKind::Absence;
        std::unique_ptr<BookingReportScreen> screen;
        if (absence)
            screen = std::make_unique<frmAbsenceReport>();
        else
            screen = std::make_unique<frmHolidayReport>();
        screen->show();
        screen->txtFrom->setDate(from);
        screen->txtTo->setDate(to);
        screen->cboCriteria->setCurrentIndex(1); // All Employees
        QApplication::processEvents();
        const double run = median(runs, [&] {
            screen->cmdRun->click();
            QApplication::processEvents();
        });
        const int rows = screen->ListView1->count();
        const auto listed =
            reports::bookingReport(db, kind, reports::Criterion::AllEmployees, 0, false, from, to);
        const double write = median(runs, [&] {
            reports::writeWorkbook(reports::bookingSheet(listed, kind),
                                   reports::templatePath(absence ? "absence.xltx" : "holiday.xltx"),
                                   out.filePath(QString::number(++file) + ".xlsx"));
        });
        std::printf("%s: %s report, All Employees, %d: Run to a filled list %.1f ms; export of %d "
                    "rows to .xlsx %.1f ms (%.1f MB file); medians of %d runs\n",
                    backend, absence ? "absence" : "holiday", year, run, rows, write,
                    QFileInfo(out.filePath(QString::number(file) + ".xlsx")).size() / 1048576.0,
                    runs);
    }
    std::printf("%s: peak memory %.1f MB\n", backend, peakMegabytes());
    return 0;
}
