#pragma once

#include "db.h"

#include <QSettings>
#include <QString>
#include <memory>
#include <stdexcept>

namespace core {

// A settings file that exists but cannot be read or understood; nothing has been created.
class SettingsError : public std::runtime_error {
public:
    SettingsError(const QString& file, const QString& reason);
    const QString& message() const { return message_; }

private:
    QString message_;
};

// The installation's own settings (an INI file on Linux). Values keep the names the
// installations have always had: _Server, _Database, LastBackup, CleanInstall, Version, Revision.
class InstallSettings {
public:
    static constexpr const char* Server = "_Server";
    static constexpr const char* Database = "_Database";
    static constexpr const char* LastBackup = "LastBackup";
    static constexpr const char* CleanInstall = "CleanInstall";
    static constexpr const char* Version = "Version";
    static constexpr const char* Revision = "Revision";
    static constexpr const char* SupportAddress = "SupportAddress";
    static constexpr const char* ServerStartCommand = "ServerStartCommand";
    static constexpr const char* NeverBackedUp = "00/00/0000";

    // Chooses the settings file and the data folder. Empty arguments fall back to
    // QUILLORNE_SETTINGS / QUILLORNE_DATA, then to the user's standard folders. Throws
    // SettingsError when the file is there but cannot be read; folders are made owner-only.
    static void configure(const QString& settingsFile = {}, const QString& dataFolder = {});
    static InstallSettings& instance();

    QString value(const QString& key) const;
    void setValue(const QString& key, const QString& value);

    QString server() const { return value(Server).trimmed(); }
    QString database() const { return value(Database).trimmed(); }
    QString lastBackup() const { return value(LastBackup); }
    QString cleanInstall() const { return value(CleanInstall); }
    QString version() const { return value(Version); }
    QString revision() const { return value(Revision); }
    QString supportAddress() const { return value(SupportAddress); }
    // Read back exactly as written: by this program (which quotes it) or by hand, as it would
    // be typed at a shell prompt, quotes and all.
    QString serverStartCommand() const { return value(ServerStartCommand); }

    // An empty server, or "Localhost", is the embedded database.
    bool isEmbedded() const;
    // The embedded database's file in the data folder.
    QString embeddedDatabasePath() const;
    // How to reach the database with the given login.
    ConnectionParams connectionParams(const QString& user, const QString& password) const;

    QString settingsFile() const { return file_; }
    QString dataFolder() const { return data_; }
    QString logFolder() const;
    QString backupFolder() const;

    void sync();
    // Makes the settings file, the data, log and backup folders, the embedded database and
    // the error log and backups owner-only, as they may date from before this was done.
    void tightenFiles() const;

private:
    InstallSettings(QString file, QString data);
    void writeDefaults();

    QString file_;
    QString data_;
    std::unique_ptr<QSettings> settings_;
};

} // namespace core
