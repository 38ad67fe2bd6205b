// Times the helpdesk on a call register of many years: opening "All Calls" and "All Open
// Calls" (from creating the list to its first paint), opening one call on its screen, and
// logging a call with its first action (the call, its "Opened Call" row, the action's row and
// the call's new status, each command one transaction).
// Usage: bench_calls [calls] [runs]   (default 100,000 calls, 10 runs)
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
// Run with QT_QPA_PLATFORM=offscreen.
#include "calls.h"
#include "bench_database.h"
#include "bench_timing.h"
#include "calllistview.h"
#include "demo_write.h"
#include "frmaddcall.h"
#include "frmlistcall.h"
#include "regional.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

void measure(const char* backend, const char* label, int runs, const std::function<int()>& step) {
    const Runs r = timeRuns(runs, [&] {
        const int rows = step();
        QApplication::processEvents();
        return rows;
    });
    std::printf("%s: %s (%d rows): median %.1f ms, min %.1f ms, max %.1f ms (%d runs)\n", backend,
                label, r.rows, r.median(), r.min(), r.max(), r.count());
}

// Tops the demo's calls up to `total`, over the last four years: nine in ten closed, each
// with an "Opened Call" row, one to three actions and, when closed, a "Closed Call" row.
void fill(core::Db& db, int total) {
    using namespace admin::demo;
    const qint64 have = db.scalar("SELECT COUNT(*) FROM HelpdeskCalls").toLongLong();
    std::vector<qint64> people;
    for (const auto& r : db.rows("SELECT Person_ID FROM Person"))
        people.push_back(r.value(0).toLongLong());
    admin::DemoSummary summary;
    Random rnd(4711);
    core::Transaction tx(db);
    Batch calls(db, summary, "HelpdeskCalls",
                {"Call_ID", "person_id", "Fault_Type", "Date_Logged", "Date_Required",
                 "Description", "Resolution", "currentstatus", "DateClosed"});
    Batch history(db, summary, "CallHistory",
                  {"CallHistory_ID", "Call_ID", "Date", "Action", "Status"}, &calls);
    qint64 id = firstFreeKey(db, "HelpdeskCalls", "Call_ID");
    qint64 historyId = firstFreeKey(db, "CallHistory", "CallHistory_ID");
    const QDate today = QDate::currentDate();
    static const std::array<const char*, 4> faults{"Computer/Software", "Printer", "Scanner",
                                                   "Monitor"};
    for (qint64 n = have; n < total; ++n, ++id) {
        const QDate logged = today.addDays(-rnd.below(4 * 365));
        const bool open = rnd.percent(10);
        const QDate closed = open ? QDate() : std::min(today, logged.addDays(rnd.below(10)));
        const QVariant caller =
            people.empty() || rnd.percent(2) ? NullKey : QVariant(rnd.pick(people));
        calls.add({id, caller, QString::fromLatin1(rnd.pick(faults)), logged,
                   rnd.percent(30) ? QVariant(logged.addDays(rnd.between(1, 10)))
                                   : QVariant(QMetaType::fromType<QDate>()),
                   QStringLiteral("Call %1: user cannot print from the accounts package").arg(id),
                   open ? QString() : QStringLiteral("Driver reinstalled"),
                   open ? QStringLiteral("Open") : QStringLiteral("Closed"),
                   closed.isValid() ? QVariant(closed) : QVariant(QMetaType::fromType<QDate>())});
        QDateTime at(logged, QTime(9, 0).addSecs(60 * rnd.below(480)));
        history.add({historyId++, id, at, QStringLiteral("Opened Call"), QStringLiteral("Open")});
        for (int step = rnd.between(1, 3); step > 0; --step) {
            at = at.addSecs(60 * rnd.between(10, 600));
            history.add({historyId++, id, at, QStringLiteral("Telephoned user - left a message"),
                         QStringLiteral("Open")});
        }
        if (closed.isValid())
            history.add({historyId++, id, std::max(at, QDateTime(closed, QTime(16, 0))),
                         QStringLiteral("Closed Call"), QStringLiteral("Closed")});
    }
    calls.finish();
    history.finish();
    tx.commit();
    if (db.backend() == core::Backend::Postgres) db.exec("ANALYZE");
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int total = argc > 1 ? std::atoi(argv[1]) : 100000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 10;
    BenchDatabase database("bench_calls", 2000);
    auto& db = core::db();
    const char* backend = database.backend();
    QElapsedTimer filling;
    filling.start();
    fill(db, total);
    std::printf("%s: %lld calls (%lld open), %lld history rows, filled in %.1f s\n", backend,
                db.scalar("SELECT COUNT(*) FROM HelpdeskCalls").toLongLong(),
                db.scalar("SELECT COUNT(*) FROM HelpdeskCalls WHERE currentstatus <> ?",
                          {helpdesk::ClosedStatus})
                    .toLongLong(),
                db.scalar("SELECT COUNT(*) FROM CallHistory").toLongLong(),
                filling.elapsed() / 1000.0);

    for (const auto& [label, kind] : {std::pair{"All Calls", "All"}, {"All Open Calls", "Open"}})
        measure(backend, label, runs, [kind = QString(kind)] {
            frmListCall list;
            list.load(kind);
            list.show();
            QApplication::processEvents();
            return list.lvCalls->count();
        });

    const qint64 busiest =
        db.scalar("SELECT Call_ID FROM CallHistory GROUP BY Call_ID ORDER BY COUNT(*) DESC, "
                  "Call_ID LIMIT 1")
            .toLongLong();
    measure(backend, "open a call on its screen", runs, [busiest] {
        frmaddcall screen;
        screen.loadcall(busiest);
        return int(screen.callid == busiest);
    });

    const qint64 caller = db.scalar("SELECT MIN(Person_ID) FROM Person").toLongLong();
    measure(backend, "log a call with its first action", runs, [&db, caller] {
        helpdesk::CallText c;
        c.personId = caller;
        c.faultType = "Printer";
        c.dateLogged = core::formatDate(QDate::currentDate());
        c.description = "Paper jam in tray 2";
        c.status = "Open";
        const QDateTime now = QDateTime::currentDateTime();
        const qint64 id = helpdesk::logCall(db, c, now).callId;
        helpdesk::addAction(db, id, "Visited user - cleared the jam", "Closed", now);
        return 2;
    });
    std::printf("%s: peak memory %.0f MB\n", backend, peakMegabytes());
    return 0;
}
