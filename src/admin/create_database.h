#pragma once

#include "demo_organisation.h"
#include "settings.h"

#include <QString>
#include <stdexcept>

namespace admin {

// A request that would overwrite or misuse a database; the message says which and why.
class CreateRefused : public std::runtime_error {
public:
    explicit CreateRefused(const QString& message)
        : std::runtime_error(message.toStdString())
        , message_(message) {}
    const QString& message() const { return message_; }

private:
    QString message_;
};

struct CreateReport {
    QString database;           // which database, in words
    bool schemaCreated = false; // false: the tables were there already, without data
    DemoSummary demo;           // empty unless a demo organisation was asked for
};

// "the embedded database /path/personnel.db" or "the PostgreSQL database personnel on host:port".
QString describeDatabase(const core::ConnectionParams& params);

// Makes the database that the installation settings name: the embedded file, or a PostgreSQL
// database on the server (created there if the server lacks it, with the given login). It
// gets the schema and seed rows and, when asked, a demo organisation; then the installation
// is no longer a clean install. A database that already holds employees, companies or calls
// is refused (CreateRefused) and left untouched. Database failures throw core::DbError.
CreateReport createDatabase(core::InstallSettings& settings, const QString& user,
                            const QString& password, int demoEmployees = 0, quint32 seed = 1);

// Fills the existing, still empty database that the settings name with a demo organisation.
// Refuses a database without the schema or with data.
DemoSummary fillDemoDatabase(core::InstallSettings& settings, const QString& user,
                             const QString& password, int employees, quint32 seed = 1);

} // namespace admin
