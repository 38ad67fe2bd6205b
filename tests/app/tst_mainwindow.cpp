#include "frmabout.h"
#include "frmhelp.h"
#include "mdimain.h"
#include "seams.h"
#include "settings.h"
#include "testdb.h"

#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QToolBar>
#include <QtTest>

namespace {

// What each menu holds, in order, as "name=caption"; a trailing ">" marks a submenu.
const QList<QPair<QString, QString>> ExpectedMenus = {
    {"", "mnuFile=&File> mnuPersonnel=&Personnel> mnuHelpdesk=&HelpDesk> "
         "mnuTel=&Telephone Directory mnuAssets=&Assets> mnuSuppliers=&Suppliers> "
         "mnuTools=T&ools> mnuReportS=&Reports> mnuTraining=&Training> "
         "mnuPettyCash=&Petty Cash mnuAdmin=A&dmin> mnuBackup=&Backup/Restore mnuHelp=H&elp>"},
    {"mnuFile", "mnuFileLogoff=Log off mnuFileExit=Exit"},
    {"mnuPersonnel", "mnuCompany=Company> mnuEmployee=&Employee> "
                     "mnuPersonnelDepartment=&Department> mnuEmployeeLocation=&Location> "
                     "mnuPosition=&Position>"},
    {"mnuCompany", "mnuCompanyNew=New mnuCompanyDelete=Delete mnuCompanyDisplayAll=Display All"},
    {"mnuEmployee", "mnuEmployeeNew=New mnuEmployeeSearch=Search mnuEmployeeDisplayAll=Display "
                    "All mnuEmployeeDelete=Delete mnuEmployeeSick=Attendance/Sickness Report "
                    "mnupersonaiders=First Aiders"},
    {"mnuPersonnelDepartment", "mnuDepartmentNew=&New mnuDepartmentDelete=&Delete"},
    {"mnuEmployeeLocation", "mnuLocationNew=&New mnuLocationDelete=&Delete"},
    {"mnuPosition", "mnuPositionNew=New mnuPositionDelete=Delete"},
    {"mnuHelpdesk", "mnuHelpDeskAddItem=Add Call mnuHelpdeskupdatecall=Update Call "
                    "mnuViewCalls=View Calls>"},
    {"mnuViewCalls", "mnuViewAllOpenCalls=All Open Calls mnuViewAllCalls=All Calls"},
    {"mnuAssets", "mnuAssetsEquipment=Computers> mnuComputer=Software> mnuPrintersAdd=Printers> "
                  "mnuscanners=Scanners> mnuAssetsMonitors=Monitors>"},
    {"mnuAssetsEquipment", "mnuComputerAdd=Add Computer mnuComputerEdit=Edit Computer"},
    {"mnuComputer", "mnuSoftware=Add Software mnuAssetSoftEdit=Edit Software mnuSoftLic=Add "
                    "Licences mnuAssetsSoftwareSummmary=License Summary"},
    {"mnuPrintersAdd", "mnuAssetPrinterAdd=Add Printer mnuAssetsPrinterEdit=Edit Printer "
                       "mnuAssetsPrinterDelete=Delete Printer"},
    {"mnuscanners", "mnuscannersadd=Add Scanner mnuScannerEdit=Edit Scanner "
                    "mnuscannerdel=Delete Scanner"},
    {"mnuAssetsMonitors", "mnuMonitorsAdd=Add Monitor mnuMonitorsEdit=Edit Monitor "
                          "mnuMonitorsDelete=Delete Monitor"},
    {"mnuSuppliers", "mnuSuppliersAdd=Add Supplier mnuSuppliersEdit=Find Supplier"},
    {"mnuTools", "mnuToolsOptions=Options mnuOptionsExport=Export>"},
    {"mnuOptionsExport", "mnuOptionsAddressesdExport=Names && Addresses "
                         "mnuOptionsSalaryExport=Salary Info"},
    {"mnuReportS", "mnuReportPersonnel=Personnel> mnuReportsTraining=Training mnuRepPetty=Petty "
                   "Cash"},
    {"mnuReportPersonnel", "mnuReportsHoliday=Holiday mnuReportAbsence=Absence"},
    {"mnuTraining", "mnuNewProgramme=New Programme mnuTrainingEdit=Edit Programme "
                    "mnuDelete=Delete Programme"},
    {"mnuAdmin", "mnuAdminSecurity=Security>"},
    {"mnuAdminSecurity", "mnuSecurityAddUser=Add User mnuAdminSecurityDeleteUser=Delete User "
                         "mnuSecurityChangePassword=Change Password"},
    {"mnuHelp", "mnuContents=Contents mnuHelpAbout=About"},
};

QString describe(const QList<QAction*>& actions) {
    QStringList parts;
    for (QAction* a : actions)
        if (!a->isSeparator()) parts << a->objectName() + "=" + a->text() + (a->menu() ? ">" : "");
    return parts.join(' ');
}

QList<QAction*> menuActions(mdiMain& w, const QString& name) {
    if (name.isEmpty()) return w.menuBar()->actions();
    return w.findChild<QMenu*>(name)->actions();
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void menuTreeHasEveryItemInOrder();
    void toolbarHasElevenButtonsInOrder();
    void itemsWithoutScreenAreDisabledUntilRegistered();
    void restoreModeGreysAllButFileAndBackup();
    void logoffKeepsScreensAndResetsTitle();
    void sharedScreensOpenOnce();
    void exitClosesEveryScreen();
    void aboutShowsVersionAndRevision();
    void helpPagesLinkOnlyToPagesThatExist();
};

void TestMainWindow::menuTreeHasEveryItemInOrder() {
    mdiMain w;
    QCOMPARE(w.windowTitle(), QString("Quillorne"));
    for (const auto& [menu, expected] : ExpectedMenus)
        QCOMPARE(describe(menuActions(w, menu)), expected);
}

void TestMainWindow::toolbarHasElevenButtonsInOrder() {
    mdiMain w;
    auto* bar = w.findChild<QToolBar*>("Toolbar1");
    QVERIFY(bar);
    QStringList got;
    for (QAction* a : bar->actions())
        got << a->objectName() + "=" + a->toolTip();
    QCOMPARE(got, (QStringList{"frmemployee=New Employee", "frmesearch=Find Employee",
                               "frmdelete=Delete employee", "frmaddcall=Log Helpdesk Call",
                               "frmupdatecall=Update helpdesk call", "frmaddcomputer=Add Computer",
                               "frmcompsrch=Edit Computer", "frmaddsoftware=Add Software",
                               "frmteldir=Telephone Directory", "frmtraining=New Training Course",
                               "traininglist=Edit Training Course"}));
}

void TestMainWindow::itemsWithoutScreenAreDisabledUntilRegistered() {
    mdiMain w;
    for (const char* name : {"mnuEmployeeNew", "mnuHelpDeskAddItem", "mnuTel", "mnuBackup"})
        QVERIFY2(!w.item(name)->isEnabled(), name);
    for (const char* name : {"mnuFileLogoff", "mnuFileExit", "mnuContents", "mnuHelpAbout"})
        QVERIFY2(w.item(name)->isEnabled(), name);
    auto* button = w.findChild<QAction*>("frmemployee");
    QVERIFY(!button->isEnabled());

    int runs = 0;
    w.setCommand("mnuEmployeeNew", [&] { ++runs; });
    QVERIFY(w.item("mnuEmployeeNew")->isEnabled());
    QVERIFY(button->isEnabled());
    w.item("mnuEmployeeNew")->trigger();
    button->trigger();
    QCOMPARE(runs, 2);
}

void TestMainWindow::restoreModeGreysAllButFileAndBackup() {
    mdiMain w;
    w.setCommand("mnuTel", [] {});
    w.setCommand("mnuBackup", [] {});
    w.setCommand("mnuEmployeeNew", [] {});
    const QStringList greyed{"mnuPersonnel", "mnuHelpdesk", "mnuSuppliers", "mnuAssets",
                             "mnuTools",     "mnuReportS",  "mnuTraining",  "mnuAdmin",
                             "mnuHelp",      "mnuTel",      "mnuPettyCash"};
    w.setSessionItemsEnabled(false);
    for (QAction* top : w.menuBar()->actions()) {
        const bool shouldBeGrey = greyed.contains(top->objectName());
        QVERIFY2(top->isEnabled() != shouldBeGrey, qPrintable(top->objectName()));
    }
    QVERIFY(!w.toolbar()->isEnabled());
    QVERIFY(w.item("mnuFileLogoff")->isEnabled());
    QVERIFY(w.item("mnuBackup")->isEnabled());

    w.setSessionItemsEnabled(true);
    for (const QString& name : greyed)
        QCOMPARE(w.item(name)->isEnabled(), name != "mnuPettyCash"); // no screen behind it yet
    QVERIFY(w.toolbar()->isEnabled());
    QVERIFY(w.findChild<QAction*>("frmemployee")->isEnabled());
}

void TestMainWindow::logoffKeepsScreensAndResetsTitle() {
    mdiMain w;
    int logoffs = 0;
    connect(&w, &mdiMain::logoffRequested, [&] { ++logoffs; });
    auto* screen = new QLabel("open screen");
    w.addScreen(screen);
    w.setWindowTitle("Quillorne - Employee");
    w.item("mnuFileLogoff")->trigger();
    QCOMPARE(logoffs, 1);
    QCOMPARE(w.windowTitle(), QString("Quillorne"));
    QCOMPARE(w.mdiArea()->subWindowList().size(), 1);
    QCOMPARE(w.mdiArea()->subWindowList()[0]->widget(), screen);
}

void TestMainWindow::sharedScreensOpenOnce() {
    mdiMain w;
    int made = 0;
    const auto make = [&] {
        ++made;
        return new QLabel("shared");
    };
    QWidget* first = w.showShared("frmDept", make);
    QWidget* second = w.showShared("frmDept", make);
    QCOMPARE(first, second);
    QCOMPARE(made, 1);
    QCOMPARE(w.mdiArea()->subWindowList().size(), 1);
    first->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    w.showShared("frmDept", make);
    QCOMPARE(made, 2);
    // Every other screen is a new instance each time.
    w.addScreen(new QLabel("a"));
    w.addScreen(new QLabel("a"));
    QCOMPARE(w.mdiArea()->subWindowList().size(), 3);
}

void TestMainWindow::exitClosesEveryScreen() {
    mdiMain w;
    w.show();
    QPointer<QWidget> a = new QLabel("a");
    QPointer<QWidget> b = new QLabel("b");
    w.addScreen(a);
    w.addScreen(b);
    w.item("mnuFileExit")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!w.isVisible());
    QVERIFY(!a && !b);
}

