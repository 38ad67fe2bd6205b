#pragma once

#include "db.h"
#include "loginthrottle.h"

#include <QString>
#include <functional>
#include <memory>

class QWidget;

namespace core {
class frmLogin;
}

// The start-up routine: reads the installation settings, makes the database on a clean
// install, signs the user in, loads the options into the session state and raises the day's
// reminders. Log off runs it again in the same process, so every step is safe to repeat.
// It knows no main window: whoever runs it (main) owns the sequence and tells the window
// what the session allows once it is open (session().restoremode).
class Startup {
public:
    struct Hooks {
        // Starts the database server when it cannot be reached; the configured command by
        // default, started detached and left.
        std::function<void(const QString& command)> startServer;
        // The clock of the login throttle; the system's when none is given.
        core::ThrottleClock* clock = nullptr;
    };

    // The window is only the parent of the login and the boxes.
    explicit Startup(QWidget* window);
    Startup(QWidget* window, Hooks hooks);
    ~Startup();

    // Employees of the demo organisation that a clean install fills in (0: none).
    void setDemoEmployees(int employees) { demoEmployees_ = employees; }

    // Returns true when a session is open (in restore mode when the login asked for it);
    // false when the login was cancelled or the database
    // gave four failures, in which case the caller ends the program.
    bool run();

    // The server start command as configured, started detached.
    static void startServerDetached(const QString& command);

private:
    bool cleanInstallEmbedded();
    bool cleanInstall(core::Db& db);
    std::unique_ptr<core::Db> connect(const QString& user, const QString& password);
    bool countFailure(const core::DbError& error);
    // Ends the start: the database message, the cause in a line, and where the log is.
    void databaseProblem(const core::DbError& error);
    void loadOptions(core::Db& db);
    void firstAiderReminders(core::Db& db);
    void backupReminder();
    void askRegional(core::Db& db);
    // New-employee entries that a killed program left half done.
    void removeAbandonedEntries(core::Db& db);

    QWidget* window_;
    Hooks hooks_;
    core::LoginThrottle throttle_;
    int demoEmployees_ = 0;
    bool pendingCleanInstall_ = false;
    bool failed_ = false;
};

// The reminders' date rules, apart from the boxes that show them.
namespace startuprules {
// "There is a problem with the database. Please contact {support} for more information",
// then the cause on one line and the path of the error log.
QString databaseProblemText(const QString& supportAddress, const QString& cause,
                            const QString& logPath);
// The reminder starts one month before the due date (test date + length months).
bool checkDue(const QDate& lastTest, int lengthMonths, const QDate& today);
// A first aider is reminded once 35 months have passed since qualifying.
bool refresherDue(const QDate& qualified, const QDate& today);
// "00/00/0000" is never; otherwise due when last backup + days lies before today (0: never).
enum class BackupReminder { None, Never, Overdue };
BackupReminder backupReminder(const QString& lastBackup, int intervalDays, const QDate& today);
} // namespace startuprules
