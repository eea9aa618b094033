#include "cJsonValue.h"

#include "cJsonContent.h"
#include "JsonKeys.h"

#include <QLocale>
#include <QVarLengthArray>

#include <cmath>
#include <limits>
#include <utility>

namespace {

template<typename T>
T clampTo(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= static_cast<double>(std::numeric_limits<T>::min()))
        return std::numeric_limits<T>::min();
    if (value >= static_cast<double>(std::numeric_limits<T>::max()))
        return std::numeric_limits<T>::max();
    return static_cast<T>(value);
}

} // namespace

cJsonValue::cJsonValue(JsonValueType type)
{
    switch (type) {
    case nullValue:
        break;
    case booleanValue:
        m_scalar = false;
        break;
    case intValue:
        m_scalar = qint64(0);
        break;
    case realValue:
        m_scalar = 0.0;
        break;
    case stringValue:
        m_scalar = QString();
        break;
    case arrayValue:
    case objectValue:
        attach(new cJsonContent(type));
        break;
    }
}

cJsonValue::cJsonValue(const cJsonValue& other)
    : m_scalar(other.m_scalar)
{
    if (other.m_content)
        attach(other.m_content);
}

cJsonValue::cJsonValue(const QString& text)
    : m_scalar(text)
{ }

cJsonValue::cJsonValue(const char* text)
    : m_scalar(QString::fromUtf8(text))
{ }

cJsonValue::cJsonValue(const bool& value)
    : m_scalar(value)
{ }

cJsonValue::cJsonValue(const int& value)
    : m_scalar(qint64(value))
{ }

cJsonValue::cJsonValue(const double& value)
    : m_scalar(value)
{ }

cJsonValue::~cJsonValue()
{
    detach();
}

cJsonValue& cJsonValue::operator=(const cJsonValue& other)
{
    if (this == &other || this == &nowhere())
        return *this;
    // The copy is taken before anything changes: `other` may be a part of this value, or contain it.
    cJsonValue copy(other);
    if (m_container)
        m_container->isolateLeader();
    take(copy);
    return *this;
}

cJsonValue& cJsonValue::operator[](const char* key)
{
    return member(JsonKeys::text(key));
}

cJsonValue& cJsonValue::operator[](const QString& key)
{
    return member(key);
}

cJsonValue& cJsonValue::operator[](int index)
{
    if (!isArray() || index < 0 || unsigned(index) >= size())
        return nowhere();
    return *leadContent()->elements[std::size_t(index)];
}

const cJsonValue& cJsonValue::operator[](const char* key) const
{
    if (!isObject())
        return null();
    const auto& members = readableContent()->members;
    const auto found = members.find(JsonKeys::text(key));
    return found == members.end() ? null() : found->second;
}

const cJsonValue& cJsonValue::operator[](int index) const
{
    if (!isArray() || index < 0 || unsigned(index) >= size())
        return null();
    return *readableContent()->elements[std::size_t(index)];
}

cJsonValue& cJsonValue::append(const cJsonValue& element)
{
    if (!isNull() && !isArray())
        return *this;
    // As in an assignment: the element may be this value.
    const cJsonValue copy(element); // NOLINT(performance-unnecessary-copy-initialization)
    if (isNull())
        *this = cJsonValue(arrayValue);
    if (isArray())
        writableContent()->appendChild(copy);
    return *this;
}

void cJsonValue::deleteKey(const QString& key)
{
    if (isObject() && m_content->members.count(key) > 0)
        writableContent()->members.erase(key);
}

void cJsonValue::clear()
{
    *this = null();
}

bool cJsonValue::contains(const char* key) const
{
    return isObject() && m_content->members.count(JsonKeys::text(key)) > 0;
}

unsigned cJsonValue::size() const
{
    return isArray() ? unsigned(m_content->elements.size()) : 0;
}

bool cJsonValue::isNull() const
{
    return !m_content && std::holds_alternative<std::monostate>(m_scalar);
}

bool cJsonValue::isArray() const
{
    return m_content && m_content->type() == arrayValue;
}

bool cJsonValue::isObject() const
{
    return m_content && m_content->type() == objectValue;
}

QString cJsonValue::toString() const
{
    if (const auto* text = std::get_if<QString>(&m_scalar))
        return *text;
    if (const auto* integer = std::get_if<qint64>(&m_scalar))
        return QString::number(*integer);
    if (const auto* real = std::get_if<double>(&m_scalar))
        return QString::number(*real, 'g', QLocale::FloatingPointShortest);
    if (const auto* boolean = std::get_if<bool>(&m_scalar))
        return *boolean ? QStringLiteral("true") : QStringLiteral("false");
    return QString();
}

