#pragma once

#include "spreadsheet.h"
#include "xlsx_xml.h"

#include <map>
#include <tuple>

namespace reports {

// The workbook's styles.xml: the template's cell styles stay as they are; a report's bold,
// red fill and red font are appended as new styles derived from the cell's own, each made
// once and reused.
class StyleBook {
public:
    explicit StyleBook(XmlNode styles);

    // The style of a cell whose template style is `base`, with `format` added.
    int derive(int base, CellFormat format);
    QByteArray serialise() const;

private:
    XmlNode& section(const QString& name);
    int appendFont(int baseFont, CellFormat format);
    int redFill();
    static void recount(XmlNode& section);

    XmlNode root_;
    std::map<std::tuple<int, bool, bool, bool>, int> derived_;
    std::map<std::tuple<int, bool, bool>, int> fonts_;
    int redFill_ = -1;
};

} // namespace reports
