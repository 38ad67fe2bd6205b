#pragma once

#include "db.h"
#include "employee_lists.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

// Holiday: one yearly entitlement (Person.DaysHoliday, the same every calendar year) and the
// bookings in Holiday. A booking over the entitlement may turn its excess into unpaid leave,
// an Absence row with the code "U".
namespace personnel {

// A stretch of days as a list shows it, first and last day included.
struct DatePeriod {
    QDate from;
    QDate to;
};

// Whether start..end meets a period of the list. Both ends count: a booking that starts on
// the day another ends clashes.
bool checkdateclash(const std::vector<DatePeriod>& periods, const QDate& start, const QDate& end);

// The days of a booking as typed. Whole numbers pass; a half day must be written "0.5" (".5"
// becomes "0.5"); anything else is refused with its own words.
struct DaysCheck {
    bool ok = false;
    QString message;
    QString days; // the text to store
};
DaysCheck checkDaysText(const QString& daysText);

// OK of "Add Holiday". On success `days` holds the text to store.
struct HolidayEntryCheck {
    DialogCheck check;
    QString days;
};
HolidayEntryCheck checkHolidayEntry(const QString& startText, const QString& endText,
                                    const QString& daysText);

struct HolidayBooking {
    qint64 id = 0;
    QDate from;
    QDate to;
    core::Money days;
    QString notes;
};
using HolidayBookings = std::vector<HolidayBooking>;

// The person's bookings that start in the year, newest first.
HolidayBookings holidayRows(core::Db& db, qint64 personId, int year);
// The years the year box offers: every year from the one the person started in (this year when
// no start is known) to next year, and every year holding a booking.
QStringList holidayYears(core::Db& db, qint64 personId, int currentYear, const QDate& started);

// "Days taken so far": the days of the bookings shown.
core::Money daysTaken(const HolidayBookings& rows);
// The taken figure turns red above a numeric total.
bool overEntitlement(const QString& totalText, core::Money taken);

// The unpaid-leave split of a booking over the entitlement. `left` is what the entitlement
// still holds. The unpaid part is the booking's last working days; a half day left over is
// shared by both parts. Without anything left the whole booking is unpaid.
struct UnpaidSplit {
    bool paidPart = false;
    DatePeriod paid;
    core::Money paidDays;
    DatePeriod unpaid;
    core::Money unpaidDays;
};
UnpaidSplit splitUnpaid(const QDate& start, const QDate& end, core::Money days, core::Money left);

// A booking the dialog accepted.
struct HolidayEntry {
    QDate start;
    QDate end;
    QString days; // as checked
    QString notes;
};

// What adding a booking did.
struct HolidayAddResult {
    QString message;        // a refusal, shown by the page; nothing was written
    bool written = false;   // a Holiday or Absence row was written
    bool overTotal = false; // the user chose to go over the entitlement
    bool unpaid = false;    // Absence rows were written: the absence list must be read again
    qint64 holidayId = 0;   // the Holiday row written, if any
};

// The question asked when the entitlement does not cover a booking.
QString entitlementQuestion();

// Adds a booking after the dialog: the year checks, the clash with the bookings shown, the
// entitlement (the question goes to `ask`, answered Yes, No or Cancel), then the rows.
HolidayAddResult addHoliday(core::Db& db, qint64 personId, const HolidayBookings& shown,
                            const HolidayEntry& entry, const QString& yearText,
                            const QString& totalText,
                            const std::function<core::MsgAnswer(const QString&)>& ask);

// The entitlement step of an Add: a booking the entitlement does not cover is asked about.
// Yes books the extra days as unpaid leave (bookunpaid), No lets the booking go over the
// entitlement, Cancel books nothing. true when the booking is still to be written whole.
bool checkentitlement(core::Db& db, qint64 personId, const HolidayBookings& shown,
                      const HolidayEntry& entry, const QString& totalText,
                      const std::function<core::MsgAnswer(const QString&)>& ask,
                      HolidayAddResult& out);
// The booking with its last `days - left` days as unpaid leave: the paid part in Holiday, the
// rest in Absence ("U"), in one transaction.
void bookunpaid(core::Db& db, qint64 personId, const HolidayEntry& entry, core::Money days,
                core::Money left, HolidayAddResult& out);

void updateHoliday(core::Db& db, qint64 holidayId, const HolidayEntry& entry,
                   const core::LoadedRow& loaded = {});
void deleteHoliday(core::Db& db, qint64 holidayId);

} // namespace personnel
