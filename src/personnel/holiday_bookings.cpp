#include "holiday_bookings.h"

#include "absence_records.h"

#include "regional.h"

#include <QSqlRecord>
#include <set>

namespace personnel {

namespace {

using core::Db;
using core::Money;

bool isWeekday(const QDate& d) {
    return d.dayOfWeek() < 6;
}

// The whole days a part covers: a half day still takes a day of its own.
int wholeDaysCovering(Money days) {
    const qint64 units = days.units();
    return int((units + Money::Scale - 1) / Money::Scale);
}

qint64 insertHoliday(core::Db& db, qint64 personId, const DatePeriod& p, Money days,
                     const QString& notes) {
    return db.insert("Holiday", "holiday_ID",
                     {{"person_id", personId},
                      {"date_from", Db::dateOrNull(p.from)},
                      {"date_to", Db::dateOrNull(p.to)},
                      {"days", days.toVariant()},
                      {"notes", notes.trimmed()}});
}

} // namespace

bool checkdateclash(const std::vector<DatePeriod>& periods, const QDate& start, const QDate& end) {
    for (const DatePeriod& p : periods) {
        if (!p.from.isValid() || !p.to.isValid()) continue;
        if (p.from <= start ? p.to >= start : p.from <= end) return true;
    }
    return false;
}

DaysCheck checkDaysText(const QString& daysText) {
    QString text = daysText.trimmed();
    const auto days = Money::parse(text);
    if (!days) return {false, {}, {}};
    if (days->units() % Money::Scale == 0) return {true, {}, text};
    if (!text.startsWith('0') && !text.startsWith('.'))
        return {false, "You have to enter half days seperately", {}};
    if (text.startsWith('.')) text.prepend('0');
    if (text.mid(text.indexOf('.') + 1).trimmed() != "5")
        return {false, "To enter half a day please enter 0.5", {}};
    return {true, {}, text};
}

HolidayEntryCheck checkHolidayEntry(const QString& startText, const QString& endText,
                                    const QString& daysText) {
    const QDate start = core::parseDate(startText.trimmed());
    const QDate end = core::parseDate(endText.trimmed());
    if (!Money::parse(daysText) || !start.isValid() || !end.isValid())
        return {{false, false, "Please enter a start date, end date and number of days."}, {}};
    if (start.year() != end.year())
        return {{false, false,
                 "You cannot enter a holiday that spans 2 years. Please enter each year "
                 "seperately"},
                {}};
    if (end < start)
        return {{false, false, "Please make sure the start date is before the end date"}, {}};
    const DaysCheck days = checkDaysText(daysText);
    if (!days.ok) return {{false, false, days.message}, {}};
    return {{true, false, {}}, days.days};
}

HolidayBookings holidayRows(core::Db& db, qint64 personId, int year) {
    HolidayBookings out;
    const auto rows = db.rows("SELECT holiday_ID, date_from, date_to, days, notes FROM Holiday "
                              "WHERE person_id = ? AND date_from >= ? AND date_from < ? "
                              "ORDER BY date_from DESC, holiday_ID DESC",
                              {personId, QDate(year, 1, 1), QDate(year + 1, 1, 1)});
    for (const QSqlRecord& r : rows)
        out.push_back({Db::toId(r.value(0)), Db::toDate(r.value(1)), Db::toDate(r.value(2)),
                       Money::fromVariant(r.value(3)), Db::text(r.value(4))});
    return out;
}

QStringList holidayYears(core::Db& db, qint64 personId, int currentYear, const QDate& started) {
    std::set<int> years{currentYear, currentYear + 1};
    for (int y = started.isValid() ? started.year() : currentYear; y < currentYear; ++y)
        years.insert(y);
    if (personId != 0)
        for (const QSqlRecord& r :
             db.rows("SELECT DISTINCT date_from FROM Holiday WHERE person_id = ? "
                     "AND date_from IS NOT NULL",
                     {personId}))
            years.insert(Db::toDate(r.value(0)).year());
    QStringList out;
    for (int y : years)
        out << QString::number(y);
    return out;
}

Money daysTaken(const HolidayBookings& rows) {
    Money sum;
    for (const auto& b : rows)
        sum += b.days;
    return sum;
}

bool overEntitlement(const QString& totalText, Money taken) {
    const auto total = Money::parse(totalText);
    return total && taken > *total;
}

UnpaidSplit splitUnpaid(const QDate& start, const QDate& end, Money days, Money left) {
    UnpaidSplit out;
    if (left <= Money()) {
        out.unpaid = {start, end};
        out.unpaidDays = days;
        return out;
    }
    const Money unpaidDays = days - left;
    // Walk back from the end over working days until the unpaid days are covered.
    const int need = wholeDaysCovering(unpaidDays);
    QDate firstUnpaid = end;
    int counted = 0;
    for (QDate d = end; d >= start && counted < need; d = d.addDays(-1)) {
        if (!isWeekday(d)) continue;
        firstUnpaid = d;
        ++counted;
    }
    QDate paidEnd = firstUnpaid;
    if (unpaidDays.units() % Money::Scale == 0) {
        paidEnd = firstUnpaid.addDays(-1);
        while (paidEnd > start && !isWeekday(paidEnd))
            paidEnd = paidEnd.addDays(-1);
        if (paidEnd < start) paidEnd = start;
    }
    out.paidPart = true;
    out.paid = {start, paidEnd};
    out.paidDays = left;
    out.unpaid = {firstUnpaid, end};
    out.unpaidDays = unpaidDays;
    return out;
}

QString entitlementQuestion() {
    return QStringLiteral(
        "Not enough holiday entitlement left. Do you want to take the extra days as unpaid leave");
}

HolidayAddResult addHoliday(core::Db& db, qint64 personId, const HolidayBookings& shown,
                            const HolidayEntry& e, const QString& yearText,
                            const QString& totalText,
                            const std::function<core::MsgAnswer(const QString&)>& ask) {
    HolidayAddResult out;
    if (e.start.year() != e.end.year()) {
        out.message = "You cannot enter a holiday that spans 2 years. Please enter each year "
                      "seperately";
        return out;
    }
    bool isYear = false;
    const int year = yearText.trimmed().toInt(&isYear);
    if (!isYear || e.start.year() != year) {
        out.message = "Please select the correct holiday year before entering days off for that "
                      "year\nHolidays that overlap from one year to the next must be entered "
                      "individually";
        return out;
    }
    std::vector<DatePeriod> periods;
    for (const auto& b : shown)
        periods.push_back({b.from, b.to});
    if (checkdateclash(periods, e.start, e.end)) {
        out.message = "Those dates clash with dates previously entered";
        return out;
    }
    if (!checkentitlement(db, personId, shown, e, totalText, ask, out)) return out;
    out.holidayId = insertHoliday(db, personId, {e.start, e.end},
                                  Money::parse(e.days).value_or(Money()), e.notes);
    out.written = true;
    return out;
}

bool checkentitlement(core::Db& db, qint64 personId, const HolidayBookings& shown,
                      const HolidayEntry& e, const QString& totalText,
                      const std::function<core::MsgAnswer(const QString&)>& ask,
                      HolidayAddResult& out) {
    const Money days = Money::parse(e.days).value_or(Money());
    const auto total = Money::parse(totalText);
    const Money taken = daysTaken(shown);
    if (!total || taken + days <= *total) return true;
    const core::MsgAnswer answer = ask(entitlementQuestion());
    if (answer == core::MsgAnswer::Cancel) return false;
    if (answer == core::MsgAnswer::Yes) {
        bookunpaid(db, personId, e, days, *total - taken, out);
        return false;
    }
    out.overTotal = true;
    return true;
}

void bookunpaid(core::Db& db, qint64 personId, const HolidayEntry& e, Money days, Money left,
                HolidayAddResult& out) {
    const UnpaidSplit split = splitUnpaid(e.start, e.end, days, left);
    core::Transaction t(db);
    if (split.paidPart)
        out.holidayId = insertHoliday(db, personId, split.paid, split.paidDays, e.notes);
    insertAbsenceRow(db, personId, split.unpaid, split.unpaidDays, "U");
    t.commit();
    out.written = true;
    out.unpaid = true;
}

void updateHoliday(core::Db& db, qint64 holidayId, const HolidayEntry& e,
                   const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "Holiday", "holiday_ID", holidayId,
                       {{"date_from", Db::dateOrNull(e.start)},
                        {"date_to", Db::dateOrNull(e.end)},
                        {"days", Money::parse(e.days).value_or(Money()).toVariant()},
                        {"notes", e.notes.trimmed()}});
}

void deleteHoliday(core::Db& db, qint64 holidayId) {
    db.remove("Holiday", "holiday_ID", holidayId);
}

} // namespace personnel
