#pragma once

#include <cJsonValue.h>
#include <XmlElement.h>

#include <QDomElement>
#include <QLatin1String>

#include <vector>

/// A key of a record that is the attribute of the same name in XML.
class RecordField
{
public:
    enum class Kind { Text, Number };

    const char* name;
    Kind kind;
    bool isRequired;
};

using RecordFields = std::vector<RecordField>;

/// Records whose members are texts and numbers, and the elements that they are in XML.
///
/// Both directions are strict: what they accept comes back as it was, and everything else is refused, so that
/// the caller keeps it in another form.
namespace RecordXml {

/// True for a string.
bool isText(const cJsonValue& value);
/// True for an integer in the range of int.
bool isNumber(const cJsonValue& value);

/// True if the record is an object in which the required fields are there and all fields have their kinds.
/// Other keys don't matter.
bool holds(const cJsonValue& record, const RecordFields& fields);

/// Adds the element's attributes to the record; false if the record would lack some of the element or a
/// required field. Children are not looked at.
bool read(const XmlElement& element, const RecordFields& fields, cJsonValue& record);

/// Adds the record to the element as attributes; false if the element would lack some of the record.
bool write(const cJsonValue& record, const RecordFields& fields, QDomElement& element);

} // namespace RecordXml
