#include "errorlog.h"
#include "frmlogin.h"
#include "frmregional.h"
#include "logins.h"
#include "mdimain.h"
#include "schema.h"
#include "seams.h"
#include "session.h"
#include "settings.h"
#include "signin.h"
#include "startup.h"
#include "testdb.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QtTest>

using core::InstallSettings;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

const QString Refused = "Incorrect username or password, please try again";
const QString BlankPassword =
    "This account has a blank password. You should change the password for security reasons";
const QString NeverBackedUp =
    "This software has never been backed up. It is advisable to backup regularly";

QString goodUser(const TestDatabase& t) {
    return testsupport::testingPostgres() ? t.params().user : "sa";
}
QString goodPassword(const TestDatabase& t) {
    return testsupport::testingPostgres() ? t.params().password : QString();
}

// A person at the login dialog: types the name and password, maybe ticks Restore Mode, OK.
DialogDriver::Handler loginAs(const QString& user, const QString& password, bool restore = false) {
    return [=](QDialog& d) {
        auto& login = dynamic_cast<core::frmLogin&>(d);
        login.txtUserName->setText(user);
        login.txtPassword->setText(password);
        if (restore) login.Check1->setChecked(true);
        login.cmdOK->click();
        return int(QDialog::Accepted);
    };
}

DialogDriver::Handler chooseRegion(const QString& region) {
    return [=](QDialog& d) {
        auto& dialog = dynamic_cast<core::frmRegional&>(d);
        dialog.Combo1->setCurrentText(region);
        dialog.cmdOK->click();
        return dialog.result();
    };
}

void resetSession() {
    core::session() = core::SessionState{};
}

} // namespace

class TestStartup : public QObject {
    Q_OBJECT
private slots:
    void init() { resetSession(); }
    void refusedThenAccepted();
    void cancelEndsTheProgram();
    void apostrophesLogIn();
    void labelsTickRestoreModeButNeverUntick();
    void restoreModeGreysAndNextSessionRestores();
    void remindersFollowTheirDates_data();
    void remindersFollowTheirDates();
    void reminderRules_data();
    void reminderRules();
    void unreachableServerGivesUpAfterFourFailures();
    void cleanInstallMakesDatabaseAndAsksRegion();
    void cleanInstallKeepsExistingData();
    void interruptedFirstStartIsDoneAgain();
    void logoffKeepsOpenScreens();
    void cancelAfterLogoff_data();
    void cancelAfterLogoff();
};

void TestStartup::refusedThenAccepted() {
    TestDatabase t;
    core::setDb(nullptr);
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(goodUser(t), "wrong'password"));
    dialogs.then([&](QDialog& d) {
        auto& login = dynamic_cast<core::frmLogin&>(d);
        // The dialog comes back with what was typed.
        if (login.txtUserName->text() != goodUser(t) ||
            login.txtPassword->text() != "wrong'password")
            return int(QDialog::Rejected);
        return loginAs(goodUser(t), goodPassword(t))(d);
    });
    Startup startup(nullptr);
    QVERIFY(startup.run());
    QCOMPARE(dialogs.shown(), 2);
    QCOMPARE(boxes.count(Refused), 1);
    QVERIFY(core::hasDb());
    QCOMPARE(core::session().currentuser, goodUser(t));
    QCOMPARE(core::session().language, QString("English (UK)"));
    QCOMPARE(boxes.saw(BlankPassword), !testsupport::testingPostgres());
    QVERIFY(!core::session().restoremode);
}

void TestStartup::cancelEndsTheProgram() {
    TestDatabase t;
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then([](QDialog& d) {
        dynamic_cast<core::frmLogin&>(d).cmdCancel->click();
        return int(QDialog::Rejected);
    });
    Startup startup(nullptr, {});
    QVERIFY(!startup.run());
    QVERIFY(boxes.calls().isEmpty());
}

void TestStartup::apostrophesLogIn() {
    TestDatabase t;
    const QString user = QStringLiteral("O'Neil%1").arg(QCoreApplication::applicationPid());
    const QString password = "it's a 'secret'";
    std::unique_ptr<core::Db> admin;
    if (testsupport::testingPostgres()) {
        admin = core::Db::open(testsupport::postgresAdminParams(), "admin");
        admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(user));
        admin->exec("CREATE ROLE " + admin->quoteIdentifier(user) + " LOGIN PASSWORD " +
                    admin->quoteLiteral(password));
        t.db().exec("GRANT SELECT ON ALL TABLES IN SCHEMA public TO " +
                    t.db().quoteIdentifier(user));
    } else {
        core::setEmbeddedLogin(t.db(), user, password);
    }
    core::setDb(nullptr);
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(user, password));
    Startup startup(nullptr, {});
    QVERIFY(startup.run());
    QCOMPARE(core::session().currentuser, user);
    QVERIFY(!boxes.saw(Refused));
    core::setDb(nullptr);
    if (admin) {
        t.openSecond("revoke")->exec("REVOKE ALL ON ALL TABLES IN SCHEMA public FROM " +
                                     admin->quoteIdentifier(user));
        admin->exec("DROP ROLE " + admin->quoteIdentifier(user));
    }
}

