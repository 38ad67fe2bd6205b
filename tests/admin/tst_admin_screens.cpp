#include "backuplog.h"
#include "datebox.h"
#include "db.h"
#include "frmadduser.h"
#include "frmbackup.h"
#include "frmoptions.h"
#include "frmpassword.h"
#include "money.h"
#include "ownerfiles.h"
#include "recordlist.h"
#include "regional.h"
#include "seams.h"
#include "session.h"
#include "settings.h"
#include "testdb.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QUuid>
#include <QtTest>

using core::Db;
using core::MsgAnswer;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// Types into the add-user dialog and presses OK; the dialog's own result goes back.
DialogDriver::Handler typeUser(const QString& name, const QString& password,
                               const QString& confirm) {
    return [=](QDialog& d) {
        auto& dialog = dynamic_cast<frmAddUser&>(d);
        dialog.txtUserName->setText(name);
        dialog.txtPassword->setText(password);
        dialog.txtPasswordCon->setText(confirm);
        dialog.cmdOK->click();
        if (dialog.result() != QDialog::Accepted) {
            // Refused: the person reads the message and types again in the same dialog.
            dialog.txtPassword->setText(password);
            dialog.txtPasswordCon->setText(password);
            dialog.cmdOK->click();
        }
        return dialog.result();
    };
}

} // namespace

class TestAdminScreens : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void addUserAsksAgainThenAddsAndRefusesTheSameName();
    void changePasswordRefusesAWrongOldOne();
    void optionsShowTheSessionAndSaveIt();
    void optionsKeepAnotherUsersSave();
    void updateNowAsksFirst();
    void backupPageMakesAndLogsBackups();
    void restorePageRestoresAndAsksForALogin();
    void browseTakesOnlyDatFiles();
    void backupScreenAnswersEnterAndEsc();

private:
    std::unique_ptr<TestDatabase> db_;
    QStringList roles_;
};

void TestAdminScreens::init() {
    db_ = std::make_unique<TestDatabase>();
    core::session() = core::SessionState{};
    core::session().language = core::regional::UK;
    core::session().currentuser = db_->params().user;
}

void TestAdminScreens::cleanup() {
    db_.reset();
    if (testsupport::testingPostgres()) {
        auto admin = Db::open(testsupport::postgresAdminParams(), "drop-roles");
        for (const QString& r : roles_)
            admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(r));
    }
    roles_.clear();
}

void TestAdminScreens::addUserAsksAgainThenAddsAndRefusesTheSameName() {
    const QString name = "hal_" + QUuid::createUuid().toString(QUuid::Id128).left(10);
    roles_ << name;
    MessageRecorder messages;
    DialogDriver dialogs;
    dialogs.then(typeUser(name, "secret-one", "secret-two"));
    admin::runAddUser(nullptr);
    QCOMPARE(messages.texts(), QStringList{"Your passwords do not match. Please enter your new "
                                           "password and confirm it below."});
    QCOMPARE(db_->db().scalar("SELECT users FROM users").toString(), name);

    messages.clear();
    dialogs.then(typeUser(name, "secret-three", "secret-three"));
    admin::runAddUser(nullptr);
    QCOMPARE(messages.texts(),
             QStringList{"That username is already being used. Please select another login name"});

    // Cancel changes nothing and says nothing.
    messages.clear();
    dialogs.then([](QDialog& d) {
        dynamic_cast<frmAddUser&>(d).cmdCancel->click();
        return d.result();
    });
    admin::runAddUser(nullptr);
    QVERIFY(messages.texts().isEmpty());
    QCOMPARE(db_->db().scalar("SELECT COUNT(*) FROM users").toInt(), 1);
    QVERIFY(!db_->db().inTransaction());
}

