#include "booking_report.h"

#include "money.h"
#include "regional.h"

#include <QSqlRecord>

namespace reports {

namespace {

using core::Db;

// Bound as from, from, from, to, to.
const QString Overlap =
    QStringLiteral(" AND ((b.%1 <= ? AND b.%2 >= ?) OR (b.%1 > ? AND (b.%2 <= ? OR b.%1 <= ?)))");

// Reasons without a lookup row, named as the employee's absence page names them.
QString reasonText(const QString& code, const QVariant& lookup) {
    if (code == "A") return QStringLiteral("Unauthorised Absence");
    if (code == "U") return QStringLiteral("Unpaid Leave");
    return lookup.isNull() ? code : Db::text(lookup).trimmed();
}

QString daysText(const QVariant& days) {
    if (days.isNull()) return {};
    return core::plainNumber(core::Money::fromVariant(days));
}

} // namespace

const QStringList& criterionItems() {
    static const QStringList items{"By Employee", "All Employees", "By Department", "By Location"};
    return items;
}

Criterion criterionOf(const QString& item) {
    switch (criterionItems().indexOf(item)) {
    case 0:
        return Criterion::ByEmployee;
    case 1:
        return Criterion::AllEmployees;
    case 2:
        return Criterion::ByDepartment;
    case 3:
        return Criterion::ByLocation;
    default:
        return Criterion::None;
    }
}

QString rangeCheck(const QString& fromText, const QString& toText) {
    const QDate from = core::parseDate(fromText.trimmed());
    const QDate to = core::parseDate(toText.trimmed());
    if (!from.isValid() || !to.isValid()) return "Please enter a start date and an end date.";
    if (to < from) return "Startdate has to be before the enddate";
    return {};
}

QString selectionCheck(Criterion criterion, bool hasChoice) {
    switch (criterion) {
    case Criterion::ByEmployee:
        return hasChoice ? QString() : "Please select the employee you want to run the report on";
    case Criterion::ByLocation:
        return hasChoice ? QString() : "Please select the location you want to run the report on";
    case Criterion::ByDepartment:
        return hasChoice ? QString() : "Please select the department you want to run the report on";
    case Criterion::AllEmployees:
        return {};
    case Criterion::None:
        break;
    }
    return "Please select a criteria";
}

std::vector<BookingRow> bookingReport(core::Db& db, BookingKind kind, Criterion criterion,
                                      qint64 choice, bool includeLeavers, const QDate& from,
                                      const QDate& to) {
    const bool absence = kind == BookingKind::Absence;
    const QString first = absence ? "startdate" : "date_from";
    const QString last = absence ? "enddate" : "date_to";
    QString sql =
        absence ? QStringLiteral("SELECT b.absence_ID, p.Person_ID, p.firstnames, p.surname, "
                                 "b.startdate, b.enddate, b.days, b.reason, l.Reason "
                                 "FROM Person p INNER JOIN Absence b ON p.Person_ID = b.person_id "
                                 "LEFT OUTER JOIN Absence_Lookup l ON l.Code = TRIM(b.reason) "
                                 "WHERE 1 = 1")
                : QStringLiteral("SELECT b.holiday_ID, p.Person_ID, p.firstnames, p.surname, "
                                 "b.date_from, b.date_to, b.days "
                                 "FROM Person p INNER JOIN Holiday b ON p.Person_ID = b.person_id "
                                 "WHERE 1 = 1");
    core::Params params;
    if (criterion == Criterion::ByEmployee) {
        sql += " AND p.Person_ID = ?";
        params << choice;
    } else {
        sql += " AND p.blndeleted <> 1";
        if (!includeLeavers) sql += " AND p.HasLeft = 0";
        if (criterion == Criterion::ByDepartment) {
            sql += " AND p.Department_ID = ?";
            params << choice;
        } else if (criterion == Criterion::ByLocation) {
            sql += " AND p.Location_ID = ?";
            params << choice;
        }
    }
    sql += Overlap.arg(first, last);
    params << from << from << from << to << to;
    sql += criterion == Criterion::ByEmployee
               ? QStringLiteral(" ORDER BY b.%1 DESC, b.%2 DESC")
                     .arg(first, absence ? "absence_ID" : "holiday_ID")
               : QStringLiteral(" ORDER BY p.surname, p.firstnames, p.Person_ID, b.%1").arg(first);

    std::vector<BookingRow> rows;
    auto q = db.query(sql, params);
    while (q.next()) {
        BookingRow r;
        r.id = Db::toId(q.value(0));
        r.personId = Db::toId(q.value(1));
        r.name = Db::text(q.value(3)).trimmed() + ", " + Db::text(q.value(2)).trimmed();
        r.from = Db::toDate(q.value(4));
        r.to = Db::toDate(q.value(5));
        r.days = q.value(6);
        if (absence) r.reason = reasonText(Db::text(q.value(7)).trimmed(), q.value(8));
        rows.push_back(std::move(r));
    }
    return rows;
}

QStringList bookingCells(const BookingRow& row, BookingKind kind) {
    QStringList cells{QString::number(row.personId), row.name, core::formatDate(row.from),
                      core::formatDate(row.to), daysText(row.days)};
    if (kind == BookingKind::Absence) cells << row.reason;
    return cells;
}

Sheet bookingSheet(const std::vector<BookingRow>& rows, BookingKind kind) {
    Sheet sheet;
    int r = 3;
    for (const BookingRow& row : rows) {
        sheet.setNumber(r, 2, row.personId);
        sheet.setText(r, 3, row.name);
        sheet.setText(r, 4, core::formatDate(row.from));
        sheet.setText(r, 5, core::formatDate(row.to));
        if (!row.days.isNull()) sheet.setNumber(r, 6, daysText(row.days));
        if (kind == BookingKind::Absence) sheet.setText(r, 7, row.reason);
        ++r;
    }
    return sheet;
}

namespace {

// Headings in bold in row 1, then the statement's rows from row 2, each value trimmed; a
// NULL is an empty cell.
Sheet listSheet(core::Db& db, const QStringList& headings, const QString& sql, int numberColumns,
                int moneyColumn) {
    Sheet sheet;
    for (int c = 0; c < headings.size(); ++c)
        sheet.setText(1, c + 1, headings[c], {true, false, false});
    int r = 2;
    auto q = db.query(sql);
    while (q.next()) {
        for (int c = 0; c < headings.size(); ++c) {
            const QVariant v = q.value(c);
            if (v.isNull()) continue;
            if (c < numberColumns)
                sheet.setNumber(r, c + 1, Db::toId(v));
            else if (c == moneyColumn)
                sheet.setNumber(r, c + 1, core::plainNumber(core::Money::fromVariant(v)));
            else
                sheet.setText(r, c + 1, Db::text(v).trimmed());
        }
        ++r;
    }
    return sheet;
}

} // namespace

Sheet addressSheet(core::Db& db) {
    return listSheet(
        db, {"Title", "First Names", "Last Name", "Address1", "Address2", "Address3", "Post Code"},
        "SELECT Title, firstnames, surname, address1, address2, address3, PostCode "
        "FROM Person WHERE blndeleted <> 1 AND HasLeft = 0 ORDER BY Person_ID",
        0, -1);
}

Sheet salarySheet(core::Db& db) {
    return listSheet(db, {"Employee ID", "Title", "First Names", "Last Name", "Salary"},
                     "SELECT Person_ID, Title, firstnames, surname, salary FROM Person "
                     "WHERE blndeleted <> 1 AND HasLeft = 0 "
                     "ORDER BY surname, firstnames, Person_ID",
                     1, 4);
}

} // namespace reports
