#pragma once

#include "BarButton.h"

class HostDevice;

/// The button that chooses a device.
class DeviceButton : public BarButton
{
    Q_OBJECT

public:
    explicit DeviceButton(const HostDevice& device, QWidget* parent = nullptr);

    QString model() const { return m_model; }

protected:
    QPixmap currentIcon() const override { return m_icon; }

private:
    QString m_model;
    QPixmap m_icon;
};
