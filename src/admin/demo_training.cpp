#include "demo_generator.h"

// Course bookings and attendance.

namespace admin::demo {

void Generator::training() {
    if (courses_.empty()) return;
    Batch programme(db_, summary_, "Training",
                    {"Training_ID", "Course_ID", "TDate", "Edate", "TTime", "Location",
                     "Instructor", "Description", "Price", "BlnDeleted"});
    Batch booking(db_, summary_, "PersonTraining", {"person_id", "Training_ID"}, &programme);
    qint64 id = firstFreeKey(db_, "Training", "Training_ID");
    static const std::array<const char*, 4> times{"09:00", "09:30", "10:00", "13:30"};
    const int programmes = 36 + employees_ / 25;
    for (int p = 0; p < programmes; ++p) {
        const auto& [courseId, title] = rnd_.pick(courses_);
        const QDate first = nextWeekday(today_.addDays(rnd_.between(-3 * 365, 90)));
        const int length = rnd_.weighted({70, 20, 10});
        const QDate last = length == 0 ? QDate() : addWorkingDays(first, length + 1);
        const bool inHouse = rnd_.percent(60);
        const QString where = inHouse ? sites_[rnd_.below(static_cast<int>(sites_.size()))].name
                                      : QStringLiteral("Clearview Training Centre");
        const QString instructor =
            inHouse ? personName() : QStringLiteral("Clearview Training Ltd");
        const std::optional<Money> price =
            rnd_.percent(20) ? std::nullopt
                             : std::optional<Money>(pounds(rnd_.between(8, 90) * 25));
        programme.add({id, courseId, date(first), date(last), QLatin1String(rnd_.pick(times)),
                       where, instructor,
                       QStringLiteral("%1 - %2").arg(title, first.toString("MMMM yyyy")),
                       money(price), rnd_.percent(3) ? 1 : 0});
        // People employed on the day, each booked once.
        std::vector<int> booked;
        const int wanted = rnd_.between(4, 12);
        for (int tries = 0;
             employees_ > 0 && static_cast<int>(booked.size()) < wanted && tries < wanted * 6;
             ++tries) {
            const int who = rnd_.below(employees_);
            const Staff& s = staff_[who];
            if (s.deleted || s.start > first || (s.leaver && s.finish < first)) continue;
            if (std::find(booked.begin(), booked.end(), who) != booked.end()) continue;
            booked.push_back(who);
            booking.add({s.id, id});
        }
        ++id;
    }
    programme.finish();
    booking.finish();
}

} // namespace admin::demo
