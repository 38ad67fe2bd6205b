#include "combos.h"
#include "recordlist.h"
#include "screenbase.h"
#include "taborder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QtTest>
#include <functional>

namespace {

enum class Kind { Dialog, Plain };

// A screen as the program makes them: fields, a list, a default button, a cancel button and
// one more button, all on a dialog or on a plain widget (a screen of the main window's area).
struct Screen {
    std::unique_ptr<QWidget> window;
    QLineEdit* line = nullptr;
    QComboBox* combo = nullptr;
    QComboBox* fixedCombo = nullptr;
    QCheckBox* tick = nullptr;
    QTextEdit* text = nullptr;
    RecordList* list = nullptr;
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* other = nullptr;
    QStringList pressed;

    explicit Screen(Kind kind) {
        if (kind == Kind::Dialog)
            window = std::make_unique<QDialog>();
        else
            window = std::make_unique<QWidget>();
        QWidget* w = window.get();
        line = new QLineEdit(w);
        combo = core::autoCompleteCombo(w, "cboPick");
        combo->addItems({"Accounts", "Sales"});
        fixedCombo = new QComboBox(w);
        fixedCombo->addItems({"Yes", "No"});
        tick = new QCheckBox("Tick", w);
        text = new QTextEdit(w);
        list = new RecordList(w);
        list->setColumns({"Name"});
        list->addRecord(7, {"First"});
        list->addRecord(8, {"Second"});
        ok = new QPushButton("OK", w);
        cancel = new QPushButton("Cancel", w);
        other = new QPushButton("Other", w);
        auto* layout = new QVBoxLayout(w);
        for (QWidget* c : std::initializer_list<QWidget*>{line, combo, fixedCombo, tick, text, list,
                                                          other, ok, cancel})
            layout->addWidget(c);
        for (QPushButton* b : {ok, cancel, other})
            QObject::connect(b, &QPushButton::clicked, w, [this, b] { pressed << b->text(); });
        QObject::connect(list, &RecordList::recordActivated, w,
                         [this](qint64 id) { pressed << QString("open %1").arg(id); });
        core::setScreenButtons(w, ok, cancel);
    }

    QWidget* field(const QString& name) const {
        if (name == "line") return line;
        if (name == "combo") return combo;
        if (name == "fixed combo") return fixedCombo;
        if (name == "tick") return tick;
        if (name == "text") return text;
        if (name == "list") return list;
        if (name == "other") return other;
        return nullptr;
    }
};

} // namespace

class TestScreenKeys : public QObject {
    Q_OBJECT
private slots:
    void keysPressTheScreensButtons_data();
    void keysPressTheScreensButtons();
    void listEnterOpensOnlyAHighlightedRow_data();
    void listEnterOpensOnlyAHighlightedRow();
    void tabFollowsTheLayout_data();
    void tabFollowsTheLayout();
};

void TestScreenKeys::keysPressTheScreensButtons_data() {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("okEnabled");
    QTest::addColumn<QStringList>("expected");
    const std::pair<Kind, const char*> kinds[] = {{Kind::Dialog, "dialog"},
                                                  {Kind::Plain, "plain screen"}};
    for (const auto& [kind, name] : kinds) {
        auto row = [&](const char* what) {
            return &QTest::newRow(qPrintable(QString("%1: %2").arg(name, what)));
        };
        // clang-format off
        *row("Enter in a text box") << kind << "line" << int(Qt::Key_Return) << true << QStringList{"OK"};
        *row("keypad Enter in a text box") << kind << "line" << int(Qt::Key_Enter) << true << QStringList{"OK"};
        *row("Enter in a drop-down") << kind << "combo" << int(Qt::Key_Return) << true << QStringList{"OK"};
        *row("Enter in a fixed drop-down") << kind << "fixed combo" << int(Qt::Key_Return) << true << QStringList{"OK"};
        *row("Enter on a tick box") << kind << "tick" << int(Qt::Key_Return) << true << QStringList{"OK"};
        *row("Enter in a box of several lines") << kind << "text" << int(Qt::Key_Return) << true << QStringList{};
        *row("Enter on another button") << kind << "other" << int(Qt::Key_Return) << true << QStringList{"Other"};
        *row("Enter with OK greyed") << kind << "line" << int(Qt::Key_Return) << false << QStringList{};
        *row("Esc in a text box") << kind << "line" << int(Qt::Key_Escape) << true << QStringList{"Cancel"};
        *row("Esc in a drop-down") << kind << "combo" << int(Qt::Key_Escape) << true << QStringList{"Cancel"};
        *row("Esc in a box of several lines") << kind << "text" << int(Qt::Key_Escape) << true << QStringList{"Cancel"};
        *row("Esc in a list") << kind << "list" << int(Qt::Key_Escape) << true << QStringList{"Cancel"};
        *row("Esc with OK greyed") << kind << "line" << int(Qt::Key_Escape) << false << QStringList{"Cancel"};
        // clang-format on
    }
}

void TestScreenKeys::keysPressTheScreensButtons() {
    QFETCH(Kind, kind);
    QFETCH(QString, focus);
    QFETCH(int, key);
    QFETCH(bool, okEnabled);
    QFETCH(QStringList, expected);
    Screen s(kind);
    s.ok->setEnabled(okEnabled);
    s.window->show();
    QVERIFY(QTest::qWaitForWindowActive(s.window.get()));
    QWidget* target = s.field(focus);
    target->setFocus();
    QVERIFY(target->hasFocus());
    QTest::keyClick(target, Qt::Key(key));
    QCOMPARE(s.pressed, expected);
    // A dialog closes only through its own buttons' handlers, never behind them.
    if (kind == Kind::Dialog) QVERIFY(s.window->isVisible());
}

