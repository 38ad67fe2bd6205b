#include "frmappraisal.h"

#include "combos.h"
#include "datebox.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

frmappraisal::frmappraisal(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmappraisal");
    setWindowTitle("Appraisal");
    txtDate = new DateBox("txtDate", this);
    cboManager = core::autoCompleteCombo(this, "cboManager");
    txtRating = new QLineEdit(this);
    txtRating->setObjectName("txtRating");
    txtNotes = new QPlainTextEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(
        this,
        {{"Date", txtDate}, {"Manager", cboManager}, {"Rating", txtRating}, {"Notes", txtNotes}},
        {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmappraisal::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmappraisal::loadManagers(const personnel::ComboEntries& managers) {
    const QString typed = cboManager->currentText();
    cboManager->clear();
    for (const auto& m : managers)
        core::addComboItem(cboManager, m.text, m.id);
    cboManager->setCurrentIndex(-1);
    cboManager->setEditText(typed);
}

personnel::AppraisalFields frmappraisal::fields() const {
    return {txtDate->date(), cboManager->currentText(), txtRating->text(), txtNotes->toPlainText()};
}

void frmappraisal::setTexts(const QStringList& cells) {
    txtDate->setText(cells.value(0));
    const int at = cboManager->findText(cells.value(1), Qt::MatchFixedString);
    cboManager->setCurrentIndex(at);
    // A manager since removed from the list is still the one who made the appraisal.
    cboManager->setEditText(cells.value(1));
    txtRating->setText(cells.value(2));
    txtNotes->setPlainText(cells.value(3));
}

void frmappraisal::confirm() {
    const auto check =
        personnel::checkAppraisal(txtDate->text(), cboManager->currentText(), QDate::currentDate());
    if (!personnel::acceptOrExplain(check)) return;
    ok = true;
    accept();
}
