#include "ProfileBook.h"

#include "ProfileIds.h"

#include <algorithm>
#include <utility>

using namespace ProfileChanges;
using ProfileIds::isSame;

namespace {

QString uidOf(const cJsonValue& macro)
{
    return macro["uid"].toString();
}

template<typename Macros>
auto findIn(Macros& macros, const QString& macroId)
{
    return std::find_if(
        macros.begin(), macros.end(), [&](const cJsonValue& macro) { return isSame(uidOf(macro), macroId); });
}

/// Where an element goes that is to stand at `index` of a container; -1 is the end.
template<typename Container>
auto place(Container& container, int index)
{
    const bool isInside = index >= 0 && std::size_t(index) < container.size();
    return isInside ? container.begin() + index : container.end();
}

/// Sets or erases an entry. Returns what was there before.
template<typename Key, typename Value>
std::optional<Value> exchange(std::map<Key, Value>& map, const Key& key, const std::optional<Value>& value)
{
    std::optional<Value> before;
    if (const auto found = map.find(key); found != map.end())
        before = found->second;
    if (value)
        map[key] = *value;
    else
        map.erase(key);
    return before;
}

/// Place of an event among those of one step, the smallest first.
int rank(const ProfileEvent& event)
{
    using namespace ProfileEvents;
    struct Rank
    {
        int operator()(const ProfileAdded&) const { return 0; }
        int operator()(const MacroAdded&) const { return 1; }
        int operator()(const MacroChanged&) const { return 1; }
        // Before the controls that the command is gone from: listeners put something else on those that may
        // not be empty.
        int operator()(const MacroDeleted&) const { return 1; }
        int operator()(const AssignmentRemoved&) const { return 2; }
        int operator()(const MacroAssigned&) const { return 2; }
        int operator()(const ProfilePropertyChanged&) const { return 3; }
        int operator()(const ProfileDeleted&) const { return 4; }
        int operator()(const CurrentProfileSwitched&) const { return 5; }
    };
    return std::visit(Rank(), event);
}

} // namespace

/// Carries out the changes of one step and notes what they do.
class ProfileBook::Editor
{
public:
    Editor(ProfileBook& book, Outcome& outcome)
        : m_book(book)
        , m_outcome(outcome)
    { }

    /// Takes the profile out of the change.
    void operator()(InsertProfile& change)
    {
        const QString id = change.profile.uid();
        if (id.isEmpty() || m_book.find(id))
            return;
        auto profile = std::make_unique<Profile>(std::move(change.profile));
        m_book.m_byId[id.toUpper()] = profile.get();
        m_book.m_profiles.insert(place(m_book.m_profiles, change.index), std::move(profile));
        done(id, RemoveProfile {id});
        m_outcome.events.push_back(ProfileEvents::ProfileAdded {id});
    }

    void operator()(const RemoveProfile& change)
    {
        const auto found = std::find_if(m_book.m_profiles.begin(), m_book.m_profiles.end(),
            [&](const auto& profile) { return isSame(profile->uid(), change.profileId); });
        if (found == m_book.m_profiles.end())
            return;
        const QString id = (*found)->uid();
        for (const Role role : {Role::Current, Role::Default, Role::Persistent}) {
            if (isSame(m_book.withRole(role), id))
                (*this)(SetRole {role, QString()});
        }
        done(id, InsertProfile {std::move(**found), int(found - m_book.m_profiles.begin())});
        m_book.m_byId.remove(id.toUpper());
        m_book.m_profiles.erase(found);
        m_outcome.events.push_back(ProfileEvents::ProfileDeleted {id});
    }

