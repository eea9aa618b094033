#include "cLCDMonService.h"

#include "cDevMgrService.h"
#include "HostDevice.h"

#include <IMainUI.h>

#include <QList>

namespace {

constexpr int FullBrightness = 100;

class Display : public ILCDDevice
{
public:
    explicit Display(const HostDevice& device)
        : m_model(device.model())
        , m_size(device.displaySize())
    { }

    QString model() const override { return m_model; }
    QSize size() const override { return m_size; }

private:
    QString m_model;
    QSize m_size;
};

class Displays : public ILCDDeviceList
{
public:
    void append(const ILCDDevicePtr& display) { m_displays.append(display); }

    int count() const override { return m_displays.size(); }
    ILCDDevicePtr at(int index) const override { return m_displays.value(index); }

private:
    QList<ILCDDevicePtr> m_displays;
};

class Settings : public IDeviceSettings
{
public:
    explicit Settings(int brightness)
        : m_brightness(brightness)
    { }

    int brightness() const override { return m_brightness; }

private:
    int m_brightness = 0;
};

class NoApplets : public IAppletOnDeviceList
{
public:
    int count() const override { return 0; }
    IAppletOnDevicePtr at(int) const override { return {}; }
};

} // namespace

const char cLCDMonService::BrightnessProperty[] = "lcd_brightness";

cLCDMonService::cLCDMonService(cDevMgrService& devices, IMainUI& mainUI, QObject* parent)
    : ILCDMon(parent)
    , m_devices(devices)
    , m_mainUI(mainUI)
{ }

cDeviceSettingsPtr cLCDMonService::deviceSettings(const QString& deviceModel)
{
    const cDevMgrService::DevicePtr device = m_devices.deviceOfModel(deviceModel);
    if (!device || device->displaySize().isEmpty())
        return {};
    const cJsonValue state = device->state();
    const int brightness =
        state.contains(BrightnessProperty) ? state[BrightnessProperty].toInt() : FullBrightness;
    return cDeviceSettingsPtr(new Settings(qBound(0, brightness, FullBrightness)));
}

cAppletOnDeviceListPtr cLCDMonService::appletsOnDevice(const QString&)
{
    return cAppletOnDeviceListPtr(new NoApplets);
}

cLCDDeviceListPtr cLCDMonService::lcdDevices()
{
    auto displays = QSharedPointer<Displays>::create();
    const QString shown = m_mainUI.getActiveDeviceId();
    const QList<cDevMgrService::DevicePtr> devices = m_devices.devices();
    for (const cDevMgrService::DevicePtr& device : devices) {
        if (device->uid() == shown && !device->displaySize().isEmpty())
            displays->append(ILCDDevicePtr(new Display(*device)));
    }
    return displays;
}

cLCDBitmapPtr cLCDMonService::lastBitmapSent(const QString&)
{
    return {};
}
