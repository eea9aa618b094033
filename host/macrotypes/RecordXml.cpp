#include "RecordXml.h"

#include <JsonText.h>
#include <XmlFragment.h>

#include <QString>

#include <algorithm>

namespace {

bool hasKind(const cJsonValue& value, RecordField::Kind kind)
{
    return kind == RecordField::Kind::Text ? RecordXml::isText(value) : RecordXml::isNumber(value);
}

} // namespace

namespace RecordXml {

// A value tells no type but null, array and object. It differs from a value of another type, though.
bool isText(const cJsonValue& value)
{
    return value == cJsonValue(value.toString());
}

bool isNumber(const cJsonValue& value)
{
    return value == cJsonValue(value.toInt());
}

bool holds(const cJsonValue& record, const RecordFields& fields)
{
    return record.isObject() && std::all_of(fields.begin(), fields.end(), [&](const RecordField& field) {
        return record.contains(field.name) ? hasKind(record[field.name], field.kind) : !field.isRequired;
    });
}

bool read(const XmlElement& element, const RecordFields& fields, cJsonValue& record)
{
    std::size_t known = 0;
    for (const RecordField& field : fields) {
        const QString* text = element.attribute(QLatin1String(field.name));
        if (!text) {
            if (field.isRequired)
                return false;
            continue;
        }
        ++known;
        if (field.kind == RecordField::Kind::Text) {
            record[field.name] = *text;
            continue;
        }
        const int number = text->toInt();
        if (QString::number(number) != *text)
            return false;
        record[field.name] = number;
    }
    return element.attributes.size() == known;
}

bool write(const cJsonValue& record, const RecordFields& fields, QDomElement& element)
{
    if (!holds(record, fields))
        return false;
    int known = 0;
    for (const RecordField& field : fields) {
        if (!record.contains(field.name))
            continue;
        ++known;
        const cJsonValue& value = record[field.name];
        const QString text = value.toString();
        if (!XmlFragment::isRepresentable(text))
            return false;
        element.setAttribute(QLatin1String(field.name), text);
    }
    return HVS::jsonKeys(record).size() == known;
}

} // namespace RecordXml
