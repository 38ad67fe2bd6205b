#include "commands.h"
#include "datebox.h"
#include "employee_list_pages.h"
#include "errorlog.h"
#include "frmcompany.h"
#include "frmemployee.h"
#include "frmnotes.h"
#include "mdimain.h"
#include "person_record.h"
#include "personrows.h"
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

namespace {

const QString UK = QStringLiteral("English (UK)");
const QString US = QStringLiteral("English (US)");

const QString FirstAiderMessage = QStringLiteral(
    "If you specify this employee as a first aider you must must enter the date they qualified");
const QString NamesMessage =
    QStringLiteral("You need to enter a Firstname,Surname and Startdate before saving an employee");

// The screen is deleted on close once it has been shown; the pointer follows that.
struct Screen {
    QPointer<frmemployee> w;
    Screen()
        : w(new frmemployee) {}
    ~Screen() { delete w.data(); }
    frmemployee* operator->() const { return w.data(); }
};

int count(core::Db& db, const QString& sql, const core::Params& params = {}) {
    return db.scalar(sql, params).toInt();
}

int people(core::Db& db) {
    return count(db, "SELECT COUNT(*) FROM Person");
}

int notes(core::Db& db) {
    return count(db, "SELECT COUNT(*) FROM Notes");
}

qint64 addNote(core::Db& db, qint64 personId) {
    return db.insert(
        "Notes", "Note_ID",
        {{"person_id", personId}, {"Date", QDate(2024, 3, 4)}, {"Description", "Induction done"}});
}

QVariant column(core::Db& db, qint64 id, const char* name) {
    const auto r = db.row("SELECT * FROM Person WHERE Person_ID = ?", {id});
    return r ? r->value(name) : QVariant();
}

QStringList snapshot(core::Db& db, qint64 id) {
    return testsupport::personSnapshot(db, id);
}

struct Keys {
    qint64 company, department, position, location;
};

Keys addOrganisation(core::Db& db) {
    // Entries that sort first, so that the first row of a list is never the one stored.
    db.insert("Company", "Company_ID", {{"Company_Name", "Abbey Mills"}});
    db.insert("Department", "Department_ID", {{"Department", "Admin"}});
    db.insert("Position", "PositionID", {{"Position_name", "Analyst"}});
    db.insert("Location", "Location_ID", {{"Location", "Aberdeen"}});
    return {db.insert("Company", "Company_ID", {{"Company_Name", "Harbour Trading"}}),
            db.insert("Department", "Department_ID", {{"Department", "Accounts"}}),
            db.insert("Position", "PositionID", {{"Position_name", "Clerk"}}),
            db.insert("Location", "Location_ID", {{"Location", "Bristol"}})};
}

qint64 addFullPerson(core::Db& db, const Keys& k) {
    return db.insert("Person", "Person_ID",
                     testsupport::fullPersonRow(k.company, k.department, k.position, k.location));
}

qint64 addPlainPerson(core::Db& db) {
    return db.insert("Person", "Person_ID",
                     {{"firstnames", "Tom"},
                      {"surname", "Hardy"},
                      {"startdate", QDate(2020, 1, 6)},
                      {"salary", "21000"},
                      {"HasLeft", 0},
                      {"blndeleted", 0}});
}

void leave(QWidget* box) {
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(box, &out);
}

// Adds a note through the screen's own Notes page, as the user would.
void addNoteOnPage(frmemployee* w, testsupport::DialogDriver& dialogs) {
    dialogs.then([](QDialog& d) {
        auto& notes = static_cast<frmNotes&>(d);
        notes.txtDate->setDate(QDate(2024, 3, 4));
        notes.txtNotes->setPlainText("Induction done");
        notes.cmdOK->click();
        return int(QDialog::Accepted);
    });
    static_cast<EmployeeListPage*>(w->notesPage)->add();
}

Screen* opened(qint64 id) {
    auto* s = new Screen;
    (*s)->loadcombos();
    (*s)->loadperson(QString::number(id));
    return s;
}

void newNamed(frmemployee* w, const QString& first, const QString& surname) {
    w->isnew(true);
    w->loadcombos();
    w->txtFname->setText(first);
    w->txtSurname->setText(surname);
}

} // namespace

