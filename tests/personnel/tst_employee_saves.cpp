#include "commands.h"
#include "datebox.h"
#include "employee_list_pages.h"
#include "employeescreen.h"
#include "errorlog.h"
#include "frmcompany.h"
#include "frmemployee.h"
#include "mdimain.h"
#include "person_record.h"
#include "recordlist.h"
#include "regional.h"
#include "screenhost.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSqlRecord>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

using testsupport::MessageRecorder;
using testsupport::TestDatabase;
using namespace employeescreen;

class TestEmployeeSaves : public QObject {
    Q_OBJECT
private slots:
    void init() {
        core::session().language = UK;
        core::session().baserate = 22;
    }

    void newEmployeeIsSaved_data();
    void newEmployeeIsSaved();
    void okChecksInOrder_data();
    void okChecksInOrder();
    void earlyInsertGoesWithTheScreen_data();
    void earlyInsertGoesWithTheScreen();
    void ensurePersonWantsNamesFirst();
    void untouchedSaveChangesNothing();
    void unreadableTextIsRefusedByName_data();
    void unreadableTextIsRefusedByName();
    void saveNeverUndeletes_data();
    void saveNeverUndeletes();
    void twoUsersDoNotOverwriteEachOther();
    void refillKeepsTheInterviewer();
    void leaverTickAndUntick();
    void failedSaveKeepsTheScreen();
};

void TestEmployeeSaves::newEmployeeIsSaved_data() {
    QTest::addColumn<bool>("withChild");
    QTest::newRow("no child rows") << false;
    QTest::newRow("a note first") << true;
}

void TestEmployeeSaves::newEmployeeIsSaved() {
    QFETCH(bool, withChild);
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    Screen w;
    newNamed(w.w, "sean", "o'brien");
    QVERIFY(w->recordIsNew());
    QCOMPARE(w->txtStartDate->date(), QDate::currentDate());

    if (withChild) {
        testsupport::DialogDriver dialogs;
        addNoteOnPage(w.w, dialogs);
        const qint64 id = w->personId();
        QVERIFY(id > 0);
        QCOMPARE(dialogs.shown(), 1);
        QCOMPARE(notes(db), 1);
        QCOMPARE(column(db, id, "blndeleted").toInt(), 1);
        QCOMPARE(w->ensurePerson(), id); // a second Add writes no second person
    }
    w->txtSalary->setText("24000");
    QVERIFY(w->ok());
    QVERIFY(messages.calls().isEmpty());

    QCOMPARE(people(db), 1);
    const auto row = db.row("SELECT * FROM Person");
    QCOMPARE(row->value("surname").toString(), QStringLiteral("o'brien"));
    QCOMPARE(row->value("blndeleted").toInt(), 0);
    QCOMPARE(core::Money::fromVariant(row->value("salary")), core::Money::fromInt(24000));
    QCOMPARE(core::Db::toDate(row->value("startdate")), QDate::currentDate());
    QCOMPARE(notes(db), withChild ? 1 : 0);
}

void TestEmployeeSaves::okChecksInOrder_data() {
    QTest::addColumn<bool>("firstAider");
    QTest::addColumn<QString>("surname");
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("allocation");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("saved");

    const QDate start(2024, 2, 1);
    const QString carMessage =
        QStringLiteral("You cannot enter a car allocation date before the employees startdate ") +
        core::regional::formatDate(start, UK);
    QTest::newRow("first aider without a date comes first")
        << true << "" << QDate() << QDate() << QStringList{FirstAiderMessage} << false;
    QTest::newRow("blank surname")
        << false << "  " << start << QDate() << QStringList{NamesMessage} << false;
    QTest::newRow("no start date")
        << false << "Smith" << QDate() << QDate() << QStringList{NamesMessage} << false;
    QTest::newRow("early car is cleared, save goes on")
        << false << "Smith" << start << QDate(2024, 1, 31) << QStringList{carMessage} << true;
    QTest::newRow("car on the start date")
        << false << "Smith" << start << start << QStringList{} << true;
}

void TestEmployeeSaves::okChecksInOrder() {
    QFETCH(bool, firstAider);
    QFETCH(QString, surname);
    QFETCH(QDate, start);
    QFETCH(QDate, allocation);
    QFETCH(QStringList, expected);
    QFETCH(bool, saved);
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    Screen w;
    newNamed(w.w, "Ann", surname);
    w->chkFirstAider->setChecked(firstAider);
    w->txtStartDate->setDate(start);
    w->txtAllocationDate->setDate(allocation);

    QCOMPARE(w->ok(), saved);
    QCOMPARE(messages.texts(), expected);
    QCOMPARE(people(db), saved ? 1 : 0);
    if (saved) {
        const QVariant stored = db.scalar("SELECT AllocationDate FROM Person");
        QCOMPARE(core::Db::toDate(stored), allocation < start ? QDate() : allocation);
    } else {
        QVERIFY(w.w);
        QCOMPARE(w->txtSurname->text(), surname);
    }
}

