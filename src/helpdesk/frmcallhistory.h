#pragma once

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// "Call History": one row of a call's history, read only.
class frmCallHistory : public QDialog {
    Q_OBJECT
public:
    explicit frmCallHistory(QWidget* parent = nullptr);

    // Shows the history row; false when it is not there.
    bool load(qint64 historyId);

    QLineEdit* txtDate = nullptr;
    QLineEdit* txtTime = nullptr;
    QLineEdit* txtStatus = nullptr;
    QPlainTextEdit* txtAction = nullptr;
    QPushButton* cmdOK = nullptr;
};
