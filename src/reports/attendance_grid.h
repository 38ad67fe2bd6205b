#pragma once

#include "db.h"
#include "spreadsheet.h"

#include <QDate>
#include <QString>
#include <functional>
#include <vector>

// The monthly attendance grid: one row per employee, one code per day of the month.
namespace reports {

// One employee of the month: the row's text is "{surname}, {firstnames}". The start date
// travels with the row, so that "GO" need not read the employees again.
struct GridRow {
    qint64 id = 0;
    QString name;
    QDate start;
};

// Who the month lists: not deleted, started on or before `listedBy`, not left before
// `monthStart` (an invalid monthStart lists leavers whatever their finish date); without
// `includeLeavers` only those who have not left. Ordered by surname, then first names.
std::vector<GridRow> monthEmployees(core::Db& db, const QDate& listedBy, const QDate& monthStart,
                                    bool includeLeavers);

// A holiday, absence or training booking as the grid reads it.
struct Booking {
    qint64 person = 0;
    QDate first;
    QDate last;           // invalid: the booking is its first day only
    QString code;         // the absence's reason, trimmed
    bool halfDay = false; // days is 0.5
};

// The codes of every row of the month, days 1 to days().
class AttendanceGrid {
public:
    AttendanceGrid() = default;
    AttendanceGrid(const QDate& monthStart, std::vector<GridRow> rows);

    const QDate& monthStart() const { return monthStart_; }
    int days() const { return days_; }
    const std::vector<GridRow>& rows() const { return rows_; }
    int rowCount() const { return int(rows_.size()); }
    const QString& code(int row, int day) const { return codes_[std::size_t(row) * 31 + day - 1]; }
    QString& code(int row, int day) { return codes_[std::size_t(row) * 31 + day - 1]; }

private:
    QDate monthStart_;
    int days_ = 0;
    std::vector<GridRow> rows_;
    std::vector<QString> codes_; // 31 a row
};

// Lays the month out in memory. The base code of each day is "W" on Saturday and Sunday, "x"
// on a weekday from the row's start date up to and including today, " " on a later
// weekday, and "" before the start date. Then, row by row, training ("C"), absence (its
// reason) and holiday ("H") are laid over it in that order, each later one winning; none
// replaces "W", though an absence of half a day there still adds "/". Half days add "/".
void layOut(AttendanceGrid& grid, const QDate& today, const std::vector<Booking>& training,
            const std::vector<Booking>& absence, const std::vector<Booking>& holiday);

// Reads the bookings that touch the month, one statement for each kind for the whole grid,
// and lays the month out from them and the rows' start dates. `progress` hears of each stage.
AttendanceGrid calculateGrid(core::Db& db, const QDate& monthStart, std::vector<GridRow> rows,
                             const QDate& today,
                             const std::function<void(int done, int total)>& progress = {});

// The grid as a spreadsheet: day numbers in row 1 from column 2, names in column 1 from row
// 2, the codes beside them; a "W" cell is written as a red cell without text, and turns the
// header of its day red. The rows go in `order` (grid rows, as the screen shows them sorted),
// or in the grid's own order when it is empty.
Sheet attendanceSheet(const AttendanceGrid& grid, const std::vector<int>& order = {});

// "January : 2002": the month label's caption.
QString monthCaption(const QDate& month);

} // namespace reports
