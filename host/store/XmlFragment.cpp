#include "XmlFragment.h"

#include <QCoreApplication>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <limits>
#include <map>

namespace {

QString tooDeep()
{
    return QCoreApplication::translate("ProfileDocument", "elements are nested too deeply");
}

void copyStart(const QXmlStreamReader& reader, QXmlStreamWriter& writer)
{
    writer.writeStartElement(reader.qualifiedName().toString());
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        writer.writeAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
}

/// Copies tokens up to the end of the element that the reader stands on, or to the end of the text if it
/// stands before the first element.
void copyTokens(QXmlStreamReader& reader, QXmlStreamWriter& writer, int maxDepth)
{
    int depth = 0;
    if (reader.isStartElement()) {
        copyStart(reader, writer);
        depth = 1;
    }
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++depth > maxDepth)
                return reader.raiseError(tooDeep());
            copyStart(reader, writer);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            if (--depth == 0)
                return;
            break;
        case QXmlStreamReader::Characters:
            if (reader.isCDATA())
                writer.writeCDATA(reader.text().toString());
            else
                writer.writeCharacters(reader.text().toString());
            break;
        case QXmlStreamReader::Comment:
            writer.writeComment(reader.text().toString());
            break;
        default:
            break;
        }
    }
}

} // namespace

namespace XmlFragment {

QString takeText(QXmlStreamReader& reader, int maxDepth)
{
    QString text;
    QXmlStreamWriter writer(&text);
    copyTokens(reader, writer, maxDepth);
    return text;
}

QDomElement takeElement(QXmlStreamReader& reader, QDomDocument& document, int maxDepth)
{
    const auto makeElement = [&] {
        QDomElement element = document.createElement(reader.qualifiedName().toString());
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            element.setAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
        return element;
    };
    const QDomElement result = makeElement();
    QDomElement current = result;
    int depth = 1;
    while (depth > 0 && !reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (++depth > maxDepth) {
                reader.raiseError(tooDeep());
                break;
            }
            current = current.appendChild(makeElement()).toElement();
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
            current = current.parentNode().toElement();
        } else if (token == QXmlStreamReader::Characters) {
            current.appendChild(document.createTextNode(reader.text().toString()));
        }
    }
    return result;
}

void writeText(QXmlStreamWriter& writer, const QString& text)
{
    // The text may hold several elements, which the root makes a document.
    QXmlStreamReader reader(QLatin1String("<r>") + text + QLatin1String("</r>"));
    reader.setNamespaceProcessing(false);
    reader.readNextStartElement();
    while (!reader.atEnd() && !(reader.readNext() == QXmlStreamReader::EndElement)) {
        if (reader.isStartElement())
            copyTokens(reader, writer, std::numeric_limits<int>::max());
        else if (reader.isCharacters())
            writer.writeCharacters(reader.text().toString());
    }
}

void writeElement(QXmlStreamWriter& writer, const QDomElement& element)
{
    writer.writeStartElement(element.tagName());
    const QDomNamedNodeMap nodes = element.attributes();
    std::map<QString, QString> attributes;
    for (int i = 0; i < nodes.count(); ++i) {
        const QDomAttr attribute = nodes.item(i).toAttr();
        attributes[attribute.name()] = attribute.value();
    }
    for (const auto& [name, value] : attributes)
        writer.writeAttribute(name, value);
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.isElement())
            writeElement(writer, child.toElement());
        else if (child.isCDATASection())
            writer.writeCDATA(child.nodeValue());
        else if (child.isText())
            writer.writeCharacters(child.nodeValue());
    }
    writer.writeEndElement();
}

} // namespace XmlFragment
