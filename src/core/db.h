#pragma once

#include "dberror.h"

#include <QDate>
#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVariant>
#include <optional>
#include <utility>
#include <vector>

namespace core {

enum class Backend { Sqlite, Postgres };

struct ConnectionParams {
    Backend backend = Backend::Sqlite;
    QString sqlitePath; // embedded database file
    QString host;       // PostgreSQL server
    int port = 5432;
    QString database;
    QString user;
    QString password;
};

// One column value to write: name and value, in the order given.
using Fields = std::vector<std::pair<QString, QVariant>>;
using Params = QVariantList;

// A database connection. Every value travels as a bound parameter ("?"); statements are
// plain SQL text that both backends understand. Failures throw DbError.
class Db {
public:
    // Opens a connection of its own name; throws DbError (LoginRefused, Unreachable, ...).
    static std::unique_ptr<Db> open(const ConnectionParams& params, const QString& connectionName);
    ~Db();
    Db(const Db&) = delete;
    Db& operator=(const Db&) = delete;

    Backend backend() const { return params_.backend; }
    const ConnectionParams& params() const { return params_; }
    QSqlDatabase handle() const;
    const QString& connectionName() const { return name_; }

    // Runs a statement and hands back the executed, forward-only query to walk with next().
    QSqlQuery query(const QString& sql, const Params& params = {}) const;
    // All rows of a select.
    std::vector<QSqlRecord> rows(const QString& sql, const Params& params = {}) const;
    // The first row, if any.
    std::optional<QSqlRecord> row(const QString& sql, const Params& params = {}) const;
    // The first column of the first row; an invalid QVariant when there is no row.
    QVariant scalar(const QString& sql, const Params& params = {}) const;
    // Runs an insert/update/delete/DDL statement; returns the rows affected.
    int exec(const QString& sql, const Params& params = {}) const;

    // Inserts one row and returns its generated key.
    qint64 insert(const QString& table, const QString& keyColumn, const Fields& fields) const;
    // Inserts one row into a table without a generated key.
    void insertRow(const QString& table, const Fields& fields) const;
    // Updates the row with the given key; returns the rows affected.
    int update(const QString& table, const QString& keyColumn, qint64 id,
               const Fields& fields) const;
    // Deletes the row with the given key; returns the rows affected.
    int remove(const QString& table, const QString& keyColumn, qint64 id) const;

    // "lower(column) LIKE lower(?)": case-insensitive on both backends.
    static QString ciLike(const QString& column);
    // "lower(column) = lower(?)".
    static QString ciEquals(const QString& column);
    // Quotes an identifier that has to be spliced (role names in DDL).
    QString quoteIdentifier(const QString& name) const;
    // Quotes a literal where a statement cannot take a parameter (PASSWORD in CREATE ROLE).
    QString quoteLiteral(const QString& text) const;

    // Transactions nest by count: only the outermost begins and commits.
    void begin();
    void commit();
    void rollback();
    bool inTransaction() const { return depth_ > 0; }

    // Reads a value the way both backends hand it back.
    static QDate toDate(const QVariant& v);
    // A date to bind: NULL for an invalid date.
    static QVariant dateOrNull(const QDate& d);
    static QDateTime toDateTime(const QVariant& v);
    // NULL becomes "", other values their text.
    static QString text(const QVariant& v);
    static qint64 toId(const QVariant& v);

    // Turns a failed QSqlQuery/QSqlDatabase error into the one failure type.
    static DbError classify(const QSqlError& error, Backend backend);

    // A PostgreSQL connection that breaks (the server restarted) is opened again once with the
    // same login at the next statement; a read is then run again, a write is refused with
    // this message, and a transaction under way is lost whole.
    static constexpr const char* LostConnectionMessage =
        "The connection to the database was lost. Your changes have not been saved. Please try "
        "again.";

private:
    Db(ConnectionParams params, QString name);
    void connectPostgres() const;
    void reconnect() const;
    static DbError lostError();
    QSqlQuery run(const QString& sql, const Params& params) const;
    QVariant bindable(const QVariant& v) const;
    QSqlQuery prepare(const QString& sql, const Params& params) const;
    void exact(QSqlQuery& q) const;

    ConnectionParams params_;
    QString name_;
    int depth_ = 0;
    bool rollbackOnly_ = false;
    mutable bool broken_ = false;
};

// Rolls back unless committed, so a thrown failure leaves nothing half written.
class Transaction {
public:
    explicit Transaction(Db& db);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Db& db_;
    bool done_ = false;
};

} // namespace core
