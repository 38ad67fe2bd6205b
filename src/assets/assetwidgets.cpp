#include "assetwidgets.h"

#include "combos.h"
#include "datebox.h"
#include "recordlist.h"
#include "regional.h"
#include "session.h"

#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace assets {

QLineEdit* textBox(QWidget* parent, const char* name, int maxLength) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setMaxLength(maxLength);
    return box;
}

void fillList(RecordList* list, const std::vector<ListRow>& rows) {
    list->clearRecords();
    list->beginFill();
    for (const auto& row : rows)
        list->addRecord(row.id, row.cells);
    list->endFill();
}

void closeWhenFinished(QDialog* dialog) {
    QObject::connect(dialog, &QDialog::finished, dialog, [dialog] {
        // Shown modally the dialog is only hidden, so that its caller can read it.
        if (dialog->testAttribute(Qt::WA_DeleteOnClose)) dialog->close();
    });
}

InvoiceFields::InvoiceFields(QWidget* parent, const QString& dateCaption,
                             const QString& priceCaption)
    : QWidget(parent) {
    txtInvoiceDate = new DateBox("txtInvoiceDate", this);
    txtInvoiceDate->setEscapeForToday(true);
    txtInvoiceDate->setWarnOnInvalid(true);
    txtInvoiceNo = textBox(this, "txtInvoiceNo", 10);
    txtPrice = textBox(this, "txtPrice", 10);
    lblCurrency = new QLabel(core::currencySign(), this);
    lblCurrency->setObjectName("lblCurrency");
    auto* price = new QHBoxLayout;
    price->addWidget(lblCurrency);
    price->addWidget(txtPrice, 1);
    auto* form = new QFormLayout(this);
    form->addRow(dateCaption, txtInvoiceDate);
    form->addRow("Invoice Number", txtInvoiceNo);
    form->addRow(priceCaption, price);
}

InvoiceText InvoiceFields::text() const {
    return {txtInvoiceDate->text(), txtInvoiceNo->text(), txtPrice->text()};
}

void InvoiceFields::setText(const InvoiceText& invoice) {
    txtInvoiceDate->setText(invoice.date);
    txtInvoiceNo->setText(invoice.number);
    txtPrice->setText(invoice.price);
}

namespace {
QLabel* valueLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(200);
    return label;
}
} // namespace

SupplierFields::SupplierFields(QWidget* parent)
    : QWidget(parent) {
    cboSupplier = core::autoCompleteCombo(this, "cboSupplier");
    lblAddress1 = valueLabel(this, "lblAddress1");
    lblAddress2 = valueLabel(this, "lblAddress2");
    lblAddress3 = valueLabel(this, "lblAddress3");
    lblPostCode = valueLabel(this, "lblPostCode");
    lblPhone = valueLabel(this, "lblPhone");
    lblPostCodeCaption = new QLabel(core::postcodeCaption(), this);
    lblPostCodeCaption->setObjectName("lblPostCodeCaption");
    auto* form = new QFormLayout(this);
    form->addRow("Supplier Name", cboSupplier);
    form->addRow("Supplier address", lblAddress1);
    form->addRow("", lblAddress2);
    form->addRow("", lblAddress3);
    form->addRow(lblPostCodeCaption, lblPostCode);
    form->addRow("Phone", lblPhone);
    connect(cboSupplier, &QComboBox::currentIndexChanged, this, &SupplierFields::showAddress);
}

void SupplierFields::load() {
    suppliers_ = supplierEntries(core::db());
    core::refillCombo(cboSupplier, [this](QComboBox* combo) {
        for (const auto& s : suppliers_)
            core::addComboItem(combo, s.name, s.id);
    });
    showAddress(cboSupplier->currentIndex());
}

qint64 SupplierFields::supplierId() const {
    const qint64 id = core::comboId(cboSupplier);
    return id == core::NoComboId ? 0 : id;
}

void SupplierFields::select(qint64 id) {
    if (id <= 0 || !core::selectComboId(cboSupplier, id)) {
        cboSupplier->setCurrentIndex(-1);
        cboSupplier->setEditText({});
    }
    showAddress(cboSupplier->currentIndex());
}

void SupplierFields::showAddress(int index) {
    const bool picked = index >= 0 && index < int(suppliers_.size());
    const SupplierEntry none;
    const SupplierEntry& s = picked ? suppliers_[size_t(index)] : none;
    lblAddress1->setText(s.address1);
    lblAddress2->setText(s.address2);
    lblAddress3->setText(s.address3);
    lblPostCode->setText(s.pcode);
    lblPhone->setText(s.phone);
}

} // namespace assets
