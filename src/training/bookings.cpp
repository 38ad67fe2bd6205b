#include "bookings.h"

#include "programme_checks.h"
#include "regional.h"

namespace training {

ScheduleOutcome schedule(core::Db& db, const ScheduleRequest& request) {
    // A programme saved without its course could never be listed or reported again.
    if (request.personId <= 0 || !core::isDate(request.programme.start) ||
        request.programme.courseId <= 0)
        return {QStringLiteral("Please select Course and enter startdate before selecting "
                               "employees"),
                request.trainingId};
    const auto alreadyBooked = [&] {
        if (request.booked.contains(request.personId)) return true;
        return request.trainingId > 0 &&
               db.scalar("SELECT COUNT(*) FROM PersonTraining WHERE person_id = ? AND "
                         "Training_ID = ?",
                         {request.personId, request.trainingId})
                       .toInt() > 0;
    };
    if (alreadyBooked())
        return {QStringLiteral("That user has already been booked"), request.trainingId};
    // The first booking writes the programme: nothing typed may be dropped on the way.
    if (request.trainingId <= 0)
        if (const QString refusal = unreadableValue(request.programme); !refusal.isEmpty())
            return {refusal, request.trainingId};

    core::Transaction transaction(db);
    qint64 trainingId = request.trainingId;
    if (trainingId <= 0) trainingId = saveNewProgramme(db, request.programme);
    db.insertRow("PersonTraining", {{"person_id", request.personId}, {"Training_ID", trainingId}});
    transaction.commit();
    return {{}, trainingId};
}

void removeBooking(core::Db& db, qint64 trainingId, qint64 personId) {
    db.exec("DELETE FROM PersonTraining WHERE person_id = ? AND Training_ID = ?",
            {personId, trainingId});
}

} // namespace training
