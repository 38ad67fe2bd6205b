#pragma once

class QPushButton;
class QWidget;

namespace core {

// What every screen of the program does with the keyboard, dialogs and the screens in the main
// window's area alike: Enter presses the button that has the focus, else the default button;
// Esc presses Cancel (or Exit); Tab goes through the controls as the layout shows them
// (taborder.h). A disabled or hidden button is not pressed. Text boxes of
// several lines keep Enter for a new line, lists open their highlighted row on Enter
// (RecordList), and open drop-downs and calendars keep Esc for closing themselves.
// Either button may be null: that key then does nothing on the screen. The default button is
// drawn as such.
void setScreenButtons(QWidget* screen, QPushButton* defaultButton, QPushButton* cancelButton);

} // namespace core
