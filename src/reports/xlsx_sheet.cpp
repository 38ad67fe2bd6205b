#include "xlsx_sheet.h"

#include <QXmlStreamWriter>
#include <algorithm>
#include <climits>
#include <set>

namespace reports {

QString columnName(int column) {
    QString name;
    while (column > 0) {
        const int rest = (column - 1) % 26;
        name.prepend(QChar('A' + rest));
        column = (column - 1) / 26;
    }
    return name;
}

int columnOfReference(const QString& reference) {
    int column = 0;
    for (const QChar c : reference) {
        if (c >= 'A' && c <= 'Z')
            column = column * 26 + (c.unicode() - 'A' + 1);
        else if (c >= 'a' && c <= 'z')
            column = column * 26 + (c.unicode() - 'a' + 1);
        else
            break;
    }
    return column;
}

namespace {

// Styles of whole columns and rows, which a new cell takes as its own so that a template
// restyled by column keeps its look.
struct BaseStyles {
    std::vector<std::tuple<int, int, int>> columns; // min, max, style

    int forCell(int column, const XmlNode* row) const {
        for (const auto& [min, max, style] : columns)
            if (column >= min && column <= max) return style;
        if (row && row->attribute("customFormat") == "1") return row->attribute("s").toInt();
        return 0;
    }
};

class SheetWriter {
public:
    SheetWriter(const Sheet& sheet, StyleBook& styles, const BaseStyles& base,
                const Progress& progress)
        : sheet_(sheet)
        , styles_(styles)
        , base_(base)
        , progress_(progress) {}

    void writeSheetData(QXmlStreamWriter& out, const XmlNode& sheetData) {
        std::map<int, const XmlNode*> templateRows;
        for (const XmlNode& row : sheetData.children)
            if (row.name == "row") templateRows[row.attribute("r").toInt()] = &row;
        out.writeStartElement(sheetData.name);
        for (const auto& [n, v] : sheetData.attributes)
            out.writeAttribute(n, v);
        auto ours = sheet_.rows().begin();
        auto theirs = templateRows.begin();
        while (ours != sheet_.rows().end() || theirs != templateRows.end()) {
            if (theirs == templateRows.end() ||
                (ours != sheet_.rows().end() && ours->first < theirs->first)) {
                writeRow(out, ours->first, nullptr, &ours->second);
                ++ours;
                tick();
            } else if (ours == sheet_.rows().end() || theirs->first < ours->first) {
                writeNode(out, *theirs->second);
                ++theirs;
            } else {
                writeRow(out, ours->first, theirs->second, &ours->second);
                ++ours;
                ++theirs;
                tick();
            }
        }
        out.writeEndElement();
    }

private:
    void tick() {
        if (progress_ && ++written_ % 1000 == 0) progress_(written_, int(sheet_.rows().size()));
    }

    void writeRow(QXmlStreamWriter& out, int r, const XmlNode* templateRow,
                  const std::vector<Cell>* cells) {
        out.writeStartElement("row");
        out.writeAttribute("r", QString::number(r));
        if (templateRow)
            for (const auto& [n, v] : templateRow->attributes)
                if (n != "r" && n != "spans") out.writeAttribute(n, v);
        // The report's cells by column, the last one written to a column winning.
        std::map<int, const Cell*> mine;
        for (const Cell& c : *cells)
            mine[c.column] = &c;
        std::map<int, const XmlNode*> existing;
        if (templateRow)
            for (const XmlNode& c : templateRow->children)
                if (c.name == "c") existing[columnOfReference(c.attribute("r"))] = &c;
        std::set<int> columns;
        for (const auto& [col, c] : mine)
            columns.insert(col);
        for (const auto& [col, c] : existing)
            columns.insert(col);
        for (int col : columns) {
            const auto m = mine.find(col);
            const auto e = existing.find(col);
            if (m == mine.end()) {
                writeNode(out, *e->second);
                continue;
            }
            const int base = e != existing.end() ? e->second->attribute("s").toInt()
                                                 : base_.forCell(col, templateRow);
            writeCell(out, r, *m->second, styles_.derive(base, m->second->format));
        }
        out.writeEndElement();
    }

