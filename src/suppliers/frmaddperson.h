#pragma once

#include "directory.h"

#include <QDialog>
#include <functional>

class QLineEdit;
class QPushButton;

// "Add Person" (captioned "Edit Person" for a saved one): a person in the directory.
class frmAddPerson : public QDialog {
    Q_OBJECT
public:
    explicit frmAddPerson(QWidget* parent = nullptr);

    // Fills the boxes from a contact and turns the caption to "Edit Person".
    void load(const suppliers::PersonContact& contact);
    suppliers::PersonContact contact() const;

    bool ok = false; // set by OK with a name and a phone
    // When set, OK writes through it once the checks pass, and the dialog stays open, with
    // what was typed, when it returns false.
    std::function<bool(const suppliers::PersonContact&)> save;
    bool isdirty = false; // set once anything has been typed

    QLineEdit* txtFirstName = nullptr;
    QLineEdit* txtSurname = nullptr;
    QLineEdit* txtPhone = nullptr;
    QLineEdit* txtFax = nullptr;
    QLineEdit* txtEmail = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdEmail = nullptr;

private:
    void confirm();
    void email();
};
