// Profiles that are bound to devices.
#include "cProfileMgrService.h"

#include <EventNames.h>
#include <IDeviceCopies.h>
#include <IServiceMgr.h>
#include <ProfileIds.h>

using namespace ProfileChanges;

void cProfileMgrService::copyProfileToDevice(
    const QString& profileID, const QString& deviceId, const QString&)
{
    const Profile* original = profile(profileID);
    if (!original || deviceId.isEmpty())
        return;
    QSet<QString> taken;
    for (const QString& id : m_book.ids()) {
        if (getProfileDeviceId(id) == deviceId)
            taken.insert(profile(id)->name());
    }
    Profile copy = *original;
    copy.properties["uid"] = ProfileIds::newUid();
    copy.properties["name"] = numberedName(original->name(), taken);
    copy.properties["deviceid"] = deviceId;
    perform({tr("Copy Profile %1 to Device").arg(original->name()), QString()},
        {InsertProfile {std::move(copy), -1}});
}

bool cProfileMgrService::isProfileToGoDirty(const QString& profileID)
{
    const QString deviceId = getProfileDeviceId(profileID);
    if (deviceId.isEmpty())
        return false;
    return !m_deviceCopies
        || m_deviceCopies->documentOnDevice(deviceId, profileID)
        != ProfileDocument::write({*profile(profileID)}, macroTypes());
}

ProfileDocument::ReadResult cProfileMgrService::readDocument(const QByteArray& document) const
{
    return ProfileDocument::read(document, macroTypes());
}

void cProfileMgrService::adopt(Profile found)
{
    if (profile(found.uid()))
        return;
    // Nobody's deed, so nothing to undo.
    carryOut({{InsertProfile {std::move(found), -1}}});
    publishWaiting();
}

void cProfileMgrService::announceUnwritten(const QString& deviceId)
{
    for (const QString& id : m_book.ids()) {
        if (getProfileDeviceId(id) == deviceId && isProfileToGoDirty(id))
            m_waiting.enqueue(ProfileEvents::ProfilePropertyChanged {id});
    }
    publishWaiting();
}