    static void writeCell(QXmlStreamWriter& out, int r, const Cell& c, int style) {
        const QString ref = columnName(c.column) + QString::number(r);
        if (c.kind == Cell::Empty || (c.kind == Cell::Text && c.value.isEmpty())) {
            out.writeEmptyElement("c");
            out.writeAttribute("r", ref);
            if (style) out.writeAttribute("s", QString::number(style));
            return;
        }
        out.writeStartElement("c");
        out.writeAttribute("r", ref);
        if (style) out.writeAttribute("s", QString::number(style));
        if (c.kind == Cell::Number) {
            out.writeTextElement("v", c.value);
        } else {
            out.writeAttribute("t", "inlineStr");
            out.writeStartElement("is");
            out.writeStartElement("t");
            const QString text = xmlSafe(c.value);
            if (text != text.trimmed()) out.writeAttribute("xml:space", "preserve");
            out.writeCharacters(text);
            out.writeEndElement();
            out.writeEndElement();
        }
        out.writeEndElement();
    }

    const Sheet& sheet_;
    StyleBook& styles_;
    const BaseStyles& base_;
    const Progress& progress_;
    int written_ = 0;
};

// The used range after the report's cells are in, for the sheet's dimension.
QString usedRange(const XmlNode& sheetData, const Sheet& sheet) {
    int maxRow = 0, maxCol = 0;
    int minRow = INT_MAX, minCol = INT_MAX;
    auto take = [&](int r, int c) {
        maxRow = std::max(maxRow, r);
        minRow = std::min(minRow, r);
        maxCol = std::max(maxCol, c);
        minCol = std::min(minCol, c);
    };
    for (const XmlNode& row : sheetData.children)
        for (const XmlNode& c : row.children)
            if (c.name == "c")
                take(row.attribute("r").toInt(), columnOfReference(c.attribute("r")));
    for (const auto& [r, cells] : sheet.rows())
        for (const Cell& c : cells)
            take(r, c.column);
    if (maxRow == 0) return QStringLiteral("A1");
    return columnName(minCol) + QString::number(minRow) + ":" + columnName(maxCol) +
           QString::number(maxRow);
}

} // namespace

QByteArray fillWorksheet(const QByteArray& templateSheet, const Sheet& sheet, StyleBook& styles,
                         const Progress& progress) {
    XmlNode root = parseXml(templateSheet, QStringLiteral("worksheet"));
    if (!root.child("sheetData")) {
        // sheetData follows the sheet's format and columns, before everything else.
        XmlNode data;
        data.name = "sheetData";
        auto at = root.children.begin();
        while (at != root.children.end() &&
               QStringList{"sheetPr", "dimension", "sheetViews", "sheetFormatPr", "cols"}.contains(
                   at->name))
            ++at;
        root.children.insert(at, std::move(data));
    }
    BaseStyles base;
    if (const XmlNode* cols = root.child("cols"))
        for (const XmlNode& col : cols->children)
            if (!col.attribute("style").isEmpty())
                base.columns.emplace_back(col.attribute("min").toInt(),
                                          col.attribute("max").toInt(),
                                          col.attribute("style").toInt());
    const XmlNode& sheetData = *root.child("sheetData");
    if (XmlNode* dimension = root.child("dimension"))
        dimension->setAttribute("ref", usedRange(sheetData, sheet));
    SheetWriter writer(sheet, styles, base, progress);
    return serialise(root, [&](QXmlStreamWriter& out, const XmlNode& node) {
        if (node.name != "sheetData") return false;
        writer.writeSheetData(out, node);
        return true;
    });
}

} // namespace reports
