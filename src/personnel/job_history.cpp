#include "job_history.h"

#include "regional.h"
#include "routines.h"
#include "typedfields.h"

#include <QSqlRecord>

namespace personnel {

namespace {

using core::Db;
using core::Money;

QVariant moneyOrNull(const QString& text) {
    const auto m = Money::parseTyped(text);
    return m ? core::MoneyColumn.fit(*m).toVariant() : QVariant(QMetaType::fromType<QString>());
}

QVariant textOrNull(const QString& text) {
    return text.isEmpty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(text);
}

core::Fields periodFields(const JobPeriod& p) {
    return {{"date_from", Db::dateOrNull(p.from)},
            {"date_to", Db::dateOrNull(p.to)},
            {"Position", textOrNull(p.position.trimmed())},
            {"salary", moneyOrNull(p.salary)},
            {"notes", textOrNull(p.notes.trimmed())}};
}

// Two salary texts agree when they are the same figure, however it was typed.
bool sameSalary(const QString& a, const QString& b) {
    const auto x = Money::parseTyped(a), y = Money::parseTyped(b);
    if (x && y) return *x == *y;
    return a.trimmed() == b.trimmed();
}

} // namespace

QString periodText(const JobPeriod& p) {
    const QString from = core::formatDate(p.from);
    return p.to.isValid() ? from + "-" + core::formatDate(p.to) : from;
}

JobPeriods jobHistoryRows(core::Db& db, qint64 personId, const PresentPost& present) {
    JobPeriods rows;
    rows.push_back({0,
                    present.jhDate.isValid() ? present.jhDate : present.startDate,
                    {},
                    present.position,
                    core::plainNumber(present.salary),
                    present.notes,
                    false});
    const auto found = db.rows("SELECT JobHistory_ID, date_from, date_to, Position, salary, notes "
                               "FROM JobHistory WHERE person_id = ? "
                               "ORDER BY date_from DESC, JobHistory_ID DESC",
                               {personId});
    for (const QSqlRecord& r : found) {
        JobPeriod p;
        p.id = Db::toId(r.value(0));
        p.from = Db::toDate(r.value(1));
        p.to = Db::toDate(r.value(2));
        p.position = Db::text(r.value(3));
        if (!r.value(4).isNull()) p.salary = core::plainNumber(Money::fromVariant(r.value(4)));
        p.notes = Db::text(r.value(5));
        rows.push_back(std::move(p));
    }
    return rows;
}

void jobHistoryPageChange(JobPeriods& rows, JobHistoryFlags& flags, const JobDetails& d,
                          const QDate& today) {
    bool newPeriod = false;
    if (d.salaryChanged && !d.recordIsNew) {
        newPeriod = !rows.empty() && (!sameSalary(d.salary, rows.front().salary) ||
                                      d.position != rows.front().position.trimmed());
    } else if (d.positionChanged && !d.recordIsNew) {
        newPeriod = true;
    }
    if (newPeriod && !rows.empty()) {
        flags.historyrowadded = true;
        JobPeriod& top = rows.front();
        if (top.from == today) {
            top.position = d.position;
            top.salary = d.salary;
            // A period begun today in an earlier sitting is already the present post; one
            // begun by this sitting still has to archive what it replaced.
            if (!top.addedHere) flags.archiveprevious = false;
        } else {
            top.to = today;
            rows.insert(rows.begin(), JobPeriod{0, today, {}, d.position, d.salary, {}, true});
        }
    }
    if (d.position.isEmpty()) return;
    if (rows.empty()) {
        rows.push_back({0, d.startDate, {}, d.position, d.salary, {}, false});
        return;
    }
    if (rows.front().position.isEmpty()) rows.front().position = d.position;
    if (rows.front().salary.isEmpty()) rows.front().salary = d.salary;
}

JobHistorySave jobHistoryOnSave(const JobPeriods& rows, const JobHistoryFlags& flags,
                                const JobDetails& d, bool positionPicked, bool salaryNumeric,
                                const QDate& today) {
    JobHistorySave out;
    if (d.recordIsNew) return out;
    const bool salaryRoad = salaryNumeric && d.salaryChanged && !d.positionChanged;
    if (!positionPicked && !salaryRoad) return out;
    // JHDate moves to today only with a period opened today in the list, which has archived
    // (or, begun today already, needs no archive of) the one before: never a silent move
    // that would lose the closed period.
    out.newPeriodToday = flags.historyrowadded;
    if (flags.historyrowadded && flags.archiveprevious && rows.size() >= 2 && rows[1].id == 0) {
        JobPeriod closed = rows[1];
        if (!closed.to.isValid()) closed.to = today;
        out.archive = closed;
    }
    return out;
}

int placeForPeriod(const JobPeriods& rows, const QDate& from) {
    for (int i = 0; i < int(rows.size()); ++i)
        if (rows[i].from <= from) return i;
    return int(rows.size());
}

bool checkjobclash(const JobPeriods& rows, const QDate& from, const QDate& to, const QDate& today) {
    for (const JobPeriod& p : rows) {
        if (!p.from.isValid()) continue;
        const QDate end = p.to.isValid() ? p.to : today;
        if (from < p.from ? to > p.from : from < end) return true;
    }
    return false;
}

JobEntryCheck checkJobHistoryEntry(const QString& fromText, const QString& toText,
                                   const QString& salaryText) {
    const QString salary = salaryText.trimmed();
    if (!salary.isEmpty() && !Money::parse(salary))
        return {{false, false, "Only numeric values are permitted in the salary box"}, true};
    if (!core::isdateorblank(fromText) || !core::isdateorblank(toText) ||
        fromText.trimmed().isEmpty())
        return {{false, true, {}}, false};
    const QDate from = core::parseDate(fromText.trimmed());
    const QDate to = core::parseDate(toText.trimmed());
    if (to.isValid() && to < from) return {{false, false, "Start date must come before end date"}};
    return {{true, false, {}}, false};
}

qint64 insertJobPeriod(core::Db& db, qint64 personId, const JobPeriod& period) {
    core::Fields f{{"person_id", personId}};
    for (auto& field : periodFields(period))
        f.push_back(std::move(field));
    return db.insert("JobHistory", "JobHistory_ID", f);
}

void updateJobPeriod(core::Db& db, const JobPeriod& period, const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "JobHistory", "JobHistory_ID", period.id, periodFields(period));
}

