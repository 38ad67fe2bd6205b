#pragma once

#include "employee_lists.h"

#include <QDialog>

class DateBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// "Appraisal": the date, the appraising manager, the rating and notes.
class frmappraisal : public QDialog {
    Q_OBJECT
public:
    explicit frmappraisal(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    // Fills the manager list; leavers and deleted managers stay in it, so that old
    // appraisals keep showing who made them.
    void loadManagers(const personnel::ComboEntries& managers);

    personnel::AppraisalFields fields() const;
    // Fills the boxes from a list row's texts: date, manager, rating, notes.
    void setTexts(const QStringList& cells);

    DateBox* txtDate = nullptr;
    QComboBox* cboManager = nullptr;
    QLineEdit* txtRating = nullptr;
    QPlainTextEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
