#include "frmcontact.h"

#include "callassets.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

QLineEdit* readOnlyBox(QWidget* parent, const char* name) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setReadOnly(true);
    return box;
}

} // namespace

frmContact::frmContact(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmContact");
    setWindowTitle("Contact Info");
    txtContact = readOnlyBox(this, "txtContact");
    txtInvoice = readOnlyBox(this, "txtInvoice");
    txtWarrantyRef = readOnlyBox(this, "txtWarrantyRef");
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
