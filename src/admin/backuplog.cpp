#include "backuplog.h"

#include "ownerfiles.h"
#include "settings.h"

#include <QFile>
#include <QStringList>
#include <stdexcept>

namespace admin {

namespace {

QString quoted(const QString& field) {
    if (!field.contains(',') && !field.contains('"') && !field.contains('\n') &&
        !field.contains('\r'))
        return field;
    QString f = field;
    f.replace('"', "\"\"");
    return '"' + f + '"';
}

// Splits at the commas outside quotes; reports whether any field was quoted.
QStringList splitCsv(const QString& line, bool& anyQuoted) {
    QStringList fields;
    QString current;
    bool inQuotes = false;
    anyQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (inQuotes) {
            if (c == '"') {
                if (i + 1 < line.size() && line[i + 1] == '"') {
                    current += '"';
                    ++i;
                } else {
                    inQuotes = false;
                }
            } else {
                current += c;
            }
        } else if (c == '"' && current.isEmpty()) {
            inQuotes = true;
            anyQuoted = true;
        } else if (c == ',') {
            fields << current;
            current.clear();
        } else {
            current += c;
        }
    }
    fields << current;
    return fields;
}

[[noreturn]] void fail(const QString& what) {
    throw std::runtime_error(what.toStdString());
}

} // namespace

QString backupLogPath() {
    return core::InstallSettings::instance().backupFolder() + "/backuplog.txt";
}

QString formatLogLine(const BackupLogEntry& e) {
    return QStringList{quoted(e.when), quoted(e.description), quoted(e.path), quoted(e.size)}.join(
        ',');
}

BackupLogEntry parseLogLine(const QString& line) {
    bool anyQuoted = false;
    QStringList f = splitCsv(line, anyQuoted);
    if (!anyQuoted && f.size() > 4) {
        const QString size = f.takeLast();
        const QString path = f.takeLast();
        const QString when = f.takeFirst();
        return {when, f.join(','), path, size};
    }
    return {f.value(0), f.value(1), f.value(2), f.value(3)};
}

std::vector<BackupLogEntry> readBackupLog(const QString& path) {
    std::vector<BackupLogEntry> out;
    QFile file(path);
    if (!file.exists()) return out;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        fail(QStringLiteral("The backup log %1 cannot be read: %2").arg(path, file.errorString()));
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    for (const QString& line : lines)
        if (!line.trimmed().isEmpty()) out.push_back(parseLogLine(line));
    return out;
}

void recordBackup(const QString& path, const BackupLogEntry& entry) {
    const QString target = entry.path.trimmed().toLower();
    QStringList lines;
    for (const BackupLogEntry& e : readBackupLog(path))
        if (e.path.trimmed().toLower() != target) lines << formatLogLine(e);
    lines << formatLogLine(entry);
    // The folder is made when missing; the log is replaced whole, owner-only.
    QString error;
    if (!core::writeOwnerFile(path, (lines.join('\n') + '\n').toUtf8(), &error))
        fail(QStringLiteral("The backup log cannot be written: %1").arg(error));
}

} // namespace admin
