#pragma once

#include <QString>
#include <vector>

namespace admin {

// One line of the backup log: when, what for, where, how big.
struct BackupLogEntry {
    QString when;        // date and time as shown
    QString description; // trimmed
    QString path;        // the backup file, trimmed
    QString size;        // bytes
};

// "{backup folder}/backuplog.txt".
QString backupLogPath();

// One line: fields separated by commas, quoted as CSV only when they need it, so a line
// without commas or quotes reads as it always has.
QString formatLogLine(const BackupLogEntry& entry);
// Reads a line. An old unquoted line whose description held commas keeps its first field
// as the date, its last two as path and size, and everything between as the description.
BackupLogEntry parseLogLine(const QString& line);

// The log's entries in order; none when the file is missing.
std::vector<BackupLogEntry> readBackupLog(const QString& path);
// Drops the lines for this backup file (compared ignoring case) and adds the entry at the
// end. The file is replaced whole or not at all, owner-only. Throws std::runtime_error.
void recordBackup(const QString& path, const BackupLogEntry& entry);

} // namespace admin
