#pragma once

#include "db.h"

namespace core {

// Embedded databases keep their logins in the table "logins" with Argon2id hashes.
QString hashPassword(const QString& password);
bool verifyPassword(const QString& hash, const QString& password);

// Throws DbError(LoginRefused) unless the login exists with this password.
void verifyEmbeddedLogin(Db& db, const QString& user, const QString& password);
// A name or password no login can have: control characters (a NUL ends the text on its way to
// the server), or on PostgreSQL a name longer than a role name can be (a name of thousands of
// characters breaks the connection instead of being refused). Such input is a refused login.
bool impossibleLogin(const QString& user, const QString& password, Backend backend);

// Adds or replaces an embedded login.
void setEmbeddedLogin(Db& db, const QString& user, const QString& password);

} // namespace core
