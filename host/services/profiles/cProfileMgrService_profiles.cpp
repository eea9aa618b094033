#include "cProfileMgrService.h"

#include <FixedIds.h>
#include <JsonText.h>
#include <ModeNames.h>

#include <QBuffer>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>

using namespace ProfileChanges;

namespace {

bool isFixed(const QString& profileID)
{
    return profileID.compare(FixedIds::DefaultProfile, Qt::CaseInsensitive) == 0;
}

QString newUid()
{
    return QUuid::createUuid().toString().toUpper();
}

bool isLocal(const Profile& profile)
{
    return profile.properties["deviceid"].toString().isEmpty();
}

/// Paths of one file, also where a file system tells names apart by case and the stored path does not.
bool isSamePath(const QString& a, const QString& b)
{
    const auto canonical = [](const QString& path) {
        const QString existing = QFileInfo(path).canonicalFilePath();
        return existing.isEmpty() ? path : existing;
    };
    return !a.isEmpty() && canonical(a) == canonical(b);
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
    for (unsigned i = 0; i < macros.size(); ++i)
        profile.macros.push_back(macros[int(i)]);
    const cJsonValue& categories = record["assignments"];
    for (const QString& category : HVS::jsonKeys(categories)) {
        profile.categories.insert(category);
        const cJsonValue& assignments = categories[category.toUtf8().constData()];
        for (unsigned i = 0; i < assignments.size(); ++i) {
            const cJsonValue& assignment = assignments[int(i)];
            const ControlKey control {category, ModeNames::fromText(assignment["shiftstate"].toString()),
                assignment["contextid"].toString()};
            profile.assignments[control] = assignment["macrouid"].toString();
        }
    }
    return profile;
}

QString cProfileMgrService::freeName(const QString& name) const
{
    const QStringList ids = m_book.ids();
    const auto isTaken = [&](const QString& candidate) {
        return std::any_of(ids.begin(), ids.end(), [&](const QString& id) {
            const Profile* other = profile(id);
            return isLocal(*other) && other->name() == candidate;
        });
    };
    QString candidate = name;
    for (int i = 2; isTaken(candidate); ++i)
        candidate = QStringLiteral("%1 (%2)").arg(name).arg(i);
    return candidate;
}

bool cProfileMgrService::addCopy(Profile copy, const QString& text)
{
    copy.properties["uid"] = newUid();
    copy.properties["name"] = freeName(copy.name());
    copy.properties.deleteKey(QStringLiteral("deviceid"));
    return perform(text, {InsertProfile {std::move(copy), -1}});
}

bool cProfileMgrService::addProfile(const cJsonValue& profile)
{
    return perform(
        tr("Add Profile %1").arg(profile["name"].toString()), {InsertProfile {profileOf(profile), -1}});
}

bool cProfileMgrService::deleteProfileByID(const QString& profileID)
{
    const Profile* doomed = profile(profileID);
    if (!doomed || isFixed(profileID))
        return false;
    Changes changes;
    const auto hands = [&](Role role, const QString& next) {
        if (m_book.withRole(role).compare(profileID, Qt::CaseInsensitive) == 0)
            changes.emplace_back(SetRole {role, next});
    };
    hands(Role::Default, FixedIds::DefaultProfile);
    hands(Role::Persistent, QString());
    hands(Role::Current, FixedIds::DefaultProfile);
    const QString text = tr("Delete Profile %1").arg(doomed->name());
    changes.emplace_back(RemoveProfile {doomed->uid()});
    return perform(text, changes);
}

void cProfileMgrService::copyProfile(const QString& profileID)
{
    if (const Profile* original = profile(profileID))
        addCopy(*original, tr("Copy Profile %1").arg(original->name()));
}

void cProfileMgrService::copyProfileToDevice(
    const QString& profileID, const QString& deviceId, const QString&)
{
    const Profile* original = profile(profileID);
    if (!original || deviceId.isEmpty())
        return;
    Profile copy = *original;
    copy.properties["uid"] = newUid();
    copy.properties["deviceid"] = deviceId;
    perform(tr("Copy Profile %1 to Device").arg(original->name()), {InsertProfile {std::move(copy), -1}});
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
    for (const QString& id : m_book.ids()) {
        if (isSamePath(profile(id)->properties["target"].toString(), profileTarget))
            return recordOf(profile(id));
    }
    return cJsonValue();
}

bool cProfileMgrService::editProfileProperty(const cJsonValue& profileproperty)
{
    const Profile* edited = profile(profileproperty["uid"].toString());
    if (!edited || isFixed(edited->uid()))
        return false;
    return perform(tr("Change Profile %1").arg(edited->name()),
        {SetProperties {edited->uid(), profileOf(profileproperty).properties}});
}

void cProfileMgrService::activateNextProfile()
{
    const QStringList ids = m_book.ids();
    if (ids.isEmpty())
        return;
    const int next = (ids.indexOf(getActiveProfileID()) + 1) % ids.size();
    perform(QString(), {SetRole {Role::Current, ids[next]}});
}

QString cProfileMgrService::getActiveProfileID()
{
    return m_book.withRole(Role::Current);
}

void cProfileMgrService::setPersistentProfileByID(const QString& profileID)
{
    if (profileID.isEmpty() || profile(profileID)) {
        perform(QString(), {SetRole {Role::Persistent, profileID}});
        perform(QString(), {SetRole {Role::Current, chooseCurrent(m_foregroundApp)}});
    }
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
    if (profile(profileID)) {
        perform(QString(), {SetRole {Role::Default, profileID}});
        perform(QString(), {SetRole {Role::Current, chooseCurrent(m_foregroundApp)}});
    }
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
    if (!edited)
        return false;
    cJsonValue properties = edited->properties;
    properties["script"] = script;
    return perform(
        tr("Change Script of %1").arg(edited->name()), {SetProperties {edited->uid(), properties}});
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
    if (profile(profileID))
        perform(QString(), {SetRole {Role::Current, profileID}});
}

void cProfileMgrService::onForegroundAppChange(const QString& appPath, quint32)
{
    m_foregroundApp = appPath;
    perform(QString(), {SetRole {Role::Current, chooseCurrent(appPath)}});
}

QString cProfileMgrService::chooseCurrent(const QString& foregroundApp) const
{
    const QString persistent = m_book.withRole(Role::Persistent);
    if (!persistent.isEmpty())
        return persistent;
    for (const QString& id : m_book.ids()) {
        if (isSamePath(profile(id)->properties["target"].toString(), foregroundApp))
            return id;
    }
    return m_book.withRole(Role::Default);
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
    perform(tr("Change Icon of %1").arg(edited->name()), {SetIcon {edited->uid(), png}});
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
