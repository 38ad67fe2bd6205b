#include "callassetpages.h"
#include "calllistview.h"
#include "callrows.h"
#include "combos.h"
#include "commands.h"
#include "computerlist.h"
#include "datebox.h"
#include "frmaction.h"
#include "frmaddcall.h"
#include "frmcallhistory.h"
#include "frmcallupdate.h"
#include "frmcontact.h"
#include "frmlistcall.h"
#include "frmsoftwaresel.h"
#include "frmtext.h"
#include "mdimain.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

using namespace callrows;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

const QString Today = QDate::currentDate().toString("dd/MM/yyyy");

// The call screens that were opened as windows of their own, which a test then closes.
template <class T> QList<T*> openScreens() {
    QList<T*> out;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* s = qobject_cast<T*>(w); s && s->isVisible()) out << s;
    return out;
}

template <class T> void closeScreens() {
    for (T* s : openScreens<T>())
        delete s;
}

void pickFault(frmaddcall& s, const QString& fault) {
    const int i = s.cboFault->findText(fault);
    QVERIFY(i >= 0);
    s.cboFault->setCurrentIndex(i);
    emit s.cboFault->activated(i);
}

qint64 storedCall(core::Db& db, const QString& status = "Open") {
    const qint64 id = helpdesk::logCall(db, call(0), Now).callId;
    if (status == "Closed")
        helpdesk::saveCall(db, id, call(0, "Closed"), helpdesk::loadedCallRow(db, id), Now);
    return id;
}

int count(core::Db& db, const QString& table) {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)).toInt();
}

} // namespace

class TestCallScreens : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void logThenCloseOnTheScreen();
    void refusedSavesWriteNothing_data();
    void refusedSavesWriteNothing();
    void actionChain_data();
    void actionChain();
    void pickersFillTheAssetPages_data();
    void pickersFillTheAssetPages();
    void reopenThenUpdate();
    void saveRefusedAfterAnotherUsersChange();
    void callListsOpenTheCall();
    void searchScreen();
    void menuOpensTheScreens();
};

void TestCallScreens::logThenCloseOnTheScreen() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "Brown", "Ann", "214");
    MessageRecorder boxes;
    DialogDriver dialogs;
    frmaddcall s;
    s.NewCall();
    s.show();
    QCOMPARE(s.cmdLog->text(), QString("Log Call"));
    QCOMPARE(s.cmdCancel->text(), QString("Cancel"));
    QVERIFY(!s.cmdAction->isEnabled());
    QCOMPARE(s.cboStatus->currentText(), QString("Open"));
    QCOMPARE(s.txtDateLogged->text(), Today);

    QVERIFY(core::selectComboId(s.cboUser, ann));
    emit s.cboUser->activated(s.cboUser->currentIndex());
    QCOMPARE(s.lblExt->text(), QString("214"));
    // Typing that completes a fault type picks it: its picker opens once, not at every key.
    QStringList pickers;
    dialogs.then([&](QDialog& d) {
        pickers << d.metaObject()->className();
        return int(QDialog::Rejected);
    });
    QTest::keyClicks(s.cboFault, "Pri");
    QCOMPARE(s.cboFault->currentText(), QString("Printer"));
    QCOMPARE(pickers, QStringList{"frmSoftwareSel"});
    s.cboFault->lineEdit()->selectAll(); // typing over it arrives at another fault type
    QTest::keyClicks(s.cboFault, "S");
    QCOMPARE(s.cboFault->currentText(), QString("Scanner"));
    QCOMPARE(dialogs.shown(), 2);
    s.cboFault->setEditText("Network");
    s.txtProblem->setPlainText("No network on the second floor");
    s.cmdLog->click();
    const qint64 id = db.scalar("SELECT MAX(Call_ID) FROM HelpdeskCalls").toLongLong();
    QCOMPARE(boxes.texts(), QStringList{QString("Call Log number is %1").arg(id)});
    QCOMPARE(dialogs.shown(), 2);
    QCOMPARE(s.lblCallNo->text(), QString::number(id));
    QCOMPARE(s.cmdLog->text(), QString("Close"));
    QVERIFY(s.cmdAction->isEnabled());
    QCOMPARE(column(db, id, "person_id").toLongLong(), ann);

    // The row on screen is the stored one: a double click shows it.
    QCOMPARE(s.lvHistory->count(), 1);
    QTreeWidgetItem* first = s.lvHistory->topLevelItem(0);
    QCOMPARE(first->text(1) + "/" + first->text(2), QString("Open/Opened Call"));
    QString shown;
    dialogs.then([&](QDialog& d) {
        auto& h = dynamic_cast<frmCallHistory&>(d);
        shown = h.txtDate->text() + "|" + h.txtStatus->text() + "|" + h.txtAction->toPlainText();
        return int(QDialog::Accepted);
    });
    emit s.lvHistory->recordActivated(RecordList::idAt(first));
    QCOMPARE(shown, Today + "|Open|Opened Call");

    // "Close" saves the fields again; closed now, the call gets its date and row.
    QCOMPARE(core::findcomboitem(s.cboStatus, "Closed").isEmpty(), false);
    s.cmdLog->click();
    QVERIFY(!s.isVisible());
    QCOMPARE(history(db, id), (QStringList{"Closed/Closed Call", "Open/Opened Call"}));
    QCOMPARE(core::Db::toDate(column(db, id, "DateClosed")), QDate::currentDate());
    QCOMPARE(count(db, "HelpdeskCalls"), 1);
}

