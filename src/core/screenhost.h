#pragma once

#include <functional>

class QWidget;

namespace core {

// Screens open other screens through here, without knowing the main window: it registers
// itself as the host and shows each one as a window of its own area. With no host (tests,
// the console) a screen is shown as a top-level window. The host takes ownership.
void showScreen(QWidget* screen);

// Marks a screen that puts itself at the top left of the main window's area when it opens.
void placeTopLeft(QWidget* screen);
bool wantsTopLeft(const QWidget* screen);

using ScreenHost = std::function<void(QWidget*)>;
void setScreenHost(ScreenHost host);

} // namespace core
