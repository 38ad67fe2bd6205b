#include "frmservices.h"

#include "dialogkit.h"
#include "failure.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "supplier_record.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

newservice::newservice(QWidget* parent)
    : QDialog(parent) {
    setObjectName("newservice");
    setWindowTitle("New Service");
    txtService = suppliers::textBox(this, "txtService");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this, {{"Service Name", txtService}}, {cmdOK, cmdCancel});
    connect(cmdOK, &QPushButton::clicked, this, &newservice::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void newservice::confirm() {
    if (const QString refusal = suppliers::checkNewService(txtService->text());
        !refusal.isEmpty()) {
        core::msgbox(refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    ok = true;
    accept();
}

frmServices::frmServices(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmServices");
    setWindowTitle("Select services provided");
    lstServices = new RecordList(this);
    lstServices->setObjectName("lstServices");
    lstServices->setColumns({"Service"});
    lstServices->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstServices->setMinimumSize(260, 240);
    cmdNew = core::makeButton(this, "New Service", "cmdNew");
    cmdSelect = core::makeButton(this, "Select", "cmdSelect", true);
    cmdDelete = core::makeButton(this, "Delete Service", "cmdDelete");
    cmdExit = core::makeButton(this, "Exit", "cmdExit");
    core::setScreenButtons(this, cmdSelect, cmdExit);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstServices);
    layout->addLayout(core::buttonRow({cmdNew, cmdSelect, cmdDelete, cmdExit}));

    connect(cmdNew, &QPushButton::clicked, this, &frmServices::newService);
    connect(cmdSelect, &QPushButton::clicked, this, &frmServices::select);
    connect(cmdDelete, &QPushButton::clicked, this, &frmServices::deleteService);
    connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    connect(lstServices, &RecordList::recordActivated, this, [this](qint64) { select(); });

    core::guarded(
        windowTitle(),
        [this] {
            for (const auto& s : suppliers::allServices(core::db()))
                lstServices->addRecord(s.id, {s.text});
        },
        this);
    // Nothing is picked until the user picks it.
    lstServices->setCurrentItem(nullptr);
    lstServices->clearSelection();
}

std::vector<qint64> frmServices::selectedIds() const {
    std::vector<qint64> ids;
    for (int i = 0; i < lstServices->topLevelItemCount(); ++i)
        if (QTreeWidgetItem* item = lstServices->topLevelItem(i); item->isSelected())
            ids.push_back(RecordList::idAt(item));
    return ids;
}

void frmServices::newService() {
    newservice dialog(this);
    core::showModal(dialog);
    if (!dialog.ok) return;
    core::guarded(
        windowTitle(),
        [&] {
            const QString name = dialog.txtService->text();
            const qint64 id = suppliers::addService(core::db(), name);
            lstServices->addRecord(id, {name.trimmed()});
        },
        this);
}

void frmServices::select() {
    // With nothing selected this closes the dialog all the same, and nothing is added.
    ok = true;
    accept();
}

void frmServices::deleteService() {
    QTreeWidgetItem* item = lstServices->currentItem();
    if (!item || !item->isSelected()) return;
    const qint64 id = RecordList::idAt(item);
    core::guarded(
        windowTitle(),
        [&] {
            if (suppliers::deleteService(core::db(), id))
                delete item;
            else
                core::msgbox(suppliers::serviceInUseMessage(), {}, core::MsgButtons::Ok,
                             core::MsgIcon::None, this);
        },
        this);
}
