#pragma once

#include <IHostWindow.h>

#include <QStringList>
#include <QWidget>

/// A main window that writes down what is asked of it.
class FakeWindow : public QWidget, public IHostWindow
{
public:
    QWidget* widget() override { return this; }
    void raiseDeviceBar() override { ++raised; }
    bool isDeviceBarUnderMouse() const override { return underMouse; }
    QString activeDeviceModel() const override { return model; }
    QString activeDeviceId() const override { return deviceId; }
    bool selectDevice(const QString& newModel) override
    {
        if (!models.contains(newModel))
            return false;
        model = newModel;
        return true;
    }
    void showMessage(const QString& text) override { messages.append(text); }

    int raised = 0;
    bool underMouse = false;
    QString model;
    QString deviceId;
    QStringList models;
    QStringList messages;
};
