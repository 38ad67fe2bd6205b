#include "dberror.h"

namespace core {

DbError::DbError(DbErrorKind kind, QString description)
    : DbError(kind, numberFor(kind), std::move(description)) {}

namespace {
// A box with no text tells the user nothing: a failure always says something.
QString nonEmpty(QString description, qint64 number) {
    if (!description.trimmed().isEmpty()) return description;
    return QStringLiteral("The database reported failure %1 without a description").arg(number);
}
} // namespace

DbError::DbError(DbErrorKind kind, qint64 number, QString description)
    : std::runtime_error(nonEmpty(description, number).toStdString())
    , kind_(kind)
    , number_(number)
    , description_(nonEmpty(std::move(description), number)) {}

qint64 DbError::numberFor(DbErrorKind kind) {
    switch (kind) {
    case DbErrorKind::Constraint:
        return ConstraintNumber;
    case DbErrorKind::LoginRefused:
        return LoginRefusedNumber;
    case DbErrorKind::Unreachable:
        return UnreachableNumber;
    case DbErrorKind::PermissionDenied:
        return PermissionDeniedNumber;
    case DbErrorKind::Other:
        break;
    }
    return CommandFailedNumber;
}

} // namespace core
