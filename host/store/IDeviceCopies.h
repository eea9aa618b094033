#pragma once

#include <QByteArray>
#include <QString>

/// What devices hold of the profiles that are bound to them.
class IDeviceCopies
{
public:
    /// The document of the profile as the device has it; empty if the device is away or does not have it.
    virtual QByteArray documentOnDevice(const QString& deviceId, const QString& profileId) const = 0;

protected:
    ~IDeviceCopies() = default;
};
