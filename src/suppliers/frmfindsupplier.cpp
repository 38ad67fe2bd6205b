#include "frmfindsupplier.h"

#include "combos.h"
#include "directory.h"
#include "failure.h"
#include "frmaddsupplier.h"
#include "recordlist.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "supplier_record.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

void fill(RecordList* list, const suppliers::DirectoryRows& rows) {
    list->clearRecords();
    list->beginFill();
    for (const auto& r : rows)
        list->addRecord(r.id, {r.name});
    if (rows.empty()) list->addRecord(0, {"There are no matching entries"});
    list->endFill();
}

RecordList* nameList(QWidget* parent, const char* name) {
    auto* list = new RecordList(parent);
    list->setObjectName(name);
    list->setColumns({"Company Name"});
    list->setMinimumSize(320, 220);
    return list;
}

} // namespace

frmFindSupplier::frmFindSupplier(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmFindSupplier");
    setWindowTitle("Find Supplier");
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");

    auto* byName = new QWidget(SSTab1);
    txtCompany = new QLineEdit(byName);
    txtCompany->setObjectName("txtCompany");
    ListView1 = nameList(byName, "ListView1");
    auto* nameGrid = new QGridLayout(byName);
    nameGrid->addWidget(new QLabel("Company Name", byName), 0, 0);
    nameGrid->addWidget(txtCompany, 0, 1);
    nameGrid->addWidget(ListView1, 1, 0, 1, 2);
    SSTab1->addTab(byName, "Search by name");

    auto* byService = new QWidget(SSTab1);
    cboService = core::autoCompleteCombo(byService, "cboService");
    txtCompany2 = new QLineEdit(byService);
    txtCompany2->setObjectName("txtCompany2");
    ListView2 = nameList(byService, "ListView2");
    auto* serviceGrid = new QGridLayout(byService);
    serviceGrid->addWidget(new QLabel("Service required", byService), 0, 0);
    serviceGrid->addWidget(cboService, 0, 1);
    serviceGrid->addWidget(new QLabel("Company Name", byService), 1, 0);
    serviceGrid->addWidget(txtCompany2, 1, 1);
    serviceGrid->addWidget(ListView2, 2, 0, 1, 2);
    SSTab1->addTab(byService, "Search by services");

    cmdView = core::makeButton(this, "View", "cmdView", true);
    cmdClose = core::makeButton(this, "Close", "cmdClose");
    core::setScreenButtons(this, cmdView, cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdView, cmdClose}));

    connect(txtCompany, &QLineEdit::textChanged, this, &frmFindSupplier::searchByName);
    connect(txtCompany2, &QLineEdit::textChanged, this, &frmFindSupplier::searchByService);
    connect(cboService, &QComboBox::activated, this, &frmFindSupplier::searchByService);
    connect(cmdView, &QPushButton::clicked, this, &frmFindSupplier::view);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    for (RecordList* list : {ListView1, ListView2})
        connect(list, &RecordList::recordActivated, this, [this](qint64) { view(); });
}

void frmFindSupplier::load() {
    core::guarded(
        windowTitle(),
        [this] {
            fill(ListView1, suppliers::findSuppliers(core::db(), {}));
            cboService->clear();
            for (const auto& s : suppliers::allServices(core::db()))
                core::addComboItem(cboService, s.text, s.id);
            cboService->setCurrentIndex(-1);
        },
        this);
}

void frmFindSupplier::searchByName() {
    core::guarded(
        windowTitle(),
        [this] { fill(ListView1, suppliers::findSuppliers(core::db(), txtCompany->text())); },
        this);
}

void frmFindSupplier::searchByService() {
    const qint64 service = core::comboId(cboService);
    if (service == core::NoComboId) return;
    core::guarded(
        windowTitle(),
        [&] {
            fill(ListView2,
                 suppliers::findSuppliersByService(core::db(), service, txtCompany2->text()));
        },
        this);
}

void frmFindSupplier::view() {
    RecordList* list = SSTab1->currentIndex() == 0 ? ListView1 : ListView2;
    QTreeWidgetItem* item = list->currentItem();
    const qint64 id = item ? RecordList::idAt(item) : 0;
    if (id == 0) return;
    auto* screen = new frmaddsupplier;
    screen->setWindowTitle("View/Edit Supplier details");
    screen->load(id);
    core::showScreen(screen);
    close();
}
