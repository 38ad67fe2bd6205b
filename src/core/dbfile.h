#pragma once

#include <QString>

namespace core {

// Why the embedded database file cannot serve a session, in one line naming the file: missing,
// empty, not a database, cut short, or read-only (the file or its folder, which must take the
// -wal and -shm files). Empty when it can. Checked before the file is opened, since SQLite
// would take an empty or missing file for a new database and a read-only one without a word.
QString embeddedDatabaseProblem(const QString& path);

} // namespace core
