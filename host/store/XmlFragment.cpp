#include "XmlFragment.h"

#include "TextPool.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVarLengthArray>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cstring>
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
    const QXmlStreamAttributes attributes = reader.attributes();
    for (const QXmlStreamAttribute& attribute : attributes)
        writer.writeAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
}

/// Calls `use` with each character: its place, its length, and whether XML can hold it.
template<typename Use>
void forEachCharacter(const QString& text, const Use& use)
{
    for (int i = 0; i < text.size();) {
        const QChar c = text[i];
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const bool isHeld = isPair
            || (!c.isSurrogate() && c.unicode() < 0xFFFE
                && (c.unicode() >= 0x20 || c == QLatin1Char('\t') || c == QLatin1Char('\n')
                    || c == QLatin1Char('\r')));
        const int length = isPair ? 2 : 1;
        use(i, length, isHeld);
        i += length;
    }
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
                XmlFragment::writeCharacters(writer, reader.text().toString());
            break;
        case QXmlStreamReader::Comment:
            writer.writeComment(reader.text().toString());
            break;
        default:
            break;
        }
    }
}

void writeAttributes(QXmlStreamWriter& writer, const std::map<QString, QString>& attributes)
{
    for (const auto& [name, value] : attributes)
        writer.writeAttribute(name, XmlFragment::representable(value));
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

XmlElement takeElement(QXmlStreamReader& reader, int maxDepth, TextPool& texts)
{
    const auto readStart = [&](XmlElement& element) {
        element.name = texts.text(reader.qualifiedName());
        const QXmlStreamAttributes attributes = reader.attributes();
        element.attributes.reserve(std::size_t(attributes.size()));
        for (const QXmlStreamAttribute& attribute : attributes)
            element.attributes.push_back(
                {texts.text(attribute.qualifiedName()), texts.text(attribute.value())});
    };
    XmlElement result;
    readStart(result);
    // An element stays in its place while there is something added to its last child.
    QVarLengthArray<XmlElement*, 16> open;
    open.append(&result);
    while (!open.isEmpty() && !reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (open.size() == maxDepth) {
                reader.raiseError(tooDeep());
                break;
            }
            open.append(&open.last()->children.emplace_back());
            readStart(*open.last());
        } else if (token == QXmlStreamReader::EndElement) {
            open.removeLast();
        } else if (token == QXmlStreamReader::Characters) {
            open.last()->children.emplace_back().text = reader.text().toString();
        }
    }
    return result;
}

bool isElements(const QString& text, int maxDepth)
{
    QXmlStreamReader reader(QLatin1String("<r>") + text + QLatin1String("</r>"));
    reader.setNamespaceProcessing(false);
    reader.readNextStartElement();
    int depth = 0;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement && ++depth > maxDepth)
            return false;
        // Below 0 is the end of what holds the elements.
        if (token == QXmlStreamReader::EndElement && --depth < 0)
            break;
        if (depth == 0 && token != QXmlStreamReader::EndElement && !reader.isWhitespace())
            return false;
    }
    reader.readNext();
    return !reader.hasError() && reader.isEndDocument();
}

bool isName(const QString& text)
{
    const auto isIn = [](QChar c, const char* more) {
        return c.isLetter() || std::strchr(more, c.unicode() < 0x80 ? c.toLatin1() : ' ') != nullptr;
    };
    return !text.isEmpty() && isIn(text[0], "_:")
        && std::all_of(text.begin(), text.end(), [&](QChar c) { return isIn(c, "_:-.0123456789"); })
        && isRepresentable(text);
}

bool isRepresentable(const QString& text)
{
    bool isHeld = true;
    forEachCharacter(text, [&](int, int, bool isEachHeld) { isHeld = isHeld && isEachHeld; });
    return isHeld;
}

QString representable(const QString& text)
{
    if (isRepresentable(text))
        return text;
    QString held;
    forEachCharacter(text, [&](int place, int length, bool isHeld) {
        if (isHeld)
            held += text.midRef(place, length);
    });
    return held;
}

void writeCharacters(QXmlStreamWriter& writer, const QString& text)
{
    // Readers turn a carriage return into a line feed unless it is written by its number.
    const QStringList parts = representable(text).split(QLatin1Char('\r'));
    writer.writeCharacters(parts.first());
    for (int i = 1; i < parts.size(); ++i) {
        writer.writeEntityReference(QStringLiteral("#13"));
        writer.writeCharacters(parts[i]);
    }
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
            writeCharacters(writer, reader.text().toString());
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
    writeAttributes(writer, attributes);
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (child.isElement())
            writeElement(writer, child.toElement());
        else if (child.isCDATASection())
            writer.writeCDATA(child.nodeValue());
        else if (child.isText())
            writeCharacters(writer, child.nodeValue());
    }
    writer.writeEndElement();
}

void writeElement(QXmlStreamWriter& writer, const XmlElement& element)
{
    writer.writeStartElement(element.name);
    std::map<QString, QString> attributes;
    for (const XmlElement::Attribute& attribute : element.attributes)
        attributes[attribute.name] = attribute.value;
    writeAttributes(writer, attributes);
    for (const XmlElement& child : element.children) {
        if (child.isText())
            writeCharacters(writer, child.text);
        else
            writeElement(writer, child);
    }
    writer.writeEndElement();
}

} // namespace XmlFragment
