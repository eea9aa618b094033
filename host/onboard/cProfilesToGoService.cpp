#include "cProfilesToGoService.h"

#include <cDevMgrService.h>
#include <cProfileMgrService.h>
#include <EventNames.h>
#include <HostDevice.h>
#include <IServiceMgr.h>
#include <ProfileDocument.h>
#include <ProfileIds.h>
#include <ProfileStore.h>

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QtConcurrentRun>

#include <algorithm>

namespace {

const QLatin1String AwayEnding(".disconnected");

/// More devices than this wait for each other.
constexpr int MaxThreads = 8;

QString inKilobytes(qint64 bytes)
{
    return QString::number((bytes + 1023) / 1024);
}

} // namespace

cProfilesToGoService::cProfilesToGoService(
    const QString& folder, cDevMgrService& devices, cProfileMgrService& profiles, QObject* parent)
    : IProfilesToGo(parent)
    , m_folder(folder)
    , m_deviceManager(devices)
    , m_profiles(profiles)
{
    m_threads.setMaxThreadCount(MaxThreads);
    connect(&m_folderWatcher, SIGNAL(directoryChanged(QString)), this, SLOT(onFolderChanged()));
    m_profiles.setDeviceCopies(this);
}

cProfilesToGoService::~cProfilesToGoService()
{
    m_hurry = true;
    m_threads.waitForDone();
    m_profiles.setDeviceCopies(nullptr);
}

void cProfilesToGoService::start()
{
    const QList<cDevMgrService::DevicePtr> devices = m_deviceManager.devices();
    for (const cDevMgrService::DevicePtr& device : devices) {
        if (device->memorySize() > 0)
            addDevice(*device);
    }
    if (!m_devices.empty() && QDir(m_folder).exists())
        m_folderWatcher.addPath(m_folder);
    onFolderChanged();
}

void cProfilesToGoService::addDevice(const HostDevice& device)
{
    const QString folder = QDir(m_folder).filePath(device.folderName());
    auto added = std::make_unique<Device>(
        device.uid(), device.displayName(), DeviceMemory(folder, device.memorySize(), device.memorySpeed()));
    connect(&added->watcher, SIGNAL(finished()), this, SLOT(onJobFinished()));
    // A demonstration device is plugged in when it is seen for the first time.
    if (!QFileInfo::exists(folder) && !QFileInfo::exists(awayFolder(*added)) && !m_profiles.isReadOnly()
        && !QDir().mkpath(folder)) {
        Q_EMIT problem(
            tr("The memory of %1 can't be made in %2.").arg(added->name, QDir::toNativeSeparators(m_folder)));
    }
    m_devices.push_back(std::move(added));
}

QString cProfilesToGoService::awayFolder(const Device& device) const
{
    return device.memory.folder() + AwayEnding;
}

cProfilesToGoService::Device* cProfilesToGoService::find(const QString& deviceId) const
{
    const auto found = std::find_if(m_devices.begin(), m_devices.end(),
        [&](const std::unique_ptr<Device>& device) { return device->id == deviceId; });
    return found == m_devices.end() ? nullptr : found->get();
}

QStringList cProfilesToGoService::deviceIds() const
{
    QStringList ids;
    for (const auto& device : m_devices)
        ids.append(device->id);
    return ids;
}

QString cProfilesToGoService::deviceName(const QString& deviceId) const
{
    const Device* device = find(deviceId);
    return device ? device->name : QString();
}

int cProfilesToGoService::capacity(const QString& deviceId) const
{
    const Device* device = find(deviceId);
    return device ? device->memory.capacity() : 0;
}

bool cProfilesToGoService::isConnected(const QString& deviceId) const
{
    const Device* device = find(deviceId);
    return device && device->isConnected;
}

void cProfilesToGoService::setConnected(const QString& deviceId, bool connected)
{
    const Device* device = find(deviceId);
    if (!device || device->memory.isThere() == connected)
        return;
    const QString here = device->memory.folder();
    const QString away = awayFolder(*device);
    // A device whose memory is nowhere is a new one.
    const bool isDone = !connected ? QFile::rename(here, away)
        : QFileInfo(away).isDir()  ? QFile::rename(away, here)
                                   : QDir().mkpath(here);
    if (!isDone)
        Q_EMIT problem(connected ? tr("%1 can't be connected.").arg(device->name)
                                 : tr("%1 can't be disconnected.").arg(device->name));
    onFolderChanged();
}

void cProfilesToGoService::onFolderChanged()
{
    for (const auto& device : m_devices) {
        const bool isThere = device->memory.isThere();
        if (isThere == device->isConnected)
            continue;
        device->isConnected = isThere;
        device->stored.clear();
        device->unremovable.clear();
        // A job under way finds out by itself.
        device->wasReplaced = device->activity != Activity::None;
        if (isThere && device->activity == Activity::None)
            startReading(*device);
        else
            Q_EMIT memoryChanged(device->id);
    }
}

