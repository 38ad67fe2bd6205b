#include "application.h"

#include "failure.h"

#include <exception>

bool QuillorneApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        core::reportFailure(e);
    } catch (...) {
        core::reportFailure(std::runtime_error("Unexpected failure"));
    }
    return false;
}
