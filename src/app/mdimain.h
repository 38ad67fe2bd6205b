#pragma once

#include <QMainWindow>
#include <QMap>
#include <QPointer>
#include <functional>

class QAction;
class QMdiArea;
class QMdiSubWindow;
class QToolBar;

// The frame of the program: menus, toolbar and the area that holds the open screens. It holds
// no business logic; each command is registered by the code that owns its screen, and an item
// whose screen is not there is shown disabled.
class mdiMain : public QMainWindow {
    Q_OBJECT
public:
    explicit mdiMain(QWidget* parent = nullptr);

    // Enables the menu item of this name (and the toolbar buttons that stand for it) and runs
    // the command when it is chosen.
    void setCommand(const QString& itemName, std::function<void()> command);
    bool isCommandAvailable(const QString& itemName) const;

    // false greys every top-level item but File and Backup/Restore, and the whole toolbar.
    void setSessionItemsEnabled(bool enabled);
    bool sessionItemsEnabled() const { return sessionEnabled_; }

    // Shows a screen as a window of the main window's area; it is deleted when closed.
    QMdiSubWindow* addScreen(QWidget* screen, bool topLeft = false);
    // The screens that exist once: a second request brings the open one to the front.
    QWidget* showShared(const QString& key, const std::function<QWidget*()>& make);

    QMdiArea* mdiArea() const { return area_; }
    QAction* item(const QString& name) const { return actions_.value(name); }
    QToolBar* toolbar() const { return toolbar_; }

signals:
    void logoffRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildToolbar();
    void refreshEnabled();
    void showHelp();
    void showAbout();

    QMdiArea* area_ = nullptr;
    QToolBar* toolbar_ = nullptr;
    QMap<QString, QAction*> actions_;               // menu items and top-level menus by name
    QMap<QString, std::function<void()>> commands_; // by menu item name
    QList<QPair<QAction*, QString>> buttons_;       // toolbar button, the item it stands for
    QMap<QString, QPointer<QWidget>> shared_;
    QPointer<QWidget> help_;
    bool sessionEnabled_ = true;
};
