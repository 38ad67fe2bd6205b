#include "frmabout.h"
#include "frmhelp.h"
#include "mdimain.h"
#include "seams.h"
#include "settings.h"
#include "testdb.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QToolBar>
#include <QtTest>

namespace {

enum Kind { Command, Submenu };

struct MenuRow {
    const char* parent; // "" for the menu bar
    const char* name;
    const char* caption;
    Kind kind;
};

// The menu tree as the program's users know it, depth first, each menu's items in order.
const MenuRow ExpectedTree[] = {
    {"", "mnuFile", "&File", Submenu},
    {"mnuFile", "mnuFileLogoff", "Log off", Command},
    {"mnuFile", "mnuFileExit", "Exit", Command},
    {"", "mnuPersonnel", "&Personnel", Submenu},
    {"mnuPersonnel", "mnuCompany", "Company", Submenu},
    {"mnuCompany", "mnuCompanyNew", "New", Command},
    {"mnuCompany", "mnuCompanyDelete", "Delete", Command},
    {"mnuCompany", "mnuCompanyDisplayAll", "Display All", Command},
    {"mnuPersonnel", "mnuEmployee", "&Employee", Submenu},
    {"mnuEmployee", "mnuEmployeeNew", "New", Command},
    {"mnuEmployee", "mnuEmployeeSearch", "Search", Command},
    {"mnuEmployee", "mnuEmployeeDisplayAll", "Display All", Command},
    {"mnuEmployee", "mnuEmployeeDelete", "Delete", Command},
    {"mnuEmployee", "mnuEmployeeSick", "Attendance/Sickness Report", Command},
    {"mnuEmployee", "mnupersonaiders", "First Aiders", Command},
    {"mnuPersonnel", "mnuPersonnelDepartment", "&Department", Submenu},
    {"mnuPersonnelDepartment", "mnuDepartmentNew", "&New", Command},
    {"mnuPersonnelDepartment", "mnuDepartmentDelete", "&Delete", Command},
    {"mnuPersonnel", "mnuEmployeeLocation", "&Location", Submenu},
    {"mnuEmployeeLocation", "mnuLocationNew", "&New", Command},
    {"mnuEmployeeLocation", "mnuLocationDelete", "&Delete", Command},
    {"mnuPersonnel", "mnuPosition", "&Position", Submenu},
    {"mnuPosition", "mnuPositionNew", "New", Command},
    {"mnuPosition", "mnuPositionDelete", "Delete", Command},
    {"", "mnuHelpdesk", "&HelpDesk", Submenu},
    {"mnuHelpdesk", "mnuHelpDeskAddItem", "Add Call", Command},
    {"mnuHelpdesk", "mnuHelpdeskupdatecall", "Update Call", Command},
    {"mnuHelpdesk", "mnuViewCalls", "View Calls", Submenu},
    {"mnuViewCalls", "mnuViewAllOpenCalls", "All Open Calls", Command},
    {"mnuViewCalls", "mnuViewAllCalls", "All Calls", Command},
    {"", "mnuTel", "&Telephone Directory", Command},
    {"", "mnuAssets", "&Assets", Submenu},
    {"mnuAssets", "mnuAssetsEquipment", "Computers", Submenu},
    {"mnuAssetsEquipment", "mnuComputerAdd", "Add Computer", Command},
    {"mnuAssetsEquipment", "mnuComputerEdit", "Edit Computer", Command},
    {"mnuAssets", "mnuComputer", "Software", Submenu},
    {"mnuComputer", "mnuSoftware", "Add Software", Command},
    {"mnuComputer", "mnuAssetSoftEdit", "Edit Software", Command},
    {"mnuComputer", "mnuSoftLic", "Add Licences", Command},
    {"mnuComputer", "mnuAssetsSoftwareSummmary", "License Summary", Command},
    {"mnuAssets", "mnuPrintersAdd", "Printers", Submenu},
    {"mnuPrintersAdd", "mnuAssetPrinterAdd", "Add Printer", Command},
    {"mnuPrintersAdd", "mnuAssetsPrinterEdit", "Edit Printer", Command},
    {"mnuPrintersAdd", "mnuAssetsPrinterDelete", "Delete Printer", Command},
    {"mnuAssets", "mnuscanners", "Scanners", Submenu},
    {"mnuscanners", "mnuscannersadd", "Add Scanner", Command},
    {"mnuscanners", "mnuScannerEdit", "Edit Scanner", Command},
    {"mnuscanners", "mnuscannerdel", "Delete Scanner", Command},
    {"mnuAssets", "mnuAssetsMonitors", "Monitors", Submenu},
    {"mnuAssetsMonitors", "mnuMonitorsAdd", "Add Monitor", Command},
    {"mnuAssetsMonitors", "mnuMonitorsEdit", "Edit Monitor", Command},
    {"mnuAssetsMonitors", "mnuMonitorsDelete", "Delete Monitor", Command},
    {"", "mnuSuppliers", "&Suppliers", Submenu},
    {"mnuSuppliers", "mnuSuppliersAdd", "Add Supplier", Command},
    {"mnuSuppliers", "mnuSuppliersEdit", "Find Supplier", Command},
    {"mnuSuppliers", "mnuSuppliersFind", "Find Supplier by Service", Command},
    {"", "mnuTools", "T&ools", Submenu},
    {"mnuTools", "mnuToolsOptions", "Options", Command},
    {"mnuTools", "mnuOptionsExport", "Export", Submenu},
    {"mnuOptionsExport", "mnuOptionsAddressesdExport", "Names && Addresses", Command},
    {"mnuOptionsExport", "mnuOptionsSalaryExport", "Salary Info", Command},
    {"", "mnuReportS", "&Reports", Submenu},
    {"mnuReportS", "mnuReportPersonnel", "Personnel", Submenu},
    {"mnuReportPersonnel", "mnuReportsHoliday", "Holiday", Command},
    {"mnuReportPersonnel", "mnuReportAbsence", "Absence", Command},
    {"mnuReportS", "mnuReportsTraining", "Training", Command},
    {"mnuReportS", "mnuRepPetty", "Petty Cash", Command},
    {"", "mnuTraining", "&Training", Submenu},
    {"mnuTraining", "mnuNewProgramme", "New Programme", Command},
    {"mnuTraining", "mnuTrainingEdit", "Edit Programme", Command},
    {"mnuTraining", "mnuDelete", "Delete Programme", Command},
    {"", "mnuPettyCash", "&Petty Cash", Command},
    {"", "mnuAdmin", "A&dmin", Submenu},
    {"mnuAdmin", "mnuAdminSecurity", "Security", Submenu},
    {"mnuAdminSecurity", "mnuSecurityAddUser", "Add User", Command},
    {"mnuAdminSecurity", "mnuAdminSecurityDeleteUser", "Delete User", Command},
    {"mnuAdminSecurity", "mnuSecurityChangePassword", "Change Password", Command},
    {"", "mnuBackup", "&Backup/Restore", Command},
    {"", "mnuHelp", "H&elp", Submenu},
    {"mnuHelp", "mnuContents", "Contents", Command},
    {"mnuHelp", "mnuHelpAbout", "About", Command},
};

// The toolbar in order: key, tool tip, and the menu item whose command the button runs.
const struct {
    const char* key;
    const char* tip;
    const char* item;
} ExpectedButtons[] = {
    {"frmemployee", "New Employee", "mnuEmployeeNew"},
    {"frmesearch", "Find Employee", "mnuEmployeeSearch"},
    {"frmdelete", "Delete employee", "mnuEmployeeDelete"},
    {"frmaddcall", "Log Helpdesk Call", "mnuHelpDeskAddItem"},
    {"frmupdatecall", "Update helpdesk call", "mnuHelpdeskupdatecall"},
    {"frmaddcomputer", "Add Computer", "mnuComputerAdd"},
    {"frmcompsrch", "Edit Computer", "mnuComputerEdit"},
    {"frmaddsoftware", "Add Software", "mnuSoftware"},
    {"frmteldir", "Telephone Directory", "mnuTel"},
    {"frmtraining", "New Training Course", "mnuNewProgramme"},
    {"traininglist", "Edit Training Course", "mnuTrainingEdit"},
};

// What the main window can do before any screen is registered.
const QStringList WorkingItems{"mnuFileLogoff", "mnuFileExit", "mnuContents", "mnuHelpAbout"};

const QStringList RestoreModeGreys{"mnuPersonnel", "mnuHelpdesk", "mnuSuppliers", "mnuAssets",
                                   "mnuTools",     "mnuReportS",  "mnuTraining",  "mnuAdmin",
                                   "mnuHelp",      "mnuTel",      "mnuPettyCash"};

QString rowText(const QString& parent, const QString& name, const QString& caption, Kind kind) {
    return parent + " / " + name + " = " + caption + (kind == Submenu ? " >" : "");
}

// The built tree, depth first, in the form of the rows above.
void walk(const QString& parent, const QList<QAction*>& actions, QStringList& out) {
    for (QAction* a : actions) {
        if (a->isSeparator()) continue;
        out << rowText(parent, a->objectName(), a->text(), a->menu() ? Submenu : Command);
        if (a->menu()) walk(a->objectName(), a->menu()->actions(), out);
    }
}

QList<QAction*> leafItems(mdiMain& w) {
    QList<QAction*> out;
    for (const MenuRow& r : ExpectedTree)
        if (r.kind == Command) out << w.item(r.name);
    return out;
}

QAction* button(mdiMain& w, const QString& key) {
    for (QAction* a : w.toolbar()->actions())
        if (a->objectName() == key) return a;
    return nullptr;
}

// A screen with unsaved work that will not close until told it may.
class StubbornScreen : public QLabel {
public:
    using QLabel::QLabel;
    bool mayClose = false;

protected:
    void closeEvent(QCloseEvent* e) override { mayClose ? e->accept() : e->ignore(); }
};

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void menuTreeHasEveryItemInOrder();
    void toolbarHasElevenButtonsInOrder();
    void toolbarIconsDifferAndGreyWhenDisabled();
    void onlyTheWindowsOwnCommandsWorkBeforeRegistration();
    void registeredCommandEnablesItemAndButton();
    void restoreModeGreysAllButFileAndBackup();
    void logoffKeepsScreensAndResetsTitle();
    void sharedScreensOpenOnce();
    void exitClosesEveryScreenUnlessOneRefuses();
    void aboutShowsVersionAndRevision();
    void systemInfoShowsFactsOrSaysUnavailable();
    void helpOpensBesideTheWorkWithNoBrokenLinks();
};

