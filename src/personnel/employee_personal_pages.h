#pragma once

#include "person_record.h"

#include <QWidget>

class DateBox;
class EmployeeFormContext;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

// The controls of each page by their names; the employee screen shows them under the same
// names.
struct GeneralControls {
    QLabel* lblPersonnelNumber = nullptr;
    QComboBox* cboTitle = nullptr;
    QLineEdit* txtFname = nullptr;
    QLineEdit* txtSurname = nullptr;
    DateBox* txtDOB = nullptr;
    QLineEdit* txtNINumber = nullptr;
    QLineEdit* txtAddress1 = nullptr;
    QLineEdit* txtAddress2 = nullptr;
    QLineEdit* txtAddress3 = nullptr;
    QLabel* lblPCode = nullptr;
    QLineEdit* txtPCode = nullptr;
    QLineEdit* txtPhone = nullptr;
    QComboBox* cboMaritalStatus = nullptr;
    QComboBox* cboDependants = nullptr;
    QLineEdit* txtNationality = nullptr;
    QComboBox* cboEthOrigin = nullptr;
    QCheckBox* chkFirstAider = nullptr;
    DateBox* txtFirstAiderDate = nullptr;
    QLabel* lblDateHint = nullptr;
};

struct NextOfKinControls {
    // [0] first, [1] second
    QLineEdit* txtNOKName[2] = {};
    QLineEdit* txtNOKRelationship[2] = {};
    QLineEdit* txtNOKAddress[2] = {};
    QLineEdit* txtNOKHomePh[2] = {};
    QLineEdit* txtNOKMobilePh[2] = {};
};

struct BankControls {
    QLineEdit* txtBankName = nullptr;
    QLineEdit* txtBankAdd1 = nullptr;
    QLineEdit* txtBankAdd2 = nullptr;
    QLineEdit* txtBankAdd3 = nullptr;
    QLabel* lblBankPCode = nullptr;
    QLineEdit* txtBankPC = nullptr;
    QLineEdit* txtAccName = nullptr;
    QLineEdit* txtAccNo = nullptr;
    QLineEdit* txtSortCode = nullptr;
};

// "General": name, birth, address and the first-aider qualification.
class GeneralPage : public QWidget, public GeneralControls {
    Q_OBJECT
public:
    explicit GeneralPage(QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r, core::TypedFields& typed) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// "Next Of Kin": two people to call.
class NextOfKinPage : public QWidget, public NextOfKinControls {
    Q_OBJECT
public:
    explicit NextOfKinPage(QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r) const;
};

// "Bank Details": where the salary goes.
class BankPage : public QWidget, public BankControls {
    Q_OBJECT
public:
    explicit BankPage(QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r) const;
};
