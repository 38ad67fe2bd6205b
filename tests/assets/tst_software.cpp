#include "assetrows.h"
#include "assetwidgets.h"
#include "combos.h"
#include "commands.h"
#include "datebox.h"
#include "frmaddsoftware.h"
#include "frmlicense.h"
#include "frmsoftware.h"
#include "frmsoftwareadd.h"
#include "frmsoftwaresel.h"
#include "invoices.h"
#include "licences.h"
#include "mdimain.h"
#include "recordlist.h"
#include "regional.h"
#include "seams.h"
#include "session.h"
#include "software.h"
#include "testdb.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtTest>

using namespace assetrows;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

class TestSoftware : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void licencesLeft_data();
    void licencesLeft();
    void licenceCountFollowsInstalls();
    void addedLicencesChangeOnlyThePool();
    void warrantyExpiry_data();
    void warrantyExpiry();
    void softwareChecks_data();
    void softwareChecks();
    void invoiceWrittenOnlyWithAValue();
    void editWithoutSupplierOrInvoiceSaves();
    void screenLoadsAndSaves_data();
    void screenLoadsAndSaves();
    void pickWarnsButNeverBlocks();
    void addLicencesRefusals_data();
    void addLicencesRefusals();
    void cascadeFindsTheProduct();
    void menuEntriesOpenTheScreens();
};

void TestSoftware::licencesLeft_data() {
    QTest::addColumn<QVariant>("licenses");
    QTest::addColumn<QVariant>("used");
    QTest::addColumn<QString>("left");
    QTest::addColumn<bool>("warns");
    const QVariant null(QMetaType::fromType<int>());
    QTest::newRow("never licensed") << null << QVariant(0) << "Unlicensed" << true;
    QTest::newRow("never licensed, in use") << null << QVariant(3) << "Unlicensed" << true;
    QTest::newRow("none used yet") << QVariant(5) << null << "5" << false;
    QTest::newRow("some left") << QVariant(5) << QVariant(2) << "3" << false;
    QTest::newRow("one left") << QVariant(3) << QVariant(2) << "1" << false;
    QTest::newRow("pool of zero") << QVariant(0) << QVariant(0) << "0" << true;
    QTest::newRow("over the pool") << QVariant(2) << QVariant(5) << "-3" << true;
    QTest::newRow("used is no number") << QVariant(4) << QVariant("x") << "4" << false;
    QTest::newRow("negative pool") << QVariant(-2) << QVariant(0) << "-2" << true;
}

void TestSoftware::licencesLeft() {
    QFETCH(QVariant, licenses);
    QFETCH(QVariant, used);
    QFETCH(QString, left);
    QFETCH(bool, warns);
    QCOMPARE(assets::licencesLeft(licenses, used), left);
    QCOMPARE(assets::needsLicenceWarning(left), warns);
}

void TestSoftware::licenceCountFollowsInstalls() {
    TestDatabase fixture;
    auto& db = fixture.db();
    // A count that had drifted is put right by the next change.
    const qint64 office = addSoftware(db, "Office", 2, 7);
    const qint64 a = addComputer(db, "PC-A");
    const qint64 b = addComputer(db, "PC-B");

    QVERIFY(assets::installSoftware(db, a, office));
    QCOMPARE(used(db, office).toInt(), 1);
    QVERIFY(assets::installSoftware(db, b, office));
    QCOMPARE(used(db, office).toInt(), 2);
    QVERIFY(!assets::installSoftware(db, a, office));
    QCOMPARE(used(db, office).toInt(), 2);
    QCOMPARE(count(db, "ComputerSoftware"), 2);

    assets::removeSoftware(db, a, office);
    QCOMPARE(used(db, office).toInt(), 1);
    // Removing what is not there never takes the count below the computers holding it.
    assets::removeSoftware(db, a, office);
    QCOMPARE(used(db, office).toInt(), 1);
    QVERIFY(assets::installSoftware(db, a, office));
    QCOMPARE(used(db, office).toInt(), 2);

    const qint64 visio = addSoftware(db, "Visio", QVariant(QMetaType::fromType<int>()));
    QVERIFY(assets::installSoftware(db, b, visio));
    assets::removeAllSoftware(db, b);
    QCOMPARE(used(db, office).toInt(), 1);
    QCOMPARE(used(db, visio).toInt(), 0);
    QCOMPARE(count(db, "ComputerSoftware"), 1);
    QCOMPARE(assets::licencesLeft(2, used(db, office)), QString("1"));
}

