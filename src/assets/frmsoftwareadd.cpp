#include "frmsoftwareadd.h"

#include "assetwidgets.h"
#include "failure.h"
#include "licences.h"
#include "messagebox.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "software.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

frmSoftwareadd::frmSoftwareadd(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmSoftwareadd");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1440, 2330, 840 and 1200 twips.
    ListView1->setColumns({"Manufacturer", "Product", "Version", "Licenses left"},
                          {96, 155, 56, 80});
    ListView1->setMinimumSize(420, 260);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdClose = core::makeButton(this, "Close", "cmdClose");
    core::setScreenButtons(this, cmdOK, cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdOK, cmdClose}));

    connect(ListView1, &QTreeWidget::itemClicked, this, [this] {
        if (!isSummary()) warnIfUnlicensed();
    });
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { ok(); });
    connect(cmdOK, &QPushButton::clicked, this, &frmSoftwareadd::ok);
    connect(cmdClose, &QPushButton::clicked, this, [this] {
        ListView1->clearSelection();
        ListView1->setCurrentItem(nullptr);
        reject();
    });
    assets::closeWhenFinished(this);
}

void frmSoftwareadd::loadall() {
    core::guarded(
        windowTitle(), [&] { assets::fillList(ListView1, assets::licenceRows(core::db())); }, this);
}

qint64 frmSoftwareadd::selectedId() const {
    return ListView1->selectedId();
}

bool frmSoftwareadd::isSummary() const {
    return windowTitle() == "License Summary";
}

void frmSoftwareadd::warnIfUnlicensed() {
    const auto rows = ListView1->selectedItems();
    if (rows.isEmpty()) return;
    if (assets::needsLicenceWarning(rows.first()->text(3)))
        core::msgbox(assets::NotLicensedWarning, {}, core::MsgButtons::Ok, core::MsgIcon::None,
                     this);
}

void frmSoftwareadd::ok() {
    if (ListView1->count() == 0) return;
    if (isSummary()) {
        accept();
        return;
    }
    if (selectedId() == 0) return;
    warnIfUnlicensed();
    accept();
}
