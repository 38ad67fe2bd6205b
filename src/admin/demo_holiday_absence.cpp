#include "demo_generator.h"

// Each employee's job history, holidays, absences, appraisals, reprimands, notes and
// documents.

namespace admin::demo {

QString Generator::holidayNote(const QDate& first, double days) {
    if (days == 0.5) return QStringLiteral("Half day");
    if (first.month() == 12 && first.day() >= 18) return QStringLiteral("Christmas");
    if (days >= 5 && (first.month() == 7 || first.month() == 8))
        return QStringLiteral("Summer holiday");
    if (days == 1 && (first.dayOfWeek() == 1 || first.dayOfWeek() == 5))
        return rnd_.percent(40) ? QStringLiteral("Long weekend") : QString("");
    return rnd_.percent(5) ? QStringLiteral("Family wedding") : QString("");
}

// An earlier post in the same department that paid no more than the present one.
int Generator::earlierRole(const Staff& s) {
    if (s.dept == Directors) return managerRole(static_cast<Dept>(rnd_.between(1, DeptCount - 1)));
    if (!s.manager && !rnd_.percent(45)) return s.role;
    for (int tries = 0; tries < 8; ++tries) {
        const int role = staffRole(rnd_, s.dept);
        if (Roles[role].minSalary <= Roles[s.role].minSalary) return role;
    }
    return s.role;
}

bool Generator::overlaps(const std::vector<std::pair<QDate, QDate>>& taken, const QDate& from,
                         const QDate& to) {
    for (const auto& [a, b] : taken)
        if (from <= b && a <= to) return true;
    return false;
}

void Generator::personnelRecords() {
    Batch history(
        db_, summary_, "JobHistory",
        {"JobHistory_ID", "person_id", "date_from", "date_to", "Position", "salary", "notes"});
    Batch holiday(db_, summary_, "Holiday",
                  {"holiday_ID", "person_id", "date_from", "date_to", "days", "notes"});
    Batch absence(db_, summary_, "Absence",
                  {"absence_ID", "person_id", "startdate", "enddate", "days", "reason", "notes"});
    Batch appraisal(db_, summary_, "Appraisal",
                    {"Appraisal_ID", "person_id", "ADate", "Manager", "Rating", "notes"});
    Batch reprimand(db_, summary_, "Reprimands",
                    {"Reprimand_ID", "person_id", "Date", "Action", "reason", "notes"});
    Batch note(db_, summary_, "Notes", {"Note_ID", "person_id", "Date", "Description"});
    Batch document(db_, summary_, "Document",
                   {"document_id", "person_id", "Date", "Title", "notes", "Document"});
    qint64 historyId = firstFreeKey(db_, "JobHistory", "JobHistory_ID");
    qint64 holidayId = firstFreeKey(db_, "Holiday", "holiday_ID");
    qint64 absenceId = firstFreeKey(db_, "Absence", "absence_ID");
    qint64 appraisalId = firstFreeKey(db_, "Appraisal", "Appraisal_ID");
    qint64 reprimandId = firstFreeKey(db_, "Reprimands", "Reprimand_ID");
    qint64 noteId = firstFreeKey(db_, "Notes", "Note_ID");
    qint64 documentId = firstFreeKey(db_, "Document", "document_id");

    static const std::array<const char*, 8> sickNotes{"Cold",           "Flu",
                                                      "Back pain",      "Migraine",
                                                      "Stomach upset",  "Dental surgery",
                                                      "Sprained ankle", "Chest infection"};
    static const std::array<const char*, 3> doctorNotes{"GP appointment", "Dentist",
                                                        "Hospital appointment"};
    static const std::array<const char*, 4> ratings{"Excellent", "Good", "Satisfactory",
                                                    "Needs Improvement"};
    const int thisYear = today_.year();

    for (int i = 0; i < employees_; ++i) {
        const Staff& s = staff_[i];
        const QDate end = s.lastDay(today_);

        // Earlier posts, oldest first, each a little less well paid than the next.
        const std::vector<QDate>& cuts = cuts_[i];
        std::vector<Money> pay(cuts.size());
        qint64 units = s.salary.units();
        for (int p = static_cast<int>(cuts.size()) - 1; p >= 0; --p) {
            units = units * (100 - rnd_.between(3, 12)) / 100;
            pay[p] = roundedSalary(units);
        }
        // Directors came up through a department; others moved within their own.
        std::vector<int> roles(cuts.size());
        for (int p = static_cast<int>(cuts.size()) - 1; p >= 0; --p) {
            Staff earlier = s;
            if (p + 1 < static_cast<int>(cuts.size())) earlier.role = roles[p + 1];
            roles[p] = earlierRole(earlier);
        }
        for (std::size_t p = 0; p < cuts.size(); ++p) {
            const QDate from = p == 0 ? s.start : cuts[p - 1];
            const int next = p + 1 < cuts.size() ? roles[p + 1] : s.role;
            QString why;
            if (p == 0 && from.daysTo(cuts[0]) < 200)
                why = QStringLiteral("Probationary period");
            else if (next != roles[p])
                why = QStringLiteral("Moved to ") + QLatin1String(Roles[next].name);
            else
                why = rnd_.percent(70) ? QStringLiteral("Annual salary review")
                                       : QStringLiteral("Regraded");
            history.add({historyId++, s.id, date(from), date(cuts[p]),
                         QLatin1String(Roles[roles[p]].name), money(pay[p]), why});
        }

        std::vector<std::pair<QDate, QDate>> taken;
        // Holidays over this year and the two before, booked up to three months ahead.
        for (int year = thisYear - 2; year <= thisYear; ++year) {
            const QDate from = std::max(QDate(year, 1, 1), s.start);
            QDate to = std::min(QDate(year, 12, 31), end);
            if (!s.leaver) to = std::min(to, today_.addDays(90));
            if (from > to) continue;
            const double share = s.daysHoliday * (from.daysTo(to) + 1) / 365.0;
            const double target = std::round(share * rnd_.between(80, 100) / 50.0) / 2;
            double booked = 0;
            for (int attempt = 0; booked < target && attempt < 40; ++attempt) {
                const int kind = rnd_.weighted({10, 35, 30, 20, 5});
                const QDate first = nextWeekday(dayWithin(from, to));
                int days = kind == 0   ? 1
                           : kind == 1 ? 1
                           : kind == 2 ? rnd_.between(2, 4)
                           : kind == 3 ? 5
                                       : 10;
                double value = kind == 0 ? 0.5 : days;
                if (booked + value > target + 0.5) {
                    days = 1;
                    value = target - booked >= 1 ? 1 : 0.5;
                }
                const QDate last = addWorkingDays(first, days);
                if (last > to || overlaps(taken, first, last)) continue;
                taken.emplace_back(first, last);
                booked += value;
                holiday.add(
                    {holidayId++, s.id, date(first), date(last), value, holidayNote(first, value)});
            }
        }

        // Absences of the last three years, none still to come.
        const QDate from = std::max(s.start, today_.addDays(-3 * 365));
        const QDate to = std::min(end, today_.addDays(-1));
        const int age = static_cast<int>(s.dob.daysTo(today_) / 365);
        static const std::array<int, 6> spellCounts{0, 1, 2, 3, 4, 6};
        for (int spells = spellCounts[rnd_.weighted({25, 30, 25, 12, 5, 3})];
             spells > 0 && from < to; --spells) {
            int kind = rnd_.weighted({70, 15, 5, 4, 2, 2, 2});
            if (kind == 4 && (s.male || age < 20 || age > 45)) kind = 0;
            if (kind == 6 && !s.male) kind = 0;
            static const std::array<const char*, 7> codes{"S", "D", "U", "A", "M", "P", "R"};
            const QDate first = nextWeekday(dayWithin(from, to));
            int days = 1;
            double value = 1;
            QString why;
            switch (kind) {
            case 0: {
                const int length = rnd_.weighted({80, 15, 5});
                days = length == 0   ? rnd_.between(1, 5)
                       : length == 1 ? rnd_.between(6, 20)
                                     : rnd_.between(21, 60);
                why = QLatin1String(rnd_.pick(sickNotes));
                break;
            }
            case 1:
                why = QLatin1String(rnd_.pick(doctorNotes));
                if (rnd_.percent(60)) value = 0.5;
                break;
            case 2:
                days = rnd_.between(1, 5);
                why = QStringLiteral("Unpaid leave agreed");
                break;
            case 3:
                why = QStringLiteral("Did not report in");
                break;
            case 4:
                days = rnd_.between(100, 190);
                why = QStringLiteral("Maternity leave");
                break;
            case 5:
                days = rnd_.between(3, 10);
                why = QStringLiteral("Parental leave");
                break;
            default:
                days = 10;
                why = QStringLiteral("Paternity leave");
                break;
            }
            QDate last = addWorkingDays(first, days);
            if (last > to) last = to;
            if (last < first || overlaps(taken, first, last)) continue;
            if (value != 0.5) value = workingDaysBetween(first, last);
            if (value == 0) continue;
            taken.emplace_back(first, last);
            absence.add({absenceId++, s.id, date(first), date(last), value,
                         QLatin1String(codes[kind]), why});
        }

        // A yearly appraisal for most, a few reprimands, notes and documents.
        for (int year = thisYear - 2; year <= thisYear; ++year) {
            const QDate when = nextWeekday(QDate(year, rnd_.between(3, 11), rnd_.between(1, 28)));
            if (when <= s.start.addMonths(6) || when >= end || !rnd_.percent(65)) continue;
            appraisal.add({appraisalId++, s.id, date(when), s.managerName,
                           QLatin1String(ratings[rnd_.weighted({15, 50, 28, 7})]),
                           QStringLiteral("Objectives for the coming year agreed")});
        }
        if (rnd_.percent(2)) {
            static const std::array<const char*, 3> actions{
                "Verbal warning", "First written warning", "Final written warning"};
            static const std::array<const char*, 4> reasons{"Lateness", "Absence", "Conduct",
                                                            "Performance"};
            reprimand.add({reprimandId++, s.id, date(nextWeekday(dayWithin(s.start, end))),
                           QLatin1String(actions[rnd_.weighted({60, 30, 10})]),
                           QLatin1String(rnd_.pick(reasons)),
                           QStringLiteral("Discussed with line manager and HR")});
        }
        if (rnd_.percent(10)) {
            static const std::array<const char*, 5> notes{
                "Change of address notified", "Requested flexible working", "Bank details updated",
                "Asked about the cycle to work scheme", "Returned company car keys"};
            note.add(
                {noteId++, s.id, date(dayWithin(s.start, end)), QLatin1String(rnd_.pick(notes))});
        }
        if (rnd_.percent(20))
            document.add({documentId++, s.id, date(s.start),
                          QStringLiteral("Contract of employment"), QString(""),
                          QStringLiteral("/srv/personnel/contracts/%1.pdf").arg(s.id)});
    }
    history.finish();
    holiday.finish();
    absence.finish();
    appraisal.finish();
    reprimand.finish();
    note.finish();
    document.finish();
}

} // namespace admin::demo
