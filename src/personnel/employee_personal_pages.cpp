#include "employee_personal_pages.h"

#include "employee_form_kit.h"
#include "employee_rules.h"
#include "messagebox.h"
#include "regional.h"
#include "session.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>

using namespace personnel::form;
using personnel::PersonRecord;

GeneralPage::GeneralPage(QWidget* parent)
    : QWidget(parent) {
    setObjectName("FrameGeneral");
    auto* form = new QFormLayout(this);

    lblPersonnelNumber = label(this, {}, "lblPersonnelNumber");
    cboTitle = combo(this, "cboTitle", {"Mr", "Miss", "Mrs", "Ms", "Doctor", "Prof"});
    txtFname = lineEdit(this, "txtFname");
    txtSurname = lineEdit(this, "txtSurname");
    txtDOB = dateBox(this, "txtDOB");
    lblDateHint = label(this, "DD/MM/YYYY", "lblDateHint");
    txtNINumber = lineEdit(this, "txtNINumber");
    txtNINumber->setInputMask("aa-00-00-00-a;_");
    txtAddress1 = lineEdit(this, "txtAddress1");
    txtAddress2 = lineEdit(this, "txtAddress2");
    txtAddress3 = lineEdit(this, "txtAddress3");
    lblPCode = label(this, "Postcode", "lblPCode");
    txtPCode = lineEdit(this, "txtPCode");
    txtPhone = lineEdit(this, "txtPhone");
    cboMaritalStatus =
        combo(this, "cboMaritalStatus", {"Single", "Married", "Seperated", "Divorced", "Widowed"});
    cboDependants = combo(this, "cboDependants", {"0", "1", "2", "3", "4", "5"});
    txtNationality = lineEdit(this, "txtNationality");
    cboEthOrigin = combo(this, "cboEthOrigin");
    chkFirstAider = new QCheckBox("First Aider", this);
    chkFirstAider->setObjectName("chkFirstAider");
    txtFirstAiderDate = dateBox(this, "txtFirstAiderDate");
    txtFirstAiderDate->setEnabled(false);

    auto* dob = new QHBoxLayout;
    dob->addWidget(txtDOB);
    dob->addWidget(lblDateHint);
    form->addRow("Personnel Number", lblPersonnelNumber);
    form->addRow("Title", cboTitle);
    form->addRow("First Name(s)", txtFname);
    form->addRow("Surname", txtSurname);
    form->addRow("DOB", dob);
    form->addRow("NI Number", txtNINumber);
    form->addRow("Address", txtAddress1);
    form->addRow("", txtAddress2);
    form->addRow("", txtAddress3);
    form->addRow(lblPCode, txtPCode);
    form->addRow("Phone No", txtPhone);
    form->addRow("Marital Status", cboMaritalStatus);
    form->addRow("Dependants", cboDependants);
    form->addRow("Nationality", txtNationality);
    form->addRow("Ethnic origin", cboEthOrigin);
    form->addRow(chkFirstAider);
    form->addRow("Date Qualified", txtFirstAiderDate);

    for (QLineEdit* e : {txtFname, txtSurname, txtPCode})
        e->installEventFilter(this);
    // The box words its own message, and keeps the text for correction.
    txtFirstAiderDate->setInvalidMessage(
        personnel::firstAiderDateMessage(core::session().language));
    connect(chkFirstAider, &QCheckBox::toggled, txtFirstAiderDate, &QWidget::setEnabled);

    if (core::regional::isUS(core::session().language)) {
        lblDateHint->setText("MM/DD/YYYY");
        lblPCode->setText("Zip Code");
    }
}

bool GeneralPage::eventFilter(QObject* watched, QEvent* event) {
    if (!leftForAnotherControl(event)) return QWidget::eventFilter(watched, event);
    if (watched == txtFname || watched == txtSurname) {
        auto* edit = static_cast<QLineEdit*>(watched);
        edit->setText(personnel::capitaliseFirst(edit->text()));
    } else if (watched == txtPCode) {
        txtPCode->setText(txtPCode->text().toUpper());
    }
    return QWidget::eventFilter(watched, event);
}

void GeneralPage::fill(const PersonRecord& r) {
    lblPersonnelNumber->setText(QString::number(r.stored.personId));
    setComboText(cboTitle, r.title);
    txtFname->setText(r.firstnames);
    txtSurname->setText(r.surname);
    txtDOB->setDate(r.dob);
    if (!r.niNumber.trimmed().isEmpty()) txtNINumber->setText(r.niNumber);
    txtAddress1->setText(r.address1);
    txtAddress2->setText(r.address2);
    txtAddress3->setText(r.address3);
    txtPCode->setText(r.postCode);
    txtPhone->setText(r.phone);
    setComboText(cboMaritalStatus, r.maritalStatus);
    setComboText(cboDependants, r.dependents);
    txtNationality->setText(r.nationality);
    setComboText(cboEthOrigin, r.ethOrigin);
    chkFirstAider->setChecked(r.firstAider);
    txtFirstAiderDate->setDate(r.firstAiderDate);
}

