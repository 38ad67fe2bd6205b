#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;

// "Add Software": browses the catalogue by manufacturer, product and version, and adds new
// products through "Add new software".
class frmAddSoftware : public QDialog {
    Q_OBJECT
public:
    explicit frmAddSoftware(QWidget* parent = nullptr);

    // Reads the manufacturers again, the other two lists emptied.
    void loadman();

    bool ok() const { return ok_; }
    qint64 softwareID() const { return softwareId_; }

    QComboBox* cboManufacturer = nullptr;
    QComboBox* cboProduct = nullptr;
    QComboBox* cboVersion = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdAddNew = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void manufacturerPicked(int index);
    void productPicked(int index);
    void confirm();
    void addNew();

    bool ok_ = false;
    qint64 softwareId_ = 0;
};
