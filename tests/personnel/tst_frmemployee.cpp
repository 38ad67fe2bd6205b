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

class TestFrmEmployee : public QObject {
    Q_OBJECT
private slots:
    void init() {
        core::session().language = UK;
        core::session().baserate = 22;
    }

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
