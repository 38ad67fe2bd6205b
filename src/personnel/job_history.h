#pragma once

#include "db.h"
#include "employee_lists.h"
#include "loadedrow.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

// An employee's posts: the present one lives in Person (position, salary, JHDate, jhnote),
// the closed ones in JobHistory. The Job History page shows both as one list, newest first,
// and keeps it in step with the Job Details page until the employee is saved.
namespace personnel {

// One period of the list. The first row is the present post and has no key; a row added by a
// page change in this sitting has no key either until the save archives what it replaced.
struct JobPeriod {
    qint64 id = 0; // JobHistory_ID, 0 when the row is not in the table
    QDate from;
    QDate to; // invalid: the period is open
    QString position;
    QString salary; // as shown, "" when none
    QString notes;
    bool addedHere = false; // put on top by a page change of this sitting
};
using JobPeriods = std::vector<JobPeriod>;

// "{from}-{to}" for a closed period, "{from}" for an open one, in the session's profile.
QString periodText(const JobPeriod& p);

// The present post as Person holds it.
struct PresentPost {
    QDate jhDate;
    QDate startDate;
    QString position;
    std::optional<core::Money> salary;
    QString notes; // jhnote
};

// The present post on top (dated JHDate, or the start date without one), then JobHistory
// newest first.
JobPeriods jobHistoryRows(core::Db& db, qint64 personId, const PresentPost& present);

// The flags the page change and the save share for one sitting of the employee screen.
struct JobHistoryFlags {
    bool historyrowadded = false;
    bool archiveprevious = true;
};

// What the Job Details page holds when the Job History page comes up (or the save starts).
struct JobDetails {
    bool recordIsNew = false;
    bool salaryChanged = false;
    bool positionChanged = false;
    QString position; // trimmed text of the drop-down
    QString salary;   // trimmed text
    QDate startDate;
};

// Brings the list up to date with the Job Details page: a changed salary or a picked position
// starts a new period today, closing the one before; a second change on a day that already
// began a period in an earlier sitting overwrites that period instead. A new employee's list
// gets its first row here.
void jobHistoryPageChange(JobPeriods& rows, JobHistoryFlags& flags, const JobDetails& details,
                          const QDate& today);

// What the save writes besides the Person row.
struct JobHistorySave {
    std::optional<JobPeriod> archive; // the period that ended today, for JobHistory
    bool newPeriodToday = false;      // JHDate becomes today and jhnote is emptied
};
// positionPicked: the drop-down holds a pick of the user's (no entry made through "New..").
// salaryNumeric: the salary box holds a number. A period already in the table is never
// archived again, and JHDate moves only together with the period that closed.
JobHistorySave jobHistoryOnSave(const JobPeriods& rows, const JobHistoryFlags& flags,
                                const JobDetails& details, bool positionPicked, bool salaryNumeric,
                                const QDate& today);

// Where a period starting on `from` goes: before the first row whose start is on or before
// it, else at the end.
int placeForPeriod(const JobPeriods& rows, const QDate& from);

// Whether from..to overlaps a period of the list. Periods that only touch do not clash; an
// open period runs to today.
bool checkjobclash(const JobPeriods& rows, const QDate& from, const QDate& to, const QDate& today);

// The fields of "Job History" as typed (texts trimmed by the check).
struct JobHistoryEntry {
    QDate from;
    QDate to;
    QString position;
    QString salary;
    QString notes;
};

// OK of "Job History". salaryRefused: the salary box is to be emptied and focused.
struct JobEntryCheck {
    DialogCheck check;
    bool salaryRefused = false;
};
JobEntryCheck checkJobHistoryEntry(const QString& fromText, const QString& toText,
                                   const QString& salaryText);

// The outcome of adding a period by hand: where it stands and what was written.
struct JobAddResult {
    bool refused = false; // the message has been decided; nothing was written
    QString message;
    int place = -1;           // index of the new row in the list
    bool presentPost = false; // the new row became the present post
};
// Adds the period to the list and the table. A period before the start date or overlapping
// another is refused. A new present post archives the one it replaces (closed on the new
// start); a past period without an end runs to the start of the next newer period.
JobAddResult addJobPeriod(core::Db& db, qint64 personId, JobPeriods& rows,
                          const JobHistoryEntry& entry, const QDate& employeeStart,
                          const QDate& today);

// Writes a row edited in the dialog back to JobHistory.
void updateJobPeriod(core::Db& db, const JobPeriod& period, const core::LoadedRow& loaded = {});
void deleteJobPeriod(core::Db& db, qint64 jobHistoryId);
qint64 insertJobPeriod(core::Db& db, qint64 personId, const JobPeriod& period);

// The messages of the page.
QString jobClashMessage(); // "Dates Clash"

} // namespace personnel
