#pragma once

#include <QDialog>

class QPushButton;
class RecordList;

// "Select Computer": every computer, from which one is opened for editing.
class frmCompSrch : public QDialog {
    Q_OBJECT
public:
    explicit frmCompSrch(QWidget* parent = nullptr);

    void load();
    // OK and a double click.
    void ok();

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};
