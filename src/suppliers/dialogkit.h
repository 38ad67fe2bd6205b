#pragma once

#include <QString>

class QDialog;
class QLineEdit;
class QWidget;

// Small pieces the supplier and directory dialogs share.
namespace suppliers {

// A named text box.
QLineEdit* textBox(QWidget* parent, const char* objectName);
// A postcode box: upper case once the user leaves it.
QLineEdit* postcodeBox(QWidget* parent, const char* objectName);
// Sets the flag once anything is typed in one of the dialog's text boxes.
void watchDirty(QDialog* dialog, bool& flag);
// Opens a mail to the address with the desktop's mail program; says so when none starts.
void openMail(const QString& address, QWidget* parent);

} // namespace suppliers
