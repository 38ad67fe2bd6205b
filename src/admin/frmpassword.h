#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// "Change Password" for the signed-in user: the old password, the new one twice.
class frmpassword : public QDialog {
    Q_OBJECT
public:
    explicit frmpassword(QWidget* parent = nullptr);

    bool ok = false;

    QLabel* lblUsername = nullptr; // filled by the caller with the login name
    QLineEdit* txtOldPassword = nullptr;
    QLineEdit* txtNewPassword = nullptr;
    QLineEdit* txtConfirmPassword = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void okClicked();
    void cancelClicked();
};

namespace admin {
// Admin, Security, Change Password: the server checks the old password; the new one counts
// from the next login.
void runChangePassword(QWidget* parent);
} // namespace admin