class TestFrmEmployee : public QObject {
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
    void regionalCaptions_data();
    void regionalCaptions();
    void setnewSelectsTheNewEntry();
    void tabsWrapBothWays();
    void leavingABox_data();
    void leavingABox();
    void pensionTicks_data();
    void pensionTicks();
    void focusOutRulesOnlyWhenLeavingForAnotherControl_data();
    void focusOutRulesOnlyWhenLeavingForAnotherControl();
    void menuOpensIndependentNewEmployees();
    void allPageTabsInSight();
    void failedLoadSaysSoAndLogsIt();
};

void TestFrmEmployee::allPageTabsInSight() {
    TestDatabase t;
    Screen w;
    w->show();
    QVERIFY(QTest::qWaitForWindowExposed(w.w.data()));
    auto* tabs = w->findChild<QTabWidget*>();
    QVERIFY(tabs);
    QCOMPARE(tabs->count(), 14);
    QVERIFY2(w->width() <= 1280, qPrintable(QString::number(w->width())));
    QTabBar* bar = tabs->tabBar();
    for (int i = 0; i < tabs->count(); ++i) {
        QVERIFY2(bar->rect().contains(bar->tabRect(i)), qPrintable(tabs->tabText(i)));
        QVERIFY2(!bar->tabText(i).isEmpty(), qPrintable(QString::number(i)));
    }
}

void TestFrmEmployee::failedLoadSaysSoAndLogsIt() {
    TestDatabase t;
    MessageRecorder messages;
    Screen w;
    w->loadperson("987654");
    QCOMPARE(messages.texts(), QStringList{"An error has occured"});
    QVERIFY(messages.calls()[0].title.startsWith("Error Code : "));
    QFile log(core::errorLogPath());
    QVERIFY(log.open(QIODevice::ReadOnly));
    QVERIFY(!log.readAll().trimmed().isEmpty());
}

void TestFrmEmployee::newEmployeeIsSaved_data() {
    QTest::addColumn<bool>("withChild");
    QTest::newRow("no child rows") << false;
    QTest::newRow("a note first") << true;
}

