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
    QString what = QString::fromUtf8(error.what()).trimmed();
    if (what.isEmpty() || what == QLatin1String("std::exception"))
        what = QStringLiteral("An unexpected failure ended the command");
    reportFailure(DbError(DbErrorKind::Other, what), caption, parent);
}

} // namespace core
