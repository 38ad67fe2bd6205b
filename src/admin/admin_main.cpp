// quillorne-admin: makes the database an installation's settings name, with or without a
// demo organisation, from the command line.

#include "console_backup.h"
#include "create_database.h"
#include "dberror.h"
#include "installation.h"
#include "ownerfiles.h"
#include "password_source.h"
#include "settings.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTextStream>
#include <optional>

namespace {

QTextStream& out() {
    static QTextStream s(stdout);
    return s;
}

QTextStream& err() {
    static QTextStream s(stderr);
    return s;
}

const char* const Usage = R"(Usage:
  quillorne-admin create [--demo N] [--seed S] [options]
      Creates the database named by the installation settings, with the schema and seed
      rows, and marks the installation as set up. With --demo, fills it with a made-up
      organisation of N employees. A database that already holds data is left alone.
  quillorne-admin demo N [--seed S] [options]
      Fills the existing, empty database with a made-up organisation of N employees.
  quillorne-admin backup FILE [--description TEXT] [options]
      Writes a backup of the database to FILE (a .dat file) while the program may be in
      use, and adds it to the backup log, as Backup/Restore does.
  quillorne-admin restore FILE [options]
      Replaces the database with the backup in FILE. The file is checked first; a restore
      that cannot finish leaves the database as it was.

Options:
  --settings FILE   the installation settings file (default: QUILLORNE_SETTINGS, then the
                    user's configuration folder)
  --data DIR        the data folder, home of the embedded database
  --user NAME       PostgreSQL login; its password comes from QUILLORNE_PASSWORD, from
                    --password-file, or else is asked for on the terminal without echo
  --password-file FILE
                    a file whose first line is the password (keep it owner-only)
  --seed S          seed of the demo organisation (default 1); the same seed gives the same
                    organisation
  -h, --help        this text
  -v, --version     the version of Quillorne
)";

std::optional<int> count(const QString& text) {
    bool ok = false;
    const int n = text.toInt(&ok);
    if (!ok || n < 0) return std::nullopt;
    return n;
}

void printSummary(const admin::DemoSummary& demo, qint64 ms) {
    out() << QStringLiteral(
                 "Demo organisation: %1 employees in %2 companies, %3 rows (%4 ms in all).\n")
                 .arg(demo.employees)
                 .arg(demo.companies)
                 .arg(demo.total())
                 .arg(ms);
    QStringList parts;
    for (const auto& [table, rows] : demo.tables)
        parts << QStringLiteral("%1 %2").arg(table).arg(rows);
    out() << "  " << parts.join(", ") << '\n';
}

// Where the reports will take their templates from, so that an installation missing them is
// noticed when it is set up rather than at the first export.
void printTemplates() {
    const QStringList folders = core::templateFolders();
    for (const QString& folder : folders) {
        if (QDir(folder).entryList({"*.xltx"}, QDir::Files).isEmpty()) continue;
        out() << "Report templates: " << folder << '\n';
        return;
    }
    out() << "No report templates found in " << folders.join(", ") << ".\n";
}

int run(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption settingsOpt("settings", "settings file", "FILE");
    const QCommandLineOption dataOpt("data", "data folder", "DIR");
    const QCommandLineOption userOpt("user", "PostgreSQL login", "NAME");
    const QCommandLineOption passwordFileOpt("password-file", "PostgreSQL password file", "FILE");
    const QCommandLineOption demoOpt("demo", "demo employees", "N");
    const QCommandLineOption seedOpt("seed", "demo seed", "S", "1");
    const QCommandLineOption descriptionOpt("description", "backup description", "TEXT");
    const QCommandLineOption helpOpt(QStringList{"h", "help"}, "help");
    const QCommandLineOption versionOpt(QStringList{"v", "version"}, "version");
    parser.addOptions({settingsOpt, dataOpt, userOpt, passwordFileOpt, demoOpt, seedOpt,
                       descriptionOpt, helpOpt, versionOpt});
    if (!parser.parse(arguments)) {
        err() << parser.errorText() << "\n\n" << Usage;
        return 1;
    }
    if (parser.isSet(helpOpt)) {
        out() << Usage;
        return 0;
    }
    if (parser.isSet(versionOpt)) {
        out() << "quillorne-admin " << core::programVersion() << '\n';
        return 0;
    }
    const QStringList words = parser.positionalArguments();
    const QString command = words.value(0);
    bool ok = false;
    const quint32 seed = parser.value(seedOpt).toUInt(&ok);
    if (!ok) {
        err() << "The seed must be a whole number of 0 or more.\n";
        return 1;
    }
    int employees = 0;
    if (command == "create" && words.size() == 1) {
        if (parser.isSet(demoOpt)) {
            const auto n = count(parser.value(demoOpt));
            if (!n) {
                err() << "--demo needs a number of employees.\n";
                return 1;
            }
            employees = *n;
        }
    } else if (command == "demo" && words.size() == 2 && !parser.isSet(demoOpt)) {
        const auto n = count(words.at(1));
        if (!n || *n == 0) {
            err() << "demo needs a number of employees above 0.\n";
            return 1;
        }
        employees = *n;
    } else if ((command == "backup" || command == "restore") && words.size() == 2 &&
               !parser.isSet(demoOpt)) {
    } else {
        err() << Usage;
        return 1;
    }

    try {
        core::InstallSettings::configure(parser.value(settingsOpt), parser.value(dataOpt));
    } catch (const core::SettingsError& e) {
        err() << e.message() << '\n';
        return 1;
    }
    auto& settings = core::InstallSettings::instance();
    QString password;
    if (!settings.isEmbedded()) {
        if (parser.value(userOpt).isEmpty()) {
            err() << "The settings name the server " << settings.server()
                  << "; give its login with --user (the password through QUILLORNE_PASSWORD, "
                     "--password-file or the prompt).\n";
            return 1;
        }
        const admin::PasswordResult pw =
            admin::readPassword(parser.value(passwordFileOpt),
                                QStringLiteral("Password for %1: ").arg(parser.value(userOpt)));
        if (!pw.error.isEmpty()) {
            err() << pw.error << '\n';
            return 1;
        }
        password = pw.password;
    }

    if (command == "backup")
        return admin::consoleBackup(settings, parser.value(userOpt), password, words.at(1),
                                    parser.value(descriptionOpt), out(), err());
    if (command == "restore")
        return admin::consoleRestore(settings, parser.value(userOpt), password, words.at(1), out(),
                                     err());

    QElapsedTimer timer;
    timer.start();
    try {
        if (command == "create") {
            const admin::CreateReport report =
                admin::createDatabase(settings, parser.value(userOpt), password, employees, seed);
            out() << (report.schemaCreated
                          ? QStringLiteral("Created the tables and seed rows in %1.\n")
                          : QStringLiteral("%1 already had its tables, without data.\n"))
                         .arg(report.database);
            if (employees > 0) printSummary(report.demo, timer.elapsed());
            out() << "Installation settings " << settings.settingsFile()
                  << ": CleanInstall = No.\n";
            printTemplates();
        } else {
            const admin::DemoSummary demo =
                admin::fillDemoDatabase(settings, parser.value(userOpt), password, employees, seed);
            printSummary(demo, timer.elapsed());
        }
    } catch (const admin::CreateRefused& e) {
        err() << e.message() << '\n';
        return 1;
    } catch (const core::DbError& e) {
        err() << "Database error " << e.number() << ": " << e.description() << '\n';
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    core::ownerOnlyByDefault();
    QCoreApplication::setApplicationName("quillorne-admin");
    const int code = run(QCoreApplication::arguments());
    out().flush();
    err().flush();
    return code;
}
