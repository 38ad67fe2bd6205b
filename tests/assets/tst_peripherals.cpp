#include "assetrows.h"
#include "assetwidgets.h"
#include "combos.h"
#include "commands.h"
#include "datebox.h"
#include "frmperipheraledit.h"
#include "frmsoftwaresel.h"
#include "mdimain.h"
#include "peripherals.h"
#include "printerlist.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtTest>

using namespace assetrows;
using core::MsgAnswer;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

qint64 addPeripheral(core::Db& db, const QString& type, const QString& model,
                     const QVariant& computer = {}, const QString& location = "Floor 2") {
    return db.insert(
        "Peripherals", "peripheral_ID",
        {{"Type", type},
         {"Manufacturer", "HP"},
         {"Model", model},
         {"Location", location},
         {"Size", type == "Monitor" ? QVariant("19") : QVariant()},
         {"AssetNo", "P-" + model},
         {"computer_id", computer.isValid() ? computer : QVariant(QMetaType::fromType<qint64>())},
         {"BlnDeleted", 0}});
}

QStringList ids(const std::vector<assets::ListRow>& rows) {
    QStringList out;
    for (const auto& r : rows)
        out << QString::number(r.id);
    return out;
}

QVariant column(core::Db& db, const QString& name, qint64 id) {
    return db.scalar(QStringLiteral("SELECT %1 FROM Peripherals WHERE peripheral_ID = ?").arg(name),
                     {id});
}

} // namespace

class TestPeripherals : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void checksInOrder_data();
    void checksInOrder();
    void printerTypeDecidesTheFields();
    void printerSavesAndLoads();
    void monitorAndScannerKeepTheirOwnFields();
    void softDeleteHidesEverywhere();
    void editListOpensTheScreenOfItsType();
    void personsPeripheralsWithFallback();
    void menuEntriesOpenTheScreens();
};

void TestPeripherals::checksInOrder_data() {
    QTest::addColumn<QStringList>("fields"); // manufacturer, model, warranty, date, price
    QTest::addColumn<QString>("message");
    const QString names = "Please enter Manufacturer and model information";
    const QString needsDate =
        "If you are entering a warranty length you must enter the Invoice date as well";
    const QString date = "Please enter a date in the invoice date field";
    const QString price = "Please enter a number in the invoice price field";
    const QString months =
        "Please enter a the number of months warranty in the warrant length field";
    QTest::newRow("good") << QStringList{"HP", "4050", "12", "01/02/2024", "250"} << "";
    QTest::newRow("all blank") << QStringList{"HP", "4050", "", "", ""} << "";
    QTest::newRow("no model") << QStringList{"HP", " ", "x", "", "x"} << names;
    QTest::newRow("no manufacturer") << QStringList{"", "4050", "", "", ""} << names;
    QTest::newRow("warranty without date") << QStringList{"HP", "4050", "x", "", "x"} << needsDate;
    QTest::newRow("bad date") << QStringList{"HP", "4050", "x", "32/01/2024", "x"} << date;
    QTest::newRow("bad price") << QStringList{"HP", "4050", "x", "01/02/2024", "x"} << price;
    QTest::newRow("bad months") << QStringList{"HP", "4050", "x", "01/02/2024", "9"} << months;
}

void TestPeripherals::checksInOrder() {
    QFETCH(QStringList, fields);
    QFETCH(QString, message);
    assets::PeripheralText p;
    p.type = "Printer";
    p.manufacturer = fields[0];
    p.model = fields[1];
    p.warrantyLength = fields[2];
    p.invoice = {fields[3], "", fields[4]};
    QCOMPARE(assets::checkPeripheral(p), message);

    // The screen shows the same message and writes nothing.
    TestDatabase fixture;
    MessageRecorder boxes;
    frmprinter screen;
    screen.txtManufacturer->setText(fields[0]);
    screen.txtModel->setText(fields[1]);
    screen.txtWarrantyLength->setText(fields[2]);
    screen.invoice->txtInvoiceDate->setText(fields[3]);
    screen.invoice->txtPrice->setText(fields[4]);
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QCOMPARE(count(fixture.db(), "Peripherals"), message.isEmpty() ? 1 : 0);
}

void TestPeripherals::printerTypeDecidesTheFields() {
    TestDatabase fixture;
    const qint64 pc = addComputer(fixture.db(), "PC-1");
    frmprinter screen;
    QVERIFY(core::selectComboId(screen.cboAssignedTo, pc));
    screen.cboPrinterType->setCurrentIndex(screen.cboPrinterType->findText("Network"));
    QVERIFY(!screen.cboAssignedTo->isEnabled());
    QVERIFY(screen.txtIPAddress->isEnabled());
    QCOMPARE(screen.cboAssignedTo->currentText(), QString());
    screen.txtIPAddress->setText("10.0.0.9");
    screen.cboPrinterType->setCurrentIndex(screen.cboPrinterType->findText("Local"));
    QVERIFY(screen.cboAssignedTo->isEnabled());
    QVERIFY(!screen.txtIPAddress->isEnabled());
    QCOMPARE(screen.txtIPAddress->text(), QString());
}