void TestCallScreens::refusedSavesWriteNothing_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    QTest::newRow("no problem") << "problem" << QString() << helpdesk::MissingProblem;
    QTest::newRow("new call closed") << "status"
                                     << "Closed" << helpdesk::CloseBeforeLogging;
    QTest::newRow("date required unreadable")
        << "required"
        << "31/13/2024"
        << "Please enter Date Required in the format DD/MM/YYYY";
    // The call goes with its history row: nothing is kept when the row cannot be written.
    QTest::newRow("history cannot be written") << "history" << QString() << "Error Code : ";
}

void TestCallScreens::refusedSavesWriteNothing() {
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QString, message);
    TestDatabase t;
    auto& db = t.db();
    if (field == "history") db.exec("DROP TABLE CallHistory");
    MessageRecorder boxes;
    frmaddcall s;
    s.NewCall();
    s.cboFault->setEditText("Monitor");
    s.txtProblem->setPlainText("Flickers");
    if (field == "problem") s.txtProblem->setPlainText(value);
    if (field == "status") QVERIFY(!core::findcomboitem(s.cboStatus, value).isEmpty());
    if (field == "required") s.txtDateRequired->setText(value);
    s.cmdLog->click();
    QCOMPARE(boxes.calls().size(), 1);
    if (field == "history") {
        // A failure shows its own cause under the error's number.
        QVERIFY(boxes.calls()[0].title.startsWith(message));
        QVERIFY(!boxes.calls()[0].text.isEmpty());
    } else {
        QCOMPARE(boxes.texts(), QStringList{message});
    }
    QCOMPARE(count(db, "HelpdeskCalls"), 0);
    QCOMPARE(s.cmdLog->text(), QString("Log Call"));
    QCOMPARE(s.txtDateRequired->text(), field == "required" ? value : QString());
}

void TestCallScreens::actionChain_data() {
    QTest::addColumn<QString>("action"); // "" cancels the pick
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("startsWith");
    QTest::newRow("telephoned, still open") << "Telephoned user"
                                            << "Open"
                                            << "Telephoned user - ";
    QTest::newRow("a note that closes") << "Note/Comment only"
                                        << "Closed" << QString();
    QTest::newRow("cancelled") << QString() << QString() << QString();
}

