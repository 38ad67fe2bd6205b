#include "frmaddsupplier.h"

#include "dialogkit.h"
#include "failure.h"
#include "frmoffice.h"
#include "frmservices.h"
#include "frmteldir.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

using core::MsgAnswer;
using core::MsgButtons;
using core::MsgIcon;

namespace {

// A list with its buttons in a column beside it.
QWidget* listPage(QWidget* parent, QWidget* top, RecordList* list,
                  std::initializer_list<QPushButton*> buttons) {
    auto* page = new QWidget(parent);
    auto* grid = new QGridLayout(page);
    int row = 0;
    if (top) grid->addWidget(top, row++, 0, 1, 2);
    grid->addWidget(list, row, 0);
    auto* column = new QVBoxLayout;
    for (QPushButton* b : buttons)
        column->addWidget(b);
    column->addStretch();
    grid->addLayout(column, row, 1);
    return page;
}

} // namespace

frmaddsupplier::frmaddsupplier(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmaddsupplier");
    setWindowTitle("Add Supplier");
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    SSTab1->addTab(generalPage(), "General");
    SSTab1->addTab(servicesPage(), "Services Provided");
    SSTab1->addTab(officesPage(), "Other Offices");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(cmdOK, &QPushButton::clicked, this, &frmaddsupplier::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    connect(cmdAddService, &QPushButton::clicked, this, &frmaddsupplier::addService);
    connect(cmdRemoveService, &QPushButton::clicked, this, &frmaddsupplier::removeService);
    connect(cmdAddOffice, &QPushButton::clicked, this, &frmaddsupplier::addOffice);
    connect(cmdViewOffice, &QPushButton::clicked, this, &frmaddsupplier::viewOffice);
    connect(cmdRemoveOffice, &QPushButton::clicked, this, &frmaddsupplier::removeOffice);
    connect(lstOffices, &RecordList::recordActivated, this, [this](qint64) { viewOffice(); });
}

QWidget* frmaddsupplier::generalPage() {
    auto* page = new QWidget(SSTab1);
    txtName = suppliers::textBox(page, "txtName");
    txtAddress1 = suppliers::textBox(page, "txtAddress1");
    txtAddress2 = suppliers::textBox(page, "txtAddress2");
    txtAddress3 = suppliers::textBox(page, "txtAddress3");
    txtPCode = suppliers::postcodeBox(page, "txtPCode");
    txtPhone = suppliers::textBox(page, "txtPhone");
    txtContact = suppliers::textBox(page, "txtContact");
    txtEmail = suppliers::textBox(page, "txtEmail");
    txtFax = suppliers::textBox(page, "txtFax");
    lblPCode = new QLabel(core::postcodeCaption(), page);
    lblPCode->setObjectName("lblPCode");
    auto* grid = new QGridLayout(page);
    const std::pair<QString, QWidget*> rows[] = {{"Supplier Name", txtName},
                                                 {"Address", txtAddress1},
                                                 {{}, txtAddress2},
                                                 {{}, txtAddress3},
                                                 {{}, txtPCode},
                                                 {"Phone Number", txtPhone},
                                                 {"Contact Name", txtContact},
                                                 {"Email Address", txtEmail},
                                                 {"Fax Number", txtFax}};
    int row = 0;
    for (const auto& [caption, field] : rows) {
        if (field == txtPCode)
            grid->addWidget(lblPCode, row, 0);
        else if (!caption.isEmpty())
            grid->addWidget(new QLabel(caption, page), row, 0);
        grid->addWidget(field, row++, 1);
    }
    grid->setRowStretch(row, 1);
    return page;
}

QWidget* frmaddsupplier::servicesPage() {
    lstServices = new RecordList(SSTab1);
    lstServices->setObjectName("lstServices");
    lstServices->setColumns({"Service"});
    cmdAddService = core::makeButton(SSTab1, "Add", "cmdAddService");
    cmdRemoveService = core::makeButton(SSTab1, "Remove", "cmdRemoveService");
    auto* hint = new QLabel("e.g Car Hire,Software,Computers, Couriers, etc.", SSTab1);
    return listPage(SSTab1, hint, lstServices, {cmdAddService, cmdRemoveService});
}

QWidget* frmaddsupplier::officesPage() {
    lstOffices = new RecordList(SSTab1);
    lstOffices->setObjectName("lstOffices");
    lstOffices->setColumns({"Location", "Phone"}, {160});
    cmdAddOffice = core::makeButton(SSTab1, "Add", "cmdAddOffice");
    cmdRemoveOffice = core::makeButton(SSTab1, "Remove", "cmdRemoveOffice");
    cmdViewOffice = core::makeButton(SSTab1, "View", "cmdViewOffice");
    return listPage(SSTab1, nullptr, lstOffices, {cmdAddOffice, cmdRemoveOffice, cmdViewOffice});
}

void frmaddsupplier::addpos(const QString& position, frmTelDir* parent) {
    position_ = position;
    directory_ = parent;
}

void frmaddsupplier::load(qint64 supplierId) {
    core::guarded(
        windowTitle(),
        [&] {
            core::Db& db = core::db();
            // Taken before the values: a change in between refuses the save.
            core::LoadedRow loaded = suppliers::loadedSupplierRow(db, supplierId);
            if (const auto s = suppliers::loadSupplier(db, supplierId)) {
                loaded_ = loaded;
                txtName->setText(s->name);
                txtAddress1->setText(s->address1);
                txtAddress2->setText(s->address2);
                txtAddress3->setText(s->address3);
                txtPCode->setText(s->pcode);
                txtPhone->setText(s->phone);
                txtContact->setText(s->contact);
                txtEmail->setText(s->email);
                txtFax->setText(s->fax);
            }
            lstServices->clearRecords();
            for (const auto& e : suppliers::supplierServices(db, supplierId))
                lstServices->addRecord(e.id, {e.text});
            lstOffices->clearRecords();
            for (const auto& o : suppliers::supplierOffices(db, supplierId))
                lstOffices->addRecord(o.id, {o.town, o.phone});
            supplierid = supplierId;
            isnew = false;
        },
        this);
}

suppliers::SupplierText frmaddsupplier::supplier() const {
    return {txtName->text(),     txtAddress1->text(), txtAddress2->text(),
            txtAddress3->text(), txtPCode->text(),    txtPhone->text(),
            txtContact->text(),  txtEmail->text(),    txtFax->text()};
}

void frmaddsupplier::ok() {
    const suppliers::SupplierText s = supplier();
    if (const QString refusal = suppliers::checkSupplier(s); !refusal.isEmpty()) {
        core::msgbox(refusal, {}, MsgButtons::Ok, MsgIcon::None, this);
        return;
    }
    const bool saved = core::saveUnlessChanged(
        windowTitle(), "supplier",
        [&] {
            if (isnew) {
                supplierid = suppliers::insertSupplier(core::db(), s);
                isnew = false;
            } else {
                suppliers::updateSupplier(core::db(), supplierid, s, loaded_);
            }
        },
        [this] { load(supplierid); }, this);
    if (!saved) return;
    kept_ = true;
    if (ischild && directory_)
        directory_->supplierSaved(position_, supplierid, s.name.trimmed(), s.phone.trimmed());
    close();
}

bool frmaddsupplier::ensureSaved() {
    if (supplierid != 0) return true;
    const suppliers::SupplierText s = supplier();
    if (!suppliers::checkSupplier(s).isEmpty()) {
        core::msgbox(suppliers::detailsFirstMessage(), {}, MsgButtons::Ok, MsgIcon::None, this);
        SSTab1->setCurrentIndex(0);
        txtName->setFocus();
        return false;
    }
    return core::guarded(
        windowTitle(),
        [&] {
            supplierid = suppliers::insertSupplier(core::db(), s);
            loaded_ = suppliers::loadedSupplierRow(core::db(), supplierid);
            isnew = false;
            savedEarly_ = true;
        },
        this);
}

void frmaddsupplier::addService() {
    if (!ensureSaved()) return;
    frmServices dialog(this);
    core::showModal(dialog);
    if (!dialog.ok) return;
    core::guarded(
        windowTitle(),
        [&] {
            const bool allAdded =
                suppliers::addSupplierServices(core::db(), supplierid, dialog.selectedIds());
            // The list shows what the supplier now provides, whatever stopped the step.
            lstServices->clearRecords();
            for (const auto& e : suppliers::supplierServices(core::db(), supplierid))
                lstServices->addRecord(e.id, {e.text});
            if (!allAdded)
                core::msgbox(suppliers::duplicateServiceMessage(), {}, MsgButtons::Ok,
                             MsgIcon::None, this);
        },
        this);
}

void frmaddsupplier::removeService() {
    QTreeWidgetItem* item = lstServices->currentItem();
    if (lstServices->count() == 0 || !item) return;
    const qint64 service = RecordList::idAt(item);
    if (core::guarded(
            windowTitle(),
            [&] { suppliers::removeSupplierService(core::db(), supplierid, service); }, this))
        delete item;
}

void frmaddsupplier::addOffice() {
    if (!ensureSaved()) return;
    frmOffice dialog(this);
    core::showModal(dialog);
    if (!dialog.ok) return;
    const suppliers::OfficeText o = dialog.office();
    core::guarded(
        windowTitle(),
        [&] {
            const qint64 id = suppliers::addOffice(core::db(), supplierid, o);
            lstOffices->addRecord(id, {o.town.trimmed(), o.phone.trimmed()});
        },
        this);
}

void frmaddsupplier::viewOffice() {
    QTreeWidgetItem* item = lstOffices->currentItem();
    if (lstOffices->count() == 0 || !item) return;
    const qint64 id = RecordList::idAt(item);
    const auto o = suppliers::editStored<frmOffice>(
        this, windowTitle(), "office", id, &suppliers::loadedOfficeRow, &suppliers::loadOffice,
        &suppliers::updateOffice);
    if (!o) return;
    item->setText(0, o->town.trimmed());
    item->setText(1, o->phone.trimmed());
}

void frmaddsupplier::removeOffice() {
    QTreeWidgetItem* item = lstOffices->currentItem();
    if (lstOffices->count() == 0 || !item) return;
    if (core::msgbox(suppliers::deleteOfficeQuestion(item->text(0)), {}, MsgButtons::YesNo,
                     MsgIcon::Question, this) != MsgAnswer::Yes)
        return;
    const qint64 id = RecordList::idAt(item);
    if (core::guarded(
            windowTitle(), [&] { suppliers::deleteOffice(core::db(), id); }, this))
        delete item;
}

void frmaddsupplier::closeEvent(QCloseEvent* event) {
    if (savedEarly_ && !kept_) {
        const qint64 id = supplierid;
        if (core::guarded(
                windowTitle(), [&] { suppliers::deleteSupplier(core::db(), id); }, this)) {
            savedEarly_ = false;
            supplierid = 0;
            isnew = true;
        }
    }
    QWidget::closeEvent(event);
}
