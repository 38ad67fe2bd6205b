#include "employee_list_pages.h"

#include "employeecontext.h"
#include "failure.h"
#include "frmadddoc.h"
#include "frmappraisal.h"
#include "frmnotes.h"
#include "frmreprimands.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "session.h"
#include "widgetkit.h"

#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>
#include <functional>
#include <stdexcept>

namespace {

// The list of the Documents page takes files dragged from the desktop.
class DocumentDropList : public RecordList {
public:
    DocumentDropList(std::function<void(const QStringList&)> dropped, QWidget* parent)
        : RecordList(parent)
        , dropped_(std::move(dropped)) {
        setAcceptDrops(true);
        viewport()->setAcceptDrops(true);
        setDragDropMode(QAbstractItemView::DropOnly);
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (!localFiles(event->mimeData()).isEmpty())
            event->acceptProposedAction();
        else
            event->ignore();
    }
    void dragMoveEvent(QDragMoveEvent* event) override {
        if (!localFiles(event->mimeData()).isEmpty())
            event->acceptProposedAction();
        else
            event->ignore();
    }
    void dropEvent(QDropEvent* event) override {
        const QStringList files = localFiles(event->mimeData());
        if (files.isEmpty()) {
            event->ignore();
            return;
        }
        event->acceptProposedAction();
        dropped_(files);
    }

private:
    static QStringList localFiles(const QMimeData* data) {
        QStringList out;
        if (!data || !data->hasUrls()) return out;
        for (const QUrl& url : data->urls())
            if (url.isLocalFile()) out << url.toLocalFile();
        return out;
    }

    std::function<void(const QStringList&)> dropped_;
};

QStringList rowTexts(const QTreeWidgetItem& row) {
    QStringList out;
    for (int c = 0; c < row.columnCount(); ++c)
        out << row.text(c);
    return out;
}

} // namespace

// ---------------------------------------------------------------------------------------------

EmployeeListPage::EmployeeListPage(const Names& names, const QStringList& captions,
                                   const QList<int>& widths, QWidget* parent, RecordList* list)
    : QWidget(parent)
    , list_(list ? list : new RecordList) {
    setObjectName(names.page);
    list_->setParent(this);
    list_->setObjectName(names.list);
    list_->setColumns(captions, widths);
    cmdAdd_ = core::makeButton(this, names.addCaption, names.add);
    cmdEdit_ = core::makeButton(this, names.editCaption, names.edit);
    cmdDelete_ = core::makeButton(this, names.removeCaption, names.remove);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(core::buttonRow({cmdAdd_, cmdEdit_, cmdDelete_}));

    connect(cmdAdd_, &QPushButton::clicked, this, &EmployeeListPage::add);
    connect(cmdEdit_, &QPushButton::clicked, this, &EmployeeListPage::edit);
    connect(cmdDelete_, &QPushButton::clicked, this, &EmployeeListPage::remove);
    connect(list_, &RecordList::recordActivated, this, [this] { activate(); });
    connect(list_, &QTreeWidget::itemSelectionChanged, this, &EmployeeListPage::updateButtons);
    updateButtons();
}

void EmployeeListPage::load(qint64 personId) {
    personId_ = personId;
    reload();
}

void EmployeeListPage::reload(qint64 selectId) {
    list_->clearRecords();
    loaded_.clear();
    if (personId_ != 0) {
        core::guarded(
            windowTitle(),
            [&] {
                // Taken first: a change between the two reads is then refused, never missed.
                if (!stored_.table.isEmpty())
                    loaded_ = core::LoadedRow::readEach(core::db(), stored_.table, stored_.key,
                                                        "person_id", personId_);
                const personnel::ListRows found = rows(core::db(), personId_);
                list_->beginFill();
                for (const auto& r : found) {
                    QTreeWidgetItem* item = list_->addRecord(r.id, r.cells);
                    item->setData(0, DocumentsPage::PathRole, r.path);
                }
                list_->endFill();
            },
            this);
    }
    if (selectId != 0)
        if (QTreeWidgetItem* item = list_->findRecord(selectId)) list_->setCurrentItem(item);
    updateButtons();
    reloaded();
}

core::SaveOutcome
EmployeeListPage::saveChecked(qint64 id, const std::function<void(const core::LoadedRow&)>& save) {
    return core::checkedSave(
        windowTitle(), stored_.what, [&] { save(core::LoadedRow::of(loaded_, id)); },
        [&] { reload(id); }, this);
}

