#pragma once

#include "spreadsheet.h"

#include <QString>

class QWidget;

namespace reports {

// Saves a report's cells as a new "{baseName}.xlsx" in the export folder (a free name, never
// over an existing file), filled into the named template from the config folder or, with no
// template, into a new workbook; shows progress while writing, then hands the file to the
// desktop's spreadsheet program. A failure shows "The spreadsheet could not be written:
// {reason}" and leaves no file. Returns the file written, or "" on failure.
QString exportSpreadsheet(const Sheet& sheet, const QString& templateName, const QString& baseName,
                          QWidget* parent = nullptr);

} // namespace reports
