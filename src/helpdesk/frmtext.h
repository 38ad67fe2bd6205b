#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

// "Add Note": what was done on a call, in the user's words. There is no Cancel: the action is
// already chosen.
class frmText : public QDialog {
    Q_OBJECT
public:
    explicit frmText(QWidget* parent = nullptr);

    // Starts the note with the text, the caret at its end.
    void start(const QString& text);
    QString note() const;

    qint64 CallID = 0;
    QString Status;

    QPlainTextEdit* txtNote = nullptr;
    QPushButton* cmdOK = nullptr;
};
