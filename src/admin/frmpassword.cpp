#include "frmpassword.h"

#include "failure.h"
#include "messagebox.h"
#include "modal.h"
#include "screenbase.h"
#include "session.h"
#include "users.h"
#include "widgetkit.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmpassword::frmpassword(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmpassword");
    setWindowTitle("Change Password");
    lblUsername = new QLabel(this);
    lblUsername->setObjectName("lblUsername");
    const auto passwordBox = [this](const char* name) {
        auto* box = new QLineEdit(this);
        box->setObjectName(name);
        box->setEchoMode(QLineEdit::Password);
        return box;
    };
    txtOldPassword = passwordBox("txtOldPassword");
    txtNewPassword = passwordBox("txtNewPassword");
    txtConfirmPassword = passwordBox("txtConfirmPassword");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::formLayout(this,
                     {{"Username", lblUsername},
                      {"Old Password", txtOldPassword},
                      {"New Password", txtNewPassword},
                      {"Confirm Password", txtConfirmPassword}},
                     {cmdOK, cmdCancel});
    core::setScreenButtons(this, cmdOK, cmdCancel);
    connect(cmdOK, &QPushButton::clicked, this, &frmpassword::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmpassword::cancelClicked);
}

void frmpassword::okClicked() {
    const QString refusal =
        admin::changePasswordRefusal(txtNewPassword->text(), txtConfirmPassword->text());
    if (!refusal.isEmpty()) {
        core::msgbox(refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        if (refusal == QLatin1String("Passswords do not match")) {
            txtNewPassword->clear();
            txtConfirmPassword->clear();
            txtNewPassword->setFocus();
        }
        return;
    }
    ok = true;
    accept();
}

void frmpassword::cancelClicked() {
    ok = false;
    reject();
}

namespace admin {

void runChangePassword(QWidget* parent) {
    frmpassword dialog(parent);
    dialog.lblUsername->setText(core::getcurrentuser());
    core::showModal(dialog);
    if (!dialog.ok) return;
    core::guarded(dialog.windowTitle(), [&] {
        changePassword(core::db(), dialog.lblUsername->text(), dialog.txtOldPassword->text(),
                       dialog.txtNewPassword->text());
    });
}

} // namespace admin