void TestEmployeeSaves::earlyInsertGoesWithTheScreen_data() {
    QTest::addColumn<int>("how");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("window closed") << 1;
    QTest::newRow("screen destroyed") << 2;
}

void TestEmployeeSaves::earlyInsertGoesWithTheScreen() {
    QFETCH(int, how);
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 other = addPlainPerson(db);
    addNote(db, other);

    auto* w = new Screen;
    newNamed(w->w, "Sean", "Brien");
    testsupport::DialogDriver dialogs;
    addNoteOnPage(w->w, dialogs);
    const qint64 id = (*w)->personId();
    QVERIFY(id > 0);
    QCOMPARE(people(db), 2);
    QCOMPARE(notes(db), 2);

    if (how == 0)
        (*w)->cmdCancel->click();
    else if (how == 1)
        (*w)->close();
    else
        delete w;
    QCOMPARE(people(db), 1);
    if (how != 2) delete w;

    QVERIFY(messages.calls().isEmpty());
    QCOMPARE(people(db), 1);
    QCOMPARE(count(db, "SELECT COUNT(*) FROM Notes WHERE person_id = ?", {id}), 0);
    QCOMPARE(count(db, "SELECT COUNT(*) FROM Notes WHERE person_id = ?", {other}), 1);
}

void TestEmployeeSaves::ensurePersonWantsNamesFirst() {
    TestDatabase t;
    MessageRecorder messages;
    Screen w;
    newNamed(w.w, "Sean", "");
    w->tabs->setCurrentIndex(3);
    QCOMPARE(w->ensurePerson(), 0);
    QCOMPARE(messages.texts(), QStringList{"Please enter Full name first"});
    QCOMPARE(w->tabs->currentIndex(), 0);
    QCOMPARE(people(t.db()), 0);
}

void TestEmployeeSaves::untouchedSaveChangesNothing() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addFullPerson(db, addOrganisation(db));
    const QStringList before = snapshot(db, id);

    std::unique_ptr<Screen> w(opened(id));
    QCOMPARE((*w)->windowTitle(), QStringLiteral("Employee : O'Neil , Mary : %1").arg(id));
    QCOMPARE((*w)->cboCompany->currentText(), QStringLiteral("Harbour Trading"));
    QVERIFY((*w)->chkLeaver->isChecked());
    QCOMPARE((*w)->txtDateLeft->date(), QDate(2024, 5, 31));
    QVERIFY((*w)->ok());

    // Loading a first aider who has left, with a ticked pension box, asks nothing.
    QVERIFY(messages.calls().isEmpty());
    QCOMPARE(snapshot(db, id), before);
}

void TestEmployeeSaves::unreadableTextIsRefusedByName_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message"); // "" when the text is read and saved
    QTest::addColumn<QString>("columnName");
    QTest::addColumn<QString>("stored"); // what the column holds after a save that went through
    const auto amount = [](const char* field) {
        return QStringLiteral("Please enter %1 as an amount, such as 30000 or 30,000.50")
            .arg(field);
    };
    const auto number = [](const char* field) {
        return QStringLiteral("Please enter %1 as a number").arg(field);
    };
    const auto date = [](const char* field) {
        return QStringLiteral("Please enter %1 in the format DD/MM/YYYY").arg(field);
    };
    // clang-format off
    QTest::newRow("car allowance of letters") << "txtCarAllowance" << "abc" << amount("Car Allowance") << "" << "";
    QTest::newRow("petrol allowance with an exponent") << "txtPetrolAllowance" << "1e5" << amount("Petrol Allowance") << "" << "";
    QTest::newRow("car trade value") << "txtCarTradeMoney" << "ten" << amount("Car Trade") << "" << "";
    QTest::newRow("medical cost") << "txtMedCoCost" << "12..5" << amount("Co Cost") << "" << "";
    QTest::newRow("money too large") << "txtMedEmpCost" << "999999999999999" << "Emp Cost is too large: the most it can hold is 99999999999.9999" << "" << "";
    QTest::newRow("salary of letters") << "txtSalary" << "abc" << amount("Salary") << "" << "";
    QTest::newRow("salary too large") << "txtSalary" << "999999999999999" << "Salary is too large: the most it can hold is 99999999999.9999" << "" << "";
    QTest::newRow("hours") << "txtEmpHours" << "full" << number("Employee hours") << "" << "";
    QTest::newRow("holiday days") << "txtDaysHoliday" << "2O" << number("Days Holiday") << "" << "";
    QTest::newRow("company percent") << "txtCompCon" << "5%" << number("Co Cont (Gross)") << "" << "";
    QTest::newRow("date of birth") << "txtDOBText" << "31/02/1970" << date("DOB") << "" << "";
    QTest::newRow("car allocation date") << "txtAllocationDateText" << "2020-13-01" << date("Allocation Date") << "" << "";
    QTest::newRow("car deallocation date") << "txtDeAllocationDateText" << "soon" << date("Deallocation Date") << "" << "";
    QTest::newRow("pension start") << "txtPensionEFText" << "32/01/2016" << date("Effective From") << "" << "";
    // The forms people type for money are read.
    QTest::newRow("allowance in thousands") << "txtCarAllowance" << "1,000" << "" << "CarAllowance" << "1000";
    QTest::newRow("cost with the pound sign") << "txtMedCoCost" << QString::fromUtf8("£30,000") << "" << "MedCoCost" << "30000";
    QTest::newRow("salary with sign and pence") << "txtSalary" << QString::fromUtf8("£30,000.50") << "" << "salary" << "30000.5";
    // clang-format on
}

