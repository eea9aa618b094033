#include "cJsonContent.h"

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

bool cJsonContent::isShared() const
{
    return m_firstSharer && m_firstSharer->m_nextSharer;
}

void cJsonContent::addSharer(const cJsonValue* sharer)
{
    sharer->m_previousSharer = nullptr;
    sharer->m_nextSharer = m_firstSharer;
    if (m_firstSharer)
        m_firstSharer->m_previousSharer = sharer;
    m_firstSharer = sharer;
}

void cJsonContent::removeSharer(const cJsonValue* sharer)
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
        destroy();
}

void cJsonContent::isolateLeader()
{
    QVarLengthArray<cJsonContent*, 16> path;
    for (cJsonContent* content = this; content && content->m_leader; content = content->m_leader->m_container)
        path.append(content);
    // From the outermost inwards: duplicating a content makes new sharers of those within it.
    std::reverse(path.begin(), path.end());
    for (cJsonContent* content : path) {
        if (!content->isShared())
            continue;
        cJsonContent* copy = content->duplicate();
        for (const cJsonValue* sharer = content->m_firstSharer; sharer;) {
            const cJsonValue* next = sharer->m_nextSharer;
            if (sharer != content->m_leader)
                content->moveTo(copy, sharer);
            sharer = next;
        }
    }
}

void cJsonContent::giveDuplicateTo(const cJsonValue* sharer)
{
    moveTo(duplicate(), sharer);
}

cJsonValue& cJsonContent::appendChild(const cJsonValue& value)
{
    cJsonValue& child = *elements.emplace_back(std::make_unique<cJsonValue>(value));
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
    for (const auto& element : elements)
        copy->appendChild(*element);
    for (const auto& [key, value] : members)
        copy->members.emplace_hint(copy->members.end(), key, value)->second.m_container = copy;
    return copy;
}

void cJsonContent::moveTo(cJsonContent* other, const cJsonValue* sharer)
{
    removeSharer(sharer);
    sharer->m_content = other;
    other->addSharer(sharer);
}

void cJsonContent::destroy()
{
    // Contents that go down with this one come here too. They wait for their turn in a list, because deleting
    // them from within each other would exhaust the stack with a value that is nested deep enough.
    static thread_local cJsonContent* doomed = nullptr;
    static thread_local bool isDestroying = false;
    m_nextDoomed = std::exchange(doomed, this);
    if (std::exchange(isDestroying, true))
        return;
    while (cJsonContent* content = doomed) {
        doomed = content->m_nextDoomed;
        delete content;
    }
    isDestroying = false;
}
