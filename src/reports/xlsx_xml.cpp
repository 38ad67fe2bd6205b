#include "xlsx_xml.h"

#include <QBuffer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace reports {

XmlNode* XmlNode::child(const QString& childName) {
    for (XmlNode& c : children)
        if (c.name == childName) return &c;
    return nullptr;
}

const XmlNode* XmlNode::child(const QString& childName) const {
    for (const XmlNode& c : children)
        if (c.name == childName) return &c;
    return nullptr;
}

QString XmlNode::attribute(const QString& attributeName) const {
    for (const auto& [n, v] : attributes)
        if (n == attributeName) return v;
    return {};
}

void XmlNode::setAttribute(const QString& attributeName, const QString& value) {
    for (auto& [n, v] : attributes)
        if (n == attributeName) {
            v = value;
            return;
        }
    attributes.emplace_back(attributeName, value);
}

void XmlNode::removeAttribute(const QString& attributeName) {
    std::erase_if(attributes, [&](const auto& a) { return a.first == attributeName; });
}

XmlNode parseXml(const QByteArray& xml, const QString& partName) {
    QXmlStreamReader in(xml);
    in.setNamespaceProcessing(false);
    std::vector<XmlNode> open;
    XmlNode root;
    bool haveRoot = false;
    while (!in.atEnd()) {
        switch (in.readNext()) {
        case QXmlStreamReader::StartElement: {
            XmlNode node;
            node.name = in.qualifiedName().toString();
            for (const QXmlStreamAttribute& a : in.attributes())
                node.attributes.emplace_back(a.qualifiedName().toString(), a.value().toString());
            open.push_back(std::move(node));
            break;
        }
        case QXmlStreamReader::Characters:
            if (!open.empty()) open.back().text += in.text();
            break;
        case QXmlStreamReader::EndElement: {
            XmlNode node = std::move(open.back());
            open.pop_back();
            if (!node.children.empty()) node.text.clear();
            if (open.empty()) {
                root = std::move(node);
                haveRoot = true;
            } else {
                open.back().children.push_back(std::move(node));
            }
            break;
        }
        default:
            break;
        }
    }
    if (in.hasError() || !haveRoot)
        throw SpreadsheetError(
            QStringLiteral("its part %1 is not readable XML (%2)")
                .arg(partName, in.hasError() ? in.errorString() : QStringLiteral("empty")));
    return root;
}

void writeNode(QXmlStreamWriter& out, const XmlNode& node, const NodeWriter& special) {
    if (special && special(out, node)) return;
    if (node.children.empty() && node.text.isEmpty()) {
        out.writeEmptyElement(node.name);
        for (const auto& [n, v] : node.attributes)
            out.writeAttribute(n, v);
        return;
    }
    out.writeStartElement(node.name);
    for (const auto& [n, v] : node.attributes)
        out.writeAttribute(n, v);
    if (node.children.empty()) out.writeCharacters(node.text);
    for (const XmlNode& c : node.children)
        writeNode(out, c, special);
    out.writeEndElement();
}

QByteArray serialise(const XmlNode& root, const NodeWriter& special) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QXmlStreamWriter out(&buffer);
    out.writeStartDocument(QStringLiteral("1.0"), true);
    writeNode(out, root, special);
    out.writeEndDocument();
    return bytes;
}

QString xmlSafe(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u < 0x20 && u != '\t' && u != '\n' && u != '\r') continue;
        if (u == 0xFFFE || u == 0xFFFF) continue;
        out += c;
    }
    return out;
}

} // namespace reports
