#include "calllists.h"

#include "calls.h"

#include <QHash>
#include <QRegularExpression>
#include <algorithm>
#include <limits>

namespace helpdesk {

using core::Db;

std::vector<Entry> callerEntries(core::Db& db) {
    std::vector<Entry> out;
    QSqlQuery q = db.query("SELECT Person_ID, Surname, FirstNames FROM Person "
                           "WHERE blndeleted <> 1 ORDER BY Surname, FirstNames, Person_ID");
    while (q.next()) {
        const qint64 id = q.value(0).toLongLong();
        out.push_back({callerText(id, Db::text(q.value(1)), Db::text(q.value(2))), id});
    }
    return out;
}

QString callerText(qint64 personId, const QString& surname, const QString& firstnames) {
    return QStringLiteral("%1 - %2, %3")
        .arg(QString::number(personId), surname.trimmed(), firstnames.trimmed());
}

qint64 searchedCaller(const QString& typed, qint64 picked) {
    if (typed.trimmed().isEmpty()) return -1;
    return picked > 0 ? picked : 0;
}

std::optional<QString> callerExtension(core::Db& db, qint64 personId) {
    const auto r = db.row("SELECT extno FROM Person WHERE Person_ID = ?", {personId});
    if (!r) return std::nullopt;
    return Db::text(r->value(0)).trimmed();
}

namespace {

QStringList lookup(core::Db& db, const QString& sql) {
    QStringList out;
    QSqlQuery q = db.query(sql);
    while (q.next())
        out << Db::text(q.value(0)).trimmed();
    return out;
}

// Columns in this order: Call_ID, Date_Logged, Date_Required, Description, currentstatus,
// Surname, FirstNames. Read by position, which keeps a list of a hundred thousand calls quick.
std::vector<CallListRow> listRows(core::Db& db, const QString& sql, const core::Params& params) {
    std::vector<CallListRow> out;
    QSqlQuery q = db.query(sql, params);
    if (q.size() > 0) out.reserve(q.size());
    const QString comma = QStringLiteral(", ");
    while (q.next()) {
        CallListRow row;
        row.id = q.value(0).toLongLong();
        row.logged = Db::toDate(q.value(1));
        row.required = Db::toDate(q.value(2));
        row.description = q.value(3).toString().trimmed();
        row.status = q.value(4).toString().trimmed();
        const QVariant surname = q.value(5);
        if (!surname.isNull())
            row.originator = surname.toString().trimmed() + comma + q.value(6).toString().trimmed();
        row.closed = isClosed(row.status);
        out.push_back(std::move(row));
    }
    return out;
}

const char* const ListSelect =
    "SELECT c.Call_ID, c.Date_Logged, c.Date_Required, c.Description, c.currentstatus, "
    "p.Surname, p.FirstNames FROM HelpdeskCalls c ";

} // namespace

QStringList faultTypes(core::Db& db) {
    return lookup(db, "SELECT Fault_Types FROM Faults ORDER BY Fault_Types");
}

QStringList callStatuses(core::Db& db) {
    return lookup(db, "SELECT Status FROM CallStatus ORDER BY Status");
}

QStringList statusChoices(core::Db& db) {
    return lookup(db, "SELECT Status FROM CallStatus");
}

QStringList callActions(core::Db& db) {
    return lookup(db, "SELECT Action FROM CallAction");
}

namespace {

// The callers a list may name, by key, each with its place in the order of surname and first
// names (the same name, the same place).
struct Caller {
    int place = 0;
    QString name; // "{Surname}, {Firstnames}"
};
using Callers = QHash<qint64, Caller>;

Callers allCallers(core::Db& db) {
    Callers out;
    QSqlQuery q = db.query("SELECT Person_ID, Surname, FirstNames FROM Person "
                           "ORDER BY Surname NULLS FIRST, FirstNames NULLS FIRST");
    QVariant lastSurname, lastFirst;
    int place = -1;
    const QString comma = QStringLiteral(", ");
    while (q.next()) {
        const QVariant surname = q.value(1), first = q.value(2);
        if (place < 0 || surname != lastSurname || first != lastFirst ||
            surname.isNull() != lastSurname.isNull() || first.isNull() != lastFirst.isNull())
            ++place;
        lastSurname = surname;
        lastFirst = first;
        out.insert(q.value(0).toLongLong(),
                   {place, surname.isNull() ? QString()
                                            : surname.toString().trimmed() + comma +
                                                  first.toString().trimmed()});
    }
    return out;
}

} // namespace

std::vector<CallListRow> callList(core::Db& db, bool openOnly) {
    // The calls are joined to their callers and put in order here rather than by the database:
    // of the time a hundred thousand calls take to list, most went on handing over the joined
    // and sorted rows.
    const Callers callers = allCallers(db);
    QString sql = QStringLiteral("SELECT Call_ID, Date_Logged, Date_Required, Description, "
                                 "currentstatus, person_id FROM HelpdeskCalls");
    core::Params params;
    if (openOnly) {
        sql += " WHERE currentstatus <> ?";
        params << ClosedStatus;
    }
    struct Keyed {
        qint64 day; // latest first, calls without a date last
        int caller; // calls without a caller first
        qint64 id;  // newest first
        CallListRow row;
    };
    std::vector<Keyed> keyed;
    QSqlQuery q = db.query(sql, params);
    if (q.size() > 0) keyed.reserve(q.size());
    while (q.next()) {
        Keyed k;
        CallListRow& row = k.row;
        row.id = q.value(0).toLongLong();
        row.logged = Db::toDate(q.value(1));
        row.required = Db::toDate(q.value(2));
        row.description = q.value(3).toString().trimmed();
        row.status = q.value(4).toString().trimmed();
        row.closed = isClosed(row.status);
        k.caller = -1;
        if (const QVariant person = q.value(5); !person.isNull()) {
            const auto found = callers.constFind(person.toLongLong());
            if (found != callers.cend()) {
                k.caller = found->place;
                row.originator = found->name;
            }
        }
        k.day =
            row.logged.isValid() ? -row.logged.toJulianDay() : std::numeric_limits<qint64>::max();
        k.id = row.id;
        keyed.push_back(std::move(k));
    }
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
        if (a.day != b.day) return a.day < b.day;
        if (a.caller != b.caller) return a.caller < b.caller;
        return a.id > b.id;
    });
    std::vector<CallListRow> out;
    out.reserve(keyed.size());
    for (Keyed& k : keyed)
        out.push_back(std::move(k.row));
    return out;
}

