#include "cProfileMgrService.h"

#include <FixedIds.h>
#include <IMacroTypeMgr.h>
#include <JsonText.h>
#include <ModeNames.h>
#include <ProfileIds.h>
#include <XmlFragment.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

using namespace ProfileChanges;
using ProfileIds::isSame;
using ProfileIds::newUid;

namespace {

bool isFixed(const QString& profileID)
{
    return isSame(profileID, FixedIds::DefaultProfile);
}

bool isLocal(const Profile& profile)
{
    return profile.properties["deviceid"].toString().isEmpty();
}

/// The one path of a file that may be reached by several; the path itself where there is no file.
QString canonical(const QString& path)
{
    const QString existing = QFileInfo(path).canonicalFilePath();
    return existing.isEmpty() ? path : existing;
}

bool isProcessRunning(quint32 processId)
{
    return QFileInfo::exists(QStringLiteral("/proc/%1").arg(processId));
}

} // namespace

cJsonValue cProfileMgrService::shortRecordOf(const Profile& profile)
{
    return profile.properties;
}

cJsonValue cProfileMgrService::recordOf(const Profile* profile)
{
    if (!profile)
        return cJsonValue();
    cJsonValue record = profile->properties;
    // A copy of the record is set up for the same categories.
    for (const QString& category : profile->categories)
        record["assignments"][category] = cJsonValue(cJsonValue::arrayValue);
    for (const cJsonValue& macro : profile->macros)
        record["macros"].append(macro);
    for (const auto& [control, macroId] : profile->assignments) {
        cJsonValue assignment;
        assignment["macrouid"] = macroId;
        assignment["contextid"] = control.contextId;
        assignment["shiftstate"] = ModeNames::toText(control.mode);
        record["assignments"][control.category].append(assignment);
    }
    return record;
}

Profile cProfileMgrService::profileOf(const cJsonValue& record)
{
    Profile profile;
    profile.properties = record;
    profile.properties.deleteKey(QStringLiteral("macros"));
    profile.properties.deleteKey(QStringLiteral("assignments"));
    const cJsonValue& macros = record["macros"];
    for (unsigned i = 0; i < macros.size(); ++i) {
        if (macros[int(i)].isObject())
            profile.macros.push_back(macros[int(i)]);
    }
    tidyMacros(profile);
    const cJsonValue& categories = record["assignments"];
    for (const QString& category : HVS::jsonKeys(categories)) {
        profile.categories.insert(category);
        const cJsonValue& assignments = categories[category.toUtf8().constData()];
        for (unsigned i = 0; i < assignments.size(); ++i) {
            const cJsonValue& assignment = assignments[int(i)];
            const std::optional<MKey::MKey_t> mode = ModeNames::parse(assignment["shiftstate"].toString());
            const QString contextId = assignment["contextid"].toString();
            if (mode && !contextId.isEmpty())
                profile.assignments[{category, *mode, contextId}] = assignment["macrouid"].toString();
        }
    }
    return profile;
}

const Profile* cProfileMgrService::withName(const QString& name) const
{
    for (const QString& id : m_book.ids()) {
        if (isLocal(*profile(id)) && profile(id)->name() == name)
            return profile(id);
    }
    return nullptr;
}

QString cProfileMgrService::freeName(const QString& name, QSet<QString> taken, const QString& exceptId) const
{
    for (const QString& id : m_book.ids()) {
        if (isLocal(*profile(id)) && !isSame(id, exceptId))
            taken.insert(profile(id)->name());
    }
    return numberedName(name, taken);
}

QString cProfileMgrService::numberedName(const QString& name, const QSet<QString>& taken)
{
    QString candidate = name;
    for (int i = 2; taken.contains(candidate); ++i)
        candidate = QStringLiteral("%1 (%2)").arg(name).arg(i);
    return candidate;
}

