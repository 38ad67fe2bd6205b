#pragma once

#include <QDialog>

class DateBox;
class QLabel;
class QLineEdit;
class QPushButton;

// One petty cash entry: date, amount and reason, for adding, removing and editing. The caller
// sets the caption and the fields, shows it, and reads ok() and dirty() afterwards.
class frmFunds : public QDialog {
    Q_OBJECT
public:
    explicit frmFunds(QWidget* parent = nullptr);

    // Set by OK once the entry has passed its checks.
    bool ok() const { return ok_; }
    // Set by any change of a field, the caller's filling in included.
    bool dirty() const { return dirty_; }

    DateBox* txtDate = nullptr;
    QLabel* lblAmount = nullptr;
    QLineEdit* txtAmount = nullptr;
    QLineEdit* txtReason = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();

    bool ok_ = false;
    bool dirty_ = false;
};
