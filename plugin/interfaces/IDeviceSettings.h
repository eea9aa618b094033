#pragma once

#include <QMetaType>
#include <QSharedPointer>

/// The settings of a device's display.
class IDeviceSettings
{
public:
    virtual ~IDeviceSettings() = default;

    /// 0 (dark) to 100.
    virtual int brightness() const = 0;
};

using cDeviceSettingsPtr = QSharedPointer<IDeviceSettings>;

Q_DECLARE_METATYPE(cDeviceSettingsPtr)