void TestAdminScreens::changePasswordRefusesAWrongOldOne() {
    if (testsupport::testingPostgres())
        QSKIP("the server's administrator password belongs to the test server");
    MessageRecorder messages;
    DialogDriver dialogs;
    dialogs.then([](QDialog& d) {
        auto& dialog = dynamic_cast<frmpassword&>(d);
        [&] { QCOMPARE(dialog.lblUsername->text(), QString("sa")); }();
        dialog.txtOldPassword->setText("not blank");
        dialog.txtNewPassword->setText("brand-new");
        dialog.txtConfirmPassword->setText("brand-new");
        dialog.cmdOK->click();
        return dialog.result();
    });
    admin::runChangePassword(nullptr);
    QCOMPARE(messages.calls().size(), 1);
    QCOMPARE(messages.calls().first().title,
             QStringLiteral("Error Code : %1").arg(core::DbError::LoginRefusedNumber));
}

void TestAdminScreens::optionsShowTheSessionAndSaveIt() {
    auto& s = core::session();
    s.NoDaysAbsence = 10;
    s.baserate = 22;
    s.nodaysbackup = 7;
    s.pattest = QDate(2025, 3, 4);
    s.patlength = 12;
    s.language = core::regional::US;
    frmOptions screen;
    QCOMPARE(screen.Text1->text(), QString("10"));
    QCOMPARE(screen.Text5->text(), QString("03/04/2025"));
    QCOMPARE(screen.Combo1->currentText(), QString("12"));
    QCOMPARE(screen.Text6->text(), QString());
    QCOMPARE(screen.Combo2->currentText(), QString());
    QCOMPARE(screen.Combo3->currentText(), core::regional::US);
    QCOMPARE(screen.lblDateHint1->text(), QString("MM/DD/YYYY"));
    QVERIFY(!screen.Text4->isEnabled());

    MessageRecorder messages;
    screen.Text3->setText("often");
    QVERIFY(!screen.save());
    QCOMPARE(messages.texts(), QStringList{"Please enter a number in the Backup notification box"});
    screen.Text3->setText("14");
    screen.Text5->setText("");
    screen.Text6->setText("12/25/2024");
    screen.Combo2->setEditText("6");
    QVERIFY(screen.save());
    const QSqlRecord r = *db_->db().row("SELECT * FROM options");
    QVERIFY(r.isNull("pattest"));
    QCOMPARE(Db::toDate(r.value("fireexttest")), QDate(2024, 12, 25));
    QCOMPARE(r.value("firelength").toInt(), 6);
    QCOMPARE(r.value("nodaysbackup").toInt(), 14);
    QCOMPARE(s.patlength, 0);
    QCOMPARE(s.firelength, 6);
}

void TestAdminScreens::optionsKeepAnotherUsersSave() {
    core::session().baserate = 20;
    core::session().nodaysbackup = 7;
    frmOptions screen;
    db_->openSecond("other-user")->exec("UPDATE options SET baserate = 40, nodaysbackup = 3");

    MessageRecorder messages; // No: keep what was typed
    screen.Text4->setText("25");
    QVERIFY(!screen.save());
    QCOMPARE(messages.calls().size(), 1);
    QVERIFY(messages.texts().first().startsWith(
        "This set of options has been changed by another user since you opened it. Your "
        "changes have not been saved."));
    QCOMPARE(screen.Text4->text(), QString("25"));
    QCOMPARE(db_->db().scalar("SELECT baserate FROM options").toInt(), 40);

    // Yes: the screen shows the row as it is now, and a save from there goes through.
    messages.clear();
    messages.answerNext(MsgAnswer::Yes);
    QVERIFY(!screen.save());
    QCOMPARE(screen.Text4->text(), QString("40"));
    QCOMPARE(screen.Text3->text(), QString("3"));
    screen.Text4->setText("41");
    QVERIFY(screen.save());
    QCOMPARE(db_->db().scalar("SELECT baserate FROM options").toInt(), 41);

    // A tax rate that cannot be read is refused by name, and nothing is written.
    frmOptions again;
    messages.clear();
    again.Text4->setText("forty");
    QVERIFY(!again.save());
    QCOMPARE(messages.texts(), QStringList{"Please enter Basic rate tax as a number"});
    QCOMPARE(db_->db().scalar("SELECT baserate FROM options").toInt(), 41);
}

