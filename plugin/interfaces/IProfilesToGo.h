#pragma once

#include <cJsonValue.h>

#include <QObject>
#include <QString>
#include <QStringList>

/// Profiles in the memory of a device.
class IProfilesToGo : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Array of the records of the profiles on the device.
    Q_INVOKABLE virtual cJsonValue getProfiles(const QString& deviceId) = 0;

    /// Short text for a device id.
    Q_INVOKABLE virtual QString shortDeviceName(const QString& deviceId) = 0;

    /// Starts to write the changed profiles to the device. Progress is published on
    /// "ProfilesToGo_Events".
    Q_INVOKABLE virtual void commitDevice(const QString& deviceId) = 0;

    /// The same for all devices.
    Q_INVOKABLE virtual void commitAllDevices() = 0;

    /// The same for all devices; returns when all is written.
    Q_INVOKABLE virtual void commitAllDevicesAndWait() = 0;

    /// Used memory of the device, in bytes.
    Q_INVOKABLE virtual int memoryUsed(const QString& deviceId) = 0;

    /// True while the device reads or writes.
    Q_INVOKABLE virtual bool isDeviceBusy(const QString& deviceId) = 0;

    /// True while the device reads.
    Q_INVOKABLE virtual bool isDeviceBusyReading(const QString& deviceId) = 0;

    /// True while the device writes.
    Q_INVOKABLE virtual bool isDeviceBusyWriting(const QString& deviceId) = 0;

    /// True if the profiles fit in the free memory of the device.
    Q_INVOKABLE virtual bool isSpaceAvailable(const QString& deviceId, const QStringList& profileIds) = 0;
};
