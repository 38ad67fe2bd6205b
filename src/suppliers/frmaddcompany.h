#pragma once

#include "directory.h"

#include <QDialog>

class QLineEdit;
class QPushButton;

// "Add Company": a company in the directory, with the person to ask for there.
class frmAddCompany : public QDialog {
    Q_OBJECT
public:
    explicit frmAddCompany(QWidget* parent = nullptr);

    // Fills the boxes from a saved company and turns the caption to "Edit Company".
    void load(const suppliers::CompanyContact& contact);
    suppliers::CompanyContact contact() const;

    bool ok = false;
    bool isdirty = false;

    QLineEdit* txtCompany = nullptr;
    QLineEdit* txtContact = nullptr;
    QLineEdit* txtPhone = nullptr;
    QLineEdit* txtEmail = nullptr;
    QLineEdit* txtFax = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
