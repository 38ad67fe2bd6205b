#include "assetrows.h"
#include "assetwidgets.h"
#include "combos.h"
#include "commands.h"
#include "computerlist.h"
#include "computers.h"
#include "datebox.h"
#include "frmaddcomputer.h"
#include "frmcompsrch.h"
#include "frmperipheral.h"
#include "frmsoftwareadd.h"
#include "licences.h"
#include "mdimain.h"
#include "recordlist.h"
#include "screenhost.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabWidget>
#include <QtTest>

using namespace assetrows;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// Plays the person at "Add Software": picks the product with this key.
DialogDriver::Handler pickSoftware(qint64 id) {
    return [id](QDialog& d) {
        auto& picker = static_cast<frmSoftwareadd&>(d);
        picker.ListView1->setCurrentItem(picker.ListView1->findRecord(id));
        picker.cmdOK->click();
        return d.result();
    };
}

DialogDriver::Handler enterPeripheral(const QString& type, const QString& model) {
    return [type, model](QDialog& d) {
        auto& p = static_cast<frmPeripheral&>(d);
        p.cboType->setEditText(type);
        p.txtModel->setText(model);
        p.txtManufacturer->setText("Logitech");
        p.cmdOK->click();
        return d.result();
    };
}

} // namespace

class TestComputers : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void checksInOrder_data();
    void checksInOrder();
    void ownerIsTheOnePickedByKey_data();
    void ownerIsTheOnePickedByKey();
    void softwareCountsThroughTheScreen();
    void cancelTakesBackAnEarlySavedComputer();
    void peripheralStoredOnce();
    void deleteRefusals_data();
    void deleteRefusals();
    void computerListShowsTheCallersFirst();
    void searchListCrossesAndSorts();
    void menuEntriesOpenTheScreens();
};

void TestComputers::checksInOrder_data() {
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QStringList>("fields"); // name, warranty, date, price
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("page");
    QTest::newRow("good") << true << QStringList{"PC1", "12", "01/02/2024", "600"} << "" << 0;
    QTest::newRow("nothing but a name") << true << QStringList{"PC1", "", "", ""} << "" << 0;
    QTest::newRow("warranty needs date")
        << true << QStringList{"", "12", "", "x"} << "Please enter invoice date" << 4;
    QTest::newRow("warranty bad date")
        << true << QStringList{"", "12", "31/02/2024", "x"} << "Please enter invoice date" << 4;
    QTest::newRow("warranty no number") << true << QStringList{"", "1x", "", "x"}
                                        << "Please enter the number of months warranty." << 3;
    QTest::newRow("price") << true << QStringList{"", "", "", "£abc"}
                           << "Please enter a number only in the price field" << 4;
    QTest::newRow("new needs a name")
        << true << QStringList{" ", "", "x", ""} << "Please enter a computer name" << 0;
    QTest::newRow("old may have none") << false << QStringList{"", "", "", ""} << "" << 0;
    QTest::newRow("date alone") << false << QStringList{"", "", "2024/99/99", ""}
                                << "Please enter the date in the format DD/MM/YYYY" << 4;
}

void TestComputers::checksInOrder() {
    QFETCH(bool, isNew);
    QFETCH(QStringList, fields);
    QFETCH(QString, message);
    QFETCH(int, page);
    TestDatabase fixture;
    MessageRecorder boxes;
    const qint64 old = addComputer(fixture.db(), "OLD");
    frmaddcomputer screen;
    if (isNew)
        screen.NewComp(true);
    else
        screen.load(old);
    screen.txtComputerName->setText(fields[0]);
    screen.txtWarrantyLength->setText(fields[1]);
    screen.invoice->txtInvoiceDate->setText(fields[2]);
    screen.invoice->txtPrice->setText(fields[3]);
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QCOMPARE(count(fixture.db(), "Computers"), message.isEmpty() && isNew ? 2 : 1);
    if (!message.isEmpty()) {
        QCOMPARE(screen.SSTab1->currentIndex(), page);
        // What was typed stays for correction.
        QCOMPARE(screen.txtWarrantyLength->text(), fields[1]);
        QCOMPARE(screen.invoice->txtPrice->text(), fields[3]);
    }
}

void TestComputers::ownerIsTheOnePickedByKey_data() {
    QTest::addColumn<QString>("surname");
    QTest::newRow("apostrophe") << "O'Neil";
    QTest::newRow("hyphen") << "Smith-Jones";
    QTest::newRow("namesake") << "Brown";
}

