#pragma once

#include "supplier_record.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class RecordList;
class frmTelDir;

// "Add Supplier" ("View/Edit Supplier details" when opened on a saved one): a supplier's head
// address, the services it provides and its branch offices. Services and offices are written
// the moment they are added or removed; OK writes the head address.
class frmaddsupplier : public QWidget {
    Q_OBJECT
public:
    explicit frmaddsupplier(QWidget* parent = nullptr);

    void load(qint64 supplierId);
    // The directory that waits for the result, and which of its lists the supplier was
    // opened from: "listview2", "listview4", or "" for a new one.
    void addpos(const QString& position, frmTelDir* parent);
    bool ischild = false;

    bool isnew = true;     // until the supplier's row exists
    qint64 supplierid = 0; // 0 until then
    suppliers::SupplierText supplier() const;

    void ok();
    void addService();
    void removeService();
    void addOffice();
    void viewOffice();
    void removeOffice();

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtName = nullptr;
    QLineEdit* txtAddress1 = nullptr;
    QLineEdit* txtAddress2 = nullptr;
    QLineEdit* txtAddress3 = nullptr;
    QLabel* lblPCode = nullptr;
    QLineEdit* txtPCode = nullptr;
    QLineEdit* txtPhone = nullptr;
    QLineEdit* txtContact = nullptr;
    QLineEdit* txtEmail = nullptr;
    QLineEdit* txtFax = nullptr;
    RecordList* lstServices = nullptr;
    QPushButton* cmdAddService = nullptr;
    QPushButton* cmdRemoveService = nullptr;
    RecordList* lstOffices = nullptr;
    QPushButton* cmdAddOffice = nullptr;
    QPushButton* cmdRemoveOffice = nullptr;
    QPushButton* cmdViewOffice = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

protected:
    // A supplier that "Add" saved early goes again, with its services and offices, unless OK
    // kept it.
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* generalPage();
    QWidget* servicesPage();
    QWidget* officesPage();
    // Saves a new supplier before a service or office is added to it; false when it has no
    // name yet (the user is told) or the save failed.
    bool ensureSaved();

    QString position_;
    QPointer<frmTelDir> directory_;
    bool savedEarly_ = false;
    bool kept_ = false;
    core::LoadedRow loaded_;
};
