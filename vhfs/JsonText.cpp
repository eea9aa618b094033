#include "JsonText.h"

#include "cJsonValueAccess.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <iterator>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using nlohmann::json;

/// The text of a value that is neither array nor object.
std::string scalarText(const cJsonValueAccess::Scalar& scalar)
{
    json value;
    if (const auto* text = std::get_if<QString>(&scalar))
        value = text->toStdString();
    else if (const auto* integer = std::get_if<qint64>(&scalar))
        value = *integer;
    else if (const auto* real = std::get_if<double>(&scalar))
        value = *real;
    else if (const auto* boolean = std::get_if<bool>(&scalar))
        value = *boolean;
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

/// Puts the text of a value together. It keeps its own stack, because values may be nested to any depth.
class Writer
{
public:
    explicit Writer(bool indented)
        : m_indented(indented)
    { }

    std::string write(const cJsonValue& value)
    {
        begin(value);
        while (!m_open.empty()) {
            Open& open = m_open.back();
            if (open.isAtEnd()) {
                end();
                continue;
            }
            if (!open.isFirst)
                m_text += ',';
            open.isFirst = false;
            breakLine();
            if (open.element != open.content->elements.end()) {
                begin(**open.element++);
            } else {
                const auto& [key, member] = *open.member++;
                m_text += scalarText(key) + (m_indented ? ": " : ":");
                begin(member);
            }
        }
        return std::move(m_text);
    }

private:
    struct Open
    {
        explicit Open(const cJsonContent* source)
            : content(source)
            , element(source->elements.begin())
            , member(source->members.begin())
        { }

        bool isAtEnd() const
        {
            return element == content->elements.end() && member == content->members.end();
        }
        bool isArray() const { return content->type() == cJsonValue::arrayValue; }

        const cJsonContent* content;
        decltype(cJsonContent::elements)::const_iterator element;
        decltype(cJsonContent::members)::const_iterator member;
        bool isFirst = true;
    };

    void begin(const cJsonValue& value)
    {
        if (const cJsonContent* content = cJsonValueAccess::content(value)) {
            m_open.emplace_back(content);
            m_text += m_open.back().isArray() ? '[' : '{';
        } else {
            m_text += scalarText(cJsonValueAccess::scalar(value));
        }
    }

    void end()
    {
        const Open open = m_open.back();
        m_open.pop_back();
        if (!open.isFirst)
            breakLine();
        m_text += open.isArray() ? ']' : '}';
    }

    void breakLine()
    {
        if (m_indented)
            m_text.append(1, '\n').append(IndentWidth * m_open.size(), ' ');
    }

    static constexpr std::size_t IndentWidth = 4;

    bool m_indented;
    std::string m_text;
    std::vector<Open> m_open;
};

/// Walks over a text and shows how far it has come, which the parser tells only about errors of its own.
class Cursor
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    Cursor(const char* place, const char*& shownPlace)
        : m_place(place)
        , m_shownPlace(&shownPlace)
    { }

    reference operator*() const { return *m_place; }
    Cursor& operator++()
    {
        *m_shownPlace = ++m_place;
        return *this;
    }
    bool operator==(const Cursor& other) const { return m_place == other.m_place; }
    bool operator!=(const Cursor& other) const { return m_place != other.m_place; }

private:
    const char* m_place;
    const char** m_shownPlace;
};

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
    bool parse_error(std::size_t, const std::string&, const json::exception& exception)
    {
        // The library puts its own name and a place in front, each ended by the first such mark behind it.
        error = QString::fromUtf8(exception.what());
        error.remove(0, error.indexOf(QLatin1String("] ")) + 2);
        if (error.startsWith(QLatin1String("parse error")))
            error.remove(0, error.indexOf(QLatin1String(": ")) + 2);
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
    return QByteArray::fromStdString(Writer(indented).write(value));
}

bool fromJsonText(const QByteArray& text, cJsonValue& value, QString* error)
{
    Builder builder;
    const char* place = text.begin();
    if (json::sax_parse(Cursor(text.begin(), place), Cursor(text.end(), place), &builder)) {
        // The parser takes a NUL for the end of the text. There is no place for one in JSON.
        if (!text.contains('\0')) {
            value = builder.result;
            return true;
        }
        builder.error = QStringLiteral("unexpected NUL");
    }
    if (error) {
        const QByteArray read = text.left(int(place - text.begin()));
        const int lineStart = read.lastIndexOf('\n') + 1;
        // The column counts characters, so that an editor shows the same.
        *error = QStringLiteral("line %1, column %2: %3")
                     .arg(read.count('\n') + 1)
                     .arg(QString::fromUtf8(read.mid(lineStart)).size())
                     .arg(builder.error);
    }
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