void TestStartup::labelsTickRestoreModeButNeverUntick() {
    core::frmLogin login;
    QCOMPARE(login.txtUserName->text(), QString("sa"));
    const auto labels = login.findChildren<QLabel*>();
    QCOMPARE(labels.size(), 3);
    for (QLabel* label : labels) {
        login.Check1->setChecked(false);
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY2(login.Check1->isChecked(), qPrintable(label->text()));
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(login.Check1->isChecked());
    }
    // OK with the box clear leaves an earlier Restore Mode choice as it was.
    login.restore = true;
    login.Check1->setChecked(false);
    login.cmdOK->click();
    QVERIFY(login.restore);
    QVERIFY(!login.logout);
    login.cmdCancel->click();
    QVERIFY(login.logout);
}

void TestStartup::restoreModeGreysAndNextSessionRestores() {
    TestDatabase t;
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(goodUser(t), goodPassword(t), true));
    mdiMain window;
    Startup startup(&window);
    QVERIFY(signIn(startup, window));
    QVERIFY(core::isrestoremode());
    QVERIFY(!window.sessionItemsEnabled());
    // The reminders are still read before the session turns to restoring.
    QVERIFY(boxes.saw(NeverBackedUp));
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    QVERIFY(signIn(startup, window));
    QVERIFY(!core::isrestoremode());
    QVERIFY(window.sessionItemsEnabled());
}

void TestStartup::remindersFollowTheirDates_data() {
    QTest::addColumn<bool>("due");
    QTest::newRow("everything due") << true;
    QTest::newRow("nothing due") << false;
}

void TestStartup::remindersFollowTheirDates() {
    QFETCH(bool, due);
    TestDatabase t;
    auto& db = t.db();
    const QDate today = QDate::currentDate();
    // Fire test 12 months ago with a 12-month cycle is inside its last month; PAT likewise.
    const QDate fire = due ? today.addMonths(-11).addDays(-1) : today.addMonths(-6);
    const QDate pat = due ? today.addMonths(-6).addDays(-1) : today;
    db.exec("UPDATE options SET fireexttest = ?, firelength = ?, pattest = ?, patlength = ?, "
            "nodaysbackup = ?",
            {fire, 12, pat, due ? 7 : 0, 7});
    const QDate qualified = due ? today.addMonths(-35).addDays(-2) : today.addMonths(-34);
    db.insert("Person", "Person_ID",
              {{"firstnames", "Mary "},
               {"surname", "O'Hara "},
               {"firstaider", 1},
               {"firstaiderdate", qualified}});
    db.insert("Person", "Person_ID",
              {{"firstnames", "Left"},
               {"surname", "Early"},
               {"firstaider", 1},
               {"HasLeft", 1},
               {"firstaiderdate", today.addYears(-10)}});
    const QDate lastBackup = due ? today.addDays(-8) : today.addDays(-7);
    InstallSettings::instance().setValue(InstallSettings::LastBackup,
                                         lastBackup.toString("dd/MM/yyyy"));
    core::setDb(nullptr);

    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    Startup startup(nullptr, {});
    QVERIFY(startup.run());

    QStringList expected;
    if (due) {
        expected << "Information! The date for the fire extinguisher check is " +
                        fire.addMonths(12).toString("dd/MM/yyyy")
                 << "Information! The due date for the next PAT check is " +
                        pat.addMonths(7).toString("dd/MM/yyyy")
                 << "Employee : O'Hara, Mary is a first aider and requires a refresher course "
                    "before " +
                        qualified.addMonths(36).toString("dd/MM/yyyy");
    }
    if (!testsupport::testingPostgres()) expected << BlankPassword;
    if (due)
        expected << "The lastbackup date was " + lastBackup.toString("dd/MM/yyyy") +
                        ". It is advisable to backup regularly";
    QCOMPARE(boxes.texts(), expected);
    QCOMPARE(core::session().firelength, 12);
    QCOMPARE(core::session().nodaysbackup, 7);
}

