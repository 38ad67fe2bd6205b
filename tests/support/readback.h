#pragma once

#include <QMap>
#include <QString>

namespace testsupport {

// One cell as an independent reader (python3-openpyxl) sees it.
struct ReadCell {
    QString type; // "n" number, "s" text, "e" empty
    QString value;
    bool bold = false;
    QString fill;   // RGB of a solid fill, "-" for none
    QString colour; // RGB of the font, "-" for none
};

struct ReadBook {
    bool ok = false;
    QString error;
    bool isTemplate = false;
    QMap<QString, ReadCell> cells; // by reference, "B3"
};

// Reads the first sheet of a workbook through tests/support/readback.py.
ReadBook readWorkbook(const QString& path);

} // namespace testsupport
