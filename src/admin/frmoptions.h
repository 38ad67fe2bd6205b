#pragma once

#include "loadedrow.h"
#include "options.h"

#include <QWidget>

class DateBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// "Options": the settings of the options row, and the salary increase of every current
// employee. Filled from the session's copies; OK writes the row and the copies.
class frmOptions : public QWidget {
    Q_OBJECT
public:
    explicit frmOptions(QWidget* parent = nullptr);

    QLineEdit* Text1 = nullptr; // days absence before notification
    QLineEdit* Text4 = nullptr; // basic rate tax
    DateBox* Text5 = nullptr;   // PAT testing completed
    QComboBox* Combo1 = nullptr;
    DateBox* Text6 = nullptr; // fire extinguishers tested
    QComboBox* Combo2 = nullptr;
    QLineEdit* Text3 = nullptr; // days without backing up
    QComboBox* Combo3 = nullptr;
    QLineEdit* Text2 = nullptr; // % increase
    QPushButton* cmdUpdate = nullptr;
    QLabel* lblDateHint1 = nullptr;
    QLabel* lblDateHint2 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    // OK: checks, saves and closes; false when a check stopped it.
    bool save();
    // Update Now: asks, then raises every salary; returns the employees raised (0 when
    // nothing was done).
    int updateNow();

private:
    void load();
    void show(const admin::OptionsInput& values);

    // The options row as the screen found it; a save over another user's change is refused.
    core::LoadedRow loaded_;
};
