#include "spreadsheet.h"

#include "installation.h"
#include "ownerfiles.h"
#include "xlsx_package.h"
#include "xlsx_sheet.h"
#include "xlsx_styles.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

namespace reports {

// ---- Sheet ---------------------------------------------------------------------------------

Cell& Sheet::at(int row, int column) {
    std::vector<Cell>& cells = rows_[row];
    for (Cell& c : cells)
        if (c.column == column) return c;
    cells.push_back(Cell{column, Cell::Empty, {}, {}});
    return cells.back();
}

const Cell* Sheet::cell(int row, int column) const {
    const auto r = rows_.find(row);
    if (r == rows_.end()) return nullptr;
    for (const Cell& c : r->second)
        if (c.column == column) return &c;
    return nullptr;
}

void Sheet::setText(int row, int column, const QString& text, CellFormat format) {
    Cell& c = at(row, column);
    c.kind = Cell::Text;
    c.value = text;
    c.format = format;
}

void Sheet::setNumber(int row, int column, const QString& number, CellFormat format) {
    Cell& c = at(row, column);
    c.kind = Cell::Number;
    c.value = number;
    c.format = format;
}

void Sheet::setNumber(int row, int column, qint64 number, CellFormat format) {
    setNumber(row, column, QString::number(number), format);
}

namespace {

// Plain decimal text as a spreadsheet reads it: an optional minus, digits, an optional point.
bool isPlainDecimal(const QString& text) {
    static const QRegularExpression plain(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?$"));
    return plain.match(text).hasMatch();
}

// "30000.5000" -> "30000.5": the same number, as a person would write it.
QString trimDecimal(QString text) {
    if (!text.contains('.')) return text;
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text;
}

} // namespace

void Sheet::setValue(int row, int column, const QVariant& value, CellFormat format) {
    if (value.isNull() || !value.isValid()) {
        Cell& c = at(row, column);
        c.kind = Cell::Empty;
        c.value.clear();
        c.format = format;
        return;
    }
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        setNumber(row, column, value.toString(), format);
        return;
    case QMetaType::Double:
    case QMetaType::Float:
        setNumber(row, column, QString::number(value.toDouble(), 'g', 15), format);
        return;
    default:
        break;
    }
    // Numeric columns come from the drivers as text ("30000.0000"); they stay numbers.
    const QString text = value.toString();
    if (value.typeId() != QMetaType::QString && isPlainDecimal(text))
        setNumber(row, column, trimDecimal(text), format);
    else
        setText(row, column, text, format);
}

void Sheet::addFormat(int row, int column, CellFormat format) {
    Cell& c = at(row, column);
    c.format.bold |= format.bold;
    c.format.redFill |= format.redFill;
    c.format.redFont |= format.redFont;
}

// ---- The workbook --------------------------------------------------------------------------

namespace {

const QString RelsNamespaceEnd = QStringLiteral("/relationships/");

// The part a relationship points at, from a part in `folder` ("xl").
QString resolve(const QString& folder, const QString& target) {
    if (target.startsWith('/')) return target.mid(1);
    return QDir::cleanPath(folder + "/" + target);
}

QString relationType(const XmlNode& rel) {
    const QString type = rel.attribute("Type");
    return type.mid(type.lastIndexOf('/') + 1);
}

QString idAttribute(const XmlNode& node) {
    for (const auto& [n, v] : node.attributes)
        if (n.endsWith(":id")) return v;
    return {};
}

QByteArray& requiredPart(Package& package, const QString& name, const QString& source) {
    QByteArray* bytes = package.part(name);
    if (!bytes)
        throw SpreadsheetError(QStringLiteral("the template %1 has no part %2").arg(source, name));
    return *bytes;
}

// Turns the template into a workbook: its content type becomes a workbook's, the formula
// calculation chain goes (the spreadsheet program rebuilds it), and the first sheet and the
// styles are filled.
void fillPackage(Package& package, const Sheet& sheet, const QString& source,
                 const Progress& progress) {
    XmlNode types =
        parseXml(requiredPart(package, "[Content_Types].xml", source), "[Content_Types].xml");
    XmlNode workbook = parseXml(requiredPart(package, "xl/workbook.xml", source), "workbook");
    XmlNode rels = parseXml(requiredPart(package, "xl/_rels/workbook.xml.rels", source),
                            "workbook relationships");

    const XmlNode* sheets = workbook.child("sheets");
    if (!sheets || sheets->children.empty())
        throw SpreadsheetError(QStringLiteral("the template %1 has no sheet").arg(source));
    const QString sheetId = idAttribute(sheets->children.front());
    QString sheetPart, stylesPart;
    for (const XmlNode& rel : rels.children) {
        if (rel.attribute("Id") == sheetId) sheetPart = resolve("xl", rel.attribute("Target"));
        if (relationType(rel) == "styles") stylesPart = resolve("xl", rel.attribute("Target"));
    }
    std::erase_if(rels.children, [&](const XmlNode& rel) {
        if (relationType(rel) != "calcChain") return false;
        package.removePart(resolve("xl", rel.attribute("Target")));
        return true;
    });
    if (sheetPart.isEmpty())
        throw SpreadsheetError(QStringLiteral("the template %1 has no first sheet").arg(source));
    if (stylesPart.isEmpty()) {
        stylesPart = "xl/styles.xml";
        package.setPart(stylesPart, *blankPackage().part("xl/styles.xml"));
        XmlNode rel;
        rel.name = "Relationship";
        rel.attributes = {{"Id", "rIdQuillorneStyles"},
                          {"Type", "http://schemas.openxmlformats.org/officeDocument/2006/"
                                   "relationships/styles"},
                          {"Target", "/xl/styles.xml"}};
        rels.children.push_back(rel);
        XmlNode type;
        type.name = "Override";
        type.attributes = {{"PartName", "/xl/styles.xml"},
                           {"ContentType", "application/vnd.openxmlformats-officedocument."
                                           "spreadsheetml.styles+xml"}};
        types.children.push_back(type);
    }
    std::erase_if(types.children, [&](const XmlNode& t) {
        const QString part = t.attribute("PartName").mid(1);
        return t.name == "Override" && !part.isEmpty() && !package.part(part);
    });
    for (XmlNode& t : types.children)
        if (t.attribute("ContentType").endsWith(".template.main+xml"))
            t.setAttribute("ContentType", "application/vnd.openxmlformats-officedocument."
                                          "spreadsheetml.sheet.main+xml");

    StyleBook styles(parseXml(requiredPart(package, stylesPart, source), "styles"));
    QByteArray filled =
        fillWorksheet(requiredPart(package, sheetPart, source), sheet, styles, progress);
    package.setPart(sheetPart, std::move(filled));
    package.setPart(stylesPart, styles.serialise());
    package.setPart("[Content_Types].xml", serialise(types));
    package.setPart("xl/_rels/workbook.xml.rels", serialise(rels));
}

// Exports hold names and salaries: only their owner may read them. A missing folder is made
// owner-only; the user's own documents folder keeps the permissions the user gave it.
void ensureFolder(const QString& folder) {
    if (QFileInfo(folder).isDir()) return;
    QString why;
    if (!core::makeOwnerFolder(folder, &why))
        throw SpreadsheetError(
            QStringLiteral("the folder %1 cannot be created (%2)").arg(folder, why));
}

} // namespace

void writeWorkbook(const Sheet& sheet, const QString& templateFile, const QString& target,
                   const Progress& progress) {
    Package package = templateFile.isEmpty() ? blankPackage() : readPackage(templateFile);
    fillPackage(package, sheet, templateFile.isEmpty() ? QStringLiteral("(new)") : templateFile,
                progress);
    const QByteArray bytes = zipPackage(package);

    ensureFolder(QFileInfo(target).absolutePath());
    const SpreadsheetError exists(QStringLiteral("%1 already exists").arg(target));
    if (QFileInfo::exists(target)) throw exists;
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        throw SpreadsheetError(
            QStringLiteral("%1 cannot be written (%2)").arg(target, file.errorString()));
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    if (file.write(bytes) != bytes.size()) {
        const QString why = file.errorString();
        file.cancelWriting();
        throw SpreadsheetError(QStringLiteral("%1 cannot be written (%2)").arg(target, why));
    }
    // Another program may have made the file meanwhile; it is never replaced.
    if (QFileInfo::exists(target)) {
        file.cancelWriting();
        throw exists;
    }
    if (!file.commit())
        throw SpreadsheetError(
            QStringLiteral("%1 cannot be written (%2)").arg(target, file.errorString()));
    core::restrictToOwner(target);
}

QString freeFileName(const QString& folder, const QString& baseName) {
    // A name may not smuggle in a folder.
    QString name = baseName;
    name.replace('/', '-');
    QString path = QDir(folder).filePath(name + ".xlsx");
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = QDir(folder).filePath(QStringLiteral("%1 (%2).xlsx").arg(name).arg(n));
    return path;
}

QString templatePath(const QString& fileName) {
    return core::templatePath(fileName);
}

namespace {
QString& folderOverride() {
    static QString folder;
    return folder;
}
SpreadsheetOpener& opener() {
    static SpreadsheetOpener o;
    return o;
}
} // namespace

QString exportFolder() {
    if (!folderOverride().isEmpty()) return folderOverride();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return documents.isEmpty() ? QDir::homePath() : documents;
}

void setExportFolder(const QString& folder) {
    folderOverride() = folder;
}

void setSpreadsheetOpener(SpreadsheetOpener o) {
    opener() = std::move(o);
}

bool openSpreadsheet(const QString& path) {
    if (opener()) return opener()(path);
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace reports
