#include "testdb.h"

#include "schema.h"
#include "session.h"
#include "settings.h"

#include <QCoreApplication>
#include <QFile>
#include <QUuid>

namespace testsupport {

using core::Backend;
using core::ConnectionParams;
using core::Db;

core::Backend backendUnderTest() {
    return qEnvironmentVariable("QUILLORNE_TEST_BACKEND")
                       .compare("postgres", Qt::CaseInsensitive) == 0
               ? Backend::Postgres
               : Backend::Sqlite;
}

bool testingPostgres() {
    return backendUnderTest() == Backend::Postgres;
}

ConnectionParams postgresAdminParams() {
    ConnectionParams p;
    p.backend = Backend::Postgres;
    p.host = qEnvironmentVariable("QUILLORNE_PG_HOST", "127.0.0.1");
    p.port = qEnvironmentVariable("QUILLORNE_PG_PORT", "5432").toInt();
    p.user = qEnvironmentVariable("QUILLORNE_PG_USER", "postgres");
    p.password = qEnvironmentVariable("QUILLORNE_PG_PASSWORD");
    p.database = "postgres";
    return p;
}

TempInstall::TempInstall() {
    core::InstallSettings::configure(dir_.path() + "/quillorne.ini", dir_.path() + "/data");
}

TempInstall::~TempInstall() {
    core::InstallSettings::configure(dir_.path() + "/gone.ini", dir_.path() + "/gone");
}

namespace {

QString templateName() {
    return QStringLiteral("qtpl_%1_%2")
        .arg(QCoreApplication::applicationPid())
        .arg(QUuid::createUuid().toString(QUuid::Id128).left(8));
}

// Built once per test program; removed when the program ends.
struct Template {
    QString sqliteFile;
    QString pgName;
    std::unique_ptr<QTemporaryDir> dir;

    // Runs while the application object ends, when the SQL drivers are still there.
    static void drop();
};

Template& sharedTemplate() {
    static Template t;
    if (!t.sqliteFile.isEmpty() || !t.pgName.isEmpty()) return t;
    if (testingPostgres()) {
        const QString name = templateName();
        {
            auto admin = Db::open(postgresAdminParams(), "tpl-admin");
            admin->exec("CREATE DATABASE " + admin->quoteIdentifier(name));
        }
        ConnectionParams p = postgresAdminParams();
        p.database = name;
        {
            auto db = Db::open(p, "tpl-build");
            core::schema::create(*db);
        }
        t.pgName = name;
        qAddPostRoutine(&Template::drop);
    } else {
        t.dir = std::make_unique<QTemporaryDir>();
        const QString file = t.dir->path() + "/template.db";
        ConnectionParams p;
        p.backend = Backend::Sqlite;
        p.sqlitePath = file;
        {
            auto db = Db::open(p, "tpl-build");
            core::schema::create(*db);
            db->exec("PRAGMA wal_checkpoint(TRUNCATE)");
            db->query("PRAGMA journal_mode = DELETE");
        }
        t.sqliteFile = file;
    }
    return t;
}

int counter = 0;

void Template::drop() {
    Template& t = sharedTemplate();
    if (t.pgName.isEmpty())
        return;
    try {
        auto admin = Db::open(postgresAdminParams(), "tpl-drop");
        admin->exec("DROP DATABASE IF EXISTS " + admin->quoteIdentifier(t.pgName) +
                    " WITH (FORCE)");
    } catch (...) {
    }
    t.pgName.clear();
}

} // namespace

TestDatabase::TestDatabase() {
    Template& tpl = sharedTemplate();
    if (testingPostgres()) {
        const QString name =
            QStringLiteral("qt_%1_%2").arg(QCoreApplication::applicationPid()).arg(++counter);
        {
            auto admin = Db::open(postgresAdminParams(), "test-admin");
            admin->exec("DROP DATABASE IF EXISTS " + admin->quoteIdentifier(name));
            admin->exec("CREATE DATABASE " + admin->quoteIdentifier(name) + " TEMPLATE " +
                        admin->quoteIdentifier(tpl.pgName));
        }
        params_ = postgresAdminParams();
        params_.database = name;
        auto& s = core::InstallSettings::instance();
        s.setValue(core::InstallSettings::Server,
                   QStringLiteral("%1:%2").arg(params_.host).arg(params_.port));
        s.setValue(core::InstallSettings::Database, params_.database);
    } else {
        auto& s = core::InstallSettings::instance();
        s.setValue(core::InstallSettings::Server, "");
        s.setValue(core::InstallSettings::Database, "personnel");
        params_.backend = Backend::Sqlite;
        params_.database = "personnel";
        params_.sqlitePath = s.embeddedDatabasePath();
        QFile::copy(tpl.sqliteFile, params_.sqlitePath);
        QFile::setPermissions(params_.sqlitePath, QFile::ReadOwner | QFile::WriteOwner);
        params_.user = "sa";
    }
    // The database is made: a start-up against this installation must keep it.
    core::InstallSettings::instance().setValue(core::InstallSettings::CleanInstall, "No");
    core::setDb(Db::open(params_, "session"));
}

TestDatabase::~TestDatabase() {
    core::setDb(nullptr);
    if (params_.backend == Backend::Postgres) {
        try {
            auto admin = Db::open(postgresAdminParams(), "test-admin");
            admin->exec("DROP DATABASE IF EXISTS " + admin->quoteIdentifier(params_.database) +
                        " WITH (FORCE)");
        } catch (...) {
        }
    }
}

Db& TestDatabase::db() {
    return core::db();
}

std::unique_ptr<Db> TestDatabase::openSecond(const QString& connectionName) const {
    return Db::open(params_, connectionName);
}

} // namespace testsupport
