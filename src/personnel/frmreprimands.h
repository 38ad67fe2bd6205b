#pragma once

#include "employee_lists.h"

#include <QDialog>

class DateBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// "Add Reprimand": the date, the action taken, its reason and notes.
class frmReprimands : public QDialog {
    Q_OBJECT
public:
    explicit frmReprimands(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    personnel::ReprimandFields fields() const;
    // Fills the boxes from a list row's texts: date, action, reason, notes.
    void setTexts(const QStringList& cells);

    DateBox* txtDate = nullptr;
    QLineEdit* txtAction = nullptr;
    QLineEdit* txtReason = nullptr;
    QPlainTextEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