void TestMainWindow::menuTreeHasEveryItemInOrder() {
    mdiMain w;
    QCOMPARE(w.objectName(), QString("mdiMain"));
    QCOMPARE(w.windowTitle(), QString("Quillorne"));
    QStringList expected;
    for (const MenuRow& r : ExpectedTree)
        expected << rowText(r.parent, r.name, r.caption, r.kind);
    QStringList built;
    walk({}, w.menuBar()->actions(), built);
    QCOMPARE(built, expected);
    // Other code finds the menus by name.
    for (const MenuRow& r : ExpectedTree)
        if (r.kind == Submenu) QVERIFY2(w.findChild<QMenu*>(r.name), r.name);
}

void TestMainWindow::toolbarHasElevenButtonsInOrder() {
    mdiMain w;
    QCOMPARE(w.toolbar(), w.findChild<QToolBar*>("Toolbar1"));
    QStringList expected, built;
    for (const auto& b : ExpectedButtons)
        expected << QString(b.key) + " = " + b.tip;
    for (QAction* a : w.toolbar()->actions())
        if (!a->isSeparator()) built << a->objectName() + " = " + a->toolTip();
    QCOMPARE(built, expected);
}

void TestMainWindow::toolbarIconsDifferAndGreyWhenDisabled() {
    mdiMain w;
    QList<QImage> seen;
    for (QAction* a : w.toolbar()->actions()) {
        if (a->isSeparator()) continue;
        const QString name = a->objectName();
        const QImage normal = a->icon().pixmap(24, 24, QIcon::Normal).toImage();
        const QImage disabled = a->icon().pixmap(24, 24, QIcon::Disabled).toImage();
        QVERIFY2(!normal.isNull() && !disabled.isNull(), qPrintable(name));
        QVERIFY2(!seen.contains(normal), qPrintable(name + " looks like another button"));
        seen << normal;
        qint64 alphaNormal = 0, alphaDisabled = 0;
        bool coloured = false, grey = true;
        for (int y = 0; y < 24; ++y)
            for (int x = 0; x < 24; ++x) {
                const QRgb n = normal.pixel(x, y), d = disabled.pixel(x, y);
                alphaNormal += qAlpha(n);
                alphaDisabled += qAlpha(d);
                coloured =
                    coloured || (qAlpha(n) > 0 && (qRed(n) != qGreen(n) || qGreen(n) != qBlue(n)));
                grey = grey && (qAlpha(d) == 0 || (qRed(d) == qGreen(d) && qGreen(d) == qBlue(d)));
            }
        QVERIFY2(alphaNormal > 24 * 24 * 255 / 10, qPrintable(name + " is nearly empty"));
        QVERIFY2(coloured && grey, qPrintable(name + " looks the same disabled"));
        QVERIFY2(alphaDisabled < alphaNormal, qPrintable(name + " is not faded when disabled"));
    }
    QCOMPARE(seen.size(), 11);
}