void TestAdminScreens::updateNowAsksFirst() {
    Db& db = db_->db();
    const qint64 id = db.insert("Person", "Person_ID", {{"surname", "Pay"}, {"salary", "100"}});
    frmOptions screen;
    screen.Text2->setText("abc");
    QVERIFY(!screen.cmdUpdate->isEnabled());
    screen.Text2->setText("10");
    QVERIFY(screen.cmdUpdate->isEnabled());

    MessageRecorder messages; // No by default
    QCOMPARE(screen.updateNow(), 0);
    QCOMPARE(messages.calls().first().buttons, core::MsgButtons::YesNo);
    QCOMPARE(
        core::Money::fromVariant(db.scalar("SELECT salary FROM Person WHERE Person_ID = ?", {id}))
            .toString(2),
        QString("100.00"));
    messages.clear();
    messages.answerNext(MsgAnswer::Yes);
    QCOMPARE(screen.updateNow(), 1);
    QCOMPARE(messages.texts().last(), QString("1 records updated"));
    QVERIFY(screen.Text2->text().isEmpty());
    QCOMPARE(
        core::Money::fromVariant(db.scalar("SELECT salary FROM Person WHERE Person_ID = ?", {id}))
            .toString(2),
        QString("110.00"));
}

void TestAdminScreens::backupPageMakesAndLogsBackups() {
    frmBackup screen;
    QVERIFY(!screen.SSTab1->isTabEnabled(1));
    QVERIFY(!screen.cmdBackup->isEnabled());
    QTest::keyClicks(screen.Text1, "mon.day/1:*x");
    QCOMPARE(screen.Text1->text(), QString("monday1x"));
    screen.Text2->setText("  Payroll, before the rise ");
    const QString folder = core::InstallSettings::instance().backupFolder();
    QCOMPARE(screen.Label4->text(), QDir::toNativeSeparators(folder + "/monday1x.dat"));
    QVERIFY(screen.cmdBackup->isEnabled());

    // The backups folder is made again when someone has removed it.
    QVERIFY(QDir(folder).removeRecursively());
    MessageRecorder messages;
    QVERIFY(screen.backupNow());
    QCOMPARE(messages.texts(), QStringList{"Backup complete"});
    QCOMPARE(core::permissionBits(folder), 0700);
    QCOMPARE(core::permissionBits(folder + "/monday1x.dat"), 0600);
    QVERIFY(!screen.cmdBackup->isEnabled());
    QCOMPARE(core::InstallSettings::instance().lastBackup(),
             core::formatDate(QDate::currentDate()));
    auto log = admin::readBackupLog(admin::backupLogPath());
    QCOMPARE(log.size(), size_t(1));
    QCOMPARE(log[0].description, QString("Payroll, before the rise"));

    // Again under the same name: asked first; No keeps everything, Yes replaces the log line.
    messages.clear();
    QVERIFY(!screen.backupNow());
    QCOMPARE(messages.texts(), QStringList{"You will be overwriting a previous backup. Do you "
                                           "wish to proceed?"});
    messages.answerNext(MsgAnswer::Yes);
    screen.Text2->setText("second");
    QVERIFY(screen.backupNow());
    log = admin::readBackupLog(admin::backupLogPath());
    QCOMPARE(log.size(), size_t(1));
    QCOMPARE(log[0].description, QString("second"));
    QCOMPARE(screen.ListView1->count(), 2); // the screen keeps the old row until reopened
}

