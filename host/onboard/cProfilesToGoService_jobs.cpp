// Reading and writing in threads of their own, and what the memories are found to hold.
#include "cProfilesToGoService.h"

#include <cProfileMgrService.h>
#include <EventNames.h>
#include <IServiceMgr.h>
#include <ProfileDocument.h>

#include <QtConcurrentRun>

#include <algorithm>
#include <utility>

void cProfilesToGoService::startReading(Device& device)
{
    const DeviceMemory memory = device.memory;
    startJob(device, Activity::Reading, [this, memory] { return memory.read(m_hurry); });
}

void cProfilesToGoService::startWriting(Device& device, const DeviceMemory::Changes& changes)
{
    const DeviceMemory memory = device.memory;
    device.toRemove = changes.removed;
    startJob(device, Activity::Writing, [this, memory, changes] { return memory.write(changes, m_hurry); });
}

template<typename Job>
void cProfilesToGoService::startJob(Device& device, Activity activity, const Job& job)
{
    device.activity = activity;
    IServiceMgr::instance()->publish(EventSources::ProfilesToGo, Events::ProfilesToGoDeviceBusy,
        Q_ARG(QString, device.name), Q_ARG(QString, device.id));
    Q_EMIT memoryChanged(device.id);
    device.watcher.setFuture(QtConcurrent::run(&m_threads, job));
}

void cProfilesToGoService::onJobFinished()
{
    const auto found = std::find_if(m_devices.begin(), m_devices.end(),
        [this](const std::unique_ptr<Device>& device) { return &device->watcher == sender(); });
    Device& device = **found;
    const Activity ended = std::exchange(device.activity, Activity::None);
    const DeviceMemory::Contents contents = device.watcher.result();
    const bool isFailed = !contents.error.isEmpty();
    tellFailures(device, ended, contents);
    device.isConnected = device.memory.isThere();
    takeContents(device, device.isConnected ? contents : DeviceMemory::Contents());
    if (ended == Activity::Writing)
        noteUnremovable(device);
    if (ended == Activity::Reading && device.isConnected && !isFailed)
        adoptUnknown(device);
    if (device.isConnected && !isFailed)
        forgetRemoved(device);
    IServiceMgr::instance()->publish(
        EventSources::ProfilesToGo, Events::ProfilesToGoDeviceIdle, Q_ARG(QString, device.id));
    // Listeners take a device that has come to rest for one that has everything.
    m_profiles.announceUnwritten(device.id);
    Q_EMIT memoryChanged(device.id);

    const bool wasReplaced = std::exchange(device.wasReplaced, false);
    if (device.isConnected && (wasReplaced || (isFailed && ended == Activity::Writing)))
        startReading(device);
    else if (std::exchange(device.commitAgain, false))
        commitDevice(device.id);
    else if (device.isConnected && (ended == Activity::Reading || !device.deleted.ids().isEmpty()))
        commit(device, true);
}

void cProfilesToGoService::tellFailures(
    const Device& device, Activity activity, const DeviceMemory::Contents& contents)
{
    if (!contents.removalError.isEmpty()) {
        Q_EMIT problem(tr(
            "What was deleted could not be removed from %1: %2. Write to the device or connect it again to "
            "try once more.")
                           .arg(device.name, contents.removalError));
    }
    if (contents.error.isEmpty())
        return;
    Q_EMIT problem(activity == Activity::Writing
            ? tr("The profiles could not be written to %1: %2. They are kept on this computer; write them "
                 "again later.")
                  .arg(device.name, contents.error)
            : tr("The profiles in %1 could not be read: %2.").arg(device.name, contents.error));
}

void cProfilesToGoService::noteUnremovable(Device& device)
{
    for (const QString& fileName : qAsConst(device.toRemove)) {
        const bool isThere = std::any_of(device.stored.begin(), device.stored.end(),
            [&](const Stored& stored) { return stored.document.fileName == fileName; });
        if (isThere)
            device.unremovable.insert(fileName);
        else
            device.unremovable.remove(fileName);
    }
}

void cProfilesToGoService::forgetRemoved(Device& device)
{
    if (m_profiles.isReadOnly())
        return;
    const auto isStillToGo = [&](const QString& id) {
        return storedProfile(device, id) && m_profiles.getProfileByID(id).isNull();
    };
    tellUnsaved(device, device.deleted.forgetUnless(isStillToGo));
}

void cProfilesToGoService::tellUnsaved(const Device& device, const QString& error)
{
    if (!error.isEmpty()) {
        Q_EMIT problem(
            tr("What was deleted of %1 can't be written down: %2. It may come back after a restart.")
                .arg(device.name, error));
    }
}

void cProfilesToGoService::takeContents(Device& device, const DeviceMemory::Contents& contents)
{
    device.stored.clear();
    for (const DeviceMemory::Document& document : contents.documents) {
        Stored stored = examined(device, document);
        const bool isTwice = stored.profile && storedProfile(device, stored.profile->uid());
        if (isTwice) {
            stored.profile.reset();
            stored.damage = tr("another document holds a profile of the same id");
        }
        device.stored.push_back(std::move(stored));
    }
}

cProfilesToGoService::Stored cProfilesToGoService::examined(
    const Device& device, const DeviceMemory::Document& document) const
{
    Stored stored {document, std::nullopt, QString()};
    if (document.bytes.isEmpty()) {
        stored.damage =
            document.size > 0 ? tr("it is larger than the memory or can't be opened") : tr("it is empty");
        return stored;
    }
    ProfileDocument::ReadResult result = m_profiles.readDocument(document.bytes);
    stored.damage = result.error;
    if (!stored.damage.isEmpty())
        return stored;
    if (result.profiles.size() != 1 || result.profiles.front().uid().isEmpty()) {
        stored.damage = tr("it holds no single profile with an id");
        return stored;
    }
    stored.profile = std::move(result.profiles.front());
    stored.profile->properties["deviceid"] = device.id;
    return stored;
}

void cProfilesToGoService::adoptUnknown(Device& device)
{
    for (const Stored& stored : device.stored) {
        if (!stored.profile) {
            Q_EMIT problem(
                tr("%1 holds something that can't be used: %2, %3. It stays there until you remove "
                   "it.")
                    .arg(device.name, stored.document.fileName, stored.damage));
            continue;
        }
        // One that was bound to the device before has been deleted meanwhile.
        if (!device.known.contains(stored.profile->uid().toUpper()))
            m_profiles.adopt(*stored.profile);
    }
}