bool EmployeeListPage::editUntilSaved(QDialog& dialog, const bool& ok, qint64 id,
                                      const std::function<void(const core::LoadedRow&)>& save) {
    for (;;) {
        if (core::showModal(dialog) != QDialog::Accepted || !ok) return false;
        const core::SaveOutcome saved = saveChecked(id, save);
        if (saved != core::SaveOutcome::Kept) return saved == core::SaveOutcome::Saved;
    }
}

void EmployeeListPage::updateButtons() {
    const bool selected = list_->count() > 0 && list_->selectedId() != 0;
    cmdEdit_->setEnabled(selected);
    cmdDelete_->setEnabled(selected);
}

qint64 EmployeeListPage::ensurePerson() {
    if (!context_) return personId_;
    const qint64 id = context_->ensurePerson();
    if (id != 0) personId_ = id;
    return id;
}

void EmployeeListPage::add() {
    if (!mayAdd()) return;
    const qint64 person = ensurePerson();
    if (person == 0) return;
    qint64 added = 0;
    core::guarded(
        windowTitle(), [&] { added = addRow(person); }, this);
    if (added != 0) reload(added);
}

void EmployeeListPage::edit() {
    QTreeWidgetItem* item = list_->selectedItem();
    const qint64 id = list_->selectedId();
    if (!item || id == 0) return;
    bool changed = false;
    core::guarded(
        windowTitle(), [&] { changed = editRow(id, *item); }, this);
    if (changed) reload(id);
}

void EmployeeListPage::remove() {
    QTreeWidgetItem* item = list_->selectedItem();
    const qint64 id = list_->selectedId();
    if (!item || id == 0) return;
    if (!core::guarded(
            windowTitle(), [&] { deleteRow(id); }, this))
        return;
    delete item;
    updateButtons();
}

// ---------------------------------------------------------------------------------------------

NotesPage::NotesPage(QWidget* parent)
    : EmployeeListPage({"NotesPage", "lvwNotes", "cmdAddNote", "cmdEditNote", "cmdDeleteNote"},
                       {"Date", "Notes"}, {90, 420}, parent) {
    setWindowTitle("Notes");
    setStored({"Notes", "Note_ID", "note"});
}

personnel::ListRows NotesPage::rows(core::Db& db, qint64 personId) {
    return personnel::noteRows(db, personId);
}

qint64 NotesPage::addRow(qint64 personId) {
    frmNotes dialog(this);
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return 0;
    return personnel::addNote(core::db(), personId, dialog.fields());
}

bool NotesPage::editRow(qint64 id, const QTreeWidgetItem& row) {
    frmNotes dialog(this);
    dialog.setTexts(row.text(0), row.text(1));
    return editUntilSaved(dialog, dialog.ok, id, [&](const core::LoadedRow& loaded) {
        personnel::updateNote(core::db(), id, dialog.fields(), loaded);
    });
}

void NotesPage::deleteRow(qint64 id) {
    personnel::deleteNote(core::db(), id);
}

// ---------------------------------------------------------------------------------------------

ReprimandsPage::ReprimandsPage(QWidget* parent)
    : EmployeeListPage({"ReprimandsPage", "lvwReprimands", "cmdAddReprimand", "cmdEditReprimand",
                        "cmdDeleteReprimand"},
                       {"Date", "Action", "Reason", "Notes"}, {90, 140, 140, 220}, parent) {
    setWindowTitle("Reprimands");
    setStored({"Reprimands", "Reprimand_ID", "reprimand"});
}

personnel::ListRows ReprimandsPage::rows(core::Db& db, qint64 personId) {
    return personnel::reprimandRows(db, personId);
}

qint64 ReprimandsPage::addRow(qint64 personId) {
    frmReprimands dialog(this);
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return 0;
    return personnel::addReprimand(core::db(), personId, dialog.fields());
}

bool ReprimandsPage::editRow(qint64 id, const QTreeWidgetItem& row) {
    frmReprimands dialog(this);
    dialog.setTexts(rowTexts(row));
    return editUntilSaved(dialog, dialog.ok, id, [&](const core::LoadedRow& loaded) {
        personnel::updateReprimand(core::db(), id, dialog.fields(), loaded);
    });
}

void ReprimandsPage::deleteRow(qint64 id) {
    personnel::deleteReprimand(core::db(), id);
}