void deleteJobPeriod(core::Db& db, qint64 jobHistoryId) {
    db.remove("JobHistory", "JobHistory_ID", jobHistoryId);
}

QString jobClashMessage() {
    return QStringLiteral("Dates Clash");
}

JobAddResult addJobPeriod(core::Db& db, qint64 personId, JobPeriods& rows, const JobHistoryEntry& e,
                          const QDate& employeeStart, const QDate& today) {
    JobAddResult out;
    if (employeeStart.isValid() && e.from < employeeStart) {
        out.refused = true;
        out.message = "You cannot enter a history where the startdate of this position comes "
                      "before the employees startdate.";
        return out;
    }
    if (e.to.isValid() && checkjobclash(rows, e.from, e.to, today)) {
        out.refused = true;
        out.message = jobClashMessage();
        return out;
    }
    const int place = placeForPeriod(rows, e.from);
    JobPeriod added{0, e.from, e.to, e.position, e.salary, e.notes.trimmed(), false};
    core::Transaction t(db);
    if (place == 0) {
        // The period it pushes down ends where the new one begins.
        if (!rows.empty() && rows.front().id == 0) {
            JobPeriod closed = rows.front();
            closed.to = e.from;
            closed.id = insertJobPeriod(db, personId, closed);
            rows.front() = closed;
        }
        out.presentPost = true;
    } else {
        if (!added.to.isValid()) added.to = rows[place - 1].from;
        added.id = insertJobPeriod(db, personId, added);
    }
    t.commit();
    rows.insert(rows.begin() + place, added);
    out.place = place;
    return out;
}

} // namespace personnel
