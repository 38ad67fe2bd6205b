#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// "Contact Info": whom to call about an asset under its warranty.
class frmContact : public QDialog {
    Q_OBJECT
public:
    explicit frmContact(QWidget* parent = nullptr);

    // Each blank text shows "Not Known".
    void fill(const QString& contactNo, const QString& invoiceNo, const QString& warrantyRef);

    QLineEdit* txtContact = nullptr;
    QLineEdit* txtInvoice = nullptr;
    QLineEdit* txtWarrantyRef = nullptr;
    QPushButton* cmdOK = nullptr;
};