void TestSoftware::addedLicencesChangeOnlyThePool() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 never = addSoftware(db, "Project", QVariant(QMetaType::fromType<int>()), 3);
    QCOMPARE(assets::addLicences(db, never, 5), 5);
    QCOMPARE(assets::addLicences(db, never, -2), 3);
    QCOMPARE(used(db, never).toInt(), 3);
}

void TestSoftware::warrantyExpiry_data() {
    QTest::addColumn<QVariant>("invoiceDate");
    QTest::addColumn<QString>("months");
    QTest::addColumn<QString>("expiry");
    QTest::newRow("a year") << QVariant(QDate(2023, 5, 10)) << "12"
                            << "10/05/2024";
    QTest::newRow("month end") << QVariant(QDate(2024, 1, 31)) << "1"
                               << "29/02/2024";
    QTest::newRow("text date") << QVariant("2022-11-30") << " 3 "
                               << "28/02/2023";
    QTest::newRow("no length") << QVariant(QDate(2023, 5, 10)) << ""
                               << "N/A";
    QTest::newRow("length no number") << QVariant(QDate(2023, 5, 10)) << "x"
                                      << "N/A";
    QTest::newRow("no invoice date") << QVariant(QMetaType::fromType<QDate>()) << "12"
                                     << "N/A";
}

void TestSoftware::warrantyExpiry() {
    QFETCH(QVariant, invoiceDate);
    QFETCH(QString, months);
    QFETCH(QString, expiry);
    QCOMPARE(assets::warrantyExpiry(invoiceDate, months), expiry);
}

void TestSoftware::softwareChecks_data() {
    QTest::addColumn<QStringList>("fields"); // manufacturer, product, licences, date, price
    QTest::addColumn<QString>("message");
    const QString names = "Please enter manufacturer and product";
    const QString licences = "Please enter the number of licenses you have purchased.";
    const QString date = "Please enter a date in the Invoice date box";
    const QString price = "Please enter a numeric value in the price box";
    QTest::newRow("all good") << QStringList{"Adobe", "Acrobat", "10", "01/02/2024", "99.99"} << "";
    QTest::newRow("blank optional") << QStringList{"Adobe", "Acrobat", "", "", ""} << "";
    QTest::newRow("no manufacturer") << QStringList{"  ", "Acrobat", "x", "x", "x"} << names;
    QTest::newRow("no product") << QStringList{"Adobe", "", "x", "x", "x"} << names;
    QTest::newRow("licences first") << QStringList{"Adobe", "Acrobat", "x", "x", "x"} << licences;
    QTest::newRow("part licence") << QStringList{"Adobe", "Acrobat", "2.5", "", ""} << licences;
    QTest::newRow("date before price")
        << QStringList{"Adobe", "Acrobat", "3", "31/02/2024", "x"} << date;
    QTest::newRow("price") << QStringList{"Adobe", "Acrobat", "3", "", "ten"} << price;
}

void TestSoftware::softwareChecks() {
    QFETCH(QStringList, fields);
    QFETCH(QString, message);
    assets::SoftwareText s;
    s.manufacturer = fields[0];
    s.product = fields[1];
    s.licenses = fields[2];
    s.invoice = {fields[3], "", fields[4]};
    QCOMPARE(assets::checkSoftware(s), message);
}

