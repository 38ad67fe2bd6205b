#include "frmaddperson.h"

#include "dialogkit.h"
#include "messagebox.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>

frmAddPerson::frmAddPerson(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAddPerson");
    setWindowTitle("Add Person");
    txtFirstName = suppliers::textBox(this, "txtFirstName");
    txtSurname = suppliers::textBox(this, "txtSurname");
    txtPhone = suppliers::textBox(this, "txtPhone");
    txtFax = suppliers::textBox(this, "txtFax");
    txtEmail = suppliers::textBox(this, "txtEmail");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    cmdEmail = core::makeButton(this, "Email", "cmdEmail");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this,
                     {{"First Name", txtFirstName},
                      {"Surname", txtSurname},
                      {"Phone", txtPhone},
                      {"Fax", txtFax},
                      {"Email Address", txtEmail}},
                     {cmdEmail, cmdOK, cmdCancel});
    suppliers::watchDirty(this, isdirty);

    connect(cmdOK, &QPushButton::clicked, this, &frmAddPerson::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdEmail, &QPushButton::clicked, this, &frmAddPerson::email);
}

void frmAddPerson::load(const suppliers::PersonContact& c) {
    setWindowTitle("Edit Person");
    txtFirstName->setText(c.firstname);
    txtSurname->setText(c.surname);
    txtPhone->setText(c.phone);
    txtFax->setText(c.fax);
    txtEmail->setText(c.email);
    isdirty = false;
}

suppliers::PersonContact frmAddPerson::contact() const {
    return {txtFirstName->text(), txtSurname->text(), txtPhone->text(), txtFax->text(),
            txtEmail->text()};
}

void frmAddPerson::confirm() {
    if (const QString refusal = suppliers::checkPersonContact(contact()); !refusal.isEmpty()) {
        core::msgbox(refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    if (save && !save(contact())) return;
    ok = true;
    accept();
}

void frmAddPerson::email() {
    suppliers::openMail(txtEmail->text(), this);
}
