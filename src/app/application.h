#pragma once

#include <QApplication>

// A failure that escapes a command is shown and logged; the program goes on.
class QuillorneApplication : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};

// The program's name, version and icon, which every window and dialog shows, and the desktop
// entry it belongs to.
void setApplicationIdentity();
