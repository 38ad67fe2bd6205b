#include "frmaddcomputer.h"

#include "assetwidgets.h"
#include "combos.h"
#include "datebox.h"
#include "failure.h"
#include "frmperipheral.h"
#include "frmsoftwareadd.h"
#include "licences.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "modal.h"
#include "peripherals.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "suppliers.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr int NotesLimit = 400;

void say(QWidget* parent, const QString& text) {
    core::msgbox(text, {}, core::MsgButtons::Ok, core::MsgIcon::None, parent);
}

QWidget* listPage(RecordList* list, QPushButton* add, QPushButton* remove) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(list);
    layout->addLayout(core::buttonRow({add, remove}));
    return page;
}

} // namespace

frmaddcomputer::frmaddcomputer(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmaddcomputer");
    setWindowTitle("Add Computer");
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    // Wide enough to show the five page captions and the software list's columns.
    SSTab1->setMinimumWidth(600);

    auto* general = new QWidget;
    cboUser = core::autoCompleteCombo(general, "cboUser");
    cboUser->setMinimumWidth(260);
    txtComputerName = assets::textBox(general, "txtComputerName", 20);
    txtManufacturer = assets::textBox(general, "txtManufacturer", 35);
    txtModel = assets::textBox(general, "txtModel", 35);
    txtSerialNumber = assets::textBox(general, "txtSerialNumber", 25);
    txtAssetNumber = assets::textBox(general, "txtAssetNumber", 15);
    txtRam = assets::textBox(general, "txtRam", 10);
    txtHardDrive = assets::textBox(general, "txtHardDrive", 10);
    auto* form = new QFormLayout(general);
    form->addRow("User", cboUser);
    form->addRow("Computer Name", txtComputerName);
    form->addRow("Manufacturer", txtManufacturer);
    form->addRow("Model", txtModel);
    form->addRow("Serial Number", txtSerialNumber);
    form->addRow("Asset Number", txtAssetNumber);
    form->addRow("Ram", txtRam);
    form->addRow("Hard Drive", txtHardDrive);

    lstSoftware = new RecordList(this);
    lstSoftware->setObjectName("lstSoftware");
    // 2651, 2850, 1700 and 900 twips.
    lstSoftware->setColumns({"Manufacturer", "Product", "Version", "Licenses"},
                            {177, 190, 113, 60});
    cmdAddSoftware = core::makeButton(this, "Add Software", "cmdAddSoftware");
    cmdRemoveSoftware = core::makeButton(this, "Remove Software", "cmdRemoveSoftware");
    cmdRemoveSoftware->setEnabled(false);

    lstPeripherals = new RecordList(this);
    lstPeripherals->setObjectName("lstPeripherals");
    // 1440, 1800, 1800, 1601 and 1440 twips.
    lstPeripherals->setColumns({"Type", "Model", "Manufacturer", "Serial No", "Asset No"},
                               {96, 120, 120, 107, 96});
    cmdAddPeripheral = core::makeButton(this, "Add Peripheral", "cmdAddPeripheral");
    cmdDeletePeripheral = core::makeButton(this, "Delete Peripheral", "cmdDeletePeripheral");
    cmdDeletePeripheral->setEnabled(false);

    auto* warranty = new QWidget;
    txtWarrantyLength = assets::textBox(warranty, "txtWarrantyLength", 2);
    core::numericKeysOnly(txtWarrantyLength);
    txtContactNo = assets::textBox(warranty, "txtContactNo", 25);
    txtRefNo = assets::textBox(warranty, "txtRefNo", 20);
    txtNotes = new QPlainTextEdit(warranty);
    txtNotes->setObjectName("txtNotes");
    txtNotes->setTabChangesFocus(true);
    auto* length = new QHBoxLayout;
    length->addWidget(txtWarrantyLength);
    length->addWidget(new QLabel("Mths from Invoice Date", warranty));
    length->addStretch();
    auto* wform = new QFormLayout(warranty);
    wform->addRow("Warranty Length", length);
    wform->addRow("Contact No", txtContactNo);
    wform->addRow("Ref No", txtRefNo);
    wform->addRow("Notes", txtNotes);

    auto* invoicePage = new QWidget;
    invoice = new assets::InvoiceFields(invoicePage, "Invoice Date", "Price");
    cboSupplier = core::autoCompleteCombo(invoicePage, "cboSupplier");
    auto* iform = new QVBoxLayout(invoicePage);
    iform->addWidget(invoice);
    auto* sform = new QFormLayout;
    sform->addRow("Supplier", cboSupplier);
    iform->addLayout(sform);
    iform->addStretch();

    SSTab1->addTab(general, "General");
    SSTab1->addTab(listPage(lstSoftware, cmdAddSoftware, cmdRemoveSoftware), "Software Installed");
    SSTab1->addTab(listPage(lstPeripherals, cmdAddPeripheral, cmdDeletePeripheral), "Peripherals");
    SSTab1->addTab(warranty, "Warranty/Notes");
    SSTab1->addTab(invoicePage, "Invoice");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(txtComputerName, &QLineEdit::editingFinished, this,
            [this] { txtComputerName->setText(txtComputerName->text().toUpper()); });
    connect(txtNotes, &QPlainTextEdit::textChanged, this, [this] {
        if (txtNotes->toPlainText().size() > NotesLimit) {
            txtNotes->setPlainText(txtNotes->toPlainText().left(NotesLimit));
            txtNotes->moveCursor(QTextCursor::End);
        }
    });
    connect(lstSoftware, &QTreeWidget::itemClicked, this,
            [this] { cmdRemoveSoftware->setEnabled(true); });
    connect(lstPeripherals, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        cmdDeletePeripheral->setEnabled(RecordList::idAt(item) > 0);
    });
    connect(cmdAddSoftware, &QPushButton::clicked, this, &frmaddcomputer::addSoftware);
    connect(cmdRemoveSoftware, &QPushButton::clicked, this, &frmaddcomputer::removeSoftware);
    connect(cmdAddPeripheral, &QPushButton::clicked, this, &frmaddcomputer::addPeripheral);
    connect(cmdDeletePeripheral, &QPushButton::clicked, this, &frmaddcomputer::deletePeripheral);
    connect(cmdOK, &QPushButton::clicked, this, &frmaddcomputer::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &frmaddcomputer::reject);
    assets::closeWhenFinished(this);

    core::guarded(
        windowTitle(),
        [this] {
            for (const auto& u : assets::userEntries(core::db()))
                core::addComboItem(cboUser, u.cells.value(0), u.id);
            cboUser->setCurrentIndex(-1);
            for (const auto& s : assets::supplierEntries(core::db()))
                core::addComboItem(cboSupplier, s.name, s.id);
            cboSupplier->setCurrentIndex(-1);
        },
        this);
}

