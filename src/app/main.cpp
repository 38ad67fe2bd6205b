#include "application.h"
#include "commands.h"
#include "frmlogin.h"
#include "frmregional.h"
#include "mdimain.h"
#include "messagebox.h"
#include "modal.h"
#include "screenhost.h"
#include "settings.h"
#include "signin.h"
#include "startup.h"

#include <QAction>
#include <QComboBox>
#include <QCommandLineParser>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <cstdio>

namespace {

// With --screenshot and --open: a dialog the menu item opens is pictured here, then closed.
QString dialogShotFile;
bool dialogShotTaken = false;

bool pictureDialog(QDialog& dialog) {
    if (dialogShotFile.isEmpty()) return false;
    dialog.show();
    QApplication::processEvents();
    dialog.grab().save(dialogShotFile);
    dialog.hide();
    std::printf("screenshot: %s\n", qPrintable(dialogShotFile));
    std::fflush(stdout);
    dialogShotTaken = true;
    dialogShotFile.clear();
    return true;
}

// Headless runs (the screenshot of the first start, the start-up benchmark) answer the login
// and the boxes themselves; what the boxes said is printed instead.
void answerDialogsUnattended() {
    core::setMessageResponder([](const core::MessageCall& call) {
        std::printf("message: %s\n", qPrintable(call.text));
        return call.buttons == core::MsgButtons::YesNo ? core::MsgAnswer::Yes : core::MsgAnswer::Ok;
    });
    core::setDialogResponder([](QDialog& dialog) {
        if (auto* login = qobject_cast<core::frmLogin*>(&dialog)) {
            login->txtUserName->setText(qEnvironmentVariable("QUILLORNE_USER", "sa"));
            login->txtPassword->setText(qEnvironmentVariable("QUILLORNE_PASSWORD"));
            login->cmdOK->click();
            return int(QDialog::Accepted);
        }
        if (auto* regional = qobject_cast<core::frmRegional*>(&dialog)) {
            regional->Combo1->setCurrentText("English (UK)");
            regional->cmdOK->click();
            return int(QDialog::Accepted);
        }
        if (pictureDialog(dialog)) return int(QDialog::Rejected);
        return int(QDialog::Accepted);
    });
}

} // namespace

int main(int argc, char** argv) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    QuillorneApplication app(argc, argv);
    setApplicationIdentity();

    QCommandLineParser parser;
    parser.setApplicationDescription("Quillorne office administration");
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption settingsOpt("settings", "Installation settings file.", "file");
    QCommandLineOption dataOpt("data", "Data folder (database, log, backups).", "folder");
    QCommandLineOption demoOpt("demo",
                               "On a clean install, fill the new database with a demo "
                               "organisation of this many employees.",
                               "employees");
    QCommandLineOption shotOpt("screenshot",
                               "Sign in unattended, save a picture of the main window to this "
                               "file and quit.",
                               "file");
    QCommandLineOption benchOpt("bench-startup",
                                "Sign in unattended, print the milliseconds from process start "
                                "to the main window and quit.");
    QCommandLineOption openOpt("open",
                               "With --screenshot: choose these menu items first (for pictures "
                               "of the screens); a dialog one opens is pictured instead.",
                               "item");
    parser.addOptions({settingsOpt, dataOpt, demoOpt, shotOpt, benchOpt, openOpt});
    parser.process(app);

    try {
        core::InstallSettings::configure(parser.value(settingsOpt), parser.value(dataOpt));
    } catch (const core::SettingsError& e) {
        // Nothing is made in place of settings that cannot be read.
        std::fprintf(stderr, "%s\n", qPrintable(e.message()));
        core::msgbox(e.message(), "Database Error");
        return 1;
    }
    const bool unattended = parser.isSet(shotOpt) || parser.isSet(benchOpt);
    if (unattended) answerDialogsUnattended();

    mdiMain window;
    registerCommands(window);
    core::setScreenHost([&window](QWidget* screen) { window.addScreen(screen); });
    Startup startup(&window);
    if (parser.isSet(demoOpt)) startup.setDemoEmployees(parser.value(demoOpt).toInt());

    // Pictures are taken at the size of a common laptop screen.
    if (parser.isSet(shotOpt)) window.resize(1280, 800);
    window.show();
    if (!unattended) {
        core::frmSplash splash(&window);
        core::showModal(splash);
    }
    if (!signIn(startup, window)) return 0;
    signInAgainOnLogoff(startup, window);

    if (parser.isSet(benchOpt)) {
        QApplication::processEvents();
        std::printf("startup_ms %lld\n", static_cast<long long>(sinceStart.elapsed()));
        return 0;
    }
    if (parser.isSet(shotOpt)) {
        const QString file = parser.value(shotOpt);
        dialogShotFile = file;
        for (const QString& item : parser.values(openOpt))
            if (QAction* action = window.item(item); action && action->isEnabled())
                action->trigger();
        dialogShotFile.clear();
        if (dialogShotTaken) return 0;
        QTimer::singleShot(500, &window, [&] {
            window.grab().save(file);
            std::printf("screenshot: %s\n", qPrintable(file));
            std::fflush(stdout);
            app.quit();
        });
    }
    return app.exec();
}
