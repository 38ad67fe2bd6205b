#include "traininglist.h"

#include "failure.h"
#include "frmtraining.h"
#include "messagebox.h"
#include "programmes.h"
#include "recordlist.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

TrainingList::TrainingList(QWidget* parent)
    : QWidget(parent) {
    setObjectName("TrainingList");
    setWindowTitle("Select training programme");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 3500, 1300, 850, 1850 and 2300 twips.
    ListView1->setColumns({"Course Title", "Date", "Time", "Location", "Instructor"},
                          {233, 87, 57, 123, 153});
    ListView1->setMinimumSize(680, 320);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(cmdOK, &QPushButton::clicked, this, &TrainingList::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { ok(); });
}

void TrainingList::load() {
    core::guarded(
        windowTitle(),
        [this] {
            const auto rows = training::programmeRows(core::db());
            ListView1->clearRecords();
            ListView1->beginFill();
            for (const auto& row : rows)
                ListView1->addRecord(row.id, row.cells);
            ListView1->endFill();
        },
        this);
}

void TrainingList::ok() {
    QTreeWidgetItem* item = ListView1->selectedItem();
    if (ListView1->count() == 0 || !item) return;
    const qint64 id = RecordList::idAt(item);
    if (windowTitle() == "Edit Training Programme") {
        auto* screen = new frmtraining;
        screen->load(id);
        core::showScreen(screen);
        close();
        return;
    }
    deleteSelected(id, item->text(0));
}

void TrainingList::deleteSelected(qint64 id, const QString& title) {
    if (core::msgbox("Are you sure you want to delete " + title, {}, core::MsgButtons::YesNo) !=
        core::MsgAnswer::Yes)
        return;
    if (core::guarded(
            windowTitle(), [&] { training::deleteProgramme(core::db(), id); }, this))
        delete ListView1->findRecord(id);
}
