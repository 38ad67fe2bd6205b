#pragma once

#include "xlsx_xml.h"

#include <QString>
#include <QVariant>
#include <functional>
#include <map>
#include <vector>

// The one way the program writes spreadsheets: the cells of a report are collected in a
// Sheet, then written into a copy of a template workbook from the config folder (or into a
// new, empty workbook) and saved as a new .xlsx file.
namespace reports {

// What a report adds to a cell's look; the rest of the look is the template's.
struct CellFormat {
    bool bold = false;
    bool redFill = false;
    bool redFont = false;
    bool any() const { return bold || redFill || redFont; }
    friend bool operator==(const CellFormat&, const CellFormat&) = default;
};

struct Cell {
    enum Kind { Empty, Text, Number };
    int column = 0;
    Kind kind = Empty;
    QString value; // the text, or the number in plain decimal form ("-12.5")
    CellFormat format;
};

// The cells of the first sheet, 1-based rows and columns as a spreadsheet counts them.
class Sheet {
public:
    void setText(int row, int column, const QString& text, CellFormat format = {});
    // A number written as a number; `number` is plain decimal text ("30000.5", "-3").
    void setNumber(int row, int column, const QString& number, CellFormat format = {});
    void setNumber(int row, int column, qint64 number, CellFormat format = {});
    // Null gives an empty cell; integers, decimals and money-like numbers become numbers;
    // everything else its text.
    void setValue(int row, int column, const QVariant& value, CellFormat format = {});
    // Adds to the look of a cell, keeping what it holds.
    void addFormat(int row, int column, CellFormat format);

    // The cell written at row/column, or null.
    const Cell* cell(int row, int column) const;
    const std::map<int, std::vector<Cell>>& rows() const { return rows_; }
    bool isEmpty() const { return rows_.empty(); }

private:
    Cell& at(int row, int column);
    std::map<int, std::vector<Cell>> rows_; // each row's cells in the order written
};

// Writes the sheet into a copy of the template (or, for an empty templatePath, a new
// workbook) and saves it whole as target, owner-only; an existing target is never replaced.
// Throws SpreadsheetError with a reason naming the file.
// `progress` hears of the rows written (done, total).
using Progress = std::function<void(int done, int total)>;
void writeWorkbook(const Sheet& sheet, const QString& templatePath, const QString& target,
                   const Progress& progress = {});

// "{folder}/{baseName}.xlsx", or "{baseName} (2).xlsx" and so on when that file exists.
QString freeFileName(const QString& folder, const QString& baseName);

// Where a template shipped with the program lives ("sickness.xltx"): see core::templatePath.
QString templatePath(const QString& fileName);

// Exports land in the user's documents folder; tests point them elsewhere.
QString exportFolder();
void setExportFolder(const QString& folder);

// Hands a written file to the desktop's spreadsheet program; false when nothing opens it.
// Tests install their own opener.
using SpreadsheetOpener = std::function<bool(const QString& path)>;
void setSpreadsheetOpener(SpreadsheetOpener opener);
bool openSpreadsheet(const QString& path);

} // namespace reports
