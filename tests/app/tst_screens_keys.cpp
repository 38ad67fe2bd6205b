#include "companieslist.h"
#include "datebox.h"
#include "frmabout.h"
#include "frmabsence.h"
#include "frmaction.h"
#include "frmaddcall.h"
#include "frmaddcompany.h"
#include "frmaddcomputer.h"
#include "frmadddoc.h"
#include "frmaddperson.h"
#include "frmaddsoftware.h"
#include "frmaddsupplier.h"
#include "frmadduser.h"
#include "frmappraisal.h"
#include "frmcallhistory.h"
#include "frmcallupdate.h"
#include "frmcompany.h"
#include "frmcompsrch.h"
#include "frmcontact.h"
#include "frmcourse.h"
#include "frmemployee.h"
#include "frmesearch.h"
#include "frmfindsupplier.h"
#include "frmfunds.h"
#include "frmholiday.h"
#include "frmjobhistory.h"
#include "frmlicense.h"
#include "frmlistcall.h"
#include "frmlogin.h"
#include "frmlookupentry.h"
#include "frmnotes.h"
#include "frmoffice.h"
#include "frmoptions.h"
#include "frmpassword.h"
#include "frmperipheral.h"
#include "frmperipheraledit.h"
#include "frmpettycash.h"
#include "frmreprimands.h"
#include "frmservices.h"
#include "frmsoftware.h"
#include "frmsoftwareadd.h"
#include "frmtraining.h"
#include "frmtrainrep.h"
#include "personlist.h"
#include "rptpettycash.h"
#include "seams.h"
#include "taborder.h"
#include "testdb.h"
#include "traininglist.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>
#include <functional>

using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

using Make = std::function<QWidget*()>;
template <class T> Make make() {
    return [] { return static_cast<QWidget*>(new T); };
}

// The first box a user types into on opening: a plain text box, not a date box (whose Esc
// may mean today).
QWidget* firstTextBox(QWidget* screen) {
    for (auto* edit : screen->findChildren<QLineEdit*>()) {
        if (!edit->isVisible() || !edit->isEnabled() || edit->isReadOnly()) continue;
        bool inDateBox = false;
        for (QWidget* p = edit->parentWidget(); p && p != screen; p = p->parentWidget())
            inDateBox = inDateBox || qobject_cast<DateBox*>(p);
        if (!inDateBox) return edit;
    }
    return nullptr;
}

// The button, with what it would do taken away: only the press is counted.
QPushButton* counted(QWidget* screen, const QString& name) {
    auto* button = screen->findChild<QPushButton*>(name);
    if (button) QObject::disconnect(button, &QPushButton::clicked, nullptr, nullptr);
    return button;
}

} // namespace

class TestScreensKeys : public QObject {
    Q_OBJECT
private slots:
    void everyScreenAnswersEnterAndEsc_data();
    void everyScreenAnswersEnterAndEsc();
};

