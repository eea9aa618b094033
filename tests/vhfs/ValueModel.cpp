#include "ValueModel.h"

#include <algorithm>
#include <utility>

ValueModel& ValueModel::operator=(const ValueModel& other)
{
    if (this == &other)
        return *this;
    // The other may be a part of this value.
    auto members = other.m_members;
    auto elements = other.m_elements;
    m_type = other.m_type;
    m_scalar = other.m_scalar;
    m_members = std::move(members);
    m_elements = std::move(elements);
    return *this;
}

void ValueModel::set(int scalar)
{
    clear();
    m_type = cJsonValue::intValue;
    m_scalar = scalar;
}

void ValueModel::clear()
{
    *this = ValueModel();
}

ValueModel* ValueModel::member(const QString& key)
{
    if (m_type == cJsonValue::nullValue)
        m_type = cJsonValue::objectValue;
    return m_type == cJsonValue::objectValue ? &m_members[key] : nullptr;
}

ValueModel* ValueModel::element(int index)
{
    return index >= 0 && std::size_t(index) < m_elements.size() ? &m_elements[std::size_t(index)] : nullptr;
}

void ValueModel::append(const ValueModel& element)
{
    // The element may be this value or lie in it.
    const ValueModel copy(element); // NOLINT(performance-unnecessary-copy-initialization)
    if (m_type == cJsonValue::nullValue)
        m_type = cJsonValue::arrayValue;
    if (m_type == cJsonValue::arrayValue)
        m_elements.push_back(copy);
}

void ValueModel::deleteKey(const QString& key)
{
    m_members.erase(key);
}

int ValueModel::count() const
{
    int result = 1;
    for (const auto& [key, member] : m_members)
        result += member.count();
    for (const ValueModel& element : m_elements)
        result += element.count();
    return result;
}

cJsonValue ValueModel::toValue() const
{
    if (m_type == cJsonValue::intValue)
        return m_scalar;
    cJsonValue result(m_type);
    for (const auto& [key, member] : m_members)
        result[key] = member.toValue();
    for (const ValueModel& element : m_elements)
        result.append(element.toValue());
    return result;
}

bool ValueModel::isReadFrom(const cJsonValue& value) const
{
    if (value.isNull() != (m_type == cJsonValue::nullValue)
        || value.isArray() != (m_type == cJsonValue::arrayValue)
        || value.isObject() != (m_type == cJsonValue::objectValue) || value.toInt() != m_scalar
        || value.size() != m_elements.size())
        return false;
    for (const auto& [key, member] : m_members) {
        if (!member.isReadFrom(value[key.toUtf8().constData()]))
            return false;
    }
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        if (!m_elements[i].isReadFrom(value[int(i)]))
            return false;
    }
    return true;
}

RandomValues::RandomValues(unsigned seed)
    : m_generator(seed)
{
    constexpr int roots = 6;
    for (int i = 0; i < roots; ++i)
        m_roots.push_back(std::make_unique<Root>());
}

