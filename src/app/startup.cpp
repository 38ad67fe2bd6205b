#include "startup.h"

#include "dbfile.h"
#include "demo_organisation.h"
#include "errorlog.h"
#include "failure.h"
#include "frmlogin.h"
#include "frmregional.h"
#include "logins.h"
#include "messagebox.h"
#include "modal.h"
#include "person_record.h"
#include "regional.h"
#include "schema.h"
#include "session.h"
#include "settings.h"
#include "waitpanels.h"

#include <QApplication>
#include <QDateTime>
#include <QLineEdit>
#include <QProcess>

using core::Db;
using core::DbError;
using core::DbErrorKind;
using core::InstallSettings;
using core::msgbox;
using core::session;

namespace startuprules {

QString databaseProblemText(const QString& supportAddress, const QString& cause,
                            const QString& logPath) {
    QString oneLine = cause.simplified();
    return QStringLiteral("There is a problem with the database. Please contact %1 for more "
                          "information\n%2\nThe error log is %3")
        .arg(supportAddress, oneLine, logPath);
}

bool checkDue(const QDate& lastTest, int lengthMonths, const QDate& today) {
    return lengthMonths != 0 && lastTest.isValid() && lastTest.addMonths(lengthMonths - 1) < today;
}

bool refresherDue(const QDate& qualified, const QDate& today) {
    return qualified.isValid() && qualified.addMonths(35) < today;
}

BackupReminder backupReminder(const QString& lastBackup, int intervalDays, const QDate& today) {
    if (lastBackup.trimmed() == InstallSettings::NeverBackedUp) return BackupReminder::Never;
    if (intervalDays == 0) return BackupReminder::None;
    const QDate last = core::parseDate(lastBackup);
    if (last.isValid() && last.addDays(intervalDays) < today) return BackupReminder::Overdue;
    return BackupReminder::None;
}

} // namespace startuprules

namespace {

constexpr int FailureLimit = 4;

// Reads an integer option; a NULL or a text that is no number is a failure of the pass.
int integerOption(const QVariant& v, const char* column) {
    bool ok = false;
    const int n = v.isNull() ? 0 : v.toString().trimmed().toInt(&ok);
    if (!ok)
        throw DbError(DbErrorKind::Other,
                      QStringLiteral("Invalid use of Null in options.%1").arg(column));
    return n;
}

} // namespace

Startup::Startup(QWidget* window)
    : Startup(window, Hooks{}) {}

Startup::Startup(QWidget* window, Hooks hooks)
    : window_(window)
    , hooks_(std::move(hooks))
    , throttle_(hooks_.clock ? *hooks_.clock : core::systemClock()) {
    if (!hooks_.startServer) hooks_.startServer = &Startup::startServerDetached;
}

Startup::~Startup() = default;

void Startup::startServerDetached(const QString& command) {
    QStringList args = QProcess::splitCommand(command);
    if (args.isEmpty()) return;
    const QString program = args.takeFirst();
    QProcess::startDetached(program, args);
}

bool Startup::countFailure(const DbError& error) {
    auto& s = session();
    if (++s.startuperrorcount >= FailureLimit) {
        databaseProblem(error);
        return false;
    }
    core::logerror(error.number(), error.description(), "Login");
    return true;
}

void Startup::databaseProblem(const DbError& error) {
    core::logerror(error.number(), error.description(), "Login");
    msgbox(startuprules::databaseProblemText(InstallSettings::instance().supportAddress(),
                                             error.description(), core::errorLogPath()),
           "Database Error");
    failed_ = true;
}

bool Startup::cleanInstall(Db& db) {
    // An existing database that holds data is kept: only an empty one is filled. The schema
    // and its demo are one unit: a start interrupted half way leaves nothing behind, and the
    // next start, still a clean install, does it all again. A database left with the tables
    // but no rows by an older version gets its demo then.
    {
        core::Transaction unit(db);
        if (core::schema::isEmpty(db)) core::schema::create(db);
        if (demoEmployees_ > 0 && !core::schema::holdsData(db))
            admin::generateDemoOrganisation(db, demoEmployees_);
        unit.commit();
    }
    InstallSettings::instance().setValue(InstallSettings::CleanInstall, "No");
    session().askregional = true;
    return true;
}

