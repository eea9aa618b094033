#pragma once

#include <ILCDMon.h>

class cDevMgrService;
class IMainUI;

/// The service "LCDMon.LCDMon": the displays of devices whose manifests give them one.
///
/// The list has the display of the device that the window shows, and none if that device has none: what is
/// asked of a display is asked on the device that the user is busy with. Nothing is sent to displays yet, so
/// no applets run on them and no picture is known.
class cLCDMonService : public ILCDMon
{
    Q_OBJECT
    Q_CLASSINFO("service", "LCDMon.LCDMon")

public:
    /// Name of the device property, 0 to 100, that says how bright a display is. Without it, it is at its
    /// brightest.
    static const char BrightnessProperty[];

    /// Both outlive the service.
    cLCDMonService(cDevMgrService& devices, IMainUI& mainUI, QObject* parent = nullptr);

    /// The settings at this moment; null for a device without a display.
    cDeviceSettingsPtr deviceSettings(const QString& deviceModel) override;
    /// An empty list.
    cAppletOnDeviceListPtr appletsOnDevice(const QString& deviceModel) override;
    /// Never null. The list does not change when the user chooses another device afterwards.
    cLCDDeviceListPtr lcdDevices() override;
    /// Null.
    cLCDBitmapPtr lastBitmapSent(const QString& deviceModel) override;

private:
    cDevMgrService& m_devices;
    IMainUI& m_mainUI;
};