void TestScreenKeys::listEnterOpensOnlyAHighlightedRow_data() {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("highlighted"); // -1: none; -2: a current row that is not highlighted
    QTest::addColumn<QStringList>("expected");
    // clang-format off
    QTest::newRow("dialog: Enter on a row") << Kind::Dialog << 1 << QStringList{"open 8"};
    QTest::newRow("plain screen: Enter on a row") << Kind::Plain << 0 << QStringList{"open 7"};
    QTest::newRow("dialog: no highlighted row") << Kind::Dialog << -1 << QStringList{"OK"};
    QTest::newRow("plain screen: no highlighted row") << Kind::Plain << -1 << QStringList{"OK"};
    QTest::newRow("plain screen: current row not highlighted") << Kind::Plain << -2 << QStringList{"OK"};
    // clang-format on
}

void TestScreenKeys::listEnterOpensOnlyAHighlightedRow() {
    QFETCH(Kind, kind);
    QFETCH(int, highlighted);
    QFETCH(QStringList, expected);
    Screen s(kind);
    s.window->show();
    QVERIFY(QTest::qWaitForWindowActive(s.window.get()));
    s.list->setFocus();
    if (highlighted >= 0) {
        s.list->setCurrentItem(s.list->topLevelItem(highlighted));
    } else {
        s.list->setCurrentItem(s.list->topLevelItem(1));
        s.list->clearSelection();
        if (highlighted == -1) s.list->setCurrentItem(nullptr);
    }
    // The OK of a list screen acts on the highlighted row only.
    QObject::connect(s.ok, &QPushButton::clicked, s.list, &RecordList::activateSelected);
    QTest::keyClick(s.list, Qt::Key_Return);
    QCOMPARE(s.pressed, expected);
}

namespace {
// Builds a screen whose controls are made in the reverse of the order they are laid out in;
// returns the expected Tab order by name.
using Build = std::function<QStringList(QWidget*)>;

QLineEdit* edit(QWidget* parent, const QString& name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    return e;
}
} // namespace

void TestScreenKeys::tabFollowsTheLayout_data() {
    QTest::addColumn<Build>("build");
    QTest::newRow("grid: row by row, left to right") << Build([](QWidget* w) {
        auto* grid = new QGridLayout(w);
        QLineEdit* d = edit(w, "d");
        QLineEdit* c = edit(w, "c");
        QLineEdit* b = edit(w, "b");
        QLineEdit* a = edit(w, "a");
        grid->addWidget(d, 1, 1);
        grid->addWidget(c, 1, 0);
        grid->addWidget(b, 0, 1);
        grid->addWidget(a, 0, 0);
        return QStringList{"a", "b", "c", "d"};
    });
    QTest::newRow("form inside a group, then buttons right to left") << Build([](QWidget* w) {
        auto* cancel = new QPushButton("Cancel", w);
        cancel->setObjectName("cancel");
        auto* ok = new QPushButton("OK", w);
        ok->setObjectName("ok");
        auto* group = new QGroupBox("Details", w);
        QLineEdit* second = edit(group, "second");
        auto* date = new QComboBox(group);
        date->setObjectName("combo");
        QLineEdit* first = edit(group, "first");
        auto* form = new QFormLayout(group);
        form->addRow("First", first);
        form->addRow("Combo", date);
        form->addRow("Second", second);
        auto* buttons = new QHBoxLayout;
        buttons->setDirection(QBoxLayout::RightToLeft);
        buttons->addWidget(cancel);
        buttons->addWidget(ok);
        auto* v = new QVBoxLayout(w);
        v->addWidget(group);
        v->addLayout(buttons);
        return QStringList{"first", "combo", "second", "ok", "cancel"};
    });
    QTest::newRow("tabs, then their pages in order, then what follows") << Build([](QWidget* w) {
        auto* close = new QPushButton("Close", w);
        close->setObjectName("close");
        auto* tabs = new QTabWidget(w);
        auto* page2 = new QWidget;
        auto* page1 = new QWidget;
        QLineEdit* p2 = edit(page2, "p2");
        QLineEdit* p1b = edit(page1, "p1b");
        QLineEdit* p1a = edit(page1, "p1a");
        auto* l1 = new QVBoxLayout(page1);
        l1->addWidget(p1a);
        l1->addWidget(p1b);
        (new QVBoxLayout(page2))->addWidget(p2);
        tabs->addTab(page1, "One");
        tabs->addTab(page2, "Two");
        auto* v = new QVBoxLayout(w);
        v->addWidget(tabs);
        v->addWidget(close);
        return QStringList{"tabbar", "p1a", "p1b", "p2", "close"};
    });
}

void TestScreenKeys::tabFollowsTheLayout() {
    QFETCH(Build, build);
    QWidget screen;
    const QStringList expected = build(&screen);
    if (auto* tabs = screen.findChild<QTabWidget*>())
        tabs->findChild<QTabBar*>()->setObjectName("tabbar");
    core::setScreenButtons(&screen, nullptr, nullptr);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    QStringList order;
    for (QWidget* w : core::layoutTabOrder(&screen))
        order << w->objectName();
    QCOMPARE(order, expected);
    // And the Tab key goes that way, page controls only while their page is on show.
    auto* first = screen.findChild<QWidget*>(expected.first());
    first->setFocus();
    QStringList walked{QApplication::focusWidget()->objectName()};
    for (int i = 1; i < expected.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked << QApplication::focusWidget()->objectName();
    }
    QStringList visible;
    for (const QString& name : expected)
        if (screen.findChild<QWidget*>(name)->isVisible()) visible << name;
    QCOMPARE(walked.mid(0, visible.size()), visible);
}

QTEST_MAIN(TestScreenKeys)
#include "tst_screenkeys.moc"
