#pragma once

#include <IAbstractDevice.h>
#include <IAppletOnDevice.h>
#include <IDeviceSettings.h>
#include <IFeatureView.h>
#include <ILCDDevice.h>
#include <IMacroType.h>

/// Objects that services hand out or take, with nothing behind them. Tests use their identity; that they
/// compile shows that the interfaces have these operations and no others that are pure.

class FakeFeatureView final : public IFeatureView
{
    Q_OBJECT

public:
    bool init(cJsonValue, QGraphicsView*) override { return false; }
    bool deinit(cJsonValue, QGraphicsView*) override { return false; }
    bool activate(cJsonValue) override { return false; }
    bool deactivate(cJsonValue) override { return false; }
    cJsonValue viewInfo() override { return cJsonValue(); }
};

class FakeMacroType final : public IMacroType
{
    Q_OBJECT

public:
    cJsonValue info() override { return cJsonValue(); }
    IMacroEditor* editor(cJsonValue) override { return nullptr; }
    cJsonValue XmlToJson(QDomElement) override { return cJsonValue(); }
    QDomElement JsonToXml(QDomDocument, cJsonValue) override { return QDomElement(); }
    cPlayStatePtr createPlayState(cJsonValue) override { return cPlayStatePtr(); }
    bool isRepeatable() override { return false; }
    bool isPrivate() override { return false; }
    bool isFixedName() override { return false; }
    int getPriority() override { return 0; }
};

class FakeDevice final : public IAbstractDevice
{
public:
    QString uid() const override { return QString(); }
    QString model() const override { return QString(); }
    cJsonValue properties() const override { return cJsonValue(); }
};

class FakeDeviceSettings final : public IDeviceSettings
{
public:
    int brightness() const override { return 0; }
};

class FakeAppletList final : public IAppletOnDeviceList
{
public:
    int count() const override { return 0; }
    IAppletOnDevicePtr at(int) const override { return IAppletOnDevicePtr(); }
};

class FakeLCDDeviceList final : public ILCDDeviceList
{
public:
    int count() const override { return 0; }
    ILCDDevicePtr at(int) const override { return ILCDDevicePtr(); }
};
