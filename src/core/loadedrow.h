#pragma once

#include "db.h"

#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
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
    // Columns named in `ignoring` are left out of the comparison: figures the program keeps up
    // by itself (a count of what uses the row) that the save never writes, so that their
    // moving on is no conflict.
    static LoadedRow read(const Db& db, const QString& table, const QString& keyColumn, qint64 id,
                          const QStringList& ignoring = {});

    // Every row of `table` whose `ownerColumn` is `owner` (a person's notes, say), by key, read
    // with one statement: for a list whose rows are edited one at a time.
    static std::map<qint64, LoadedRow> readEach(const Db& db, const QString& table,
                                                const QString& keyColumn,
                                                const QString& ownerColumn, qint64 owner);
    // The row of `id` in `rows`, or an empty snapshot (which checks nothing) for a row that was
    // not there when they were read: one the user has just added.
    static LoadedRow of(const std::map<qint64, LoadedRow>& rows, qint64 id);

    bool isEmpty() const { return table_.isEmpty(); }
    qint64 id() const { return id_; }
    // A column as it was read; null for an empty snapshot.
    QVariant value(const QString& column) const { return values_.value(column); }

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
    QStringList ignoring_;
};

// Writes `fields` to the row `id` of `table` in one transaction, after verifying the row
// against `loaded` (RowChanged when another user changed or removed it meanwhile).
int updateLoaded(Db& db, const LoadedRow& loaded, const QString& table, const QString& keyColumn,
                 qint64 id, const Fields& fields);

// "This {what} has been changed by another user since you opened it. Your changes have not
// been saved."
QString rowChangedMessage(const QString& what);

// Tells the user that the save was refused and offers to load the row again as it is now;
// true when they want that (their typing is then replaced). No keeps the screen as it is.
bool offerReload(const QString& what, QWidget* parent = nullptr);

// How a checked save ended: written; failed (reported as every command reports it); refused as
// changed by another user, with the typing kept (Kept) or the row read again (Reloaded).
enum class SaveOutcome { Saved, Failed, Kept, Reloaded };

// Runs a save that verifies a LoadedRow, for a screen's OK. A failure is reported as every
// command reports it (guarded); a row changed meanwhile is told through offerReload(what) and
// `reload` runs when the user wants the row as it is now.
SaveOutcome checkedSave(const QString& caption, const QString& what,
                        const std::function<void()>& save, const std::function<void()>& reload,
                        QWidget* parent = nullptr);

// checkedSave for a screen that only needs to know whether the save went through; otherwise
// the screen stays as it is, its typing kept.
bool saveUnlessChanged(const QString& caption, const QString& what,
                       const std::function<void()>& save, const std::function<void()>& reload,
                       QWidget* parent = nullptr);

} // namespace core