void TestStartup::reminderRules_data() {
    QTest::addColumn<QDate>("last");
    QTest::addColumn<int>("months");
    QTest::addColumn<bool>("due");
    const QDate today(2026, 11, 22);
    QTest::newRow("11 months and a day") << QDate(2025, 12, 21) << 12 << true;
    QTest::newRow("exactly 11 months") << QDate(2025, 12, 22) << 12 << false;
    QTest::newRow("length 0 never") << QDate(2000, 1, 1) << 0 << false;
    QTest::newRow("no test date") << QDate() << 12 << false;
    QTest::newRow("one-month cycle, yesterday") << QDate(2026, 11, 21) << 1 << true;
    Q_UNUSED(today);
}

void TestStartup::reminderRules() {
    QFETCH(QDate, last);
    QFETCH(int, months);
    QFETCH(bool, due);
    const QDate today(2026, 11, 22);
    QCOMPARE(startuprules::checkDue(last, months, today), due);

    using startuprules::BackupReminder;
    core::session().language = "English (UK)";
    QCOMPARE(startuprules::backupReminder("00/00/0000", 0, today), BackupReminder::Never);
    QCOMPARE(startuprules::backupReminder("14/11/2026", 0, today), BackupReminder::None);
    QCOMPARE(startuprules::backupReminder("14/11/2026", 7, today), BackupReminder::Overdue);
    QCOMPARE(startuprules::backupReminder("15/11/2026", 7, today), BackupReminder::None);
    QVERIFY(startuprules::refresherDue(QDate(2023, 12, 21), today));
    QVERIFY(!startuprules::refresherDue(QDate(2023, 12, 22), today));
}

void TestStartup::unreachableServerGivesUpAfterFourFailures() {
    TestDatabase t;
    core::setDb(nullptr);
    auto& settings = InstallSettings::instance();
    if (testsupport::testingPostgres()) {
        settings.setValue(InstallSettings::Server, "127.0.0.1:1");
        settings.setValue(InstallSettings::ServerStartCommand, "/bin/true --start");
    } else {
        // A data folder that has gone away: the embedded file cannot be opened.
        settings.setValue(InstallSettings::Database, "../missing-folder/personnel");
    }
    settings.setValue(InstallSettings::SupportAddress, "help@example.org");
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    QStringList started;
    Startup startup(nullptr, {[&](const QString& command) { started << command; }});
    QVERIFY(!startup.run());
    QCOMPARE(dialogs.shown(), 1);
    QCOMPARE(started.size(), testsupport::testingPostgres() ? 3 : 0);
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(boxes.calls()[0].title, QString("Database Error"));
    // The message of old first, then the cause and where the log is.
    const QStringList lines = boxes.calls()[0].text.split('\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0], QString("There is a problem with the database. Please contact "
                               "help@example.org for more information"));
    QVERIFY(lines[1].contains(testsupport::testingPostgres() ? "127.0.0.1" : "missing-folder"));
    QCOMPARE(lines[2], "The error log is " + core::errorLogPath());
    QVERIFY(!core::hasDb());
}

void TestStartup::cleanInstallMakesDatabaseAndAsksRegion() {
    testsupport::TempInstall install;
    auto& settings = InstallSettings::instance();
    QString pgName;
    std::unique_ptr<core::Db> admin;
    QString user = "sa", password;
    if (testsupport::testingPostgres()) {
        const auto p = testsupport::postgresAdminParams();
        pgName = QStringLiteral("qt_clean_%1").arg(QCoreApplication::applicationPid());
        admin = core::Db::open(p, "clean-admin");
        admin->exec("DROP DATABASE IF EXISTS " + admin->quoteIdentifier(pgName));
        settings.setValue(InstallSettings::Server, QStringLiteral("%1:%2").arg(p.host).arg(p.port));
        settings.setValue(InstallSettings::Database, pgName);
        user = p.user;
        password = p.password;
    }
    QCOMPARE(settings.cleanInstall(), QString("Yes"));
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(user, password));
    dialogs.then(chooseRegion("English (US)"));
    Startup startup(nullptr, {});
    QVERIFY(startup.run());
    QCOMPARE(dialogs.shownClasses(), (QStringList{"core::frmLogin", "core::frmRegional"}));
    QCOMPARE(settings.cleanInstall(), QString("No"));
    QCOMPARE(core::session().language, QString("English (US)"));
    QCOMPARE(core::db().scalar("SELECT language FROM options").toString(), QString("English (US)"));
    QCOMPARE(core::db().scalar("SELECT COUNT(*) FROM CallStatus").toInt(), 2);

    // The next start finds the database made and asks nothing more.
    dialogs.then(loginAs(user, password));
    QVERIFY(startup.run());
    QCOMPARE(dialogs.shown(), 3);
    core::setDb(nullptr);
    if (admin)
        admin->exec("DROP DATABASE IF EXISTS " + admin->quoteIdentifier(pgName) + " WITH (FORCE)");
}

