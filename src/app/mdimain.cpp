#include "mdimain.h"

#include "frmabout.h"
#include "frmhelp.h"
#include "menutree.h"
#include "modal.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>

namespace {

QIcon buttonIcon(QStyle* style, const QString& key) {
    static const QMap<QString, QStyle::StandardPixmap> icons{
        {"frmemployee", QStyle::SP_FileIcon},
        {"frmesearch", QStyle::SP_FileDialogContentsView},
        {"frmdelete", QStyle::SP_TrashIcon},
        {"frmaddcall", QStyle::SP_MessageBoxInformation},
        {"frmupdatecall", QStyle::SP_BrowserReload},
        {"frmaddcomputer", QStyle::SP_ComputerIcon},
        {"frmcompsrch", QStyle::SP_DriveHDIcon},
        {"frmaddsoftware", QStyle::SP_DriveCDIcon},
        {"frmteldir", QStyle::SP_DirHomeIcon},
        {"frmtraining", QStyle::SP_FileDialogNewFolder},
        {"traininglist", QStyle::SP_FileDialogDetailedView},
    };
    return style->standardIcon(icons.value(key, QStyle::SP_FileIcon));
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
        QAction* action = nullptr;
        if (e.submenu) {
            QMenu* menu = e.parent ? menus.value(e.parent)->addMenu(e.caption)
                                   : menuBar()->addMenu(e.caption);
            menu->setObjectName(name);
            menus.insert(name, menu);
            action = menu->menuAction();
        } else {
            action = e.parent ? menus.value(e.parent)->addAction(e.caption)
                              : menuBar()->addAction(e.caption);
            action->setEnabled(false);
            connect(action, &QAction::triggered, this, [this, name] {
                if (auto c = commands_.value(name)) c();
            });
        }
        action->setObjectName(name);
        actions_.insert(name, action);
    }
}

void mdiMain::buildToolbar() {
    toolbar_ = addToolBar("Toolbar1");
    toolbar_->setObjectName("Toolbar1");
    toolbar_->setMovable(false);
    for (const ToolbarEntry& b : ToolbarButtons) {
        QAction* button = toolbar_->addAction(buttonIcon(style(), b.key), b.tip);
        button->setObjectName(b.key);
        button->setToolTip(b.tip);
        button->setEnabled(false);
        const QString item = QString::fromLatin1(b.item);
        connect(button, &QAction::triggered, this, [this, item] {
            if (auto c = commands_.value(item)) c();
        });
        buttons_.append({button, item});
    }
}

void mdiMain::setCommand(const QString& itemName, std::function<void()> command) {
    commands_.insert(itemName, std::move(command));
    refreshEnabled();
}

bool mdiMain::isCommandAvailable(const QString& itemName) const {
    return static_cast<bool>(commands_.value(itemName));
}

void mdiMain::setSessionItemsEnabled(bool enabled) {
    sessionEnabled_ = enabled;
    refreshEnabled();
}

void mdiMain::refreshEnabled() {
    for (const MenuEntry& e : MenuTree) {
        if (e.submenu) continue;
        actions_.value(e.name)->setEnabled(isCommandAvailable(e.name));
    }
    for (const char* name : SessionItems) {
        QAction* a = actions_.value(name);
        const bool isMenu = a->menu() != nullptr;
        a->setEnabled(sessionEnabled_ && (isMenu || isCommandAvailable(name)));
    }
    toolbar_->setEnabled(sessionEnabled_);
    for (const auto& [button, item] : buttons_)
        button->setEnabled(sessionEnabled_ && isCommandAvailable(item));
}

QMdiSubWindow* mdiMain::addScreen(QWidget* screen, bool topLeft) {
    screen->setAttribute(Qt::WA_DeleteOnClose);
    QMdiSubWindow* sub = area_->addSubWindow(screen);
    sub->setAttribute(Qt::WA_DeleteOnClose);
    // A screen that closes itself takes its frame with it.
    connect(screen, &QObject::destroyed, sub, [sub] { sub->close(); });
    if (topLeft) sub->move(0, 0);
    screen->show();
    sub->show();
    area_->setActiveSubWindow(sub);
    return sub;
}

QWidget* mdiMain::showShared(const QString& key, const std::function<QWidget*()>& make) {
    QPointer<QWidget>& slot = shared_[key];
    if (slot) {
        for (QMdiSubWindow* sub : area_->subWindowList())
            if (sub->widget() == slot) {
                sub->showNormal();
                area_->setActiveSubWindow(sub);
            }
        return slot;
    }
    slot = make();
    addScreen(slot, true);
    return slot;
}

void mdiMain::closeEvent(QCloseEvent* event) {
    area_->closeAllSubWindows();
    if (!area_->subWindowList().isEmpty()) {
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
