#include "mdimain.h"

#include "frmabout.h"
#include "frmhelp.h"
#include "menutree.h"
#include "modal.h"
#include "screenhost.h"
#include "toolbaricons.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <algorithm>

namespace {

bool isSessionItem(const QString& name) {
    return std::any_of(std::begin(SessionItems), std::end(SessionItems),
                       [&](const char* item) { return name == QLatin1String(item); });
}

const MenuEntry* menuEntry(const QString& name) {
    for (const MenuEntry& e : MenuTree)
        if (name == QLatin1String(e.name)) return &e;
    return nullptr;
}

} // namespace

mdiMain::mdiMain(QWidget* parent)
    : QMainWindow(parent) {
    setObjectName("mdiMain");
    setWindowTitle("Quillorne");
    area_ = new QMdiArea(this);
    area_->setObjectName("mdiArea");
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setBackground(QColor(128, 128, 128));
    setCentralWidget(area_);
    resize(1100, 720);
    buildMenus();
    buildToolbar();

    setCommand("mnuFileLogoff", [this] {
        setWindowTitle("Quillorne");
        emit logoffRequested();
    });
    setCommand("mnuFileExit", [this] { close(); });
    setCommand("mnuContents", [this] { showHelp(); });
    setCommand("mnuHelpAbout", [this] { showAbout(); });
}

void mdiMain::buildMenus() {
    QMap<QString, QMenu*> menus;
    for (const MenuEntry& e : MenuTree) {
        const QString name = QString::fromLatin1(e.name);
        QMenu* parentMenu = e.parent ? menus.value(QString::fromLatin1(e.parent)) : nullptr;
        Q_ASSERT_X(!e.parent || parentMenu, "mdiMain", "a menu entry comes before its parent");
        QAction* action = nullptr;
        if (e.submenu) {
            QMenu* menu =
                parentMenu ? parentMenu->addMenu(e.caption) : menuBar()->addMenu(e.caption);
            menu->setObjectName(name);
            menus.insert(name, menu);
            action = menu->menuAction();
        } else {
            action =
                parentMenu ? parentMenu->addAction(e.caption) : menuBar()->addAction(e.caption);
            connect(action, &QAction::triggered, this, [this, name] { run(name); });
        }
        action->setObjectName(name);
        actions_.insert(name, action);
    }
}

void mdiMain::buildToolbar() {
    toolbar_ = addToolBar("Toolbar");
    toolbar_->setObjectName("Toolbar1");
    toolbar_->setMovable(false);
    for (const ToolbarEntry& b : ToolbarButtons) {
        QAction* button = toolbar_->addAction(toolbarIcon(b.key), b.tip);
        button->setObjectName(b.key);
        button->setToolTip(b.tip);
        const QString item = QString::fromLatin1(b.item);
        Q_ASSERT_X(menuEntry(item), "mdiMain", "a toolbar button stands for an unknown item");
        connect(button, &QAction::triggered, this, [this, item] { run(item); });
        buttons_.append({button, item});
    }
}

void mdiMain::run(const QString& itemName) {
    // A copy: the command may register or withdraw commands while it runs.
    if (const std::function<void()> command = commands_.value(itemName)) command();
}

void mdiMain::setCommand(const QString& itemName, std::function<void()> command) {
    const MenuEntry* entry = menuEntry(itemName);
    if (!entry || entry->submenu) {
        qWarning("mdiMain::setCommand: %s is no menu item with a command", qPrintable(itemName));
        return;
    }
    if (command)
        commands_.insert(itemName, std::move(command));
    else
        commands_.remove(itemName);
    refreshEnabled();
}

bool mdiMain::isCommandAvailable(const QString& itemName) const {
    return commands_.contains(itemName);
}

void mdiMain::setSessionItemsEnabled(bool enabled) {
    sessionEnabled_ = enabled;
    refreshEnabled();
}

void mdiMain::refreshEnabled() {
    for (const MenuEntry& e : MenuTree) {
        const QString name = QString::fromLatin1(e.name);
        const bool allowed = sessionEnabled_ || !isSessionItem(name);
        actions_.value(name)->setEnabled(allowed && (e.submenu || isCommandAvailable(name)));
    }
    toolbar_->setEnabled(sessionEnabled_);
    for (const auto& [button, item] : buttons_)
        button->setEnabled(sessionEnabled_ && isCommandAvailable(item));
}

QMdiSubWindow* mdiMain::frameOf(QWidget* screen) const {
    for (QMdiSubWindow* sub : area_->subWindowList())
        if (sub->widget() == screen) return sub;
    return nullptr;
}

QMdiSubWindow* mdiMain::addScreen(QWidget* screen, bool topLeft) {
    screen->setAttribute(Qt::WA_DeleteOnClose);
    QMdiSubWindow* sub = area_->addSubWindow(screen);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    // A screen that closes itself takes its frame with it.
    connect(screen, &QObject::destroyed, sub, [sub] { sub->close(); });
    if (topLeft || core::wantsTopLeft(screen)) sub->move(0, 0);
    screen->show();
    sub->show();
    area_->setActiveSubWindow(sub);
    return sub;
}

QWidget* mdiMain::showShared(const QString& key, const std::function<QWidget*()>& make) {
    QPointer<QWidget>& slot = shared_[key];
    // A screen that has closed is on its way out even before it is deleted; a minimised one
    // is hidden inside its frame but still open.
    QMdiSubWindow* sub = slot ? frameOf(slot) : nullptr;
    if (sub && !sub->isHidden() && (!slot->isHidden() || sub->isMinimized())) {
        sub->showNormal();
        area_->setActiveSubWindow(sub);
        return slot;
    }
    slot = make();
    addScreen(slot, true);
    return slot;
}

void mdiMain::closeEvent(QCloseEvent* event) {
    // Every screen is asked first; one that refuses (unsaved work) keeps the program open.
    area_->closeAllSubWindows();
    const QList<QMdiSubWindow*> left = area_->subWindowList();
    if (std::any_of(left.begin(), left.end(),
                    [](QMdiSubWindow* sub) { return !sub->isHidden(); })) {
        event->ignore();
        return;
    }
    if (help_) help_->close();
    event->accept();
}

void mdiMain::showHelp() {
    if (!help_) {
        help_ = new frmHelp(this);
        help_->setAttribute(Qt::WA_DeleteOnClose);
    }
    help_->show();
    help_->raise();
    help_->activateWindow();
}

void mdiMain::showAbout() {
    frmAbout about(this);
    core::showModal(about);
}
