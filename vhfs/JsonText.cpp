#include "JsonText.h"

#include "cJsonValueAccess.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <string>
#include <vector>

namespace {

using nlohmann::json;

std::string utf8(const QString& text)
{
    return text.toStdString();
}

json toJson(const cJsonValue& value)
{
    if (const cJsonContent* content = cJsonValueAccess::content(value)) {
        json result = value.isArray() ? json::array() : json::object();
        for (const cJsonValue& element : content->elements)
            result.push_back(toJson(element));
        for (const auto& [key, member] : content->members)
            result[utf8(key)] = toJson(member);
        return result;
    }
    const auto& scalar = cJsonValueAccess::scalar(value);
    if (const auto* text = std::get_if<QString>(&scalar))
        return utf8(*text);
    if (const auto* integer = std::get_if<qint64>(&scalar))
        return *integer;
    if (const auto* real = std::get_if<double>(&scalar))
        return *real;
    if (const auto* boolean = std::get_if<bool>(&scalar))
        return *boolean;
    return nullptr;
}

/// Builds a value from the parser's calls. Each returns false to end the parse.
class Builder
{
public:
    cJsonValue result;
    QString error;

    bool null() { return add(cJsonValue()); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(json::number_integer_t value) { return addInteger(value); }
    bool number_unsigned(json::number_unsigned_t value)
    {
        if (value > json::number_unsigned_t(std::numeric_limits<qint64>::max()))
            return add(double(value));
        return addInteger(qint64(value));
    }
    bool number_float(json::number_float_t value, const std::string&) { return add(value); }
    bool string(const std::string& value) { return add(QString::fromStdString(value)); }
    bool binary(const json::binary_t&) { return false; }
    bool key(const std::string& name)
    {
        m_open.back().key = QString::fromStdString(name);
        return true;
    }
    bool start_object(std::size_t) { return open(cJsonValue::objectValue); }
    bool start_array(std::size_t) { return open(cJsonValue::arrayValue); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool parse_error(std::size_t position, const std::string&, const json::exception& exception)
    {
        error = QStringLiteral("byte %1: %2").arg(position).arg(QLatin1String(exception.what()));
        return false;
    }

private:
    struct Open
    {
        cJsonValue value;
        QString key;
    };

    bool open(cJsonValue::JsonValueType type)
    {
        if (m_open.size() >= std::size_t(HVS::MaxJsonDepth)) {
            error = QStringLiteral("nested deeper than %1 levels").arg(HVS::MaxJsonDepth);
            return false;
        }
        m_open.push_back({cJsonValue(type), QString()});
        return true;
    }

    bool close()
    {
        const cJsonValue value = m_open.back().value;
        m_open.pop_back();
        return add(value);
    }

    bool addInteger(qint64 integer)
    {
        cJsonValue value;
        cJsonValueAccess::setInteger(value, integer);
        return add(value);
    }

    bool add(const cJsonValue& value)
    {
        if (m_open.empty())
            result = value;
        else if (m_open.back().value.isArray())
            m_open.back().value.append(value);
        else
            m_open.back().value[m_open.back().key] = value;
        return true;
    }

    std::vector<Open> m_open;
};

} // namespace

namespace HVS {

QByteArray toJsonText(const cJsonValue& value, bool indented)
{
    const int indent = indented ? 4 : -1;
    return QByteArray::fromStdString(toJson(value).dump(indent, ' ', false, json::error_handler_t::replace));
}

bool fromJsonText(const QByteArray& text, cJsonValue& value, QString* error)
{
    Builder builder;
    if (json::sax_parse(text.begin(), text.end(), &builder)) {
        value = builder.result;
        return true;
    }
    if (error)
        *error = builder.error;
    return false;
}

QStringList jsonKeys(const cJsonValue& value)
{
    QStringList keys;
    if (const cJsonContent* content = cJsonValueAccess::content(value)) {
        for (const auto& member : content->members)
            keys.append(member.first);
    }
    return keys;
}

} // namespace HVS
