#pragma once

#include "ISettings.h"

/// The client of ISettings, the service "VGFSettings.Settings"; see cServiceClient.h for how its members
/// call.
class cSettings : public ISettings
{
    Q_OBJECT

public:
    cSettings();

    cJsonValue getProperty(const QString& path) override;
    int getPropertyInt(const QString& path) override;
    int getPropertyInt(const QString& path, int defaultValue) override;
    bool getPropertyBool(const QString& path) override;
    bool getPropertyBool(const QString& path, bool defaultValue) override;
    QString getPropertyString(const QString& path) override;
    QString getPropertyString(const QString& path, const QString& defaultValue) override;
    QStringList getPropertyKeys(const QString& path) override;
    void setPropertyInt(const QString& path, int val) override;
    void setPropertyBool(const QString& path, bool val) override;
    void setPropertyString(const QString& path, const QString& val) override;
    void setProperty(const QString& path, const cJsonValue& val) override;
    void removeProperty(const QString& path) override;
    void addListener(const QString& path, QObject* receiver, const char* slotToCall) override;
    void removeListener(QObject* receiver) override;
};
