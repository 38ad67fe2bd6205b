#pragma once

#include "spreadsheet.h"
#include "xlsx_styles.h"

#include <QByteArray>

namespace reports {

// "A", "B", ... "Z", "AA" for 1-based columns; 0 for a reference that names no column.
QString columnName(int column);
int columnOfReference(const QString& reference);

// Writes the report's cells into a worksheet part: the template's own cells, rows, columns
// and everything around them stay; a cell the report writes replaces the template's cell,
// keeping its style under the report's format.
QByteArray fillWorksheet(const QByteArray& templateSheet, const Sheet& sheet, StyleBook& styles,
                         const Progress& progress = {});

} // namespace reports
