#include "db.h"

#include "money.h"
#include "ownerfiles.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QStringList>
#include <atomic>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace core {

namespace {

bool containsAny(const QString& text, std::initializer_list<const char*> needles) {
    for (const char* n : needles)
        if (text.contains(QLatin1String(n), Qt::CaseInsensitive)) return true;
    return false;
}

QString describe(const QSqlError& e) {
    QString d = e.databaseText().trimmed();
    const QString driver = e.driverText().trimmed();
    if (d.isEmpty())
        d = driver;
    else if (!driver.isEmpty() && !d.contains(driver))
        d = driver + ": " + d;
    return d;
}

// SQLite's own lower() folds only A-Z, so "Öztürk" would not find "öztürk". Names are
// compared through lower() on both backends; here it folds every letter, as PostgreSQL does.
void unicodeLower(sqlite3_context* context, int argc, sqlite3_value** argv) {
    if (argc != 1 || sqlite3_value_type(argv[0]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    const int size = sqlite3_value_bytes(argv[0]);
    // Most names are plain ASCII: folded in place, without a round trip through UTF-16, since
    // type-ahead searches fold every name of a large table on each key stroke.
    char ascii[256];
    if (size <= int(sizeof ascii)) {
        int i = 0;
        for (; i < size && static_cast<unsigned char>(text[i]) < 0x80; ++i)
            ascii[i] = (text[i] >= 'A' && text[i] <= 'Z') ? char(text[i] + ('a' - 'A')) : text[i];
        if (i == size) {
            sqlite3_result_text(context, ascii, size, SQLITE_TRANSIENT);
            return;
        }
    }
    const QByteArray lowered = QString::fromUtf8(text, size).toLower().toUtf8();
    sqlite3_result_text(context, lowered.constData(), int(lowered.size()), SQLITE_TRANSIENT);
}

sqlite3* sqliteHandle(const QSqlDatabase& db) {
    const QVariant handle = db.driver()->handle();
    if (qstrcmp(handle.typeName(), "sqlite3*") != 0) return nullptr;
    return *static_cast<sqlite3* const*>(handle.data());
}

void foldCaseLikeUsers(const QSqlDatabase& db) {
    if (auto* sqlite = sqliteHandle(db))
        sqlite3_create_function_v2(sqlite, "lower", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                   &unicodeLower, nullptr, nullptr, nullptr);
}

// A new embedded database is made as an empty owner-only file before SQLite opens it: SQLite
// would make it readable by everyone, and gives its -wal and -shm files the file's own mode.
void createOwnerOnly(const QString& path) {
    if (path.isEmpty() || path.startsWith(':') || QFileInfo::exists(path)) return;
    // A missing folder stays a failure to open: the data folder is made by the settings.
    const int fd = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (fd >= 0) ::close(fd);
}

// A session on a lost PostgreSQL connection: the server restarted or the network dropped.
bool connectionLost(const DbError& e, Backend backend) {
    return backend == Backend::Postgres && e.kind() == DbErrorKind::Unreachable;
}

// Statements that change nothing, so that running them again after a reconnect is harmless.
bool harmlessToRepeat(const QString& sql) {
    const QString s = sql.trimmed();
    if (s.startsWith(QLatin1String("BEGIN"), Qt::CaseInsensitive)) return true;
    return s.startsWith(QLatin1String("SELECT"), Qt::CaseInsensitive) &&
           !s.contains(QLatin1String("FOR UPDATE"), Qt::CaseInsensitive);
}

constexpr int ConnectTimeoutSeconds = 3;

} // namespace

Db::Db(ConnectionParams params, QString name)
    : params_(std::move(params))
    , name_(std::move(name)) {}

Db::~Db() {
    {
        QSqlDatabase db = QSqlDatabase::database(name_, false);
        if (db.isOpen()) {
            if (depth_ > 0) db.exec("ROLLBACK");
            db.close();
        }
    }
    QSqlDatabase::removeDatabase(name_);
}

std::unique_ptr<Db> Db::open(const ConnectionParams& params, const QString& connectionName) {
    // Every connection gets a name of its own: a second open under the same name must not
    // pull the first one's connection out from under it.
    static std::atomic<quint64> serial{0};
    const QString name = QStringLiteral("%1#%2").arg(connectionName).arg(++serial);
    std::unique_ptr<Db> result(new Db(params, name));
    if (params.backend == Backend::Sqlite) {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", name);
        createOwnerOnly(params.sqlitePath);
        db.setDatabaseName(params.sqlitePath);
        db.setConnectOptions("QSQLITE_BUSY_TIMEOUT=10000");
        if (!db.open()) throw DbError(DbErrorKind::Unreachable, describe(db.lastError()));
        // SQLite quietly opens a file it may not write read-only; every save would fail later.
        if (auto* sqlite = sqliteHandle(db); sqlite && sqlite3_db_readonly(sqlite, "main") == 1)
            throw DbError(
                DbErrorKind::PermissionDenied,
                QStringLiteral("The database file %1 is read-only").arg(params.sqlitePath));
        foldCaseLikeUsers(db);
        result->exec("PRAGMA foreign_keys = ON");
        result->query("PRAGMA journal_mode = WAL");
        result->exec("PRAGMA synchronous = NORMAL");
        for (const char* suffix : {"", "-wal", "-shm"})
            restrictToOwner(params.sqlitePath + QLatin1String(suffix));
    } else {
        QSqlDatabase db = QSqlDatabase::addDatabase("QPSQL", name);
        db.setHostName(params.host);
        db.setPort(params.port);
        db.setDatabaseName(params.database);
        db.setUserName(params.user);
        db.setPassword(params.password);
        result->connectPostgres();
    }
    return result;
}

void Db::connectPostgres() const {
    QSqlDatabase db = handle();
    // A silent server must not hold the program for long.
    db.setConnectOptions(QStringLiteral("connect_timeout=%1").arg(ConnectTimeoutSeconds));
    if (!db.open(params_.user, params_.password)) throw classify(db.lastError(), Backend::Postgres);
    QSqlQuery q(db);
    if (!q.exec("SET client_min_messages TO WARNING"))
        throw classify(q.lastError(), Backend::Postgres);
}

void Db::reconnect() const {
    handle().close();
    connectPostgres();
    broken_ = false;
}

DbError Db::lostError() {
    return DbError(DbErrorKind::Unreachable, LostConnectionMessage);
}

void Db::exact(QSqlQuery& q) const {
    // NUMERIC comes back as its text, so money keeps every digit.
    if (params_.backend == Backend::Postgres) q.setNumericalPrecisionPolicy(QSql::HighPrecision);
}

QSqlDatabase Db::handle() const {
    return QSqlDatabase::database(name_, false);
}

DbError Db::classify(const QSqlError& error, Backend backend) {
    const QString code = error.nativeErrorCode().trimmed();
    const QString text = describe(error);
    if (backend == Backend::Sqlite) {
        const int n = code.toInt() & 0xff;
        if (n == 19) return DbError(DbErrorKind::Constraint, text);
        if (n == 3 || n == 23 || n == 8) return DbError(DbErrorKind::PermissionDenied, text);
        if (n == 14 || n == 26 || error.type() == QSqlError::ConnectionError)
            return DbError(DbErrorKind::Unreachable, text);
        return DbError(DbErrorKind::Other, text);
    }
    if (code.startsWith("23")) return DbError(DbErrorKind::Constraint, text);
    if (code == "28P01" || code == "28000" ||
        (containsAny(text, {"password authentication failed", "no password supplied", "role \"",
                            "no pg_hba.conf entry"}) &&
         error.type() == QSqlError::ConnectionError))
        return DbError(DbErrorKind::LoginRefused, text);
    if (code == "42501" || code.startsWith("28"))
        return DbError(DbErrorKind::PermissionDenied, text);
    if (code.startsWith("08") || code == "57P01" || code == "57P02" || code == "57P03" ||
        containsAny(text, {"could not connect", "connection refused", "timeout expired",
                           "could not translate host name", "server closed the connection",
                           "no connection to the server", "Connection timed out",
                           "terminating connection", "connection to server", "SSL SYSCALL error",
                           "could not send data to server", "could not receive data from server"}))
        return DbError(DbErrorKind::Unreachable, text);
    return DbError(DbErrorKind::Other, text);
}

QVariant Db::bindable(const QVariant& v) const {
    if (!v.isValid()) return QVariant(QMetaType::fromType<QString>());
    switch (v.typeId()) {
    case QMetaType::Bool:
        return v.toBool() ? 1 : 0;
    case QMetaType::QDate:
        if (v.isNull() || !v.toDate().isValid()) return QVariant(QMetaType::fromType<QDate>());
        return params_.backend == Backend::Sqlite ? QVariant(v.toDate().toString(Qt::ISODate)) : v;
    case QMetaType::QDateTime:
        if (v.isNull() || !v.toDateTime().isValid())
            return QVariant(QMetaType::fromType<QDateTime>());
        // As written: a zone offset would let the server shift the time to its own zone.
        return QVariant(v.toDateTime().toString("yyyy-MM-dd HH:mm:ss"));
    default:
        if (v.typeId() == qMetaTypeId<Money>()) return v.value<Money>().toVariant();
        return v;
    }
}

QSqlQuery Db::prepare(const QString& sql, const Params& params) const {
    QSqlQuery q(handle());
    q.setForwardOnly(true);
    exact(q);
    if (!q.prepare(sql)) throw classify(q.lastError(), params_.backend);
    for (int i = 0; i < params.size(); ++i) {
        // PostgreSQL takes a NUL as the end of the text and reports the statement back.
        if (params.at(i).typeId() == QMetaType::QString &&
            params.at(i).toString().contains(QChar(0)))
            throw DbError(DbErrorKind::Other,
                          "A text holds a NUL character, which cannot be stored. Nothing was "
                          "saved.");
        q.bindValue(i, bindable(params.at(i)));
    }
    return q;
}

QSqlQuery Db::query(const QString& sql, const Params& params) const {
    // The BEGIN of a transaction counts itself already; nothing of the transaction is lost yet.
    const bool beginning = depth_ == 1 && sql.trimmed().startsWith("BEGIN", Qt::CaseInsensitive);
    const bool inTransaction = depth_ > 0 && !beginning;
    if (broken_) {
        // Inside a transaction the lost statements cannot be told apart from the others.
        if (inTransaction) throw lostError();
        reconnect();
    }
    try {
        return run(sql, params);
    } catch (const DbError& e) {
        if (!connectionLost(e, params_.backend)) throw;
        broken_ = true;
        if (inTransaction) throw lostError();
        // Once, with the session's own login; a server still down says so.
        reconnect();
        if (harmlessToRepeat(sql)) return run(sql, params);
        throw lostError();
    }
}

QSqlQuery Db::run(const QString& sql, const Params& params) const {
    if (params.isEmpty()) {
        // QPSQL prepares every statement server-side (PREPARE ... AS), which PostgreSQL
        // refuses for SET, DDL and CREATE DATABASE; a statement without values runs directly.
        QSqlQuery q(handle());
        q.setForwardOnly(true);
        exact(q);
        if (!q.exec(sql)) throw classify(q.lastError(), params_.backend);
        return q;
    }
    QSqlQuery q = prepare(sql, params);
    if (!q.exec()) throw classify(q.lastError(), params_.backend);
    return q;
}

std::vector<QSqlRecord> Db::rows(const QString& sql, const Params& params) const {
    QSqlQuery q = query(sql, params);
    std::vector<QSqlRecord> out;
    while (q.next())
        out.push_back(q.record());
    return out;
}

std::optional<QSqlRecord> Db::row(const QString& sql, const Params& params) const {
    QSqlQuery q = query(sql, params);
    if (q.next()) return q.record();
    return std::nullopt;
}

QVariant Db::scalar(const QString& sql, const Params& params) const {
    QSqlQuery q = query(sql, params);
    if (q.next()) return q.value(0);
    return {};
}

int Db::exec(const QString& sql, const Params& params) const {
    QSqlQuery q = query(sql, params);
    return q.numRowsAffected();
}

namespace {
// "INSERT INTO table (a, b) VALUES (?, ?)" and the values to bind, in order.
QString insertStatement(const QString& table, const Fields& fields, Params& values) {
    if (fields.empty()) return QString("INSERT INTO %1 DEFAULT VALUES").arg(table);
    QStringList cols, marks;
    for (const auto& [c, v] : fields) {
        cols << c;
        marks << "?";
        values << v;
    }
    return QString("INSERT INTO %1 (%2) VALUES (%3)").arg(table, cols.join(", "), marks.join(", "));
}
} // namespace

qint64 Db::insert(const QString& table, const QString& keyColumn, const Fields& fields) const {
    Params values;
    QString sql = insertStatement(table, fields, values);
    if (params_.backend == Backend::Postgres) {
        sql += " RETURNING " + keyColumn;
        const QVariant id = scalar(sql, values);
        return id.toLongLong();
    }
    QSqlQuery q = query(sql, values);
    return q.lastInsertId().toLongLong();
}

void Db::insertRow(const QString& table, const Fields& fields) const {
    Params values;
    const QString sql = insertStatement(table, fields, values);
    exec(sql, values);
}

int Db::update(const QString& table, const QString& keyColumn, qint64 id,
               const Fields& fields) const {
    if (fields.empty()) return 0;
    QStringList sets;
    Params values;
    for (const auto& [c, v] : fields) {
        sets << c + " = ?";
        values << v;
    }
    values << id;
    return exec(QString("UPDATE %1 SET %2 WHERE %3 = ?").arg(table, sets.join(", "), keyColumn),
                values);
}

int Db::remove(const QString& table, const QString& keyColumn, qint64 id) const {
    return exec(QString("DELETE FROM %1 WHERE %2 = ?").arg(table, keyColumn), {id});
}

QString Db::ciLike(const QString& column) {
    return QString("lower(%1) LIKE lower(?)").arg(column);
}

QString Db::ciEquals(const QString& column) {
    return QString("lower(%1) = lower(?)").arg(column);
}

QString Db::quoteIdentifier(const QString& name) const {
    QString n = name;
    n.replace('"', "\"\"");
    return '"' + n + '"';
}

QString Db::quoteLiteral(const QString& text) const {
    QString t = text;
    t.replace('\'', "''");
    if (params_.backend == Backend::Postgres && t.contains('\\'))
        return "E'" + t.replace('\\', "\\\\") + '\'';
    return '\'' + t + '\'';
}

void Db::begin() {
    if (depth_++ > 0) return;
    try {
        if (params_.backend == Backend::Sqlite)
            exec("BEGIN IMMEDIATE");
        else
            exec("BEGIN");
    } catch (...) {
        depth_ = 0;
        throw;
    }
}

void Db::commit() {
    if (depth_ == 0) return;
    if (broken_) {
        // The server ended the transaction with the connection: nothing of it was kept.
        depth_ = 0;
        rollbackOnly_ = false;
        throw lostError();
    }
    if (--depth_ > 0) return;
    if (rollbackOnly_) {
        rollbackOnly_ = false;
        depth_ = 1;
        rollback();
        throw DbError(DbErrorKind::Other, "The transaction was rolled back by an inner failure");
    }
    try {
        exec("COMMIT");
    } catch (const DbError&) {
        // A refused COMMIT (a deferred constraint, a busy database) can leave the transaction
        // open on the server; it must end here, or the next unit of work would join it.
        try {
            exec("ROLLBACK");
        } catch (const DbError&) {
            // The server has already ended it.
        }
        throw;
    }
}

void Db::rollback() {
    if (depth_ == 0) return;
    if (--depth_ > 0) {
        // An inner failure dooms the whole unit: the outermost commit must not go through.
        rollbackOnly_ = true;
        return;
    }
    rollbackOnly_ = false;
    if (broken_) return; // the server has rolled back with the connection
    try {
        exec("ROLLBACK");
    } catch (const DbError&) {
        // The server has already ended a broken transaction.
    }
}

QVariant Db::dateOrNull(const QDate& d) {
    return d.isValid() ? QVariant(d) : QVariant(QMetaType::fromType<QDate>());
}

QDate Db::toDate(const QVariant& v) {
    if (v.isNull() || !v.isValid()) return {};
    if (v.typeId() == QMetaType::QDate) return v.toDate();
    if (v.typeId() == QMetaType::QDateTime) return v.toDateTime().date();
    const QString s = v.toString().trimmed();
    QDate d = QDate::fromString(s.left(10), Qt::ISODate);
    return d;
}

QDateTime Db::toDateTime(const QVariant& v) {
    if (v.isNull() || !v.isValid()) return {};
    if (v.typeId() == QMetaType::QDateTime) return v.toDateTime();
    if (v.typeId() == QMetaType::QDate) return v.toDate().startOfDay();
    QString s = v.toString().trimmed();
    s.replace(' ', 'T');
    QDateTime dt = QDateTime::fromString(s, Qt::ISODateWithMs);
    if (!dt.isValid()) dt = QDateTime::fromString(s, Qt::ISODate);
    if (!dt.isValid()) {
        const QDate d = QDate::fromString(s.left(10), Qt::ISODate);
        if (d.isValid()) dt = d.startOfDay();
    }
    return dt;
}

QString Db::text(const QVariant& v) {
    if (v.isNull() || !v.isValid()) return {};
    return v.toString();
}

qint64 Db::toId(const QVariant& v) {
    return v.isNull() ? 0 : v.toLongLong();
}

Transaction::Transaction(Db& db)
    : db_(db) {
    db_.begin();
}

Transaction::~Transaction() {
    if (!done_) db_.rollback();
}

void Transaction::commit() {
    db_.commit();
    done_ = true;
}

} // namespace core
