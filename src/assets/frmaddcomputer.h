#pragma once

#include "computers.h"

#include <QDialog>
#include <vector>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class RecordList;

namespace assets {
class InvoiceFields;
}

// "Add Computer" / "Edit computer": who uses a computer, what it is, its software and
// peripherals, its warranty and invoice.
class frmaddcomputer : public QDialog {
    Q_OBJECT
public:
    explicit frmaddcomputer(QWidget* parent = nullptr);

    void NewComp(bool flag) { new_ = flag; }
    bool isNew() const { return new_; }
    void load(qint64 id);
    // Writes the computer, its invoice and the peripherals not yet stored; no checks.
    bool save();
    qint64 computerId() const { return computerId_; }

    // Cancel, Esc and closing the window: a new computer that "Add Software" had to store
    // first is taken back with all that came with it.
    void reject() override;

    QTabWidget* SSTab1 = nullptr;
    QComboBox* cboUser = nullptr;
    QLineEdit* txtComputerName = nullptr;
    QLineEdit* txtManufacturer = nullptr;
    QLineEdit* txtModel = nullptr;
    QLineEdit* txtSerialNumber = nullptr;
    QLineEdit* txtAssetNumber = nullptr;
    QLineEdit* txtRam = nullptr;
    QLineEdit* txtHardDrive = nullptr;
    RecordList* lstSoftware = nullptr;
    QPushButton* cmdAddSoftware = nullptr;
    QPushButton* cmdRemoveSoftware = nullptr;
    RecordList* lstPeripherals = nullptr;
    QPushButton* cmdAddPeripheral = nullptr;
    QPushButton* cmdDeletePeripheral = nullptr;
    QLineEdit* txtWarrantyLength = nullptr;
    QLineEdit* txtContactNo = nullptr;
    QLineEdit* txtRefNo = nullptr;
    QPlainTextEdit* txtNotes = nullptr;
    assets::InvoiceFields* invoice = nullptr;
    QComboBox* cboSupplier = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    assets::ComputerText screenText() const;
    bool passesChecks();
    void ok();
    void addSoftware();
    void removeSoftware();
    void addPeripheral();
    void deletePeripheral();
    void showSoftware(const std::vector<assets::ListRow>& rows);
    void showPeripherals();

    bool new_ = false;
    bool savedEarly_ = false; // a new computer stored by "Add Software", not yet confirmed
    qint64 computerId_ = 0;
    qint64 invoiceId_ = 0;
    qint64 loadedOwner_ = 0;
    std::vector<assets::ComputerPeripheral> peripherals_;
    assets::LoadedAsset loaded_;
};
