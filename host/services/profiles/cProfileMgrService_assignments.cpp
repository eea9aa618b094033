#include "cProfileMgrService.h"

#include <IDevMgr.h>
#include <ModeNames.h>
#include <ProfileIds.h>
#include <XmlFragment.h>

#include <QDomElement>
#include <QUuid>

#include <algorithm>

using namespace ProfileChanges;
using ProfileIds::isSame;

namespace {

/// Callers by name may ask for anything; what can't be stored must not be assigned to.
bool isControl(const ControlKey& control)
{
    return !control.category.isEmpty() && !control.contextId.isEmpty() && ModeNames::isValid(control.mode)
        && XmlFragment::isRepresentable(control.category) && XmlFragment::isRepresentable(control.contextId);
}

QString held(const Profile& profile, const ControlKey& control)
{
    const auto found = profile.assignments.find(control);
    return found == profile.assignments.end() ? QString() : found->second;
}

/// The entries of one category, which stand together.
template<typename Entries, typename Use>
void forCategory(const Entries& entries, const QString& category, const Use& use)
{
    for (auto entry = entries.lower_bound({category, MKey::M1, QString()});
         entry != entries.end() && entry->first.category == category; ++entry)
        use(entry->first, entry->second);
}

} // namespace

void cProfileMgrService::assign(
    const Profile& profile, const ControlKey& control, const QString& macroId, Changes& changes) const
{
    const QString before = held(profile, control);
    if (before == macroId)
        return;
    const bool remembers = !m_pausedBackups.contains(profile.uid().toUpper());
    if (remembers && profile.backup.count(control) == 0)
        changes.emplace_back(SetBackup {profile.uid(), control, before});
    changes.emplace_back(SetAssignment {profile.uid(), control, macroId});
}

QString cProfileMgrService::getAssignment(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    const Profile* found = profile(profileID);
    return found ? held(*found, {devicemodal, mode, contextID}) : QString();
}

void cProfileMgrService::setAssignment(const QString& profileID, const QString& devicemodal,
    const QString& macroID, MKey::MKey_t mode, const QString& contextID)
{
    const Profile* found = profile(profileID);
    const cJsonValue* macro = m_book.findMacro(profileID, macroID);
    const ControlKey control {devicemodal, mode, contextID};
    if (!found || !macro || !isControl(control))
        return;
    Changes changes {SetCategory {found->uid(), devicemodal, true}};
    assign(*found, control, (*macro)["uid"].toString(), changes);
    perform(
        {tr("Assign %1 to %2").arg((*macro)["display_name"].toString(), contextID), tr("Assign %1 Commands")},
        changes);
}

void cProfileMgrService::setGenericAssignment(const QString& profileID, const QString& devicemodal,
    const QString& type, const QString& name, bool hidden, MKey::MKey_t mode, const QString& contextID)
{
    const Profile* found = profile(profileID);
    const ControlKey control {devicemodal, mode, contextID};
    if (!found || !isControl(control))
        return;
    // A control without a generic command is generic when it is empty.
    if (type.isEmpty() || name.isEmpty()) {
        removeAssignment(profileID, devicemodal, mode, contextID);
        return;
    }
    Changes changes {SetCategory {found->uid(), devicemodal, true}};
    cJsonValue macro = getMacroByTypeAndName(profileID, type, name, hidden);
    if (macro.isNull()) {
        // As QUuid gives it, unlike all other ids.
        macro["uid"] = QUuid::createUuid().toString();
        macro["name"] = name;
        macro["display_name"] = name;
        macro["namespace"] = type;
        macro["hidden"] = hidden;
        macro["data"]["function"] = name;
        changes.emplace_back(InsertMacro {found->uid(), macro, -1});
    }
    assign(*found, control, macro["uid"].toString(), changes);
    perform({tr("Assign %1 to %2").arg(name, contextID), tr("Assign %1 Commands")}, changes);
}

void cProfileMgrService::removeAssignment(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    const Profile* found = profile(profileID);
    if (!found)
        return;
    Changes changes;
    assign(*found, {devicemodal, mode, contextID}, QString(), changes);
    perform({tr("Unassign %1").arg(contextID), tr("Unassign %1 Keys")}, changes);
}

bool cProfileMgrService::isMacroAssigned(const QString& profileID, const QString& devCategory,
    const QStringList& contextIDs, const QString& macroID)
{
    const std::vector<ControlKey> controls = m_book.controlsOf(profileID, macroID);
    return std::any_of(controls.begin(), controls.end(), [&](const ControlKey& control) {
        return control.category == devCategory && contextIDs.contains(control.contextId);
    });
}

