#pragma once

#include <QString>

namespace core {

// Appends "{date} {time} {number} {description} {caption}" to log/errlog.txt in the data folder.
void logerror(qint64 number, const QString& description, const QString& caption);

// The error log's path.
QString errorLogPath();

} // namespace core
