// How a change is carried out, undone and redone.
#include "cProfileMgrService.h"

#include <FixedIds.h>
#include <ISettings.h>
#include <ProfileIds.h>
#include <SettingsKeys.h>

#include <algorithm>
#include <utility>

using namespace ProfileChanges;

bool cProfileMgrService::perform(const StepName& name, Changes changes)
{
    ProfileStep inverse = carryOut({std::move(changes)});
    const bool isChanged = !inverse.changes.empty();
    if (isChanged && !m_isSettingUp)
        m_history.record(name, std::move(inverse));
    publishWaiting();
    return isChanged;
}

void cProfileMgrService::performUnnamed(Changes changes)
{
    ProfileStep inverse = carryOut({std::move(changes)});
    if (!inverse.changes.empty())
        m_history.recordCompanion(std::move(inverse));
    publishWaiting();
}

ProfileStep cProfileMgrService::carryOut(ProfileStep step)
{
    ProfileBook::Outcome outcome = m_book.apply(completed(std::move(step)));
    m_isSettingUp = !outcome.touched.isEmpty()
        && std::all_of(outcome.touched.begin(), outcome.touched.end(),
            [this](const QString& id) { return m_pausedBackups.contains(id.toUpper()); });
    for (const QString& profileId : qAsConst(outcome.touched))
        m_store.markChanged(profileId);
    if (outcome.rolesChanged)
        storeRoles();
    for (const ProfileEvent& event : outcome.events)
        m_waiting.enqueue(event);
    return std::move(outcome.inverse);
}

ProfileStep cProfileMgrService::completed(ProfileStep step)
{
    Changes first;
    QSet<QString> removedIds;
    QStringList removedNames;
    for (const ProfileChange& change : step.changes) {
        if (const auto* removal = std::get_if<RemoveMacro>(&change)) {
            for (const ControlKey& control : m_book.controlsOf(removal->profileId, removal->macroId))
                first.emplace_back(SetAssignment {removal->profileId, control, QString()});
        } else if (const auto* leaving = std::get_if<RemoveProfile>(&change)) {
            removedIds.insert(leaving->profileId.toUpper());
            if (const Profile* doomed = profile(leaving->profileId))
                removedNames.append(doomed->name());
        }
    }
    if (!removedNames.isEmpty()) {
        backUp(ProfileBackups::Reason::Deletion, removedNames.join(QLatin1String(", ")));
        handOverRoles(removedIds, first);
    }
    step.changes.insert(
        step.changes.begin(), std::make_move_iterator(first.begin()), std::make_move_iterator(first.end()));
    return step;
}

void cProfileMgrService::handOverRoles(const QSet<QString>& removedIds, Changes& changes)
{
    const auto isRemoved = [&](const QString& id) {
        return removedIds.contains(id.toUpper());
    };
    const auto handOver = [&](Role role, const QString& next) {
        QString holder = m_book.withRole(role);
        if (!isRemoved(holder))
            return holder;
        changes.emplace_back(SetRole {role, next});
        return next;
    };
    const bool wasActive = isRemoved(getActiveProfileID());
    const QString byDefault = handOver(Role::Default, FixedIds::DefaultProfile);
    const QString persistent = handOver(Role::Persistent, QString());
    handOver(Role::Current, persistent.isEmpty() ? byDefault : persistent);
    if (wasActive) {
        m_isChosenByHand = false;
        m_lockingProcess = 0;
    }
    m_pausedBackups -= removedIds;
}

void cProfileMgrService::undo()
{
    m_history.undo([this] { publishTurn(); });
}

void cProfileMgrService::redo()
{
    m_history.redo([this] { publishTurn(); });
}

QString cProfileMgrService::shownProfileId() const
{
    return m_surroundings.settings ? m_surroundings.settings->getPropertyString(SettingsKeys::LastProfile)
                                   : QString();
}

void cProfileMgrService::publishTurn()
{
    const QString shownId = shownProfileId();
    const bool isSwitched = !m_waiting.isEmpty()
        && std::holds_alternative<ProfileEvents::CurrentProfileSwitched>(m_waiting.back());
    publishWaiting();
    // A view leaves a profile that its user deletes, but may stay with one that goes because its coming was
    // undone.
    const bool isGone = !shownId.isEmpty() && !profile(shownId) && shownProfileId() == shownId;
    if (isGone && !isSwitched) {
        m_waiting.enqueue(ProfileEvents::CurrentProfileSwitched {getActiveProfileID()});
        publishWaiting();
    }
}
