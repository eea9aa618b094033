#include "cJsonContent.h"

bool cJsonContent::isShared() const
{
    return m_firstSharer && m_firstSharer->m_nextSharer;
}

void cJsonContent::addSharer(cJsonValue* sharer)
{
    sharer->m_previousSharer = nullptr;
    sharer->m_nextSharer = m_firstSharer;
    if (m_firstSharer)
        m_firstSharer->m_previousSharer = sharer;
    m_firstSharer = sharer;
}

void cJsonContent::removeSharer(cJsonValue* sharer)
{
    if (sharer->m_previousSharer)
        sharer->m_previousSharer->m_nextSharer = sharer->m_nextSharer;
    else
        m_firstSharer = sharer->m_nextSharer;
    if (sharer->m_nextSharer)
        sharer->m_nextSharer->m_previousSharer = sharer->m_previousSharer;
    sharer->m_nextSharer = sharer->m_previousSharer = nullptr;
    if (m_leader == sharer)
        m_leader = nullptr;
    if (!m_firstSharer)
        delete this;
}

void cJsonContent::isolateLeader()
{
    if (!m_leader)
        return;
    if (m_leader->m_container)
        m_leader->m_container->isolateLeader();
    if (!isShared())
        return;
    cJsonContent* copy = duplicate();
    for (cJsonValue* sharer = m_firstSharer; sharer;) {
        cJsonValue* next = sharer->m_nextSharer;
        if (sharer != m_leader) {
            removeSharer(sharer);
            sharer->m_content = copy;
            copy->addSharer(sharer);
        }
        sharer = next;
    }
}

void cJsonContent::giveDuplicateTo(cJsonValue* sharer)
{
    cJsonContent* copy = duplicate();
    removeSharer(sharer);
    sharer->m_content = copy;
    copy->addSharer(sharer);
}

cJsonValue& cJsonContent::appendChild(const cJsonValue& value)
{
    cJsonValue& child = elements.emplace_back(value);
    child.m_container = this;
    return child;
}

cJsonValue& cJsonContent::child(const QString& key)
{
    cJsonValue& value = members[key];
    value.m_container = this;
    return value;
}

cJsonContent* cJsonContent::duplicate() const
{
    auto* copy = new cJsonContent(m_type);
    for (const cJsonValue& element : elements)
        copy->appendChild(element);
    for (const auto& [key, value] : members)
        copy->members.emplace_hint(copy->members.end(), key, value)->second.m_container = copy;
    return copy;
}
