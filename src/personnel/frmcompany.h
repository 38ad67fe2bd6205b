#pragma once

#include "loadedrow.h"

#include <QPointer>
#include <QWidget>
#include <map>

class QLineEdit;
class QPushButton;

// One screen for a new company and for editing one.
class frmCompany : public QWidget {
    Q_OBJECT
public:
    explicit frmCompany(QWidget* parent = nullptr);

    // Fills the boxes from the company and turns the screen to its edit state.
    void load(qint64 companyId);

    // Child mode: the employee screen (an OrgOwner) that opened this one.
    QPointer<QWidget> addpos;
    bool ischild = false;

    bool isEditing() const { return companyId_ != 0; }
    qint64 companyId() const { return companyId_; }
    QLineEdit* box(const char* name) const;

    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void ok();

    std::map<QString, QLineEdit*> boxes_;
    qint64 companyId_ = 0;
    core::LoadedRow loaded_; // the row as loaded, for the save's check
};
