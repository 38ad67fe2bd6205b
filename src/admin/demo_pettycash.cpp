#include "demo_generator.h"

// Petty cash: monthly top-ups and the spending between them.

namespace admin::demo {

void Generator::pettyCash() {
    Batch petty(db_, summary_, "pettycash", {"pettyid", "Date", "amount", "reason"});
    qint64 id = firstFreeKey(db_, "pettycash", "pettyid");
    static const std::array<const char*, 10> spends{"Milk and coffee",
                                                    "Postage stamps",
                                                    "Window cleaner",
                                                    "Taxi fare",
                                                    "Flowers for reception",
                                                    "Batteries",
                                                    "Parking",
                                                    "Cleaning materials",
                                                    "Biscuits for visitors",
                                                    "Leaving card and gift"};
    // The box never goes below nothing: it is topped up at the start of each month.
    Money balance;
    for (int month = 24; month >= 0; --month) {
        const QDate first = QDate(today_.year(), today_.month(), 1).addMonths(-month);
        const QDate topUp = nextWeekday(first);
        if (topUp > today_) break;
        const Money in = pounds(rnd_.percent(70) ? 200 : 150);
        balance += in;
        petty.add({id++, date(topUp), QStringLiteral("+") + in.toString(0),
                   QStringLiteral("Cash from bank")});
        const QDate monthEnd = std::min(first.addMonths(1).addDays(-1), today_);
        for (int n = rnd_.between(4, 12); n > 0; --n) {
            Money out = pounds(rnd_.between(1, 35), rnd_.percent(70) ? rnd_.below(100) : 0);
            if (out > balance) continue;
            balance -= out;
            // The figure as a user types it: "4.5" rather than "4.50", whole pounds bare.
            QString typed = out.toString(2);
            if (typed.endsWith(QLatin1String(".00")))
                typed.chop(3);
            else if (typed.endsWith('0') && rnd_.percent(50))
                typed.chop(1);
            petty.add({id++, date(dayWithin(topUp, monthEnd)), QStringLiteral("-") + typed,
                       QLatin1String(rnd_.pick(spends))});
        }
    }
    petty.finish();
}

} // namespace admin::demo
