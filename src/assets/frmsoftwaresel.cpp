#include "frmsoftwaresel.h"

#include "assetwidgets.h"
#include "failure.h"
#include "peripherals.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "software.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

frmSoftwareSel::frmSoftwareSel(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmSoftwareSel");
    setWindowTitle("Select software");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1440, 2330 and 840 twips.
    ListView1->setColumns({"Manufacturer", "Product", "Version"}, {96, 155, 56});
    ListView1->setMinimumSize(360, 260);
    cmdClose = core::makeButton(this, "Close", "cmdClose");
    cmdShowAll = core::makeButton(this, "Show All", "cmdShowAll");
    core::setScreenButtons(this, nullptr, cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdShowAll, cmdClose}));

    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) {
        if (ListView1->count() > 0) accept();
    });
    connect(cmdClose, &QPushButton::clicked, this, &frmSoftwareSel::close_);
    connect(cmdShowAll, &QPushButton::clicked, this, &frmSoftwareSel::showAll);
    assets::closeWhenFinished(this);
}

void frmSoftwareSel::load(qint64 computerId) {
    core::guarded(
        windowTitle(),
        [&] { assets::fillList(ListView1, assets::installedRows(core::db(), computerId)); }, this);
}

void frmSoftwareSel::loadall() {
    core::guarded(
        windowTitle(), [&] { assets::fillList(ListView1, assets::softwareRows(core::db())); },
        this);
}

void frmSoftwareSel::loadPrinters(qint64 personId) {
    loadPeripherals("Printer", personId);
}

void frmSoftwareSel::loadScanners(qint64 personId) {
    loadPeripherals("Scanner", personId);
}

void frmSoftwareSel::loadmonitors(qint64 personId) {
    loadPeripherals("Monitor", personId);
}

void frmSoftwareSel::loadPeripherals(const QString& type, qint64 personId) {
    // 1100, 1300, 1300, 900 twips; monitors 1450, 1300, 800, 1000.
    if (type == "Monitor")
        ListView1->setColumns({"Manufacturer", "Model", "Size", "Asset No"}, {97, 87, 53, 67});
    else
        ListView1->setColumns({"Manufacturer", "Model", "Location", "Asset No"}, {73, 87, 87, 60});
    core::guarded(
        windowTitle(),
        [&] { assets::fillList(ListView1, assets::pickerRows(core::db(), type, personId)); }, this);
}

qint64 frmSoftwareSel::softwareID() const {
    return ListView1->selectedId();
}

void frmSoftwareSel::showAll() {
    const QString title = windowTitle();
    QString type;
    if (title == "Select Printer")
        type = "Printer";
    else if (title == "Select Scanner")
        type = "Scanner";
    else if (title == "Select Monitor")
        type = "Monitor";
    else
        return;
    core::guarded(
        windowTitle(),
        [&] { assets::fillList(ListView1, assets::pickerRows(core::db(), type, 0)); }, this);
}

void frmSoftwareSel::close_() {
    ListView1->clearSelection();
    ListView1->setCurrentItem(nullptr);
    reject();
}