void TestCallScreens::actionChain() {
    QFETCH(QString, action);
    QFETCH(QString, status);
    QFETCH(QString, startsWith);
    TestDatabase t;
    auto& db = t.db();
    const qint64 id = storedCall(db);
    MessageRecorder boxes;
    DialogDriver dialogs;
    frmaddcall s;
    QVERIFY(s.loadcall(id));
    s.show();
    QCOMPARE(s.cmdLog->text(), QString("Update"));
    // Typed but not saved: it goes in before the chain reads the call back.
    s.txtResolution->setPlainText("Asked user to restart");

    QStringList seen;
    dialogs.then([&](QDialog& d) {
        auto& pick = dynamic_cast<frmAction&>(d);
        seen << pick.windowTitle();
        if (action.isEmpty()) return int(QDialog::Rejected);
        const auto found = pick.lstAction->findItems(action, Qt::MatchExactly);
        if (found.isEmpty()) return int(QDialog::Rejected);
        found.first()->setSelected(true);
        pick.ok();
        return pick.result();
    });
    dialogs.then([&](QDialog& d) {
        auto& note = dynamic_cast<frmText&>(d);
        seen << note.note();
        note.txtNote->setPlainText(note.note() + "rang back");
        return int(QDialog::Accepted);
    });
    dialogs.then([&](QDialog& d) {
        auto& pick = dynamic_cast<frmAction&>(d);
        seen << pick.windowTitle();
        seen << (pick.cmdCancel->isHidden() ? "no cancel" : "cancel");
        QStringList offered; // as the table holds them, not sorted
        for (int i = 0; i < pick.lstAction->count(); ++i)
            offered << pick.lstAction->item(i)->text();
        seen << offered.join(',');
        // The call's own status is offered; OK needs one picked.
        seen << pick.lstAction->currentItem()->text();
        pick.lstAction->clearSelection();
        pick.ok();
        seen << (pick.result() == QDialog::Accepted ? "accepted empty" : "stays");
        pick.lstAction->findItems(status, Qt::MatchExactly).first()->setSelected(true);
        pick.ok();
        return pick.result();
    });
    s.cmdAction->click();

    QCOMPARE(column(db, id, "Resolution").toString(), QString("Asked user to restart"));
    if (action.isEmpty()) {
        QCOMPARE(seen, QStringList{"Select action taken"});
        QCOMPARE(history(db, id), QStringList{"Open/Opened Call"});
        QVERIFY(s.isVisible());
        return;
    }
    QCOMPARE(seen, (QStringList{"Select action taken", startsWith, "Select current status",
                                "no cancel", "Open,Closed", "Open", "stays"}));
    QCOMPARE(history(db, id).first(), status + "/" + startsWith + "rang back");
    QCOMPARE(column(db, id, "currentstatus").toString(), status);
    if (status == "Closed") {
        QCOMPARE(boxes.texts(), QStringList{helpdesk::CallClosedMessage});
        QVERIFY(!s.isVisible());
        QCOMPARE(core::Db::toDate(column(db, id, "DateClosed")), QDate::currentDate());
    } else {
        QCOMPARE(boxes.texts(), QStringList());
        QVERIFY(s.isVisible());
        // Read back: the screen shows the new row at the top.
        QCOMPARE(s.lvHistory->count(), 2);
        QCOMPARE(s.lvHistory->topLevelItem(0)->text(2), startsWith + "rang back");
        QCOMPARE(s.txtResolution->toPlainText(), QString("Asked user to restart"));
    }
}

void TestCallScreens::pickersFillTheAssetPages_data() {
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("invoiced");
    QTest::addColumn<QString>("expiry");       // when picked
    QTest::addColumn<QString>("loadedExpiry"); // when the call is opened again
    QTest::newRow("computer with invoice") << "Computer/Software" << true << "31/01/2025"
                                           << "31/01/2025";
    QTest::newRow("computer without invoice") << "Computer/Software" << false << "N/A" << QString();
    QTest::newRow("printer with invoice") << "Printer" << true << "31/01/2026"
                                          << "31/01/2026";
    QTest::newRow("printer without invoice") << "Printer" << false << QString() << QString();
}

