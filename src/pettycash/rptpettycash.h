#pragma once

#include "statement.h"

#include <QWidget>

class QComboBox;
class QGroupBox;
class QPushButton;
class RecordList;

// "Petty Cash Report": one month of the ledger between its opening and closing balances, and
// its export to a spreadsheet.
class RptPettyCash : public QWidget {
    Q_OBJECT
public:
    explicit RptPettyCash(QWidget* parent = nullptr);

    // Offers the years from the ledger's first entry to this one.
    void load();

    void runReport();
    void exportToExcel();

    QGroupBox* fraPeriod = nullptr;
    QComboBox* cboMonth = nullptr;
    QComboBox* cboYear = nullptr;
    RecordList* ListView1 = nullptr;
    QPushButton* cmdRun = nullptr;
    QPushButton* cmdExport = nullptr;
    QPushButton* cmdClose = nullptr;

private:
    pettycash::Statement statement_;
    QString period_; // "November 2024", the month the list shows
};
