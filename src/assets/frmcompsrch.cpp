#include "frmcompsrch.h"

#include "assetwidgets.h"
#include "computers.h"
#include "failure.h"
#include "frmaddcomputer.h"
#include "recordlist.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

frmCompSrch::frmCompSrch(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmCompSrch");
    setWindowTitle("Select Computer");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // The manufacturer stands under "Model" and the model under "Manufacturer", as users of
    // this list know it. 1440 twips each, "User" 2100.
    ListView1->setColumns(
        {"Name", "Model", "Manufacturer", "Serial Number", "Asset Number", "User"},
        {96, 96, 96, 96, 96, 140});
    ListView1->setToggleSort(true);
    ListView1->setMinimumSize(640, 300);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(cmdOK, &QPushButton::clicked, this, &frmCompSrch::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { ok(); });
    assets::closeWhenFinished(this);
}

void frmCompSrch::load() {
    core::guarded(
        windowTitle(),
        [this] { assets::fillList(ListView1, assets::computerSearchRows(core::db())); }, this);
}

void frmCompSrch::ok() {
    const qint64 id = ListView1->selectedId();
    if (ListView1->count() == 0 || id == 0) return;
    auto* screen = new frmaddcomputer;
    screen->load(id);
    core::showScreen(screen);
    accept();
}
