#include "settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace core {

namespace {
std::unique_ptr<InstallSettings>& current() {
    static std::unique_ptr<InstallSettings> s;
    return s;
}

QString defaultDataFolder() {
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (base.isEmpty()) base = QDir::homePath() + "/.local/share";
    return base + "/Quillorne";
}

QString defaultSettingsFile() {
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (base.isEmpty()) base = QDir::homePath() + "/.config";
    return base + "/Quillorne/quillorne.ini";
}
} // namespace

InstallSettings::InstallSettings(QString file, QString data)
    : file_(std::move(file))
    , data_(std::move(data))
    , settings_(std::make_unique<QSettings>(file_, QSettings::IniFormat)) {
    QDir().mkpath(QFileInfo(file_).absolutePath());
    QDir().mkpath(data_);
    QDir().mkpath(logFolder());
    QDir().mkpath(backupFolder());
    writeDefaults();
}

void InstallSettings::configure(const QString& settingsFile, const QString& dataFolder) {
    QString file = settingsFile;
    if (file.isEmpty()) file = qEnvironmentVariable("QUILLORNE_SETTINGS");
    if (file.isEmpty()) file = defaultSettingsFile();
    QString data = dataFolder;
    if (data.isEmpty()) data = qEnvironmentVariable("QUILLORNE_DATA");
    if (data.isEmpty()) data = defaultDataFolder();
    current().reset(new InstallSettings(QDir::cleanPath(QDir().absoluteFilePath(file)),
                                        QDir::cleanPath(QDir().absoluteFilePath(data))));
}

InstallSettings& InstallSettings::instance() {
    if (!current()) configure();
    return *current();
}

void InstallSettings::writeDefaults() {
    // A first start finds no file: it is an installation that has not made its database yet.
    const std::pair<const char*, const char*> defaults[] = {
        {Server, ""},
        {Database, "personnel"},
        {LastBackup, NeverBackedUp},
        {CleanInstall, "Yes"},
        {Version, "1.0"},
        {Revision, "0"},
        {SupportAddress, "your system administrator"},
        {ServerStartCommand, ""},
    };
    for (const auto& [key, value] : defaults)
        if (!settings_->contains(key)) settings_->setValue(key, QString::fromUtf8(value));
    settings_->sync();
}

QString InstallSettings::value(const QString& key) const {
    return settings_->value(key).toString();
}

void InstallSettings::setValue(const QString& key, const QString& value) {
    settings_->setValue(key, value);
    settings_->sync();
}

bool InstallSettings::isEmbedded() const {
    const QString s = server();
    return s.isEmpty() || s.compare("Localhost", Qt::CaseInsensitive) == 0;
}

QString InstallSettings::embeddedDatabasePath() const {
    const QString name = database().isEmpty() ? QStringLiteral("personnel") : database();
    return data_ + '/' + name + ".db";
}

ConnectionParams InstallSettings::connectionParams(const QString& user,
                                                   const QString& password) const {
    ConnectionParams p;
    p.user = user;
    p.password = password;
    p.database = database().isEmpty() ? QStringLiteral("personnel") : database();
    if (isEmbedded()) {
        p.backend = Backend::Sqlite;
        p.sqlitePath = embeddedDatabasePath();
        return p;
    }
    p.backend = Backend::Postgres;
    // "host" or "host:port"
    const QString s = server();
    const int colon = s.lastIndexOf(':');
    bool ok = false;
    const int port = colon > 0 ? s.mid(colon + 1).toInt(&ok) : 0;
    p.host = ok ? s.left(colon) : s;
    p.port = ok ? port : 5432;
    return p;
}

QString InstallSettings::logFolder() const {
    return data_ + "/log";
}

QString InstallSettings::backupFolder() const {
    return data_ + "/backups";
}

void InstallSettings::sync() {
    settings_->sync();
}

} // namespace core
