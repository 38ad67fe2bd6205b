#pragma once

#include <QDialog>
#include <QStringList>

class QLabel;
class QPushButton;
class QWidget;

// The product's name with the installation's version and revision.
class frmAbout : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* parent = nullptr);

    QLabel* lblTitle = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblRevision = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdSysInfo = nullptr;

    // "&System Info...": the machine's facts, or a box saying that there are none.
    void showSystemInfo();
};

// The machine's facts as the program can learn them, one "name: value" line each; empty when
// none can be had.
QStringList systemFacts();

// Shows the facts in the read-only "System Information" dialog (frmSystemInfo), or, with no
// facts, the box "System Information Is Unavailable At This Time".
void showSystemFacts(const QStringList& facts, QWidget* parent = nullptr);
