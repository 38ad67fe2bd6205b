#pragma once

#include "dberror.h"

#include <QString>
#include <exception>

class QWidget;

namespace core {

// Shows a failed statement the way every command does (the driver's description under the
// title "Error Code : {number}") and writes it to the error log. The program goes on.
void reportFailure(const DbError& error, const QString& caption = {}, QWidget* parent = nullptr);
void reportFailure(const std::exception& error, const QString& caption = {},
                   QWidget* parent = nullptr);

// Runs a command; a failure is reported and the command ends there. Returns false on failure.
template <class F> bool guarded(const QString& caption, F&& command, QWidget* parent = nullptr) {
    try {
        command();
        return true;
    } catch (const DbError& e) {
        reportFailure(e, caption, parent);
    } catch (const std::exception& e) {
        reportFailure(e, caption, parent);
    }
    return false;
}

} // namespace core
