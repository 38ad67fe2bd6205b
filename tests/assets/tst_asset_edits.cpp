#include "assetrows.h"
#include "assetwidgets.h"
#include "datebox.h"
#include "frmaddcomputer.h"
#include "frmperipheraledit.h"
#include "frmsoftware.h"
#include "licences.h"
#include "peripherals.h"
#include "session.h"
#include "software.h"
#include "twousers.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>
#include <memory>

using namespace assetrows;
using core::MsgAnswer;
using testsupport::StoredRow;
using testsupport::TestDatabase;
using testsupport::TwoUsers;

namespace {

// A stored asset of the kind ("Loaded" in the box a user types in), with an invoice of 100.00
// dated 01/02/2024 and numbered "INV-1".
StoredRow addAsset(core::Db& db, const QString& kind) {
    const qint64 invoice = db.insert("Invoices", "Invoice_ID",
                                     {{"InvoiceDate", QDate(2024, 2, 1)},
                                      {"InvoiceNumber", "INV-1"},
                                      {"Price", core::Money::fromInt(100).toVariant()}});
    StoredRow row{"Software", "Software_ID"};
    if (kind == "computer") row = {"Computers", "Computer_ID", addComputer(db, "PC1")};
    if (kind == "software") row.id = addSoftware(db, "Office", 5);
    if (kind == "printer")
        row = {"Peripherals", "peripheral_ID",
               db.insert("Peripherals", "peripheral_ID",
                         {{"Type", "Printer"}, {"Manufacturer", "HP"}, {"BlnDeleted", 0}})};
    db.update(row.table, row.key, row.id,
              {{kind == "software" ? "Version" : "Model", "Loaded"},
               {"Invoice_ID", invoice},
               {"Manufacturer", "Acme"}});
    return row;
}

// An asset's edit screen opened on a stored row, as a user sees it.
struct Screen {
    std::unique_ptr<QDialog> dialog;
    QLineEdit* typed = nullptr;  // the model, or the software's version
    QLineEdit* number = nullptr; // the warranty length, or the licences
    assets::InvoiceFields* invoice = nullptr;
    DateBox* received = nullptr; // printers only
    QPushButton* ok = nullptr;
    QString column() const { return typed->objectName().mid(3); }
};

template <class D> std::unique_ptr<QDialog> loaded(qint64 id) {
    auto d = std::make_unique<D>();
    d->load(id);
    return d;
}

Screen open(const QString& kind, qint64 id) {
    Screen s{kind == "computer"  ? loaded<frmaddcomputer>(id)
             : kind == "printer" ? loaded<frmprinter>(id)
                                 : loaded<frmsoftware>(id)};
    const bool software = kind == "software";
    s.typed = s.dialog->findChild<QLineEdit*>(software ? "txtVersion" : "txtModel");
    s.number = s.dialog->findChild<QLineEdit*>(software ? "txtLicenses" : "txtWarrantyLength");
    s.invoice = s.dialog->findChild<assets::InvoiceFields*>();
    s.received = s.dialog->findChild<DateBox*>("txtDateReceived");
    s.ok = s.dialog->findChild<QPushButton*>("cmdOK");
    return s;
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
    void typedBoxes_data();
    void typedBoxes();
    void invoiceNeverWipesWhatItCannotRead();
    void supplierRefillKeepsWhatWasShown();
};

void TestAssetEdits::anotherUsersChangeIsNotOverwritten_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("change"); // what user B does while A has the screen open
    QTest::addColumn<bool>("reload");    // A's answer to the offer of the row as it now is
    for (const QString kind : {"computer", "printer", "software"}) {
        for (const QString change : {"row", "invoice", "delete"})
            QTest::newRow(qPrintable(kind + ", " + change)) << kind << change << false;
        QTest::newRow(qPrintable(kind + ", row, reloaded")) << kind << "row" << true;
    }
    QTest::newRow("printer, soft delete") << QString("printer") << QString("soft delete") << false;
    // Installs elsewhere are no conflict; licences bought are: the count A saw would be
    // written over them.
    QTest::newRow("software, installed") << QString("software") << QString("install") << false;
    QTest::newRow("software, licences") << QString("software") << QString("licences") << false;
}

