#include "backup.h"

#include "ownerfiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QThread>
#include <cstdio>
#include <memory>
#include <sqlite3.h>

namespace admin {

using core::Backend;
using core::ConnectionParams;
using Reason = BackupFailed::Reason;

namespace {

// The tables without which a file is no backup of this program's database.
const char* const RequiredTables[] = {"person", "options", "users", "jobhistory"};

[[noreturn]] void fail(Reason reason, const QString& message) {
    throw BackupFailed(reason, message);
}

// ---- embedded -----------------------------------------------------------------------------

struct SqliteCloser {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
};
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;

SqliteHandle openSqlite(const QString& path, int flags) {
    sqlite3* raw = nullptr;
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &raw, flags, nullptr);
    SqliteHandle db(raw);
    if (rc != SQLITE_OK)
        fail(Reason::Other, QStringLiteral("%1 cannot be opened: %2")
                                .arg(path, QString::fromUtf8(sqlite3_errstr(rc))));
    sqlite3_busy_timeout(db.get(), 10000);
    return db;
}

QString sqliteMessage(sqlite3* db) {
    return QString::fromUtf8(sqlite3_errmsg(db));
}

// Copies every page of src's main database into dest's in one step; dest's own write
// transaction either takes all of it or none.
void copyPages(sqlite3* dest, sqlite3* src) {
    sqlite3_backup* b = sqlite3_backup_init(dest, "main", src, "main");
    if (!b) fail(Reason::Other, sqliteMessage(dest));
    int rc;
    int waits = 0;
    while ((rc = sqlite3_backup_step(b, -1)) == SQLITE_BUSY || rc == SQLITE_LOCKED) {
        if (++waits > 200) break; // ten seconds of others' locks
        QThread::msleep(50);
    }
    sqlite3_backup_finish(b);
    if (rc != SQLITE_DONE)
        fail(rc == SQLITE_READONLY || rc == SQLITE_PERM || rc == SQLITE_CANTOPEN
                 ? Reason::PermissionDenied
                 : Reason::Other,
             QStringLiteral("The copy stopped: %1").arg(QString::fromUtf8(sqlite3_errstr(rc))));
}

QStringList sqliteColumn(sqlite3* db, const char* sql, bool& ok) {
    QStringList out;
    sqlite3_stmt* st = nullptr;
    ok = sqlite3_prepare_v2(db, sql, -1, &st, nullptr) == SQLITE_OK;
    int rc = SQLITE_DONE;
    while (ok && (rc = sqlite3_step(st)) == SQLITE_ROW)
        out << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    if (rc != SQLITE_DONE) ok = false;
    sqlite3_finalize(st);
    return out;
}

void verifySqlite(const QString& file) {
    SqliteHandle db = openSqlite(file, SQLITE_OPEN_READONLY);
    bool ok = false;
    const QStringList check = sqliteColumn(db.get(), "PRAGMA integrity_check", ok);
    if (!ok || check != QStringList{"ok"}) fail(Reason::NotABackup, damagedBackupMessage());
    const QStringList tables =
        sqliteColumn(db.get(), "SELECT lower(name) FROM sqlite_master WHERE type = 'table'", ok);
    for (const char* t : RequiredTables)
        if (!ok || !tables.contains(QLatin1String(t)))
            fail(Reason::NotABackup, damagedBackupMessage());
}

void backupSqlite(const ConnectionParams& params, const QString& temp) {
    SqliteHandle src = openSqlite(params.sqlitePath, SQLITE_OPEN_READONLY);
    SqliteHandle dest = openSqlite(temp, SQLITE_OPEN_READWRITE);
    copyPages(dest.get(), src.get());
    // The copy keeps the live file's WAL mode; a backup file stands alone.
    char* error = nullptr;
    if (sqlite3_exec(dest.get(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, &error) !=
        SQLITE_OK) {
        const QString message = QString::fromUtf8(error);
        sqlite3_free(error);
        fail(Reason::Other, message);
    }
}

void restoreSqlite(const ConnectionParams& params, const QString& file) {
    SqliteHandle src = openSqlite(file, SQLITE_OPEN_READONLY);
    SqliteHandle dest = openSqlite(params.sqlitePath, SQLITE_OPEN_READWRITE);
    copyPages(dest.get(), src.get());
}

// ---- PostgreSQL ---------------------------------------------------------------------------

struct ToolResult {
    int exitCode = -1;
    QString output;
    QString errors;
};

ToolResult runTool(const QString& program, const QStringList& args,
                   const ConnectionParams* params) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (params) {
        // Only this user (and root) can read a process's environment.
        env.insert("PGPASSWORD", params->password);
        env.insert("PGCONNECT_TIMEOUT", "10");
        // A restore waits for others' locks at most this long, then gives up whole.
        env.insert("PGOPTIONS", "-c lock_timeout=30000");
    }
    p.setProcessEnvironment(env);
    p.start(program, args);
    if (!p.waitForStarted(10000))
        fail(Reason::Other,
             QStringLiteral("%1 cannot be started (%2). Install the PostgreSQL client tools.")
                 .arg(program, p.errorString()));
    p.closeWriteChannel();
    p.waitForFinished(-1);
    ToolResult r;
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.output = QString::fromUtf8(p.readAllStandardOutput());
    r.errors = QString::fromUtf8(p.readAllStandardError()).trimmed();
    return r;
}

QStringList connectionArgs(const ConnectionParams& params) {
    return {"--host",       params.host, "--port",        QString::number(params.port),
            "--username",   params.user, "--no-password", "--dbname",
            params.database};
}

[[noreturn]] void toolFailed(const QString& tool, const ToolResult& r) {
    const bool denied = r.errors.contains("permission denied", Qt::CaseInsensitive) ||
                        r.errors.contains("must be owner", Qt::CaseInsensitive);
    fail(denied ? Reason::PermissionDenied : Reason::Other,
         r.errors.isEmpty() ? QStringLiteral("%1 stopped with code %2").arg(tool).arg(r.exitCode)
                            : r.errors);
}

void verifyDump(const QString& file) {
    // Lists the contents, then reads every block through to the end: a cut-off or foreign
    // file fails here, before the database is touched.
    const ToolResult list = runTool("pg_restore", {"--list", file}, nullptr);
    if (list.exitCode != 0) fail(Reason::NotABackup, damagedBackupMessage());
    for (const char* t : RequiredTables) {
        const QRegularExpression table(QStringLiteral("\\bTABLE \\S+ %1 ").arg(t));
        if (!table.match(list.output).hasMatch()) fail(Reason::NotABackup, damagedBackupMessage());
    }
    const ToolResult read = runTool("pg_restore", {"--file", "/dev/null", file}, nullptr);
    if (read.exitCode != 0) fail(Reason::NotABackup, damagedBackupMessage());
}

void backupPostgres(const ConnectionParams& params, const QString& temp) {
    QStringList args{"--format=custom", "--file", temp};
    args << connectionArgs(params);
    const ToolResult r = runTool("pg_dump", args, &params);
    if (r.exitCode != 0) toolFailed("pg_dump", r);
}

void restorePostgres(const ConnectionParams& params, const QString& file) {
    QStringList args{"--clean", "--if-exists", "--single-transaction", "--no-owner",
                     "--exit-on-error"};
    args << connectionArgs(params) << file;
    const ToolResult r = runTool("pg_restore", args, &params);
    if (r.exitCode != 0) toolFailed("pg_restore", r);
}

} // namespace