void TestStartup::cleanInstallKeepsExistingData() {
    TestDatabase t;
    t.db().insert("Company", "Company_ID", {{"Company_Name", "Kept & Co"}});
    core::setDb(nullptr);
    InstallSettings::instance().setValue(InstallSettings::CleanInstall, "Yes");
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    dialogs.then(chooseRegion("English (UK)"));
    Startup startup(nullptr, {});
    QVERIFY(startup.run());
    QCOMPARE(core::db().scalar("SELECT COUNT(*) FROM Company").toInt(), 1);
    QCOMPARE(InstallSettings::instance().cleanInstall(), QString("No"));
}

void TestStartup::interruptedFirstStartIsDoneAgain() {
    // What a first start killed after the tables but before its demo left behind: the
    // tables, no rows, and still a clean install.
    TestDatabase t;
    core::setDb(nullptr);
    InstallSettings::instance().setValue(InstallSettings::CleanInstall, "Yes");
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    dialogs.then(chooseRegion("English (UK)"));
    Startup startup(nullptr, {});
    startup.setDemoEmployees(12);
    QVERIFY(startup.run());
    QVERIFY(core::db().scalar("SELECT COUNT(*) FROM Person").toInt() >= 12);
    QCOMPARE(InstallSettings::instance().cleanInstall(), QString("No"));
}

void TestStartup::logoffKeepsOpenScreens() {
    TestDatabase t;
    core::setDb(nullptr);
    MessageRecorder boxes;
    DialogDriver dialogs;
    mdiMain window;
    Startup startup(&window);
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    QVERIFY(signIn(startup, window));
    signInAgainOnLogoff(startup, window);
    auto* screen = new QLineEdit("typed, not saved");
    window.addScreen(screen);
    const core::Db* before = &core::db();
    window.setWindowTitle("Quillorne - something else");

    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    window.findChild<QAction*>("mnuFileLogoff")->trigger();
    QCOMPARE(window.windowTitle(), QString("Quillorne"));
    QCOMPARE(dialogs.shown(), 2);
    QVERIFY(core::hasDb());
    QVERIFY(&core::db() != before);
    QCOMPARE(screen->text(), QString("typed, not saved"));
    QCOMPARE(window.findChild<QMdiArea*>()->subWindowList().size(), 1);
    // The open screen works on the new connection.
    QCOMPARE(core::db().scalar("SELECT COUNT(*) FROM CallStatus").toInt(), 2);
}

namespace {
// A screen holding unsaved work: asked to close, it keeps the work (and stays) or lets it go.
class UnsavedScreen : public QLineEdit {
public:
    UnsavedScreen(bool keep, int* asked)
        : QLineEdit("typed, not saved")
        , keep_(keep)
        , asked_(asked) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        ++*asked_;
        if (keep_) event->ignore();
    }

private:
    bool keep_;
    int* asked_;
};
} // namespace

void TestStartup::cancelAfterLogoff_data() {
    QTest::addColumn<bool>("keepsWork");
    QTest::addColumn<int>("logins"); // after the first, which signs in
    QTest::addColumn<bool>("windowOpen");
    QTest::newRow("screen lets its work go: the program ends") << false << 1 << false;
    QTest::newRow("screen keeps its work: the login comes back") << true << 2 << true;
}

void TestStartup::cancelAfterLogoff() {
    QFETCH(bool, keepsWork);
    QFETCH(int, logins);
    QFETCH(bool, windowOpen);
    TestDatabase t;
    core::setDb(nullptr);
    MessageRecorder boxes;
    DialogDriver dialogs;
    mdiMain window;
    window.show();
    Startup startup(&window);
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    QVERIFY(signIn(startup, window));
    signInAgainOnLogoff(startup, window);
    int asked = 0;
    QPointer<UnsavedScreen> screen = new UnsavedScreen(keepsWork, &asked);
    window.addScreen(screen);

    const auto cancel = [](QDialog& d) {
        dynamic_cast<core::frmLogin&>(d).cmdCancel->click();
        return int(QDialog::Rejected);
    };
    dialogs.then(cancel);
    if (keepsWork) dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    window.findChild<QAction*>("mnuFileLogoff")->trigger();
    QCOMPARE(dialogs.shown(), 1 + logins);
    QCOMPARE(asked, 1);
    QCOMPARE(window.isVisible(), windowOpen);
    QCOMPARE(screen && screen->isVisible(), keepsWork);
}

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