void TestAssetEdits::anotherUsersChangeIsNotOverwritten() {
    QFETCH(QString, kind);
    QFETCH(QString, change);
    QFETCH(bool, reload);
    TwoUsers users;
    auto& db = users.db;
    const StoredRow row = addAsset(db, kind);
    if (reload) users.boxes.answerNext(MsgAnswer::Yes);
    Screen a = open(kind, row.id);
    const QString column = a.column();
    QCOMPARE(a.typed->text(), QString("Loaded"));

    auto& userB = *users.userB;
    if (change == "row") userB.update(row.table, row.key, row.id, {{column, "FromB"}});
    if (change == "invoice") userB.exec("UPDATE Invoices SET InvoiceNumber = ?", {"INV-B"});
    if (change == "delete") userB.remove(row.table, row.key, row.id);
    if (change == "soft delete") assets::deletePeripheral(userB, row.id);
    if (change == "install")
        QVERIFY(assets::installSoftware(userB, addComputer(userB, "PC-B"), row.id));
    if (change == "licences") assets::addLicences(userB, row.id, 3);
    const int rows = row.rowsInTable(db);

    a.typed->setText("FromA");
    a.invoice->txtInvoiceNo->setText("INV-A");
    a.ok->click();
    if (change == "install") {
        QCOMPARE(users.boxes.texts(), QStringList{});
        QCOMPARE(row.value(db, column).toString(), QString("FromA"));
        QCOMPARE(used(db, row.id).toInt(), 1);
        return;
    }

    // The refusal names the row as the screen's caption does.
    QCOMPARE(users.boxes.calls().size(), 1);
    QVERIFY2(users.refusedAsChanged(kind), qPrintable(users.firstBox()));
    QVERIFY(a.dialog->result() != QDialog::Accepted);
    QCOMPARE(a.typed->text(), QString(reload ? "FromB" : "FromA"));
    QCOMPARE(row.rowsInTable(db), rows);
    QCOMPARE(invoiceNumber(db), QString(change == "invoice" ? "INV-B" : "INV-1"));
    if (change == "row") QCOMPARE(row.value(db, column).toString(), QString("FromB"));
    if (change == "invoice" || change == "soft delete" || change == "licences")
        QCOMPARE(row.value(db, column).toString(), QString("Loaded"));
    if (change == "soft delete") QCOMPARE(row.value(db, "BlnDeleted").toInt(), 1);
    if (change == "licences") QCOMPARE(row.value(db, "Licenses").toInt(), 8);
    if (!reload) return;

    // Saving what is now on the screen goes through, B's change with A's new typing.
    a.invoice->txtInvoiceNo->setText("INV-A");
    a.ok->click();
    QCOMPARE(users.boxes.calls().size(), 1);
    QCOMPARE(a.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(row.value(db, column).toString(), QString("FromB"));
    QCOMPARE(invoiceNumber(db), QString("INV-A"));
}

void TestAssetEdits::typedBoxes_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("box"); // price, date, number, received
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message"); // "" when saved
    QTest::addColumn<QString>("price");   // as the screen shows it afterwards
    const char* dmy = "Please enter the date in the format DD/MM/YYYY";
    const char* softwarePrice = "Please enter a numeric value in the price box";
    struct Row {
        const char *name, *kind, *box, *typed, *message, *price;
    };
    const Row rows[] = {
        // Text that cannot be read is refused and keeps every stored value.
        {"computer price", "computer", "price", "12..5",
         "Please enter a number only in the price field", "100"},
        {"computer date", "computer", "date", "30/02/2024", dmy, "100"},
        {"computer months", "computer", "number", "1y",
         "Please enter the number of months warranty.", "100"},
        {"printer price", "printer", "price", "£1,00",
         "Please enter a number in the invoice price field", "100"},
        {"printer date", "printer", "date", "01/13/2024",
         "Please enter a date in the invoice date field", "100"},
        {"printer received", "printer", "received", "yesterday", dmy, "100"},
        {"software price", "software", "price", "ten", softwarePrice, "100"},
        {"software licences", "software", "number", "2.5",
         "Please enter the number of licenses you have purchased.", "100"},
        {"software date", "software", "date", "31/04/2024",
         "Please enter a date in the Invoice date box", "100"},
        // Prices as people type them.
        {"separators", "software", "price", "30,000", "", "30000"},
        {"sign and pence", "software", "price", "£30,000.50", "", "30000.5"},
        {"badly grouped", "software", "price", "3,00", softwarePrice, "100"},
        {"blank clears", "software", "price", " ", "", ""},
    };
    for (const Row& r : rows)
        QTest::newRow(r.name) << QString(r.kind) << QString(r.box) << QString::fromUtf8(r.typed)
                              << QString(r.message) << QString(r.price);
}

void TestAssetEdits::typedBoxes() {
    QFETCH(QString, kind);
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    QFETCH(QString, price);
    TestDatabase fixture;
    auto& db = fixture.db();
    const StoredRow row = addAsset(db, kind);
    testsupport::MessageRecorder boxes;
    Screen a = open(kind, row.id);
    a.typed->setText("FromA");
    if (box == "price") a.invoice->txtPrice->setText(typed);
    if (box == "date") a.invoice->txtInvoiceDate->setText(typed);
    if (box == "number") a.number->setText(typed);
    if (box == "received") a.received->setText(typed);
    a.ok->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QCOMPARE(a.dialog->result() == QDialog::Accepted, message.isEmpty());
    QCOMPARE(row.value(db, a.column()).toString(), QString(message.isEmpty() ? "FromA" : "Loaded"));
    const auto invoice = db.row("SELECT InvoiceDate, Invoice_ID FROM Invoices");
    QCOMPARE(core::Db::toDate(invoice->value(0)), QDate(2024, 2, 1));
    QCOMPARE(assets::loadInvoice(db, invoice->value(1).toLongLong())->price, price);
}

void TestAssetEdits::invoiceNeverWipesWhatItCannotRead() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const StoredRow row = addAsset(db, "computer");
    const qint64 invoice = assets::keyOrZero(row.value(db, "Invoice_ID"));
    // Text the checks would have refused, reaching the writer all the same.
    assets::saveInvoice(db, invoice, {"31/02/2024", "INV-2", "lots"});
    auto stored = db.row("SELECT InvoiceDate, InvoiceNumber, Price FROM Invoices");
    QCOMPARE(core::Db::toDate(stored->value(0)), QDate(2024, 2, 1));
    QCOMPARE(stored->value(1).toString().trimmed(), QString("INV-2"));
    QCOMPARE(core::Money::fromVariant(stored->value(2)), core::Money::fromInt(100));
    // Blank boxes beside a number are what the user cleared.
    assets::saveInvoice(db, invoice, {"", "INV-3", ""});
    stored = db.row("SELECT InvoiceDate, InvoiceNumber, Price FROM Invoices");
    QVERIFY(stored->value(0).isNull());
    QVERIFY(stored->value(2).isNull());

    // More than the column holds cannot be typed into the box; the check refuses it anyway.
    const assets::SoftwareText s{"Acme", "Office", "2021", "5", {"", "", "£123,456,789,012.50"}};
    QCOMPARE(assets::checkSoftware(s),
             QString("Total Invoice Price is too large: the most it can hold is "
                     "99999999999.9999"));
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
