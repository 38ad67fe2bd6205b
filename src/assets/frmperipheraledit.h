#pragma once

#include "invoices.h"

#include <QDialog>

class DateBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace assets {
class InvoiceFields;
class SupplierFields;
} // namespace assets

// The edit screen of a printer, scanner or monitor: one screen, its type deciding the fields
// that only it has ("Printer Type" and "IP Address/Server" of printers, "Monitor Size" in
// place of "Location" of monitors).
class PeripheralEdit : public QDialog {
    Q_OBJECT
public:
    // type: "Printer", "Scanner" or "Monitor".
    PeripheralEdit(const QString& type, QWidget* parent = nullptr);

    void load(qint64 id);
    // OK: checks, then writes. True when written.
    bool save();

    const QString& type() const { return type_; }
    qint64 peripheralId() const { return peripheralId_; }

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtManufacturer = nullptr;
    QLineEdit* txtModel = nullptr;
    QLineEdit* txtSerialNo = nullptr;
    QLineEdit* txtAssetNo = nullptr;
    QLineEdit* txtLocation = nullptr;    // printers and scanners
    QLineEdit* txtSize = nullptr;        // monitors
    QComboBox* cboPrinterType = nullptr; // printers
    QLineEdit* txtIPAddress = nullptr;   // printers
    QComboBox* cboAssignedTo = nullptr;
    DateBox* txtDateReceived = nullptr;
    QLineEdit* txtWarrantyLength = nullptr;
    QLineEdit* txtContactNo = nullptr;
    QLineEdit* txtRefNo = nullptr;
    assets::InvoiceFields* invoice = nullptr;
    assets::SupplierFields* supplier = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void printerTypePicked(const QString& printerType, bool moveFocus);

    QString type_;
    bool new_ = true;
    qint64 peripheralId_ = 0;
    qint64 invoiceId_ = 0;
    qint64 loadedComputer_ = 0;
    assets::LoadedAsset loaded_;
};

// "Add Printer" / "Edit Printer".
class frmprinter : public PeripheralEdit {
    Q_OBJECT
public:
    explicit frmprinter(QWidget* parent = nullptr)
        : PeripheralEdit("Printer", parent) {}
};

// "Add Scanner" / "Edit Scanner".
class frmScanner : public PeripheralEdit {
    Q_OBJECT
public:
    explicit frmScanner(QWidget* parent = nullptr)
        : PeripheralEdit("Scanner", parent) {}
};

// "Add Monitor" / "Edit Monitor".
class frmMonitor : public PeripheralEdit {
    Q_OBJECT
public:
    explicit frmMonitor(QWidget* parent = nullptr)
        : PeripheralEdit("Monitor", parent) {}
};

// The edit screen of a type: "Printer", "Scanner" or "Monitor".
PeripheralEdit* newPeripheralEdit(const QString& type);
