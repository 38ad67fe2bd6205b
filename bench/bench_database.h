#pragma once

// A demo organisation for a timing program, installed as the session connection, on the
// backend that QUILLORNE_BENCH_BACKEND names: postgres (reached through QUILLORNE_PG_*) or,
// otherwise, the embedded one. A PostgreSQL database is dropped again at the end.
#include "create_database.h"
#include "session.h"
#include "settings.h"

#include <QCoreApplication>
#include <QTemporaryDir>

class BenchDatabase {
public:
    BenchDatabase(const QString& name, int employees)
        : postgres_(qEnvironmentVariable("QUILLORNE_BENCH_BACKEND") == "postgres") {
        core::InstallSettings::configure(dir_.path() + "/q.ini", dir_.path());
        auto& settings = core::InstallSettings::instance();
        if (postgres_) {
            settings.setValue(core::InstallSettings::Server,
                              qEnvironmentVariable("QUILLORNE_PG_HOST") + ":" +
                                  qEnvironmentVariable("QUILLORNE_PG_PORT"));
            settings.setValue(
                core::InstallSettings::Database,
                QStringLiteral("%1_%2").arg(name).arg(QCoreApplication::applicationPid()));
            user_ = qEnvironmentVariable("QUILLORNE_PG_USER");
            password_ = qEnvironmentVariable("QUILLORNE_PG_PASSWORD");
        }
        admin::createDatabase(settings, user_, password_, employees);
        core::setDb(core::Db::open(settings.connectionParams(user_, password_), "bench"));
        core::session().language = "English (UK)";
    }

    ~BenchDatabase() {
        core::setDb(nullptr);
        if (!postgres_) return;
        auto p = core::InstallSettings::instance().connectionParams(user_, password_);
        const QString name = p.database;
        p.database = "postgres";
        auto admin = core::Db::open(p, "drop");
        admin->exec("DROP DATABASE IF EXISTS " + admin->quoteIdentifier(name) + " WITH (FORCE)");
    }

    BenchDatabase(const BenchDatabase&) = delete;
    BenchDatabase& operator=(const BenchDatabase&) = delete;

    const char* backend() const { return postgres_ ? "postgres" : "embedded"; }

private:
    QTemporaryDir dir_;
    bool postgres_;
    QString user_ = "sa";
    QString password_;
};
