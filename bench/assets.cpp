// Times the asset screens on a demo organisation (10,000 employees by default, with their
// computers, software and peripherals): filling the computer list, the licence summary and the
// printer list, opening a computer, and installing and removing a product (the licence count
// recounted each time).
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
#include "bench_database.h"
#include "bench_timing.h"
#include "frmaddcomputer.h"
#include "frmcompsrch.h"
#include "frmsoftwareadd.h"
#include "licences.h"
#include "printerlist.h"
#include "recordlist.h"
#include "session.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

void time(const char* backend, const char* what, int runs, const std::function<int()>& run) {
    const Runs r = timeRuns(runs, [&] {
        const int rows = run();
        QApplication::processEvents();
        return rows;
    });
    std::printf("%s: %s (%d rows): median %.1f ms, min %.1f ms, max %.1f ms (%d runs)\n", backend,
                what, r.rows, r.median(), r.min(), r.max(), r.count());
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 10;
    BenchDatabase database("bench_assets", employees);
    auto& db = core::db();
    const char* backend = database.backend();
    std::printf("%s: %d employees, %lld computers, %lld products, %lld installs\n", backend,
                employees, db.scalar("SELECT COUNT(*) FROM Computers").toLongLong(),
                db.scalar("SELECT COUNT(*) FROM Software").toLongLong(),
                db.scalar("SELECT COUNT(*) FROM ComputerSoftware").toLongLong());

    time(backend, "Edit Computer list", runs, [] {
        frmCompSrch list;
        list.load();
        return list.ListView1->count();
    });
    time(backend, "License Summary", runs, [] {
        frmSoftwareadd summary;
        summary.setWindowTitle("License Summary");
        summary.loadall();
        return summary.ListView1->count();
    });
    time(backend, "Edit Printer list", runs, [] {
        PrinterList list;
        list.setWindowTitle("Select Printer");
        list.loadall("Printer");
        return list.ListView1->count();
    });
    const qint64 computer = db.scalar("SELECT MIN(computer_id) FROM ComputerSoftware").toLongLong();
    time(backend, "open a computer", runs, [computer] {
        frmaddcomputer screen;
        screen.load(computer);
        return screen.lstSoftware->count();
    });
    const qint64 product =
        db.scalar("SELECT Software_ID FROM ComputerSoftware GROUP BY Software_ID "
                  "ORDER BY COUNT(*) DESC LIMIT 1")
            .toLongLong();
    const qint64 spare = db.insert("Computers", "Computer_ID", {{"ComputerName", "BENCH"}});
    time(backend, "install and remove the most installed product", runs, [&db, spare, product] {
        assets::installSoftware(db, spare, product);
        assets::removeSoftware(db, spare, product);
        return int(db.scalar("SELECT licensesused FROM Software WHERE Software_ID = ?", {product})
                       .toInt());
    });
    return 0;
}
