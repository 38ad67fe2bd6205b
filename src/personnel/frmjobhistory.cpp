#include "frmjobhistory.h"

#include "combos.h"
#include "datebox.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmJobHistory::frmJobHistory(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmJobHistory");
    setWindowTitle("Job History");
    txtDateFrom = new DateBox("txtDateFrom", this);
    txtDateTo = new DateBox("txtDateTo", this);
    for (DateBox* d : {txtDateFrom, txtDateTo})
        d->calendar()->setSelectedDate(QDate::currentDate());
    cboPosition = core::autoCompleteCombo(this, "cboPosition");
    txtSalary = new QLineEdit(this);
    txtSalary->setObjectName("txtSalary");
    core::numericKeysOnly(txtSalary);
    lblMoneySign = new QLabel(core::currencySign(), this);
    lblMoneySign->setObjectName("lblMoneySign");
    auto* salary = new QWidget(this);
    auto* salaryRow = new QHBoxLayout(salary);
    salaryRow->setContentsMargins(0, 0, 0, 0);
    salaryRow->addWidget(lblMoneySign);
    salaryRow->addWidget(txtSalary, 1);
    txtNotes = new QLineEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(this,
                     {{"Date from", txtDateFrom},
                      {"Date to", txtDateTo},
                      {"Position", cboPosition},
                      {"Salary", salary},
                      {"Notes", txtNotes}},
                     {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmJobHistory::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmJobHistory::loadPositions(const QStringList& names) {
    cboPosition->clear();
    cboPosition->addItems(names);
    cboPosition->setCurrentIndex(-1);
}

void frmJobHistory::setPeriod(const personnel::JobPeriod& p) {
    txtDateFrom->setDate(p.from);
    txtDateTo->setDate(p.to);
    cboPosition->setCurrentIndex(-1);
    cboPosition->setEditText(p.position);
    txtSalary->setText(p.salary);
    txtNotes->setText(p.notes);
}

personnel::JobHistoryEntry frmJobHistory::entry() const {
    return {txtDateFrom->date(), txtDateTo->date(), cboPosition->currentText().trimmed(),
            txtSalary->text().trimmed(), txtNotes->text().trimmed()};
}

void frmJobHistory::confirm() {
    const auto result =
        personnel::checkJobHistoryEntry(txtDateFrom->text(), txtDateTo->text(), txtSalary->text());
    if (!personnel::acceptOrExplain(result.check)) {
        if (result.salaryRefused) {
            txtSalary->clear();
            txtSalary->setFocus();
        }
        return;
    }
    ok = true;
    accept();
}
