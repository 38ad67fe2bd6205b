#include "absence_records.h"

#include "regional.h"

#include <QSqlRecord>
#include <map>

namespace personnel {

namespace {

using core::Db;
using core::Money;

const QString Unauthorised = QStringLiteral("Unauthorised Absence");
const QString UnpaidLeave = QStringLiteral("Unpaid Leave");
const QString Sickness = QStringLiteral("Sickness");

// Whole days, halves going to the even neighbour.
qint64 roundHalfEven(Money m) {
    const qint64 u = m.units();
    qint64 whole = u / Money::Scale;
    qint64 rest = u % Money::Scale;
    if (rest < 0) {
        rest += Money::Scale;
        --whole;
    }
    const qint64 half = Money::Scale / 2;
    if (rest > half || (rest == half && whole % 2 != 0)) ++whole;
    return whole;
}

} // namespace

QString absenceReasonCode(core::Db& db, const QString& reason) {
    const QString r = reason.trimmed();
    if (r == Unauthorised) return "A";
    if (r == UnpaidLeave) return "U";
    return Db::text(db.scalar("SELECT Code FROM Absence_Lookup WHERE Reason = ?", {r})).trimmed();
}

AbsenceRows absenceRows(core::Db& db, qint64 personId) {
    std::map<QString, QString> lookup;
    for (const QSqlRecord& r : db.rows("SELECT Code, Reason FROM Absence_Lookup"))
        lookup[Db::text(r.value(0)).trimmed()] = Db::text(r.value(1));
    AbsenceRows out;
    const auto rows = db.rows("SELECT absence_ID, startdate, enddate, days, reason, notes "
                              "FROM Absence WHERE person_id = ? "
                              "ORDER BY startdate DESC, absence_ID DESC",
                              {personId});
    for (const QSqlRecord& r : rows) {
        AbsenceRow a{Db::toId(r.value(0)),
                     Db::toDate(r.value(1)),
                     Db::toDate(r.value(2)),
                     Money::fromVariant(r.value(3)),
                     Db::text(r.value(4)).trimmed(),
                     {},
                     Db::text(r.value(5))};
        if (a.code == "A")
            a.reason = Unauthorised;
        else if (a.code == "U")
            a.reason = UnpaidLeave;
        else if (auto it = lookup.find(a.code); it != lookup.end())
            a.reason = it->second;
        out.push_back(std::move(a));
    }
    return out;
}

QStringList absenceReasons(core::Db& db) {
    QStringList out;
    for (const QSqlRecord& r : db.rows("SELECT Reason FROM Absence_Lookup ORDER BY Reason"))
        out << Db::text(r.value(0));
    return out;
}

AbsenceEntryCheck checkAbsenceEntry(const QString& startText, const QString& endText,
                                    const QString& daysText, const QString& reason) {
    const QDate start = core::parseDate(startText.trimmed());
    const QDate end = core::parseDate(endText.trimmed());
    if (reason.trimmed().isEmpty() || !Money::parse(daysText) || !start.isValid() || !end.isValid())
        return {
            {false, false, "Please enter a start date, end date and number of days and reason."},
            {}};
    if (start.year() != end.year())
        return {{false, false,
                 "When entering absences that span over seperate years please enter each year "
                 "seperately.\nThis will enable you to keep track of how many days absence there "
                 "are each year"},
                {}};
    if (end < start)
        return {{false, false, "Please make sure the start date is before the end date"}, {}};
    const DaysCheck days = checkDaysText(daysText);
    if (!days.ok) return {{false, false, days.message}, {}};
    return {{true, false, {}}, days.days};
}

qint64 insertAbsenceRow(core::Db& db, qint64 personId, const DatePeriod& period, Money days,
                        const QString& code, const QString& notes) {
    return db.insert("Absence", "absence_ID",
                     {{"person_id", personId},
                      {"startdate", Db::dateOrNull(period.from)},
                      {"enddate", Db::dateOrNull(period.to)},
                      {"days", days.toVariant()},
                      {"reason", code},
                      {"notes", notes.trimmed()}});
}

qint64 insertAbsence(core::Db& db, qint64 personId, const AbsenceEntry& e) {
    const QString code = absenceReasonCode(db, e.reason);
    if (code.isEmpty()) return 0;
    return insertAbsenceRow(db, personId, {e.start, e.end}, Money::parse(e.days).value_or(Money()),
                            code, e.notes);
}

void updateAbsence(core::Db& db, qint64 absenceId, const AbsenceEntry& e,
                   const core::LoadedRow& loaded) {
    core::Fields f{{"startdate", Db::dateOrNull(e.start)},
                   {"enddate", Db::dateOrNull(e.end)},
                   {"days", Money::parse(e.days).value_or(Money()).toVariant()}};
    const QString code = absenceReasonCode(db, e.reason);
    if (!code.isEmpty()) f.emplace_back("reason", code);
    f.emplace_back("notes", e.notes.trimmed());
    core::updateLoaded(db, loaded, "Absence", "absence_ID", absenceId, f);
}

void deleteAbsence(core::Db& db, qint64 absenceId) {
    db.remove("Absence", "absence_ID", absenceId);
}

std::vector<DatePeriod> periodsOf(const AbsenceRows& rows) {
    std::vector<DatePeriod> out;
    for (const auto& r : rows)
        out.push_back({r.from, r.to});
    return out;
}

int sickDaysInYear(const AbsenceRows& rows, int year) {
    qint64 count = 0;
    for (const auto& r : rows)
        if (r.from.isValid() && r.from.year() == year && r.reason.trimmed() == Sickness)
            count = roundHalfEven(Money::fromInt(count) + r.days);
    return int(count);
}

QString sickDaysMessage(const AbsenceRows& rows, int year, int noDaysAbsence) {
    if (noDaysAbsence == 0) return {};
    const int count = sickDaysInYear(rows, year);
    if (count < noDaysAbsence) return {};
    return QStringLiteral("This employee has had %1 days off sick this year").arg(count);
}

QString certificateMessage(const QString& reason, Money days, int sickBeforeDoc) {
    if (sickBeforeDoc == 0 || reason.trimmed() != Sickness) return {};
    if (days <= Money::fromInt(sickBeforeDoc)) return {};
    return QStringLiteral("This employee has been off sick for more than %1 days. A doctor's "
                          "certificate is required.")
        .arg(sickBeforeDoc);
}

QStringList checktraining(core::Db& db, qint64 personId, const QDate& start, const QDate& end) {
    QStringList out;
    if (personId == 0) return out;
    const auto rows = db.rows("SELECT Training.TDate, Courses.Title, Training.Edate "
                              "FROM Training "
                              "JOIN PersonTraining ON Training.Training_ID = "
                              "PersonTraining.Training_ID "
                              "LEFT JOIN Courses ON Courses.Course_ID = Training.Course_ID "
                              "WHERE PersonTraining.person_id = ? "
                              "ORDER BY Training.TDate, Training.Training_ID",
                              {personId});
    for (const QSqlRecord& r : rows) {
        const QDate tdate = Db::toDate(r.value(0));
        const QDate edate = Db::toDate(r.value(2));
        if (!tdate.isValid()) continue;
        const bool meets = tdate < start ? (edate.isValid() && edate >= start) : tdate <= end;
        if (!meets) continue;
        out << QStringLiteral("This employee is booked on the following training course.\n\n"
                              "Course StartDate: %1\n\nCourse Title: %2\n\n"
                              "Please update training record")
                   .arg(core::formatDate(tdate), Db::text(r.value(1)));
    }
    return out;
}

AbsentDecision decideAbsent(const AbsenceRows& rows, const QDate& today) {
    if (rows.empty()) return {};
    if (checkdateclash(periodsOf(rows), today, today)) return {AbsentDecision::Clash};
    const AbsenceRow& first = rows.front();
    // Only a run of sickness grows by a day; any other leave ending yesterday is done.
    if (first.to == today.addDays(-1) && first.code == "S")
        return {AbsentDecision::Extend, first.id};
    if (first.to == today) return {AbsentDecision::AlreadyToday};
    return {};
}

QString markAbsent(core::Db& db, qint64 personId, const AbsenceRows& rows, const QDate& today,
                   int sickBeforeDoc) {
    const AbsentDecision d = decideAbsent(rows, today);
    switch (d.kind) {
    case AbsentDecision::Clash:
        return "The employee is already down as absent today";
    case AbsentDecision::AlreadyToday:
        return "This person is already shown as being absent for today";
    case AbsentDecision::Extend: {
        const Money days = rows.front().days + Money::fromInt(1);
        db.update("Absence", "absence_ID", d.extendId,
                  {{"enddate", today}, {"days", days.toVariant()}});
        return certificateMessage(Sickness, days, sickBeforeDoc);
    }
    case AbsentDecision::NewRow:
        insertAbsenceRow(db, personId, {today, today}, Money::fromInt(1), "S");
        return certificateMessage(Sickness, Money::fromInt(1), sickBeforeDoc);
    }
    return {};
}

} // namespace personnel