QString RandomValues::doSomething()
{
    // Beyond this many values a source is not put into another, or the values would grow without end.
    constexpr int enough = 60;
    const Target target = randomTarget();
    const Target source = randomTarget();
    const bool isSmall = source.model->count() + target.model->count() <= enough;
    const QString key = randomKey();
    const int index = random(4) - 1;
    switch (random(14)) {
    case 0:
    case 1: {
        const int scalar = random(1000);
        (*target.value)[key] = scalar;
        if (ValueModel* member = target.model->member(key))
            member->set(scalar);
        return QStringLiteral("v[key] = scalar");
    }
    case 2: {
        const QString second = randomKey();
        (*target.value)[key][second] = 1;
        ValueModel* member = target.model->member(key);
        ValueModel* inner = member ? member->member(second) : nullptr;
        if (inner)
            inner->set(1);
        return QStringLiteral("v[key][key] = scalar");
    }
    case 3:
        *target.value = 5;
        target.model->set(5);
        return QStringLiteral("v = scalar");
    case 4: {
        cJsonValue& member = (*target.value)[key];
        hold(&member, target.model->member(key), true);
        return QStringLiteral("r = v[key]");
    }
    case 5: {
        cJsonValue& element = (*target.value)[index];
        hold(&element, target.model->element(index), true);
        return QStringLiteral("r = v[index]");
    }
    case 6:
        if (target.model->members().count(key) > 0) {
            const cJsonValue& constant = *target.value;
            hold(&constant[key.toUtf8().constData()], target.model->member(key), false);
        }
        hold(&std::as_const(*target.value)[index], target.model->element(index), false);
        return QStringLiteral("r = constant v[...]");
    case 7:
        if (isSmall) {
            *target.value = *source.value;
            *target.model = *source.model;
        }
        return QStringLiteral("v = w");
    case 8:
        if (isSmall) {
            (*target.value)[key] = *source.value;
            if (ValueModel* member = target.model->member(key))
                *member = ValueModel(*source.model);
        }
        return QStringLiteral("v[key] = w");
    case 9:
        if (isSmall) {
            target.value->append(*source.value);
            target.model->append(*source.model);
        }
        return QStringLiteral("v.append(w)");
    case 10:
        target.value->append(index);
        {
            ValueModel scalar;
            scalar.set(index);
            target.model->append(scalar);
        }
        return QStringLiteral("v.append(scalar)");
    case 11:
        target.value->deleteKey(key);
        target.model->deleteKey(key);
        return QStringLiteral("v.deleteKey(key)");
    case 12: {
        // Rarely, because it ends the life of many references.
        if (random(4) > 0)
            return QStringLiteral("nothing");
        target.value->clear();
        target.model->clear();
        return QStringLiteral("v.clear()");
    }
    default: {
        auto copy = std::make_unique<Root>(Root {*target.value, *target.model});
        m_roots[std::size_t(random(int(m_roots.size())))] = std::move(copy);
        return QStringLiteral("copy of v in place of another");
    }
    }
}

QString RandomValues::difference()
{
    dropDeadReferences();
    // Comparing reads without asking for references, reading asks for them: both have to leave the rest
    // alone.
    for (std::size_t i = 0; i < m_roots.size(); ++i) {
        if (m_roots[i]->value != m_roots[i]->model.toValue())
            return QStringLiteral("value %1").arg(i);
    }
    for (std::size_t i = 0; i < m_references.size(); ++i) {
        if (*m_references[i].value != m_references[i].model->toValue())
            return QStringLiteral("reference %1").arg(i);
    }
    const Root& root = *m_roots[std::size_t(random(int(m_roots.size())))];
    if (random(5) == 0 && !root.model.isReadFrom(root.value))
        return QStringLiteral("a value that is read");
    if (!m_references.empty() && random(5) == 0) {
        const Reference& reference = m_references[std::size_t(random(int(m_references.size())))];
        if (!reference.model->isReadFrom(*reference.value))
            return QStringLiteral("a reference that is read");
    }
    return QString();
}

int RandomValues::random(int end)
{
    return std::uniform_int_distribution<int>(0, end - 1)(m_generator);
}

QString RandomValues::randomKey()
{
    return QString(QChar('a' + random(4)));
}

RandomValues::Target RandomValues::randomTarget()
{
    dropDeadReferences();
    std::vector<const Reference*> writable;
    for (const Reference& reference : m_references) {
        if (reference.isWritable)
            writable.push_back(&reference);
    }
    if (!writable.empty() && random(2) == 0) {
        const Reference* reference = writable[std::size_t(random(int(writable.size())))];
        // It was handed out for writing.
        return {const_cast<cJsonValue*>(reference->value), reference->model};
    }
    Root& root = *m_roots[std::size_t(random(int(m_roots.size())))];
    return {&root.value, &root.model};
}

void RandomValues::hold(const cJsonValue* value, ValueModel* model, bool isWritable)
{
    constexpr std::size_t most = 40;
    if (!model)
        return;
    if (m_references.size() >= most)
        m_references.erase(m_references.begin() + random(int(most)));
    m_references.push_back({value, model, isWritable, model->life()});
}

void RandomValues::dropDeadReferences()
{
    const auto isDead = [](const Reference& reference) {
        return reference.life.expired();
    };
    m_references.erase(std::remove_if(m_references.begin(), m_references.end(), isDead), m_references.end());
    for (Reference& reference : m_references)
        m_longestLife = std::max(m_longestLife, ++reference.age);
}
