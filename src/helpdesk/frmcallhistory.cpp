#include "frmcallhistory.h"

#include "calls.h"
#include "failure.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

frmCallHistory::frmCallHistory(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmCallHistory");
    setWindowTitle("Call History");
    txtDate = core::readOnlyBox(this, "txtDate");
    txtTime = core::readOnlyBox(this, "txtTime");
    txtStatus = core::readOnlyBox(this, "txtStatus");
    txtAction = new QPlainTextEdit(this);
    txtAction->setObjectName("txtAction");
    txtAction->setReadOnly(true);
    txtAction->setTabChangesFocus(true);
    txtAction->setMinimumSize(320, 100);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    core::formLayout(
        this, {{"Date", txtDate}, {"Time", txtTime}, {"Status", txtStatus}, {"Action", txtAction}},
        {cmdOK});
    core::setScreenButtons(this, cmdOK, cmdOK);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

bool frmCallHistory::load(qint64 historyId) {
    bool found = false;
    core::guarded(
        windowTitle(),
        [&] {
            const auto row = helpdesk::historyRow(core::db(), historyId);
            if (!row) return;
            txtDate->setText(helpdesk::historyDate(row->at));
            txtTime->setText(helpdesk::historyTime(row->at));
            txtStatus->setText(row->status);
            txtAction->setPlainText(row->action);
            found = true;
        },
        this);
    return found;
}
