#include "combos.h"
#include "datebox.h"
#include "recordlist.h"
#include "regional.h"
#include "seams.h"
#include "session.h"
#include "waitpanels.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using testsupport::MessageRecorder;

namespace {
const QString UK = QStringLiteral("English (UK)");
const QString US = QStringLiteral("English (US)");

// An editable drop-down as the screens make them, with text and selection as a user left it.
struct Combo {
    QComboBox box;
    Combo(const QStringList& items, const QString& text, int selStart, int selLength) {
        box.setEditable(true);
        box.addItems(items);
        box.setCurrentIndex(-1);
        box.setEditText(text);
        if (selStart >= 0) box.lineEdit()->setSelection(selStart, selLength);
    }
};

// A window holding a date box and one other control to move the focus to.
struct DateWindow {
    QWidget window;
    DateBox* box;
    QLineEdit* other;
    DateWindow() {
        box = new DateBox(QStringLiteral("txtStartDate"), &window);
        other = new QLineEdit(&window);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(other);
        window.show();
        window.activateWindow();
    }
};

QStringList firstColumn(const RecordList& list) {
    QStringList out;
    for (int i = 0; i < list.topLevelItemCount(); ++i)
        out << list.topLevelItem(i)->text(0);
    return out;
}

void clickHeader(RecordList& list, int column) {
    QHeaderView* header = list.header();
    const QPoint at(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                    header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
}
} // namespace

class TestWidgets : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { core::session().language.clear(); }

    void autocompletecomboFollowsTheTypingRule_data();
    void autocompletecomboFollowsTheTypingRule();
    void attachedComboCompletesRealKeyPresses_data();
    void attachedComboCompletesRealKeyPresses();
    void findcomboitemSearchesExactlyIgnoringCase_data();
    void findcomboitemSearchesExactlyIgnoringCase();
    void foreignKeyCombosKeepTheKey();
    void typedCompletionCountsAsAPick_data();
    void typedCompletionCountsAsAPick();
    void refillKeepsWhatTheComboShowed_data();
    void refillKeepsWhatTheComboShowed();

    void calendarClickFillsTheProfilesFormat_data();
    void calendarClickFillsTheProfilesFormat();
    void calendarButtonToggles();
    void leavingTheBoxWithNoDate_data();
    void leavingTheBoxWithNoDate();
    void escapeFillsTodayOnlyWhenAsked_data();
    void escapeFillsTodayOnlyWhenAsked();
    void setDateAndReadBack_data();
    void setDateAndReadBack();

    void recordListKeepsIdsOutOfTheText();
    void headerClicksSort_data();
    void headerClicksSort();
    void sortHoldsForRefillsAndSingleRows();
    void activationNeedsARow_data();
    void activationNeedsARow();
    void tenThousandRowsFillInOneStep();
    void columnsFitTheirContent_data();
    void columnsFitTheirContent();

    void waitPanelsCloseThemselves_data();
    void waitPanelsCloseThemselves();
};

