#pragma once

#include <QString>
#include <initializer_list>

class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QWidget;

namespace core {

// A named button, the screen's default one when asked (Enter presses it).
QPushButton* makeButton(QWidget* parent, const QString& caption, const QString& objectName,
                        bool isDefault = false);
// The buttons at the foot of a screen, to the right.
QHBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons);

// A dialog's layout: one caption and field a row (captions of multi-line fields at the top),
// then its buttons.
struct FormRow {
    QString caption;
    QWidget* field;
};
void formLayout(QWidget* dialog, std::initializer_list<FormRow> rows,
                std::initializer_list<QPushButton*> buttons);

// A named box that shows a value the user may copy but not change.
QLineEdit* readOnlyBox(QWidget* parent, const QString& objectName);

// Lets only digits, the point and backspace be typed into the box (see isnumerickey); keys
// that type nothing (arrows, Tab, Enter) pass as ever.
void numericKeysOnly(QLineEdit* edit);

} // namespace core
