#include "cProfilePrinter.h"

#include "PrintWindow.h"

#include <cDevMgrService.h>
#include <HostDevice.h>
#include <IMainUI.h>

void cProfilePrinter::print(const Profile& profile, const QString& deviceCategory, const QStringList& keys)
{
    auto* const window = new PrintWindow(
        KeySheet::make(profile, deviceCategory, keys, manifestFor(deviceCategory)), m_mainUI.window());
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->open();
}

QDomElement cProfilePrinter::manifestFor(const QString& category) const
{
    const QString active = m_mainUI.getActiveDeviceId();
    QDomElement manifest;
    const QList<cDevMgrService::DevicePtr> devices = m_devices.devices();
    for (const cDevMgrService::DevicePtr& device : devices) {
        if (device->properties()["category"].toString() != category)
            continue;
        if (manifest.isNull() || device->uid() == active)
            manifest = device->manifest();
    }
    return manifest;
}
