#pragma once

#include "job_history.h"

#include <QDialog>

class DateBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// "Job History": one period of an employee's posts, by hand.
class frmJobHistory : public QDialog {
    Q_OBJECT
public:
    explicit frmJobHistory(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    // The positions of the drop-down, in their list order.
    void loadPositions(const QStringList& names);
    // Fills the boxes from a period of the list; an open period fills "Date from" only.
    void setPeriod(const personnel::JobPeriod& period);
    personnel::JobHistoryEntry entry() const;

    DateBox* txtDateFrom = nullptr;
    DateBox* txtDateTo = nullptr;
    QComboBox* cboPosition = nullptr;
    QLabel* lblMoneySign = nullptr;
    QLineEdit* txtSalary = nullptr;
    QLineEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
