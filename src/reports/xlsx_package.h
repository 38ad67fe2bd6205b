#pragma once

#include <QByteArray>
#include <QString>
#include <utility>
#include <vector>

namespace reports {

// The parts of a workbook's zip, in the order they were read.
struct Package {
    std::vector<std::pair<QString, QByteArray>> parts;

    QByteArray* part(const QString& name);
    void setPart(const QString& name, QByteArray bytes);
    void removePart(const QString& name);
};

// Reads every part of a workbook or template; throws SpreadsheetError naming the file.
Package readPackage(const QString& path);
// The parts of a new workbook with one empty sheet.
Package blankPackage();
// The zip of the parts, in memory, so that the file is written in one step.
QByteArray zipPackage(const Package& package);

} // namespace reports
