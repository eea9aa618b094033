#include "cProfileMgrService.h"

#include <IMainUI.h>
#include <ProfileDocument.h>
#include <ProfileIds.h>
#include <WholeFile.h>

#include <QDir>
#include <QDomElement>
#include <QFile>
#include <QFileInfo>

using namespace ProfileChanges;

bool cProfileMgrService::addProfile(
    const QDomElement& profile, const QString& displayName, const QString& signature)
{
    ProfileDocument::ReadResult result = ProfileDocument::readElement(profile, macroTypes());
    if (result.profiles.empty() || displayName.isEmpty())
        return false;
    Profile game = std::move(result.profiles.front());
    tidyMacros(game);
    game.properties["name"] = displayName;
    game.properties["target"] = signature;
    // The database's own id, if it has one, may be there already from an earlier scan.
    return addCopy(std::move(game), {tr("Add Profile %1").arg(displayName), tr("Add %1 Profiles")});
}

void cProfileMgrService::importProfile(const QString& profilePath)
{
    const QString file = QDir::toNativeSeparators(profilePath);
    QFile document(profilePath);
    QString reason;
    ProfileDocument::ReadResult result;
    if (!QFileInfo(profilePath).isFile() || !document.open(QIODevice::ReadOnly)) {
        reason = tr("it can't be opened");
    } else if (document.size() > ProfileDocument::MaxSize) {
        reason = tr("it is larger than %1 MB").arg(ProfileDocument::MaxSize / 1024 / 1024);
    } else {
        const QByteArray content = document.readAll();
        if (document.error() == QFileDevice::NoError)
            result = ProfileDocument::read(content, macroTypes());
        else
            result.error = document.errorString();
        reason = result.error;
        if (reason.isEmpty() && result.profiles.empty())
            reason = tr("it holds no profiles");
    }
    if (!reason.isEmpty()) {
        Q_EMIT problem(tr("%1 was not imported: %2.").arg(file, reason));
        return;
    }
    Changes changes;
    QSet<QString> ids;
    QSet<QString> names;
    for (Profile& imported : result.profiles) {
        // What is there stays: a profile of the same id comes in beside it.
        const QString id = imported.uid().toUpper();
        if (id.isEmpty() || profile(id) || ids.contains(id))
            imported.properties["uid"] = ProfileIds::newUid();
        ids.insert(imported.uid().toUpper());
        const QString name = imported.name();
        imported.properties["name"] =
            freeName(name.isEmpty() ? QFileInfo(profilePath).completeBaseName() : name, names);
        names.insert(imported.name());
        // It comes to this computer, wherever it was before.
        imported.properties.deleteKey(QStringLiteral("deviceid"));
        tidyMacros(imported);
        changes.emplace_back(InsertProfile {std::move(imported), -1});
    }
    perform({tr("Import %1").arg(QFileInfo(profilePath).fileName()), QString()}, changes);
}

void cProfileMgrService::exportProfile(const QString& profileID, const QString& profilePath)
{
    const Profile* exported = profile(profileID);
    if (!exported)
        return;
    QString reason;
    if (m_store.holds(profilePath)) {
        // It could be the document of another profile.
        reason = tr("the application keeps its own profiles there");
    } else {
        WholeFile::write(profilePath, ProfileDocument::write({*exported}, macroTypes()), &reason);
    }
    if (!reason.isEmpty()) {
        Q_EMIT problem(tr("%1 was not exported to %2: %3.")
                           .arg(exported->name(), QDir::toNativeSeparators(profilePath), reason));
    }
}

void cProfileMgrService::printProfile(const QString& profileID, const QString&, const QStringList&)
{
    const Profile* printed = profile(profileID);
    if (printed && m_surroundings.mainUI) {
        m_surroundings.mainUI->info(tr("Print Profile"),
            tr("%1 was not printed: this version can't print profiles.").arg(printed->name()));
    }
}

bool cProfileMgrService::saveAllProfiles()
{
    return m_store.writeNow();
}

QStringList cProfileMgrService::unsavedNames() const
{
    QStringList names;
    for (const Profile* unsaved : m_store.unwritten())
        names.append(unsaved->name());
    return names;
}

bool cProfileMgrService::saveProfile(const QString& profileID)
{
    return profile(profileID) && m_store.writeNow(profileID);
}

QByteArray cProfileMgrService::getProfilesToGoXML(
    const QString& deviceId, bool dirtyOnly, const QStringList& localProfileIds)
{
    std::vector<Profile> chosen;
    for (const QString& id : m_book.ids()) {
        const bool isOnDevice = !deviceId.isEmpty() && getProfileDeviceId(id) == deviceId;
        if ((isOnDevice && (!dirtyOnly || isProfileToGoDirty(id)))
            || localProfileIds.contains(id, Qt::CaseInsensitive))
            chosen.push_back(*profile(id));
    }
    return ProfileDocument::write(chosen, macroTypes());
}

cJsonValue cProfileMgrService::getProfilesToGo(const QString& deviceId)
{
    cJsonValue records(cJsonValue::arrayValue);
    for (const QString& id : m_book.ids()) {
        if (!deviceId.isEmpty() && getProfileDeviceId(id) == deviceId)
            records.append(recordOf(profile(id)));
    }
    return records;
}

bool cProfileMgrService::isProfileToGoDirty(const QString& profileID)
{
    // Nothing has been written to a device yet, so every profile that is bound to one is ahead of it.
    return !getProfileDeviceId(profileID).isEmpty();
}