int cJsonValue::toInt() const
{
    if (const auto* integer = std::get_if<qint64>(&m_scalar))
        return int(
            qBound<qint64>(std::numeric_limits<int>::min(), *integer, std::numeric_limits<int>::max()));
    if (const auto* real = std::get_if<double>(&m_scalar))
        return clampTo<int>(*real);
    if (const auto* boolean = std::get_if<bool>(&m_scalar))
        return *boolean ? 1 : 0;
    if (const auto* text = std::get_if<QString>(&m_scalar))
        return text->toInt();
    return 0;
}

double cJsonValue::toDouble() const
{
    if (const auto* real = std::get_if<double>(&m_scalar))
        return *real;
    if (const auto* integer = std::get_if<qint64>(&m_scalar))
        return double(*integer);
    if (const auto* boolean = std::get_if<bool>(&m_scalar))
        return *boolean ? 1.0 : 0.0;
    if (const auto* text = std::get_if<QString>(&m_scalar))
        return text->toDouble();
    return 0.0;
}

bool cJsonValue::toBool() const
{
    if (const auto* boolean = std::get_if<bool>(&m_scalar))
        return *boolean;
    if (const auto* integer = std::get_if<qint64>(&m_scalar))
        return *integer != 0;
    if (const auto* real = std::get_if<double>(&m_scalar))
        return *real != 0.0;
    if (const auto* text = std::get_if<QString>(&m_scalar))
        return *text == QLatin1String("true");
    return false;
}

const cJsonValue& cJsonValue::null()
{
    static const cJsonValue value;
    return value;
}

cJsonValue& cJsonValue::nowhere()
{
    static cJsonValue value;
    return value;
}

bool operator==(const cJsonValue& a, const cJsonValue& b)
{
    // Pairs that are still to be compared, in a list of their own because values may be nested to any depth.
    QVarLengthArray<std::pair<const cJsonValue*, const cJsonValue*>, 32> pairs;
    pairs.append({&a, &b});
    while (!pairs.isEmpty()) {
        const auto [left, right] = pairs.last();
        pairs.removeLast();
        const cJsonContent* x = left->m_content;
        const cJsonContent* y = right->m_content;
        if (x == y) {
            if (left->m_scalar != right->m_scalar)
                return false;
            continue;
        }
        if (!x || !y || x->type() != y->type() || x->elements.size() != y->elements.size()
            || x->members.size() != y->members.size())
            return false;
        for (std::size_t i = 0; i < x->elements.size(); ++i)
            pairs.append({x->elements[i].get(), y->elements[i].get()});
        for (auto i = x->members.begin(), j = y->members.begin(); i != x->members.end(); ++i, ++j) {
            if (i->first != j->first)
                return false;
            pairs.append({&i->second, &j->second});
        }
    }
    return true;
}

const cJsonContent* cJsonValue::readableContent() const
{
    if (!m_content->isLedBy(this)) {
        if (m_content->hasLeader())
            m_content->giveDuplicateTo(this);
        m_content->lead(this);
    }
    return m_content;
}

cJsonContent* cJsonValue::writableContent()
{
    // The enclosing contents first: duplicating one of them makes another sharer of this one.
    if (m_container)
        m_container->isolateLeader();
    if (m_content->isLedBy(this))
        m_content->isolateLeader();
    else if (m_content->isShared())
        m_content->giveDuplicateTo(this);
    return m_content;
}

cJsonContent* cJsonValue::leadContent()
{
    cJsonContent* content = writableContent();
    content->lead(this);
    return content;
}

void cJsonValue::take(const cJsonValue& other)
{
    detach();
    m_scalar = other.m_scalar;
    if (other.m_content)
        attach(other.m_content);
}

void cJsonValue::attach(cJsonContent* content)
{
    m_content = content;
    content->addSharer(this);
}

void cJsonValue::detach()
{
    if (cJsonContent* content = std::exchange(m_content, nullptr))
        content->removeSharer(this);
}

cJsonValue& cJsonValue::member(const QString& key)
{
    if (isNull())
        *this = cJsonValue(objectValue);
    if (!isObject())
        return nowhere();
    return leadContent()->child(key);
}
