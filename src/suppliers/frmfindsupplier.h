#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTabWidget;
class RecordList;

// "Find Supplier": finds a supplier by name or by a service it provides, and opens it.
class frmFindSupplier : public QWidget {
    Q_OBJECT
public:
    explicit frmFindSupplier(QWidget* parent = nullptr);

    // Lists every supplier and offers every service.
    void load();
    void searchByName();
    void searchByService();
    // "View" and a double click: the supplier of the selected row, in its own screen.
    void view();

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* txtCompany = nullptr;
    RecordList* ListView1 = nullptr;
    QComboBox* cboService = nullptr;
    QLineEdit* txtCompany2 = nullptr;
    RecordList* ListView2 = nullptr;
    QPushButton* cmdView = nullptr;
    QPushButton* cmdClose = nullptr;
};