std::vector<CallListRow> callerCalls(core::Db& db, qint64 personId) {
    return listRows(db,
                    QString::fromLatin1(ListSelect) +
                        "INNER JOIN Person p ON c.person_id = p.Person_ID "
                        "WHERE p.Person_ID = ? ORDER BY c.Call_ID DESC",
                    {personId});
}

SearchResult searchCalls(core::Db& db, const QString& jobNumber, qint64 callerId) {
    const QString job = jobNumber.trimmed();
    if (!job.isEmpty()) {
        // A number with a fraction, or too large for any key, names no call.
        static const QRegularExpression number(QStringLiteral("^[-+]?\\d+(\\.\\d*)?$"));
        const auto m = number.match(job);
        if (!m.hasMatch()) return {};
        bool whole = false;
        const qint64 id = m.captured(1).remove('.').remove('0').isEmpty()
                              ? job.section('.', 0, 0).toLongLong(&whole)
                              : 0;
        if (whole && db.scalar("SELECT 1 FROM HelpdeskCalls WHERE Call_ID = ?", {id}).isValid())
            return {SearchResult::OpenCall, id, {}};
        return {SearchResult::Refused, 0, NoCallWithId};
    }
    // A typed name that is no one's names nobody to list: the search ends where it is.
    if (callerId <= 0) return {};
    if (!db.scalar("SELECT 1 FROM HelpdeskCalls c INNER JOIN Person p ON c.person_id = "
                   "p.Person_ID WHERE p.Person_ID = ?",
                   {callerId})
             .isValid())
        return {SearchResult::Refused, 0, NoCallsForUser};
    return {SearchResult::ListCalls, callerId, {}};
}

} // namespace helpdesk