void TestMainWindow::onlyTheWindowsOwnCommandsWorkBeforeRegistration() {
    mdiMain w;
    for (QAction* item : leafItems(w)) {
        const QString name = item->objectName();
        QCOMPARE(item->isEnabled(), WorkingItems.contains(name));
        QCOMPARE(w.isCommandAvailable(name), WorkingItems.contains(name));
    }
    for (QAction* b : w.toolbar()->actions())
        QVERIFY2(!b->isEnabled(), qPrintable(b->objectName()));
    // Menus stay open to browse even when nothing in them works yet.
    for (const MenuRow& r : ExpectedTree)
        if (r.kind == Submenu) QVERIFY2(w.item(r.name)->isEnabled(), r.name);
}

void TestMainWindow::registeredCommandEnablesItemAndButton() {
    for (const auto& b : ExpectedButtons) {
        mdiMain w;
        int runs = 0;
        w.setCommand(b.item, [&] { ++runs; });
        QVERIFY2(w.item(b.item)->isEnabled(), b.item);
        for (QAction* other : w.toolbar()->actions())
            QVERIFY2(other->isEnabled() == (other->objectName() == b.key),
                     qPrintable(QString(b.item) + " enabled " + other->objectName()));
        button(w, b.key)->trigger();
        w.item(b.item)->trigger();
        QVERIFY2(runs == 2, b.key);

        // Withdrawn again: grey and inert.
        w.setCommand(b.item, {});
        QVERIFY(!w.item(b.item)->isEnabled() && !button(w, b.key)->isEnabled());
        button(w, b.key)->trigger();
        QCOMPARE(runs, 2);
    }
    // Items without a toolbar button work the same way.
    mdiMain w;
    int runs = 0;
    w.setCommand("mnuOptionsSalaryExport", [&] { ++runs; });
    w.item("mnuOptionsSalaryExport")->trigger();
    QCOMPARE(runs, 1);
}

