#include "companieslist.h"

#include "errorlog.h"
#include "failure.h"
#include "frmcompany.h"
#include "messagebox.h"
#include "recordlist.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using core::MsgAnswer;
using core::msgbox;
using core::MsgButtons;

namespace {
std::function<void(qint64)>& supplierEditor() {
    static std::function<void(qint64)> editor;
    return editor;
}
} // namespace

void companieslist::setSupplierEditor(std::function<void(qint64)> editor) {
    supplierEditor() = std::move(editor);
}

companieslist::companieslist(QWidget* parent)
    : QWidget(parent) {
    setObjectName("companieslist");
    setWindowTitle("Select Company");
    core::placeTopLeft(this);
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    ListView1->setColumns({"Name"}, {260});
    cmdOK = core::makeButton(this, "OK", "cmdOK");
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* buttons = core::buttonRow({cmdOK, cmdCancel});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &companieslist::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { ok(); });
}

void companieslist::fill(const std::vector<selectionlist::Row>& rows) {
    ListView1->clearRecords();
    for (const auto& r : rows)
        ListView1->addRecord(r.id, {r.name});
}

void companieslist::load(const QString& filter) {
    core::guarded(
        windowTitle(), [&] { fill(selectionlist::companies(core::db(), filter)); }, this);
}

void companieslist::loadall(const QString& orderColumn, const QString& keyColumn,
                            const QString& table) {
    core::guarded(
        windowTitle(), [&] { fill(selectionlist::all(core::db(), orderColumn, keyColumn, table)); },
        this);
}

void companieslist::loadUsers() {
    core::guarded(
        windowTitle(), [&] { fill(selectionlist::users(core::db())); }, this);
}

void companieslist::ok() {
    QTreeWidgetItem* item = ListView1->selectedItem();
    if (ListView1->count() == 0 || !item) return;
    const qint64 id = ListView1->idAt(item);
    const QString name = item->text(0);
    const auto mode = selectionlist::modeFor(windowTitle(), deletecompany);
    switch (mode.action) {
    case selectionlist::Action::OpenCompany: {
        auto* screen = new frmCompany;
        screen->load(id);
        core::showScreen(screen);
        close();
        break;
    }
    case selectionlist::Action::EditSupplier:
        if (supplierEditor()) {
            supplierEditor()(id);
            close();
        }
        break;
    case selectionlist::Action::DeleteRow:
        deleteSelected(mode, id, name);
        break;
    case selectionlist::Action::DeleteUser:
        deleteUser(name.trimmed());
        break;
    case selectionlist::Action::Nothing:
        break;
    }
}

void companieslist::deleteSelected(const selectionlist::Mode& mode, qint64 id,
                                   const QString& name) {
    if (msgbox("Are you sure you want to delete " + name, "Confirm Delete", MsgButtons::YesNo) !=
        MsgAnswer::Yes)
        return;
    try {
        selectionlist::deleteRow(core::db(), mode, id);
    } catch (const core::DbError& e) {
        // Only rows that others still point to get the guard's words; a lock, a lost
        // connection or anything else says what it is.
        if (e.kind() == core::DbErrorKind::Constraint)
            msgbox(selectionlist::refusedMessage(windowTitle(), name.trimmed()));
        else
            core::reportFailure(e, windowTitle(), this);
        return;
    }
    delete ListView1->selectedItem();
}

void companieslist::deleteUser(const QString& name) {
    if (msgbox("Are you sure you want to delete " + name, {}, MsgButtons::OkCancel) !=
        MsgAnswer::Ok) {
        close();
        return;
    }
    try {
        selectionlist::deleteUser(core::db(), name);
    } catch (const core::DbError& e) {
        core::logerror(e.number(), e.description(), windowTitle());
        msgbox(selectionlist::refusedMessage(windowTitle(), name));
        return;
    }
    close();
}

frmcsearch::frmcsearch(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmcsearch");
    setWindowTitle("Company Search");
    txtCompany = new QLineEdit(this);
    txtCompany->setObjectName("txtCompany");
    cmdSearch = core::makeButton(this, "Search", "cmdSearch", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdSearch, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel("Company Name", this));
    row->addWidget(txtCompany);
    layout->addLayout(row);
    auto* buttons = core::buttonRow({cmdSearch, cmdCancel});
    layout->addLayout(buttons);
    connect(cmdSearch, &QPushButton::clicked, this, &frmcsearch::search);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
}

void frmcsearch::search() {
    auto* list = new companieslist;
    list->load(txtCompany->text());
    core::showScreen(list);
    close();
}
