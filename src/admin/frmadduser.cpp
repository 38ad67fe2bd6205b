#include "frmadduser.h"

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

frmAddUser::frmAddUser(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAddUser");
    setWindowTitle("Add User");
    txtUserName = new QLineEdit(this);
    txtUserName->setObjectName("txtUserName");
    txtPassword = new QLineEdit(this);
    txtPassword->setObjectName("txtPassword");
    txtPassword->setEchoMode(QLineEdit::Password);
    txtPasswordCon = new QLineEdit(this);
    txtPasswordCon->setObjectName("txtPasswordCon");
    txtPasswordCon->setEchoMode(QLineEdit::Password);
    // A label, not a list: every user added here is an Admin.
    combo1 = new QLabel("Admin", this);
    combo1->setObjectName("combo1");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::formLayout(this,
                     {{"&User Name:", txtUserName},
                      {"&Password:", txtPassword},
                      {"&Confirm Password:", txtPasswordCon},
                      {"&UserType:", combo1}},
                     {cmdOK, cmdCancel});
    core::setScreenButtons(this, cmdOK, cmdCancel);
    connect(cmdOK, &QPushButton::clicked, this, &frmAddUser::okClicked);
    connect(cmdCancel, &QPushButton::clicked, this, &frmAddUser::cancelClicked);
}

QString frmAddUser::user() const {
    return combo1->text();
}

void frmAddUser::okClicked() {
    const QString refusal = admin::addUserRefusal(txtUserName->text(), txtPassword->text(),
                                                  txtPasswordCon->text(), user());
    if (!refusal.isEmpty()) {
        core::msgbox(refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        if (refusal.startsWith("Your passwords do not match")) {
            txtPassword->clear();
            txtPasswordCon->clear();
            txtPassword->setFocus();
        }
        return;
    }
    ok = true;
    accept();
}

void frmAddUser::cancelClicked() {
    ok = false;
    reject();
}

namespace admin {

void runAddUser(QWidget* parent) {
    frmAddUser dialog(parent);
    core::showModal(dialog);
    if (!dialog.ok) return;
    try {
        addUser(core::db(), core::getcurrentuser(), dialog.txtUserName->text(),
                dialog.txtPassword->text(), dialog.user().trimmed());
    } catch (const UserExists&) {
        core::msgbox("That username is already being used. Please select another login name");
    } catch (const core::DbError& e) {
        core::msgbox(addUserFailureMessage(e));
    }
}

} // namespace admin
