#pragma once

#include "db.h"

#include <QString>
#include <functional>
#include <stdexcept>

namespace admin {

// A backup or restore that did not happen; the message says why and the database is as it was.
class BackupFailed : public std::runtime_error {
public:
    enum class Reason { Missing, NotABackup, PermissionDenied, Other };
    BackupFailed(Reason reason, const QString& message)
        : std::runtime_error(message.toStdString())
        , reason_(reason)
        , message_(message) {}
    Reason reason() const { return reason_; }
    const QString& message() const { return message_; }

private:
    Reason reason_;
    QString message_;
};

// The messages the screen and the console show for a refused restore.
QString missingBackupMessage();
QString damagedBackupMessage();

// Writes a consistent full copy of the database to the file while the program runs
// (embedded: SQLite's online backup; PostgreSQL: pg_dump's custom format). The file is
// checked before it takes the target's name, so a failed backup leaves an older file
// there as it was; it is owner-only. Returns its size in bytes.
qint64 backupDatabase(const core::ConnectionParams& params, const QString& file);

// Refuses a file that is missing, damaged, or not a backup of this program's database
// (BackupFailed with Missing or NotABackup). Touches nothing.
void verifyBackup(core::Backend backend, const QString& file);

// Replaces the database's contents with the backup's, all or nothing: the file is verified
// first, and a restore that fails part way leaves the database as it was. Connections of
// this process to the database should be closed first.
void restoreDatabase(const core::ConnectionParams& params, const QString& file);

} // namespace admin