void frmaddcomputer::load(qint64 id) {
    new_ = false;
    setWindowTitle("Edit computer");
    core::guarded(
        windowTitle(),
        [&] {
            const auto record = assets::loadComputer(core::db(), id);
            if (!record) return;
            loaded_ = record->loaded;
            const auto& t = record->text;
            loadedOwner_ = t.personId;
            if (!core::selectComboId(cboUser, t.personId) && t.personId > 0)
                cboUser->setEditText(record->userText);
            txtComputerName->setText(t.computerName);
            txtManufacturer->setText(t.manufacturer);
            txtModel->setText(t.model);
            txtSerialNumber->setText(t.serialNumber);
            txtAssetNumber->setText(t.assetNumber);
            txtRam->setText(t.ram);
            txtHardDrive->setText(t.hardDrive);
            txtWarrantyLength->setText(t.warrantyLength);
            txtContactNo->setText(t.contactNo);
            txtRefNo->setText(t.warrantyRef);
            txtNotes->setPlainText(t.notes);
            invoice->setText(t.invoice);
            core::selectComboId(cboSupplier, t.supplierId);
            computerId_ = id;
            invoiceId_ = record->invoiceId;
            showSoftware(record->software);
            peripherals_ = record->peripherals;
            showPeripherals();
        },
        this);
}

assets::ComputerText frmaddcomputer::screenText() const {
    assets::ComputerText t;
    t.manufacturer = txtManufacturer->text();
    t.model = txtModel->text();
    t.serialNumber = txtSerialNumber->text();
    t.assetNumber = txtAssetNumber->text();
    t.computerName = txtComputerName->text();
    t.ram = txtRam->text();
    t.hardDrive = txtHardDrive->text();
    t.warrantyLength = txtWarrantyLength->text();
    t.warrantyRef = txtRefNo->text();
    t.contactNo = txtContactNo->text();
    t.notes = txtNotes->toPlainText();
    t.invoice = invoice->text();
    const qint64 supplier = core::comboId(cboSupplier);
    t.supplierId = supplier == core::NoComboId ? 0 : supplier;
    // The owner is the person picked, by key; an emptied box is no owner.
    if (!cboUser->currentText().trimmed().isEmpty()) {
        const qint64 owner = core::comboId(cboUser);
        t.personId = owner == core::NoComboId ? loadedOwner_ : owner;
    }
    return t;
}

