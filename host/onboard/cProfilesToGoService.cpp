#include "cProfilesToGoService.h"

#include <cDevMgrService.h>
#include <cProfileMgrService.h>
#include <HostDevice.h>
#include <ProfileIds.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

const QLatin1String AwayEnding(".disconnected");

/// More devices than this wait for each other.
constexpr int MaxThreads = 8;

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
