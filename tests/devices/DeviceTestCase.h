#pragma once

#include "DeviceScene.h"

#include <TestCase.h>

#include <QString>
#include <QStringList>

#include <map>

/// A test of all devices. A case that runs once for each of them has everyDevice() for its data.
class DeviceTestCase : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase();

protected:
    static QStringList numbered(const QString& letter, int first, int last);
    static const ControlPlace& control(const DeviceScene& device, const QString& id);

    /// A row for each device, with its alias.
    void everyDevice() const;
    /// The device of the present row.
    const DeviceScene& currentDevice() const;
    const DeviceScene& deviceOf(const QString& alias) const { return m_devices.at(alias); }
    const std::map<QString, DeviceScene>& devices() const { return m_devices; }

private:
    std::map<QString, DeviceScene> m_devices;
};