void TestSoftware::invoiceWrittenOnlyWithAValue() {
    TestDatabase fixture;
    auto& db = fixture.db();
    assets::SoftwareText s{"Adobe", "Acrobat", "10", "", {}, 0};
    qint64 invoice = 0;
    const qint64 id = assets::saveSoftware(db, 0, invoice, s);
    QCOMPARE(invoice, 0);
    QCOMPARE(count(db, "Invoices"), 0);
    QCOMPARE(used(db, id).toInt(), 0);

    s.invoice = {"03/04/2024", "INV-1", "1,250.50"};
    s.invoice.price = "1250.50";
    assets::saveSoftware(db, id, invoice, s);
    QVERIFY(invoice > 0);
    const auto stored = assets::loadInvoice(db, invoice);
    QVERIFY(stored);
    QCOMPARE(stored->date, QString("03/04/2024"));
    QCOMPARE(stored->number, QString("INV-1"));
    QCOMPARE(stored->price, QString("1250.5"));

    // Clearing the boxes keeps the invoice the product has.
    s.invoice = {};
    qint64 kept = invoice;
    assets::saveSoftware(db, id, kept, s);
    QCOMPARE(kept, invoice);
    QCOMPARE(count(db, "Invoices"), 1);
    const auto again = assets::loadSoftware(db, id);
    QCOMPARE(again->invoiceId, invoice);
    QCOMPARE(again->text.invoice.number, QString("INV-1"));
}

void TestSoftware::editWithoutSupplierOrInvoiceSaves() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 supplier = addSupplier(db, "O'Brien & Sons");
    const qint64 id = addSoftware(db, "Word", 4);
    auto record = assets::loadSoftware(db, id);
    QVERIFY(record);
    QCOMPARE(record->text.supplierId, 0);
    record->text.version = "2024";
    assets::saveSoftware(db, id, record->invoiceId, record->text);
    QCOMPARE(db.scalar("SELECT Version FROM Software WHERE Software_ID = ?", {id}).toString(),
             QString("2024"));
    QCOMPARE(count(db, "Software"), 1);

    record->text.supplierId = supplier;
    assets::saveSoftware(db, id, record->invoiceId, record->text);
    // No pick on a later save leaves the supplier where it is.
    record->text.supplierId = 0;
    assets::saveSoftware(db, id, record->invoiceId, record->text);
    QCOMPARE(assets::loadSoftware(db, id)->text.supplierId, supplier);
}

void TestSoftware::screenLoadsAndSaves_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("currency");
    QTest::addColumn<QString>("postcode");
    QTest::addColumn<QString>("date");
    QTest::newRow("UK") << "English (UK)"
                        << "£"
                        << "Post Code"
                        << "03/04/2024";
    QTest::newRow("US") << "English (US)"
                        << "$"
                        << "Zip Code"
                        << "04/03/2024";
}

void TestSoftware::screenLoadsAndSaves() {
    QFETCH(QString, language);
    QFETCH(QString, currency);
    QFETCH(QString, postcode);
    QFETCH(QString, date);
    core::session().language = language;
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 supplier = addSupplier(db, "Dale Computers");
    MessageRecorder boxes;

    frmsoftware screen;
    QCOMPARE(screen.windowTitle(), QString("Add software"));
    QCOMPARE(screen.invoice->lblCurrency->text(), currency);
    QCOMPARE(screen.supplier->lblPostCodeCaption->text(), postcode);
    screen.txtManufacturer->setText("Adobe ");
    screen.txtProduct->setText("Acrobat");
    screen.txtLicenses->setText("ten");
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), QStringList{"Please enter the number of licenses you have purchased."});
    QCOMPARE(count(db, "Software"), 0);
    screen.txtLicenses->setText("10");
    screen.invoice->txtInvoiceDate->setText(date);
    screen.invoice->txtPrice->setText("49.99");
    QVERIFY(core::selectComboId(screen.supplier->cboSupplier, supplier));
    QCOMPARE(screen.supplier->lblPostCode->text(), QString("LS1 1AA"));
    screen.cmdOK->click();
    QVERIFY(screen.ok());
    QCOMPARE(boxes.texts().size(), 1);

    frmsoftware edit;
    edit.load(screen.softwareID());
    QCOMPARE(edit.txtManufacturer->text(), QString("Adobe"));
    QCOMPARE(edit.txtLicenses->text(), QString("10"));
    QCOMPARE(edit.invoice->txtInvoiceDate->text(), date);
    QCOMPARE(edit.invoice->txtPrice->text(), QString("49.99"));
    QCOMPARE(edit.supplier->cboSupplier->currentText(), QString("Dale Computers"));
    QCOMPARE(edit.supplier->lblAddress1->text(), QString("1 High St"));
    edit.txtVersion->setText("XI");
    edit.cmdOK->click();
    QCOMPARE(count(db, "Software"), 1);
    QCOMPARE(count(db, "Invoices"), 1);
    QCOMPARE(QDate(db.scalar("SELECT InvoiceDate FROM Invoices").toDate()), QDate(2024, 4, 3));
}