void TestMainWindow::restoreModeGreysAllButFileAndBackup() {
    mdiMain w;
    w.setCommand("mnuBackup", [] {});
    w.setCommand("mnuEmployeeNew", [] {});
    w.setSessionItemsEnabled(false);
    // A screen registered during a restore-mode session must not bring its item back.
    w.setCommand("mnuTel", [] {});

    for (QAction* top : w.menuBar()->actions())
        QVERIFY2(top->isEnabled() != RestoreModeGreys.contains(top->objectName()),
                 qPrintable(top->objectName()));
    QVERIFY(!w.toolbar()->isEnabled());
    for (QAction* b : w.toolbar()->actions())
        QVERIFY2(!b->isEnabled(), qPrintable(b->objectName()));
    QVERIFY(w.item("mnuFileLogoff")->isEnabled() && w.item("mnuFileExit")->isEnabled());

    w.setSessionItemsEnabled(true);
    for (const QString& name : RestoreModeGreys)
        QVERIFY2(w.item(name)->isEnabled() == (name != "mnuPettyCash"), qPrintable(name));
    QVERIFY(w.toolbar()->isEnabled());
    QVERIFY(button(w, "frmemployee")->isEnabled());
    QVERIFY(button(w, "frmteldir")->isEnabled());
    QVERIFY(!button(w, "frmaddcall")->isEnabled());

    // Backup/Restore without a screen stays grey either way.
    mdiMain bare;
    bare.setSessionItemsEnabled(false);
    QVERIFY(!bare.item("mnuBackup")->isEnabled());
    QVERIFY(bare.item("mnuFile")->isEnabled());
}

