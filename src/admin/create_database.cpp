#include "create_database.h"

#include "schema.h"

#include <QFileInfo>
#include <atomic>

namespace admin {

namespace {

std::unique_ptr<core::Db> openDatabase(const core::ConnectionParams& params) {
    static std::atomic<int> counter{0};
    return core::Db::open(params, QStringLiteral("admin-database-%1").arg(++counter));
}

// The description opens a sentence in the refusals.
QString capitalised(QString text) {
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

} // namespace

QString describeDatabase(const core::ConnectionParams& params) {
    if (params.backend == core::Backend::Sqlite)
        return QStringLiteral("the embedded database %1").arg(params.sqlitePath);
    return QStringLiteral("the PostgreSQL database %1 on %2:%3")
        .arg(params.database, params.host)
        .arg(params.port);
}

CreateReport createDatabase(core::InstallSettings& settings, const QString& user,
                            const QString& password, int demoEmployees, quint32 seed) {
    const core::ConnectionParams params = settings.connectionParams(user, password);
    CreateReport report;
    report.database = describeDatabase(params);
    if (params.backend == core::Backend::Postgres) core::schema::ensurePostgresDatabase(params);
    auto db = openDatabase(params);
    if (core::schema::holdsData(*db))
        throw CreateRefused(QStringLiteral("%1 already holds data; it has been left as it is.")
                                .arg(capitalised(report.database)));
    {
        // All or nothing: an interrupted run leaves an empty database to start again on.
        core::Transaction unit(*db);
        if (core::schema::isEmpty(*db)) {
            core::schema::create(*db);
            report.schemaCreated = true;
        }
        if (demoEmployees > 0) report.demo = generateDemoOrganisation(*db, demoEmployees, seed);
        unit.commit();
    }
    settings.setValue(core::InstallSettings::CleanInstall, "No");
    return report;
}

DemoSummary fillDemoDatabase(core::InstallSettings& settings, const QString& user,
                             const QString& password, int employees, quint32 seed) {
    const core::ConnectionParams params = settings.connectionParams(user, password);
    const QString database = describeDatabase(params);
    // Opening a missing embedded file would leave an empty one behind.
    if (params.backend == core::Backend::Sqlite && !QFileInfo::exists(params.sqlitePath))
        throw CreateRefused(
            QStringLiteral("%1 does not exist; create it first.").arg(capitalised(database)));
    auto db = openDatabase(params);
    if (core::schema::isEmpty(*db))
        throw CreateRefused(
            QStringLiteral("%1 has no tables yet; create it first.").arg(capitalised(database)));
    if (core::schema::holdsData(*db))
        throw CreateRefused(QStringLiteral("%1 already holds data; it has been left as it is.")
                                .arg(capitalised(database)));
    return generateDemoOrganisation(*db, employees, seed);
}

} // namespace admin
