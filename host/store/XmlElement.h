#pragma once

#include <QLatin1String>
#include <QString>

#include <optional>
#include <vector>

class QDomDocument;
class QDomElement;

/// An element with all below it, as a value. A DOM of the same takes several times as long to make and to
/// read, which shows with the thousands of commands that are read at the start.
class XmlElement
{
public:
    struct Attribute
    {
        QString name;
        QString value;
    };

    /// Empty for a text among the children of an element.
    QString name;
    /// Of a text.
    QString text;
    std::vector<Attribute> attributes;
    /// Elements and texts.
    std::vector<XmlElement> children;

    /// Nothing if there is anything else than elements and texts in it, such as a comment.
    static std::optional<XmlElement> fromDom(const QDomElement& element);
    /// The element as one that the document has made, but does not hold.
    QDomElement toDom(QDomDocument& document) const;

    bool isText() const { return name.isEmpty(); }
    /// The value, or null if there is no such attribute.
    const QString* attribute(QLatin1String attributeName) const;
    /// True if there is nothing but white space between the tags.
    bool isEmpty() const;
    /// True if there are only elements and white space between the tags.
    bool hasElementsOnly() const;
};
