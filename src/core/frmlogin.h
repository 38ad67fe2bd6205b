#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace core {

// The login dialog. It hides rather than closes, so a wrong password brings it back with what
// was typed and with its Restore Mode choice as it was.
class frmLogin : public QDialog {
    Q_OBJECT
public:
    explicit frmLogin(QWidget* parent = nullptr);

    QString username() const;
    QString Password() const;
    bool logout = false;  // left by Cancel
    bool restore = false; // Restore Mode was ticked at OK

    QLineEdit* txtUserName = nullptr;
    QLineEdit* txtPassword = nullptr;
    QCheckBox* Check1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    // A click on any label ticks Restore Mode; it never unticks it.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ok();
    void cancel();
};

} // namespace core
