#pragma once

#include "employee_lists.h"

#include <QDialog>

class DateBox;
class QPlainTextEdit;
class QPushButton;

// "Add note": a dated note about the employee.
class frmNotes : public QDialog {
    Q_OBJECT
public:
    explicit frmNotes(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    personnel::NoteFields fields() const;
    // Fills the boxes from a list row's texts, as shown.
    void setTexts(const QString& date, const QString& notes);

    DateBox* txtDate = nullptr;
    QPlainTextEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
