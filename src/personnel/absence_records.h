#pragma once

#include "db.h"
#include "employee_lists.h"
#include "holiday_bookings.h"
#include "loadedrow.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

// Absences of every year: sickness, unpaid leave, unauthorised absence and the reasons of
// Absence_Lookup. Absence.reason holds a code; the lists show its reason.
namespace personnel {

struct AbsenceRow {
    qint64 id = 0;
    QDate from;
    QDate to;
    core::Money days;
    QString code;
    QString reason; // as shown
    QString notes;
};
using AbsenceRows = std::vector<AbsenceRow>;

// The person's absences, latest start first. Their reasons show "A" as "Unauthorised Absence"
// and "U" as "Unpaid Leave", which need no lookup row, and other codes as their lookup's reason.
AbsenceRows absenceRows(core::Db& db, qint64 personId);
// The reasons of the dialog's drop-down, in order.
QStringList absenceReasons(core::Db& db);

// The code to store for a reason as shown; "" when the reason is unknown.
QString absenceReasonCode(core::Db& db, const QString& reason);

// OK of "Absence". On success `days` holds the text to store.
struct AbsenceEntryCheck {
    DialogCheck check;
    QString days;
};
AbsenceEntryCheck checkAbsenceEntry(const QString& startText, const QString& endText,
                                    const QString& daysText, const QString& reason);

struct AbsenceEntry {
    QDate start;
    QDate end;
    QString days;
    QString reason; // as shown
    QString notes;
};

// One Absence row under its code; notes are stored trimmed.
qint64 insertAbsenceRow(core::Db& db, qint64 personId, const DatePeriod& period, core::Money days,
                        const QString& code, const QString& notes = {});
// Writes a new absence. Throws DbError; returns 0 (nothing written) for a reason with no code.
qint64 insertAbsence(core::Db& db, qint64 personId, const AbsenceEntry& entry);
// A reason without a code of its own keeps the row's code.
void updateAbsence(core::Db& db, qint64 absenceId, const AbsenceEntry& entry,
                   const core::LoadedRow& loaded = {});
void deleteAbsence(core::Db& db, qint64 absenceId);

std::vector<DatePeriod> periodsOf(const AbsenceRows& rows);

// The days of sickness in the year, each step rounded to a whole day, halves to the even one.
int sickDaysInYear(const AbsenceRows& rows, int year);
// "This employee has had {n} days off sick this year" from noDaysAbsence days on; "" below
// it or when the option is 0.
QString sickDaysMessage(const AbsenceRows& rows, int year, int noDaysAbsence);
// The doctor's certificate reminder for a sickness absence longer than sickBeforeDoc days;
// "" otherwise or when the option is 0.
QString certificateMessage(const QString& reason, core::Money days, int sickBeforeDoc);

// One reminder per training course of the person that meets start..end.
QStringList checktraining(core::Db& db, qint64 personId, const QDate& start, const QDate& end);

// "Absent": what pressing it means today.
struct AbsentDecision {
    enum Kind { NewRow, Extend, Clash, AlreadyToday } kind = NewRow;
    qint64 extendId = 0;
};
AbsentDecision decideAbsent(const AbsenceRows& rows, const QDate& today);
// Carries the decision out. Returns the message to show ("" for none).
QString markAbsent(core::Db& db, qint64 personId, const AbsenceRows& rows, const QDate& today,
                   int sickBeforeDoc);

} // namespace personnel
