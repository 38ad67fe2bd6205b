#pragma once

#include "organisation.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

// The small screens that add a department, a location or a position.
class frmLookupEntry : public QWidget {
    Q_OBJECT
public:
    frmLookupEntry(const organisation::LookupList& list, QWidget* parent = nullptr);

    // Child mode: the employee screen (an OrgOwner) that opened this one.
    QPointer<QWidget> addpos;
    bool ischild = false;

    QLineEdit* txtName = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdCancel = nullptr;
    const organisation::LookupList& list() const { return list_; }

private:
    void add();
    const organisation::LookupList& list_;
};

class frmDept : public frmLookupEntry {
    Q_OBJECT
public:
    explicit frmDept(QWidget* parent = nullptr)
        : frmLookupEntry(organisation::Departments, parent) {}
};

class frmLocation : public frmLookupEntry {
    Q_OBJECT
public:
    explicit frmLocation(QWidget* parent = nullptr)
        : frmLookupEntry(organisation::Locations, parent) {}
};

class frmPosition : public frmLookupEntry {
    Q_OBJECT
public:
    explicit frmPosition(QWidget* parent = nullptr)
        : frmLookupEntry(organisation::Positions, parent) {}
};
