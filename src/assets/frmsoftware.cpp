#include "frmsoftware.h"

#include "assetwidgets.h"
#include "failure.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "screenbase.h"
#include "session.h"
#include "software.h"
#include "widgetkit.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

frmsoftware::frmsoftware(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmsoftware");
    setWindowTitle("Add software");
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    auto* general = new QWidget;
    txtManufacturer = assets::textBox(general, "txtManufacturer", 25);
    txtProduct = assets::textBox(general, "txtProduct", 35);
    txtVersion = assets::textBox(general, "txtVersion", 25);
    txtLicenses = assets::textBox(general, "txtLicenses", 4);
    auto* form = new QFormLayout(general);
    form->addRow("Manufacturer", txtManufacturer);
    form->addRow("Product", txtProduct);
    form->addRow("Version", txtVersion);
    form->addRow("Licenses", txtLicenses);
    invoice = new assets::InvoiceFields(nullptr, "Invoice date", "Total Invoice Price");
    supplier = new assets::SupplierFields(nullptr);
    SSTab1->addTab(general, "General");
    SSTab1->addTab(invoice, "Invoice");
    SSTab1->addTab(supplier, "Supplier");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (save()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    assets::closeWhenFinished(this);
    core::guarded(
        windowTitle(), [this] { supplier->load(); }, this);
}

void frmsoftware::load(qint64 id) {
    core::guarded(
        windowTitle(),
        [&] {
            const auto record = assets::loadSoftware(core::db(), id);
            if (!record) return;
            loaded_ = record->loaded;
            txtManufacturer->setText(record->text.manufacturer);
            txtProduct->setText(record->text.product);
            txtVersion->setText(record->text.version);
            txtLicenses->setText(record->text.licenses);
            invoice->setText(record->text.invoice);
            supplier->select(record->text.supplierId);
            softwareId_ = id;
            invoiceId_ = record->invoiceId;
            new_ = false;
        },
        this);
}

bool frmsoftware::save() {
    assets::SoftwareText text{txtManufacturer->text(), txtProduct->text(), txtVersion->text(),
                              txtLicenses->text(),     invoice->text(),    supplier->supplierId()};
    const QString problem = assets::checkSoftware(text);
    if (!problem.isEmpty()) {
        core::msgbox(problem, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return false;
    }
    return core::saveUnlessChanged(
        windowTitle(), "software",
        [&] {
            qint64 invoiceId = invoiceId_;
            softwareId_ =
                assets::saveSoftware(core::db(), new_ ? 0 : softwareId_, invoiceId, text, &loaded_);
            invoiceId_ = invoiceId;
            new_ = false;
            ok_ = true;
        },
        [this] { load(softwareId_); }, this);
}
