#pragma once

#include "db.h"

#include <QString>
#include <vector>

// The rules of the selection list: what it lists, and what its OK does by its title.
namespace selectionlist {

struct Row {
    qint64 id = 0;
    QString name;
};

// Companies whose name begins with the filter (ignoring case); all of them, by name, when the
// trimmed filter is empty. The filter itself is used as typed, trailing blanks included.
std::vector<Row> companies(core::Db& db, const QString& filter);
// Any list of key and name, ordered by the name column.
std::vector<Row> all(core::Db& db, const QString& orderColumn, const QString& keyColumn,
                     const QString& table);
// The logins named in the users table; they have no key.
std::vector<Row> users(core::Db& db);

enum class Action { Nothing, OpenCompany, EditSupplier, DeleteRow, DeleteUser };

struct Mode {
    Action action = Action::Nothing;
    QString table;     // DeleteRow
    QString keyColumn; // DeleteRow
};

// The list's mode is its title; "Delete Company" acts only when the company delete is armed.
Mode modeFor(const QString& title, bool deletecompany);

// The message for a refused delete, chosen by the title alone.
QString refusedMessage(const QString& title, const QString& name);

void deleteRow(core::Db& db, const Mode& mode, qint64 id);

// Removes a login and its users row together: the server role on PostgreSQL, the stored login
// on the embedded database. A failure leaves both as they were.
void deleteUser(core::Db& db, const QString& name);

} // namespace selectionlist
