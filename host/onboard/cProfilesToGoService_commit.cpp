// What is written into the memories, and whether there is room for it.
#include "cProfilesToGoService.h"

#include <cProfileMgrService.h>
#include <ProfileStore.h>

#include <QEventLoop>

#include <algorithm>

namespace {

QString inKilobytes(qint64 bytes)
{
    return QString::number((bytes + 1023) / 1024);
}

} // namespace

QByteArray cProfilesToGoService::documentOf(const QString& profileId) const
{
    return m_profiles.getProfilesToGoXML(QString(), false, {profileId});
}

DeviceMemory::Changes cProfilesToGoService::changesFor(Device& device, bool removalsOnly)
{
    DeviceMemory::Changes changes;
    QSet<QString> bound;
    const cJsonValue records = m_profiles.getProfilesToGo(device.id);
    for (unsigned i = 0; i < records.size(); ++i) {
        const QString id = records[int(i)]["uid"].toString();
        bound.insert(id.toUpper());
        const Stored* stored = storedProfile(device, id);
        const QByteArray document = removalsOnly ? QByteArray() : documentOf(id);
        if (removalsOnly || (stored && stored->document.bytes == document))
            continue;
        changes.written[stored ? stored->document.fileName : ProfileStore::fileName(id)] = document;
    }
    device.known |= bound;
    for (const Stored& stored : device.stored) {
        if (!stored.profile || (removalsOnly && device.unremovable.contains(stored.document.fileName)))
            continue;
        const QString id = stored.profile->uid().toUpper();
        if (device.known.contains(id) && !bound.contains(id))
            changes.removed.append(stored.document.fileName);
    }
    return changes;
}

qint64 cProfilesToGoService::sizeAfter(const Device& device, const DeviceMemory::Changes& changes)
{
    qint64 size = 0;
    for (const Stored& stored : device.stored) {
        const QString& name = stored.document.fileName;
        if (!changes.removed.contains(name) && !changes.written.contains(name))
            size += stored.document.size;
    }
    for (const QByteArray& document : changes.written)
        size += document.size();
    return size;
}

void cProfilesToGoService::commitDevice(const QString& deviceId)
{
    Device* device = find(deviceId);
    if (!device) {
        Q_EMIT problem(tr("There is no device with an on-board memory for this profile."));
        return;
    }
    if (device->activity != Activity::None)
        device->commitAgain = true;
    else
        commit(*device, false);
}

void cProfilesToGoService::commit(Device& device, bool removalsOnly)
{
    if (m_profiles.isReadOnly()) {
        if (!removalsOnly)
            Q_EMIT problem(tr("Another process of this application uses your devices. Nothing was written."));
        return;
    }
    if (!device.memory.isThere()) {
        if (!removalsOnly)
            Q_EMIT problem(
                tr("%1 is not connected. Its profiles are kept on this computer; write them when it "
                   "is back.")
                    .arg(device.name));
        return;
    }
    const DeviceMemory::Changes changes = changesFor(device, removalsOnly);
    if (removalsOnly && changes.isEmpty())
        return;
    const qint64 size = sizeAfter(device, changes);
    if (!changes.written.isEmpty() && size > device.memory.capacity()) {
        Q_EMIT problem(
            tr("The profiles for %1 need %2 KB, but its memory has %3 KB. Nothing was written. Remove "
               "a profile from the device and write again.")
                .arg(device.name, inKilobytes(size), inKilobytes(device.memory.capacity())));
        return;
    }
    startWriting(device, changes);
}

void cProfilesToGoService::commitAllDevices()
{
    for (const auto& device : m_devices) {
        if (device->isConnected)
            commitDevice(device->id);
    }
}

void cProfilesToGoService::commitAllDevicesAndWait()
{
    commitAllDevices();
    if (!isAnyBusy())
        return;
    QEventLoop loop;
    // The last change of a device comes when it is idle.
    connect(this, SIGNAL(memoryChanged(QString)), &loop, SLOT(quit()));
    while (isAnyBusy() && loop.exec(QEventLoop::ExcludeUserInputEvents) == 0) { }
}

bool cProfilesToGoService::isAnyBusy() const
{
    return std::any_of(m_devices.begin(), m_devices.end(),
        [](const std::unique_ptr<Device>& device) { return device->activity != Activity::None; });
}

bool cProfilesToGoService::isSpaceAvailable(const QString& deviceId, const QStringList& profileIds)
{
    Device* device = find(deviceId);
    if (!device || !device->isConnected)
        return false;
    DeviceMemory::Changes changes = changesFor(*device, false);
    for (const QString& id : profileIds) {
        if (m_profiles.getProfileDeviceId(id) != deviceId)
            changes.written[ProfileStore::fileName(id)] = documentOf(id);
    }
    return sizeAfter(*device, changes) <= device->memory.capacity();
}
