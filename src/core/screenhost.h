#pragma once

#include <functional>

class QWidget;

namespace core {

// Screens open other screens through here, without knowing the main window: it registers
// itself as the host and shows each one as a window of its own area. With no host (tests,
// the console) a screen is shown as a top-level window. The host takes ownership.
void showScreen(QWidget* screen);

// A screen the one beneath waits for (an organisation entry made from inside a record): a
// window of its own over `over`, modal, so the record cannot change or close under it.
void showModalScreen(QWidget* screen, QWidget* over);

// Marks a screen that puts itself at the top left of the main window's area when it opens.
void placeTopLeft(QWidget* screen);
bool wantsTopLeft(const QWidget* screen);

using ScreenHost = std::function<void(QWidget*)>;
void setScreenHost(ScreenHost host);

} // namespace core
