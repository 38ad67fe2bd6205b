#include "frmreprimands.h"

#include "datebox.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

frmReprimands::frmReprimands(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmReprimands");
    setWindowTitle("Add Reprimand");
    txtDate = new DateBox("txtDate", this);
    txtDate->setDate(QDate::currentDate());
    txtAction = new QLineEdit(this);
    txtAction->setObjectName("txtAction");
    txtReason = new QLineEdit(this);
    txtReason->setObjectName("txtReason");
    txtNotes = new QPlainTextEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(
        this,
        {{"Date", txtDate}, {"Action", txtAction}, {"Reason", txtReason}, {"Notes", txtNotes}},
        {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmReprimands::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

personnel::ReprimandFields frmReprimands::fields() const {
    return {txtDate->date(), txtAction->text(), txtReason->text(), txtNotes->toPlainText()};
}

void frmReprimands::setTexts(const QStringList& cells) {
    txtDate->setText(cells.value(0));
    txtAction->setText(cells.value(1));
    txtReason->setText(cells.value(2));
    txtNotes->setPlainText(cells.value(3));
}

void frmReprimands::confirm() {
    const auto check =
        personnel::checkReprimand(txtDate->text(), txtAction->text(), QDate::currentDate());
    if (!personnel::acceptOrExplain(check)) return;
    ok = true;
    accept();
}