void TestWidgets::autocompletecomboFollowsTheTypingRule_data() {
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("selStart"); // -1: no selection
    QTest::addColumn<int>("selLength");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<int>("expectedIndex");
    QTest::addColumn<QString>("expectedSelected");
    QTest::addColumn<int>("expectedKey");

    const QStringList a{"apple", "avocado", "apricot"};
    // clang-format off
    QTest::newRow("a letter that begins no item is swallowed")
        << a << "a" << -1 << 0 << 1 << int('x') << "a" << -1 << "" << 0;
    QTest::newRow("first item that begins the text, untyped rest highlighted")
        << a << "a" << -1 << 0 << 1 << int('p') << "apple" << 0 << "ple" << 0;
    QTest::newRow("ignores case and shows the item's case")
        << QStringList{"Marketing", "Sales"} << "" << -1 << 0 << 0 << int('m') << "Marketing" << 0
        << "arketing" << 0;
    QTest::newRow("caret in the middle: the key counts as typed at the end")
        << QStringList{"Bart", "Bert", "Bret"} << "Br" << -1 << 0 << 1 << int('e') << "Bret" << 2
        << "t" << 0;
    QTest::newRow("with a selection the text before it is kept")
        << QStringList{"Smith", "Smythe", "Jones"} << "Smith" << 2 << 3 << 5 << int('y')
        << "Smythe" << 1 << "the" << 0;
    QTest::newRow("with a selection a key that begins nothing changes nothing")
        << QStringList{"Smith"} << "Smith" << 1 << 4 << 5 << int('q') << "Smith" << -1 << "mith"
        << 0;
    QTest::newRow("typing a whole item leaves nothing highlighted")
        << QStringList{"Sales", "Sales Office"} << "Sale" << -1 << 0 << 4 << int('s') << "Sales"
        << 0 << "" << 0;
    QTest::newRow("blank is a character like any other")
        << QStringList{"Sales", "Sales Office"} << "Sales" << -1 << 0 << 5 << int(' ')
        << "Sales Office" << 1 << "Office" << 0;
    QTest::newRow("key 127 is handled") << a << "a" << -1 << 0 << 1 << 127 << "a" << -1 << "" << 0;
    QTest::newRow("backspace passes") << a << "ap" << -1 << 0 << 2 << 8 << "ap" << -1 << "" << 8;
    QTest::newRow("enter passes") << a << "ap" << -1 << 0 << 2 << 13 << "ap" << -1 << "" << 13;
    QTest::newRow("escape passes") << a << "ap" << -1 << 0 << 2 << 27 << "ap" << -1 << "" << 27;
    QTest::newRow("31 passes") << a << "ap" << -1 << 0 << 2 << 31 << "ap" << -1 << "" << 31;
    QTest::newRow("128 passes") << a << "ap" << -1 << 0 << 2 << 128 << "ap" << -1 << "" << 128;
    // clang-format on
}

void TestWidgets::autocompletecomboFollowsTheTypingRule() {
    QFETCH(QStringList, items);
    QFETCH(QString, text);
    QFETCH(int, selStart);
    QFETCH(int, selLength);
    QFETCH(int, caret);
    QFETCH(int, key);
    QFETCH(QString, expectedText);
    QFETCH(int, expectedIndex);
    QFETCH(QString, expectedSelected);
    QFETCH(int, expectedKey);

    Combo c(items, text, selStart, selLength);
    if (selStart < 0) c.box.lineEdit()->setCursorPosition(caret);
    int code = key;
    core::autocompletecombo(code, &c.box);
    QCOMPARE(code, expectedKey);
    QCOMPARE(c.box.currentText(), expectedText);
    QCOMPARE(c.box.currentIndex(), expectedIndex);
    QCOMPARE(c.box.lineEdit()->selectedText(), expectedSelected);
    QCOMPARE(c.box.count(), items.size());
}

void TestWidgets::attachedComboCompletesRealKeyPresses_data() {
    QTest::addColumn<bool>("toLineEdit"); // keys sent to the line edit rather than the combo
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("editKey"); // pressed after the letters, 0 for none
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<int>("expectedIndex");
    // clang-format off
    QTest::newRow("one letter") << false << "m" << 0 << "Marketing" << 0;
    QTest::newRow("letters move on to a later item") << false << "mai" << 0 << "Maintenance"
                                                     << 2;
    QTest::newRow("a letter leaving the list is swallowed")
        << false << "maix" << 0 << "Maintenance" << 2;
    QTest::newRow("backspace removes the highlighted rest")
        << false << "mai" << int(Qt::Key_Backspace) << "Mai" << 2;
    QTest::newRow("the Delete key deletes")
        << false << "mai" << int(Qt::Key_Delete) << "Mai" << 2;
    QTest::newRow("keys sent to the line edit") << true << "sa" << 0 << "Sales" << 1;
    QTest::newRow("line edit: nothing typed twice") << true << "maix" << 0 << "Maintenance"
                                                    << 2;
    // clang-format on
}