void GeneralPage::collect(PersonRecord& r, core::TypedFields& typed) const {
    r.title = cboTitle->currentText();
    r.firstnames = txtFname->text();
    r.surname = txtSurname->text();
    r.dob = typed.date("DOB", txtDOB->text());
    // An empty mask reads as its separators alone.
    QString ni = txtNINumber->text();
    r.niNumber = QString(ni).remove('-').trimmed().isEmpty() ? QString() : ni;
    r.address1 = txtAddress1->text();
    r.address2 = txtAddress2->text();
    r.address3 = txtAddress3->text();
    r.postCode = txtPCode->text();
    r.phone = txtPhone->text();
    r.maritalStatus = cboMaritalStatus->currentText();
    r.dependents = cboDependants->currentText();
    r.nationality = txtNationality->text();
    r.ethOrigin = cboEthOrigin->currentText();
    r.firstAider = chkFirstAider->isChecked();
    if (r.firstAider) r.firstAiderDate = typed.date("Date Qualified", txtFirstAiderDate->text());
}

NextOfKinPage::NextOfKinPage(QWidget* parent)
    : QWidget(parent) {
    setObjectName("FrameNOK");
    auto* row = new QHBoxLayout(this);
    const char* captions[2] = {"1st Next of Kin", "2nd Next of Kin"};
    for (int i = 0; i < 2; ++i) {
        const QString n = QString::number(i + 1);
        auto* box = new QGroupBox(captions[i], this);
        auto* form = new QFormLayout(box);
        txtNOKName[i] = lineEdit(box, "txtNOK" + n + "Name");
        txtNOKRelationship[i] = lineEdit(box, "txtNOK" + n + "Relationship");
        txtNOKAddress[i] = lineEdit(box, "txtNOK" + n + "Address");
        txtNOKHomePh[i] = lineEdit(box, "txtNOK" + n + "HomePh");
        txtNOKMobilePh[i] = lineEdit(box, "txtNOK" + n + "MobilePh");
        form->addRow("Name", txtNOKName[i]);
        form->addRow("Relationship", txtNOKRelationship[i]);
        form->addRow("Address", txtNOKAddress[i]);
        form->addRow("Home phone", txtNOKHomePh[i]);
        form->addRow("Mobile phone", txtNOKMobilePh[i]);
        row->addWidget(box);
    }
}

void NextOfKinPage::fill(const PersonRecord& r) {
    const QString* nok[2][5] = {
        {&r.nok1Name, &r.nok1Relationship, &r.nok1Address, &r.nok1HomePh, &r.nok1MobilePh},
        {&r.nok2Name, &r.nok2Relationship, &r.nok2Address, &r.nok2HomePh, &r.nok2MobilePh}};
    for (int i = 0; i < 2; ++i) {
        txtNOKName[i]->setText(*nok[i][0]);
        txtNOKRelationship[i]->setText(*nok[i][1]);
        txtNOKAddress[i]->setText(*nok[i][2]);
        txtNOKHomePh[i]->setText(*nok[i][3]);
        txtNOKMobilePh[i]->setText(*nok[i][4]);
    }
}

void NextOfKinPage::collect(PersonRecord& r) const {
    QString* nok[2][5] = {
        {&r.nok1Name, &r.nok1Relationship, &r.nok1Address, &r.nok1HomePh, &r.nok1MobilePh},
        {&r.nok2Name, &r.nok2Relationship, &r.nok2Address, &r.nok2HomePh, &r.nok2MobilePh}};
    for (int i = 0; i < 2; ++i) {
        *nok[i][0] = txtNOKName[i]->text();
        *nok[i][1] = txtNOKRelationship[i]->text();
        *nok[i][2] = txtNOKAddress[i]->text();
        *nok[i][3] = txtNOKHomePh[i]->text();
        *nok[i][4] = txtNOKMobilePh[i]->text();
    }
}

BankPage::BankPage(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmBD");
    auto* form = new QFormLayout(this);
    txtBankName = lineEdit(this, "txtBankName");
    txtBankAdd1 = lineEdit(this, "txtBankAdd1");
    txtBankAdd2 = lineEdit(this, "txtBankAdd2");
    txtBankAdd3 = lineEdit(this, "txtBankAdd3");
    lblBankPCode = label(this, "Postcode", "lblBankPCode");
    txtBankPC = lineEdit(this, "txtBankPC");
    txtAccName = lineEdit(this, "txtAccName");
    txtAccNo = lineEdit(this, "txtAccNo");
    txtSortCode = lineEdit(this, "txtSortCode");
    form->addRow("Bank", txtBankName);
    form->addRow("Address", txtBankAdd1);
    form->addRow("", txtBankAdd2);
    form->addRow("", txtBankAdd3);
    form->addRow(lblBankPCode, txtBankPC);
    form->addRow("Account Name", txtAccName);
    form->addRow("Account No", txtAccNo);
    form->addRow("Sort Code", txtSortCode);
    if (core::regional::isUS(core::session().language)) lblBankPCode->setText("Zip Code");
}

void BankPage::fill(const PersonRecord& r) {
    txtBankName->setText(r.bankName);
    txtBankAdd1->setText(r.bankAdd1);
    txtBankAdd2->setText(r.bankAdd2);
    txtBankAdd3->setText(r.bankAdd3);
    txtBankPC->setText(r.bankPc);
    txtAccName->setText(r.accName);
    txtAccNo->setText(r.accNo);
    txtSortCode->setText(r.sortCode);
}

void BankPage::collect(PersonRecord& r) const {
    r.bankName = txtBankName->text();
    r.bankAdd1 = txtBankAdd1->text();
    r.bankAdd2 = txtBankAdd2->text();
    r.bankAdd3 = txtBankAdd3->text();
    r.bankPc = txtBankPC->text();
    r.accName = txtAccName->text();
    r.accNo = txtAccNo->text();
    r.sortCode = txtSortCode->text();
}
