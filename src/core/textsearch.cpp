#include "textsearch.h"

#include "db.h"

namespace core {

// The backslash is named as the escape on both backends: PostgreSQL would otherwise take it
// as its own, and SQLite knows none.
QString startsWith(const QString& column) {
    return Db::ciLike(column) + " ESCAPE '\\'";
}

QString startsWithPattern(const QString& typed) {
    QString escaped;
    escaped.reserve(typed.size() + 1);
    for (const QChar c : typed) {
        if (c == '\\' || c == '%' || c == '_') escaped += '\\';
        escaped += c;
    }
    return escaped + '%';
}

} // namespace core