// ---------------------------------------------------------------------------------------------

AppraisalsPage::AppraisalsPage(QWidget* parent)
    : EmployeeListPage({"AppraisalsPage", "lvwAppraisals", "cmdAddAppraisal", "cmdEditAppraisal",
                        "cmdDeleteAppraisal"},
                       {"Date", "Manager", "Rating", "Notes"}, {90, 160, 80, 260}, parent) {
    setWindowTitle("Appraisals");
    setStored({"Appraisal", "Appraisal_ID", "appraisal"});
}

personnel::ListRows AppraisalsPage::rows(core::Db& db, qint64 personId) {
    return personnel::appraisalRows(db, personId);
}

bool AppraisalsPage::mayAdd() {
    bool found = false;
    if (!core::guarded(
            windowTitle(), [&] { found = personnel::hasCurrentLineManagers(core::db()); }, this))
        return false;
    if (!found) core::msgbox(personnel::noLineManagersMessage(), "Quillorne");
    return found;
}

qint64 AppraisalsPage::addRow(qint64 personId) {
    frmappraisal dialog(this);
    dialog.loadManagers(personnel::appraisalManagerEntries(core::db()));
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return 0;
    return personnel::addAppraisal(core::db(), personId, dialog.fields());
}

bool AppraisalsPage::editRow(qint64 id, const QTreeWidgetItem& row) {
    frmappraisal dialog(this);
    dialog.loadManagers(personnel::appraisalManagerEntries(core::db()));
    dialog.setTexts(rowTexts(row));
    return editUntilSaved(dialog, dialog.ok, id, [&](const core::LoadedRow& loaded) {
        personnel::updateAppraisal(core::db(), id, dialog.fields(), loaded);
    });
}

void AppraisalsPage::deleteRow(qint64 id) {
    personnel::deleteAppraisal(core::db(), id);
}

// ---------------------------------------------------------------------------------------------

DocumentsPage::DocumentsPage(QWidget* parent)
    : EmployeeListPage(
          {"DocumentsPage", "lvwDocuments", "cmdAttach", "cmdEditDoc", "cmdDetach", "Attach",
           "Edit", "Detach"},
          {"Date", "Title", "Notes", "location"}, {90, 160, 180, 260}, parent,
          new DocumentDropList([this](const QStringList& files) { attachFiles(files); }, nullptr)) {
    setWindowTitle("Documents");
    setStored({"Document", "document_id", "document"});
}

personnel::ListRows DocumentsPage::rows(core::Db& db, qint64 personId) {
    return personnel::documentRows(db, personId);
}

qint64 DocumentsPage::addRow(qint64 personId) {
    frmAddDoc dialog(this);
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return 0;
    return personnel::attachDocument(core::db(), personId, dialog.fields(), QDate::currentDate());
}

bool DocumentsPage::editRow(qint64 id, const QTreeWidgetItem&) {
    frmAddDoc dialog(this);
    dialog.setFields(personnel::loadDocument(core::db(), id));
    return editUntilSaved(dialog, dialog.ok, id, [&](const core::LoadedRow& loaded) {
        personnel::updateDocument(core::db(), id, dialog.fields(), loaded);
    });
}

void DocumentsPage::deleteRow(qint64 id) {
    personnel::detachDocument(core::db(), id);
}

void DocumentsPage::openSelected() {
    const QTreeWidgetItem* item = list_->selectedItem();
    if (!item || list_->selectedId() == 0) return;
    const QString path = item->data(0, PathRole).toString();
    if (path.isEmpty() || !QFileInfo::exists(path)) {
        core::msgbox(personnel::missingDocumentMessage(path));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        core::reportFailure(
            std::runtime_error(
                QStringLiteral("The desktop could not open %1").arg(path).toStdString()),
            windowTitle(), this);
}

void DocumentsPage::attachFiles(const QStringList& paths) {
    if (paths.isEmpty()) return;
    const qint64 person = ensurePerson();
    if (person == 0) return;
    qint64 last = 0;
    core::guarded(
        windowTitle(),
        [&] {
            for (const QString& path : paths) {
                const QString native = QFileInfo(path).absoluteFilePath();
                last = personnel::attachDocument(core::db(), person,
                                                 {QFileInfo(path).fileName(), native, {}},
                                                 QDate::currentDate());
            }
        },
        this);
    reload(last);
}
