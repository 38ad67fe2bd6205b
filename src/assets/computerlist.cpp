#include "computerlist.h"

#include "assetwidgets.h"
#include "computers.h"
#include "failure.h"
#include "recordlist.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

computerList::computerList(QWidget* parent)
    : QDialog(parent) {
    setObjectName("computerList");
    setWindowTitle("Select Computer");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1000, 1440, 2000 and 1700 twips.
    ListView1->setColumns({"Asset No", "Name", "Model", "Assigned to"}, {67, 96, 133, 113});
    ListView1->setMinimumSize(420, 260);
    cmdSelect = core::makeButton(this, "Select", "cmdSelect", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    cmdShowAll = core::makeButton(this, "Show all", "cmdShowAll");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdShowAll, cmdSelect, cmdCancel}));

    connect(cmdSelect, &QPushButton::clicked, this, &computerList::select);
    connect(ListView1, &RecordList::recordActivated, this, &computerList::select);
    connect(cmdCancel, &QPushButton::clicked, this, [this] {
        ok_ = false;
        reject();
    });
    connect(cmdShowAll, &QPushButton::clicked, this, &computerList::showAll);
    assets::closeWhenFinished(this);
}

void computerList::load(qint64 personId) {
    core::guarded(
        windowTitle(),
        [&] { assets::fillList(ListView1, assets::computerListRows(core::db(), personId)); }, this);
}

void computerList::showAll() {
    load(0);
}

qint64 computerList::selectedId() const {
    return ListView1->selectedId();
}

void computerList::select() {
    if (selectedId() == 0) return;
    ok_ = true;
    accept();
}
