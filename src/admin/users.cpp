#include "users.h"

#include "logins.h"

#include <atomic>

namespace admin {

using core::Backend;
using core::Db;
using core::DbError;
using core::DbErrorKind;

namespace {

// PostgreSQL keeps at most this many bytes of a role's name and cuts the rest silently; a
// longer name would be stored as one login and signed in as another.
constexpr int MaxLoginBytes = 63;

const char* const WrongOldPassword =
    "Old (current) password incorrect for user. The password was not changed.";

bool roleExists(Db& db, const QString& name) {
    return db.row("SELECT 1 FROM pg_roles WHERE rolname = ?", {name}).has_value();
}

void requireEmbeddedAdmin(Db& db, const QString& currentUser) {
    const QVariant type =
        db.scalar("SELECT usertype FROM logins WHERE " + Db::ciEquals("login"), {currentUser});
    if (Db::text(type) != QLatin1String("Admin"))
        throw DbError(DbErrorKind::PermissionDenied,
                      QStringLiteral("%1 may not add logins").arg(currentUser));
}

// The server hashes the password with SCRAM before it stores it, whatever its default.
void useScram(Db& db) {
    db.exec("SET LOCAL password_encryption = 'scram-sha-256'");
}

} // namespace

QString addUserRefusal(const QString& name, const QString& password, const QString& confirm,
                       const QString& type) {
    if (name.trimmed().isEmpty()) return QStringLiteral("please enter a login name");
    if (name.trimmed().toUtf8().size() > MaxLoginBytes)
        return QStringLiteral("The login name can be at most %1 characters").arg(MaxLoginBytes);
    if (password.trimmed().size() <= 5)
        return QStringLiteral("Please enter a password of at least 6 characters");
    // The password is kept as typed, so the two must agree as typed.
    if (password != confirm)
        return QStringLiteral("Your passwords do not match. Please enter your new password and "
                              "confirm it below.");
    const QString t = type.trimmed();
    if (t != QLatin1String("Admin") && t != QLatin1String("User"))
        return QStringLiteral("Please select user type");
    return {};
}

QString changePasswordRefusal(const QString& newPassword, const QString& confirm) {
    if (newPassword.trimmed().size() < 6 || confirm.trimmed().size() < 6)
        return QStringLiteral("The new password needs to be at least 6 characters");
    if (newPassword != confirm) return QStringLiteral("Passswords do not match");
    return {};
}

void addUser(Db& db, const QString& currentUser, const QString& name, const QString& password,
             const QString& type) {
    const QString login = name.trimmed();
    const bool admin = type.trimmed() == QLatin1String("Admin");
    core::Transaction t(db);
    if (db.row("SELECT 1 FROM users WHERE " + Db::ciEquals("users"), {login})) throw UserExists();
    if (db.backend() == Backend::Postgres) {
        if (roleExists(db, login)) throw UserExists();
        // The schema's function makes the role with a SCRAM password and this database's
        // rights, and refuses a caller who is no Admin of this database.
        db.exec("SELECT quillorne_add_login(?, ?, ? = 1)", {login, password, admin ? 1 : 0});
    } else {
        requireEmbeddedAdmin(db, currentUser);
        if (db.row("SELECT 1 FROM logins WHERE " + Db::ciEquals("login"), {login}))
            throw UserExists();
        db.insertRow("logins", {{"login", login},
                                {"pwhash", core::hashPassword(password)},
                                {"usertype", admin ? "Admin" : "User"}});
    }
    db.insertRow("users", {{"users", login}});
    t.commit();
}

QString addUserFailureMessage(const DbError& error) {
    if (error.kind() == DbErrorKind::PermissionDenied)
        return QStringLiteral("You must be an admin user to add new users");
    return QStringLiteral("%1 %2").arg(error.number()).arg(error.description());
}

void changePassword(Db& db, const QString& user, const QString& oldPassword,
                    const QString& newPassword) {
    const QString login = user.trimmed();
    if (db.backend() == Backend::Postgres) {
        // The server lets a role set its own password without the old one: ask it to sign in
        // with the old one first.
        core::ConnectionParams check = db.params();
        check.user = login;
        check.password = oldPassword;
        static std::atomic<int> serial{0};
        try {
            Db::open(check, QStringLiteral("password-check-%1").arg(++serial));
        } catch (const DbError& e) {
            if (e.kind() == DbErrorKind::LoginRefused)
                throw DbError(DbErrorKind::LoginRefused, WrongOldPassword);
            throw;
        }
        core::Transaction t(db);
        useScram(db);
        db.exec(QStringLiteral("ALTER ROLE %1 PASSWORD %2")
                    .arg(db.quoteIdentifier(login), db.quoteLiteral(newPassword)));
        t.commit();
        return;
    }
    core::Transaction t(db);
    try {
        core::verifyEmbeddedLogin(db, login, oldPassword);
    } catch (const DbError& e) {
        if (e.kind() == DbErrorKind::LoginRefused)
            throw DbError(DbErrorKind::LoginRefused, WrongOldPassword);
        throw;
    }
    db.exec("UPDATE logins SET pwhash = ? WHERE " + Db::ciEquals("login"),
            {core::hashPassword(newPassword), login});
    t.commit();
}

} // namespace admin
