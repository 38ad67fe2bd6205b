#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

class QXmlStreamWriter;

namespace reports {

// Why a spreadsheet could not be written, in words a user can act on.
class SpreadsheetError : public std::runtime_error {
public:
    explicit SpreadsheetError(const QString& reason)
        : std::runtime_error(reason.toStdString())
        , reason_(reason) {}
    const QString& reason() const { return reason_; }

private:
    QString reason_;
};

// A small XML element tree for the parts of a workbook that are edited. Names and attributes
// keep their prefixes as written and namespace declarations stay ordinary attributes, so a
// part read and written again keeps every namespace it had.
struct XmlNode {
    QString name;
    std::vector<std::pair<QString, QString>> attributes;
    QString text; // an element without children
    std::vector<XmlNode> children;

    XmlNode* child(const QString& childName);
    const XmlNode* child(const QString& childName) const;
    QString attribute(const QString& attributeName) const;
    void setAttribute(const QString& attributeName, const QString& value);
    void removeAttribute(const QString& attributeName);
};

// Throws SpreadsheetError naming the part when the XML cannot be read.
XmlNode parseXml(const QByteArray& xml, const QString& partName);

// Writes an element and everything under it; `special` may write an element itself (and
// return true) instead.
using NodeWriter = std::function<bool(QXmlStreamWriter&, const XmlNode&)>;
void writeNode(QXmlStreamWriter& out, const XmlNode& node, const NodeWriter& special = {});
QByteArray serialise(const XmlNode& root, const NodeWriter& special = {});

// Text that XML 1.0 can hold: control characters other than tab and line breaks go.
QString xmlSafe(const QString& text);

} // namespace reports