bool cProfileMgrService::containsDevCategory(const QString& profileID, const QString& devCategory)
{
    const Profile* found = profile(profileID);
    return found && found->categories.contains(devCategory);
}

bool cProfileMgrService::profileHasBackup(const QString& profileID, const QString& deviceCategory)
{
    const Profile* found = profile(profileID);
    bool differs = false;
    if (found) {
        forCategory(found->backup, deviceCategory, [&](const ControlKey& control, const QString&) {
            differs = differs || differsFromRemembered(*found, control);
        });
    }
    return differs;
}

std::optional<QString> cProfileMgrService::remembered(const Profile& profile, const ControlKey& control) const
{
    const auto entry = profile.backup.find(control);
    if (entry == profile.backup.end())
        return std::nullopt;
    return m_book.findMacro(profile.uid(), entry->second) ? entry->second : QString();
}

bool cProfileMgrService::differsFromRemembered(const Profile& profile, const ControlKey& control) const
{
    const std::optional<QString> before = remembered(profile, control);
    return before && !isSame(held(profile, control), *before);
}

bool cProfileMgrService::assignmentHasBackup(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    const Profile* found = profile(profileID);
    return found && differsFromRemembered(*found, {devicemodal, mode, contextID});
}

void cProfileMgrService::setDefaultAssignment(
    const QString& profileID, const QString& devicemodal, MKey::MKey_t mode, const QString& contextID)
{
    const Profile* found = profile(profileID);
    const ControlKey control {devicemodal, mode, contextID};
    if (found && differsFromRemembered(*found, control)) {
        perform({tr("Use Default of %1").arg(contextID), tr("Use Default of %1 Keys")},
            {SetAssignment {found->uid(), control, *remembered(*found, control)}});
    }
}

void cProfileMgrService::cleanupBackup(const QString& profileID, const QString& devicemodal)
{
    const Profile* found = profile(profileID);
    if (!found)
        return;
    Changes changes;
    forCategory(found->backup, devicemodal, [&](const ControlKey& control, const QString&) {
        changes.emplace_back(SetBackup {found->uid(), control, std::nullopt});
    });
    perform({tr("Forget Defaults of %1").arg(found->name()), QString()}, changes);
}

bool cProfileMgrService::enableProfileBackup(const QString& profileID, bool enable)
{
    if (!profile(profileID))
        return false;
    if (enable)
        m_pausedBackups.remove(profileID.toUpper());
    else
        m_pausedBackups.insert(profileID.toUpper());
    return true;
}

bool cProfileMgrService::canMacroBeAssignedTo(const QString& macroID, const QString& profileID,
    const QString& deviceCategory, MKey::MKey_t mode, const QString& contextID)
{
    const cJsonValue* macro = m_book.findMacro(profileID, macroID);
    const ControlKey control {deviceCategory, mode, contextID};
    return macro && isControl(control) && fits(*macro, control);
}

bool cProfileMgrService::fits(const cJsonValue& macro, const ControlKey& control) const
{
    const cMacroTypePtr type = macroType(macro["namespace"].toString());
    if (!type)
        return false;
    bool isKnown = false;
    const QStringList wanted = controlTypes(control, &isKnown);
    if (!isKnown)
        return true;
    const cJsonValue info = type->info();
    const cJsonValue& offered = info["control_types"];
    for (unsigned i = 0; i < offered.size(); ++i) {
        if (wanted.contains(offered[int(i)]["control_type"].toString()))
            return true;
    }
    return false;
}

QStringList cProfileMgrService::controlTypes(const ControlKey& control, bool* isKnown) const
{
    QStringList types;
    *isKnown = false;
    if (!m_surroundings.devices)
        return types;
    const cAbstractDeviceList devices = m_surroundings.devices->findDevices(cJsonValue());
    for (const cAbstractDevicePtr& device : devices) {
        const QDomElement manifest = m_surroundings.devices->metaData(device->model());
        if (manifest.firstChildElement(QStringLiteral("profiler")).attribute(QStringLiteral("category"))
            != control.category)
            continue;
        QDomElement element = manifest.firstChildElement(QStringLiteral("macrobindingmetadata"))
                                  .firstChildElement(QStringLiteral("controls"))
                                  .firstChildElement(QStringLiteral("control"));
        for (; !element.isNull(); element = element.nextSiblingElement(QStringLiteral("control"))) {
            if (element.attribute(QStringLiteral("id")) != control.contextId)
                continue;
            *isKnown = true;
            QDomElement type =
                element.firstChildElement(QStringLiteral("types")).firstChildElement(QStringLiteral("type"));
            for (; !type.isNull(); type = type.nextSiblingElement(QStringLiteral("type")))
                types.append(type.attribute(QStringLiteral("name")));
        }
    }
    return types;
}
