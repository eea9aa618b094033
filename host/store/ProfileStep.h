#pragma once

#include "Profile.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// The changes that the profiles of the application are made of. Each is as small as its inverse is exact.
/// Profiles and commands are named by their uids, without regard to case.
namespace ProfileChanges {

struct InsertProfile
{
    Profile profile;
    /// Place in the order of profiles; -1 for the end.
    int index = -1;
};

/// The roles that the profile still has are left to none.
struct RemoveProfile
{
    QString profileId;
};

/// Replaces Profile::properties.
struct SetProperties
{
    QString profileId;
    cJsonValue properties;
};

struct InsertMacro
{
    QString profileId;
    cJsonValue macro;
    /// Place in the order of commands; -1 for the end.
    int index = -1;
};

/// Removes the command alone; its assignments are changes of their own that stand before it.
struct RemoveMacro
{
    QString profileId;
    QString macroId;
};

/// Replaces the command that has the record's `uid`.
struct ReplaceMacro
{
    QString profileId;
    cJsonValue macro;
};

/// Gives a command another place in the order of commands. Nobody is told, since nobody shows that order.
struct MoveMacro
{
    QString profileId;
    QString macroId;
    int index = 0;
};

struct SetAssignment
{
    QString profileId;
    ControlKey control;
    /// Empty to leave the control without a command.
    QString macroId;
};

struct SetBackup
{
    QString profileId;
    ControlKey control;
    /// What the control held; nothing to forget the entry.
    std::optional<QString> macroId;
};

struct SetCategory
{
    QString profileId;
    QString category;
    bool isSetUp = true;
};

struct SetIcon
{
    QString profileId;
    /// PNG; empty for none.
    QByteArray icon;
};

struct SetPointer
{
    QString profileId;
    QString model;
    /// Nothing to forget the properties of the model.
    std::optional<cPointerProperties> pointer;
};

/// Replaces what a document said beyond what is known. Nobody is told.
struct SetExtensions
{
    QString profileId;
    Profile::Extensions extensions;
};

enum class Role { Current, Default, Persistent };

/// Gives a role to a profile; an empty id leaves it to none.
struct SetRole
{
    Role role = Role::Current;
    QString profileId;
    /// If this is set, only a profile of this id, or none, is relieved of the role: who was given it since
    /// keeps it.
    std::optional<QString> heldBy = std::nullopt;
};

} // namespace ProfileChanges

using ProfileChange = std::variant<ProfileChanges::InsertProfile, ProfileChanges::RemoveProfile,
    ProfileChanges::SetProperties, ProfileChanges::InsertMacro, ProfileChanges::RemoveMacro,
    ProfileChanges::ReplaceMacro, ProfileChanges::MoveMacro, ProfileChanges::SetAssignment,
    ProfileChanges::SetBackup, ProfileChanges::SetCategory, ProfileChanges::SetIcon,
    ProfileChanges::SetPointer, ProfileChanges::SetExtensions, ProfileChanges::SetRole>;

/// What a step does, for people.
struct StepName
{
    /// "Delete Command Reload"
    QString one;
    /// The same for several steps of this kind that are one to the user, with their number as %1: "Delete %1
    /// Commands". Empty for a kind that comes alone.
    QString many;
};

/// Changes that are made, and unmade, together.
struct ProfileStep
{
    std::vector<ProfileChange> changes;
};
