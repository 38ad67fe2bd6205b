#include "demo_generator.h"

// Helpdesk calls and their actions.

namespace admin::demo {

void Generator::helpdesk() {
    Batch call(db_, summary_, "HelpdeskCalls",
               {"Call_ID", "person_id", "Fault_Type", "Date_Logged", "Date_Required", "Description",
                "Resolution", "currentstatus", "Software_ID", "computer_id", "peripheral_ID",
                "DateClosed"});
    Batch history(db_, summary_, "CallHistory",
                  {"CallHistory_ID", "Call_ID", "Date", "Action", "Status"}, &call);
    qint64 id = firstFreeKey(db_, "HelpdeskCalls", "Call_ID");
    qint64 historyId = firstFreeKey(db_, "CallHistory", "CallHistory_ID");
    std::vector<int> callers;
    for (int i = 0; i < employees_; ++i)
        if (staff_[i].current()) callers.push_back(i);
    const int calls = static_cast<int>(callers.size()) * 3 / 5 + 5;
    for (int n = 0; n < calls; ++n) {
        const Staff* caller =
            callers.empty() || rnd_.percent(2) ? nullptr : &staff_[rnd_.pick(callers)];
        int fault = rnd_.weighted({65, 20, 5, 10});
        if (fault == 1 && printers_.empty()) fault = 0;
        if (fault == 2 && scanners_.empty()) fault = 0;
        if (fault == 3 && monitors_.empty()) fault = 0;
        static const std::array<const char*, 4> faults{"Computer/Software", "Printer", "Scanner",
                                                       "Monitor"};
        const Complaint& c = fault == 0   ? rnd_.pick(ComputerFaults)
                             : fault == 1 ? rnd_.pick(PrinterFaults)
                             : fault == 2 ? rnd_.pick(ScannerFaults)
                                          : rnd_.pick(MonitorFaults);
        qint64 computerId = 0, peripheralId = 0;
        if (fault == 0 && caller) computerId = caller->computer;
        if (fault == 1) peripheralId = rnd_.pick(printers_);
        if (fault == 2) peripheralId = rnd_.pick(scanners_);
        if (fault == 3)
            peripheralId = caller && caller->monitor ? caller->monitor : rnd_.pick(monitors_);

        QDate logged = nextWeekday(today_.addDays(-rnd_.between(0, 3 * 365)));
        if (logged > today_) logged = today_.addDays(-2);
        if (caller && logged < caller->start) logged = caller->start;
        const QDate required = rnd_.percent(30) ? logged.addDays(rnd_.between(1, 10)) : QDate();
        const bool open = logged.daysTo(today_) < 30 ? rnd_.percent(40) : rnd_.permille(20);
        QDate closed;
        if (!open) {
            closed = logged.addDays(rnd_.weighted({40, 30, 15, 10, 5}) * 2);
            if (closed > today_) closed = today_;
        }
        call.add({id, key(caller ? caller->id : 0), QLatin1String(faults[fault]), date(logged),
                  date(required), QLatin1String(c.description),
                  open ? QString("") : QLatin1String(c.resolution),
                  open ? QStringLiteral("Open") : QStringLiteral("Closed"), NullKey,
                  key(computerId), key(peripheralId), date(closed)});

        QDateTime at(logged, QTime(8, 30).addSecs(60 * rnd_.below(8 * 60)));
        history.add({historyId++, id, at, QStringLiteral("Opened Call"), QStringLiteral("Open")});
        const QDateTime until =
            closed.isValid() ? QDateTime(closed, QTime(17, 30)) : QDateTime(today_, QTime(17, 30));
        for (int steps = rnd_.weighted({30, 40, 20, 10}); steps > 0; --steps) {
            // Work on a call happens in office hours.
            QDateTime next = at.addSecs(60 * rnd_.between(20, 6 * 60));
            if (next.time() > QTime(17, 30))
                next = QDateTime(nextWeekday(next.date().addDays(1)),
                                 QTime(8, 30).addSecs(60 * rnd_.below(120)));
            if (next >= until) break;
            at = next;
            history.add(
                {historyId++, id, at,
                 rnd_.percent(15) ? QStringLiteral("Note/Comment only") : rnd_.pick(actions_),
                 QStringLiteral("Open")});
        }
        if (closed.isValid()) {
            QDateTime shut(closed, QTime(9, 0).addSecs(60 * rnd_.below(8 * 60)));
            if (shut <= at) shut = at.addSecs(60 * rnd_.between(5, 90));
            history.add(
                {historyId++, id, shut, QStringLiteral("Closed Call"), QStringLiteral("Closed")});
        }
        ++id;
    }
    call.finish();
    history.finish();
}

} // namespace admin::demo
