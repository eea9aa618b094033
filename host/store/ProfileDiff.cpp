#include "ProfileDiff.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace ProfileChanges;

namespace {

/// Finds the changes from one profile to another, subject by subject.
class Comparison
{
public:
    Comparison(const Profile& from, const Profile& to)
        : m_id(from.uid())
        , m_from(from)
        , m_to(to)
    { }

    std::vector<ProfileChange> changes()
    {
        add(SetProperties {m_id, m_to.properties});
        add(SetIcon {m_id, m_to.icon});
        add(SetExtensions {m_id, m_to.extensions});
        comparePointers();
        compareCategories();
        removeMacros();
        placeMacros();
        compareAssignments();
        compareBackup();
        return std::move(m_changes);
    }

private:
    template<typename Change>
    void add(Change change)
    {
        m_changes.emplace_back(std::move(change));
    }

    static QString uidOf(const cJsonValue& macro) { return macro["uid"].toString(); }

    void comparePointers()
    {
        for (const auto& [model, pointer] : m_from.pointers) {
            if (m_to.pointers.count(model) == 0)
                add(SetPointer {m_id, model, std::nullopt});
        }
        for (const auto& [model, pointer] : m_to.pointers)
            add(SetPointer {m_id, model, pointer});
    }

    void compareCategories()
    {
        for (const QString& category : m_from.categories - m_to.categories)
            add(SetCategory {m_id, category, false});
        for (const QString& category : m_to.categories - m_from.categories)
            add(SetCategory {m_id, category, true});
    }

    void removeMacros()
    {
        QSet<QString> wanted;
        for (const cJsonValue& macro : m_to.macros)
            wanted.insert(uidOf(macro));
        for (const cJsonValue& macro : m_from.macros) {
            const QString uid = uidOf(macro);
            if (wanted.contains(uid)) {
                m_order.append(uid);
                continue;
            }
            m_removed.insert(uid);
            add(RemoveMacro {m_id, uid});
        }
    }

    /// Puts each command to its place, from the first to the last.
    void placeMacros()
    {
        for (int i = 0; i < int(m_to.macros.size()); ++i) {
            const cJsonValue& macro = m_to.macros[std::size_t(i)];
            const QString uid = uidOf(macro);
            const int place = m_order.indexOf(uid, i);
            if (place < 0) {
                add(InsertMacro {m_id, macro, i});
                m_order.insert(i, uid);
                continue;
            }
            add(ReplaceMacro {m_id, macro});
            if (place != i) {
                add(MoveMacro {m_id, uid, i});
                m_order.move(place, i);
            }
        }
    }

    void compareAssignments()
    {
        for (const auto& [control, uid] : m_from.assignments) {
            if (m_to.assignments.count(control) == 0)
                add(SetAssignment {m_id, control, QString()});
        }
        for (const auto& [control, uid] : m_to.assignments) {
            // A control that a removed command left may get it back all the same.
            const auto before = m_from.assignments.find(control);
            if (before == m_from.assignments.end() || before->second != uid || m_removed.contains(uid))
                add(SetAssignment {m_id, control, uid});
        }
    }

    void compareBackup()
    {
        for (const auto& [control, uid] : m_from.backup) {
            if (m_to.backup.count(control) == 0)
                add(SetBackup {m_id, control, std::nullopt});
        }
        for (const auto& [control, uid] : m_to.backup)
            add(SetBackup {m_id, control, uid});
    }

    QString m_id;
    const Profile& m_from;
    const Profile& m_to;
    /// The commands as they stand after the changes so far.
    QStringList m_order;
    QSet<QString> m_removed;
    std::vector<ProfileChange> m_changes;
};

} // namespace

std::vector<ProfileChange> ProfileDiff::changes(const Profile& from, const Profile& to)
{
    return Comparison(from, to).changes();
}
