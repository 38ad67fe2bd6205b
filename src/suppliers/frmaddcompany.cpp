#include "frmaddcompany.h"

#include "dialogkit.h"
#include "messagebox.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>

frmAddCompany::frmAddCompany(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAddCompany");
    setWindowTitle("Add Company");
    txtCompany = suppliers::textBox(this, "txtCompany");
    txtContact = suppliers::textBox(this, "txtContact");
    txtPhone = suppliers::textBox(this, "txtPhone");
    txtEmail = suppliers::textBox(this, "txtEmail");
    txtFax = suppliers::textBox(this, "txtFax");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this,
                     {{"Company Name", txtCompany},
                      {"Company Contact", txtContact},
                      {"Phone Number", txtPhone},
                      {"Email Address", txtEmail},
                      {"Fax Number", txtFax}},
                     {cmdOK, cmdCancel});
    suppliers::watchDirty(this, isdirty);

    connect(cmdOK, &QPushButton::clicked, this, &frmAddCompany::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmAddCompany::load(const suppliers::CompanyContact& c) {
    setWindowTitle("Edit Company");
    txtCompany->setText(c.company);
    txtContact->setText(c.contactname);
    txtPhone->setText(c.phone);
    txtEmail->setText(c.email);
    txtFax->setText(c.fax);
    isdirty = false;
}

suppliers::CompanyContact frmAddCompany::contact() const {
    return {txtCompany->text(), txtContact->text(), txtPhone->text(), txtEmail->text(),
            txtFax->text()};
}

void frmAddCompany::confirm() {
    if (const QString refusal = suppliers::checkCompanyContact(contact()); !refusal.isEmpty()) {
        core::msgbox(refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    if (save && !save(contact())) return;
    ok = true;
    accept();
}