void TestFrmEmployee::newEmployeeIsSaved() {
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

void TestFrmEmployee::okChecksInOrder_data() {
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

void TestFrmEmployee::okChecksInOrder() {
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

void TestFrmEmployee::earlyInsertGoesWithTheScreen_data() {
    QTest::addColumn<int>("how");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("window closed") << 1;
    QTest::newRow("screen destroyed") << 2;
}

void TestFrmEmployee::earlyInsertGoesWithTheScreen() {
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

void TestFrmEmployee::ensurePersonWantsNamesFirst() {
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

void TestFrmEmployee::untouchedSaveChangesNothing() {
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

void TestFrmEmployee::unreadableTextIsRefusedByName_data() {
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

void TestFrmEmployee::unreadableTextIsRefusedByName() {
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

void TestFrmEmployee::saveNeverUndeletes_data() {
    QTest::addColumn<bool>("deletedWhileOpen");
    QTest::newRow("opened from the list of deleted employees") << false;
    QTest::newRow("deleted by another user while open") << true;
}

void TestFrmEmployee::saveNeverUndeletes() {
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

void TestFrmEmployee::twoUsersDoNotOverwriteEachOther() {
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

void TestFrmEmployee::refillKeepsTheInterviewer() {
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

void TestFrmEmployee::leaverTickAndUntick() {
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

void TestFrmEmployee::failedSaveKeepsTheScreen() {
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

void TestFrmEmployee::regionalCaptions_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("postcode");
    QTest::addColumn<QString>("salary");
    QTest::addColumn<QString>("sign");
    QTest::addColumn<bool>("pensionTicks");
    QTest::newRow("UK") << UK << "Postcode"
                        << "Salary" << QStringLiteral("£") << true;
    QTest::newRow("US") << US << "Zip Code"
                        << "Salary                         $"
                        << "$" << false;
}

void TestFrmEmployee::regionalCaptions() {
    QFETCH(QString, language);
    QFETCH(QString, postcode);
    QFETCH(QString, salary);
    QFETCH(QString, sign);
    QFETCH(bool, pensionTicks);
    TestDatabase t;
    core::session().language = language;
    Screen w;
    QCOMPARE(w->lblPCode->text(), postcode);
    QCOMPARE(w->lblBankPCode->text(), postcode);
    QCOMPARE(w->lblSalary->text(), salary);
    QCOMPARE(w->currencyLabels.size(), 5);
    for (QLabel* l : w->currencyLabels)
        QCOMPARE(l->text(), sign);
    QCOMPARE(w->chkCompFig->isEnabled(), pensionTicks);
    QCOMPARE(w->chkEmpFig->isEnabled(), pensionTicks);
    QCOMPARE(w->lblCompFigure->isEnabled(), pensionTicks);
}

void TestFrmEmployee::setnewSelectsTheNewEntry() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    const Keys k = addOrganisation(db);
    Screen w;
    newNamed(w.w, "Ann", "Lee");
    w->cboDepartment->setCurrentIndex(w->cboDepartment->findText("Accounts"));

    // What a maintenance screen does after adding entries: one at the head of its list (index
    // 0), one in the middle, each followed by a refill that must not lose the earlier one.
    const qint64 company = db.insert("Company", "Company_ID", {{"Company_Name", "Aardvark Ltd"}});
    const qint64 location = db.insert("Location", "Location_ID", {{"Location", "Leeds"}});
    w->loadcombos();
    w->setnew("Company", "aardvark ltd");
    w->loadcombos();
    w->setnew("Location", "Leeds");
    w->setnew("Canteen", "Acme"); // no such list: nothing happens

    QCOMPARE(w->cboCompany->currentText(), QStringLiteral("Aardvark Ltd"));
    QCOMPARE(w->cboLocation->currentText(), QStringLiteral("Leeds"));
    QCOMPARE(w->cboDepartment->currentText(), QStringLiteral("Accounts"));
    QVERIFY(w->ok());
    const auto row = db.row("SELECT * FROM Person");
    QCOMPARE(row->value("Company_ID").toLongLong(), company);
    QCOMPARE(row->value("Location_ID").toLongLong(), location);
    QCOMPARE(row->value("Department_ID").toLongLong(), k.department);
    QVERIFY(row->value("Position_ID").isNull());
}

void TestFrmEmployee::tabsWrapBothWays() {
    TestDatabase t;
    Screen w;
    QCOMPARE(w->tabs->count(), 14);
    QCOMPARE(w->tabs->tabText(13), QStringLiteral("Leaver"));
    w->cmdPreviousTab->click();
    QCOMPARE(w->tabs->currentIndex(), 13);
    w->cmdNextTab->click();
    QCOMPARE(w->tabs->currentIndex(), 0);
}

void TestFrmEmployee::leavingABox_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QStringList>("expected");

    const QString optOut = QStringLiteral(
        "Under the working time regulations (1998) this employee is required to 'Opt Out' if "
        "he/she is to work on average more than 48 hours per week.");
    QTest::newRow("first name") << UK << "txtFname"
                                << "mary ann"
                                << "Mary ann" << QStringList{};
    QTest::newRow("empty surname") << UK << "txtSurname"
                                   << ""
                                   << "" << QStringList{};
    QTest::newRow("postcode") << UK << "txtPCode"
                              << "bs1 4xy"
                              << "BS1 4XY" << QStringList{};
    QTest::newRow("hours 48") << UK << "txtEmpHours"
                              << "48"
                              << "48" << QStringList{};
    QTest::newRow("hours 48.5 UK") << UK << "txtEmpHours"
                                   << "48.5"
                                   << "48.5" << QStringList{optOut};
    QTest::newRow("hours 48.5 US") << US << "txtEmpHours"
                                   << "48.5"
                                   << "48.5" << QStringList{};
    // Text that cannot be read stays for correction; the save refuses it by name.
    QTest::newRow("holiday days") << UK << "txtDaysHoliday"
                                  << "lots"
                                  << "lots" << QStringList{};
    QTest::newRow("first aider date UK")
        << UK << "txtFirstAiderDateText"
        << "31/31/2020"
        << "31/31/2020"
        << QStringList{"Please enter First Aider Qualification Date in the format DD/MM/YYYY"};
    QTest::newRow("first aider date US")
        << US << "txtFirstAiderDateText"
        << "31/12/2020"
        << "31/12/2020"
        << QStringList{"Please enter First Aider Qualification Date in the format MM/DD/YYYY"};
    QTest::newRow("date of birth")
        << UK << "txtDOBText"
        << "31/02/1980"
        << "31/02/1980" << QStringList{"Please enter the date in the format DD/MM/YYYY"};
    QTest::newRow("car allocation date")
        << UK << "txtAllocationDateText"
        << "1/13/2020"
        << "1/13/2020" << QStringList{"Please enter the date in the format DD/MM/YYYY"};
    QTest::newRow("pension start")
        << US << "txtPensionEFText"
        << "13/01/2020"
        << "13/01/2020" << QStringList{"Please enter the date in the format MM/DD/YYYY"};
    QTest::newRow("registration") << UK << "txtRegNo"
                                  << "ab12 cde"
                                  << "AB12 CDE" << QStringList{};
}

void TestFrmEmployee::leavingABox() {
    QFETCH(QString, language);
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    QFETCH(QStringList, expected);
    TestDatabase t;
    core::session().language = language;
    MessageRecorder messages;
    Screen w;
    w->chkFirstAider->setChecked(true);
    auto* edit = w->findChild<QLineEdit*>(box);
    QVERIFY(edit);
    edit->setText(typed);
    leave(edit);
    // Date boxes say so once the focus has moved on.
    QTRY_COMPARE(messages.texts(), expected);
    QCOMPARE(edit->text(), kept);
}

void TestFrmEmployee::pensionTicks_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<bool>("answerYes");
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<QString>("figure");
    QTest::addColumn<int>("boxes");

    QTest::newRow("company 5, yes") << "chkCompFig"
                                    << "5" << true << true << "125.00" << 1;
    QTest::newRow("company 5, no") << "chkCompFig"
                                   << "5" << false << false << "" << 1;
    QTest::newRow("company 100") << "chkCompFig"
                                 << "100" << true << true << "" << 1;
    QTest::newRow("employee 5, yes") << "chkEmpFig"
                                     << "5" << true << true << "97.50" << 1;
    QTest::newRow("employee 100") << "chkEmpFig"
                                  << "100" << true << true << "1950.00" << 1;
    QTest::newRow("employee, no percent") << "chkEmpFig"
                                          << "" << true << false << "" << 1;
}

void TestFrmEmployee::pensionTicks() {
    QFETCH(QString, box);
    QFETCH(QString, percent);
    QFETCH(bool, answerYes);
    QFETCH(bool, ticked);
    QFETCH(QString, figure);
    QFETCH(int, boxes);
    TestDatabase t;
    MessageRecorder messages;
    messages.answerNext(answerYes ? core::MsgAnswer::Yes : core::MsgAnswer::No);
    Screen w;
    const bool company = box == "chkCompFig";
    w->txtSalary->setText("30000");
    (company ? w->txtCompCon : w->txtEmpCon)->setText(percent);
    auto* tick = company ? w->chkCompFig : w->chkEmpFig;
    tick->setChecked(true);

    QCOMPARE(tick->isChecked(), ticked);
    QCOMPARE((company ? w->lblCompFigure : w->lblEmpFigure)->text(), figure);
    QCOMPARE(messages.calls().size(), boxes);
    if (!percent.isEmpty()) {
        QCOMPARE(messages.calls().first().title, QStringLiteral("Confirm"));
        // It asks before changing money: Enter answers No.
        QCOMPARE(messages.calls().first().defaultAnswer, std::optional(core::MsgAnswer::No));
    }
}

void TestFrmEmployee::focusOutRulesOnlyWhenLeavingForAnotherControl_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("reason");
    QTest::addColumn<int>("messages");
    QTest::addColumn<QString>("left");
    const QString half = "12/13/20";
    // clang-format off
    QTest::newRow("48 hours, Tab") << "txtEmpHours" << "50" << int(Qt::TabFocusReason) << 1 << "50";
    QTest::newRow("48 hours, click") << "txtEmpHours" << "50" << int(Qt::MouseFocusReason) << 1 << "50";
    QTest::newRow("48 hours, other window") << "txtEmpHours" << "50" << int(Qt::ActiveWindowFocusReason) << 0 << "50";
    QTest::newRow("48 hours, popup") << "txtEmpHours" << "50" << int(Qt::PopupFocusReason) << 0 << "50";
    QTest::newRow("first aider date, Tab") << "txtFirstAiderDate" << half << int(Qt::TabFocusReason) << 1 << half;
    QTest::newRow("first aider date, other window") << "txtFirstAiderDate" << half << int(Qt::ActiveWindowFocusReason) << 0 << half;
    QTest::newRow("surname, other window") << "txtSurname" << "o'neil" << int(Qt::ActiveWindowFocusReason) << 0 << "o'neil";
    QTest::newRow("surname, Tab") << "txtSurname" << "o'neil" << int(Qt::TabFocusReason) << 0 << "O'neil";
    // clang-format on
}

void TestFrmEmployee::focusOutRulesOnlyWhenLeavingForAnotherControl() {
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(int, reason);
    QFETCH(int, messages);
    QFETCH(QString, left);
    TestDatabase t;
    core::session().language = UK;
    MessageRecorder boxes;
    Screen w;
    w->chkFirstAider->setChecked(true);
    QLineEdit* edit = box == "txtFirstAiderDate" ? w->txtFirstAiderDate->lineEdit()
                                                 : w->findChild<QLineEdit*>(box);
    QVERIFY(edit);
    edit->setText(typed);
    QFocusEvent out(QEvent::FocusOut, Qt::FocusReason(reason));
    QCoreApplication::sendEvent(edit, &out);
    QCoreApplication::processEvents(); // the date box warns once the focus has moved on
    QCOMPARE(boxes.calls().size(), messages);
    QCOMPARE(edit->text(), left);
}

void TestFrmEmployee::menuOpensIndependentNewEmployees() {
    TestDatabase t;
    core::Db& db = t.db();
    MessageRecorder messages;
    db.insert("Company", "Company_ID", {{"Company_Name", "Harbour Trading"}});
    mdiMain window;
    registerCommands(window);
    // As at start-up: screens opened by screens land in the main window.
    core::setScreenHost([&window](QWidget* screen) { window.addScreen(screen); });
    const auto unhost = qScopeGuard([] { core::setScreenHost({}); });
    window.item("mnuEmployeeNew")->trigger();
    window.item("mnuEmployeeNew")->trigger();
    const auto subs = window.mdiArea()->subWindowList();
    QCOMPARE(subs.size(), 2);
    auto* first = qobject_cast<frmemployee*>(subs[0]->widget());
    auto* second = qobject_cast<frmemployee*>(subs[1]->widget());
    QVERIFY(first && second && first != second);
    for (frmemployee* w : {first, second}) {
        QVERIFY(w->recordIsNew());
        QCOMPARE(w->txtStartDate->date(), QDate::currentDate());
        QCOMPARE(w->cboCompany->count(), 1);
    }

    first->txtFname->setText("Ann");
    first->txtSurname->setText("First");
    second->txtFname->setText("Bob");
    second->txtSurname->setText("Second");
    const qint64 a = first->ensurePerson();
    const qint64 b = second->ensurePerson();
    QVERIFY(a > 0 && b > 0 && a != b);
    first->cmdNewCompany->click();
    // The organisation dialog stands over the record, modal, not beside it in the area.
    auto* company = qobject_cast<frmCompany*>(QApplication::activeModalWidget());
    QVERIFY(company && company->ischild && company->addpos == first);
    QCOMPARE(window.mdiArea()->subWindowList().size(), 2);
    company->close();

    subs[0]->close(); // the window's own close button: the early insert goes
    QVERIFY(second->ok());

    QCOMPARE(people(db), 1);
    QCOMPARE(db.scalar("SELECT surname FROM Person WHERE blndeleted = 0").toString(),
             QStringLiteral("Second"));
    QVERIFY(messages.calls().isEmpty());
}

QTEST_MAIN(TestFrmEmployee)
#include "tst_frmemployee.moc"
