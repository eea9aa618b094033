#include "DeviceTestCase.h"

#include <algorithm>

void DeviceTestCase::initTestCase()
{
    TestCase::initTestCase();
    for (const QString& alias : DeviceScene::aliases())
        m_devices.emplace(alias, DeviceScene(alias));
}

QStringList DeviceTestCase::numbered(const QString& letter, int first, int last)
{
    QStringList ids;
    for (int i = first; i <= last; ++i)
        ids << letter + QString::number(i);
    return ids;
}

const ControlPlace& DeviceTestCase::control(const DeviceScene& device, const QString& id)
{
    const QList<ControlPlace>& controls = device.controls();
    return *std::find_if(
        controls.begin(), controls.end(), [&](const ControlPlace& control) { return control.id == id; });
}

void DeviceTestCase::everyDevice() const
{
    QTest::addColumn<QString>("alias");
    for (const auto& [alias, device] : m_devices)
        QTest::newRow(qPrintable(alias)) << alias;
}

const DeviceScene& DeviceTestCase::currentDevice() const
{
    QFETCH(QString, alias);
    return m_devices.at(alias);
}
