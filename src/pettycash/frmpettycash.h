#pragma once

#include "ledger.h"

#include <QHash>
#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidgetItem;
class RecordList;
class frmFunds;

// "Petty Cash Information": the ledger, newest first, money out in red, with the box's total.
class frmPettyCash : public QWidget {
    Q_OBJECT
public:
    explicit frmPettyCash(QWidget* parent = nullptr);

    // Fills the list and the total.
    void load();

    void addFunds();
    void removeFunds();
    void deleteEntry();
    void editEntry();

    RecordList* ListView1 = nullptr;
    QLabel* lblCaption = nullptr;
    QLabel* lblTotal = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdEdit = nullptr;
    QPushButton* cmdOK = nullptr;

private:
    QTreeWidgetItem* showEntry(const pettycash::Entry& entry, QTreeWidgetItem* item = nullptr);
    void showTotal(core::Money total);
    // Shows a refusal and the total the command found; true when the command went through.
    bool settle(const pettycash::Outcome& outcome);
    void addEntry(pettycash::Direction direction);

    QHash<qint64, pettycash::Entry> shown_;
};
