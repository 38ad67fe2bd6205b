#pragma once

#include "db.h"
#include "programmes.h"

#include <QList>
#include <QString>

// Booking people on a programme. A booking is written at once, and the first booking of a
// programme that is not saved yet saves the programme with it.
namespace training {

struct ScheduleRequest {
    qint64 personId = 0;     // the employee picked, 0 for none
    QList<qint64> booked;    // who the screen's list already shows
    qint64 trainingId = 0;   // 0 while the programme is not saved
    ProgrammeText programme; // saved first when it is not
};

struct ScheduleOutcome {
    QString message;       // shown instead of booking; nothing has been written
    qint64 trainingId = 0; // the programme the booking went to
    bool booked() const { return message.isEmpty(); }
};

// Refuses a booking without an employee, a start date or a course, and a second booking of
// the same person on one programme (whether the screen or the database knows of it). The
// programme and its first booking are written together or not at all.
ScheduleOutcome schedule(core::Db& db, const ScheduleRequest& request);

void removeBooking(core::Db& db, qint64 trainingId, qint64 personId);

} // namespace training
