#pragma once

#include "directory.h"

#include <QDialog>
#include <functional>

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
    // When set, OK writes through it once the checks pass, and the dialog stays open, with
    // what was typed, when it returns false.
    std::function<bool(const suppliers::CompanyContact&)> save;
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
