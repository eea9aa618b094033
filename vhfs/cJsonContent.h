#pragma once

#include "cJsonValue.h"

#include <map>
#include <memory>
#include <vector>

/// The elements of an array or the members of an object, shared by all values that are copies of each other.
///
/// It knows its sharers, because a reference to one of its children may outlive the moment of sharing. Such
/// references are handed out through one sharer only, the leader; another one that is asked for a reference
/// moves to a duplicate first. Before a child is written to, all sharers but the leader move to a duplicate.
/// The children stay where they are, so that the references stay good.
class cJsonContent
{
    Q_DISABLE_COPY(cJsonContent)

public:
    explicit cJsonContent(cJsonValue::JsonValueType type)
        : m_type(type)
    { }

    cJsonValue::JsonValueType type() const { return m_type; }
    bool isShared() const;

    void addSharer(const cJsonValue* sharer);
    /// Deletes this content with its last sharer.
    void removeSharer(const cJsonValue* sharer);

    /// Called before `sharer` hands out a reference to a child.
    void lead(const cJsonValue* sharer) { m_leader = sharer; }
    bool hasLeader() const { return m_leader != nullptr; }
    bool isLedBy(const cJsonValue* sharer) const { return m_leader == sharer; }

    /// Moves every sharer but the leader to a duplicate, in the enclosing contents first. Afterwards a write
    /// to a child is seen by the leader alone.
    void isolateLeader();
    /// Moves one sharer to a duplicate of its own.
    void giveDuplicateTo(const cJsonValue* sharer);

    cJsonValue& appendChild(const cJsonValue& value);
    /// The member with that key, made if it is missing.
    cJsonValue& child(const QString& key);

    // Elements of an array, each in a place of its own, where it stays while others are added. Objects, of
    // which there are many, pay nothing for having none.
    std::vector<std::unique_ptr<cJsonValue>> elements;
    // Members of an object in the order of their keys.
    std::map<QString, cJsonValue> members;

private:
    cJsonContent* duplicate() const;
    void moveTo(cJsonContent* other, const cJsonValue* sharer);
    void destroy();

    cJsonValue::JsonValueType m_type;
    const cJsonValue* m_firstSharer = nullptr;
    const cJsonValue* m_leader = nullptr;
    cJsonContent* m_nextDoomed = nullptr;
};
