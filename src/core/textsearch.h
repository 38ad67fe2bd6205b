#pragma once

#include <QString>

namespace core {

// Type-ahead searches: a column that begins with what was typed, ignoring case on both
// backends, with "%", "_" and "\" in the typed text matched as themselves. Put
// startsWith(column) in the statement and bind startsWithPattern(typed) to it.
QString startsWith(const QString& column);
QString startsWithPattern(const QString& typed);

} // namespace core
