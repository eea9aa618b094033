#include "cLCDMonService.h"

namespace {

class NoDevices : public ILCDDeviceList
{
public:
    int count() const override { return 0; }
    ILCDDevicePtr at(int) const override { return {}; }
};

class NoApplets : public IAppletOnDeviceList
{
public:
    int count() const override { return 0; }
    IAppletOnDevicePtr at(int) const override { return {}; }
};

} // namespace

cLCDMonService::cLCDMonService(QObject* parent)
    : ILCDMon(parent)
{ }

cDeviceSettingsPtr cLCDMonService::deviceSettings(const QString&)
{
    return {};
}

cAppletOnDeviceListPtr cLCDMonService::appletsOnDevice(const QString&)
{
    return cAppletOnDeviceListPtr(new NoApplets);
}

cLCDDeviceListPtr cLCDMonService::lcdDevices()
{
    return cLCDDeviceListPtr(new NoDevices);
}

cLCDBitmapPtr cLCDMonService::lastBitmapSent(const QString&)
{
    return {};
}