void TestEmployeeSaves::unreadableTextIsRefusedByName() {
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    QFETCH(QString, columnName);
    QFETCH(QString, stored);
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const Keys k = addOrganisation(db);
    const qint64 id = addFullPerson(db, k);
    const QStringList before = snapshot(db, id);
    std::unique_ptr<Screen> w(opened(id));
    auto* edit = (*w)->findChild<QLineEdit*>(box);
    QVERIFY(edit);
    edit->setText(typed);
    (*w)->txtNationality->setText("Irish");
    if (!message.isEmpty()) {
        QVERIFY(!(*w)->ok());
        QCOMPARE(messages.texts(), QStringList{message});
        QVERIFY(!w->w.isNull());
        QCOMPARE(edit->text(), typed);
        QCOMPARE(snapshot(db, id), before);
        QCOMPARE(db.scalar("SELECT COUNT(*) FROM JobHistory").toInt(), 0);
    } else {
        QVERIFY((*w)->ok());
        QCOMPARE(messages.texts(), QStringList{});
        QCOMPARE(core::Money::fromVariant(column(db, id, qPrintable(columnName))),
                 *core::Money::parse(stored));
        QCOMPARE(column(db, id, "Nationality").toString(), QStringLiteral("Irish"));
    }
}

void TestEmployeeSaves::saveNeverUndeletes_data() {
    QTest::addColumn<bool>("deletedWhileOpen");
    QTest::newRow("opened from the list of deleted employees") << false;
    QTest::newRow("deleted by another user while open") << true;
}

void TestEmployeeSaves::saveNeverUndeletes() {
    QFETCH(bool, deletedWhileOpen);
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addPlainPerson(db);
    auto other = t.openSecond("other-user");
    const auto remove = [&] {
        other->exec("UPDATE Person SET blndeleted = 1 WHERE Person_ID = ?", {id});
    };
    if (!deletedWhileOpen) remove();
    std::unique_ptr<Screen> w(opened(id));
    if (deletedWhileOpen) remove();
    (*w)->txtNationality->setText("Irish");
    const bool saved = (*w)->ok();
    QCOMPARE(saved, !deletedWhileOpen);
    QCOMPARE(column(db, id, "blndeleted").toInt(), 1);
    if (deletedWhileOpen) {
        QCOMPARE(messages.calls().size(), 1);
        QVERIFY(messages.calls()[0].text.startsWith(
            "This employee has been changed by another user since you opened it. Your changes "
            "have not been saved."));
        QCOMPARE((*w)->txtNationality->text(), QStringLiteral("Irish"));
    }
}

