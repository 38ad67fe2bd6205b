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

// A page of an asset's details, one a row, over its "Contact Info" button.
struct Detail {
    const char* caption;
    const char* name;
    QLabel** label;
};
QWidget* detailsPage(std::initializer_list<Detail> details, const char* buttonName,
                     QPushButton** button) {
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    for (const Detail& d : details) {
        *d.label = detail(page, d.name);
        form->addRow(d.caption, *d.label);
    }
    *button = core::makeButton(page, "Contact Info", buttonName);
    form->addRow(QString(), besideStretch(*button));
    return page;
}

} // namespace

CallAssetPages::CallAssetPages(QWidget* parent)
    : QTabWidget(parent) {
    setObjectName("tabAsset");
    QWidget* computer = detailsPage({{"Manufacturer", "lblManufacturer", &lblManufacturer},
                                     {"Model", "lblModel", &lblModel},
                                     {"Asset No", "lblAssetNo", &lblAssetNo},
                                     {"Serial Number", "lblSerialNo", &lblSerialNo},
                                     {"Warranty Expiry", "lblWarranty", &lblWarranty}},
                                    "cmdContact", &cmdContact);

    auto* software = new QWidget;
    lstSoftware = new QListWidget(software);
    lstSoftware->setObjectName("lstSoftware");
    auto* slayout = new QVBoxLayout(software);
    slayout->addWidget(lstSoftware);

    QWidget* peripheral = detailsPage({{"Manufacturer", "lblPManufacturer", &lblPManufacturer},
                                       {"Model", "lblPModel", &lblPModel},
                                       {"Serial Number", "lblPSerialNo", &lblPSerialNo},
                                       {"Asset No", "lblPAssetNo", &lblPAssetNo},
                                       {"Warranty Expiry", "lblPWarranty", &lblPWarranty}},
                                      "cmdPContact", &cmdPContact);

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
