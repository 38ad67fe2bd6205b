#include "frmlogin.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace core {

frmLogin::frmLogin(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmLogin");
    setWindowTitle("Login");

    auto* lblUserName = new QLabel("&User Name:", this);
    lblUserName->setObjectName("lblLabels0");
    auto* lblPassword = new QLabel("&Password:", this);
    lblPassword->setObjectName("lblLabels1");
    auto* lblRestore = new QLabel("Restore Mode", this);
    lblRestore->setObjectName("lblRestore");

    txtUserName = new QLineEdit(this);
    txtUserName->setObjectName("txtUserName");
    txtPassword = new QLineEdit(this);
    txtPassword->setObjectName("txtPassword");
    txtPassword->setEchoMode(QLineEdit::Password);
    lblUserName->setBuddy(txtUserName);
    lblPassword->setBuddy(txtPassword);
    Check1 = new QCheckBox(this);
    Check1->setObjectName("Check1");

    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    auto* grid = new QGridLayout(this);
    grid->addWidget(lblUserName, 0, 0);
    grid->addWidget(txtUserName, 0, 1);
    grid->addWidget(lblPassword, 1, 0);
    grid->addWidget(txtPassword, 1, 1);
    auto* restoreRow = new QHBoxLayout;
    restoreRow->addWidget(Check1);
    restoreRow->addWidget(lblRestore);
    restoreRow->addStretch();
    grid->addLayout(restoreRow, 2, 1);
    auto* buttons = core::buttonRow({cmdOK, cmdCancel});
    grid->addLayout(buttons, 3, 0, 1, 2);

    for (QLabel* l : {lblUserName, lblPassword, lblRestore})
        l->installEventFilter(this);

    connect(cmdOK, &QPushButton::clicked, this, &frmLogin::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &frmLogin::cancel);

    restore = false;
    txtUserName->setText("sa");
    txtPassword->setFocus();
}

QString frmLogin::username() const {
    return txtUserName->text().trimmed();
}

QString frmLogin::Password() const {
    return txtPassword->text();
}

bool frmLogin::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && qobject_cast<QLabel*>(watched))
        Check1->setChecked(true);
    return QDialog::eventFilter(watched, event);
}

void frmLogin::ok() {
    if (Check1->isChecked()) restore = true;
    logout = false;
    accept();
}

void frmLogin::cancel() {
    reject();
}

void frmLogin::reject() {
    logout = true;
    QDialog::reject();
}

} // namespace core