    void operator()(const SetProperties& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile || !isSame(profile->uid(), change.properties["uid"].toString()))
            return;
        cJsonValue properties = change.properties;
        // Roles and listeners know the id in its first spelling.
        properties["uid"] = profile->uid();
        if (profile->properties == properties)
            return;
        done(profile->uid(), SetProperties {profile->uid(), profile->properties});
        profile->properties = properties;
        propertyChanged(*profile);
    }

    void operator()(const InsertMacro& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        const QString id = uidOf(change.macro);
        if (!profile || id.isEmpty() || findIn(profile->macros, id) != profile->macros.end())
            return;
        profile->macros.insert(place(profile->macros, change.index), change.macro);
        done(profile->uid(), RemoveMacro {profile->uid(), id});
        m_outcome.events.push_back(ProfileEvents::MacroAdded {profile->uid(), change.macro});
    }

    void operator()(const RemoveMacro& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile)
            return;
        const auto found = findIn(profile->macros, change.macroId);
        if (found == profile->macros.end())
            return;
        const cJsonValue macro = *found;
        done(profile->uid(), InsertMacro {profile->uid(), macro, int(found - profile->macros.begin())});
        profile->macros.erase(found);
        m_outcome.events.push_back(ProfileEvents::MacroDeleted {profile->uid(), macro});
    }

    void operator()(const ReplaceMacro& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile)
            return;
        const auto found = findIn(profile->macros, uidOf(change.macro));
        if (found == profile->macros.end())
            return;
        cJsonValue macro = change.macro;
        // Assignments know the id in its first spelling.
        macro["uid"] = uidOf(*found);
        if (*found == macro)
            return;
        done(profile->uid(), ReplaceMacro {profile->uid(), *found});
        *found = macro;
        m_outcome.events.push_back(ProfileEvents::MacroChanged {profile->uid(), macro});
    }

    void operator()(const MoveMacro& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile)
            return;
        const auto found = findIn(profile->macros, change.macroId);
        const int last = int(profile->macros.size()) - 1;
        if (found == profile->macros.end() || change.index < 0 || change.index > last)
            return;
        const int before = int(found - profile->macros.begin());
        if (before == change.index)
            return;
        done(profile->uid(), MoveMacro {profile->uid(), uidOf(*found), before});
        const cJsonValue macro = *found;
        profile->macros.erase(found);
        profile->macros.insert(profile->macros.begin() + change.index, macro);
    }

    void operator()(const SetExtensions& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile || profile->extensions == change.extensions)
            return;
        done(profile->uid(), SetExtensions {profile->uid(), profile->extensions});
        profile->extensions = change.extensions;
    }

    void operator()(const SetAssignment& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile)
            return;
        const std::optional<QString> value =
            change.macroId.isEmpty() ? std::nullopt : std::optional<QString>(change.macroId);
        const std::optional<QString> before = exchange(profile->assignments, change.control, value);
        if (before == value)
            return;
        done(profile->uid(), SetAssignment {profile->uid(), change.control, before.value_or(QString())});
        if (before) {
            m_outcome.events.push_back(
                ProfileEvents::AssignmentRemoved {profile->uid(), change.control, *before});
        }
        if (value)
            m_outcome.events.push_back(ProfileEvents::MacroAssigned {profile->uid(), change.control, *value});
    }

    void operator()(const SetBackup& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile)
            return;
        const std::optional<QString> before = exchange(profile->backup, change.control, change.macroId);
        if (before != change.macroId)
            done(profile->uid(), SetBackup {profile->uid(), change.control, before});
    }

    void operator()(const SetCategory& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile || profile->categories.contains(change.category) == change.isSetUp)
            return;
        if (change.isSetUp)
            profile->categories.insert(change.category);
        else
            profile->categories.remove(change.category);
        done(profile->uid(), SetCategory {profile->uid(), change.category, !change.isSetUp});
    }

    void operator()(const SetIcon& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile || profile->icon == change.icon)
            return;
        done(profile->uid(), SetIcon {profile->uid(), profile->icon});
        profile->icon = change.icon;
        propertyChanged(*profile);
    }

    void operator()(const SetPointer& change)
    {
        Profile* profile = m_book.findMutable(change.profileId);
        if (!profile)
            return;
        const std::optional<cPointerProperties> before =
            exchange(profile->pointers, change.model, change.pointer);
        if (before == change.pointer)
            return;
        done(profile->uid(), SetPointer {profile->uid(), change.model, before});
        propertyChanged(*profile);
    }

    void operator()(const SetRole& change)
    {
        QString& id = m_book.m_roles[std::size_t(change.role)];
        const Profile* profile = m_book.find(change.profileId);
        const QString next = profile ? profile->uid() : QString();
        if (id == next || (!profile && !change.profileId.isEmpty()))
            return;
        if (change.heldBy && !id.isEmpty() && !isSame(id, *change.heldBy))
            return;
        m_outcome.inverse.changes.emplace_back(SetRole {change.role, id, next});
        m_outcome.rolesChanged = true;
        const QString before = std::exchange(id, next);
        if (change.role == Role::Current) {
            m_outcome.events.push_back(ProfileEvents::CurrentProfileSwitched {next});
            return;
        }
        // Listeners show who has the role.
        for (const QString& changed : {before, next}) {
            if (!changed.isEmpty())
                m_outcome.events.push_back(ProfileEvents::ProfilePropertyChanged {changed});
        }
    }

