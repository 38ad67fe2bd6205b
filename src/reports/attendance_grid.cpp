#include "attendance_grid.h"

#include "money.h"

#include <QHash>
#include <QLocale>
#include <QSqlRecord>
#include <algorithm>

namespace reports {

namespace {

using core::Db;

const QString Weekend = QStringLiteral("W");
const QString InWork = QStringLiteral("x");
const QString NotYet = QStringLiteral(" ");
const QString Training = QStringLiteral("C");
const QString Holiday = QStringLiteral("H");

constexpr core::Money HalfDay = core::Money::fromUnits(core::Money::Scale / 2);

bool isWeekend(const QDate& d) {
    return d.dayOfWeek() >= 6;
}

// How one kind of booking is read: `columns` gives person, first day, last day, reason, days
// and the row's key, from `from`; `first` and `last` name the two date columns.
struct BookingSource {
    const char* columns;
    const char* from;
    const char* filter; // what every row must meet besides the dates, or ""
    const char* first;
    const char* last;
    bool withCode;
};

// The bookings of one kind that touch monthStart..monthEnd, in the order they were made (each
// later one is laid over the earlier). A booking touches the month when it ends on or after
// its first day and starts by its last; one without an end touches it when it starts in it.
// The two halves let the database find the few rows that end in or after the month through
// an index on the last day, instead of reading every booking that started before it.
// Rows without a first day mark nothing.
std::vector<Booking> readBookings(Db& db, const BookingSource& s, const QDate& monthStart,
                                  const QDate& monthEnd) {
    QString select = QStringLiteral("SELECT %1 FROM %2 WHERE ").arg(s.columns, s.from);
    if (*s.filter) select += QStringLiteral("%1 AND ").arg(s.filter);
    const QString sql = select + QStringLiteral("%1 >= ? AND %2 <= ?").arg(s.last, s.first) +
                        " UNION ALL " + select +
                        QStringLiteral("%1 IS NULL AND %2 >= ? AND %2 <= ?").arg(s.last, s.first);
    // Sorted here rather than by the database: asked for the key's order, the embedded one
    // walks the whole table in key order instead of using the index.
    std::vector<std::pair<qint64, Booking>> keyed;
    auto q = db.query(sql, {monthStart, monthEnd, monthStart, monthEnd});
    while (q.next()) {
        Booking b;
        b.person = Db::toId(q.value(0));
        b.first = Db::toDate(q.value(1));
        b.last = Db::toDate(q.value(2));
        if (!b.first.isValid()) continue;
        if (s.withCode) {
            b.code = Db::text(q.value(3)).trimmed();
            b.halfDay = core::Money::fromVariant(q.value(4)) == HalfDay;
        }
        keyed.emplace_back(Db::toId(q.value(5)), std::move(b));
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Booking> out;
    out.reserve(keyed.size());
    for (auto& [key, booking] : keyed)
        out.push_back(std::move(booking));
    return out;
}

const BookingSource TrainingRows{
    "pt.person_id, t.TDate, t.Edate, '' AS reason, 0 AS days, t.Training_ID",
    "Training t INNER JOIN PersonTraining pt ON t.Training_ID = pt.Training_ID",
    "t.BlnDeleted <> 1",
    "t.TDate",
    "t.Edate",
    false};
const BookingSource AbsenceRows{"person_id, startdate, enddate, reason, days, absence_ID",
                                "Absence",
                                "",
                                "startdate",
                                "enddate",
                                true};
const BookingSource HolidayRows{"person_id, date_from, date_to, '' AS reason, days, holiday_ID",
                                "Holiday",
                                "",
                                "date_from",
                                "date_to",
                                true};

enum class Pass { Training, Absence, Holiday };

void overlay(AttendanceGrid& grid, int row, const Booking& b, Pass pass) {
    const QDate monthEnd = grid.monthStart().addDays(grid.days() - 1);
    const QDate last = b.last.isValid() ? b.last : b.first;
    const QDate from = std::max(b.first, grid.monthStart());
    const QDate to = std::min(last, monthEnd);
    for (QDate d = from; d <= to; d = d.addDays(1)) {
        QString& cell = grid.code(row, d.day());
        const bool weekend = cell.trimmed() == Weekend;
        switch (pass) {
        case Pass::Training:
            if (!weekend) cell = Training;
            break;
        case Pass::Absence:
            if (!weekend) cell = b.code;
            if (b.halfDay) cell += '/';
            break;
        case Pass::Holiday:
            if (weekend) break;
            cell = Holiday;
            if (b.halfDay) cell += '/';
            break;
        }
    }
}

} // namespace

std::vector<GridRow> monthEmployees(core::Db& db, const QDate& listedBy, const QDate& monthStart,
                                    bool includeLeavers) {
    QString sql = QStringLiteral("SELECT Person_ID, firstnames, surname, startdate FROM Person "
                                 "WHERE blndeleted <> 1 AND startdate <= ?");
    core::Params params{listedBy};
    if (!includeLeavers) sql += QStringLiteral(" AND HasLeft = 0");
    if (monthStart.isValid()) {
        sql += QStringLiteral(" AND (finishdate IS NULL OR finishdate >= ?)");
        params << monthStart;
    }
    sql += QStringLiteral(" ORDER BY surname, firstnames, Person_ID");
    std::vector<GridRow> rows;
    auto q = db.query(sql, params);
    while (q.next())
        rows.push_back({Db::toId(q.value(0)),
                        (Db::text(q.value(2)) + ", " + Db::text(q.value(1))).trimmed(),
                        Db::toDate(q.value(3))});
    return rows;
}

AttendanceGrid::AttendanceGrid(const QDate& monthStart, std::vector<GridRow> rows)
    : monthStart_(monthStart)
    , days_(monthStart.daysInMonth())
    , rows_(std::move(rows))
    , codes_(rows_.size() * 31) {}

void layOut(AttendanceGrid& grid, const QDate& today, const std::vector<Booking>& training,
            const std::vector<Booking>& absence, const std::vector<Booking>& holiday) {
    std::vector<QDate> dates;
    for (int day = 1; day <= grid.days(); ++day)
        dates.push_back(grid.monthStart().addDays(day - 1));
    for (int r = 0; r < grid.rowCount(); ++r) {
        const QDate& start = grid.rows()[std::size_t(r)].start;
        for (int day = 1; day <= grid.days(); ++day) {
            const QDate& d = dates[std::size_t(day - 1)];
            QString& cell = grid.code(r, day);
            if (isWeekend(d))
                cell = Weekend;
            else if (start.isValid() && start <= d)
                cell = today >= d ? InWork : NotYet;
            else
                cell.clear();
        }
    }
    QHash<qint64, int> rowOf;
    for (int r = 0; r < grid.rowCount(); ++r)
        rowOf.insert(grid.rows()[std::size_t(r)].id, r);
    // The passes touch each row in the same order as a row at a time would: the three kinds
    // never meet across rows.
    const std::pair<const std::vector<Booking>*, Pass> passes[] = {
        {&training, Pass::Training}, {&absence, Pass::Absence}, {&holiday, Pass::Holiday}};
    for (const auto& [bookings, pass] : passes)
        for (const Booking& b : *bookings)
            if (auto it = rowOf.constFind(b.person); it != rowOf.constEnd())
                overlay(grid, *it, b, pass);
}

AttendanceGrid calculateGrid(core::Db& db, const QDate& monthStart, std::vector<GridRow> rows,
                             const QDate& today, const std::function<void(int, int)>& progress) {
    const auto step = [&](int done) {
        if (progress) progress(done, 4);
    };
    AttendanceGrid grid(monthStart, std::move(rows));
    const QDate monthEnd = monthStart.addDays(grid.days() - 1);
    step(0);
    const auto training = readBookings(db, TrainingRows, monthStart, monthEnd);
    step(1);
    const auto absence = readBookings(db, AbsenceRows, monthStart, monthEnd);
    step(2);
    const auto holiday = readBookings(db, HolidayRows, monthStart, monthEnd);
    step(3);
    layOut(grid, today, training, absence, holiday);
    step(4);
    return grid;
}

Sheet attendanceSheet(const AttendanceGrid& grid, const std::vector<int>& order) {
    Sheet sheet;
    const CellFormat red{false, true, false};
    for (int day = 1; day <= grid.days(); ++day)
        sheet.setNumber(1, day + 1, day);
    const int rows = order.empty() ? grid.rowCount() : int(order.size());
    for (int i = 0; i < rows; ++i) {
        const int r = order.empty() ? i : order[std::size_t(i)];
        sheet.setText(i + 2, 1, grid.rows()[std::size_t(r)].name);
        for (int day = 1; day <= grid.days(); ++day) {
            const QString& code = grid.code(r, day);
            if (code == Weekend) {
                sheet.addFormat(i + 2, day + 1, red);
                sheet.addFormat(1, day + 1, red);
            } else if (!code.isEmpty()) {
                sheet.setText(i + 2, day + 1, code);
            }
        }
    }
    return sheet;
}

QString monthCaption(const QDate& month) {
    return QLocale(QLocale::English).standaloneMonthName(month.month(), QLocale::LongFormat) +
           " : " + QString::number(month.year());
}

} // namespace reports
