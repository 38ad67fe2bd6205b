#include "settings.h"

#include "ownerfiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QStringDecoder>
#include <optional>

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

namespace {
// A settings file that is there but cannot be read must not pass for a first start: that
// would make a new embedded database with a blank password beside the real one.
void checkReadable(const QString& file) {
    const QFileInfo info(file);
    if (!info.exists() && !info.isSymLink()) return;
    QFile f(file);
    if (info.isDir() || !f.open(QIODevice::ReadOnly))
        throw SettingsError(file,
                            info.isDir() ? QStringLiteral("it is a folder") : f.errorString());
    const QByteArray bytes = f.readAll();
    if (f.error() != QFileDevice::NoError) throw SettingsError(file, f.errorString());
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    if (utf8.hasError() || bytes.contains('\0'))
        throw SettingsError(file, QStringLiteral("it is not a text file of settings"));
}
} // namespace

namespace {
// The text after "key=" in the file's general section, as it stands in the file.
std::optional<QString> rawValue(const QString& file, const QString& key) {
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return std::nullopt;
    QString section;
    while (!f.atEnd()) {
        const QString line = QString::fromUtf8(f.readLine()).trimmed();
        if (line.startsWith('[') && line.endsWith(']')) {
            section = line.mid(1, line.size() - 2).trimmed();
            continue;
        }
        const qsizetype eq = line.indexOf('=');
        if (eq <= 0 || (!section.isEmpty() && section != "General")) continue;
        if (line.left(eq).trimmed() == key) return line.mid(eq + 1);
    }
    return std::nullopt;
}

// The settings writer escapes every quote inside a value, and quotes a value with a comma
// whole. A bare quote, or a bare comma, was typed by a person, who means it literally: the
// settings reader would drop the quote with the spaces around it, or read a list.
bool inWriterForm(const QString& raw) {
    QString s = raw.trimmed();
    const bool whole = s.size() >= 2 && s.startsWith('"') && s.endsWith('"');
    if (whole) s = s.mid(1, s.size() - 2);
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (s[i] == '\\')
            ++i;
        else if (s[i] == '"' || (s[i] == ',' && !whole))
            return false;
    }
    return true;
}
} // namespace

SettingsError::SettingsError(const QString& file, const QString& reason)
    : std::runtime_error(
          QStringLiteral("The settings file %1 cannot be read: %2").arg(file, reason).toStdString())
    , message_(QStringLiteral("The settings file %1 cannot be read: %2").arg(file, reason)) {}

InstallSettings::InstallSettings(QString file, QString data)
    : file_(std::move(file))
    , data_(std::move(data)) {
    checkReadable(file_);
    const auto typedStartCommand = rawValue(file_, ServerStartCommand);
    settings_ = std::make_unique<QSettings>(file_, QSettings::IniFormat);
    if (settings_->status() != QSettings::NoError)
        throw SettingsError(file_, QStringLiteral("its contents cannot be understood"));
    // A command typed into the file with its quotes is kept as typed, and written back in the
    // writer's own quoting before the file is next saved (which would store it mangled).
    if (typedStartCommand && !inWriterForm(*typedStartCommand))
        settings_->setValue(ServerStartCommand, typedStartCommand->trimmed());
    for (const QString& folder :
         {QFileInfo(file_).absolutePath(), data_, logFolder(), backupFolder()}) {
        QString why;
        if (!makeOwnerFolder(folder, &why))
            throw SettingsError(file_, QStringLiteral("the folder cannot be made: %1").arg(why));
    }
    writeDefaults();
    tightenFiles();
}

void InstallSettings::tightenFiles() const {
    // Installations made before files were kept to their owner are tightened at each start.
    const QString db = embeddedDatabasePath();
    for (const QString& path : {file_, data_, logFolder(), backupFolder(), db, db + "-wal",
                                db + "-shm", db + "-journal", logFolder() + "/errlog.txt"})
        restrictToOwner(path);
    const QDir backups(backupFolder());
    for (const QFileInfo& f : backups.entryInfoList(QDir::Files | QDir::Hidden | QDir::System))
        restrictToOwner(f.absoluteFilePath());
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
    sync();
}

QString InstallSettings::value(const QString& key) const {
    return settings_->value(key).toString();
}

void InstallSettings::setValue(const QString& key, const QString& value) {
    settings_->setValue(key, value);
    sync();
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
    restrictToOwner(file_);
}

} // namespace core
