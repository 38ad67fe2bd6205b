#include "frmabsence.h"

#include "combos.h"
#include "datebox.h"
#include "period_boxes.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

frmabsence::frmabsence(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmabsence");
    setWindowTitle("Absence");
    const PeriodBoxes period = makePeriodBoxes(this);
    txtStartDate = period.start;
    txtEndDate = period.end;
    txtDays = period.days;
    cboReason = core::autoCompleteCombo(this, "cboReason");
    txtNotes = new QLineEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(this,
                     {{"Start Date", txtStartDate},
                      {"End Date", txtEndDate},
                      {"Days", txtDays},
                      {"Reason", cboReason},
                      {"Notes", txtNotes}},
                     {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmabsence::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmabsence::loadReasons(const QStringList& reasons) {
    cboReason->clear();
    cboReason->addItems(reasons);
    cboReason->setCurrentIndex(-1);
}

void frmabsence::setRow(const personnel::AbsenceRow& row) {
    txtStartDate->setDate(row.from);
    txtEndDate->setDate(row.to);
    txtDays->setText(core::plainNumber(row.days));
    cboReason->setCurrentIndex(-1);
    cboReason->setEditText(row.reason);
    txtNotes->setText(row.notes.trimmed());
}

personnel::AbsenceEntry frmabsence::entry() const {
    return {txtStartDate->date(), txtEndDate->date(), txtDays->text().trimmed(),
            cboReason->currentText().trimmed(), txtNotes->text().trimmed()};
}

void frmabsence::confirm() {
    const auto result = personnel::checkAbsenceEntry(txtStartDate->text(), txtEndDate->text(),
                                                     txtDays->text(), cboReason->currentText());
    if (!personnel::acceptOrExplain(result.check)) return;
    txtDays->setText(result.days);
    ok = true;
    accept();
}
