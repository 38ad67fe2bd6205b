#pragma once

#include "db.h"

#include <QSqlRecord>
#include <QString>
#include <stdexcept>

class QWidget;

namespace core {

// The save found the row changed (or gone) since the screen loaded it; nothing was written.
class RowChanged : public std::runtime_error {
public:
    RowChanged()
        : std::runtime_error("The row has been changed by another user") {}
};

// A row as a load-edit-save screen loaded it. The save's transaction checks it against the
// row as it is now, so that a second user's change is never silently written over.
class LoadedRow {
public:
    LoadedRow() = default;
    // Reads every column of the row now; an empty snapshot when there is no such row.
    static LoadedRow read(const Db& db, const QString& table, const QString& keyColumn, qint64 id);

    bool isEmpty() const { return table_.isEmpty(); }
    qint64 id() const { return id_; }

    // Call inside the save's transaction, before writing: reads the row again (on PostgreSQL
    // locking it until the transaction ends; the embedded database already holds its write
    // lock) and throws RowChanged when any column differs or the row is gone. An empty
    // snapshot checks nothing.
    void verify(const Db& db) const;
    bool unchanged(const Db& db) const;

private:
    static std::optional<QSqlRecord> current(const Db& db, const QString& table,
                                             const QString& keyColumn, qint64 id, bool lock);

    QString table_;
    QString keyColumn_;
    qint64 id_ = 0;
    QSqlRecord values_;
};

// "This {what} has been changed by another user since you opened it. Your changes have not
// been saved."
QString rowChangedMessage(const QString& what);

// Tells the user that the save was refused and offers to load the row again as it is now;
// true when they want that (their typing is then replaced). No keeps the screen as it is.
bool offerReload(const QString& what, QWidget* parent = nullptr);

} // namespace core
