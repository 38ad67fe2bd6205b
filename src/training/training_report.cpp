#include "training_report.h"

#include "regional.h"

#include <QSqlRecord>

namespace training {

namespace {

using core::Db;

// The attendee's name comes with the programme in one statement rather than one per booking.
const QString CourseReportSql =
    QStringLiteral("SELECT t.Training_ID, t.TDate, c.Title, p.Surname, p.FirstNames, pt.person_id "
                   "FROM Training t LEFT OUTER JOIN Courses c ON t.Course_ID = c.Course_ID "
                   "LEFT OUTER JOIN PersonTraining pt ON t.Training_ID = pt.Training_ID "
                   "LEFT OUTER JOIN Person p ON pt.person_id = p.Person_ID "
                   "WHERE t.BlnDeleted <> 1 %1 "
                   "ORDER BY t.Training_ID, p.Surname, p.FirstNames, pt.person_id");

} // namespace

ReportRows groupByProgramme(const std::vector<BookingRecord>& records) {
    ReportRows rows;
    std::optional<qint64> kept;
    for (const BookingRecord& r : records) {
        rows.push_back({QString(), QString(), QString()});
        if (r.trainingId != kept) {
            if (kept) rows.push_back({QString(), QString(), QString()});
            rows.back()[0] = core::formatDate(r.start);
            rows.back()[1] = r.title.trimmed();
            kept = r.trainingId;
        }
        if (r.attendee) rows.back()[2] = *r.attendee;
    }
    return rows;
}

ReportRows courseReport(core::Db& db, std::optional<qint64> courseId) {
    const auto found = courseId ? db.rows(CourseReportSql.arg("AND c.Course_ID = ?"), {*courseId})
                                : db.rows(CourseReportSql.arg(QString()));
    std::vector<BookingRecord> records;
    records.reserve(found.size());
    for (const QSqlRecord& r : found) {
        BookingRecord b{Db::toId(r.value("Training_ID")), Db::toDate(r.value("TDate")),
                        Db::text(r.value("Title")), std::nullopt};
        if (!r.value("person_id").isNull())
            b.attendee = Db::text(r.value("Surname")) + ", " + Db::text(r.value("FirstNames"));
        records.push_back(std::move(b));
    }
    return groupByProgramme(records);
}

ReportRows employeeReport(core::Db& db, qint64 personId) {
    ReportRows rows;
    for (const QSqlRecord& r :
         db.rows("SELECT t.TDate, c.Title FROM Training t "
                 "LEFT OUTER JOIN Courses c ON t.Course_ID = c.Course_ID "
                 "INNER JOIN PersonTraining pt ON t.Training_ID = pt.Training_ID "
                 "WHERE t.BlnDeleted <> 1 AND pt.person_id = ? "
                 "ORDER BY CASE WHEN t.TDate IS NULL THEN 1 ELSE 0 END, t.TDate DESC, "
                 "t.Training_ID DESC",
                 {personId}))
        rows.push_back({core::formatDate(Db::toDate(r.value("TDate"))),
                        Db::text(r.value("Title")).trimmed(), QString()});
    return rows;
}

} // namespace training