void TestComputers::ownerIsTheOnePickedByKey() {
    QFETCH(QString, surname);
    TestDatabase fixture;
    auto& db = fixture.db();
    addPerson(db, surname, "Ann"); // a namesake that comes first
    const qint64 ann = addPerson(db, surname, "Ann");
    MessageRecorder boxes;

    frmaddcomputer screen;
    screen.NewComp(true);
    QVERIFY(core::selectComboId(screen.cboUser, ann));
    QCOMPARE(screen.cboUser->currentText(), QString("%1 - %2, Ann").arg(ann).arg(surname));
    screen.txtComputerName->setText("ann-pc");
    emit screen.txtComputerName->editingFinished();
    QCOMPARE(screen.txtComputerName->text(), QString("ANN-PC"));
    screen.cmdOK->click();
    QVERIFY(boxes.texts().isEmpty());
    QCOMPARE(db.scalar("SELECT person_id FROM Computers").toLongLong(), ann);
    QCOMPARE(db.scalar("SELECT ComputerName FROM Computers").toString(), QString("ANN-PC"));

    frmaddcomputer edit;
    edit.load(screen.computerId());
    QCOMPARE(edit.windowTitle(), QString("Edit computer"));
    QCOMPARE(edit.cboUser->currentText(), QString("%1 - %2, Ann").arg(ann).arg(surname));
    edit.cboUser->setCurrentIndex(-1);
    edit.cboUser->setEditText({});
    edit.cmdOK->click();
    QVERIFY(db.scalar("SELECT person_id FROM Computers").isNull());
}

void TestComputers::softwareCountsThroughTheScreen() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 office = addSoftware(db, "Office", 1);
    const qint64 old = addComputer(db, "OLD");
    MessageRecorder boxes;
    DialogDriver person;

    frmaddcomputer screen;
    screen.load(old);
    person.then(pickSoftware(office));
    screen.cmdAddSoftware->click();
    QCOMPARE(used(db, office).toInt(), 1);
    QCOMPARE(screen.lstSoftware->findRecord(office)->text(3), QString("1"));
    QCOMPARE(screen.lstSoftware->findRecord(office)->text(2), QString("2021 "));

    // Over the pool: warned, installed all the same on a second computer.
    frmaddcomputer other;
    other.load(addComputer(db, "OTHER"));
    person.then(pickSoftware(office));
    other.cmdAddSoftware->click();
    QCOMPARE(boxes.count(assets::NotLicensedWarning), 1);
    QCOMPARE(used(db, office).toInt(), 2);

    person.then(pickSoftware(office));
    screen.cmdAddSoftware->click();
    QCOMPARE(boxes.texts().last(), QString("This software is already installed on this computer"));
    QCOMPARE(used(db, office).toInt(), 2);

    screen.lstSoftware->setCurrentItem(screen.lstSoftware->findRecord(office));
    emit screen.lstSoftware->itemClicked(screen.lstSoftware->currentItem(), 0);
    screen.cmdRemoveSoftware->click();
    QCOMPARE(screen.lstSoftware->count(), 0);
    QCOMPARE(used(db, office).toInt(), 1);
}

void TestComputers::cancelTakesBackAnEarlySavedComputer() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 office = addSoftware(db, "Office", 5);
    const qint64 elsewhere = addComputer(db, "ELSEWHERE");
    QVERIFY(assets::installSoftware(db, elsewhere, office));
    MessageRecorder boxes;
    DialogDriver person;

    frmaddcomputer screen;
    screen.NewComp(true);
    screen.cmdAddSoftware->click();
    QCOMPARE(boxes.texts(),
             QStringList{"You need to enter a computer name before adding software"});
    screen.txtComputerName->setText("NEW-PC");
    screen.invoice->txtInvoiceNo->setText("INV9");
    person.then(enterPeripheral("Keyboard", "K120"));
    screen.cmdAddPeripheral->click();
    person.then(pickSoftware(office));
    screen.cmdAddSoftware->click();
    QCOMPARE(count(db, "Computers"), 2);
    QCOMPARE(used(db, office).toInt(), 2);

    screen.cmdCancel->click();
    QCOMPARE(count(db, "Computers"), 1);
    QCOMPARE(count(db, "Peripherals"), 0);
    QCOMPARE(count(db, "Invoices"), 0);
    QCOMPARE(used(db, office).toInt(), 1);
}

void TestComputers::peripheralStoredOnce() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 office = addSoftware(db, "Office", 5);
    MessageRecorder boxes;
    DialogDriver person;
    frmaddcomputer screen;
    screen.NewComp(true);
    screen.txtComputerName->setText("PC");
    person.then(enterPeripheral("Keyboard", "K120"));
    screen.cmdAddPeripheral->click();
    person.then(enterPeripheral(" ", "none")); // refused: no type
    screen.cmdAddPeripheral->click();
    QCOMPARE(boxes.texts(), QStringList{"Please select a peripheral type"});
    person.then(pickSoftware(office));
    screen.cmdAddSoftware->click();
    screen.cmdOK->click();
    QCOMPARE(count(db, "Peripherals"), 1);
    QCOMPARE(db.scalar("SELECT Type FROM Peripherals").toString(), QString("Keyboard"));
    QCOMPARE(count(db, "Computers"), 1);
}

