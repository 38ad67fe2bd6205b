#pragma once

#include "employee_lists.h"

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// "Add Document": a file kept with the employee's record, by its path.
class frmAddDoc : public QDialog {
    Q_OBJECT
public:
    explicit frmAddDoc(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    personnel::DocumentFields fields() const;
    void setFields(const personnel::DocumentFields& fields);

    QLineEdit* txtDescription = nullptr;
    QLineEdit* txtLocation = nullptr;
    QPushButton* cmdBrowse = nullptr;
    QPlainTextEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void browse();
    void confirm();
};
