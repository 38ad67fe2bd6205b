#pragma once

#include "db.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

// The lists that lead to a call, the drop-downs of the call screen, and the search by call
// number or caller.
namespace helpdesk {

// A drop-down entry: its text and the key it stands for.
struct Entry {
    QString text;
    qint64 id = 0;
};

// How a caller is named in the drop-downs: "{person_id} - {Surname}, {Firstnames}".
QString callerText(qint64 personId, const QString& surname, const QString& firstnames);
// Everyone not deleted, named so, by surname and first names.
std::vector<Entry> callerEntries(core::Db& db);
// The caller's extension; nullopt when there is no such person.
std::optional<QString> callerExtension(core::Db& db, qint64 personId);

// The lookup lists, each trimmed: fault types and statuses in alphabetical order for the call
// screen; the statuses and the actions as the tables hold them for the action dialogs.
QStringList faultTypes(core::Db& db);
QStringList callStatuses(core::Db& db);
QStringList statusChoices(core::Db& db);
QStringList callActions(core::Db& db);

// A row of the call list.
struct CallListRow {
    qint64 id = 0;
    QString originator; // "{Surname}, {Firstnames}", "" for a call without a caller
    QString status;
    QDate logged;
    QDate required;
    QString description;
    bool closed = false;
};

// Every call (openOnly false) or the calls not closed, the latest logged first, then by caller
// (calls without one first) and the newest call first.
std::vector<CallListRow> callList(core::Db& db, bool openOnly);
// The calls of one caller, the newest first.
std::vector<CallListRow> callerCalls(core::Db& db, qint64 personId);

inline const QString NoCallsForUser = QStringLiteral("There are no calls for that user");
inline const QString NoCallWithId = QStringLiteral("There are no calls with that Call ID");

// What "Search" leads to.
struct SearchResult {
    enum Kind {
        Nothing,   // nothing to search for: a job number that is no number, a name no one's
        OpenCall,  // the call `id`
        ListCalls, // the calls of the caller `id`
        Refused    // `message` says why
    };
    Kind kind = Nothing;
    qint64 id = 0;
    QString message;
};

// The search by "Job Number" (any whole number, looked up as a number) or, when that is
// blank, by the caller picked (callerId; 0 when the typed name is no one's, -1 when none is
// typed).
SearchResult searchCalls(core::Db& db, const QString& jobNumber, qint64 callerId);
// The callerId a search is given for the caller box: -1 when nothing is typed, the picked key
// (`picked`, -1 or 0 for none) or else 0.
qint64 searchedCaller(const QString& typed, qint64 picked);

} // namespace helpdesk