void TestComputers::deleteRefusals_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("message");
    QTest::newRow("printer")
        << "Printer"
        << "You cannot delete a printer from here. You need to goto Assets, Printers, Delete";
    QTest::newRow("scanner")
        << "Scanner"
        << "You cannot delete a scanner from here. You need to goto Assets, Scanners, Delete";
    QTest::newRow("monitor")
        << "Monitor"
        << "You cannot delete a monitor from here. You need to goto Assets, Monitors, Delete";
    QTest::newRow("keyboard") << "Keyboard"
                              << "";
}

void TestComputers::deleteRefusals() {
    QFETCH(QString, type);
    QFETCH(QString, message);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 pc = addComputer(db, "PC");
    const qint64 id =
        db.insert("Peripherals", "peripheral_ID",
                  {{"Type", type}, {"Model", "M"}, {"computer_id", pc}, {"BlnDeleted", 0}});
    MessageRecorder boxes;
    frmaddcomputer screen;
    screen.load(pc);
    QTreeWidgetItem* row = screen.lstPeripherals->findRecord(id);
    QVERIFY(row);
    screen.lstPeripherals->setCurrentItem(row);
    emit screen.lstPeripherals->itemClicked(row, 0);
    QVERIFY(screen.cmdDeletePeripheral->isEnabled());
    screen.cmdDeletePeripheral->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    const int deleted =
        db.scalar("SELECT BlnDeleted FROM Peripherals WHERE peripheral_ID = ?", {id}).toInt();
    QCOMPARE(deleted, message.isEmpty() ? 1 : 0);
    QCOMPARE(screen.lstPeripherals->count(), message.isEmpty() ? 0 : 1);

    frmaddcomputer again;
    again.load(pc);
    QCOMPARE(again.lstPeripherals->count(), message.isEmpty() ? 0 : 1);
}

void TestComputers::computerListShowsTheCallersFirst() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "O'Neil", "Ann");
    const qint64 bob = addPerson(db, "Brown", "Bob");
    const qint64 mine = addComputer(db, "ANN1", ann);
    addComputer(db, "SPARE");
    computerList list;
    list.load(ann);
    QCOMPARE(list.ListView1->count(), 1);
    QCOMPARE(list.ListView1->findRecord(mine)->text(3), QString("O'Neil, Ann"));
    list.cmdShowAll->click();
    QCOMPARE(list.ListView1->count(), 2);
    list.load(bob);
    QCOMPARE(list.ListView1->count(), 2);
    QVERIFY(!list.ok());
    list.ListView1->setCurrentItem(list.ListView1->findRecord(mine));
    list.cmdSelect->click();
    QVERIFY(list.ok());
    QCOMPARE(list.selectedId(), mine);
}

void TestComputers::searchListCrossesAndSorts() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 a = addComputer(db, "ALPHA");
    const qint64 b = addComputer(db, "BRAVO");
    db.exec("UPDATE Computers SET Manufacturer = 'Dell', Model = 'Optiplex' WHERE Computer_ID = ?",
            {a});
    frmCompSrch list;
    list.load();
    QCOMPARE(list.ListView1->headerItem()->text(1), QString("Model"));
    QCOMPARE(list.ListView1->findRecord(a)->text(1), QString("Dell"));
    QCOMPARE(list.ListView1->findRecord(a)->text(2), QString("Optiplex"));
    const auto first = [&list] { return RecordList::idAt(list.ListView1->topLevelItem(0)); };
    QCOMPARE(first(), a);
    list.ListView1->headerClicked(0);
    QCOMPARE(first(), a);
    list.ListView1->headerClicked(0);
    QCOMPARE(first(), b);
    list.ListView1->headerClicked(0);
    QCOMPARE(first(), a);
}

void TestComputers::menuEntriesOpenTheScreens() {
    TestDatabase fixture;
    const qint64 pc = addComputer(fixture.db(), "PC");
    mdiMain w;
    registerAssetCommands(w);
    core::setScreenHost([&w](QWidget* screen) { w.addScreen(screen); });
    const auto unhost = qScopeGuard([] { core::setScreenHost({}); });
    w.item("mnuComputerAdd")->trigger();
    auto* add = qobject_cast<frmaddcomputer*>(w.mdiArea()->activeSubWindow()->widget());
    QVERIFY(add && add->isNew());
    QCOMPARE(add->windowTitle(), QString("Add Computer"));
    w.item("mnuComputerEdit")->trigger();
    auto* list = qobject_cast<frmCompSrch*>(w.mdiArea()->activeSubWindow()->widget());
    QVERIFY(list);
    list->ListView1->setCurrentItem(list->ListView1->findRecord(pc));
    list->cmdOK->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    auto* edit = qobject_cast<frmaddcomputer*>(w.mdiArea()->activeSubWindow()->widget());
    QVERIFY(edit);
    QCOMPARE(edit->windowTitle(), QString("Edit computer"));
    QCOMPARE(edit->txtComputerName->text(), QString("PC"));
}

QTEST_MAIN(TestComputers)
#include "tst_computers.moc"
