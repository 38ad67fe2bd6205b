#pragma once

#include "selectionlist.h"

#include <QWidget>
#include <functional>

class QPushButton;
class RecordList;

// The one selection list that picks a company to edit, and deletes companies, departments,
// locations, positions, suppliers and users. Its mode is its title.
class companieslist : public QWidget {
    Q_OBJECT
public:
    explicit companieslist(QWidget* parent = nullptr);

    void load(const QString& filter);
    void loadall(const QString& orderColumn, const QString& keyColumn, const QString& table);
    void loadUsers();
    bool deletecompany = false;

    // OK and a double click.
    void ok();

    // The supplier screen registers how to open a supplier for editing.
    static void setSupplierEditor(std::function<void(qint64 supplierId)> editor);

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void fill(const std::vector<selectionlist::Row>& rows);
    void deleteSelected(const selectionlist::Mode& mode, qint64 id, const QString& name);
    void deleteUser(const QString& name);
};

// "Company Search": a name to look for, then the list of companies that begin with it.
class frmcsearch : public QWidget {
    Q_OBJECT
public:
    explicit frmcsearch(QWidget* parent = nullptr);
    void search();

    class QLineEdit* txtCompany = nullptr;
    QPushButton* cmdSearch = nullptr;
    QPushButton* cmdCancel = nullptr;
};
