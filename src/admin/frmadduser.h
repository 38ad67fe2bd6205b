#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// "Add User": the login name, the password twice and the user type. OK checks what was typed
// and closes with ok set; the caller adds the login.
class frmAddUser : public QDialog {
    Q_OBJECT
public:
    explicit frmAddUser(QWidget* parent = nullptr);

    bool ok = false;
    // The caption of the type label.
    QString user() const;

    QLineEdit* txtUserName = nullptr;
    QLineEdit* txtPassword = nullptr;
    QLineEdit* txtPasswordCon = nullptr;
    QLabel* combo1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void okClicked();
    void cancelClicked();
};

namespace admin {
// Admin, Security, Add User: the dialog, then the login and its users row, all or nothing.
void runAddUser(QWidget* parent);
} // namespace admin
