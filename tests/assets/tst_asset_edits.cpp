#include "assetrows.h"
#include "assetwidgets.h"
#include "combos.h"
#include "computers.h"
#include "datebox.h"
#include "frmaddcomputer.h"
#include "frmperipheraledit.h"
#include "frmsoftware.h"
#include "invoices.h"
#include "licences.h"
#include "peripherals.h"
#include "seams.h"
#include "session.h"
#include "software.h"
#include "testdb.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>
#include <memory>

using namespace assetrows;
using core::MsgAnswer;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// One kind of asset screen: its table, the box a user types in and the column behind it.
struct Kind {
    QString table;
    QString key;
    QString column;
};

Kind kindOf(const QString& name) {
    if (name == "computer") return {"Computers", "Computer_ID", "Model"};
    if (name == "printer") return {"Peripherals", "peripheral_ID", "Model"};
    return {"Software", "Software_ID", "Version"};
}

// A stored asset of the kind, with an invoice of 100.00 numbered "INV-1".
qint64 addAsset(core::Db& db, const QString& name) {
    const qint64 invoice = db.insert("Invoices", "Invoice_ID",
                                     {{"InvoiceDate", QDate(2024, 2, 1)},
                                      {"InvoiceNumber", "INV-1"},
                                      {"Price", core::Money::fromInt(100).toVariant()}});
    const Kind k = kindOf(name);
    qint64 id = 0;
    if (name == "computer") id = addComputer(db, "PC1");
    if (name == "software") id = addSoftware(db, "Office", 5);
    if (name == "printer")
        id = db.insert("Peripherals", "peripheral_ID",
                       {{"Type", "Printer"}, {"Manufacturer", "HP"}, {"BlnDeleted", 0}});
    db.update(k.table, k.key, id,
              {{k.column, "Loaded"}, {"Invoice_ID", invoice}, {"Manufacturer", "Acme"}});
    return id;
}

// An asset's edit screen opened on a stored row, as a user sees it.
struct Screen {
    std::unique_ptr<QDialog> dialog;
    QLineEdit* typed = nullptr; // the box behind Kind::column
    assets::InvoiceFields* invoice = nullptr;
    QLineEdit* number = nullptr; // the warranty length, or the licences
    DateBox* received = nullptr; // printers only
    QPushButton* ok = nullptr;
};

Screen open(const QString& name, qint64 id) {
    Screen s;
    if (name == "computer") {
        auto* d = new frmaddcomputer;
        d->load(id);
        s = {std::unique_ptr<QDialog>(d), d->txtModel, d->invoice,
             d->txtWarrantyLength,        nullptr,     d->cmdOK};
    } else if (name == "printer") {
        auto* d = new frmprinter;
        d->load(id);
        s = {std::unique_ptr<QDialog>(d), d->txtModel,        d->invoice,
             d->txtWarrantyLength,        d->txtDateReceived, d->cmdOK};
    } else {
        auto* d = new frmsoftware;
        d->load(id);
        s = {std::unique_ptr<QDialog>(d),
             d->txtVersion,
             d->invoice,
             d->txtLicenses,
             nullptr,
             d->cmdOK};
    }
    return s;
}

QVariant stored(core::Db& db, const QString& name, const QString& column, qint64 id) {
    const Kind k = kindOf(name);
    return db.scalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, k.table, k.key),
                     {id});
}

QString invoiceNumber(core::Db& db) {
    return db.scalar("SELECT InvoiceNumber FROM Invoices").toString().trimmed();
}

} // namespace

class TestAssetEdits : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void anotherUsersChangeIsNotOverwritten_data();
    void anotherUsersChangeIsNotOverwritten();
    void reloadTakesTheRowAsItNowIs_data();
    void reloadTakesTheRowAsItNowIs();
    void installsElsewhereAreNoConflict();
    void unreadableTextKeepsTheStoredValue_data();
    void unreadableTextKeepsTheStoredValue();
    void pricesAsPeopleTypeThem_data();
    void pricesAsPeopleTypeThem();
    void invoiceNeverWipesWhatItCannotRead();
    void supplierRefillKeepsWhatWasShown();
};

void TestAssetEdits::anotherUsersChangeIsNotOverwritten_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("change"); // what user B does while A has the screen open
    // The refusal names the row as the screen's caption does.
    for (const QString kind : {"computer", "printer", "software"})
        for (const QString change : {"row", "invoice", "delete"})
            QTest::newRow(qPrintable(kind + ", " + change)) << kind << change;
    QTest::newRow("printer, soft delete") << "printer"
                                          << "soft delete";
}

