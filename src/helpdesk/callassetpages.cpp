#include "callassetpages.h"

#include "frmcontact.h"
#include "modal.h"
#include "widgetkit.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* detail(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(160);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

// A button at its own width, at the left of its row.
QHBoxLayout* besideStretch(QWidget* button) {
    auto* row = new QHBoxLayout;
    row->addWidget(button);
    row->addStretch();
    return row;
}

} // namespace

CallAssetPages::CallAssetPages(QWidget* parent)
    : QTabWidget(parent) {
    setObjectName("tabAsset");
    auto* computer = new QWidget;
    lblManufacturer = detail(computer, "lblManufacturer");
    lblModel = detail(computer, "lblModel");
    lblAssetNo = detail(computer, "lblAssetNo");
    lblSerialNo = detail(computer, "lblSerialNo");
    lblWarranty = detail(computer, "lblWarranty");
    cmdContact = core::makeButton(computer, "Contact Info", "cmdContact");
    auto* cform = new QFormLayout(computer);
    cform->addRow("Manufacturer", lblManufacturer);
    cform->addRow("Model", lblModel);
    cform->addRow("Asset No", lblAssetNo);
    cform->addRow("Serial Number", lblSerialNo);
    cform->addRow("Warranty Expiry", lblWarranty);
    cform->addRow(QString(), besideStretch(cmdContact));

    auto* software = new QWidget;
    lstSoftware = new QListWidget(software);
    lstSoftware->setObjectName("lstSoftware");
    auto* slayout = new QVBoxLayout(software);
    slayout->addWidget(lstSoftware);

    auto* peripheral = new QWidget;
    lblPManufacturer = detail(peripheral, "lblPManufacturer");
    lblPModel = detail(peripheral, "lblPModel");
    lblPSerialNo = detail(peripheral, "lblPSerialNo");
    lblPAssetNo = detail(peripheral, "lblPAssetNo");
    lblPWarranty = detail(peripheral, "lblPWarranty");
    cmdPContact = core::makeButton(peripheral, "Contact Info", "cmdPContact");
    auto* pform = new QFormLayout(peripheral);
    pform->addRow("Manufacturer", lblPManufacturer);
    pform->addRow("Model", lblPModel);
    pform->addRow("Serial Number", lblPSerialNo);
    pform->addRow("Asset No", lblPAssetNo);
    pform->addRow("Warranty Expiry", lblPWarranty);
    pform->addRow(QString(), besideStretch(cmdPContact));

    addTab(computer, "Computer");
    addTab(software, "Software");
    addTab(peripheral, "Peripherals");
    connect(cmdContact, &QPushButton::clicked, this, &CallAssetPages::contactInfo);
    connect(cmdPContact, &QPushButton::clicked, this, &CallAssetPages::contactInfo);
}

void CallAssetPages::clearDetails() {
    for (QLabel* l : {lblManufacturer, lblModel, lblAssetNo, lblSerialNo, lblWarranty,
                      lblPManufacturer, lblPModel, lblPSerialNo, lblPAssetNo, lblPWarranty})
        l->clear();
    contactNo.clear();
    invoiceNo.clear();
    warrantyRef.clear();
    lstSoftware->clear();
}

void CallAssetPages::setContact(const helpdesk::AssetDetails& d) {
    contactNo = d.contactNo;
    invoiceNo = d.invoiceNo;
    warrantyRef = d.warrantyRef;
}

void CallAssetPages::showComputer(const helpdesk::AssetDetails& d, bool picked) {
    lblManufacturer->setText(d.manufacturer);
    lblModel->setText(d.model);
    lblAssetNo->setText(d.assetNo);
    lblSerialNo->setText(d.serialNo);
    lblWarranty->setText(picked && d.warrantyExpiry.isEmpty() ? QStringLiteral("N/A")
                                                              : d.warrantyExpiry);
    setContact(d);
}

void CallAssetPages::showPeripheral(const helpdesk::AssetDetails& d) {
    lblPManufacturer->setText(d.manufacturer);
    lblPModel->setText(d.model);
    lblPSerialNo->setText(d.serialNo);
    lblPAssetNo->setText(d.assetNo);
    lblPWarranty->setText(d.warrantyExpiry);
    setContact(d);
}

void CallAssetPages::showSoftware(const QStringList& rows, int redRow) {
    lstSoftware->clear();
    lstSoftware->addItems(rows);
    if (redRow >= 0 && redRow < lstSoftware->count()) markSoftware(lstSoftware->item(redRow));
}

void CallAssetPages::markSoftware(QListWidgetItem* row) {
    for (int i = 0; i < lstSoftware->count(); ++i) {
        QListWidgetItem* item = lstSoftware->item(i);
        if (item == row)
            item->setForeground(Qt::red);
        else
            item->setData(Qt::ForegroundRole, QVariant());
    }
}

void CallAssetPages::setClosedLook(bool closed) {
    for (QWidget* w : std::initializer_list<QWidget*>{
             lblManufacturer, lblModel, lblAssetNo, lblSerialNo, lblWarranty, lblPManufacturer,
             lblPModel, lblPSerialNo, lblPAssetNo, lblPWarranty, cmdContact})
        w->setEnabled(!closed);
}

void CallAssetPages::contactInfo() {
    frmContact box(this);
    box.fill(contactNo, invoiceNo, warrantyRef);
    core::showModal(box);
}