void cProfilesToGoService::startReading(Device& device)
{
    const DeviceMemory memory = device.memory;
    startJob(device, Activity::Reading, [this, memory] { return memory.read(m_hurry); });
}

void cProfilesToGoService::startWriting(Device& device, const DeviceMemory::Changes& changes)
{
    const DeviceMemory memory = device.memory;
    device.toRemove = changes.removed;
    device.removesOnly = changes.written.isEmpty() && !changes.removed.isEmpty();
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
    if (isFailed)
        Q_EMIT problem(failureText(device, ended, contents.error));
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

QString cProfilesToGoService::failureText(const Device& device, Activity activity, const QString& error)
{
    if (activity == Activity::Reading)
        return tr("The profiles in %1 could not be read: %2.").arg(device.name, error);
    if (device.removesOnly) {
        return tr("What was deleted could not be removed from %1: %2. Write to the device or connect it again "
                  "to try once more.")
            .arg(device.name, error);
    }
    return tr("The profiles could not be written to %1: %2. They are kept on this computer; write them again "
              "later.")
        .arg(device.name, error);
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

const cProfilesToGoService::Stored* cProfilesToGoService::storedProfile(
    const Device& device, const QString& profileId)
{
    const auto found = std::find_if(device.stored.begin(), device.stored.end(), [&](const Stored& stored) {
        return stored.profile && ProfileIds::isSame(stored.profile->uid(), profileId);
    });
    return found == device.stored.end() ? nullptr : &*found;
}

QByteArray cProfilesToGoService::documentOnDevice(const QString& deviceId, const QString& profileId) const
{
    const Device* device = find(deviceId);
    const Stored* stored = device ? storedProfile(*device, profileId) : nullptr;
    return stored ? stored->document.bytes : QByteArray();
}

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

void cProfilesToGoService::onProfileDeleted(const QString& profileID)
{
    for (const auto& device : m_devices) {
        const Stored* stored = storedProfile(*device, profileID);
        const bool isBusy = device->activity != Activity::None;
        device->known.insert(profileID.toUpper());
        if (!m_profiles.isReadOnly() && (stored || isBusy || !device->isConnected))
            tellUnsaved(*device, device->deleted.add(profileID));
        if (stored)
            device->unremovable.remove(stored->document.fileName);
        if (stored && !isBusy)
            commit(*device, true);
    }
}

void cProfilesToGoService::onProfileSelectionChanged(const QString& profileID)
{
    const Device* device = find(m_profiles.getProfileDeviceId(profileID));
    // One that is busy tells when it is idle.
    if (device && device->activity == Activity::None)
        m_profiles.announceUnwritten(device->id);
}

QList<cProfilesToGoService::Damage> cProfilesToGoService::damages(const QString& deviceId) const
{
    QList<Damage> list;
    if (const Device* device = find(deviceId)) {
        for (const Stored& stored : device->stored) {
            if (!stored.profile)
                list.append({stored.document.fileName, stored.damage, stored.document.size});
        }
    }
    return list;
}

void cProfilesToGoService::removeDamaged(const QString& deviceId, const QString& fileName)
{
    Device* device = find(deviceId);
    if (!device || device->activity != Activity::None || !device->isConnected || m_profiles.isReadOnly())
        return;
    const QList<Damage> known = damages(deviceId);
    const bool isDamaged = std::any_of(
        known.begin(), known.end(), [&](const Damage& damage) { return damage.fileName == fileName; });
    if (!isDamaged)
        return;
    DeviceMemory::Changes changes;
    changes.removed.append(fileName);
    startWriting(*device, changes);
}

cJsonValue cProfilesToGoService::getProfiles(const QString& deviceId)
{
    cJsonValue records(cJsonValue::arrayValue);
    if (const Device* device = find(deviceId)) {
        for (const Stored& stored : device->stored) {
            if (stored.profile)
                records.append(cProfileMgrService::recordOf(&*stored.profile));
        }
    }
    return records;
}

QString cProfilesToGoService::shortDeviceName(const QString& deviceId)
{
    const cAbstractDevicePtr device = m_deviceManager.findDevice(deviceId);
    const cJsonValue record = device ? device->properties() : cJsonValue();
    return record["short_name"].toString();
}

int cProfilesToGoService::memoryUsed(const QString& deviceId)
{
    const Device* device = find(deviceId);
    return device ? int(sizeAfter(*device, DeviceMemory::Changes())) : 0;
}

bool cProfilesToGoService::isDeviceBusy(const QString& deviceId)
{
    const Device* device = find(deviceId);
    return device && device->activity != Activity::None;
}

bool cProfilesToGoService::isDeviceBusyReading(const QString& deviceId)
{
    const Device* device = find(deviceId);
    return device && device->activity == Activity::Reading;
}

bool cProfilesToGoService::isDeviceBusyWriting(const QString& deviceId)
{
    const Device* device = find(deviceId);
    return device && device->activity == Activity::Writing;
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
