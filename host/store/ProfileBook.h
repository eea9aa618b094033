#pragma once

#include "Profile.h"
#include "ProfileEvent.h"
#include "ProfileStep.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>
#include <vector>

/// All profiles in memory, and the one place where they change.
///
/// It knows neither files nor listeners: who applies a step saves the profiles that it touched and publishes
/// its events, in that order. Ids are compared without regard to case.
class ProfileBook
{
    Q_DISABLE_COPY(ProfileBook)

public:
    /// What came of a step.
    struct Outcome
    {
        /// The step that brings back what was before. Without changes if the step changed nothing.
        ProfileStep inverse;
        /// All is in memory when the first is published. A command is announced before the controls that it
        /// comes to or is gone from, a control's old command goes before its new one comes, a profile's
        /// property event is there once.
        std::vector<ProfileEvent> events;
        /// Ids of the profiles whose content changed, also of removed ones.
        QSet<QString> touched;
        /// True if a role changed.
        bool rolesChanged = false;
    };

    ProfileBook() = default;

    /// Carries out the changes in their order. A change that names something that is not there, that would
    /// insert an id a second time, or that changes nothing, is passed over.
    Outcome apply(ProfileStep step);

    /// Ids of all profiles in their order.
    QStringList ids() const;
    /// Null for an unknown id.
    const Profile* find(const QString& profileId) const;
    /// Null for an unknown one.
    const cJsonValue* findMacro(const QString& profileId, const QString& macroId) const;
    /// Controls that hold the command, in their order.
    std::vector<ControlKey> controlsOf(const QString& profileId, const QString& macroId) const;
    /// Id of the profile that has the role, or empty.
    QString withRole(ProfileChanges::Role role) const;

private:
    class Editor;

    /// The events of a step as Outcome::events has them.
    std::vector<ProfileEvent> arranged(std::vector<ProfileEvent> events) const;
    Profile* findMutable(const QString& profileId);

    std::vector<std::unique_ptr<Profile>> m_profiles;
    /// By id in capitals.
    QHash<QString, Profile*> m_byId;
    std::array<QString, 3> m_roles;
};
