#include "dberror.h"

namespace core {

DbError::DbError(DbErrorKind kind, QString description)
    : DbError(kind, numberFor(kind), std::move(description)) {}

DbError::DbError(DbErrorKind kind, qint64 number, QString description)
    : std::runtime_error(description.toStdString())
    , kind_(kind)
    , number_(number)
    , description_(std::move(description)) {}

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
