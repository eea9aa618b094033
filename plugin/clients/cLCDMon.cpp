#include "cLCDMon.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cLCDMon::cLCDMon()
{
    requireService(ServiceNames::LCDMon);
}

cDeviceSettingsPtr cLCDMon::deviceSettings(const QString& deviceModel)
{
    return askService<cDeviceSettingsPtr>(
        ServiceNames::LCDMon, "deviceSettings", "cDeviceSettingsPtr", tagged("const QString", deviceModel));
}

cAppletOnDeviceListPtr cLCDMon::appletsOnDevice(const QString& deviceModel)
{
    return askService<cAppletOnDeviceListPtr>(ServiceNames::LCDMon, "appletsOnDevice",
        "cAppletOnDeviceListPtr", tagged("const QString", deviceModel));
}

cLCDDeviceListPtr cLCDMon::lcdDevices()
{
    return askService<cLCDDeviceListPtr>(ServiceNames::LCDMon, "lcdDevices", "cLCDDeviceListPtr");
}

cLCDBitmapPtr cLCDMon::lastBitmapSent(const QString& deviceModel)
{
    return askService<cLCDBitmapPtr>(
        ServiceNames::LCDMon, "lastBitmapSent", "cLCDBitmapPtr", tagged("const QString", deviceModel));
}
