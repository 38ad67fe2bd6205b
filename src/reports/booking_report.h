#pragma once

#include "db.h"
#include "spreadsheet.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

// The holiday and absence reports: the bookings of a selection of employees that touch a
// range of dates, each shown whole.
namespace reports {

enum class BookingKind { Holiday, Absence };
enum class Criterion { ByEmployee, AllEmployees, ByDepartment, ByLocation, None };

// The criteria combo's items, in order, and the criterion of a combo text.
const QStringList& criterionItems();
Criterion criterionOf(const QString& item);

struct BookingRow {
    qint64 id = 0; // holiday_ID or absence_ID
    qint64 personId = 0;
    QString name; // "{surname}, {firstnames}", each trimmed
    QDate from;
    QDate to;
    QVariant days;  // as stored; NULL when none
    QString reason; // absence report only
};

// The messages that stop "Run", or "" to go on: first the dates, then (after the list has
// been cleared) the selection, where `hasChoice` is whether the second combo holds one of its
// items.
QString rangeCheck(const QString& fromText, const QString& toText);
QString selectionCheck(Criterion criterion, bool hasChoice);

// The bookings of the criterion's employees (not deleted; without `includeLeavers` not left;
// by employee: that one, whatever their state) that overlap from..to: a booking starting on
// or before `from` that ends on or after it, or one starting later that ends by `to` or
// starts by it. Ordered by name (by employee: latest first).
std::vector<BookingRow> bookingReport(core::Db& db, BookingKind kind, Criterion criterion,
                                      qint64 choice, bool includeLeavers, const QDate& from,
                                      const QDate& to);

// The list as the screen shows it: "Emp ID", "Name", "Date From", "Date To", "Days" (and
// "Reason").
QStringList bookingCells(const BookingRow& row, BookingKind kind);

// The list into the report's template: one row a booking from row 3, columns 2 to 6 (and the
// reason in column 7); numbers as numbers.
Sheet bookingSheet(const std::vector<BookingRow>& rows, BookingKind kind);

// The two lists of current employees written into a new workbook, with bold headings in row 1.
// "Names && Addresses": title, first names, last name, three address lines, post code.
Sheet addressSheet(core::Db& db);
// "Salary Info": number, title, names and salary, by name.
Sheet salarySheet(core::Db& db);

} // namespace reports
