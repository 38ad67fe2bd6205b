#pragma once

#include "software.h"

#include <QDialog>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// "Add Licenses": licences bought for a product are added to its pool.
class frmLicense : public QDialog {
    Q_OBJECT
public:
    explicit frmLicense(QWidget* parent = nullptr);

    // OK: true when the licences were added.
    bool save();

    QComboBox* cboSoftware = nullptr;
    QLabel* lblTotal = nullptr;
    QLabel* lblAvailable = nullptr;
    QLineEdit* txtAdd = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void showFigures(int index);
    std::vector<assets::PoolEntry> pool_;
};