void TestEmployeeSaves::twoUsersDoNotOverwriteEachOther() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addPlainPerson(db);
    auto userB = t.openSecond("user-b");
    // A and B open the same employee; B changes the surname and saves.
    std::unique_ptr<Screen> a(opened(id));
    personnel::PersonRecord onB = personnel::loadPerson(*userB, id);
    onB.surname = "Hardie";
    personnel::savePerson(*userB, id, onB, personnel::loadedPersonRow(*userB, id));
    // A changes the salary and saves: refused, A keeps the typing.
    (*a)->txtSalary->setText("25000");
    QVERIFY(!(*a)->ok());
    QCOMPARE(messages.calls().size(), 1);
    QVERIFY(messages.calls()[0].text.startsWith(
        "This employee has been changed by another user since you opened it. Your changes have "
        "not been saved."));
    QCOMPARE((*a)->txtSalary->text(), QStringLiteral("25000"));
    QCOMPARE(column(db, id, "surname").toString(), QStringLiteral("Hardie"));
    QCOMPARE(core::Money::fromVariant(column(db, id, "salary")), core::Money::fromInt(21000));
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM JobHistory").toInt(), 0);

    // A asks for the employee as it is now, and saves from there.
    messages.answerNext(core::MsgAnswer::Yes);
    QVERIFY(!(*a)->ok());
    QCOMPARE((*a)->txtSurname->text(), QStringLiteral("Hardie"));
    (*a)->txtSalary->setText("25000");
    QVERIFY((*a)->ok());
    QCOMPARE(column(db, id, "surname").toString(), QStringLiteral("Hardie"));
    QCOMPARE(core::Money::fromVariant(column(db, id, "salary")), core::Money::fromInt(25000));
}

void TestEmployeeSaves::refillKeepsTheInterviewer() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addPlainPerson(db);
    db.update("Person", "Person_ID", id,
              {{"HasLeft", 1},
               {"finishdate", QDate(2024, 5, 31)},
               {"ExitInt", "Hardy, Tom"},
               {"FinReason", "Moved away"}});
    std::unique_ptr<Screen> w(opened(id));
    QCOMPARE((*w)->cboExitInt->currentText(), QStringLiteral("Hardy, Tom"));
    // What "New.." and the job history's Add do before their dialogs.
    (*w)->loadcombos();
    QCOMPARE((*w)->cboExitInt->currentText(), QStringLiteral("Hardy, Tom"));
    QVERIFY((*w)->ok());
    QCOMPARE(column(db, id, "ExitInt").toString(), QStringLiteral("Hardy, Tom"));
}

void TestEmployeeSaves::leaverTickAndUntick() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addPlainPerson(db);
    {
        std::unique_ptr<Screen> w(opened(id));
        QVERIFY(!(*w)->txtFinReason->isEnabled());
        (*w)->chkFirstAider->setChecked(true);
        (*w)->txtFirstAiderDate->setDate(QDate(2021, 4, 1));
        (*w)->chkLeaver->setChecked(true);
        QCOMPARE(messages.texts(),
                 QStringList{"Warning, This employee is a first aider. Please ensure that there "
                             "is a replacement"});
        QVERIFY((*w)->txtFinReason->isEnabled());
        QCOMPARE((*w)->txtDateLeft->date(), QDate::currentDate());
        (*w)->txtFinReason->setText("Retired");
        QVERIFY((*w)->ok());
    }
    QCOMPARE(column(db, id, "HasLeft").toInt(), 1);
    QCOMPARE(core::Db::toDate(column(db, id, "finishdate")), QDate::currentDate());
    QCOMPARE(column(db, id, "FinReason").toString(), QStringLiteral("Retired"));

    messages.clear();
    {
        std::unique_ptr<Screen> w(opened(id));
        QVERIFY((*w)->chkLeaver->isChecked());
        (*w)->chkLeaver->setChecked(false);
        QVERIFY(!(*w)->txtFinReason->isEnabled());
        QVERIFY((*w)->ok());
    }
    QVERIFY(messages.calls().isEmpty()); // unticking never warns
    QCOMPARE(column(db, id, "HasLeft").toInt(), 0);
    QVERIFY(column(db, id, "finishdate").isNull());
    QCOMPARE(column(db, id, "FinReason").toString(), QString(""));
}

void TestEmployeeSaves::failedSaveKeepsTheScreen() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const qint64 id = addPlainPerson(db);
    std::unique_ptr<Screen> w(opened(id));
    (*w)->txtNationality->setText("Welsh");
    db.exec("DELETE FROM Person WHERE Person_ID = ?", {id});

    QVERIFY(!(*w)->ok());
    QVERIFY(w->w);
    QVERIFY((*w)->isVisible());
    QCOMPARE((*w)->txtNationality->text(), QStringLiteral("Welsh"));
    QCOMPARE(messages.calls().size(), 1);
    // The row has gone from under the screen: another user's doing, told as such.
    QVERIFY(messages.calls().first().text.startsWith(
        "This employee has been changed by another user since you opened it."));
}

QTEST_MAIN(TestEmployeeSaves)
#include "tst_employee_saves.moc"
