#include "console_backup.h"

#include "backup.h"
#include "backuplog.h"
#include "regional.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

namespace admin {

namespace {

// "Backed up to {path}: {bytes} bytes in {ms} ms ({rate} MB/s)."
QString throughput(const QString& done, const QString& path, qint64 bytes, qint64 ms) {
    const double rate = double(bytes) / (1024.0 * 1024.0) / (double(qMax<qint64>(ms, 1)) / 1000.0);
    return QStringLiteral("%1 %2: %3 bytes in %4 ms (%5 MB/s).\n")
        .arg(done, path)
        .arg(bytes)
        .arg(ms)
        .arg(QString::number(rate, 'f', 1));
}

} // namespace

int consoleBackup(core::InstallSettings& settings, const QString& user, const QString& password,
                  const QString& file, const QString& description, QTextStream& out,
                  QTextStream& err) {
    const QString path = QFileInfo(file).absoluteFilePath();
    QElapsedTimer timer;
    timer.start();
    try {
        const qint64 size = backupDatabase(settings.connectionParams(user, password), path);
        const qint64 ms = timer.elapsed();
        const QDateTime now = QDateTime::currentDateTime();
        recordBackup(settings.backupFolder() + "/backuplog.txt",
                     {core::formatDate(now.date()) + ' ' + now.time().toString("HH:mm:ss"),
                      description.trimmed(), QDir::toNativeSeparators(path),
                      QString::number(size)});
        settings.setValue(core::InstallSettings::LastBackup, core::formatDate(now.date()));
        out << throughput("Backed up to", path, size, ms);
        return 0;
    } catch (const BackupFailed& e) {
        err << "Backup failed: " << e.message() << '\n';
    } catch (const std::exception& e) {
        err << "Backup failed: " << e.what() << '\n';
    }
    return 1;
}

int consoleRestore(core::InstallSettings& settings, const QString& user, const QString& password,
                   const QString& file, QTextStream& out, QTextStream& err) {
    const QString path = QFileInfo(file).absoluteFilePath();
    QElapsedTimer timer;
    timer.start();
    try {
        restoreDatabase(settings.connectionParams(user, password), path);
        const qint64 ms = timer.elapsed();
        const qint64 size = QFileInfo(path).size();
        out << throughput("Restored from", path, size, ms);
        return 0;
    } catch (const BackupFailed& e) {
        err << "Restore refused, the database is as it was: " << e.message() << '\n';
    } catch (const std::exception& e) {
        err << "Restore failed, the database is as it was: " << e.what() << '\n';
    }
    return 1;
}

} // namespace admin
