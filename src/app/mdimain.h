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
    // the command when it is chosen. An empty command withdraws it and greys the item again.
    void setCommand(const QString& itemName, std::function<void()> command);
    // Whether a command is registered for the item, whatever the session allows at the moment.
    bool isCommandAvailable(const QString& itemName) const;

    // false greys every top-level item but File and Backup/Restore, and the whole toolbar;
    // true gives them back (items without a command stay grey).
    void setSessionItemsEnabled(bool enabled);
    bool sessionItemsEnabled() const { return sessionEnabled_; }

    // Shows a screen as a new window of the main window's area; it is deleted when closed.
    QMdiSubWindow* addScreen(QWidget* screen, bool topLeft = false);

    // The screens that exist once: a second request brings the open one to the front instead
    // of calling make.
    QWidget* showShared(const QString& key, const std::function<QWidget*()>& make);
    template <class T> T* showShared(const QString& key) {
        QWidget* screen = showShared(key, [] { return static_cast<QWidget*>(new T); });
        auto* typed = dynamic_cast<T*>(screen);
        Q_ASSERT_X(typed, "mdiMain::showShared", "one key used for two kinds of screen");
        return typed;
    }

    QMdiArea* mdiArea() const { return area_; }
    // A menu item, top-level menu or submenu by its name (nullptr for an unknown name).
    QAction* item(const QString& name) const { return actions_.value(name); }
    QToolBar* toolbar() const { return toolbar_; }

signals:
    // File, Log off: the window's title is back to "Quillorne" and a new login is due. The
    // window and its open screens stay.
    void logoffRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildToolbar();
    void run(const QString& itemName);
    void refreshEnabled();
    void showHelp();
    void showAbout();
    QMdiSubWindow* frameOf(QWidget* screen) const;

    QMdiArea* area_ = nullptr;
    QToolBar* toolbar_ = nullptr;
    QMap<QString, QAction*> actions_;               // menu items and menus by name
    QMap<QString, std::function<void()>> commands_; // by menu item name
    QList<QPair<QAction*, QString>> buttons_;       // toolbar button, the item it stands for
    QMap<QString, QPointer<QWidget>> shared_;
    QPointer<QWidget> help_;
    bool sessionEnabled_ = true;
};
