#pragma once

#include "db.h"

namespace core {

// Embedded databases keep their logins in the table "logins" with Argon2id hashes.
QString hashPassword(const QString& password);
bool verifyPassword(const QString& hash, const QString& password);

// Throws DbError(LoginRefused) unless the login exists with this password.
void verifyEmbeddedLogin(Db& db, const QString& user, const QString& password);
// Adds or replaces an embedded login.
void setEmbeddedLogin(Db& db, const QString& user, const QString& password);

} // namespace core
