#include "xlsx_styles.h"

namespace reports {

namespace {

// The order of a style sheet's sections; a missing one is made in its place.
const QStringList SectionOrder = {"numFmts",      "fonts",   "fills",      "borders",
                                  "cellStyleXfs", "cellXfs", "cellStyles", "dxfs",
                                  "tableStyles",  "colors",  "extLst"};

const QString Red = QStringLiteral("FFFF0000");

XmlNode element(const QString& name, std::vector<std::pair<QString, QString>> attributes = {}) {
    XmlNode n;
    n.name = name;
    n.attributes = std::move(attributes);
    return n;
}

} // namespace

StyleBook::StyleBook(XmlNode styles)
    : root_(std::move(styles)) {
    // Spreadsheet programs expect the first two fills to be these.
    XmlNode& fills = section("fills");
    if (fills.children.empty()) {
        for (const char* pattern : {"none", "gray125"}) {
            XmlNode fill = element("fill");
            fill.children.push_back(element("patternFill", {{"patternType", pattern}}));
            fills.children.push_back(std::move(fill));
        }
        recount(fills);
    }
    XmlNode& fonts = section("fonts");
    if (fonts.children.empty()) {
        XmlNode font = element("font");
        font.children.push_back(element("sz", {{"val", "11"}}));
        font.children.push_back(element("name", {{"val", "Calibri"}}));
        fonts.children.push_back(std::move(font));
        recount(fonts);
    }
    XmlNode& xfs = section("cellXfs");
    if (xfs.children.empty()) {
        xfs.children.push_back(element("xf", {{"numFmtId", "0"},
                                              {"fontId", "0"},
                                              {"fillId", "0"},
                                              {"borderId", "0"},
                                              {"xfId", "0"}}));
        recount(xfs);
    }
}

XmlNode& StyleBook::section(const QString& name) {
    if (XmlNode* found = root_.child(name)) return *found;
    const int rank = SectionOrder.indexOf(name);
    auto at = root_.children.begin();
    while (at != root_.children.end() && SectionOrder.indexOf(at->name) >= 0 &&
           SectionOrder.indexOf(at->name) < rank)
        ++at;
    return *root_.children.insert(at, element(name, {{"count", "0"}}));
}

void StyleBook::recount(XmlNode& section) {
    section.setAttribute("count", QString::number(section.children.size()));
}

int StyleBook::appendFont(int baseFont, CellFormat format) {
    const auto key = std::make_tuple(baseFont, format.bold, format.redFont);
    if (auto it = fonts_.find(key); it != fonts_.end()) return it->second;
    XmlNode& fonts = section("fonts");
    XmlNode font = baseFont >= 0 && baseFont < int(fonts.children.size()) ? fonts.children[baseFont]
                                                                          : element("font");
    if (format.bold && !font.child("b")) font.children.insert(font.children.begin(), element("b"));
    if (format.redFont) {
        std::erase_if(font.children, [](const XmlNode& c) { return c.name == "color"; });
        font.children.push_back(element("color", {{"rgb", Red}}));
    }
    fonts.children.push_back(std::move(font));
    recount(fonts);
    const int id = int(fonts.children.size()) - 1;
    fonts_[key] = id;
    return id;
}

int StyleBook::redFill() {
    if (redFill_ >= 0) return redFill_;
    XmlNode& fills = section("fills");
    XmlNode pattern = element("patternFill", {{"patternType", "solid"}});
    pattern.children.push_back(element("fgColor", {{"rgb", Red}}));
    pattern.children.push_back(element("bgColor", {{"indexed", "64"}}));
    XmlNode fill = element("fill");
    fill.children.push_back(std::move(pattern));
    fills.children.push_back(std::move(fill));
    recount(fills);
    redFill_ = int(fills.children.size()) - 1;
    return redFill_;
}

int StyleBook::derive(int base, CellFormat format) {
    if (!format.any()) return base;
    const auto key = std::make_tuple(base, format.bold, format.redFill, format.redFont);
    if (auto it = derived_.find(key); it != derived_.end()) return it->second;
    XmlNode xf;
    {
        const XmlNode& xfs = section("cellXfs");
        xf = base >= 0 && base < int(xfs.children.size()) ? xfs.children[base] : xfs.children[0];
    }
    if (format.bold || format.redFont) {
        xf.setAttribute("fontId",
                        QString::number(appendFont(xf.attribute("fontId").toInt(), format)));
        xf.setAttribute("applyFont", "1");
    }
    if (format.redFill) {
        xf.setAttribute("fillId", QString::number(redFill()));
        xf.setAttribute("applyFill", "1");
    }
    XmlNode& xfs = section("cellXfs");
    xfs.children.push_back(std::move(xf));
    recount(xfs);
    const int id = int(xfs.children.size()) - 1;
    derived_[key] = id;
    return id;
}

QByteArray StyleBook::serialise() const {
    return reports::serialise(root_);
}

} // namespace reports
