#include "frmaction.h"

#include "calllists.h"
#include "failure.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

frmAction::frmAction(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAction");
    lstAction = new QListWidget(this);
    lstAction->setObjectName("lstAction");
    lstAction->setSelectionMode(QAbstractItemView::SingleSelection);
    lstAction->setMinimumSize(260, 200);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lstAction);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));
    core::setScreenButtons(this, cmdOK, cmdCancel);

    // Enter reaches OK through the screen's keys; a double click picks at once.
    connect(lstAction, &QListWidget::itemDoubleClicked, this, &frmAction::ok);
    connect(cmdOK, &QPushButton::clicked, this, &frmAction::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmAction::fill(const QStringList& lines, const QString& current) {
    lstAction->clear();
    lstAction->addItems(lines);
    for (int i = 0; i < lstAction->count(); ++i)
        if (!current.trimmed().isEmpty() && lstAction->item(i)->text() == current.trimmed()) {
            lstAction->setCurrentRow(i);
            break;
        }
}

void frmAction::loadActions() {
    core::guarded(
        windowTitle(), [&] { fill(helpdesk::callActions(core::db())); }, this);
}

void frmAction::loadStatuses(const QString& current) {
    // Every note leaves the call with a status, so this pick has no way out but OK.
    cmdCancel->hide();
    core::setScreenButtons(this, cmdOK, nullptr);
    core::guarded(
        windowTitle(), [&] { fill(helpdesk::statusChoices(core::db()), current); }, this);
}

void frmAction::ok() {
    const QList<QListWidgetItem*> selected = lstAction->selectedItems();
    if (selected.isEmpty()) return;
    picked_ = selected.first()->text().trimmed();
    accept();
}