void TestCallScreens::pickersFillTheAssetPages() {
    QFETCH(QString, fault);
    QFETCH(bool, invoiced);
    QFETCH(QString, expiry);
    QFETCH(QString, loadedExpiry);
    TestDatabase t;
    auto& db = t.db();
    const QDate bought = invoiced ? QDate(2024, 1, 31) : QDate();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 pc = addComputer(db, "PC1", ann, bought);
    addComputer(db, "PC2", 0, bought);
    const qint64 printer = addPeripheral(db, "Printer", "LJ4", pc, bought);
    for (const char* product : {"Office", "Acrobat"}) {
        const qint64 sw = db.insert("Software", "Software_ID",
                                    {{"Manufacturer", "Soft"},
                                     {"Product", product},
                                     {"Version", "2"},
                                     {"Licenses", 5},
                                     {"licensesused", 1}});
        db.insertRow("ComputerSoftware", {{"Software_ID", sw}, {"computer_id", pc}});
    }
    MessageRecorder boxes;
    DialogDriver dialogs;
    const bool computer = fault == "Computer/Software";
    QString title;
    dialogs.then([&](QDialog& d) {
        title = d.windowTitle();
        RecordList* list = computer ? dynamic_cast<computerList&>(d).ListView1
                                    : dynamic_cast<frmSoftwareSel&>(d).ListView1;
        QTreeWidgetItem* row = list->findRecord(computer ? pc : printer);
        if (!row) return int(QDialog::Rejected);
        row->setSelected(true);
        list->setCurrentItem(row);
        if (computer) dynamic_cast<computerList&>(d).cmdSelect->click();
        return int(QDialog::Accepted);
    });
    frmaddcall s;
    s.NewCall();
    QVERIFY(core::selectComboId(s.cboUser, ann));
    emit s.cboUser->activated(s.cboUser->currentIndex());
    pickFault(s, fault);
    QCOMPARE(title, computer ? QString("Select Computer") : QString("Select Printer"));
    CallAssetPages* pages = s.tabAsset;
    QCOMPARE(pages->currentIndex(),
             computer ? int(CallAssetPages::ComputerPage) : int(CallAssetPages::PeripheralPage));
    QCOMPARE(computer ? pages->lblModel->text() : pages->lblPModel->text(),
             computer ? QString("OptiPlex PC1") : QString("LJ4"));
    QCOMPARE(computer ? pages->lblWarranty->text() : pages->lblPWarranty->text(), expiry);
    QCOMPARE(computer ? pages->lblAssetNo->text() : pages->lblPAssetNo->text(),
             computer ? QString("A-PC1") : QString("P-LJ4"));
    QCOMPARE(computer ? s.computerid : s.peripheralid, computer ? pc : printer);
    QVERIFY(!helpdesk::computerDetails(db, pc + 100));
    QVERIFY(!helpdesk::peripheralDetails(db, printer + 100));

    QStringList contact;
    dialogs.then([&](QDialog& d) {
        auto& box = dynamic_cast<frmContact&>(d);
        contact << box.txtContact->text() << box.txtInvoice->text() << box.txtWarrantyRef->text();
        return int(QDialog::Accepted);
    });
    (computer ? pages->cmdContact : pages->cmdPContact)->click();
    const QString invoice = invoiced ? (computer ? "INV-PC1" : "PI-LJ4") : "Not Known";
    QCOMPARE(contact, (QStringList{computer ? "0800 PC1" : "0800 HP", invoice,
                                   computer ? "WR-PC1" : "Not Known"}));

    if (computer) {
        QCOMPARE(pages->lstSoftware->count(), 2);
        QListWidgetItem* office = pages->lstSoftware->item(1);
        QCOMPARE(office->text(), QString("Soft Office 2"));
        pages->lstSoftware->setCurrentItem(office);
        emit pages->lstSoftware->itemDoubleClicked(office);
        QCOMPARE(s.txtProblem->toPlainText(), QString("Soft Office 2- "));
        QCOMPARE(office->foreground().color(), QColor(Qt::red));
    } else {
        s.txtProblem->setPlainText("Paper jam");
    }
    s.cmdLog->click();
    const qint64 id = db.scalar("SELECT MAX(Call_ID) FROM HelpdeskCalls").toLongLong();
    QCOMPARE(column(db, id, computer ? "computer_id" : "peripheral_ID").toLongLong(),
             computer ? pc : printer);

    // Opened again, the call shows the same asset, and the software row it is about.
    frmaddcall again;
    QVERIFY(again.loadcall(id));
    QCOMPARE(again.tabAsset->currentIndex(), s.tabAsset->currentIndex());
    QCOMPARE(computer ? again.tabAsset->lblWarranty->text() : again.tabAsset->lblPWarranty->text(),
             loadedExpiry);
    if (computer)
        QCOMPARE(again.tabAsset->lstSoftware->item(1)->foreground().color(), QColor(Qt::red));
}

