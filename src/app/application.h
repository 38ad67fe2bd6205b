#pragma once

#include <QApplication>

// A failure that escapes a command is shown and logged; the program goes on. Files the program
// makes are its user's alone, and text boxes take no control characters.
class QuillorneApplication : public QApplication {
public:
    QuillorneApplication(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

// The program's name, version and icon, which every window and dialog shows, and the desktop
// entry it belongs to.
void setApplicationIdentity();