void TestWidgets::attachedComboCompletesRealKeyPresses() {
    QFETCH(bool, toLineEdit);
    QFETCH(QString, typed);
    QFETCH(int, editKey);
    QFETCH(QString, expectedText);
    QFETCH(int, expectedIndex);

    QComboBox box;
    box.setEditable(true);
    box.addItems({"Marketing", "Sales", "Maintenance"});
    box.setCurrentIndex(-1);
    core::attachAutoComplete(&box);
    box.show();
    QWidget* target = toLineEdit ? static_cast<QWidget*>(box.lineEdit()) : &box;
    QTest::keyClicks(target, typed);
    if (editKey) {
        // With the character a desktop keyboard sends: Delete types 127 there.
        const QChar typed(editKey == Qt::Key_Delete ? 127 : 8);
        QTest::sendKeyEvent(QTest::Click, target, Qt::Key(editKey), QString(typed), {});
    }
    QCOMPARE(box.currentText(), expectedText);
    QCOMPARE(box.currentIndex(), expectedIndex);
    // Enter must not turn typed text into a new item.
    QTest::keyClick(target, Qt::Key_Return);
    QCOMPARE(box.count(), 3);
}

void TestWidgets::typedCompletionCountsAsAPick_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("picks"); // the items activated, in order
    // clang-format off
    QTest::newRow("completed by typing") << "Sal" << QStringList{"Sales Manager", "Sales Manager", "Sales Manager"};
    QTest::newRow("moves on to a later item") << "Se" << QStringList{"Sales Manager", "Secretary"};
    QTest::newRow("a letter leaving the list picks nothing more")
        << "Sx" << QStringList{"Sales Manager"};
    QTest::newRow("nothing begins so") << "x" << QStringList{};
    // clang-format on
}

void TestWidgets::typedCompletionCountsAsAPick() {
    QFETCH(QString, typed);
    QFETCH(QStringList, picks);
    QComboBox* box = core::autoCompleteCombo(nullptr, "cboPosition");
    std::unique_ptr<QComboBox> owner(box);
    box->addItem("Sales Manager", QVariant::fromValue<qint64>(11));
    box->addItem("Secretary", QVariant::fromValue<qint64>(12));
    box->setCurrentIndex(-1);
    box->show();
    QStringList activated;
    QObject::connect(box, &QComboBox::activated, box,
                     [&](int index) { activated << box->itemText(index); });
    QTest::keyClicks(box, typed);
    QCOMPARE(activated, picks);
    // What the screen reads at save is the same pick.
    if (!picks.isEmpty())
        QCOMPARE(core::comboId(box), box->itemData(box->currentIndex()).toLongLong());
}

void TestWidgets::refillKeepsWhatTheComboShowed_data() {
    QTest::addColumn<bool>("keyed");
    QTest::addColumn<QString>("how"); // "pick", "text" (shown, no row picked), "typed over"
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<qint64>("expectedId");
    // clang-format off
    QTest::newRow("keyed pick follows its row") << true << "pick" << "Leeds" << qint64(2);
    QTest::newRow("keyed text shown from the row") << true << "text" << "Leeds" << core::NoComboId;
    QTest::newRow("plain text shown from the row") << false << "text" << "Lee, Ann" << core::NoComboId;
    QTest::newRow("plain pick") << false << "pick" << "Lee, Ann" << core::NoComboId;
    QTest::newRow("text typed over a pick") << true << "typed over" << "Lee" << core::NoComboId;
    // clang-format on
}

void TestWidgets::refillKeepsWhatTheComboShowed() {
    QFETCH(bool, keyed);
    QFETCH(QString, how);
    QFETCH(QString, expectedText);
    QFETCH(qint64, expectedId);
    const QStringList before =
        keyed ? QStringList{"Hull", "Leeds"} : QStringList{"Lee, Ann", "Ray, Bo"};
    // The refill brings a new row that sorts first, so the old row moves down.
    const QStringList after = keyed ? QStringList{"Bath", "Hull", "Leeds"}
                                    : QStringList{"Ash, Al", "Lee, Ann", "Ray, Bo"};
    const auto fill = [keyed](QComboBox* c, const QStringList& items) {
        for (const QString& text : items)
            if (keyed)
                core::addComboItem(c, text, text == "Bath" ? 3 : text == "Hull" ? 1 : 2);
            else
                c->addItem(text);
    };
    std::unique_ptr<QComboBox> box(core::autoCompleteCombo(nullptr, "cboExitInt"));
    fill(box.get(), before);
    if (how == "pick") {
        box->setCurrentIndex(keyed ? 1 : 0);
    } else if (how == "text") {
        box->setCurrentIndex(-1);
        box->setEditText(keyed ? "Leeds" : "Lee, Ann");
    } else {
        box->setCurrentIndex(1);
        box->setEditText("Lee");
    }
    int signals_ = 0;
    QObject::connect(box.get(), &QComboBox::currentIndexChanged, box.get(), [&] { ++signals_; });
    core::refillCombo(box.get(), [&](QComboBox* c) { fill(c, after); });
    QCOMPARE(box->count(), after.size());
    QCOMPARE(box->currentText(), expectedText);
    QCOMPARE(core::comboId(box.get()), expectedId);
    QCOMPARE(signals_, 0);
}

