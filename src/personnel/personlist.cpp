#include "personlist.h"

#include "employee_search.h"
#include "failure.h"
#include "messagebox.h"
#include "openemployee.h"
#include "recordlist.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

using core::MsgAnswer;
using core::MsgButtons;
using core::MsgIcon;

namespace {

// Column widths were set in twips, fifteen to a pixel on the usual screen.
constexpr int twips(int t) {
    return t / 15;
}

void fill(RecordList* list, const personnel::FoundPeople& people) {
    list->clearRecords();
    list->beginFill();
    for (const auto& p : people)
        list->addRecord(p.id, {QString::number(p.id), p.surname.trimmed(), p.firstnames.trimmed(),
                               core::formatDate(p.date)});
    list->endFill();
}

} // namespace

PersonList::PersonList(QWidget* parent)
    : QWidget(parent) {
    setObjectName("PersonList");
    setWindowTitle("Select Employee");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    ListView1->setColumns({"Person No", "Surname", "Firstnames", "DOB"},
                          {twips(940), twips(1500), twips(1450), twips(1100)});
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));
    setMinimumSize(twips(5600), twips(5000));

    connect(cmdOK, &QPushButton::clicked, this, &PersonList::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { ok(); });

    core::guarded(
        windowTitle(), [this] { fill(ListView1, personnel::allEmployees(core::db())); }, this);
}

void PersonList::firstaiders() {
    ISDelete = false;
    ListView1->clearRecords();
    ListView1->setHeaderLabels({"Person No", "Surname", "Firstnames", "Date Completed"});
    ListView1->setColumnWidth(1, twips(1400));
    ListView1->setColumnWidth(2, twips(1300));
    ListView1->setColumnWidth(3, twips(1300));
    core::guarded(
        windowTitle(), [this] { fill(ListView1, personnel::firstAiders(core::db())); }, this);
}

void PersonList::ok() {
    if (ListView1->count() == 0) {
        close();
        return;
    }
    const QList<QTreeWidgetItem*> selected = ListView1->selectedItems();
    if (selected.isEmpty()) return;
    if (ISDelete) {
        deleteSelected(selected.first());
        return;
    }
    openEmployee(selected.first()->text(0));
    close();
}

void PersonList::deleteSelected(QTreeWidgetItem* row) {
    const qint64 id = RecordList::idAt(row);
    const QString question =
        personnel::deleteQuestion(row->text(2).trimmed(), row->text(1).trimmed());
    if (core::msgbox(question, {}, MsgButtons::OkCancel, MsgIcon::None, MsgAnswer::Cancel, this) !=
        MsgAnswer::Ok)
        return;
    const bool deleted = core::guarded(
        windowTitle(),
        [&] {
            auto& db = core::db();
            // Warned before the write, so that no transaction waits on the box.
            if (personnel::isFirstAider(db, id)) core::msgbox(personnel::firstAiderWarning());
            personnel::deleteEmployee(db, id);
        },
        this);
    if (!deleted) return;
    delete row;
    cmdCancel->setText("Exit");
}
