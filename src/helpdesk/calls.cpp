#include "calls.h"

#include "calllists.h"
#include "regional.h"
#include "typedfields.h"

#include <stdexcept>

namespace helpdesk {

using core::Db;

bool isClosed(const QString& status) {
    return status.trimmed() == ClosedStatus;
}

CallProblem checkCall(const CallText& call, bool isNew) {
    if (call.description.trimmed().isEmpty() || call.faultType.trimmed().isEmpty())
        return {MissingProblem, CallField::Problem};
    if (isNew && isClosed(call.status)) return {CloseBeforeLogging, CallField::Status};
    // Lists tell open calls from closed ones by their status; a call without one is neither.
    if (call.status.trimmed().isEmpty()) return {MissingStatus, CallField::Status};
    core::TypedFields typed;
    const QDate logged = typed.date(QStringLiteral("Date Logged"), call.dateLogged);
    if (!typed.ok()) return {typed.message(), CallField::DateLogged};
    typed.date(QStringLiteral("Date Required"), call.dateRequired);
    if (!typed.ok()) return {typed.message(), CallField::DateRequired};
    // Every list orders and every report counts calls by the day they were logged.
    if (!logged.isValid())
        return {core::dateRefusal(QStringLiteral("Date Logged")), CallField::DateLogged};
    return {};
}

QDate shownClosingDate(const QString& status, const QDate& stored, const QDate& today) {
    return isClosed(status) && !stored.isValid() ? today : stored;
}

QString notePrefix(const QString& action) {
    const QString a = action.trimmed();
    if (a.isEmpty() || a == NoteOnly) return {};
    return a + QStringLiteral(" - ");
}

namespace {

// The columns a save writes. Keys of 0 and a "Date Required" that is no date leave the
// stored values alone (a new row gets NULL for them).
core::Fields callFields(const CallText& call) {
    core::Fields fields;
    if (call.personId > 0) fields.push_back({"person_id", call.personId});
    fields.push_back({"Fault_Type", call.faultType.trimmed()});
    fields.push_back({"Date_Logged", Db::dateOrNull(core::parseDate(call.dateLogged.trimmed()))});
    if (const QDate required = core::parseDate(call.dateRequired.trimmed()); required.isValid())
        fields.push_back({"Date_Required", required});
    fields.push_back({"Description", call.description.trimmed()});
    fields.push_back({"Resolution", call.resolution.trimmed()});
    fields.push_back({"currentstatus", call.status.trimmed()});
    if (call.computerId > 0) fields.push_back({"computer_id", call.computerId});
    if (call.peripheralId > 0) fields.push_back({"peripheral_ID", call.peripheralId});
    return fields;
}

HistoryRow addHistory(core::Db& db, qint64 callId, const QDateTime& at, const QString& action,
                      const QString& status) {
    // Whole seconds: the history shows them, and both backends keep them alike.
    const QDateTime when = at.addMSecs(-at.time().msec());
    const qint64 id =
        db.insert("CallHistory", "CallHistory_ID",
                  {{"Call_ID", callId}, {"Date", when}, {"Action", action}, {"Status", status}});
    return {id, when, status, action};
}

QVariant closingDate(const QString& status, const QDateTime& now) {
    return isClosed(status) ? QVariant(now.date()) : QVariant(QMetaType::fromType<QDate>());
}

} // namespace

CallWrite logCall(core::Db& db, const CallText& call, const QDateTime& now) {
    CallWrite out;
    core::Transaction t(db);
    core::Fields fields = callFields(call);
    fields.push_back({"DateClosed", closingDate(call.status, now)});
    out.callId = db.insert("HelpdeskCalls", "Call_ID", fields);
    out.added.push_back(addHistory(db, out.callId, now, OpenedCall, OpenStatus));
    t.commit();
    out.loaded = loadedCallRow(db, out.callId);
    return out;
}

CallWrite saveCall(core::Db& db, qint64 callId, const CallText& call, const core::LoadedRow& loaded,
                   const QDateTime& now) {
    CallWrite out;
    out.callId = callId;
    core::Transaction t(db);
    core::Fields fields = callFields(call);
    fields.push_back({"DateClosed", closingDate(call.status, now)});
    if (core::updateLoaded(db, loaded, "HelpdeskCalls", "Call_ID", callId, fields) == 0)
        throw core::RowChanged();
    if (isClosed(call.status))
        out.added.push_back(addHistory(db, callId, now, ClosedCall, ClosedStatus));
    t.commit();
    out.loaded = loadedCallRow(db, callId);
    return out;
}

CallWrite reopenCall(core::Db& db, qint64 callId, const core::LoadedRow& loaded,
                     const QDateTime& now) {
    CallWrite out;
    out.callId = callId;
    core::Transaction t(db);
    if (core::updateLoaded(db, loaded, "HelpdeskCalls", "Call_ID", callId,
                           {{"currentstatus", OpenStatus}}) == 0)
        throw core::RowChanged();
    out.added.push_back(addHistory(db, callId, now, ReopenedCall, OpenStatus));
    t.commit();
    out.loaded = loadedCallRow(db, callId);
    return out;
}

HistoryRow addAction(core::Db& db, qint64 callId, const QString& note, const QString& status,
                     const QDateTime& now) {
    const QString chosen = status.trimmed();
    if (chosen.isEmpty()) throw std::invalid_argument("An action needs the call's status");
    core::Transaction t(db);
    const HistoryRow row = addHistory(db, callId, now, note.trimmed(), chosen);
    if (db.update("HelpdeskCalls", "Call_ID", callId,
                  {{"currentstatus", chosen}, {"DateClosed", closingDate(chosen, now)}}) == 0)
        throw std::invalid_argument("There is no such call");
    t.commit();
    return row;
}

core::LoadedRow loadedCallRow(core::Db& db, qint64 callId) {
    return core::LoadedRow::read(db, "HelpdeskCalls", "Call_ID", callId);
}

namespace {

HistoryRow historyOf(const QSqlRecord& r) {
    return {Db::toId(r.value("CallHistory_ID")), Db::toDateTime(r.value("Date")),
            Db::text(r.value("Status")).trimmed(), Db::text(r.value("Action")).trimmed()};
}

} // namespace

std::vector<HistoryRow> callHistory(core::Db& db, qint64 callId) {
    std::vector<HistoryRow> out;
    for (const auto& r : db.rows("SELECT CallHistory_ID, Date, Status, Action FROM CallHistory "
                                 "WHERE Call_ID = ? ORDER BY Date DESC, CallHistory_ID DESC",
                                 {callId}))
        out.push_back(historyOf(r));
    return out;
}

std::optional<HistoryRow> historyRow(core::Db& db, qint64 historyId) {
    const auto r = db.row("SELECT CallHistory_ID, Date, Status, Action FROM CallHistory "
                          "WHERE CallHistory_ID = ?",
                          {historyId});
    if (!r) return std::nullopt;
    return historyOf(*r);
}

QString historyDate(const QDateTime& at) {
    return at.isValid() ? core::formatDate(at.date()) : QString();
}

QString historyTime(const QDateTime& at) {
    return at.isValid() ? at.time().toString(QStringLiteral("HH:mm:ss")) : QString();
}

std::optional<CallRecord> loadCall(core::Db& db, qint64 callId) {
    const auto r = db.row("SELECT c.person_id, c.Fault_Type, c.Date_Logged, c.Date_Required, "
                          "c.Description, c.Resolution, c.currentstatus, c.computer_id, "
                          "c.peripheral_ID, c.DateClosed, p.Surname, p.FirstNames, p.ExtNo, "
                          "p.Department_ID FROM HelpdeskCalls c "
                          "LEFT JOIN Person p ON c.person_id = p.Person_ID WHERE c.Call_ID = ?",
                          {callId});
    if (!r) return std::nullopt;
    CallRecord call;
    CallText& t = call.text;
    t.personId = Db::toId(r->value("person_id"));
    t.faultType = Db::text(r->value("Fault_Type")).trimmed();
    t.dateLogged = core::formatDate(Db::toDate(r->value("Date_Logged")));
    t.dateRequired = core::formatDate(Db::toDate(r->value("Date_Required")));
    t.description = Db::text(r->value("Description"));
    t.resolution = Db::text(r->value("Resolution"));
    t.status = Db::text(r->value("currentstatus")).trimmed();
    t.computerId = Db::toId(r->value("computer_id"));
    t.peripheralId = Db::toId(r->value("peripheral_ID"));
    call.dateClosed = Db::toDate(r->value("DateClosed"));
    if (t.personId > 0 && !r->value("Surname").isNull()) {
        call.callerText =
            callerText(t.personId, Db::text(r->value("Surname")), Db::text(r->value("FirstNames")));
        call.extension = Db::text(r->value("ExtNo")).trimmed();
        call.departmentId = Db::text(r->value("Department_ID"));
    }
    call.history = callHistory(db, callId);
    return call;
}

} // namespace helpdesk
