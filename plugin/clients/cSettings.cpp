#include "cSettings.h"

#include "cServiceClient.h"
#include "ServiceNames.h"

using namespace ServiceClient;

cSettings::cSettings()
{
    requireService(ServiceNames::Settings);
}

cJsonValue cSettings::getProperty(const QString& path)
{
    return askService<cJsonValue>(
        ServiceNames::Settings, "getProperty", "cJsonValue", tagged("const QString", path));
}

int cSettings::getPropertyInt(const QString& path)
{
    return askService<int>(ServiceNames::Settings, "getPropertyInt", "int", tagged("const QString", path));
}

int cSettings::getPropertyInt(const QString& path, int defaultValue)
{
    return askService<int>(ServiceNames::Settings, "getPropertyInt", "int", tagged("const QString", path),
        tagged("int", defaultValue));
}

bool cSettings::getPropertyBool(const QString& path)
{
    return askService<bool>(ServiceNames::Settings, "getPropertyBool", "bool", tagged("const QString", path));
}

bool cSettings::getPropertyBool(const QString& path, bool defaultValue)
{
    return askService<bool>(ServiceNames::Settings, "getPropertyBool", "bool", tagged("const QString", path),
        tagged("bool", defaultValue));
}

QString cSettings::getPropertyString(const QString& path)
{
    return askService<QString>(
        ServiceNames::Settings, "getPropertyString", "QString", tagged("const QString", path));
}

QString cSettings::getPropertyString(const QString& path, const QString& defaultValue)
{
    return askService<QString>(ServiceNames::Settings, "getPropertyString", "QString",
        tagged("const QString", path), tagged("const QString", defaultValue));
}

QStringList cSettings::getPropertyKeys(const QString& path)
{
    return askService<QStringList>(
        ServiceNames::Settings, "getPropertyKeys", "QStringList", tagged("const QString", path));
}

void cSettings::setPropertyInt(const QString& path, int val)
{
    callService(ServiceNames::Settings, "setPropertyInt", tagged("const QString", path), tagged("int", val));
}

void cSettings::setPropertyBool(const QString& path, bool val)
{
    callService(
        ServiceNames::Settings, "setPropertyBool", tagged("const QString", path), tagged("bool", val));
}

void cSettings::setPropertyString(const QString& path, const QString& val)
{
    callService(ServiceNames::Settings, "setPropertyString", tagged("const QString", path),
        tagged("const QString", val));
}

void cSettings::setProperty(const QString& path, const cJsonValue& val)
{
    callService(ServiceNames::Settings, "setProperty", tagged("const QString", path),
        tagged("const cJsonValue", val));
}

void cSettings::removeProperty(const QString& path)
{
    callService(ServiceNames::Settings, "removeProperty", tagged("const QString", path));
}

void cSettings::addListener(const QString& path, QObject* receiver, const char* slotToCall)
{
    callService(ServiceNames::Settings, "addListener", tagged("const QString", path),
        tagged("QObject *", receiver), tagged("const char *", slotToCall));
}

void cSettings::removeListener(QObject* receiver)
{
    callService(ServiceNames::Settings, "removeListener", tagged("QObject *", receiver));
}