void TestWidgets::findcomboitemSearchesExactlyIgnoringCase_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("expectedIndex");
    // The list is {"Sales", "Accounts", "IT"} with "IT" picked before the search.
    // clang-format off
    QTest::newRow("first item is 0.5") << "Sales" << "0.5" << 0;
    QTest::newRow("second item") << "Accounts" << "1" << 1;
    QTest::newRow("ignores case") << "accounts" << "1" << 1;
    QTest::newRow("last item") << "it" << "2" << 2;
    QTest::newRow("beginning only is not found") << "Sale" << "" << 2;
    QTest::newRow("trailing blank is not found") << "Sales " << "" << 2;
    QTest::newRow("empty is not found") << "" << "" << 2;
    // clang-format on
}

void TestWidgets::findcomboitemSearchesExactlyIgnoringCase() {
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QFETCH(int, expectedIndex);
    QComboBox box;
    box.addItems({"Sales", "Accounts", "IT"});
    box.setCurrentIndex(2);
    QCOMPARE(core::findcomboitem(&box, text), expected);
    QCOMPARE(box.currentIndex(), expectedIndex);
}

void TestWidgets::foreignKeyCombosKeepTheKey() {
    QComboBox fixed;
    core::addComboItem(&fixed, "Sales", 12);
    core::addComboItem(&fixed, "Accounts", 40);
    fixed.setCurrentIndex(-1);
    QCOMPARE(core::comboId(&fixed), core::NoComboId);
    QVERIFY(core::comboIdValue(&fixed).isNull());
    QVERIFY(core::selectComboId(&fixed, 40));
    QCOMPARE(fixed.currentText(), QString("Accounts"));
    QCOMPARE(core::comboId(&fixed), qint64(40));
    QCOMPARE(core::comboIdValue(&fixed).toLongLong(), qint64(40));
    // A key that is not listed leaves no stale pick behind.
    QVERIFY(!core::selectComboId(&fixed, 99));
    QCOMPARE(fixed.currentIndex(), -1);
    QCOMPARE(core::comboId(&fixed), core::NoComboId);

    QComboBox editable;
    editable.setEditable(true);
    core::addComboItem(&editable, "Leeds", 5);
    core::addComboItem(&editable, "York", 6);
    core::attachAutoComplete(&editable);
    QVERIFY(core::selectComboId(&editable, 6));
    QCOMPARE(editable.currentText(), QString("York"));
    QCOMPARE(core::comboId(&editable), qint64(6));
    // The user clears the box: the current index stays, the pick is gone.
    editable.lineEdit()->clear();
    QCOMPARE(core::comboId(&editable), core::NoComboId);
    QVERIFY(!core::selectComboId(&editable, 7));
    QCOMPARE(editable.currentText(), QString());
    // A plain text item has no key.
    editable.addItem("No key");
    core::findcomboitem(&editable, "no key");
    QCOMPARE(core::comboId(&editable), core::NoComboId);
}

void TestWidgets::calendarClickFillsTheProfilesFormat_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("UK") << UK << "07/03/2024";
    QTest::newRow("US") << US << "03/07/2024";
    QTest::newRow("empty profile") << "" << "07/03/2024";
    // clang-format on
}

void TestWidgets::calendarClickFillsTheProfilesFormat() {
    QFETCH(QString, language);
    QFETCH(QString, expected);
    core::session().language = language;
    DateWindow w;
    DateBox& box = *w.box;
    QCOMPARE(box.lineEdit()->objectName(), QString("txtStartDateText"));
    QCOMPARE(box.calendar()->selectedDate(), QDate::currentDate());
    QSignalSpy changed(&box, &DateBox::dateChanged);

    QTest::mouseClick(box.button(), Qt::LeftButton);
    QVERIFY(box.isCalendarVisible());
    const QDate day(2024, 3, 7);
    box.calendar()->setSelectedDate(day);
    auto* view = box.calendar()->findChild<QTableView*>("qt_calendar_calendarview");
    QVERIFY(view);
    const QRect cell = view->visualRect(view->currentIndex());
    QVERIFY(cell.isValid());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());

    QCOMPARE(box.text(), expected);
    QCOMPARE(box.date(), day);
    QVERIFY(!box.isCalendarVisible());
    QCOMPARE(changed.count(), 1);
}