void TestSoftware::pickWarnsButNeverBlocks() {
    TestDatabase fixture;
    auto& db = fixture.db();
    addSoftware(db, "Access", 3, 1);
    const qint64 excel = addSoftware(db, "Excel", 2, 2);
    const qint64 visio = addSoftware(db, "Visio", QVariant(QMetaType::fromType<int>()));
    MessageRecorder boxes;

    frmSoftwareadd pick;
    pick.setWindowTitle("Add Software");
    pick.loadall();
    QCOMPARE(pick.ListView1->count(), 3);
    QCOMPARE(pick.ListView1->findRecord(visio)->text(3), QString("Unlicensed"));
    QCOMPARE(pick.ListView1->findRecord(excel)->text(3), QString("0"));

    // With no highlighted row OK does nothing.
    pick.cmdOK->click();
    QCOMPARE(pick.result(), int(QDialog::Rejected));
    QVERIFY(boxes.texts().isEmpty());

    for (qint64 id : {excel, visio}) {
        boxes.clear();
        QTreeWidgetItem* row = pick.ListView1->findRecord(id);
        pick.ListView1->setCurrentItem(row);
        emit pick.ListView1->itemClicked(row, 0);
        pick.cmdOK->click();
        QCOMPARE(boxes.count(assets::NotLicensedWarning), 2);
        QCOMPARE(pick.result(), int(QDialog::Accepted));
        QCOMPARE(pick.selectedId(), id);
    }

    frmSoftwareadd summary;
    summary.setWindowTitle("License Summary");
    summary.loadall();
    boxes.clear();
    QTreeWidgetItem* row = summary.ListView1->findRecord(excel);
    summary.ListView1->setCurrentItem(row);
    emit summary.ListView1->itemClicked(row, 0);
    summary.cmdOK->click();
    QVERIFY(boxes.texts().isEmpty());
}

void TestSoftware::addLicencesRefusals_data() {
    QTest::addColumn<bool>("pick");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("pool");
    QTest::newRow("nothing picked") << false << "3"
                                    << "Please select the software" << 2;
    QTest::newRow("blank") << true << ""
                           << "Please enter the number of licenses to add" << 2;
    QTest::newRow("part licence") << true << "2.5"
                                  << "Please enter the number of licenses to add" << 2;
    QTest::newRow("added") << true << "3"
                           << "" << 5;
    QTest::newRow("taken back") << true << "-1"
                                << "" << 1;
}

void TestSoftware::addLicencesRefusals() {
    QFETCH(bool, pick);
    QFETCH(QString, added);
    QFETCH(QString, message);
    QFETCH(int, pool);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addSoftware(db, "Excel", 2, 1);
    MessageRecorder boxes;
    frmLicense screen;
    if (pick) {
        QVERIFY(core::selectComboId(screen.cboSoftware, id));
        QCOMPARE(screen.cboSoftware->currentText(), QString("Microsoft Excel 2021"));
        QCOMPARE(screen.lblTotal->text(), QString("2"));
        QCOMPARE(screen.lblAvailable->text(), QString("1"));
    }
    screen.txtAdd->setText(added);
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QCOMPARE(db.scalar("SELECT Licenses FROM Software").toInt(), pool);
    QCOMPARE(used(db, id).toInt(), 1);
}

