#include "rptpettycash.h"

#include "combos.h"
#include "export.h"
#include "failure.h"
#include "messagebox.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "statement_sheet.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

RptPettyCash::RptPettyCash(QWidget* parent)
    : QWidget(parent) {
    setObjectName("RptPettyCash");
    setWindowTitle("Petty Cash Report");
    fraPeriod = new QGroupBox("Period", this);
    fraPeriod->setObjectName("fraPeriod");
    cboMonth = core::autoCompleteCombo(fraPeriod, "cboMonth");
    cboMonth->addItems(pettycash::monthNames());
    cboMonth->setCurrentIndex(-1);
    cboYear = core::autoCompleteCombo(fraPeriod, "cboYear");
    cboYear->addItem(QString::number(QDate::currentDate().year()));
    cmdRun = core::makeButton(fraPeriod, "Run Report", "cmdRun", true);
    auto* period = new QHBoxLayout(fraPeriod);
    period->addWidget(new QLabel("Month", fraPeriod));
    period->addWidget(cboMonth);
    period->addWidget(new QLabel("Year", fraPeriod));
    period->addWidget(cboYear);
    period->addStretch();
    period->addWidget(cmdRun);

    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1200, 2700, 1050, 1050 and 1000 twips, widened to fit today's fonts.
    ListView1->setColumns({"Date", "Purpose", "Cash In", "Cash Out", "Balance"},
                          {90, 180, 75, 75, 80});
    ListView1->setMinimumSize(520, 320);
    cmdExport = core::makeButton(this, "Export to Excel", "cmdExport");
    cmdExport->setEnabled(false);
    cmdClose = core::makeButton(this, "Close", "cmdClose");
    core::setScreenButtons(this, cmdRun, cmdClose);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraPeriod);
    layout->addWidget(ListView1, 1);
    layout->addLayout(core::buttonRow({cmdExport, cmdClose}));

    connect(cmdRun, &QPushButton::clicked, this, &RptPettyCash::runReport);
    connect(cmdExport, &QPushButton::clicked, this, &RptPettyCash::exportToExcel);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

void RptPettyCash::load() {
    core::guarded(
        windowTitle(),
        [this] {
            const int thisYear = QDate::currentDate().year();
            const int first = pettycash::firstYear(core::db()).value_or(thisYear);
            cboYear->clear();
            for (int year = thisYear; year >= std::min(first, thisYear); --year)
                cboYear->addItem(QString::number(year));
            cboYear->setCurrentIndex(0);
        },
        this);
}

void RptPettyCash::runReport() {
    ListView1->clearRecords();
    cmdExport->setEnabled(false);
    const int month = pettycash::monthNumber(cboMonth->currentText());
    bool yearRead = false;
    const int year = cboYear->currentText().trimmed().toInt(&yearRead);
    if (month == 0 || !yearRead || year < 1 || year > 9999) {
        core::msgbox("Please enter the month and year of the report you wish to run.", {},
                     core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    core::guarded(
        windowTitle(),
        [&] {
            statement_ =
                pettycash::monthStatement(core::db(), year, month, core::session().language);
            period_ = pettycash::monthNames().at(month - 1) + ' ' + QString::number(year);
            QTreeWidgetItem* last = nullptr;
            ListView1->beginFill();
            for (const pettycash::StatementRow& r : statement_.rows)
                last = ListView1->addRecord(0, {r.date, r.purpose, r.cashIn, r.cashOut, r.balance});
            ListView1->endFill();
            // The closing balance stands out in red.
            last->setForeground(4, Qt::red);
            cmdExport->setEnabled(true);
        },
        this);
}

void RptPettyCash::exportToExcel() {
    reports::exportSpreadsheet(pettycash::statementSheet(statement_), "pettycash.xltx",
                               "Petty Cash Report " + period_, this);
}
