#include "failure.h"

#include "errorlog.h"
#include "messagebox.h"

namespace core {

void reportFailure(const DbError& error, const QString& caption, QWidget* parent) {
    logerror(error.number(), error.description(), caption);
    msgbox(error.description(), QStringLiteral("Error Code : %1").arg(error.number()),
           MsgButtons::Ok, MsgIcon::None, parent);
}

void reportFailure(const std::exception& error, const QString& caption, QWidget* parent) {
    if (auto db = dynamic_cast<const DbError*>(&error)) {
        reportFailure(*db, caption, parent);
        return;
    }
    reportFailure(DbError(DbErrorKind::Other, QString::fromUtf8(error.what())), caption, parent);
}

} // namespace core
