#pragma once

#include "supplier_record.h"

#include <QDialog>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

// "Other Offices": one branch office of a supplier.
class frmOffice : public QDialog {
    Q_OBJECT
public:
    explicit frmOffice(QWidget* parent = nullptr);

    // Fills the boxes from a saved branch; the caption becomes "{town} Branch".
    void load(const suppliers::OfficeText& office);
    suppliers::OfficeText office() const;

    bool ok = false;
    // When set, OK writes through it once the checks pass, and the dialog stays open, with
    // what was typed, when it returns false.
    std::function<bool(const suppliers::OfficeText&)> save;

    QLineEdit* txtTown = nullptr;
    QLineEdit* txtAddress1 = nullptr;
    QLineEdit* txtAddress2 = nullptr;
    QLabel* lblPCode = nullptr;
    QLineEdit* txtPCode = nullptr;
    QLineEdit* txtPhone = nullptr;
    QLineEdit* txtContact = nullptr;
    QLineEdit* txtEmail = nullptr;
    QLineEdit* txtFax = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
