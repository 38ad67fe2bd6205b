#pragma once

#include <QDialog>
#include <vector>

class QLineEdit;
class QPushButton;
class RecordList;

// "New Service": the name of a service to add to the shared list.
class newservice : public QDialog {
    Q_OBJECT
public:
    explicit newservice(QWidget* parent = nullptr);

    bool ok = false;
    QLineEdit* txtService = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};

// "Select services provided": picks services for a supplier, and keeps the shared list.
class frmServices : public QDialog {
    Q_OBJECT
public:
    explicit frmServices(QWidget* parent = nullptr);

    // Set by "Select" and by a double click on a row; "Exit" leaves it unset.
    bool ok = false;
    // The selected services, in list order.
    std::vector<qint64> selectedIds() const;

    void newService();
    void select();
    void deleteService();

    RecordList* lstServices = nullptr;
    QPushButton* cmdNew = nullptr;
    QPushButton* cmdSelect = nullptr;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdExit = nullptr;
};
