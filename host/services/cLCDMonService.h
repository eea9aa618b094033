#pragma once

#include <ILCDMon.h>

/// The service "LCDMon.LCDMon". This version drives no displays: there are none to list, and nothing is known
/// of any.
class cLCDMonService : public ILCDMon
{
    Q_OBJECT
    Q_CLASSINFO("service", "LCDMon.LCDMon")

public:
    explicit cLCDMonService(QObject* parent = nullptr);

    /// Null.
    cDeviceSettingsPtr deviceSettings(const QString& deviceModel) override;
    /// An empty list.
    cAppletOnDeviceListPtr appletsOnDevice(const QString& deviceModel) override;
    /// An empty list.
    cLCDDeviceListPtr lcdDevices() override;
    /// Null.
    cLCDBitmapPtr lastBitmapSent(const QString& deviceModel) override;
};
