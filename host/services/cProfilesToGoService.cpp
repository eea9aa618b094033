#include "cProfilesToGoService.h"

#include <IDevMgr.h>
#include <IMainUI.h>

cProfilesToGoService::cProfilesToGoService(IDevMgr& devices, IMainUI& mainUI, QObject* parent)
    : IProfilesToGo(parent)
    , m_devices(devices)
    , m_mainUI(mainUI)
{ }

cJsonValue cProfilesToGoService::getProfiles(const QString&)
{
    return cJsonValue(cJsonValue::arrayValue);
}

QString cProfilesToGoService::shortDeviceName(const QString& deviceId)
{
    const cAbstractDevicePtr device = m_devices.findDevice(deviceId);
    const cJsonValue record = device ? device->properties() : cJsonValue();
    return record["short_name"].toString();
}

void cProfilesToGoService::commitDevice(const QString&)
{
    m_mainUI.info(tr("Profiles on the Device"), tr("This version can't write profiles into a device."));
}

// The others are asked for by the application, not by its user, whom they don't bother.
void cProfilesToGoService::commitAllDevices()
{ }

void cProfilesToGoService::commitAllDevicesAndWait()
{ }

int cProfilesToGoService::memoryUsed(const QString&)
{
    return 0;
}

bool cProfilesToGoService::isDeviceBusy(const QString&)
{
    return false;
}

bool cProfilesToGoService::isDeviceBusyReading(const QString&)
{
    return false;
}

bool cProfilesToGoService::isDeviceBusyWriting(const QString&)
{
    return false;
}

bool cProfilesToGoService::isSpaceAvailable(const QString&, const QStringList&)
{
    return false;
}
