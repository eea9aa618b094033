#pragma once

#include "cLCDBitmap.h"
#include "IAppletOnDevice.h"
#include "IDeviceSettings.h"
#include "ILCDDevice.h"

#include <QObject>
#include <QString>

/// The displays of the devices.
class ILCDMon : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("version", "1")

public:
    using QObject::QObject;

    /// Settings of a device's display, or a null pointer.
    Q_INVOKABLE virtual cDeviceSettingsPtr deviceSettings(const QString& deviceModel) = 0;

    /// The applets that run on a device's display, or a null pointer.
    Q_INVOKABLE virtual cAppletOnDeviceListPtr appletsOnDevice(const QString& deviceModel) = 0;

    /// The devices that have a display, or a null pointer.
    Q_INVOKABLE virtual cLCDDeviceListPtr lcdDevices() = 0;

    /// The picture that was last sent to a device's display, or a null pointer.
    Q_INVOKABLE virtual cLCDBitmapPtr lastBitmapSent(const QString& deviceModel) = 0;
};
