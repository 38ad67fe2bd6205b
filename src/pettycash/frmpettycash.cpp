#include "frmpettycash.h"

#include "datebox.h"
#include "failure.h"
#include "frmfunds.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using pettycash::Direction;
using pettycash::Entry;

frmPettyCash::frmPettyCash(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmPettyCash");
    setWindowTitle("Petty Cash Information");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1100, 1200 and 3400 twips, the date widened to fit today's fonts.
    ListView1->setColumns({"Date", "Amount", "Reason"}, {90, 90, 240});
    ListView1->setMinimumSize(460, 300);
    lblCaption = new QLabel("Current petty cash total:   " + core::currencySign(), this);
    lblCaption->setObjectName("lblCaption");
    lblTotal = new QLabel("0", this);
    lblTotal->setObjectName("lblTotal");
    cmdAdd = core::makeButton(this, "Add Funds", "cmdAdd");
    cmdRemove = core::makeButton(this, "Remove Funds", "cmdRemove");
    cmdDelete = core::makeButton(this, "Delete", "cmdDelete");
    cmdEdit = core::makeButton(this, "Edit", "cmdEdit");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    core::setScreenButtons(this, cmdOK, cmdOK);

    auto* totalRow = new QHBoxLayout;
    totalRow->setSpacing(0); // the figure follows the currency sign
    totalRow->addWidget(lblCaption);
    totalRow->addWidget(lblTotal);
    totalRow->addStretch();
    auto* commands = new QHBoxLayout;
    for (QPushButton* b : {cmdAdd, cmdRemove, cmdDelete, cmdEdit})
        commands->addWidget(b);
    commands->addStretch();
    commands->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(ListView1, 1);
    layout->addLayout(totalRow);
    layout->addLayout(commands);

    connect(cmdAdd, &QPushButton::clicked, this, &frmPettyCash::addFunds);
    connect(cmdRemove, &QPushButton::clicked, this, &frmPettyCash::removeFunds);
    connect(cmdDelete, &QPushButton::clicked, this, &frmPettyCash::deleteEntry);
    connect(cmdEdit, &QPushButton::clicked, this, &frmPettyCash::editEntry);
    connect(ListView1, &RecordList::recordActivated, this, [this](qint64) { editEntry(); });
    connect(cmdOK, &QPushButton::clicked, this, &QWidget::close);
}

void frmPettyCash::load() {
    core::guarded(
        windowTitle(),
        [this] {
            const std::vector<Entry> rows = pettycash::entries(core::db());
            core::Money total;
            for (const Entry& e : rows)
                total += pettycash::amountValue(e.amount).value_or(core::Money());
            ListView1->clearRecords();
            shown_.clear();
            ListView1->beginFill();
            for (const Entry& e : rows)
                showEntry(e);
            ListView1->endFill();
            showTotal(total);
        },
        this);
}

QTreeWidgetItem* frmPettyCash::showEntry(const Entry& entry, QTreeWidgetItem* item) {
    const QStringList cells{core::formatDate(entry.date),
                            pettycash::displayAmount(entry.amount, core::currencySign()),
                            entry.reason.trimmed()};
    if (item) {
        for (int i = 0; i < cells.size(); ++i)
            item->setText(i, cells[i]);
    } else {
        item = ListView1->addRecord(entry.id, cells);
    }
    const bool out = pettycash::splitAmount(entry.amount).direction == Direction::Out;
    for (int i = 0; i < cells.size(); ++i) {
        if (out)
            item->setForeground(i, Qt::red);
        else
            item->setData(i, Qt::ForegroundRole, {});
    }
    shown_.insert(entry.id, entry);
    return item;
}

void frmPettyCash::showTotal(core::Money total) {
    lblTotal->setText(core::plainNumber(total));
}

bool frmPettyCash::settle(const pettycash::Outcome& outcome) {
    showTotal(outcome.total);
    if (outcome.refusal == pettycash::Refusal::None) return true;
    core::msgbox(pettycash::refusalMessage(outcome.refusal), {}, core::MsgButtons::Ok,
                 core::MsgIcon::None, this);
    return false;
}

