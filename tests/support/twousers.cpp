#include "twousers.h"

namespace testsupport {

QVariant StoredRow::value(core::Db& db, const QString& column) const {
    // The names are the tests' own; only the key is a value.
    return db.scalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, table, key),
                     {id});
}

int StoredRow::rowsInTable(core::Db& db) const {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)).toInt();
}

bool TwoUsers::refusedAsChanged(const QString& noun) const {
    return firstBox().startsWith(
        QStringLiteral("This %1 has been changed by another user since you opened it. Your "
                       "changes have not been saved.")
            .arg(noun));
}

} // namespace testsupport
