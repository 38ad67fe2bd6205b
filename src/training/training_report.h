#pragma once

#include "db.h"

#include <QDate>
#include <QStringList>
#include <optional>
#include <vector>

// The training report's rows: "Date", "Course", "Attendee". Deleted programmes never appear.
namespace training {

using ReportRows = std::vector<QStringList>;

// One programme and one of its bookings, as the course report reads them; a programme
// without bookings comes as one record without a person.
struct BookingRecord {
    qint64 trainingId = 0;
    QDate start;
    QString title;
    std::optional<QString> attendee; // "{surname}, {firstnames}"
};

// Groups the records (ordered by programme) as the report shows them: the first row of a
// programme carries its date and title with the first attendee, further attendees follow on
// rows of their own, and a blank row stands between programmes.
ReportRows groupByProgramme(const std::vector<BookingRecord>& records);

// Every programme of a course, or of every course when courseId is nullopt ("All").
ReportRows courseReport(core::Db& db, std::optional<qint64> courseId);
// What one person was booked on, latest first: date and course, no attendee.
ReportRows employeeReport(core::Db& db, qint64 personId);

} // namespace training
