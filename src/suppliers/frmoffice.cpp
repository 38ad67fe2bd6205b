#include "frmoffice.h"

#include "dialogkit.h"
#include "messagebox.h"
#include "regional.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmOffice::frmOffice(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmOffice");
    setWindowTitle("Other Offices");
    txtTown = suppliers::textBox(this, "txtTown");
    txtAddress1 = suppliers::textBox(this, "txtAddress1");
    txtAddress2 = suppliers::textBox(this, "txtAddress2");
    txtPCode = suppliers::postcodeBox(this, "txtPCode");
    txtPhone = suppliers::textBox(this, "txtPhone");
    txtContact = suppliers::textBox(this, "txtContact");
    txtEmail = suppliers::textBox(this, "txtEmail");
    txtFax = suppliers::textBox(this, "txtFax");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    auto* grid = new QGridLayout(this);
    int row = 0;
    auto add = [&](QLabel* label, QWidget* field) {
        if (label) grid->addWidget(label, row, 0);
        grid->addWidget(field, row++, 1);
    };
    add(new QLabel("Town/City", this), txtTown);
    add(new QLabel("Address", this), txtAddress1);
    add(nullptr, txtAddress2);
    lblPCode = new QLabel(core::postcodeCaption(), this);
    lblPCode->setObjectName("lblPCode");
    add(lblPCode, txtPCode);
    add(new QLabel("Phone Number", this), txtPhone);
    add(new QLabel("Contact Name", this), txtContact);
    add(new QLabel("Email Address", this), txtEmail);
    add(new QLabel("Fax Number", this), txtFax);
    grid->addLayout(core::buttonRow({cmdOK, cmdCancel}), row, 0, 1, 2);

    connect(cmdOK, &QPushButton::clicked, this, &frmOffice::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmOffice::load(const suppliers::OfficeText& o) {
    txtTown->setText(o.town);
    txtAddress1->setText(o.address1);
    txtAddress2->setText(o.address2);
    txtPCode->setText(o.pcode);
    txtPhone->setText(o.phone);
    txtContact->setText(o.contact);
    txtEmail->setText(o.email);
    txtFax->setText(o.fax);
    setWindowTitle(suppliers::branchCaption(o.town));
}

suppliers::OfficeText frmOffice::office() const {
    return {txtTown->text(),  txtAddress1->text(), txtAddress2->text(), txtPCode->text(),
            txtPhone->text(), txtContact->text(),  txtEmail->text(),    txtFax->text()};
}

void frmOffice::confirm() {
    if (const QString refusal = suppliers::checkOffice(office()); !refusal.isEmpty()) {
        core::msgbox(refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    if (save && !save(office())) return;
    ok = true;
    accept();
}
