#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;

// "Update call": finds a call by its number, or the calls of a caller. The two boxes exclude
// each other: typing a number blanks the caller, going to the caller blanks the number.
class frmCallUpdate : public QDialog {
    Q_OBJECT
public:
    explicit frmCallUpdate(QWidget* parent = nullptr);

    // Opens the call, or the caller's list, as a screen of its own and closes this one; says
    // why when there is nothing to open.
    void search();

    QLineEdit* txtJobNo = nullptr;
    QComboBox* cboCaller = nullptr;
    QPushButton* cmdSearch = nullptr;
    QPushButton* cmdCancel = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