bool frmaddcomputer::passesChecks() {
    using P = assets::ComputerProblem;
    const P problem = assets::checkComputer(screenText(), new_);
    if (problem.message.isEmpty()) return true;
    SSTab1->setCurrentIndex(problem.page);
    say(this, problem.message);
    switch (problem.field) {
    case P::WarrantyLength:
        txtWarrantyLength->setFocus();
        break;
    case P::InvoiceDate:
        invoice->txtInvoiceDate->lineEdit()->setFocus();
        break;
    case P::Price:
        invoice->txtPrice->setFocus();
        break;
    case P::ComputerName:
        txtComputerName->setFocus();
        break;
    case P::None:
        break;
    }
    return false;
}

bool frmaddcomputer::save() {
    return core::saveUnlessChanged(
        windowTitle(), "computer",
        [this] {
            qint64 invoiceId = invoiceId_;
            const assets::ComputerText t = screenText();
            computerId_ = assets::saveComputer(core::db(), new_ ? 0 : computerId_, invoiceId, t,
                                               peripherals_, &loaded_);
            invoiceId_ = invoiceId;
            loadedOwner_ = t.personId;
            if (new_) savedEarly_ = true;
            new_ = false;
            showPeripherals();
        },
        [this] { load(computerId_); }, this);
}

void frmaddcomputer::ok() {
    if (!passesChecks() || !save()) return;
    savedEarly_ = false;
    accept();
}

void frmaddcomputer::reject() {
    if (savedEarly_) {
        savedEarly_ = false;
        core::guarded(
            windowTitle(), [this] { assets::discardComputer(core::db(), computerId_); }, this);
    }
    QDialog::reject();
}

void frmaddcomputer::addSoftware() {
    if (txtComputerName->text().trimmed().isEmpty())
        return say(this, "You need to enter a computer name before adding software");
    // The software rows need the computer's key, so a new computer is stored first, after
    // the same checks as OK; Cancel takes it back.
    if (new_ && (!passesChecks() || !save())) return;
    frmSoftwareadd picker(this);
    picker.setWindowTitle("Add Software");
    if (!core::guarded(
            windowTitle(), [&] { picker.loadall(); }, this))
        return;
    if (core::showModal(picker) != QDialog::Accepted || picker.selectedId() == 0) return;
    const qint64 softwareId = picker.selectedId();
    core::guarded(
        windowTitle(),
        [&] {
            if (lstSoftware->findRecord(softwareId) ||
                !assets::installSoftware(core::db(), computerId_, softwareId)) {
                say(this, "This software is already installed on this computer");
                return;
            }
            showSoftware(assets::computerSoftwareRows(core::db(), computerId_));
        },
        this);
}

void frmaddcomputer::removeSoftware() {
    const qint64 softwareId = lstSoftware->selectedId();
    if (softwareId == 0) return;
    if (core::guarded(
            windowTitle(), [&] { assets::removeSoftware(core::db(), computerId_, softwareId); },
            this))
        delete lstSoftware->findRecord(softwareId);
    cmdRemoveSoftware->setEnabled(false);
}

void frmaddcomputer::addPeripheral() {
    frmPeripheral dialog(this);
    core::showModal(dialog);
    if (!dialog.ok()) return;
    peripherals_.push_back(
        {0,
         {dialog.cboType->currentText().trimmed(), dialog.txtModel->text(),
          dialog.txtManufacturer->text(), dialog.txtSerialNo->text(), dialog.txtAssetNo->text()}});
    showPeripherals();
}

void frmaddcomputer::deletePeripheral() {
    if (lstPeripherals->count() == 0) {
        cmdDeletePeripheral->setEnabled(false);
        return;
    }
    QTreeWidgetItem* item = lstPeripherals->currentItem();
    if (!item) return;
    const QString refusal = assets::peripheralDeleteRefusal(item->text(0));
    if (!refusal.isEmpty()) return say(this, refusal);
    const qint64 id = RecordList::idAt(item);
    const size_t index = item->data(0, Qt::UserRole + 1).toULongLong();
    if (id > 0 && !core::guarded(
                      windowTitle(), [&] { assets::deletePeripheral(core::db(), id); }, this))
        return;
    if (index < peripherals_.size()) peripherals_.erase(peripherals_.begin() + qsizetype(index));
    showPeripherals();
    cmdDeletePeripheral->setEnabled(false);
}

void frmaddcomputer::showSoftware(const std::vector<assets::ListRow>& rows) {
    assets::fillList(lstSoftware, rows);
}

void frmaddcomputer::showPeripherals() {
    lstPeripherals->clearRecords();
    for (size_t i = 0; i < peripherals_.size(); ++i) {
        QTreeWidgetItem* row = lstPeripherals->addRecord(peripherals_[i].id, peripherals_[i].cells);
        row->setData(0, Qt::UserRole + 1, qulonglong(i));
    }
}