void TestSoftware::cascadeFindsTheProduct() {
    TestDatabase fixture;
    auto& db = fixture.db();
    addSoftware(db, "Excel", 2);
    const qint64 word = addSoftware(db, "Word", 2);
    MessageRecorder boxes;
    DialogDriver person;
    frmAddSoftware screen;
    QVERIFY(!screen.cboProduct->isEnabled());
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), QStringList{"Please select manufacturer"});
    screen.cboManufacturer->setCurrentIndex(0);
    QVERIFY(screen.cboProduct->isEnabled());
    QCOMPARE(screen.cboProduct->count(), 2);
    screen.cmdOK->click();
    QCOMPARE(boxes.texts().last(), QString("Please select the product type"));
    screen.cboProduct->setCurrentIndex(screen.cboProduct->findText("Word"));
    screen.cmdOK->click();
    QCOMPARE(boxes.texts().last(), QString("Please select the version type"));
    screen.cboVersion->setCurrentIndex(0);
    screen.cmdOK->click();
    QVERIFY(screen.ok());
    QCOMPARE(screen.softwareID(), word);

    // A product added through "Add new software" is offered at once.
    person.then([](QDialog& d) {
        auto& s = static_cast<frmsoftware&>(d);
        s.txtManufacturer->setText("Zebra");
        s.txtProduct->setText("Designer");
        s.cmdOK->click();
        return int(d.result());
    });
    screen.cmdAddNew->click();
    QCOMPARE(person.shown(), 1);
    QCOMPARE(screen.cboManufacturer->findText("Zebra"), 2);
}

void TestSoftware::menuEntriesOpenTheScreens() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addSoftware(db, "Excel", 2);
    DialogDriver person;
    mdiMain w;
    registerAssetCommands(w);
    for (const char* name :
         {"mnuSoftware", "mnuAssetSoftEdit", "mnuSoftLic", "mnuAssetsSoftwareSummmary"})
        QVERIFY2(w.item(name)->isEnabled(), name);

    w.item("mnuSoftware")->trigger();
    QCOMPARE(w.mdiArea()->activeSubWindow()->widget()->objectName(), QString("frmAddSoftware"));
    w.item("mnuSoftLic")->trigger();
    QCOMPARE(w.mdiArea()->activeSubWindow()->widget()->windowTitle(), QString("Add Licenses"));

    person.then([id](QDialog& d) {
        auto& picker = static_cast<frmSoftwareSel&>(d);
        if (picker.windowTitle() != "Edit Software") return int(QDialog::Rejected);
        picker.ListView1->setCurrentItem(picker.ListView1->findRecord(id));
        emit picker.ListView1->recordActivated(id);
        return int(d.result());
    });
    w.item("mnuAssetSoftEdit")->trigger();
    auto* edit = qobject_cast<frmsoftware*>(w.mdiArea()->activeSubWindow()->widget());
    QVERIFY(edit);
    QCOMPARE(edit->windowTitle(), QString("Edit Software"));
    QCOMPARE(edit->txtProduct->text(), QString("Excel"));
    // Esc (Cancel) takes the screen and its frame away.
    const int open = w.mdiArea()->subWindowList().size();
    edit->reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(w.mdiArea()->subWindowList().size(), open - 1);

    person.then([](QDialog& d) { return d.windowTitle() == "License Summary" ? 1 : 0; });
    w.item("mnuAssetsSoftwareSummmary")->trigger();
    QCOMPARE(person.shownClasses().last(), QString("frmSoftwareadd"));
}

QTEST_MAIN(TestSoftware)
#include "tst_software.moc"