void frmPettyCash::addFunds() {
    addEntry(Direction::In);
}

void frmPettyCash::removeFunds() {
    core::Money total;
    if (!core::guarded(
            windowTitle(), [&] { total = pettycash::total(core::db()); }, this))
        return;
    showTotal(total);
    if (pettycash::checkRemoveStart(total) != pettycash::Refusal::None) {
        core::msgbox(pettycash::refusalMessage(pettycash::Refusal::NoFunds), {},
                     core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    addEntry(Direction::Out);
}

void frmPettyCash::addEntry(Direction direction) {
    frmFunds dialog(this);
    dialog.setWindowTitle(direction == Direction::In ? "Add funds" : "Remove funds");
    core::showModal(dialog);
    if (!dialog.ok()) return;
    const QDate date = dialog.txtDate->date();
    const QString figure = dialog.txtAmount->text();
    const QString reason = dialog.txtReason->text();
    core::guarded(
        windowTitle(),
        [&] {
            auto& db = core::db();
            const pettycash::Outcome outcome =
                direction == Direction::In ? pettycash::addFunds(db, date, figure, reason)
                                           : pettycash::removeFunds(db, date, figure, reason);
            if (!settle(outcome)) return;
            // New entries join the end of the list until the ledger is opened again.
            showEntry({outcome.id, date,
                       pettycash::storedAmount(direction, pettycash::figureText(figure)),
                       reason.trimmed()});
        },
        this);
}

void frmPettyCash::deleteEntry() {
    QTreeWidgetItem* item = ListView1->currentItem();
    if (ListView1->count() == 0 || !item) return;
    if (core::msgbox("Are you sure you want to delete this entry?", {}, core::MsgButtons::YesNo,
                     core::MsgIcon::None, this) != core::MsgAnswer::Yes)
        return;
    const qint64 id = RecordList::idAt(item);
    core::guarded(
        windowTitle(),
        [&] {
            if (!settle(pettycash::deleteEntry(core::db(), shown_.value(id)))) return;
            shown_.remove(id);
            delete ListView1->findRecord(id);
        },
        this);
}

void frmPettyCash::editEntry() {
    QTreeWidgetItem* item = ListView1->currentItem();
    if (ListView1->count() == 0 || !item) return;
    Entry entry = shown_.value(RecordList::idAt(item));
    pettycash::EntryText typed = pettycash::entryText(entry);
    // When another user has changed the entry meanwhile, the list shows it as it now stands
    // and the dialog opens again: with the entry as it now is when the user takes it, with
    // what they typed (still refused) when they do not.
    for (;;) {
        frmFunds dialog(this);
        dialog.setWindowTitle("Edit entry");
        dialog.txtDate->setText(typed.date);
        dialog.txtAmount->setText(typed.figure);
        dialog.txtReason->setText(typed.reason);
        core::showModal(dialog);
        if (!dialog.ok() || !dialog.dirty()) return;
        typed = {dialog.txtDate->text(), dialog.txtAmount->text(), dialog.txtReason->text()};
        pettycash::Outcome outcome;
        if (!core::guarded(
                windowTitle(),
                [&] {
                    outcome = pettycash::editEntry(core::db(), entry, core::parseDate(typed.date),
                                                   typed.figure, typed.reason);
                },
                this))
            return;
        if (outcome.refusal != pettycash::Refusal::Changed) {
            if (settle(outcome))
                showEntry(pettycash::editedEntry(entry, typed), ListView1->findRecord(entry.id));
            return;
        }
        if (!outcome.current) {
            settle(outcome);
            shown_.remove(entry.id);
            delete ListView1->findRecord(entry.id);
            return;
        }
        showTotal(outcome.total);
        showEntry(*outcome.current, ListView1->findRecord(entry.id));
        if (core::offerReload("entry", this)) {
            entry = *outcome.current;
            typed = pettycash::entryText(entry);
        }
    }
}
