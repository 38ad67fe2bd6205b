#include "job_history_page.h"

#include "failure.h"
#include "frmjobhistory.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

using personnel::JobPeriod;

JobHistoryPage::JobHistoryPage(JobHistoryHost* host, QWidget* parent)
    : QWidget(parent)
    , host_(host) {
    setObjectName("FrameJH");
    setWindowTitle("Job History");
    lvwJobHistory = new RecordList(this);
    lvwJobHistory->setObjectName("lvwJobHistory");
    lvwJobHistory->setColumns({"Date From", "Job Title", "Salary", "Notes"}, {160, 160, 80, 220});
    cmdAddJH = core::makeButton(this, "Add", "cmdAddJH");
    cmdEditJH = core::makeButton(this, "Edit", "cmdEditJH");
    cmdDeleteJH = core::makeButton(this, "Delete", "cmdDeleteJH");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvwJobHistory);
    layout->addLayout(core::buttonRow({cmdAddJH, cmdEditJH, cmdDeleteJH}));

    connect(cmdAddJH, &QPushButton::clicked, this, &JobHistoryPage::add);
    connect(cmdEditJH, &QPushButton::clicked, this, [this] { edit(false); });
    connect(cmdDeleteJH, &QPushButton::clicked, this, &JobHistoryPage::remove);
    connect(lvwJobHistory, &RecordList::recordActivated, this, [this] { edit(true); });
    connect(lvwJobHistory, &QTreeWidget::itemSelectionChanged, this,
            &JobHistoryPage::updateButtons);
    updateButtons();
}

void JobHistoryPage::setRows(personnel::JobPeriods rows) {
    rows_ = std::move(rows);
    flags_ = {};
    show();
}

void JobHistoryPage::setPersonId(qint64 id) {
    personId_ = id;
    loaded_.clear();
    if (id != 0)
        loaded_ =
            core::LoadedRow::readEach(core::db(), "JobHistory", "JobHistory_ID", "person_id", id);
}

void JobHistoryPage::show(int select) {
    lvwJobHistory->clearRecords();
    // The row's place in the list is its key here: the present post has no key of its own.
    for (int i = 0; i < int(rows_.size()); ++i) {
        const JobPeriod& p = rows_[i];
        lvwJobHistory->addRecord(i + 1, {personnel::periodText(p), p.position, p.salary, p.notes});
    }
    if (select >= 0)
        if (auto* item = lvwJobHistory->findRecord(select + 1)) lvwJobHistory->setCurrentItem(item);
    updateButtons();
}

int JobHistoryPage::selectedRow() const {
    return int(lvwJobHistory->selectedId()) - 1;
}

void JobHistoryPage::updateButtons() {
    const int row = selectedRow();
    cmdEditJH->setEnabled(row >= 0);
    cmdDeleteJH->setEnabled(row > 0);
}

void JobHistoryPage::pageChange() {
    personnel::jobHistoryPageChange(rows_, flags_, host_->jobDetails(), QDate::currentDate());
    show(selectedRow());
}

void JobHistoryPage::add() {
    if (rows_.empty()) {
        core::msgbox("You cannot enter information at this time");
        return;
    }
    host_->loadcombos();
    const qint64 person = host_->ensurePerson();
    if (person == 0) return;
    personId_ = person;
    frmJobHistory dialog(this);
    dialog.loadPositions(host_->positionNames());
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return;
    const personnel::JobHistoryEntry e = dialog.entry();
    personnel::JobAddResult result;
    const bool done = core::guarded(
        windowTitle(),
        [&] {
            result = personnel::addJobPeriod(core::db(), person, rows_, e,
                                             host_->jobDetails().startDate, QDate::currentDate());
        },
        this);
    if (!done) return;
    if (result.refused) {
        core::msgbox(result.message);
        return;
    }
    if (result.presentPost) host_->takePresentPost(e.position, e.salary, e.from, {});
    show(result.place);
}

void JobHistoryPage::edit(bool doubleClick) {
    const int row = selectedRow();
    if (row < 0 || row >= int(rows_.size())) return;
    frmJobHistory dialog(this);
    dialog.loadPositions(host_->positionNames());
    dialog.setPeriod(rows_[row]);
    JobPeriod p = rows_[row];
    for (;;) {
        if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return;
        const personnel::JobHistoryEntry e = dialog.entry();
        p.from = e.from;
        p.to = e.to;
        p.position = e.position;
        p.salary = e.salary;
        p.notes = e.notes;
        if (p.id == 0) break;
        const core::SaveOutcome saved = saveStored(p);
        if (saved == core::SaveOutcome::Saved) break;
        if (saved != core::SaveOutcome::Kept) return;
    }
    if (p.id == 0 && row == 0 && doubleClick)
        host_->takePresentPost(p.position, p.salary, p.from, p.notes);
    rows_[row] = p;
    show(row);
}

core::SaveOutcome JobHistoryPage::saveStored(const JobPeriod& p) {
    return core::checkedSave(
        windowTitle(), "job history entry",
        [&] {
            personnel::updateJobPeriod(core::db(), p, core::LoadedRow::of(loaded_, p.id));
            loaded_[p.id] = core::LoadedRow::read(core::db(), "JobHistory", "JobHistory_ID", p.id);
        },
        [&] { reloadStored(); }, this);
}

void JobHistoryPage::reloadStored() {
    core::guarded(
        windowTitle(),
        [&] {
            setPersonId(personId_);
            personnel::JobPeriods stored = personnel::jobHistoryRows(core::db(), personId_, {});
            std::erase_if(stored, [](const JobPeriod& p) { return p.id == 0; });
            std::erase_if(rows_, [](const JobPeriod& p) { return p.id != 0; });
            rows_.insert(rows_.end(), stored.begin(), stored.end());
        },
        this);
    show(0);
}

void JobHistoryPage::remove() {
    if (rows_.empty()) {
        updateButtons();
        return;
    }
    const int row = selectedRow();
    if (row <= 0 || row >= int(rows_.size())) return;
    const qint64 id = rows_[row].id;
    if (id != 0 && !core::guarded(
                       windowTitle(), [&] { personnel::deleteJobPeriod(core::db(), id); }, this))
        return;
    rows_.erase(rows_.begin() + row);
    show();
}
