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

    QString username() const; // trimmed
    QString Password() const; // exactly as typed: spaces belong to a password
    bool logout = false;      // left by Cancel
    bool restore = false;     // Restore Mode was ticked at OK

    QLineEdit* txtUserName = nullptr;
    QLineEdit* txtPassword = nullptr;
    QCheckBox* Check1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    // A click on any label ticks Restore Mode; it never unticks it.
    bool eventFilter(QObject* watched, QEvent* event) override;
    // Esc and the title bar's close button are Cancel: they never sign in.
    void reject() override;

private:
    void ok();
    void cancel();
};

} // namespace core