void TestCallScreens::reopenThenUpdate() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 id = storedCall(db, "Closed");
    MessageRecorder boxes;
    frmaddcall s;
    QVERIFY(s.loadcall(id));
    s.show();
    QCOMPARE(s.windowTitle(), QString("Edit Call"));
    QCOMPARE(s.cmdLog->text(), QString("Re-Open"));
    QCOMPARE(s.cmdCancel->text(), QString("Exit"));
    QCOMPARE(s.lblDateClosed->text(), QString("11/03/2024"));
    const std::initializer_list<QWidget*> lockedWhenClosed = {
        s.cmdAction, s.txtProblem, s.cboFault,      s.cboStatus,
        s.lvHistory, s.cboUser,    s.txtResolution, s.tabAsset->cmdContact};
    for (QWidget* w : lockedWhenClosed)
        QVERIFY2(!w->isEnabled(), qPrintable(w->objectName()));
    QVERIFY(s.tabAsset->cmdPContact->isEnabled());
    QCOMPARE(s.lvHistory->topLevelItem(0)->foreground(0).color(), QColor(Qt::red));

    s.cmdLog->click();
    QVERIFY(s.isVisible());
    QCOMPARE(s.cmdLog->text(), QString("Update"));
    QCOMPARE(s.cmdCancel->text(), QString("Exit"));
    QCOMPARE(s.cboStatus->currentText(), QString("Open"));
    QCOMPARE(s.lblDateClosed->text(), QString());
    for (QWidget* w : lockedWhenClosed)
        QVERIFY2(w->isEnabled(), qPrintable(w->objectName()));
    QTreeWidgetItem* top = s.lvHistory->topLevelItem(0);
    QCOMPARE(top->text(2), QString("Reopened Call"));
    QCOMPARE(RecordList::idAt(top),
             db.scalar("SELECT MAX(CallHistory_ID) FROM CallHistory").toLongLong());
    QVERIFY(!column(db, id, "DateClosed").isNull());

    s.cmdLog->click();
    QVERIFY(!s.isVisible());
    QVERIFY(column(db, id, "DateClosed").isNull());
    QCOMPARE(boxes.texts(), QStringList());
}

void TestCallScreens::saveRefusedAfterAnotherUsersChange() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 id = storedCall(db);
    MessageRecorder boxes;
    frmaddcall s;
    QVERIFY(s.loadcall(id));
    s.show();
    auto userB = t.openSecond("user-b");
    helpdesk::addAction(*userB, id, "Visited user", "With supplier", Now);
    s.txtResolution->setPlainText("Replaced cable");
    s.cmdLog->click();
    QCOMPARE(boxes.calls().size(), 1);
    QVERIFY(boxes.calls()[0].text.startsWith(core::rowChangedMessage("call")));
    QVERIFY(s.isVisible());
    QCOMPARE(s.txtResolution->toPlainText(), QString("Replaced cable"));
    QCOMPARE(column(db, id, "Resolution").toString(), QString());
}

