#pragma once

#include "Profile.h"

#include <cJsonValue.h>

#include <QString>

#include <variant>

/// What listeners are told about a step, with the parameters of the events of the same names.
namespace ProfileEvents {

struct ProfileAdded
{
    QString profileId;
};

struct ProfileDeleted
{
    QString profileId;
};

struct ProfilePropertyChanged
{
    QString profileId;
};

struct CurrentProfileSwitched
{
    QString profileId;
};

struct MacroAdded
{
    QString profileId;
    cJsonValue macro;
};

struct MacroDeleted
{
    QString profileId;
    cJsonValue macro;
};

struct MacroChanged
{
    QString profileId;
    cJsonValue macro;
};

struct MacroAssigned
{
    QString profileId;
    ControlKey control;
    QString macroId;
};

struct AssignmentRemoved
{
    QString profileId;
    ControlKey control;
    QString macroId;
};

} // namespace ProfileEvents

using ProfileEvent = std::variant<ProfileEvents::ProfileAdded, ProfileEvents::ProfileDeleted,
    ProfileEvents::ProfilePropertyChanged, ProfileEvents::CurrentProfileSwitched, ProfileEvents::MacroAdded,
    ProfileEvents::MacroDeleted, ProfileEvents::MacroChanged, ProfileEvents::MacroAssigned,
    ProfileEvents::AssignmentRemoved>;
