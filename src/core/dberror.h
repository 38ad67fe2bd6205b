#pragma once

#include <QString>
#include <stdexcept>

namespace core {

// Screens branch on the kind; the number is what the user sees in the box title.
enum class DbErrorKind { Constraint, LoginRefused, Unreachable, PermissionDenied, Other };

class DbError : public std::runtime_error {
public:
    // The numbers the users and the error log have always known for these failures.
    static constexpr qint64 ConstraintNumber = -2147217873;
    static constexpr qint64 LoginRefusedNumber = -2147217843;
    static constexpr qint64 UnreachableNumber = -2147467259;
    static constexpr qint64 PermissionDeniedNumber = -2147217911;
    static constexpr qint64 CommandFailedNumber = -2147217900;

    DbError(DbErrorKind kind, QString description);
    DbError(DbErrorKind kind, qint64 number, QString description);

    DbErrorKind kind() const { return kind_; }
    qint64 number() const { return number_; }
    const QString& description() const { return description_; }

    static qint64 numberFor(DbErrorKind kind);

private:
    DbErrorKind kind_;
    qint64 number_;
    QString description_;
};

} // namespace core