void TestCallScreens::callListsOpenTheCall() {
    TestDatabase t;
    auto& db = t.db();
    QList<qint64> ids;
    // As text these days would sort 01/12, 05/03, 12/02.
    for (const QDate& d : {QDate(2024, 3, 5), QDate(2024, 2, 12), QDate(2023, 12, 1)}) {
        helpdesk::CallText c = call(0);
        c.dateLogged = core::formatDate(d);
        ids << helpdesk::logCall(db, c, Now).callId;
    }
    helpdesk::addAction(db, ids[1], "", "Closed", Now);
    MessageRecorder boxes;

    frmListCall open;
    open.load("Open");
    QCOMPARE(open.lvCalls->count(), 2);
    frmListCall all;
    all.load("All");
    CallListModel* model = all.lvCalls->callModel();
    QCOMPARE(model->rowCount(), 3);
    QCOMPARE(model->data(model->index(1, 0)).toString(), QString::number(ids[1]));
    QCOMPARE(model->data(model->index(1, 5), Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
    QVERIFY(!model->data(model->index(0, 5), Qt::ForegroundRole).isValid());
    QCOMPARE(model->data(model->index(0, 3)).toString(), QString("05/03/2024"));

    emit all.lvCalls->header()->sectionClicked(3);
    QCOMPARE((QList<qint64>{all.lvCalls->idAt(0), all.lvCalls->idAt(1), all.lvCalls->idAt(2)}),
             (QList<qint64>{ids[2], ids[1], ids[0]}));

    all.show();
    all.lvCalls->selectRow(1);
    all.cmdOK->click();
    QVERIFY(!all.isVisible());
    const auto screens = openScreens<frmaddcall>();
    QCOMPARE(screens.size(), 1);
    QCOMPARE(screens[0]->callid, ids[1]);
    QCOMPARE(screens[0]->cmdLog->text(), QString("Re-Open"));
    closeScreens<frmaddcall>();
    QCOMPARE(boxes.texts(), QStringList());
}

void TestCallScreens::searchScreen() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 bob = addPerson(db, "Cole", "Bob");
    const qint64 id = helpdesk::logCall(db, call(ann), Now).callId;
    helpdesk::addAction(db, id, "", "Closed", Now);
    // A mistyped number or name can be put right; every other search ends here.
    const struct {
        const char* name;
        QString job;    // typed over a picked caller
        QString caller; // "ann", "bob" or a typed name, when no job number is typed
        QString message;
        QString opens; // "Re-Open" (the call's screen), "list" or "" for nothing
        bool staysOpen;
    } cases[] = {
        {"closed call by number", QString::number(id), "", "", "Re-Open", false},
        {"unknown number", "4000000000", "", helpdesk::NoCallWithId, "", true},
        {"caller with calls", "", "ann", "", "list", false},
        {"caller without calls", "", "bob", helpdesk::NoCallsForUser, "", false},
        {"name typed that is no one's", "", "Nobody, Ann", "", "", true},
    };
    for (const auto& k : cases) {
        MessageRecorder boxes;
        frmCallUpdate s;
        s.show();
        if (!k.job.isEmpty()) {
            QVERIFY(core::selectComboId(s.cboCaller, ann));
            s.txtJobNo->setText(k.job);
            emit s.txtJobNo->textEdited(k.job);
            QCOMPARE(s.cboCaller->currentText(), QString()); // the number wins
        } else if (k.caller == "ann" || k.caller == "bob") {
            QVERIFY(core::selectComboId(s.cboCaller, k.caller == "ann" ? ann : bob));
        } else {
            s.cboCaller->setEditText(k.caller);
        }
        s.cmdSearch->click();
        QVERIFY2(boxes.texts() == (k.message.isEmpty() ? QStringList() : QStringList{k.message}),
                 k.name);
        QVERIFY2(s.isVisible() == k.staysOpen, k.name);
        if (k.staysOpen)
            QCOMPARE(s.cboCaller->currentText() + s.txtJobNo->text(), k.caller + k.job);
        const auto calls = openScreens<frmaddcall>();
        const auto lists = openScreens<frmListCall>();
        QVERIFY2(calls.size() == (k.opens == "Re-Open") && lists.size() == (k.opens == "list"),
                 k.name);
        if (!calls.isEmpty()) QCOMPARE(calls[0]->cmdLog->text(), QString("Re-Open"));
        if (!lists.isEmpty()) QCOMPARE(lists[0]->lvCalls->idAt(0), id);
        closeScreens<frmaddcall>();
        closeScreens<frmListCall>();
    }
}

void TestCallScreens::menuOpensTheScreens() {
    TestDatabase t;
    DialogDriver dialogs;
    mdiMain w;
    registerHelpdeskCommands(w);
    for (const char* name :
         {"mnuHelpDeskAddItem", "mnuHelpdeskupdatecall", "mnuViewAllOpenCalls", "mnuViewAllCalls"})
        QVERIFY2(w.item(name) && w.item(name)->isEnabled(), name);
    // Two new calls are two screens, each with its own state.
    w.item("mnuHelpDeskAddItem")->trigger();
    auto* first = qobject_cast<frmaddcall*>(w.mdiArea()->activeSubWindow()->widget());
    w.item("mnuHelpDeskAddItem")->trigger();
    auto* second = qobject_cast<frmaddcall*>(w.mdiArea()->activeSubWindow()->widget());
    QVERIFY(first && second && first != second);
    first->txtProblem->setPlainText("first");
    QCOMPARE(second->txtProblem->toPlainText(), QString());
    QVERIFY(first->newcall && second->newcall);

    for (const auto& [item, caption] :
         {std::pair{"mnuViewAllOpenCalls", "All Open Calls"}, {"mnuViewAllCalls", "All Calls"}}) {
        w.item(item)->trigger();
        QWidget* screen = w.mdiArea()->activeSubWindow()->widget();
        QCOMPARE(screen->objectName() + ":" + screen->windowTitle(),
                 QString("frmListCall:") + caption);
    }
    w.item("mnuHelpdeskupdatecall")->trigger();
    QCOMPARE(dialogs.shownClasses(), QStringList{"frmCallUpdate"});
}

QTEST_MAIN(TestCallScreens)
#include "tst_call_screens.moc"
