#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;

// "Add Peripheral": a peripheral of the computer screen other than a printer, scanner or
// monitor. The caller stores it.
class frmPeripheral : public QDialog {
    Q_OBJECT
public:
    explicit frmPeripheral(QWidget* parent = nullptr);

    bool ok() const { return ok_; }

    QComboBox* cboType = nullptr;
    QLineEdit* txtAssetNo = nullptr;
    QLineEdit* txtSerialNo = nullptr;
    QLineEdit* txtManufacturer = nullptr;
    QLineEdit* txtModel = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    bool ok_ = false;
};