void TestWidgets::calendarButtonToggles() {
    DateWindow w;
    // Each box has its own calendar.
    DateBox second(QStringLiteral("txtEndDate"), &w.window);
    QVERIFY(second.calendar() != w.box->calendar());
    QTest::mouseClick(w.box->button(), Qt::LeftButton);
    QVERIFY(w.box->isCalendarVisible());
    QVERIFY(!second.isCalendarVisible());
    QTest::mouseClick(w.box->button(), Qt::LeftButton);
    QVERIFY(!w.box->isCalendarVisible());
    // Opening it shows the box's own date rather than today.
    w.box->setDate(QDate(2021, 8, 14));
    w.box->toggleCalendar();
    QCOMPARE(w.box->calendar()->selectedDate(), QDate(2021, 8, 14));
    w.box->hideCalendar();
}

void TestWidgets::leavingTheBoxWithNoDate_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("warn");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<QString>("expectedMessage"); // empty: no box
    const QString ukMessage = QStringLiteral("Please enter the date in the format DD/MM/YYYY");
    const QString usMessage = QStringLiteral("Please enter the date in the format MM/DD/YYYY");
    // clang-format off
    QTest::newRow("no such day is cleared") << UK << false << "32/01/2024" << "" << "";
    QTest::newRow("words are cleared") << UK << false << "soon" << "" << "";
    QTest::newRow("US order under UK is cleared") << UK << false << "12/31/2024" << "" << "";
    QTest::newRow("a date stays") << UK << false << "31/12/2024" << "31/12/2024" << "";
    QTest::newRow("US date stays") << US << false << "12/31/2024" << "12/31/2024" << "";
    QTest::newRow("blanks stay") << UK << false << "  " << "  " << "";
    QTest::newRow("warn: kept with the UK message") << UK << true << "soon" << "soon" << ukMessage;
    QTest::newRow("warn: US message") << US << true << "31/12/2024" << "31/12/2024" << usMessage;
    QTest::newRow("warn: empty profile has the UK message")
        << "" << true << "13/13/2024" << "13/13/2024" << ukMessage;
    QTest::newRow("warn: a date says nothing") << UK << true << "01/02/2024" << "01/02/2024" << "";
    QTest::newRow("warn: blank says nothing") << UK << true << "" << "" << "";
    // clang-format on
}

void TestWidgets::leavingTheBoxWithNoDate() {
    QFETCH(QString, language);
    QFETCH(bool, warn);
    QFETCH(QString, text);
    QFETCH(QString, expectedText);
    QFETCH(QString, expectedMessage);
    core::session().language = language;
    MessageRecorder boxes;
    DateWindow w;
    QVERIFY(QTest::qWaitForWindowActive(&w.window));
    w.box->setWarnOnInvalid(warn);
    w.box->setFocus();
    QVERIFY(w.box->lineEdit()->hasFocus());
    w.box->setText(text);
    w.other->setFocus(Qt::TabFocusReason);
    QCOMPARE(w.box->text(), expectedText);
    if (expectedMessage.isEmpty()) {
        QTest::qWait(20);
        QCOMPARE(boxes.calls().size(), 0);
        QVERIFY(w.other->hasFocus());
    } else {
        QTRY_COMPARE(boxes.texts(), QStringList{expectedMessage});
        QTRY_VERIFY(w.box->lineEdit()->hasFocus());
        QCOMPARE(w.box->text(), expectedText);
    }
}

void TestWidgets::escapeFillsTodayOnlyWhenAsked_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("escapeForToday");
    // clang-format off
    QTest::newRow("UK, Esc for today") << UK << true;
    QTest::newRow("US, Esc for today") << US << true;
    QTest::newRow("Esc left to the dialog") << UK << false;
    // clang-format on
}

