#include "printerlist.h"

#include "assetwidgets.h"
#include "failure.h"
#include "frmperipheraledit.h"
#include "messagebox.h"
#include "peripherals.h"
#include "recordlist.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

PrinterList::PrinterList(QWidget* parent)
    : QDialog(parent) {
    setObjectName("PrinterList");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1850, 1700, 1600 and 1100 twips.
    ListView1->setColumns({"Printer", "Location", "Serial No", "Asset No"}, {123, 113, 107, 73});
    ListView1->setMinimumSize(440, 260);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(cmdOK, &QPushButton::clicked, this, &PrinterList::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { ok(); });
    assets::closeWhenFinished(this);
}

void PrinterList::loadall(const QString& type) {
    type_ = type;
    ListView1->headerItem()->setText(0, type == "Printer" ? "Printer" : type);
    ListView1->headerItem()->setText(1, type == "Monitor" ? "Size" : "Location");
    core::guarded(
        windowTitle(),
        [&] { assets::fillList(ListView1, assets::peripheralRows(core::db(), type)); }, this);
}

void PrinterList::ok() {
    if (ListView1->count() == 0) {
        reject();
        return;
    }
    QTreeWidgetItem* item = ListView1->currentItem();
    if (!item) return;
    const qint64 id = RecordList::idAt(item);
    if (windowTitle().startsWith("Select ")) {
        PeripheralEdit* screen = newPeripheralEdit(type_);
        screen->load(id);
        screen->setWindowTitle("Edit " + type_);
        core::showScreen(screen);
        accept();
        return;
    }
    deleteSelected(id, item->text(0));
}

void PrinterList::deleteSelected(qint64 id, const QString& rowText) {
    const QString what = type_ == "Monitor" ? "Monitor" : type_.toLower();
    if (core::msgbox("Are you sure you want to delete " + what + " " + rowText, "Confirm Delete",
                     core::MsgButtons::YesNo, core::MsgIcon::Question, core::MsgAnswer::No,
                     this) != core::MsgAnswer::Yes)
        return;
    if (core::guarded(
            windowTitle(), [&] { assets::deletePeripheral(core::db(), id); }, this))
        delete ListView1->findRecord(id);
}