private:
    void done(const QString& profileId, ProfileChange inverse)
    {
        m_outcome.inverse.changes.push_back(std::move(inverse));
        m_outcome.touched.insert(profileId);
    }

    void propertyChanged(const Profile& profile)
    {
        m_outcome.events.push_back(ProfileEvents::ProfilePropertyChanged {profile.uid()});
    }

    ProfileBook& m_book;
    Outcome& m_outcome;
};

ProfileBook::Outcome ProfileBook::apply(ProfileStep step)
{
    Outcome outcome;
    for (ProfileChange& change : step.changes)
        std::visit(Editor(*this, outcome), change);
    std::reverse(outcome.inverse.changes.begin(), outcome.inverse.changes.end());
    outcome.events = arranged(std::move(outcome.events));
    return outcome;
}

std::vector<ProfileEvent> ProfileBook::arranged(std::vector<ProfileEvent> events) const
{
    QSet<QString> changed;
    const auto isSuperfluous = [&](const ProfileEvent& event) {
        const auto* change = std::get_if<ProfileEvents::ProfilePropertyChanged>(&event);
        if (!change)
            return false;
        const bool isRepeated = changed.contains(change->profileId);
        changed.insert(change->profileId);
        return isRepeated || !find(change->profileId);
    };
    events.erase(std::remove_if(events.begin(), events.end(), isSuperfluous), events.end());
    std::stable_sort(events.begin(), events.end(),
        [](const ProfileEvent& a, const ProfileEvent& b) { return rank(a) < rank(b); });
    return events;
}

QStringList ProfileBook::ids() const
{
    QStringList ids;
    for (const auto& profile : m_profiles)
        ids.append(profile->uid());
    return ids;
}

const Profile* ProfileBook::find(const QString& profileId) const
{
    return m_byId.value(profileId.toUpper());
}

const cJsonValue* ProfileBook::findMacro(const QString& profileId, const QString& macroId) const
{
    const Profile* profile = find(profileId);
    if (!profile)
        return nullptr;
    const auto found = findIn(profile->macros, macroId);
    return found == profile->macros.end() ? nullptr : &*found;
}

std::vector<ControlKey> ProfileBook::controlsOf(const QString& profileId, const QString& macroId) const
{
    std::vector<ControlKey> controls;
    if (const Profile* profile = find(profileId)) {
        for (const auto& [control, id] : profile->assignments) {
            if (isSame(id, macroId))
                controls.push_back(control);
        }
    }
    return controls;
}

QString ProfileBook::withRole(Role role) const
{
    return m_roles[std::size_t(role)];
}

Profile* ProfileBook::findMutable(const QString& profileId)
{
    return m_byId.value(profileId.toUpper());
}
