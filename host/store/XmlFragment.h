#pragma once

#include "XmlElement.h"

#include <QDomElement>
#include <QString>

class QXmlStreamReader;
class QXmlStreamWriter;
class TextPool;

/// Pieces of XML on their way between a stream, a text, a value and a DOM, unchanged but for the spelling of
/// white space in tags.
namespace XmlFragment {

/// The element that the reader stands on, as text. Leaves the reader at the element's end. Nested deeper than
/// `maxDepth` the reader is given an error.
QString takeText(QXmlStreamReader& reader, int maxDepth);

/// The same as a value, its names and values out of `texts`.
XmlElement takeElement(QXmlStreamReader& reader, int maxDepth, TextPool& texts);

/// True if the text is any number of elements that takeText() would return, and nothing else.
bool isElements(const QString& text, int maxDepth);

/// True if the text can be the name of an attribute.
bool isName(const QString& text);

/// True if XML can hold every character of the text. It can't hold most control characters, and no halves of
/// characters.
bool isRepresentable(const QString& text);

/// The text without what XML can't hold.
QString representable(const QString& text);

/// Writes a text so that it is read back as it was, line ends included, but for what XML can't hold.
void writeCharacters(QXmlStreamWriter& writer, const QString& text);

/// Writes elements that takeText() returned.
void writeText(QXmlStreamWriter& writer, const QString& text);

/// Writes an element with all below it; attributes in the order of their names, because a DOM keeps none.
void writeElement(QXmlStreamWriter& writer, const QDomElement& element);
/// The same of an element that takeElement() returned.
void writeElement(QXmlStreamWriter& writer, const XmlElement& element);

} // namespace XmlFragment