bool Startup::cleanInstallEmbedded() {
    auto& settings = InstallSettings::instance();
    try {
        auto db = Db::open(settings.connectionParams("sa", ""), "clean-install");
        return cleanInstall(*db);
    } catch (const DbError& e) {
        databaseProblem(e);
        return false;
    }
}

std::unique_ptr<Db> Startup::connect(const QString& user, const QString& password) {
    auto& settings = InstallSettings::instance();
    const core::ConnectionParams params = settings.connectionParams(user, password);
    if (core::impossibleLogin(user, password, params.backend))
        throw DbError(DbErrorKind::LoginRefused, "No login has such a name or password");
    if (params.backend == core::Backend::Sqlite) {
        // SQLite would take a missing or empty file for a new database.
        const QString problem = core::embeddedDatabaseProblem(params.sqlitePath);
        if (!problem.isEmpty()) throw DbError(DbErrorKind::PermissionDenied, problem);
    }
    if (params.backend == core::Backend::Postgres && pendingCleanInstall_)
        core::schema::ensurePostgresDatabase(params);
    // A connection name of its own: the session's present connection stays until this one is in.
    static int attempt = 0;
    std::unique_ptr<core::Form2> wait;
    if (params.backend == core::Backend::Postgres) {
        // A server that does not answer takes the connect timeout: say that work is going on.
        wait = std::make_unique<core::Form2>(window_);
        wait->show();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    auto db = Db::open(params, QStringLiteral("session-%1").arg(++attempt));
    if (params.backend == core::Backend::Sqlite) core::verifyEmbeddedLogin(*db, user, password);
    if (params.backend == core::Backend::Postgres && pendingCleanInstall_) {
        cleanInstall(*db);
        pendingCleanInstall_ = false;
    }
    return db;
}

bool Startup::run() {
    auto& s = session();
    auto& settings = InstallSettings::instance();
    s.startuperrorcount = 0;
    s.askregional = false;
    failed_ = false;

    s.servername = settings.server();
    s.databasename = settings.database();
    s.lastbackup = settings.lastBackup();
    pendingCleanInstall_ = settings.cleanInstall() == "Yes";
    if (pendingCleanInstall_ && settings.isEmbedded()) {
        if (!cleanInstallEmbedded()) return false;
        pendingCleanInstall_ = false;
    }

    s.restoremode = false;
    core::frmLogin login(window_);
    std::unique_ptr<Db> db;
    while (!db) {
        // Cancel, Esc and the close button all end the program; none of them signs in.
        if (core::showModal(login) != QDialog::Accepted || login.logout) return false;
        // A refused login starts the count again; an unreachable server with a start command
        // is started and the connection tried again at once, without asking for the password
        // again. Any other failure will not mend by trying again: it ends the start at once.
        s.startuperrorcount = 0;
        while (!db) {
            throttle_.beforeAttempt();
            try {
                db = connect(login.username(), login.Password());
            } catch (const DbError& e) {
                if (e.kind() == DbErrorKind::LoginRefused) {
                    throttle_.refused(login.username());
                    msgbox("Incorrect username or password, please try again");
                    break;
                }
                const bool startable = e.kind() == DbErrorKind::Unreachable &&
                                       !settings.isEmbedded() &&
                                       !settings.serverStartCommand().trimmed().isEmpty();
                if (!startable) {
                    databaseProblem(e);
                    return false;
                }
                if (!countFailure(e)) return false;
                hooks_.startServer(settings.serverStartCommand());
            }
        }
    }
    throttle_.accepted();
    s.currentuser = login.username();

    loadOptions(*db);
    if (failed_) return false;
    firstAiderReminders(*db);
    if (failed_) return false;

    s.restoremode = login.restore;

    if (login.txtPassword->text().trimmed().isEmpty())
        msgbox("This account has a blank password. You should change the password for security "
               "reasons");

    backupReminder();
    if (s.askregional) askRegional(*db);
    removeAbandonedEntries(*db);

    // Screens still open go on with the new connection from here.
    core::setDb(nullptr);
    core::setDb(std::move(db));
    return true;
}

void Startup::removeAbandonedEntries(Db& db) {
    // Once a process: after a log off this program's own screens may still hold entries.
    static const QDateTime processStart = QDateTime::currentDateTime();
    static bool done = false;
    if (done) return;
    done = true;
    core::guarded("Login", [&] { personnel::removeAbandonedProvisionalPeople(db, processStart); });
}

void Startup::loadOptions(Db& db) {
    auto& s = session();
    std::optional<QSqlRecord> row;
    try {
        row = db.row("SELECT * FROM options");
    } catch (const DbError& e) {
        countFailure(e);
        return;
    }
    if (!row) return;
    // Each value that cannot be read leaves its variable as it was and counts as a failure.
    const auto read = [&](auto&& step) {
        if (failed_) return;
        try {
            step();
        } catch (const DbError& e) {
            countFailure(e);
        }
    };
    read([&] { s.NoDaysAbsence = integerOption(row->value("NoDaysAbsence"), "NoDaysAbsence"); });
    read([&] { s.baserate = integerOption(row->value("baserate"), "baserate"); });
    read([&] { s.SickBeforeDoc = integerOption(row->value("SickBeforeDoc"), "SickBeforeDoc"); });
    if (const QDate d = Db::toDate(row->value("fireexttest")); d.isValid()) s.fireexttest = d;
    if (const QDate d = Db::toDate(row->value("pattest")); d.isValid()) s.pattest = d;
    bool ok = false;
    if (int n = row->value("firelength").toString().trimmed().toInt(&ok); ok) s.firelength = n;
    if (int n = row->value("patlength").toString().trimmed().toInt(&ok); ok) s.patlength = n;
    read([&] { s.nodaysbackup = integerOption(row->value("nodaysbackup"), "nodaysbackup"); });
    if (failed_) return;

    const QDate today = QDate::currentDate();
    s.language = Db::text(row->value("language")).trimmed();
    if (startuprules::checkDue(s.fireexttest, s.firelength, today))
        msgbox(QStringLiteral("Information! The date for the fire extinguisher check is %1")
                   .arg(core::formatDate(s.fireexttest.addMonths(s.firelength))));
    if (startuprules::checkDue(s.pattest, s.patlength, today))
        msgbox(QStringLiteral("Information! The due date for the next PAT check is %1")
                   .arg(core::formatDate(s.pattest.addMonths(s.patlength))));
}

void Startup::firstAiderReminders(Db& db) {
    const QDate today = QDate::currentDate();
    try {
        QSqlQuery q = db.query("SELECT firstnames, Person_ID, surname, firstaiderdate FROM Person "
                               "WHERE blndeleted <> 1 AND HasLeft = 0 AND firstaider = 1");
        while (q.next()) {
            const QDate qualified = Db::toDate(q.value(3));
            if (!startuprules::refresherDue(qualified, today)) continue;
            msgbox(QStringLiteral("Employee : %1, %2 is a first aider and requires a refresher "
                                  "course before %3")
                       .arg(Db::text(q.value(2)).trimmed(), Db::text(q.value(0)).trimmed(),
                            core::formatDate(qualified.addMonths(36))));
        }
    } catch (const DbError& e) {
        countFailure(e);
    }
}

void Startup::backupReminder() {
    const auto& s = session();
    switch (startuprules::backupReminder(s.lastbackup, s.nodaysbackup, QDate::currentDate())) {
    case startuprules::BackupReminder::Never:
        msgbox("This software has never been backed up. It is advisable to backup regularly");
        break;
    case startuprules::BackupReminder::Overdue:
        msgbox(QStringLiteral("The lastbackup date was %1. It is advisable to backup regularly")
                   .arg(s.lastbackup));
        break;
    case startuprules::BackupReminder::None:
        break;
    }
}

void Startup::askRegional(Db& db) {
    core::frmRegional dialog(window_);
    core::showModal(dialog);
    const QString language = dialog.choice();
    core::guarded("Select Country Settings",
                  [&] { db.exec("UPDATE options SET language = ?", {language}); });
    session().language = language;
}
