#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

// The product's name with the installation's version and revision.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    QLabel* lblVersion = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdSysInfo = nullptr;

    void showSystemInfo();
};

// The machine's facts as Qt knows them; empty when none can be had.
QStringList systemFacts();
