#include "selectionlist.h"

#include <QRegularExpression>

namespace selectionlist {

namespace {

std::vector<Row> read(core::Db& db, const QString& sql, const core::Params& params = {}) {
    std::vector<Row> out;
    QSqlQuery q = db.query(sql, params);
    while (q.next())
        out.push_back({core::Db::toId(q.value(0)), core::Db::text(q.value(1))});
    return out;
}

// Table and column names come from the program, never from what a user typed; this keeps it so.
QString identifier(const QString& name) {
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (!plain.match(name).hasMatch())
        throw core::DbError(core::DbErrorKind::Other, "Not a column or table name: " + name);
    return name;
}

} // namespace

std::vector<Row> companies(core::Db& db, const QString& filter) {
    if (filter.trimmed().isEmpty())
        return read(db, "SELECT Company_ID, Company_Name FROM Company ORDER BY Company_Name");
    return read(db,
                "SELECT Company_ID, Company_Name FROM Company WHERE " +
                    core::Db::ciLike("Company_Name"),
                {filter + "%"});
}

std::vector<Row> all(core::Db& db, const QString& orderColumn, const QString& keyColumn,
                     const QString& table) {
    return read(db, QStringLiteral("SELECT %1, %2 FROM %3 ORDER BY %2")
                        .arg(identifier(keyColumn), identifier(orderColumn), identifier(table)));
}

std::vector<Row> users(core::Db& db) {
    std::vector<Row> out;
    QSqlQuery q = db.query("SELECT users FROM users ORDER BY users");
    while (q.next())
        out.push_back({0, core::Db::text(q.value(0))});
    return out;
}

Mode modeFor(const QString& title, bool deletecompany) {
    if (title == "Select Company") return {Action::OpenCompany, {}, {}};
    if (title == "Edit Supplier") return {Action::EditSupplier, {}, {}};
    if (title == "Delete Company")
        return deletecompany ? Mode{Action::DeleteRow, "Company", "Company_ID"} : Mode{};
    if (title == "Delete Position") return {Action::DeleteRow, "Position", "PositionID"};
    if (title == "Delete Department") return {Action::DeleteRow, "Department", "Department_ID"};
    if (title == "Delete Location") return {Action::DeleteRow, "Location", "Location_ID"};
    if (title == "Delete Supplier") return {Action::DeleteRow, "Supplier", "Supplier_ID"};
    if (title == "Delete User") return {Action::DeleteUser, {}, {}};
    return {};
}

QString refusedMessage(const QString& title, const QString& name) {
    if (title == "Delete Company")
        return QStringLiteral("Cannot delete %1 whilst employees are listed as working there.")
            .arg(name);
    if (title == "Delete Supplier")
        return QStringLiteral("Cannot delete %1 whilst some software is still listed as being "
                              "supplied from this Company.")
            .arg(name);
    if (title == "Delete Location")
        return QStringLiteral("Cannot delete %1 whilst employees are listed as working there")
            .arg(name);
    if (title == "Delete Position")
        return QStringLiteral(
                   "Cannot delete %1 whilst employees are listed as employed in this position")
            .arg(name);
    if (title == "Delete Department")
        return QStringLiteral(
                   "Cannot delete %1 whilst employees are listed as working in this Department")
            .arg(name);
    return QStringLiteral("Error. Cannot delete selection");
}

void deleteRow(core::Db& db, const Mode& mode, qint64 id) {
    db.remove(identifier(mode.table), identifier(mode.keyColumn), id);
}

void deleteUser(core::Db& db, const QString& name) {
    core::Transaction t(db);
    if (db.backend() == core::Backend::Postgres) {
        // Only a login of this database, and only by one of its Admins: the schema's
        // function checks both.
        db.exec("SELECT quillorne_drop_login(?)", {name});
    } else {
        if (db.exec("DELETE FROM logins WHERE " + core::Db::ciEquals("login"), {name}) == 0)
            throw core::DbError(core::DbErrorKind::Other,
                                QStringLiteral("There is no login named %1").arg(name));
    }
    db.exec("DELETE FROM users WHERE users = ?", {name});
    t.commit();
}

} // namespace selectionlist
