#include "frmfunds.h"

#include "datebox.h"
#include "ledger.h"
#include "messagebox.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmFunds::frmFunds(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmFunds");
    txtDate = new DateBox("txtDate", this);
    txtDate->setWarnOnInvalid(true);
    txtDate->setDate(QDate::currentDate());
    txtAmount = new QLineEdit(this);
    txtAmount->setObjectName("txtAmount");
    txtReason = new QLineEdit(this);
    txtReason->setObjectName("txtReason");
    txtReason->setMinimumWidth(260);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this,
                     {{"Date", txtDate},
                      {"Amount    " + core::currencySign(), txtAmount},
                      {"Reason", txtReason}},
                     {cmdOK, cmdCancel});
    auto* grid = static_cast<QGridLayout*>(layout());
    lblAmount = qobject_cast<QLabel*>(grid->itemAtPosition(1, 0)->widget());
    lblAmount->setObjectName("lblAmount");

    for (QLineEdit* edit : {txtDate->lineEdit(), txtAmount, txtReason})
        connect(edit, &QLineEdit::textChanged, this, [this] { dirty_ = true; });
    connect(cmdOK, &QPushButton::clicked, this, &frmFunds::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmFunds::confirm() {
    const QString refusal = pettycash::checkFundsEntry(
        txtDate->text(), txtAmount->text(), QDate::currentDate(), core::session().language);
    if (!refusal.isEmpty()) {
        core::msgbox(refusal);
        return;
    }
    ok_ = true;
    accept();
}
