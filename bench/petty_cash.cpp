// Times the petty cash screens on a ledger of many years: opening the ledger (from creating
// the screen to a filled list and total), one Remove Funds (the total read afresh, the check
// and the write), and running the statement of the last month.
// Usage: bench_petty_cash [entries] [runs]   (default 20,000 entries, 20 runs)
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
// Run with QT_QPA_PLATFORM=offscreen.
#include "bench_database.h"
#include "bench_timing.h"
#include "frmpettycash.h"
#include "ledger.h"
#include "recordlist.h"
#include "rptpettycash.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

void measure(const char* backend, const char* label, int runs, int entries,
             const std::function<int()>& step) {
    const Runs r = timeRuns(runs, step);
    std::printf("%s: %s, %d entries, %d rows: median %.1f ms, min %.1f ms, max %.1f ms "
                "(%d runs)\n",
                backend, label, entries, r.rows, r.median(), r.min(), r.max(), r.count());
}

// About a hundred entries a month, going back as far as it takes: a top-up on the first,
// small sums out on the other days.
void fill(core::Db& db, int entries) {
    core::Transaction tx(db);
    db.exec("DELETE FROM pettycash");
    QDate day = QDate::currentDate().addDays(-1);
    for (int i = entries - 1; i >= 0; --i) {
        const bool topUp = i % 100 == 0;
        db.insert(
            "pettycash", "pettyid",
            {{"Date", day.addDays(-(i * 30 / 100))},
             {"amount", topUp ? QString("+400") : QString("-%1.%2").arg(i % 4 + 1).arg(i % 100)},
             {"reason", topUp ? QString("Cash from bank") : QString("Milk and stamps")}});
    }
    tx.commit();
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int entries = argc > 1 ? std::atoi(argv[1]) : 20000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 20;
    BenchDatabase database("bench_petty", 10);
    const char* backend = database.backend();
    fill(core::db(), entries);

    measure(backend, "open the ledger", runs, entries, [] {
        auto* ledger = new frmPettyCash;
        ledger->load();
        ledger->show();
        QApplication::processEvents();
        const int rows = ledger->ListView1->count();
        delete ledger;
        return rows;
    });
    measure(backend, "Remove Funds of 0.01", runs, entries, [] {
        const auto outcome =
            pettycash::removeFunds(core::db(), QDate::currentDate(), "0.01", "Bench");
        return outcome.refusal == pettycash::Refusal::None ? 1 : 0;
    });
    RptPettyCash report;
    report.load();
    report.show();
    report.cboMonth->setEditText(QDate::currentDate().toString("MMMM"));
    measure(backend, "run the month's statement", runs, entries, [&] {
        report.cmdRun->click();
        QApplication::processEvents();
        return report.ListView1->count();
    });
    return 0;
}
