#pragma once

#include "absence_records.h"

#include <QDialog>

class DateBox;
class QComboBox;
class QLineEdit;
class QPushButton;

// "Absence": one absence's dates, days, reason and notes.
class frmabsence : public QDialog {
    Q_OBJECT
public:
    explicit frmabsence(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    void loadReasons(const QStringList& reasons);
    void setRow(const personnel::AbsenceRow& row);
    personnel::AbsenceEntry entry() const;

    DateBox* txtStartDate = nullptr;
    DateBox* txtEndDate = nullptr;
    QLineEdit* txtDays = nullptr;
    QComboBox* cboReason = nullptr;
    QLineEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