void TestWidgets::escapeFillsTodayOnlyWhenAsked() {
    QFETCH(QString, language);
    QFETCH(bool, escapeForToday);
    core::session().language = language;
    QDialog dialog;
    auto* box = new DateBox(QStringLiteral("txtDateIn"), &dialog);
    box->setEscapeForToday(escapeForToday);
    dialog.show();
    box->setText("05/05/2020");
    QTest::keyClick(box->lineEdit(), Qt::Key_Escape);
    if (escapeForToday) {
        QCOMPARE(box->text(), core::regional::formatDate(QDate::currentDate(), language));
        QVERIFY(dialog.isVisible());
    } else {
        QCOMPARE(box->text(), QString("05/05/2020"));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }
}

void TestWidgets::setDateAndReadBack_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("expectedText");
    // clang-format off
    QTest::newRow("UK") << UK << QDate(1999, 12, 1) << "01/12/1999";
    QTest::newRow("US") << US << QDate(1999, 12, 1) << "12/01/1999";
    QTest::newRow("no date empties") << UK << QDate() << "";
    // clang-format on
}

void TestWidgets::setDateAndReadBack() {
    QFETCH(QString, language);
    QFETCH(QDate, date);
    QFETCH(QString, expectedText);
    core::session().language = language;
    DateBox box;
    box.setText("garbage");
    QVERIFY(!box.date().isValid());
    QVERIFY(!box.isBlank());
    QSignalSpy changed(&box, &DateBox::dateChanged);
    box.setDate(date);
    QCOMPARE(box.text(), expectedText);
    QCOMPARE(box.date(), date);
    QCOMPARE(box.isBlank(), !date.isValid());
    QCOMPARE(changed.count(), date.isValid() ? 1 : 0);
}

void TestWidgets::recordListKeepsIdsOutOfTheText() {
    RecordList list;
    list.setColumns({"Surname", "First Name"}, {120, 90});
    QCOMPARE(list.columnCount(), 2);
    QCOMPARE(list.headerItem()->text(1), QString("First Name"));
    QCOMPARE(list.columnWidth(0), 120);
    list.addRecord(501, {"O'Neil", "Ann"});
    list.addRecord(9000000000LL, {"Lee", "Bo"});
    QCOMPARE(list.count(), 2);
    QCOMPARE(list.topLevelItem(0)->text(0), QString("O'Neil"));
    QCOMPARE(list.topLevelItem(0)->text(1), QString("Ann"));
    QCOMPARE(RecordList::idAt(list.topLevelItem(1)), qint64(9000000000LL));
    QCOMPARE(list.selectedId(), qint64(0));
    list.setCurrentItem(list.topLevelItem(1));
    QCOMPARE(list.selectedId(), qint64(9000000000LL));
    QCOMPARE(list.findRecord(501), list.topLevelItem(0));
    list.clearRecords();
    QCOMPARE(list.count(), 0);
    QCOMPARE(list.selectedId(), qint64(0));
    QCOMPARE(list.columnCount(), 2);
}

void TestWidgets::headerClicksSort_data() {
    QTest::addColumn<bool>("toggle");
    QTest::addColumn<QList<int>>("clicks");
    QTest::addColumn<QStringList>("expected");
    // Rows (name, code): Beta 30, alpha 4, 10 200, 9 1.
    const QStringList byNameUp{"10", "9", "alpha", "Beta"};
    const QStringList byNameDown{"Beta", "alpha", "9", "10"};
    const QStringList byCodeUp{"9", "10", "Beta", "alpha"}; // "1" < "200" < "30" < "4"
    const QStringList byCodeDown{"alpha", "Beta", "10", "9"};
    const QStringList asFilled{"Beta", "alpha", "10", "9"};
    // clang-format off
    QTest::newRow("unsorted until clicked") << false << QList<int>{} << asFilled;
    QTest::newRow("as text, ignoring case") << false << QList<int>{0} << byNameUp;
    QTest::newRow("second click stays ascending") << false << QList<int>{0, 0} << byNameUp;
    QTest::newRow("third click stays ascending") << false << QList<int>{0, 0, 0} << byNameUp;
    QTest::newRow("numbers sort as text") << false << QList<int>{1} << byCodeUp;
    QTest::newRow("other column") << false << QList<int>{1, 0} << byNameUp;
    QTest::newRow("toggle: first click ascending") << true << QList<int>{0} << byNameUp;
    QTest::newRow("toggle: same column flips") << true << QList<int>{0, 0} << byNameDown;
    QTest::newRow("toggle: flipped column forgotten") << true << QList<int>{0, 0, 0} << byNameUp;
    QTest::newRow("toggle: other column ascending") << true << QList<int>{0, 1} << byCodeUp;
    QTest::newRow("toggle: other column remembered") << true << QList<int>{0, 1, 1}
                                                     << byCodeDown;
    QTest::newRow("toggle: back to the first") << true << QList<int>{0, 1, 0} << byNameUp;
    // clang-format on
}

