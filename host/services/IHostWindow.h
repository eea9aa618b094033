#pragma once

#include <QString>

class QWidget;

/// What the services need from the main window.
class IHostWindow
{
public:
    virtual QWidget* widget() = 0;

    /// Brings the device bar in front of its neighbours.
    virtual void raiseDeviceBar() = 0;

    virtual bool isDeviceBarUnderMouse() const = 0;

    /// Model of the device that is shown; empty if there is none.
    virtual QString activeDeviceModel() const = 0;

    /// Id of the device that is shown; empty if there is none.
    virtual QString activeDeviceId() const = 0;

    /// Shows another device; false for an unknown model.
    virtual bool selectDevice(const QString& model) = 0;

    /// Shows a message to the user that stays until it is dismissed.
    virtual void showMessage(const QString& text) = 0;

protected:
    ~IHostWindow() = default;
};
