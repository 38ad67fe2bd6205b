#pragma once

#include "db.h"

#include <QString>
#include <stdexcept>

namespace admin {

// The message that refuses what was typed into "Add User", or "" when it may go ahead. Checks
// in the order the dialog has always made them.
QString addUserRefusal(const QString& name, const QString& password, const QString& confirm,
                       const QString& type);
// The same for "Change Password".
QString changePasswordRefusal(const QString& newPassword, const QString& confirm);

// The login name is taken (a login of that name, or a row in users).
class UserExists : public std::runtime_error {
public:
    UserExists()
        : std::runtime_error("login exists") {}
};

// Adds a login that can sign in at once and its row in users, all or nothing. On PostgreSQL
// the login is a server role with a SCRAM password and membership of this database's group
// role; type "Admin" may add logins itself, "User" may not. Throws UserExists, or DbError
// (PermissionDenied when the signed-in user may not add logins).
void addUser(core::Db& db, const QString& currentUser, const QString& name, const QString& password,
             const QString& type = QStringLiteral("Admin"));

// What "Add User" shows for a failure.
QString addUserFailureMessage(const core::DbError& error);

// Changes the login's password after checking the old one; the new one counts from the next
// login. A wrong old password throws DbError(LoginRefused).
void changePassword(core::Db& db, const QString& user, const QString& oldPassword,
                    const QString& newPassword);

} // namespace admin
