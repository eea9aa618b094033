#include "cProfileMgrService.h"

#include <FixedIds.h>
#include <ProfileIds.h>
#include <XmlFragment.h>

#include <QSet>

#include <algorithm>

using namespace ProfileChanges;
using ProfileIds::newUid;

namespace {

QString uidOf(const cJsonValue& macro)
{
    return macro["uid"].toString();
}

QString displayNameOf(const cJsonValue& macro)
{
    return macro["display_name"].toString();
}

/// Commands of the built-in types are what their type and name say: a profile needs no second one.
bool isBuiltIn(const cJsonValue& macro)
{
    const QString macroNamespace = macro["namespace"].toString();
    return macroNamespace == MacroNamespaces::MouseFunction || macroNamespace == MacroNamespaces::Media
        || macroNamespace == MacroNamespaces::Hotkeys;
}

/// The ids that only one command of a profile has, in every profile the same one.
bool hasFixedId(const cJsonValue& macro)
{
    const QString uid = uidOf(macro).toUpper();
    return uid == FixedIds::MouseMacro || uid == FixedIds::JoystickMacro;
}

} // namespace

void cProfileMgrService::tidyMacros(Profile& profile)
{
    QSet<QString> ids;
    for (cJsonValue& macro : profile.macros) {
        QString id = uidOf(macro).toUpper();
        if (id.isEmpty() || ids.contains(id)) {
            id = newUid();
            macro["uid"] = id;
        }
        ids.insert(id);
    }
}

bool cProfileMgrService::addMacro(const QString& profileID, const cJsonValue& macro)
{
    // An id that no document can hold would not be the same after a restart.
    if (!XmlFragment::isRepresentable(uidOf(macro)))
        return false;
    return perform({tr("Add Command %1").arg(displayNameOf(macro)), tr("Add %1 Commands")},
        {InsertMacro {profileID, macro, -1}});
}

bool cProfileMgrService::copyMacros(
    const QString& fromProfileID, const QString& toProfileID, const QStringList& macroIDs)
{
    const Profile* target = profile(toProfileID);
    if (!target || target == profile(fromProfileID))
        return false;
    Changes changes;
    for (const QString& macroID : macroIDs) {
        if (const cJsonValue* macro = m_book.findMacro(fromProfileID, macroID))
            copyMacro(*target, *macro, changes);
    }
    return perform({tr("Copy Commands to %1").arg(target->name()), QString()}, changes);
}

void cProfileMgrService::copyMacro(const Profile& target, const cJsonValue& macro, Changes& changes) const
{
    if (hasFixedId(macro)) {
        changes.emplace_back(InsertMacro {target.uid(), macro, -1});
        return;
    }
    const bool isThere = isBuiltIn(macro)
        && std::any_of(target.macros.begin(), target.macros.end(), [&](const cJsonValue& other) {
               return other["namespace"] == macro["namespace"] && other["name"] == macro["name"]
                   && other["hidden"].toBool() == macro["hidden"].toBool();
           });
    if (isThere)
        return;
    cJsonValue copy = macro;
    copy["uid"] = newUid();
    changes.emplace_back(InsertMacro {target.uid(), copy, -1});
}

bool cProfileMgrService::deleteMacro(const QString& profileID, const cJsonValue& macro)
{
    const cJsonValue* doomed = m_book.findMacro(profileID, uidOf(macro));
    if (!doomed)
        return false;
    const StepName name {tr("Delete Command %1").arg(displayNameOf(*doomed)), tr("Delete %1 Commands")};
    Changes changes {RemoveMacro {profileID, uidOf(macro)}};
    for (const ControlKey& control : m_book.controlsOf(profileID, uidOf(macro)))
        assign(*profile(profileID), control, QString(), changes);
    return perform(name, changes);
}

bool cProfileMgrService::editMacro(const QString& profileID, const cJsonValue& macro)
{
    const cJsonValue* before = m_book.findMacro(profileID, uidOf(macro));
    if (!before)
        return false;
    return perform({tr("Change Command %1").arg(displayNameOf(*before)), tr("Change %1 Commands")},
        {ReplaceMacro {profileID, macro}});
}

cJsonValue cProfileMgrService::macros(const QString& profileID)
{
    const Profile* found = profile(profileID);
    if (!found)
        return cJsonValue();
    // Null without commands: that is how a key knows that there is nothing yet to be dragged onto it.
    cJsonValue records;
    for (const cJsonValue& macro : found->macros)
        records.append(macro);
    return records;
}

cJsonValue cProfileMgrService::getMacroByID(const QString& profileID, const QString& macroID)
{
    const cJsonValue* macro = m_book.findMacro(profileID, macroID);
    return macro ? *macro : cJsonValue();
}

cJsonValue cProfileMgrService::getMacroByTypeAndName(
    const QString& profileID, const QString& macroType, const QString& macroName, bool hidden)
{
    if (const Profile* found = profile(profileID)) {
        for (const cJsonValue& macro : found->macros) {
            if (macro["namespace"].toString() == macroType && macro["name"].toString() == macroName
                && macro["hidden"].toBool() == hidden)
                return macro;
        }
    }
    return cJsonValue();
}

void cProfileMgrService::moveAssignments(
    const QString& profileID, const QString& fromMacroID, const QString& toMacroID)
{
    const cJsonValue* target = m_book.findMacro(profileID, toMacroID);
    if (!target)
        return;
    const Profile& changed = *profile(profileID);
    const QString uid = uidOf(*target);
    Changes changes;
    for (const ControlKey& control : m_book.controlsOf(profileID, fromMacroID))
        changes.emplace_back(SetAssignment {changed.uid(), control, uid});
    for (const auto& [control, macroId] : changed.backup) {
        if (ProfileIds::isSame(macroId, fromMacroID))
            changes.emplace_back(SetBackup {changed.uid(), control, uid});
    }
    perform({tr("Move Assignments to %1").arg(displayNameOf(*target)), QString()}, changes);
}

bool cProfileMgrService::canMacroBeChangedTo(
    const QString& profileID, const QString& macroID, const cJsonValue& newMacro)
{
    const cJsonValue* macro = m_book.findMacro(profileID, macroID);
    if (!macro || hasFixedId(*macro))
        return false;
    const std::vector<ControlKey> controls = m_book.controlsOf(profileID, macroID);
    return std::all_of(
        controls.begin(), controls.end(), [&](const ControlKey& control) { return fits(newMacro, control); });
}

bool cProfileMgrService::addMouseMacro(const QString& profileID)
{
    return addFixedMacro(profileID, FixedIds::MouseMacro, tr("Mouse"), MacroNamespaces::StickMouse);
}

bool cProfileMgrService::addJoystickMacro(const QString& profileID)
{
    return addFixedMacro(profileID, FixedIds::JoystickMacro, tr("Joystick"), MacroNamespaces::StickJoystick);
}

bool cProfileMgrService::addFixedMacro(
    const QString& profileID, const QString& uid, const QString& name, const QString& macroNamespace)
{
    if (m_book.findMacro(profileID, uid))
        return true;
    cJsonValue macro;
    macro["uid"] = uid;
    macro["name"] = name;
    macro["display_name"] = name;
    macro["namespace"] = macroNamespace;
    macro["hidden"] = false;
    return perform(
        {tr("Add Command %1").arg(name), tr("Add %1 Commands")}, {InsertMacro {profileID, macro, -1}});
}