void TestAssetEdits::anotherUsersChangeIsNotOverwritten() {
    QFETCH(QString, kind);
    QFETCH(QString, change);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addAsset(db, kind);
    const Kind k = kindOf(kind);
    MessageRecorder boxes;
    Screen a = open(kind, id);
    QCOMPARE(a.typed->text(), QString("Loaded"));

    auto userB = fixture.openSecond("user-b");
    if (change == "row") userB->update(k.table, k.key, id, {{k.column, "FromB"}});
    if (change == "invoice") userB->exec("UPDATE Invoices SET InvoiceNumber = 'INV-B'");
    if (change == "delete") userB->remove(k.table, k.key, id);
    if (change == "soft delete") assets::deletePeripheral(*userB, id);
    const int rows = count(db, k.table);

    a.typed->setText("FromA");
    a.invoice->txtInvoiceNo->setText("INV-A");
    a.ok->click();

    QCOMPARE(boxes.calls().size(), 1);
    QVERIFY2(boxes.calls()[0].text.startsWith(
                 QStringLiteral("This %1 has been changed by another user since you opened it. "
                                "Your changes have not been saved.")
                     .arg(kind)),
             qPrintable(boxes.calls()[0].text));
    QVERIFY(a.dialog->result() != QDialog::Accepted);
    QCOMPARE(a.typed->text(), QString("FromA"));
    QCOMPARE(count(db, k.table), rows);
    QCOMPARE(invoiceNumber(db), QString(change == "invoice" ? "INV-B" : "INV-1"));
    if (change == "row") QCOMPARE(stored(db, kind, k.column, id).toString(), QString("FromB"));
    if (change == "invoice") QCOMPARE(stored(db, kind, k.column, id).toString(), QString("Loaded"));
    if (change == "soft delete") {
        QCOMPARE(stored(db, kind, "BlnDeleted", id).toInt(), 1);
        QCOMPARE(stored(db, kind, k.column, id).toString(), QString("Loaded"));
    }
}

void TestAssetEdits::reloadTakesTheRowAsItNowIs_data() {
    QTest::addColumn<QString>("kind");
    QTest::newRow("computer") << "computer";
    QTest::newRow("printer") << "printer";
    QTest::newRow("software") << "software";
}

void TestAssetEdits::reloadTakesTheRowAsItNowIs() {
    QFETCH(QString, kind);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addAsset(db, kind);
    const Kind k = kindOf(kind);
    MessageRecorder boxes;
    Screen a = open(kind, id);
    fixture.openSecond("user-b")->update(k.table, k.key, id, {{k.column, "FromB"}});
    a.typed->setText("FromA");
    boxes.answerNext(MsgAnswer::Yes);
    a.ok->click();
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(a.typed->text(), QString("FromB"));

    // Saving what is now on the screen goes through, B's change with A's new typing.
    a.invoice->txtInvoiceNo->setText("INV-A");
    a.ok->click();
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(a.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(stored(db, kind, k.column, id).toString(), QString("FromB"));
    QCOMPARE(invoiceNumber(db), QString("INV-A"));
}

void TestAssetEdits::installsElsewhereAreNoConflict() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addAsset(db, "software");
    MessageRecorder boxes;
    frmsoftware a;
    a.load(id);
    auto userB = fixture.openSecond("user-b");
    QVERIFY(assets::installSoftware(*userB, addComputer(*userB, "PC-B"), id));
    a.txtVersion->setText("2024");
    a.cmdOK->click();
    QCOMPARE(boxes.texts(), QStringList{});
    QCOMPARE(stored(db, "software", "Version", id).toString(), QString("2024"));
    QCOMPARE(used(db, id).toInt(), 1);

    // Licences bought meanwhile are a change: the count A saw would be written over them.
    frmsoftware again;
    again.load(id);
    assets::addLicences(*userB, id, 3);
    again.txtVersion->setText("2025");
    again.cmdOK->click();
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(stored(db, "software", "Licenses", id).toInt(), 8);
    QCOMPARE(stored(db, "software", "Version", id).toString(), QString("2024"));
}

void TestAssetEdits::unreadableTextKeepsTheStoredValue_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("box"); // price, date, number, received
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("computer price") << "computer"
                                    << "price"
                                    << "12..5"
                                    << "Please enter a number only in the price field";
    QTest::newRow("computer date") << "computer"
                                   << "date"
                                   << "30/02/2024"
                                   << "Please enter the date in the format DD/MM/YYYY";
    QTest::newRow("computer months") << "computer"
                                     << "number"
                                     << "1y"
                                     << "Please enter the number of months warranty.";
    QTest::newRow("printer price") << "printer"
                                   << "price"
                                   << "£1,00"
                                   << "Please enter a number in the invoice price field";
    QTest::newRow("printer date") << "printer"
                                  << "date"
                                  << "01/13/2024"
                                  << "Please enter a date in the invoice date field";
    QTest::newRow("printer received") << "printer"
                                      << "received"
                                      << "yesterday"
                                      << "Please enter the date in the format DD/MM/YYYY";
    QTest::newRow("software price") << "software"
                                    << "price"
                                    << "ten"
                                    << "Please enter a numeric value in the price box";
    QTest::newRow("software licences") << "software"
                                       << "number"
                                       << "2.5"
                                       << "Please enter the number of licenses you have purchased.";
    QTest::newRow("software date") << "software"
                                   << "date"
                                   << "31/04/2024"
                                   << "Please enter a date in the Invoice date box";
}