void TestScreensKeys::everyScreenAnswersEnterAndEsc_data() {
    QTest::addColumn<Make>("screen");
    QTest::addColumn<QString>("defaultButton"); // empty: Enter does nothing
    QTest::addColumn<QString>("cancelButton");
    // clang-format off
    QTest::newRow("Company") << make<frmCompany>() << "cmdOK" << "cmdCancel";
    QTest::newRow("Add Dept") << make<frmDept>() << "cmdAdd" << "cmdCancel";
    QTest::newRow("New Location") << make<frmLocation>() << "cmdAdd" << "cmdCancel";
    QTest::newRow("Add Position") << make<frmPosition>() << "cmdAdd" << "cmdCancel";
    QTest::newRow("company search") << make<frmcsearch>() << "cmdSearch" << "cmdCancel";
    QTest::newRow("selection list") << make<companieslist>() << "cmdOK" << "cmdCancel";
    QTest::newRow("employee list") << make<PersonList>() << "cmdOK" << "cmdCancel";
    QTest::newRow("employee search") << make<frmesearch>() << "cmdSearch" << "cmdCancel";
    QTest::newRow("employee") << make<frmemployee>() << "cmdOK" << "cmdCancel";
    QTest::newRow("training list") << make<TrainingList>() << "cmdOK" << "cmdCancel";
    QTest::newRow("training programme") << make<frmtraining>() << "cmdOK" << "cmdCancel";
    QTest::newRow("training report") << make<frmTrainRep>() << "cmdCourseSearch" << "cmdClose";
    QTest::newRow("course (dialog)") << make<frmCourse>() << "cmdOK" << "cmdCancel";
    QTest::newRow("notes (dialog)") << make<frmNotes>() << "cmdOK" << "cmdCancel";
    QTest::newRow("reprimands (dialog)") << make<frmReprimands>() << "cmdOK" << "cmdCancel";
    QTest::newRow("appraisal (dialog)") << make<frmappraisal>() << "cmdOK" << "cmdCancel";
    QTest::newRow("absence (dialog)") << make<frmabsence>() << "cmdOK" << "cmdCancel";
    QTest::newRow("holiday (dialog)") << make<frmHoliday>() << "cmdOK" << "cmdCancel";
    QTest::newRow("job history (dialog)") << make<frmJobHistory>() << "cmdOK" << "cmdCancel";
    QTest::newRow("document (dialog)") << make<frmAddDoc>() << "cmdOK" << "cmdCancel";
    QTest::newRow("login (dialog)") << make<core::frmLogin>() << "cmdOK" << "cmdCancel";
    QTest::newRow("about (dialog)") << make<frmAbout>() << "cmdOK" << "cmdOK";
    QTest::newRow("supplier") << make<frmaddsupplier>() << "cmdOK" << "cmdCancel";
    QTest::newRow("find supplier") << make<frmFindSupplier>() << "cmdView" << "cmdClose";
    QTest::newRow("directory company (dialog)") << make<frmAddCompany>() << "cmdOK" << "cmdCancel";
    QTest::newRow("directory person (dialog)") << make<frmAddPerson>() << "cmdOK" << "cmdCancel";
    QTest::newRow("branch office (dialog)") << make<frmOffice>() << "cmdOK" << "cmdCancel";
    QTest::newRow("new service (dialog)") << make<newservice>() << "cmdOK" << "cmdCancel";
    QTest::newRow("services (dialog)") << make<frmServices>() << "cmdSelect" << "cmdExit";
    QTest::newRow("petty cash") << make<frmPettyCash>() << "cmdOK" << "cmdOK";
    QTest::newRow("petty cash funds (dialog)") << make<frmFunds>() << "cmdOK" << "cmdCancel";
    QTest::newRow("petty cash report") << make<RptPettyCash>() << "cmdRun" << "cmdClose";
    QTest::newRow("computer (dialog)") << make<frmaddcomputer>() << "cmdOK" << "cmdCancel";
    QTest::newRow("computer search (dialog)") << make<frmCompSrch>() << "cmdOK" << "cmdCancel";
    QTest::newRow("software pick (dialog)") << make<frmAddSoftware>() << "cmdOK" << "cmdCancel";
    QTest::newRow("software (dialog)") << make<frmsoftware>() << "cmdOK" << "cmdCancel";
    QTest::newRow("software add (dialog)") << make<frmSoftwareadd>() << "cmdOK" << "cmdClose";
    QTest::newRow("licences (dialog)") << make<frmLicense>() << "cmdOK" << "cmdCancel";
    QTest::newRow("peripheral (dialog)") << make<frmPeripheral>() << "cmdOK" << "cmdCancel";
    QTest::newRow("printer (dialog)") << make<frmprinter>() << "cmdOK" << "cmdCancel";
    QTest::newRow("add user (dialog)") << make<frmAddUser>() << "cmdOK" << "cmdCancel";
    QTest::newRow("change password (dialog)") << make<frmpassword>() << "cmdOK" << "cmdCancel";
    QTest::newRow("options") << make<frmOptions>() << "cmdOK" << "cmdCancel";
    QTest::newRow("helpdesk call") << make<frmaddcall>() << "cmdLog" << "cmdCancel";
    QTest::newRow("call list") << make<frmListCall>() << "cmdOK" << "cmdCancel";
    QTest::newRow("call search (dialog)") << make<frmCallUpdate>() << "cmdSearch" << "cmdCancel";
    QTest::newRow("action pick (dialog)") << make<frmAction>() << "cmdOK" << "cmdCancel";
    QTest::newRow("call history row (dialog)") << make<frmCallHistory>() << "cmdOK" << "cmdOK";
    QTest::newRow("contact info (dialog)") << make<frmContact>() << "cmdOK" << "cmdOK";
    // clang-format on
}

void TestScreensKeys::everyScreenAnswersEnterAndEsc() {
    QFETCH(Make, screen);
    QFETCH(QString, defaultButton);
    QFETCH(QString, cancelButton);
    TestDatabase t;
    MessageRecorder boxes;
    std::unique_ptr<QWidget> w(screen());
    w->show();
    QVERIFY(QTest::qWaitForWindowActive(w.get()));
    QPushButton* ok = counted(w.get(), defaultButton);
    QPushButton* cancel = counted(w.get(), cancelButton);
    QVERIFY(ok);
    QVERIFY(cancel);
    QVERIFY(ok->isDefault());
    QSignalSpy okPressed(ok, &QPushButton::clicked);
    QSignalSpy cancelPressed(cancel, &QPushButton::clicked);

    QWidget* typing = firstTextBox(w.get());
    if (!typing) typing = w.get();
    typing->setFocus();
    QTest::keyClick(typing, Qt::Key_Return);
    QCOMPARE(okPressed.count(), 1);
    QCOMPARE(ok == cancel ? 0 : cancelPressed.count(), 0);
    QTest::keyClick(typing, Qt::Key_Escape);
    QCOMPARE(cancelPressed.count(), ok == cancel ? 2 : 1);
    QVERIFY(boxes.calls().isEmpty());

    // Tab meets the screen's controls in the order the layout shows them.
    const QList<QWidget*> order = core::layoutTabOrder(w.get());
    for (qsizetype i = 1; i < order.size(); ++i) {
        QWidget* next = order[i - 1]->nextInFocusChain();
        while (next != order[i - 1] && !order.contains(next))
            next = next->nextInFocusChain();
        QVERIFY2(next == order[i],
                 qPrintable(QString("Tab from %1 goes to %2, not %3")
                                .arg(order[i - 1]->objectName(), next->objectName(),
                                     order[i]->objectName())));
    }
}

QTEST_MAIN(TestScreensKeys)
#include "tst_screens_keys.moc"