void TestMainWindow::aboutShowsVersionAndRevision() {
    testsupport::TempInstall install;
    auto& s = core::InstallSettings::instance();
    s.setValue(core::InstallSettings::Version, "2.4");
    s.setValue(core::InstallSettings::Revision, "117");
    mdiMain w;
    testsupport::DialogDriver dialogs;
    testsupport::MessageRecorder boxes;
    QString caption, version;
    dialogs.then([&](QDialog& d) {
        caption = d.windowTitle();
        version = d.findChild<QLabel*>("lblVersion")->text();
        d.findChild<QPushButton*>("cmdSysInfo")->click(); // opens the facts, answered below
        return int(QDialog::Accepted);
    });
    QString facts;
    dialogs.then([&](QDialog& d) {
        facts = d.findChild<QWidget*>("txtFacts")->property("plainText").toString();
        return int(QDialog::Accepted);
    });
    w.item("mnuHelpAbout")->trigger();
    QCOMPARE(caption, QString("About Vantry Quillorne"));
    QVERIFY2(version.contains("2.4") && version.contains("117"), qPrintable(version));
    QVERIFY2(facts.contains("Qt version: " + QString(qVersion())), qPrintable(facts));
    QVERIFY(boxes.calls().isEmpty());
}

void TestMainWindow::helpPagesLinkOnlyToPagesThatExist() {
    mdiMain w;
    w.item("mnuContents")->trigger();
    auto* help = w.findChild<frmHelp*>();
    QVERIFY(help);
    QCOMPARE(help->browser->source(), QUrl("qrc:/help/index.html"));
    QVERIFY(help->browser->toPlainText().contains("Contents"));

    static const QRegularExpression href(QStringLiteral("href=\"([^\"#]+)"));
    QStringList pages{"index.html"};
    QSet<QString> seen;
    while (!pages.isEmpty()) {
        const QString page = pages.takeFirst();
        if (seen.contains(page)) continue;
        seen.insert(page);
        QFile f(":/help/" + page);
        QVERIFY2(f.open(QIODevice::ReadOnly), qPrintable("missing help page " + page));
        const QString html = QString::fromUtf8(f.readAll());
        for (auto m = href.globalMatch(html); m.hasNext();)
            pages << m.next().captured(1);
    }
    QVERIFY(seen.size() >= 5);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
