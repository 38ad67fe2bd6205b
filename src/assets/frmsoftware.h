#pragma once

#include "invoices.h"

#include <QDialog>

class QLineEdit;
class QPushButton;
class QTabWidget;

namespace assets {
class InvoiceFields;
class SupplierFields;
} // namespace assets

// "Add software" / "Edit Software": one product of the catalogue with its invoice and supplier.
class frmsoftware : public QDialog {
    Q_OBJECT
public:
    explicit frmsoftware(QWidget* parent = nullptr);

    // Fills the screen with a stored product; the screen then edits it.
    void load(qint64 id);
    // OK: checks, then writes. True when written.
    bool save();

    bool ok() const { return ok_; }
    qint64 softwareID() const { return softwareId_; }

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtManufacturer = nullptr;
    QLineEdit* txtProduct = nullptr;
    QLineEdit* txtVersion = nullptr;
    QLineEdit* txtLicenses = nullptr;
    assets::InvoiceFields* invoice = nullptr;
    assets::SupplierFields* supplier = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    bool ok_ = false;
    bool new_ = true;
    qint64 softwareId_ = 0;
    qint64 invoiceId_ = 0;
    assets::LoadedAsset loaded_;
};
