#include "frmperipheraledit.h"

#include "assetwidgets.h"
#include "combos.h"
#include "datebox.h"
#include "failure.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "peripherals.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QWidget* withUnit(QWidget* field, const QString& unit) {
    auto* holder = new QWidget;
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(field);
    row->addWidget(new QLabel(unit, holder));
    row->addStretch();
    return holder;
}

} // namespace

PeripheralEdit* newPeripheralEdit(const QString& type) {
    if (type == "Scanner") return new frmScanner;
    if (type == "Monitor") return new frmMonitor;
    return new frmprinter;
}

PeripheralEdit::PeripheralEdit(const QString& type, QWidget* parent)
    : QDialog(parent)
    , type_(type) {
    const bool printer = type == "Printer";
    const bool monitor = type == "Monitor";
    setObjectName(printer ? "frmprinter" : monitor ? "frmMonitor" : "frmScanner");
    setWindowTitle("Add " + type);
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");

    auto* general = new QWidget;
    txtManufacturer = assets::textBox(general, "txtManufacturer", 20);
    txtModel = assets::textBox(general, "txtModel", 20);
    txtSerialNo = assets::textBox(general, "txtSerialNo", 20);
    txtAssetNo = assets::textBox(general, "txtAssetNo", 20);
    auto* form = new QFormLayout(general);
    form->addRow("Manufacturer", txtManufacturer);
    form->addRow("Model", txtModel);
    form->addRow("Serial Number", txtSerialNo);
    form->addRow("Asset Number", txtAssetNo);
    if (monitor) {
        txtSize = assets::textBox(general, "txtSize", 20);
        form->addRow("Monitor Size", withUnit(txtSize, "Inch"));
    } else {
        txtLocation = assets::textBox(general, "txtLocation", 20);
        form->addRow("Location", txtLocation);
    }
    cboAssignedTo = core::autoCompleteCombo(general, "cboAssignedTo");
    if (printer) {
        cboPrinterType = core::autoCompleteCombo(general, "cboPrinterType");
        cboPrinterType->addItems({"Local", "Network"});
        cboPrinterType->setCurrentIndex(-1);
        txtIPAddress = assets::textBox(general, "txtIPAddress", 15);
        form->addRow("Printer Type", cboPrinterType);
        form->addRow("IP Address/Server", txtIPAddress);
    }
    form->addRow("Assigned To", cboAssignedTo);
    txtDateReceived = new DateBox("txtDateReceived", general);
    txtDateReceived->setEscapeForToday(true);
    txtDateReceived->setWarnOnInvalid(true);
    form->addRow("Date Recieved", txtDateReceived);

    auto* warranty = new QWidget;
    auto* wform = new QVBoxLayout(warranty);
    invoice = new assets::InvoiceFields(warranty, "Invoice date", "Total Invoice Price");
    wform->addWidget(invoice);
    auto* wfields = new QFormLayout;
    txtWarrantyLength = assets::textBox(warranty, "txtWarrantyLength", 2);
    core::numericKeysOnly(txtWarrantyLength);
    txtContactNo = assets::textBox(warranty, "txtContactNo", 20);
    txtRefNo = assets::textBox(warranty, "txtRefNo", 10);
    wfields->addRow("Warranty Length", withUnit(txtWarrantyLength, "Mths from Invoice Date"));
    wfields->addRow("Contact No", txtContactNo);
    wfields->addRow("Ref No", txtRefNo);
    wform->addLayout(wfields);
    wform->addStretch();

    supplier = new assets::SupplierFields(nullptr);
    SSTab1->addTab(general, "General");
    SSTab1->addTab(warranty, "Warranty/Invoice");
    SSTab1->addTab(supplier, "Supplier");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    if (printer)
        connect(cboPrinterType, &QComboBox::currentIndexChanged, this, [this](int index) {
            if (index >= 0) printerTypePicked(cboPrinterType->itemText(index), true);
        });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (save()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    assets::closeWhenFinished(this);

    core::guarded(
        windowTitle(),
        [this] {
            supplier->load();
            for (const auto& c : assets::computerNames(core::db()))
                core::addComboItem(cboAssignedTo, c.cells.value(0), c.id);
            cboAssignedTo->setCurrentIndex(-1);
        },
        this);
}

void PeripheralEdit::printerTypePicked(const QString& printerType, bool moveFocus) {
    const bool local = printerType == "Local";
    cboAssignedTo->setEnabled(local);
    txtIPAddress->setEnabled(!local);
    if (local) {
        txtIPAddress->clear();
        if (moveFocus) cboAssignedTo->setFocus();
    } else {
        cboAssignedTo->setCurrentIndex(-1);
        cboAssignedTo->setEditText({});
        if (moveFocus) txtIPAddress->setFocus();
    }
}

void PeripheralEdit::load(qint64 id) {
    core::guarded(
        windowTitle(),
        [&] {
            const auto record = assets::loadPeripheral(core::db(), id);
            if (!record) return;
            loaded_ = record->loaded;
            const auto& t = record->text;
            txtManufacturer->setText(t.manufacturer);
            txtModel->setText(t.model);
            txtSerialNo->setText(t.serialNo);
            txtAssetNo->setText(t.assetNo);
            if (txtLocation) txtLocation->setText(t.location);
            if (txtSize) txtSize->setText(t.size);
            if (cboPrinterType) {
                const QSignalBlocker quiet(cboPrinterType);
                cboPrinterType->setCurrentIndex(cboPrinterType->findText(t.printerType));
                if (cboPrinterType->currentIndex() < 0) cboPrinterType->setEditText(t.printerType);
                if (t.printerType == "Local" || t.printerType == "Network")
                    printerTypePicked(t.printerType, false);
                txtIPAddress->setText(t.ipAddress);
            }
            loadedComputer_ = t.computerId;
            if (!core::selectComboId(cboAssignedTo, t.computerId) && t.computerId > 0)
                cboAssignedTo->setEditText(record->computerName);
            txtDateReceived->setText(t.dateReceived);
            txtWarrantyLength->setText(t.warrantyLength);
            txtContactNo->setText(t.warrantyContact);
            txtRefNo->setText(t.warrantyRef);
            invoice->setText(t.invoice);
            supplier->select(t.supplierId);
            peripheralId_ = id;
            invoiceId_ = record->invoiceId;
            new_ = false;
        },
        this);
}

bool PeripheralEdit::save() {
    assets::PeripheralText t;
    t.type = type_;
    t.manufacturer = txtManufacturer->text();
    t.model = txtModel->text();
    t.serialNo = txtSerialNo->text();
    t.assetNo = txtAssetNo->text();
    if (txtLocation) t.location = txtLocation->text();
    if (txtSize) t.size = txtSize->text();
    if (cboPrinterType) {
        t.printerType = cboPrinterType->currentText();
        t.ipAddress = txtIPAddress->text();
    }
    t.warrantyLength = txtWarrantyLength->text();
    t.warrantyContact = txtContactNo->text();
    t.warrantyRef = txtRefNo->text();
    t.dateReceived = txtDateReceived->text();
    t.invoice = invoice->text();
    t.supplierId = supplier->supplierId();
    if (!cboAssignedTo->currentText().trimmed().isEmpty()) {
        const qint64 picked = core::comboId(cboAssignedTo);
        t.computerId = picked != core::NoComboId ? picked : loadedComputer_;
    }
    const QString problem = assets::checkPeripheral(t);
    if (!problem.isEmpty()) {
        core::msgbox(problem, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return false;
    }
    return core::saveUnlessChanged(
        windowTitle(), type_.toLower(),
        [&] {
            qint64 invoiceId = invoiceId_;
            peripheralId_ = assets::savePeripheral(core::db(), new_ ? 0 : peripheralId_, invoiceId,
                                                   t, &loaded_);
            invoiceId_ = invoiceId;
            new_ = false;
        },
        [this] { load(peripheralId_); }, this);
}
