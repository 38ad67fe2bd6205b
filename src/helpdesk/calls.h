#pragma once

#include "db.h"
#include "loadedrow.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

// A helpdesk call from logging to closing: what a save writes, the history rows it adds, and
// how a call's status and closing date move.
namespace helpdesk {

// Statuses and fault types are texts compared by value; these are the ones the rules know.
inline const QString OpenStatus = QStringLiteral("Open");
inline const QString ClosedStatus = QStringLiteral("Closed");
inline const QString OpenedCall = QStringLiteral("Opened Call");
inline const QString ClosedCall = QStringLiteral("Closed Call");
inline const QString ReopenedCall = QStringLiteral("Reopened Call");
inline const QString NoteOnly = QStringLiteral("Note/Comment only");

inline const QString MissingProblem = QStringLiteral(
    "Please ensure you have entered a fault type and a description in the problem box.");
inline const QString CloseBeforeLogging =
    QStringLiteral("You cannot close a call that has not been logged yet.");
inline const QString MissingStatus = QStringLiteral("Please choose the call's Current Status.");
inline const QString CallClosedMessage = QStringLiteral("Call Has Been Closed");

// Whether a status text means the call is closed (compared trimmed, as stored).
bool isClosed(const QString& status);

// A call as its screen holds it, texts as typed. A key of 0 is none.
struct CallText {
    qint64 personId = 0;
    QString faultType;
    QString dateLogged;
    QString dateRequired;
    QString description;
    QString resolution;
    QString status;
    qint64 computerId = 0;
    qint64 peripheralId = 0;

    bool operator==(const CallText&) const = default;
};

// What a save finds wrong, in the order it looks, "" when nothing: the fault type and problem
// first, a new call that is to be closed at once, a blank status, then dates that cannot be
// read (named by their captions) and a blank "Date Logged".
enum class CallField { None, Problem, Status, DateLogged, DateRequired };
struct CallProblem {
    QString message;
    CallField field = CallField::None;
};
CallProblem checkCall(const CallText& call, bool isNew);

// A row of a call's history.
struct HistoryRow {
    qint64 id = 0;
    QDateTime at;
    QString status;
    QString action;
};

// What a write leaves the screen with: the call's key, the history rows it added in the order
// added, and the row as it now stands, for the next save's check.
struct CallWrite {
    qint64 callId = 0;
    std::vector<HistoryRow> added;
    core::LoadedRow loaded;
};

// Logs a new call with its "Opened Call" row (status "Open" whatever the call's own status),
// in one transaction. The caller has checked the call (checkCall) first.
CallWrite logCall(core::Db& db, const CallText& call, const QDateTime& now);

// Saves a logged call. Closed: the closing date is today and a "Closed Call" row is added;
// any other status clears the closing date. "Date Required" is written only when it holds a
// date, so a box emptied by mistake keeps the stored one. The row must still be as `loaded`
// saw it: another user's change since throws core::RowChanged and writes nothing.
CallWrite saveCall(core::Db& db, qint64 callId, const CallText& call, const core::LoadedRow& loaded,
                   const QDateTime& now);

// Opens a closed call again: status "Open" and a "Reopened Call" row. The closing date stays
// until the next save. Refused like saveCall when the row changed since it was loaded.
CallWrite reopenCall(core::Db& db, qint64 callId, const core::LoadedRow& loaded,
                     const QDateTime& now);

// Records work done on a call: a history row with the note (trimmed) and the chosen status,
// which becomes the call's status. Closing this way sets the closing date as a save does; any
// other status clears it. An empty status is refused (std::invalid_argument), nothing written.
HistoryRow addAction(core::Db& db, qint64 callId, const QString& note, const QString& status,
                     const QDateTime& now);

// The note an action starts with: "{action} - ", or nothing for "Note/Comment only".
QString notePrefix(const QString& action);

// The closing date a stored call shows: the stored one, or today's for a closed call whose
// closing date was never written.
QDate shownClosingDate(const QString& status, const QDate& stored, const QDate& today);

// A stored call as the call screen shows it.
struct CallRecord {
    CallText text;
    QDate dateClosed;
    QString callerText; // "{id} - {Surname}, {Firstnames}", "" for no caller
    QString extension;
    QString departmentId;
    std::vector<HistoryRow> history; // newest first
};
// Nullopt when there is no such call.
std::optional<CallRecord> loadCall(core::Db& db, qint64 callId);
// The call's row as the save will compare it.
core::LoadedRow loadedCallRow(core::Db& db, qint64 callId);

// A call's history, newest first.
std::vector<HistoryRow> callHistory(core::Db& db, qint64 callId);
// One history row; nullopt when it is not there.
std::optional<HistoryRow> historyRow(core::Db& db, qint64 historyId);

// How a history row's moment is shown: the date in the session's format and "HH:mm:ss".
QString historyDate(const QDateTime& at);
QString historyTime(const QDateTime& at);

} // namespace helpdesk
