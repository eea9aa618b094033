#include "XmlElement.h"

#include <QDomDocument>
#include <QDomElement>

#include <algorithm>
#include <utility>

std::optional<XmlElement> XmlElement::fromDom(const QDomElement& element)
{
    XmlElement result;
    result.name = element.tagName();
    const QDomNamedNodeMap nodes = element.attributes();
    result.attributes.reserve(std::size_t(nodes.count()));
    for (int i = 0; i < nodes.count(); ++i) {
        const QDomAttr attribute = nodes.item(i).toAttr();
        result.attributes.push_back({attribute.name(), attribute.value()});
    }
    for (QDomNode child = element.firstChild(); !child.isNull(); child = child.nextSibling()) {
        std::optional<XmlElement> part;
        if (child.isElement())
            part = fromDom(child.toElement());
        else if (child.isText())
            part.emplace().text = child.nodeValue();
        if (!part)
            return std::nullopt;
        result.children.push_back(std::move(*part));
    }
    return result;
}

QDomElement XmlElement::toDom(QDomDocument& document) const
{
    QDomElement element = document.createElement(name);
    for (const Attribute& each : attributes)
        element.setAttribute(each.name, each.value);
    for (const XmlElement& child : children) {
        if (child.isText())
            element.appendChild(document.createTextNode(child.text));
        else
            element.appendChild(child.toDom(document));
    }
    return element;
}

const QString* XmlElement::attribute(QLatin1String attributeName) const
{
    const auto found = std::find_if(attributes.begin(), attributes.end(),
        [&](const Attribute& each) { return each.name == attributeName; });
    return found == attributes.end() ? nullptr : &found->value;
}

bool XmlElement::isEmpty() const
{
    return std::all_of(children.begin(), children.end(),
        [](const XmlElement& child) { return child.isText() && child.text.trimmed().isEmpty(); });
}

bool XmlElement::hasElementsOnly() const
{
    return std::all_of(children.begin(), children.end(),
        [](const XmlElement& child) { return !child.isText() || child.text.trimmed().isEmpty(); });
}
