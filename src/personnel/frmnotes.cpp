#include "frmnotes.h"

#include "datebox.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QPlainTextEdit>
#include <QPushButton>

frmNotes::frmNotes(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmNotes");
    setWindowTitle("Add note");
    txtDate = new DateBox("txtDate", this);
    txtDate->setDate(QDate::currentDate());
    txtNotes = new QPlainTextEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(this, {{"Date", txtDate}, {"Notes", txtNotes}}, {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmNotes::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

personnel::NoteFields frmNotes::fields() const {
    return {txtDate->date(), txtNotes->toPlainText()};
}

void frmNotes::setTexts(const QString& date, const QString& notes) {
    txtDate->setText(date);
    txtNotes->setPlainText(notes);
}

void frmNotes::confirm() {
    const auto check = personnel::checkNote(txtDate->text(), txtNotes->toPlainText());
    if (!personnel::acceptOrExplain(check)) return;
    ok = true;
    accept();
}
