#pragma once

#include "db.h"

#include <QTemporaryDir>
#include <memory>

namespace testsupport {

// The backend under test: QUILLORNE_TEST_BACKEND=postgres, otherwise the embedded one.
core::Backend backendUnderTest();
bool testingPostgres();

// The throwaway PostgreSQL server's administrator login (QUILLORNE_PG_HOST, _PORT, _USER,
// _PASSWORD), connected to its maintenance database.
core::ConnectionParams postgresAdminParams();

// Points the installation settings and the data folder at a temporary folder, so that
// nothing a test does reaches the user's own installation.
class TempInstall {
public:
    TempInstall();
    ~TempInstall();
    QString path() const { return dir_.path(); }

private:
    QTemporaryDir dir_;
};

// A fresh database with the schema and seed rows on the backend under test, installed as
// the session connection, inside a temporary installation (settings and data folder) of its
// own; the settings already point at it. Made by copying a template built once per test program by
// the program's own schema code. The embedded one has the login "sa" with a blank password.
class TestDatabase {
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    core::Db& db();
    // How to reach this database as the administrator (PostgreSQL) or the file (embedded).
    core::ConnectionParams params() const { return params_; }
    // Opens another connection of its own to this database.
    std::unique_ptr<core::Db> openSecond(const QString& connectionName) const;

    QString installPath() const { return install_.path(); }

private:
    TempInstall install_;
    core::ConnectionParams params_;
};

} // namespace testsupport
