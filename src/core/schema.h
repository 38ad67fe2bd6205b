#pragma once

#include "db.h"

namespace core::schema {

// Creates every table, index and seed row on a database that has none yet, from the one
// schema kept in the program's resources, in one transaction.
void create(Db& db);
// True when the database holds none of the program's tables.
bool isEmpty(Db& db);
// True when the database holds at least one employee, company or call: data that a clean
// install must never drop.
bool holdsData(Db& db);
// PostgreSQL: creates the database named in params if the server does not have it yet,
// connecting to the "postgres" maintenance database with the same login.
void ensurePostgresDatabase(const ConnectionParams& params);

} // namespace core::schema
