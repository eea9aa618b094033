#pragma once

#include "DeletedProfiles.h"
#include "DeviceMemory.h"

#include <IDeviceCopies.h>
#include <IProfilesToGo.h>
#include <Profile.h>

#include <QFileSystemWatcher>
#include <QFutureWatcher>
#include <QHash>
#include <QList>
#include <QSet>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

class cDevMgrService;
class cProfileMgrService;
class HostDevice;

/// The service "ProfilesToGo": profiles in the on-board memories of devices.
///
/// A profile with a device id is bound to that device: its tile is edited like any other, and a commit writes
/// it into the device. The memories of the demonstration devices are folders, one for each device whose
/// manifest gives it a memory. Renaming or removing a device's folder is pulling the device out.
///
/// A memory is read when its device is plugged in; what it holds and the profile manager does not becomes a
/// profile that is bound to the device. A commit writes what differs and removes what the user has deleted.
/// It writes nothing if not all of it fits. What can't be read stays in the device until the user removes it.
///
/// Reading and writing run in threads of their own, between "ProfilesToGoDeviceBusy" and
/// "ProfilesToGoDeviceIdle"; everything else runs on the GUI thread.
class cProfilesToGoService : public IProfilesToGo, public IDeviceCopies
{
    Q_OBJECT
    Q_CLASSINFO("service", "ProfilesToGo")

public:
    /// A document in a memory that can't be used.
    struct Damage
    {
        QString fileName;
        QString reason;
        qint64 size = 0;
    };

    /// `folder` is where the demonstration devices keep their memories. The others outlive the service.
    cProfilesToGoService(const QString& folder, cDevMgrService& devices, cProfileMgrService& profiles,
        QObject* parent = nullptr);
    /// Ends what is under way first; that takes as long as the disk does.
    ~cProfilesToGoService() override;

    /// Finds the devices with a memory and reads them. Called once, when the profiles are there.
    void start();

    /// Ids of the devices that have a memory, plugged in or not.
    QStringList deviceIds() const;
    QString deviceName(const QString& deviceId) const;
    int capacity(const QString& deviceId) const;
    bool isConnected(const QString& deviceId) const;
    /// Plugs a demonstration device in or pulls it out.
    void setConnected(const QString& deviceId, bool connected);
    QList<Damage> damages(const QString& deviceId) const;
    void removeDamaged(const QString& deviceId, const QString& fileName);

    /// Records of the profiles that the device holds; an empty array while it is away.
    cJsonValue getProfiles(const QString& deviceId) override;
    /// The short name of a device that is there, or empty.
    QString shortDeviceName(const QString& deviceId) override;
    /// What was asked for while the device is busy is done afterwards.
    void commitDevice(const QString& deviceId) override;
    /// Devices that are away are passed over.
    void commitAllDevices() override;
    /// Events are delivered meanwhile, the user's are not.
    void commitAllDevicesAndWait() override;
    int memoryUsed(const QString& deviceId) override;
    bool isDeviceBusy(const QString& deviceId) override;
    bool isDeviceBusyReading(const QString& deviceId) override;
    bool isDeviceBusyWriting(const QString& deviceId) override;
    /// Counts with what is bound to the device and still to be written. False for a device that is away.
    bool isSpaceAvailable(const QString& deviceId, const QStringList& profileIds) override;

    // IDeviceCopies
    QByteArray documentOnDevice(const QString& deviceId, const QString& profileId) const override;

    /// Event of "ProfileMgr_Events": the device gives up a profile that was deleted.
    Q_INVOKABLE void onProfileDeleted(const QString& profileID);
    /// Event of "Profiler_Events": tells a view that shows another profile now what the device lacks. The
    /// view offers to write only what it hears of.
    Q_INVOKABLE void onProfileSelectionChanged(const QString& profileID);

Q_SIGNALS:
    /// Something that the user has to know, in words.
    void problem(const QString& text);
    /// The device was plugged in or pulled out, became busy or idle, or holds something else now.
    void memoryChanged(const QString& deviceId);

private Q_SLOTS:
    void onFolderChanged();
    void onJobFinished();

private:
    enum class Activity { None, Reading, Writing };

    struct Stored
    {
        DeviceMemory::Document document;
        std::optional<Profile> profile;
        /// Why there is no profile.
        QString damage;
    };

    struct Device
    {
        Device(const QString& deviceId, const QString& deviceName, const DeviceMemory& deviceMemory)
            : id(deviceId)
            , name(deviceName)
            , memory(deviceMemory)
            , deleted(deviceMemory.folder() + QStringLiteral(".deleted"))
            , known(deleted.ids())
        { }

        QString id;
        QString name;
        DeviceMemory memory;
        bool isConnected = false;
        Activity activity = Activity::None;
        bool commitAgain = false;
        /// True if the device was plugged in or pulled out during the present activity.
        bool wasReplaced = false;
        /// File names of what the last write was to remove.
        QStringList toRemove;
        /// File names of deleted profiles that could not be removed. They are not tried again by themselves,
        /// but when the user deletes them once more, writes to the device, or plugs it in.
        QSet<QString> unremovable;
        std::vector<Stored> stored;
        DeletedProfiles deleted;
        /// Ids in capitals of profiles that were bound to the device since the start, or deleted before it.
        /// One of them that is gone was deleted by the user.
        QSet<QString> known;
        QFutureWatcher<DeviceMemory::Contents> watcher;
    };

    Device* find(const QString& deviceId) const;
    void addDevice(const HostDevice& device);
    void commit(Device& device, bool removalsOnly);
    DeviceMemory::Changes changesFor(Device& device, bool removalsOnly);
    /// Bytes in the memory after the changes.
    static qint64 sizeAfter(const Device& device, const DeviceMemory::Changes& changes);
    template<typename Job>
    void startJob(Device& device, Activity activity, const Job& job);
    void startReading(Device& device);
    void startWriting(Device& device, const DeviceMemory::Changes& changes);
    void takeContents(Device& device, const DeviceMemory::Contents& contents);
    Stored examined(const Device& device, const DeviceMemory::Document& document) const;
    void adoptUnknown(Device& device);
    void tellFailures(const Device& device, Activity activity, const DeviceMemory::Contents& contents);
    /// Takes down what a write left that it was to remove.
    static void noteUnremovable(Device& device);
    void forgetRemoved(Device& device);
    void tellUnsaved(const Device& device, const QString& error);
    QByteArray documentOf(const QString& profileId) const;
    static const Stored* storedProfile(const Device& device, const QString& profileId);
    bool isAnyBusy() const;
    QString awayFolder(const Device& device) const;

    QString m_folder;
    cDevMgrService& m_deviceManager;
    cProfileMgrService& m_profiles;
    QFileSystemWatcher m_folderWatcher;
    /// True once nothing may take more time than it must.
    std::atomic_bool m_hurry {false};
    /// Their threads sleep for most of their time, which is why they are not those of the application's pool.
    QThreadPool m_threads;
    std::vector<std::unique_ptr<Device>> m_devices;
};