bool cProfileMgrService::addCopy(Profile copy, const StepName& name)
{
    copy.properties["uid"] = newUid();
    copy.properties["name"] = freeName(copy.name());
    copy.properties.deleteKey(QStringLiteral("deviceid"));
    return perform(name, {InsertProfile {std::move(copy), -1}});
}

bool cProfileMgrService::addProfile(const cJsonValue& profile)
{
    // An id that no document can hold would not be the same after a restart.
    if (!profile.isObject() || !XmlFragment::isRepresentable(profile["uid"].toString()))
        return false;
    Profile added = profileOf(profile);
    if (added.uid().isEmpty())
        added.properties["uid"] = newUid();
    const StepName name {tr("Add Profile %1").arg(added.name()), tr("Add %1 Profiles")};
    return perform(name, {InsertProfile {std::move(added), -1}});
}

bool cProfileMgrService::deleteProfileByID(const QString& profileID)
{
    const Profile* doomed = profile(profileID);
    if (!doomed || isFixed(profileID))
        return false;
    const StepName name {tr("Delete Profile %1").arg(doomed->name()), tr("Delete %1 Profiles")};
    return perform(name, {RemoveProfile {doomed->uid()}});
}

void cProfileMgrService::copyProfile(const QString& profileID)
{
    if (const Profile* original = profile(profileID))
        addCopy(*original, {tr("Copy Profile %1").arg(original->name()), tr("Copy %1 Profiles")});
}

cJsonValue cProfileMgrService::getProfileByID(const QString& profileID)
{
    return recordOf(profile(profileID));
}

cJsonValue cProfileMgrService::getProfileByName(const QString& profileID)
{
    for (const QString& id : m_book.ids()) {
        if (profile(id)->name() == profileID)
            return recordOf(profile(id));
    }
    return cJsonValue();
}

cJsonValue cProfileMgrService::getProfileByTarget(const QString& profileTarget)
{
    return recordOf(withTarget(profileTarget));
}

const Profile* cProfileMgrService::withTarget(const QString& path) const
{
    if (path.isEmpty())
        return nullptr;
    const QString wanted = canonical(path);
    for (const QString& id : m_book.ids()) {
        const QString target = profile(id)->properties["target"].toString();
        if (!target.isEmpty() && canonical(target) == wanted)
            return profile(id);
    }
    return nullptr;
}

bool cProfileMgrService::editProfileProperty(const cJsonValue& profileproperty)
{
    const Profile* edited = profile(profileproperty["uid"].toString());
    if (!edited || isFixed(edited->uid()))
        return false;
    cJsonValue properties = edited->properties;
    for (const QString& key : HVS::jsonKeys(profileproperty)) {
        if (key != QLatin1String("macros") && key != QLatin1String("assignments"))
            properties[key] = profileproperty[key.toUtf8().constData()];
    }
    return perform({tr("Change Profile %1").arg(edited->name()), QString()},
        {SetProperties {edited->uid(), properties}});
}

void cProfileMgrService::activateNextProfile()
{
    const QStringList ids = m_book.ids();
    if (ids.isEmpty())
        return;
    const int next = (ids.indexOf(getActiveProfileID()) + 1) % ids.size();
    m_isChosenByHand = true;
    performUnnamed({SetRole {Role::Current, ids[next]}});
}

QString cProfileMgrService::getActiveProfileID()
{
    return m_book.withRole(Role::Current);
}

void cProfileMgrService::setPersistentProfileByID(const QString& profileID)
{
    if (!profileID.isEmpty() && !profile(profileID))
        return;
    m_isChosenByHand = false;
    performUnnamed({SetRole {Role::Persistent, profileID},
        SetRole {Role::Current, chooseCurrent(profileID, getDefaultProfileID())}});
}

cJsonValue cProfileMgrService::getPersistentProfile()
{
    return recordOf(profile(getPersistentProfileID()));
}

QString cProfileMgrService::getPersistentProfileID()
{
    return m_book.withRole(Role::Persistent);
}

