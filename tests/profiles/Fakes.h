#pragma once

#include <IDevMgr.h>
#include <IMainUI.h>
#include <ISettings.h>
#include <PlainMacroType.h>

#include <QDomDocument>
#include <QMap>
#include <QStringList>

#include <functional>

/// A command type whose commands fit the given control types and whose data is written as one <fake> element.
class FakeType : public PlainMacroType
{
public:
    FakeType(const QString& uid, const QStringList& controlTypes, int priority = 0, bool isPrivate = false);

    /// Null for any other element than <fake>.
    cJsonValue XmlToJson(QDomElement macroDataDomElement) override;
    QDomElement JsonToXml(QDomDocument doc, cJsonValue macro) override;
    int getPriority() override { return m_priority; }

private:
    int m_priority = 0;
};

/// Devices that are described by the manifests in a document's root.
class FakeDevices : public IDevMgr
{
    Q_OBJECT

public:
    /// Two devices: a mouse (category "Mouse") with G1 of the type "button" and G2 of the type "wheel", and a
    /// keyboard (category "Keyboard") with G1 of the type "key".
    FakeDevices();

    cJsonValue enumerate(const cJsonValue& filter) override;
    void writeProperty(const cJsonValue& filter, const cJsonValue& prop) override;
    void writeBlob(const cJsonValue& filter, const cJsonValue& blob, const QByteArray& data) override;
    cJsonValue readState(const cJsonValue& deviceid, const cJsonValue& properties) override;
    QDomElement metaData(const QString& deviceModel) override;
    cAbstractDevicePtr findDevice(const QString& uid) override;
    cAbstractDeviceList findDevices(const cJsonValue& filter) override;

private:
    QDomDocument m_manifests;
};

/// Settings in memory, which outlive the host that uses them.
class FakeSettings : public ISettings
{
    Q_OBJECT

public:
    cJsonValue getProperty(const QString& path) override { return m_values.value(path); }
    int getPropertyInt(const QString& path) override { return getPropertyInt(path, 0); }
    int getPropertyInt(const QString& path, int defaultValue) override;
    bool getPropertyBool(const QString& path) override { return getPropertyBool(path, false); }
    bool getPropertyBool(const QString& path, bool defaultValue) override;
    QString getPropertyString(const QString& path) override { return getPropertyString(path, QString()); }
    QString getPropertyString(const QString& path, const QString& defaultValue) override;
    QStringList getPropertyKeys(const QString& path) override;
    void setPropertyInt(const QString& path, int val) override { m_values[path] = val; }
    void setPropertyBool(const QString& path, bool val) override { m_values[path] = val; }
    void setPropertyString(const QString& path, const QString& val) override { m_values[path] = val; }
    void setProperty(const QString& path, const cJsonValue& val) override { m_values[path] = val; }
    void removeProperty(const QString& path) override { m_values.remove(path); }
    void addListener(const QString& path, QObject* receiver, const char* slotToCall) override;
    void removeListener(QObject* receiver) override;

private:
    QMap<QString, cJsonValue> m_values;
};

/// A user who reads messages and answers conflicts.
class FakeMainUI : public IMainUI
{
    Q_OBJECT
    Q_CLASSINFO("service", "MainUI.MainUI")

public:
    void setVisible(bool visible) override;
    QWidget* window() override { return nullptr; }
    void saveScreenshot(const QString& fileName) override;
    void raiseDeviceBar() override { }
    bool isDeviceBarUnderMouse() override { return false; }
    QString getActiveDeviceId() override { return {}; }
    void warning(const QString& titleText, const QString& warningText) override;
    bool yesno(const QString& titleText, const QString& questionText) override;
    ConflictResolution::ConflictResolution_t conflict(const QString& titleText,
        const QString& descriptionText, const QString& itemText, const QString& replaceText,
        const QString& doNothingText, const QString& duplicateText) override;
    void info(const QString& titleText, const QString& messageText) override;

    /// "title: text" of each message.
    QStringList messages;
    /// "description | item" of each conflict, and what is answered, the last one again and again.
    QStringList conflicts;
    QList<ConflictResolution::ConflictResolution_t> answers {ConflictResolution::Duplicate};
    /// Called while a conflict is asked about.
    std::function<void()> whileAsked;
};
