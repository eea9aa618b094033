#pragma once

#include "ILCDMon.h"

/// The client of ILCDMon, the service "LCDMon.LCDMon"; see cServiceClient.h for how its members call.
class cLCDMon : public ILCDMon
{
    Q_OBJECT

public:
    cLCDMon();

    cDeviceSettingsPtr deviceSettings(const QString& deviceModel) override;
    cAppletOnDeviceListPtr appletsOnDevice(const QString& deviceModel) override;
    cLCDDeviceListPtr lcdDevices() override;
    cLCDBitmapPtr lastBitmapSent(const QString& deviceModel) override;
};