void TestMainWindow::logoffKeepsScreensAndResetsTitle() {
    mdiMain w;
    w.show();
    int logoffs = 0;
    QString titleAtSignal;
    connect(&w, &mdiMain::logoffRequested, [&] {
        ++logoffs;
        titleAtSignal = w.windowTitle();
    });
    QPointer<QWidget> screen = new QLabel("open employee");
    w.addScreen(screen);
    w.setWindowTitle("Quillorne - [Employee]");
    w.item("mnuFileLogoff")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(logoffs, 1);
    QCOMPARE(titleAtSignal, QString("Quillorne"));
    QVERIFY(w.isVisible());
    QVERIFY(screen && screen->isVisible());
    QCOMPARE(w.mdiArea()->subWindowList().size(), 1);
    QCOMPARE(w.mdiArea()->subWindowList()[0]->widget(), screen.data());
}

void TestMainWindow::sharedScreensOpenOnce() {
    mdiMain w;
    w.show();
    auto* first = w.showShared<QLabel>("frmDept");
    first->setText("typed, not saved");
    w.addScreen(new QLabel("employee")); // in front of the shared one
    auto* again = w.showShared<QLabel>("frmDept");
    QCOMPARE(again, first);
    QCOMPARE(again->text(), QString("typed, not saved"));
    QCOMPARE(w.mdiArea()->activeSubWindow()->widget(), static_cast<QWidget*>(first));
    QCOMPARE(w.mdiArea()->subWindowList().size(), 2);

    // Minimised, it is still the open one.
    w.mdiArea()->activeSubWindow()->showMinimized();
    QCOMPARE(w.showShared<QLabel>("frmDept"), first);
    QVERIFY(!w.mdiArea()->activeSubWindow()->isMinimized());
    QCOMPARE(w.mdiArea()->subWindowList().size(), 2);

    // Each key has its own screen.
    QVERIFY(w.showShared<QLabel>("frmLocation") != first);

    // Closed (even before it is deleted), the next request makes a fresh one.
    first->close();
    auto* fresh = w.showShared<QLabel>("frmDept");
    QVERIFY(fresh->text().isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(w.showShared<QLabel>("frmDept"), fresh);

    // Every other screen is a new instance each time.
    const int before = w.mdiArea()->subWindowList().size();
    w.addScreen(new QLabel("a"));
    w.addScreen(new QLabel("a"));
    QCOMPARE(w.mdiArea()->subWindowList().size(), before + 2);
}

void TestMainWindow::exitClosesEveryScreenUnlessOneRefuses() {
    mdiMain w;
    w.show();
    QPointer<QWidget> a = new QLabel("a");
    QPointer<StubbornScreen> unsaved = new StubbornScreen("unsaved");
    QPointer<QWidget> b = new QLabel("b");
    w.addScreen(a);
    w.addScreen(unsaved);
    w.addScreen(b);

    w.item("mnuFileExit")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(w.isVisible());
    QVERIFY(unsaved && unsaved->isVisible());
    QVERIFY(!a && !b);

    unsaved->mayClose = true;
    w.item("mnuFileExit")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!w.isVisible());
    QVERIFY(!unsaved);
}