void TestWidgets::headerClicksSort() {
    QFETCH(bool, toggle);
    QFETCH(QList<int>, clicks);
    QFETCH(QStringList, expected);
    RecordList list;
    list.setToggleSort(toggle);
    list.setColumns({"Name", "Code"}, {100, 100});
    list.addRecord(1, {"Beta", "30"});
    list.addRecord(2, {"alpha", "4"});
    list.addRecord(3, {"10", "200"});
    list.addRecord(4, {"9", "1"});
    list.show();
    for (int column : clicks)
        clickHeader(list, column);
    QCOMPARE(firstColumn(list), expected);
    // Ids travel with their rows.
    for (int i = 0; i < list.topLevelItemCount(); ++i) {
        const QTreeWidgetItem* row = list.topLevelItem(i);
        const qint64 id = RecordList::idAt(row);
        QCOMPARE(row->text(0), (QStringList{"", "Beta", "alpha", "10", "9"}.at(int(id))));
    }
}

void TestWidgets::sortHoldsForRefillsAndSingleRows() {
    RecordList list;
    list.setToggleSort(true);
    list.setColumns({"Name"});
    list.show();
    list.addRecord(1, {"m"});
    clickHeader(list, 0);
    clickHeader(list, 0); // descending now
    list.clearRecords();
    list.beginFill();
    for (const QString name : {"c", "a", "e", "b"})
        list.addRecord(name.at(0).unicode(), {name});
    QCOMPARE(list.count(), 4);
    QCOMPARE(list.topLevelItemCount(), 0);
    list.endFill();
    QCOMPARE(firstColumn(list), (QStringList{"e", "c", "b", "a"}));
    list.addRecord(100, {"d"});
    list.addRecord(101, {"f"});
    list.addRecord(102, {"A"});
    QCOMPARE(firstColumn(list), (QStringList{"f", "e", "d", "c", "b", "a", "A"}));
}

void TestWidgets::activationNeedsARow_data() {
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("selected"); // -1: none
    QTest::addColumn<bool>("doubleClick");
    QTest::addColumn<QList<qint64>>("expected");
    // clang-format off
    QTest::newRow("double click on a row") << 3 << -1 << true << QList<qint64>{12};
    QTest::newRow("double click on an empty list") << 0 << -1 << true << QList<qint64>{};
    QTest::newRow("OK with a selected row") << 3 << 2 << false << QList<qint64>{13};
    QTest::newRow("OK with no selection") << 3 << -1 << false << QList<qint64>{};
    QTest::newRow("OK on an empty list") << 0 << -1 << false << QList<qint64>{};
    // clang-format on
}

void TestWidgets::activationNeedsARow() {
    QFETCH(int, rows);
    QFETCH(int, selected);
    QFETCH(bool, doubleClick);
    QFETCH(QList<qint64>, expected);
    RecordList list;
    list.setColumns({"Name"});
    for (int i = 0; i < rows; ++i)
        list.addRecord(11 + i, {QString("Row %1").arg(i)});
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    if (selected >= 0) list.setCurrentItem(list.topLevelItem(selected));
    QSignalSpy activated(&list, &RecordList::recordActivated);
    if (doubleClick) {
        const QPoint at = rows > 0 ? list.visualItemRect(list.topLevelItem(1)).center()
                                   : list.viewport()->rect().center();
        // A person's double click starts with a press; QTest's double click has none.
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    } else {
        list.activateSelected();
    }
    QList<qint64> ids;
    for (const auto& args : activated)
        ids << args.at(0).toLongLong();
    QCOMPARE(ids, expected);
}

