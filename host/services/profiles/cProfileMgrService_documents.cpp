#include "cProfileMgrService.h"

#include "IProfilePrinter.h"

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

void cProfileMgrService::printProfile(
    const QString& profileID, const QString& deviceCategory, const QStringList& keysList)
{
    const Profile* printed = profile(profileID);
    if (printed && m_printer)
        m_printer->print(*printed, deviceCategory, keysList);
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