void TestMainWindow::aboutShowsVersionAndRevision() {
    testsupport::TempInstall install;
    auto& s = core::InstallSettings::instance();
    s.setValue(core::InstallSettings::Version, "2.4");
    s.setValue(core::InstallSettings::Revision, "117");
    mdiMain w;
    testsupport::DialogDriver dialogs;
    testsupport::MessageRecorder boxes;
    QString caption, version, revision, product;
    dialogs.then([&](QDialog& d) {
        caption = d.windowTitle();
        product = d.findChild<QLabel*>("lblTitle")->text();
        version = d.findChild<QLabel*>("lblVersion")->text();
        revision = d.findChild<QLabel*>("lblRevision")->text();
        d.findChild<QPushButton*>("cmdSysInfo")->click(); // the facts, answered below
        return int(QDialog::Accepted);
    });
    QString facts;
    dialogs.then([&](QDialog& d) {
        facts = d.findChild<QPlainTextEdit*>("txtFacts")->toPlainText();
        return int(QDialog::Accepted);
    });
    w.item("mnuHelpAbout")->trigger();
    QCOMPARE(dialogs.shownClasses(), (QStringList{"frmAbout", "QDialog"}));
    QCOMPARE(caption, QString("About Vantry Quillorne"));
    QVERIFY2(product.contains("Quillorne"), qPrintable(product));
    QCOMPARE(version, QString("Version 2.4"));
    QCOMPARE(revision, QString("Revision 117"));
    QVERIFY2(facts.contains("Qt version: " + QString(qVersion())), qPrintable(facts));
    QVERIFY(boxes.calls().isEmpty());
}

void TestMainWindow::systemInfoShowsFactsOrSaysUnavailable() {
    const struct {
        QStringList facts;
        int dialogs;
        QStringList boxes;
    } cases[] = {
        {{}, 0, {"System Information Is Unavailable At This Time"}},
        {{"Operating system: Debian", "Memory: 2.0 GB"}, 1, {}},
    };
    for (const auto& c : cases) {
        testsupport::DialogDriver dialogs;
        testsupport::MessageRecorder boxes;
        QString shown;
        dialogs.then([&](QDialog& d) {
            shown = d.findChild<QPlainTextEdit*>("txtFacts")->toPlainText();
            return int(QDialog::Accepted);
        });
        showSystemFacts(c.facts);
        QCOMPARE(dialogs.shown(), c.dialogs);
        QCOMPARE(boxes.texts(), c.boxes);
        QCOMPARE(shown, c.facts.join('\n'));
    }
}

void TestMainWindow::helpOpensBesideTheWorkWithNoBrokenLinks() {
    mdiMain w;
    w.show();
    testsupport::DialogDriver dialogs;
    w.item("mnuContents")->trigger();
    auto* help = w.findChild<frmHelp*>();
    QVERIFY(help);
    QVERIFY(help->isVisible() && !help->isModal());
    QCOMPARE(dialogs.shown(), 0);
    QTextBrowser* browser = help->browser;
    QCOMPARE(browser->source(), QUrl("qrc:/help/index.html"));
    QVERIFY(browser->toPlainText().contains("Contents"));

    // A second Contents brings the same window back rather than another.
    w.item("mnuContents")->trigger();
    QCOMPARE(w.findChildren<frmHelp*>().size(), 1);

    // Follow every link the way the browser resolves it, from the contents onwards.
    static const QRegularExpression href(QStringLiteral("href=\"([^\"]*)\""));
    QList<QUrl> pending{browser->source()};
    QSet<QString> reached;
    while (!pending.isEmpty()) {
        const QUrl page = pending.takeFirst();
        if (reached.contains(page.path())) continue;
        reached.insert(page.path());
        QVERIFY2(page.scheme() == "qrc", qPrintable("leaves the guide: " + page.toString()));
        QVERIFY2(QFile::exists(":" + page.path()), qPrintable("missing page " + page.path()));
        browser->setSource(page);
        QVERIFY2(!browser->documentTitle().isEmpty(), qPrintable(page.path()));
        QFile f(":" + page.path());
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(f.readAll());
        for (auto m = href.globalMatch(html); m.hasNext();) {
            const QUrl target = page.resolved(QUrl(m.next().captured(1)));
            QVERIFY2(!target.path().isEmpty(), qPrintable(page.path()));
            pending << target.adjusted(QUrl::RemoveFragment);
        }
    }
    // No page of the guide is out of reach of the contents.
    QSet<QString> pages;
    for (const QString& file : QDir(":/help").entryList({"*.html"}))
        pages.insert("/help/" + file);
    QCOMPARE(reached, pages);
    QVERIFY(pages.size() >= 5);

    // Exit takes the help window with it, or it would keep the program running.
    QPointer<frmHelp> open = help;
    w.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!open || !open->isVisible());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
