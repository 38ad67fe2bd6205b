#pragma once

#include <QApplication>

// A failure that escapes a command is shown and logged; the program goes on.
class QuillorneApplication : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};