void TestWidgets::tenThousandRowsFillInOneStep() {
    RecordList list;
    list.setColumns({"Surname", "First Name", "Department", "Extension"});
    list.resize(600, 400);
    list.show();
    clickHeader(list, 0);
    QElapsedTimer timer;
    timer.start();
    list.clearRecords();
    list.beginFill();
    for (int i = 0; i < 10000; ++i)
        list.addRecord(i + 1, {QString("Surname %1").arg(9999 - i, 5, 10, QChar('0')),
                               QString("First %1").arg(i), "Sales", QString::number(1000 + i)});
    list.endFill();
    const qint64 fillMs = timer.elapsed();
    QCoreApplication::processEvents();
    const qint64 shownMs = timer.elapsed();
    qDebug("10,000 rows: filled and sorted in %lld ms, first paint done at %lld ms", fillMs,
           shownMs);
    QCOMPARE(list.count(), 10000);
    QCOMPARE(list.topLevelItem(0)->text(0), QString("Surname 00000"));
    QCOMPARE(RecordList::idAt(list.topLevelItem(0)), qint64(10000));
    QCOMPARE(RecordList::idAt(list.topLevelItem(9999)), qint64(1));
}

void TestWidgets::waitPanelsCloseThemselves_data() {
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QString>("text");
    // clang-format off
    QTest::newRow("Form2") << "Form2"
                           << "Please wait. This process may take a couple of minutes depending "
                              "on the size of database.";
    QTest::newRow("frmprogress2") << "frmprogress2" << "Calculating Report";
    // clang-format on
}

void TestWidgets::waitPanelsCloseThemselves() {
    QFETCH(QString, panel);
    QFETCH(QString, text);
    std::unique_ptr<QDialog> dialog;
    QLabel* label = nullptr;
    if (panel == "Form2") {
        auto* p = new core::Form2;
        label = p->Label1;
        dialog.reset(p);
    } else {
        auto* p = new core::frmprogress2;
        label = p->Label1;
        QVERIFY(p->ProgressBar1);
        dialog.reset(p);
    }
    QCOMPARE(dialog->objectName(), panel);
    QCOMPARE(label->text(), text);
    QElapsedTimer shown;
    dialog->show();
    shown.start();
    QVERIFY(dialog->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), 5000);
    QVERIFY2(shown.elapsed() >= 900, "closed before its second was up");
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
}

void TestWidgets::columnsFitTheirContent_data() {
    QTest::addColumn<QStringList>("captions");
    QTest::addColumn<QList<int>>("widths");
    QTest::addColumn<bool>("oneByOne"); // added one at a time, else in one fill
    const QStringList three{"Date", "Notes", "Location"};
    QTest::newRow("filled at once") << three << QList<int>{40, 40} << false;
    QTest::newRow("added one by one") << three << QList<int>{40, 40} << true;
    QTest::newRow("wide given widths kept") << three << QList<int>{400, 400} << false;
    QTest::newRow("one column") << QStringList{"Document"} << QList<int>{} << false;
}

void TestWidgets::columnsFitTheirContent() {
    QFETCH(QStringList, captions);
    QFETCH(QList<int>, widths);
    QFETCH(bool, oneByOne);
    RecordList list;
    list.resize(300, 200);
    list.setColumns(captions, widths);
    const QString longText = "A note long enough to be cut off in a narrow column";
    QStringList cells;
    for (int i = 0; i < captions.size(); ++i)
        cells << longText.left(20 + 10 * i);
    if (!oneByOne) list.beginFill();
    list.addRecord(1, cells);
    list.addRecord(2, QStringList(captions.size(), "x"));
    if (!oneByOne) list.endFill();
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    // Every column but the last (which takes the rest) shows its text whole, and none is
    // narrowed below the width it was given.
    for (int i = 0; i + 1 < captions.size(); ++i) {
        QVERIFY2(list.columnWidth(i) > list.fontMetrics().horizontalAdvance(cells[i]),
                 qPrintable(captions[i]));
        QVERIFY(list.columnWidth(i) >= widths.value(i));
    }
    if (captions.size() == 1) {
        QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QVERIFY(!list.horizontalScrollBar()->isVisible());
    }
}

QTEST_MAIN(TestWidgets)
#include "tst_widgets.moc"