QString missingBackupMessage() {
    return QStringLiteral("File does not exist. Please check and restore original file from "
                          "your backup");
}

QString damagedBackupMessage() {
    return QStringLiteral("The backup file is damaged or is not a backup of this database");
}

void verifyBackup(Backend backend, const QString& file) {
    const QFileInfo info(file);
    if (file.trimmed().isEmpty() || !info.exists() || !info.isFile())
        fail(Reason::Missing, missingBackupMessage());
    if (backend == Backend::Sqlite)
        verifySqlite(file);
    else
        verifyDump(file);
}

qint64 backupDatabase(const ConnectionParams& params, const QString& file) {
    const QFileInfo target(file);
    if (!target.absoluteDir().exists())
        fail(Reason::Other, QStringLiteral("The folder %1 does not exist")
                                .arg(QDir::toNativeSeparators(target.absolutePath())));
    // Written beside the target under another name, checked, then moved over it in one step.
    QTemporaryFile temp(target.absoluteFilePath() + ".XXXXXX");
    if (!temp.open())
        fail(Reason::PermissionDenied,
             QStringLiteral("%1 cannot be written: %2")
                 .arg(QDir::toNativeSeparators(file), temp.errorString()));
    temp.close();
    if (!core::restrictToOwner(temp.fileName()))
        fail(Reason::PermissionDenied,
             QStringLiteral("%1 cannot be made private to its owner").arg(temp.fileName()));
    if (params.backend == Backend::Sqlite)
        backupSqlite(params, temp.fileName());
    else
        backupPostgres(params, temp.fileName());
    verifyBackup(params.backend, temp.fileName());
    if (std::rename(QFile::encodeName(temp.fileName()).constData(),
                    QFile::encodeName(target.absoluteFilePath()).constData()) != 0)
        fail(Reason::Other, QStringLiteral("%1 cannot be replaced").arg(file));
    temp.setAutoRemove(false);
    return QFileInfo(target.absoluteFilePath()).size();
}

void restoreDatabase(const ConnectionParams& params, const QString& file) {
    verifyBackup(params.backend, file);
    if (params.backend == Backend::Sqlite)
        restoreSqlite(params, file);
    else
        restorePostgres(params, file);
}

} // namespace admin