void TestAssetEdits::unreadableTextKeepsTheStoredValue() {
    QFETCH(QString, kind);
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addAsset(db, kind);
    const Kind k = kindOf(kind);
    MessageRecorder boxes;
    Screen a = open(kind, id);
    a.typed->setText("FromA");
    if (box == "price") a.invoice->txtPrice->setText(typed);
    if (box == "date") a.invoice->txtInvoiceDate->setText(typed);
    if (box == "number") a.number->setText(typed);
    if (box == "received") a.received->setText(typed);
    a.ok->click();
    QCOMPARE(boxes.texts(), QStringList{message});
    QVERIFY(a.dialog->result() != QDialog::Accepted);
    QCOMPARE(stored(db, kind, k.column, id).toString(), QString("Loaded"));
    const auto invoice = db.row("SELECT InvoiceDate, Price FROM Invoices");
    QCOMPARE(core::Db::toDate(invoice->value(0)), QDate(2024, 2, 1));
    QCOMPARE(core::Money::fromVariant(invoice->value(1)), core::Money::fromInt(100));
}

void TestAssetEdits::pricesAsPeopleTypeThem_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message"); // "" when saved
    QTest::addColumn<QString>("price");   // as stored afterwards
    QTest::newRow("separators") << "30,000"
                                << ""
                                << "30000";
    QTest::newRow("sign and pence") << "£30,000.50"
                                    << ""
                                    << "30000.5";
    QTest::newRow("badly grouped") << "3,00"
                                   << "Please enter a numeric value in the price box"
                                   << "100";
    QTest::newRow("blank clears") << " "
                                  << ""
                                  << "";
}

void TestAssetEdits::pricesAsPeopleTypeThem() {
    QFETCH(QString, typed);
    QFETCH(QString, message);
    QFETCH(QString, price);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addAsset(db, "software");
    MessageRecorder boxes;
    frmsoftware a;
    a.load(id);
    a.invoice->txtPrice->setText(typed);
    a.cmdOK->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QCOMPARE(assets::loadSoftware(db, id)->text.invoice.price, price);

    // More than the column holds cannot be typed into the box; the check refuses it anyway.
    assets::SoftwareText s = assets::loadSoftware(db, id)->text;
    s.invoice.price = "£123,456,789,012.50";
    QCOMPARE(assets::checkSoftware(s),
             QString("Total Invoice Price is too large: the most it can hold is "
                     "99999999999.9999"));
}

void TestAssetEdits::invoiceNeverWipesWhatItCannotRead() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = addAsset(db, "computer");
    const qint64 invoice = assets::keyOrZero(stored(db, "computer", "Invoice_ID", id));
    // Text the checks would have refused, reaching the writer all the same.
    assets::saveInvoice(db, invoice, {"31/02/2024", "INV-2", "lots"});
    auto row = db.row("SELECT InvoiceDate, InvoiceNumber, Price FROM Invoices");
    QCOMPARE(core::Db::toDate(row->value(0)), QDate(2024, 2, 1));
    QCOMPARE(row->value(1).toString().trimmed(), QString("INV-2"));
    QCOMPARE(core::Money::fromVariant(row->value(2)), core::Money::fromInt(100));
    // Blank boxes beside a number are what the user cleared.
    assets::saveInvoice(db, invoice, {"", "INV-3", ""});
    row = db.row("SELECT InvoiceDate, InvoiceNumber, Price FROM Invoices");
    QVERIFY(row->value(0).isNull());
    QVERIFY(row->value(2).isNull());
}

void TestAssetEdits::supplierRefillKeepsWhatWasShown() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 dale = addSupplier(db, "Dale Computers");
    assets::SupplierFields fields(nullptr);
    fields.load();
    QCOMPARE(fields.supplierId(), 0);
    fields.select(dale);
    addSupplier(db, "Abbey Supplies"); // sorts before the pick
    fields.load();
    QCOMPARE(fields.supplierId(), dale);
    QCOMPARE(fields.cboSupplier->currentText(), QString("Dale Computers"));
    QCOMPARE(fields.lblPostCode->text(), QString("LS1 1AA"));

    // Text that names no supplier stays as typed, picking none.
    fields.cboSupplier->setEditText("Dale Comp");
    fields.load();
    QCOMPARE(fields.cboSupplier->currentText(), QString("Dale Comp"));
    QCOMPARE(fields.supplierId(), 0);
}

QTEST_MAIN(TestAssetEdits)
#include "tst_asset_edits.moc"