void cProfileMgrService::setDefaultProfileByID(const QString& profileID)
{
    if (!profile(profileID))
        return;
    Changes changes {SetRole {Role::Default, profileID}};
    if (!m_isChosenByHand)
        changes.emplace_back(SetRole {Role::Current, chooseCurrent(getPersistentProfileID(), profileID)});
    performUnnamed(changes);
}

cJsonValue cProfileMgrService::getDefaultProfile()
{
    return recordOf(profile(getDefaultProfileID()));
}

QString cProfileMgrService::getDefaultProfileID()
{
    return m_book.withRole(Role::Default);
}

bool cProfileMgrService::isDefaultConfiguration(const QString& profileID)
{
    return isFixed(profileID);
}

cJsonValue cProfileMgrService::profiles()
{
    cJsonValue records(cJsonValue::arrayValue);
    for (const QString& id : m_book.ids())
        records.append(shortRecordOf(*profile(id)));
    return records;
}

QStringList cProfileMgrService::profileIDs()
{
    return m_book.ids();
}

bool cProfileMgrService::setProfileScript(const QString& profileID, const QString& script)
{
    const Profile* edited = profile(profileID);
    if (!edited || getProfileScript(profileID) == script)
        return false;
    cJsonValue properties = edited->properties;
    properties["script"] = script;
    return perform({tr("Change Script of %1").arg(edited->name()), QString()},
        {SetProperties {edited->uid(), properties}});
}

QString cProfileMgrService::getProfileScript(const QString& profileID)
{
    const Profile* found = profile(profileID);
    return found ? found->properties["script"].toString() : QString();
}

QString cProfileMgrService::getProfileName(const QString& profileID)
{
    const Profile* found = profile(profileID);
    return found ? found->name() : QString();
}

QString cProfileMgrService::getProfileDeviceId(const QString& profileID)
{
    const Profile* found = profile(profileID);
    return found ? found->properties["deviceid"].toString() : QString();
}

void cProfileMgrService::testProfile(const QString& profileID)
{
    if (!profile(profileID))
        return;
    m_isChosenByHand = true;
    performUnnamed({SetRole {Role::Current, profileID}});
}

void cProfileMgrService::onForegroundAppChange(const QString& appPath, quint32 processId)
{
    const bool isOwn = processId == quint32(QCoreApplication::applicationPid());
    if (isOwn || (m_lockingProcess != 0 && isProcessRunning(m_lockingProcess)))
        return;
    m_foregroundApp = appPath;
    const Profile* game = withTarget(appPath);
    m_isChosenByHand = m_isChosenByHand && !game;
    if (m_isChosenByHand)
        return;
    m_lockingProcess = game && game->properties["lock"].toBool() ? processId : 0;
    performUnnamed({SetRole {Role::Current, chooseCurrent(getPersistentProfileID(), getDefaultProfileID())}});
}

QString cProfileMgrService::chooseCurrent(const QString& persistent, const QString& byDefault) const
{
    if (!persistent.isEmpty())
        return persistent;
    const Profile* game = withTarget(m_foregroundApp);
    return game ? game->uid() : byDefault;
}

void cProfileMgrService::setProfileIcon(const QString& profileID, const QPixmap& scaledIcon)
{
    const Profile* edited = profile(profileID);
    if (!edited)
        return;
    QByteArray png;
    QBuffer buffer(&png);
    if (!scaledIcon.isNull())
        scaledIcon.save(&buffer, "PNG");
    perform({tr("Change Icon of %1").arg(edited->name()), QString()}, {SetIcon {edited->uid(), png}});
}

QPixmap cProfileMgrService::profileIcon(const QString& profileID)
{
    QPixmap icon;
    if (const Profile* found = profile(profileID))
        icon.loadFromData(found->icon, "PNG");
    return icon;
}

bool cProfileMgrService::hasCustomIcon(const QString& profileID)
{
    const Profile* found = profile(profileID);
    return found && !found->icon.isEmpty();
}