void TestPeripherals::printerSavesAndLoads() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 pc = addComputer(db, "PC-1");
    const qint64 supplier = addSupplier(db, "Dale");
    MessageRecorder boxes;

    frmprinter screen;
    screen.txtManufacturer->setText("HP");
    screen.txtModel->setText("LaserJet");
    screen.txtLocation->setText("Post room");
    screen.cboPrinterType->setCurrentIndex(screen.cboPrinterType->findText("Local"));
    QVERIFY(core::selectComboId(screen.cboAssignedTo, pc));
    screen.txtWarrantyLength->setText("12");
    screen.invoice->txtInvoiceDate->setText("10/05/2023");
    screen.invoice->txtInvoiceNo->setText("A1");
    screen.invoice->txtPrice->setText("199.5");
    screen.txtDateReceived->setText("12/05/2023");
    QVERIFY(core::selectComboId(screen.supplier->cboSupplier, supplier));
    screen.cmdOK->click();
    QVERIFY2(boxes.texts().isEmpty(), qPrintable(boxes.texts().join("|")));
    const qint64 id = screen.peripheralId();
    QCOMPARE(column(db, "computer_id", id).toLongLong(), pc);
    QCOMPARE(column(db, "Type", id).toString(), QString("Printer"));
    QCOMPARE(column(db, "supplier_id", id).toLongLong(), supplier);
    QVERIFY(column(db, "ipaddress", id).isNull());

    frmprinter edit;
    edit.load(id);
    QCOMPARE(edit.cboAssignedTo->currentText(), QString("PC-1"));
    QCOMPARE(edit.invoice->txtPrice->text(), QString("199.5"));
    QCOMPARE(edit.txtDateReceived->text(), QString("12/05/2023"));
    QCOMPARE(edit.supplier->lblPostCode->text(), QString("LS1 1AA"));
    QVERIFY(edit.cboAssignedTo->isEnabled());
    QVERIFY(!edit.txtIPAddress->isEnabled());
    // Cleared invoice boxes keep the invoice; an emptied "Assigned To" frees the printer.
    edit.invoice->setText({});
    edit.txtWarrantyLength->clear();
    edit.cboAssignedTo->setCurrentIndex(-1);
    edit.cboAssignedTo->setEditText({});
    edit.cmdOK->click();
    QVERIFY(boxes.texts().isEmpty());
    QVERIFY(column(db, "computer_id", id).isNull());
    QCOMPARE(count(db, "Invoices"), 1);
    QVERIFY(!column(db, "Invoice_ID", id).isNull());
    QCOMPARE(count(db, "Peripherals"), 1);

    frmprinter network;
    network.load(id);
    network.cboPrinterType->setCurrentIndex(network.cboPrinterType->findText("Network"));
    network.txtIPAddress->setText("PRINTSRV01");
    network.cmdOK->click();
    QCOMPARE(column(db, "ipaddress", id).toString(), QString("PRINTSRV01"));
    QCOMPARE(column(db, "PrinterType", id).toString(), QString("Network"));
}

void TestPeripherals::monitorAndScannerKeepTheirOwnFields() {
    TestDatabase fixture;
    auto& db = fixture.db();
    frmMonitor monitor;
    QCOMPARE(monitor.windowTitle(), QString("Add Monitor"));
    QVERIFY(!monitor.txtLocation && monitor.txtSize && !monitor.cboPrinterType);
    monitor.txtManufacturer->setText("Dell");
    monitor.txtModel->setText("U2412");
    monitor.txtSize->setText("24");
    monitor.cmdOK->click();
    QCOMPARE(column(db, "Size", monitor.peripheralId()).toString(), QString("24"));
    QCOMPARE(column(db, "Type", monitor.peripheralId()).toString(), QString("Monitor"));

    frmScanner scanner;
    QVERIFY(scanner.txtLocation && !scanner.txtSize && !scanner.txtIPAddress);
    scanner.txtManufacturer->setText("Canon");
    scanner.txtModel->setText("LiDE");
    scanner.txtLocation->setText("Reception");
    scanner.cmdOK->click();
    QCOMPARE(column(db, "Location", scanner.peripheralId()).toString(), QString("Reception"));
    QVERIFY(column(db, "PrinterType", scanner.peripheralId()).isNull());
}