void TestAdminScreens::restorePageRestoresAndAsksForALogin() {
    const QString file = core::InstallSettings::instance().backupFolder() + "/before.dat";
    {
        MessageRecorder messages;
        frmBackup screen;
        screen.Text1->setText("before");
        QVERIFY(screen.backupNow());
    }
    db_->db().exec("INSERT INTO users (users) VALUES (?)", {"later"});

    core::session().restoremode = true;
    frmBackup screen;
    QVERIFY(!screen.SSTab1->isTabEnabled(0));
    QCOMPARE(screen.ListView1->count(), 1);
    QVERIFY(!screen.cmdRestore->isEnabled());
    QSignalSpy restored(&screen, &frmBackup::restored);

    MessageRecorder messages;
    DialogDriver dialogs; // the wait panel closes by itself
    QVERIFY(!screen.restoreFrom(file + ".missing"));
    QCOMPARE(messages.texts(), QStringList{"File does not exist. Please check and restore "
                                           "original file from your backup"});
    QCOMPARE(db_->db().scalar("SELECT COUNT(*) FROM users").toInt(), 1);

    messages.clear();
    screen.ListView1->setCurrentItem(screen.ListView1->topLevelItem(0));
    emit screen.ListView1->itemClicked(screen.ListView1->topLevelItem(0), 0);
    QVERIFY(screen.cmdRestore->isEnabled());
    screen.cmdRestore->click();
    QCOMPARE(messages.texts(), QStringList{"Restore Complete"});
    QCOMPARE(restored.count(), 1);
    QCOMPARE(core::db().scalar("SELECT COUNT(*) FROM users").toInt(), 0);
}

void TestAdminScreens::browseTakesOnlyDatFiles() {
    const QString folder = core::InstallSettings::instance().backupFolder();
    {
        MessageRecorder messages;
        frmBackup screen;
        screen.Text1->setText("browsed");
        QVERIFY(screen.backupNow());
    }
    QVERIFY(QFile::copy(folder + "/browsed.dat", folder + "/browsed.txt"));
    db_->db().exec("INSERT INTO users (users) VALUES (?)", {"later"});

    core::session().restoremode = true;
    frmBackup screen;
    QSignalSpy restored(&screen, &frmBackup::restored);
    const auto pick = [](const QString& file) {
        return [file](QDialog& d) {
            auto& dialog = dynamic_cast<QFileDialog&>(d);
            [&] { QCOMPARE(dialog.windowTitle(), QString("Select Backup file")); }();
            dialog.selectFile(file);
            return int(QDialog::Accepted);
        };
    };
    MessageRecorder messages;
    DialogDriver dialogs;
    dialogs.then(pick(folder + "/browsed.txt"));
    dialogs.then(pick(folder + "/browsed.dat"));
    screen.cmdBrowse->click();
    QCOMPARE(messages.texts(), (QStringList{"The file extension of the backup file must be .dat",
                                            "Restore Complete"}));
    QCOMPARE(restored.count(), 1);
    QCOMPARE(core::db().scalar("SELECT COUNT(*) FROM users").toInt(), 0);
}

void TestAdminScreens::backupScreenAnswersEnterAndEsc() {
    MessageRecorder messages;
    frmBackup screen;
    screen.show();
    QVERIFY(QTest::qWaitForWindowActive(&screen));
    QVERIFY(screen.cmdBackup->isDefault());
    // Nothing to back up yet: Enter does nothing.
    screen.Text1->setFocus();
    QTest::keyClick(screen.Text1, Qt::Key_Return);
    QVERIFY(messages.calls().isEmpty());
    QTest::keyClicks(screen.Text1, "keys");
    QTest::keyClick(screen.Text1, Qt::Key_Return);
    QCOMPARE(messages.texts(), QStringList{"Backup complete"});
    QVERIFY(QFileInfo::exists(core::InstallSettings::instance().backupFolder() + "/keys.dat"));
    QTest::keyClick(screen.Text1, Qt::Key_Escape);
    QVERIFY(!screen.isVisible());

    // In Restore Mode, Enter presses Restore Now (enabled once a row is chosen).
    core::session().restoremode = true;
    frmBackup restoring;
    QVERIFY(restoring.cmdRestore->isDefault());
    QCOMPARE(restoring.cmdClose->isDefault(), false);
}

QTEST_MAIN(TestAdminScreens)
#include "tst_admin_screens.moc"
