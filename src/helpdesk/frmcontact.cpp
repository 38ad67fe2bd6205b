#include "frmcontact.h"

#include "callassets.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>

frmContact::frmContact(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmContact");
    setWindowTitle("Contact Info");
    txtContact = core::readOnlyBox(this, "txtContact");
    txtInvoice = core::readOnlyBox(this, "txtInvoice");
    txtWarrantyRef = core::readOnlyBox(this, "txtWarrantyRef");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    core::formLayout(this,
                     {{"Contact Number", txtContact},
                      {"Invoice Number", txtInvoice},
                      {"Warranty Ref No", txtWarrantyRef}},
                     {cmdOK});
    core::setScreenButtons(this, cmdOK, cmdOK);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmContact::fill(const QString& contactNo, const QString& invoiceNo,
                      const QString& warrantyRef) {
    txtContact->setText(helpdesk::knownOrNot(contactNo));
    txtInvoice->setText(helpdesk::knownOrNot(invoiceNo));
    txtWarrantyRef->setText(helpdesk::knownOrNot(warrantyRef));
}
