#include "xlsx_package.h"

#include "xlsx_xml.h"

#include <QBuffer>
#include <QFileInfo>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>
#include <zlib.h>

namespace reports {

QByteArray* Package::part(const QString& name) {
    for (auto& [n, bytes] : parts)
        if (n == name) return &bytes;
    return nullptr;
}

void Package::setPart(const QString& name, QByteArray bytes) {
    if (QByteArray* existing = part(name))
        *existing = std::move(bytes);
    else
        parts.emplace_back(name, std::move(bytes));
}

void Package::removePart(const QString& name) {
    std::erase_if(parts, [&](const auto& p) { return p.first == name; });
}

Package readPackage(const QString& path) {
    if (!QFileInfo::exists(path))
        throw SpreadsheetError(QStringLiteral("the template %1 does not exist").arg(path));
    QuaZip zip(path);
    if (!zip.open(QuaZip::mdUnzip))
        throw SpreadsheetError(
            QStringLiteral("the template %1 cannot be opened as a workbook (zip error %2)")
                .arg(path)
                .arg(zip.getZipError()));
    Package package;
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        QuaZipFile file(&zip);
        if (!file.open(QIODevice::ReadOnly))
            throw SpreadsheetError(QStringLiteral("the template %1 is damaged (zip error %2)")
                                       .arg(path)
                                       .arg(file.getZipError()));
        const QString name = file.getActualFileName();
        QByteArray bytes = file.readAll();
        file.close();
        if (file.getZipError() != UNZ_OK)
            throw SpreadsheetError(
                QStringLiteral("the template %1 is damaged in %2").arg(path, name));
        package.parts.emplace_back(name, std::move(bytes));
    }
    if (zip.getZipError() != UNZ_OK)
        throw SpreadsheetError(QStringLiteral("the template %1 is damaged").arg(path));
    return package;
}

Package blankPackage() {
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
    const QByteArray main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
    const QByteArray rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    const QByteArray ct = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
    Package p;
    p.setPart("[Content_Types].xml",
              head +
                  "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                  "<Default Extension=\"rels\" "
                  "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                  "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
                  "<Override PartName=\"/xl/workbook.xml\" ContentType=\"" +
                  ct +
                  "sheet.main+xml\"/>"
                  "<Override PartName=\"/xl/worksheets/sheet1.xml\" ContentType=\"" +
                  ct +
                  "worksheet+xml\"/>"
                  "<Override PartName=\"/xl/styles.xml\" ContentType=\"" +
                  ct + "styles+xml\"/></Types>");
    p.setPart("_rels/.rels",
              head +
                  "<Relationships "
                  "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                  "<Relationship Id=\"rId1\" Type=\"" +
                  rel + "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>");
    p.setPart("xl/workbook.xml", head + "<workbook xmlns=\"" + main + "\" xmlns:r=\"" + rel +
                                     "\"><sheets><sheet name=\"Sheet1\" sheetId=\"1\" "
                                     "r:id=\"rId1\"/></sheets></workbook>");
    p.setPart("xl/_rels/workbook.xml.rels",
              head +
                  "<Relationships "
                  "xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                  "<Relationship Id=\"rId1\" Type=\"" +
                  rel +
                  "/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
                  "<Relationship Id=\"rId2\" Type=\"" +
                  rel + "/styles\" Target=\"styles.xml\"/></Relationships>");
    p.setPart("xl/styles.xml",
              head + "<styleSheet xmlns=\"" + main +
                  "\"><fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/></font>"
                  "</fonts><fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
                  "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
                  "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/>"
                  "</border></borders><cellStyleXfs count=\"1\"><xf numFmtId=\"0\" "
                  "fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
                  "<cellXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" "
                  "borderId=\"0\" xfId=\"0\"/></cellXfs><cellStyles count=\"1\">"
                  "<cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>"
                  "</styleSheet>");
    p.setPart("xl/worksheets/sheet1.xml", head + "<worksheet xmlns=\"" + main + "\" xmlns:r=\"" +
                                              rel + "\"><sheetData/></worksheet>");
    return p;
}

QByteArray zipPackage(const Package& package) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QuaZip zip(&buffer);
    if (!zip.open(QuaZip::mdCreate))
        throw SpreadsheetError(QStringLiteral("the workbook could not be packed (zip error %1)")
                                   .arg(zip.getZipError()));
    for (const auto& [name, data] : package.parts) {
        QuaZipFile file(&zip);
        // A fast level: the sheets of large reports are big and compress well anyway.
        if (!file.open(QIODevice::WriteOnly, QuaZipNewInfo(name), nullptr, 0, Z_DEFLATED, 1) ||
            file.write(data) != data.size()) {
            throw SpreadsheetError(
                QStringLiteral("the workbook could not be packed (zip error %1 in %2)")
                    .arg(file.getZipError())
                    .arg(name));
        }
        file.close();
        if (file.getZipError() != ZIP_OK)
            throw SpreadsheetError(
                QStringLiteral("the workbook could not be packed (%1)").arg(name));
    }
    zip.close();
    if (zip.getZipError() != ZIP_OK)
        throw SpreadsheetError(QStringLiteral("the workbook could not be packed (zip error %1)")
                                   .arg(zip.getZipError()));
    return bytes;
}

} // namespace reports