void TestPeripherals::softDeleteHidesEverywhere() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 keep = addPeripheral(db, "Printer", "Keep");
    const qint64 gone = addPeripheral(db, "Printer", "Gone");
    addPeripheral(db, "Scanner", "Other");
    MessageRecorder boxes;

    PrinterList list;
    list.setWindowTitle("Delete Printer");
    list.loadall("Printer");
    QCOMPARE(list.ListView1->count(), 2);
    list.ListView1->setCurrentItem(list.ListView1->findRecord(gone));
    boxes.answerNext(MsgAnswer::No);
    list.cmdOK->click();
    QCOMPARE(boxes.calls().last().text, QString("Are you sure you want to delete printer HP Gone"));
    QCOMPARE(boxes.calls().last().title, QString("Confirm Delete"));
    QCOMPARE(column(db, "BlnDeleted", gone).toInt(), 0);

    boxes.answerNext(MsgAnswer::Yes);
    list.cmdOK->click();
    QCOMPARE(column(db, "BlnDeleted", gone).toInt(), 1);
    QCOMPARE(list.ListView1->count(), 1);

    QCOMPARE(ids(assets::peripheralRows(db, "Printer")), QStringList{QString::number(keep)});
    QCOMPARE(ids(assets::pickerRows(db, "Printer", 0)), QStringList{QString::number(keep)});
    // The row itself stays for the calls that name it.
    QCOMPARE(count(db, "Peripherals"), 3);
}

void TestPeripherals::editListOpensTheScreenOfItsType() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 monitor = addPeripheral(db, "Monitor", "U2412");
    PrinterList list;
    list.setWindowTitle("Select Monitor");
    list.loadall("Monitor");
    QCOMPARE(list.ListView1->headerItem()->text(0), QString("Monitor"));
    QCOMPARE(list.ListView1->headerItem()->text(1), QString("Size"));
    QCOMPARE(list.ListView1->findRecord(monitor)->text(1), QString("19"));
    list.ListView1->setCurrentItem(list.ListView1->findRecord(monitor));
    list.cmdOK->click();
    frmMonitor* opened = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* m = qobject_cast<frmMonitor*>(w)) opened = m;
    QVERIFY(opened);
    QCOMPARE(opened->windowTitle(), QString("Edit Monitor"));
    QCOMPARE(opened->txtSize->text(), QString("19"));
    opened->close();
}

void TestPeripherals::personsPeripheralsWithFallback() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "O'Neil-Smith", "Ann");
    const qint64 bob = addPerson(db, "Brown", "Bob");
    const qint64 annsPc = addComputer(db, "ANN-PC", ann);
    const qint64 own = addPeripheral(db, "Printer", "Desk", annsPc);
    const qint64 network = addPeripheral(db, "Printer", "Network");
    const qint64 gone = addPeripheral(db, "Printer", "Old", annsPc);
    db.exec("UPDATE Peripherals SET BlnDeleted = 1 WHERE peripheral_ID = ?", {gone});

    QCOMPARE(ids(assets::pickerRows(db, "Printer", ann)), QStringList{QString::number(own)});
    // Bob has no computer, so he sees every printer that is not deleted.
    QCOMPARE(ids(assets::pickerRows(db, "Printer", bob)).size(), 2);
    QVERIFY(ids(assets::pickerRows(db, "Printer", bob)).contains(QString::number(network)));
    QVERIFY(assets::pickerRows(db, "Scanner", ann).empty());

    frmSoftwareSel picker;
    picker.setWindowTitle("Select Printer");
    picker.loadPrinters(ann);
    QCOMPARE(picker.ListView1->count(), 1);
    QCOMPARE(picker.ListView1->headerItem()->text(2), QString("Location"));
    picker.cmdShowAll->click();
    QCOMPARE(picker.ListView1->count(), 2);
    picker.loadmonitors(ann);
    QCOMPARE(picker.ListView1->headerItem()->text(2), QString("Size"));
}

void TestPeripherals::menuEntriesOpenTheScreens() {
    TestDatabase fixture;
    mdiMain w;
    registerAssetCommands(w);
    const QList<std::pair<const char*, QString>> commands{
        {"mnuAssetPrinterAdd", "frmprinter:Add Printer"},
        {"mnuAssetsPrinterEdit", "PrinterList:Select Printer"},
        {"mnuAssetsPrinterDelete", "PrinterList:Delete Printer"},
        {"mnuscannersadd", "frmScanner:Add Scanner"},
        {"mnuScannerEdit", "PrinterList:Select Scanner"},
        {"mnuscannerdel", "PrinterList:Delete Scanner"},
        {"mnuMonitorsAdd", "frmMonitor:Add Monitor"},
        {"mnuMonitorsEdit", "PrinterList:Select Monitor"},
        {"mnuMonitorsDelete", "PrinterList:Delete Monitor"}};
    for (const auto& [name, opens] : commands) {
        QAction* action = w.item(name);
        QVERIFY2(action && action->isEnabled(), name);
        action->trigger();
        QWidget* screen = w.mdiArea()->activeSubWindow()->widget();
        QCOMPARE(screen->objectName() + ":" + screen->windowTitle(), opens);
    }
}

QTEST_MAIN(TestPeripherals)
#include "tst_peripherals.moc"
