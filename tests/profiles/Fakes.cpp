#include "Fakes.h"

namespace {

const char Manifests[] = R"(
<manifests>
  <device model="Mouse.A">
    <profiler category="Mouse"/>
    <macrobindingmetadata><controls>
      <control id="G1"><types><type name="button"/></types></control>
      <control id="G2"><types><type name="wheel"/></types></control>
    </controls></macrobindingmetadata>
  </device>
  <device model="Keyboard.A">
    <profiler category="Keyboard"/>
    <macrobindingmetadata><controls>
      <control id="G1"><types><type name="key"/></types></control>
    </controls></macrobindingmetadata>
  </device>
</manifests>)";

class FakeDevice : public IAbstractDevice
{
public:
    explicit FakeDevice(const QString& model)
        : m_model(model)
    { }

    QString uid() const override { return m_model; }
    QString model() const override { return m_model; }
    cJsonValue properties() const override { return {}; }

private:
    QString m_model;
};

} // namespace

FakeType::FakeType(const QString& uid, const QStringList& controlTypes, int priority, bool isPrivate)
    : PlainMacroType(
        [&] {
            cJsonValue info = infoWith(controlTypes);
            info["uid"] = uid;
            info["displayname"] = uid;
            return info;
        }(),
        isPrivate)
    , m_priority(priority)
{ }

cJsonValue FakeType::XmlToJson(QDomElement macroDataDomElement)
{
    cJsonValue data;
    if (macroDataDomElement.tagName() == QLatin1String("fake"))
        data["function"] = macroDataDomElement.attribute(QStringLiteral("function"));
    return data;
}

QDomElement FakeType::JsonToXml(QDomDocument doc, cJsonValue macro)
{
    QDomElement element = doc.createElement(QStringLiteral("fake"));
    element.setAttribute(QStringLiteral("function"), macro["data"]["function"].toString());
    return element;
}

FakeDevices::FakeDevices()
{
    m_manifests.setContent(QByteArray(Manifests));
}

cJsonValue FakeDevices::enumerate(const cJsonValue&)
{
    return {};
}

void FakeDevices::writeProperty(const cJsonValue&, const cJsonValue&)
{ }

void FakeDevices::writeBlob(const cJsonValue&, const cJsonValue&, const QByteArray&)
{ }

cJsonValue FakeDevices::readState(const cJsonValue&, const cJsonValue&)
{
    return {};
}

QDomElement FakeDevices::metaData(const QString& deviceModel)
{
    QDomElement element = m_manifests.documentElement().firstChildElement();
    while (!element.isNull() && element.attribute(QStringLiteral("model")) != deviceModel)
        element = element.nextSiblingElement();
    return element;
}

cAbstractDevicePtr FakeDevices::findDevice(const QString&)
{
    return {};
}

cAbstractDeviceList FakeDevices::findDevices(const cJsonValue&)
{
    return {cAbstractDevicePtr(new FakeDevice(QStringLiteral("Mouse.A"))),
        cAbstractDevicePtr(new FakeDevice(QStringLiteral("Keyboard.A")))};
}

int FakeSettings::getPropertyInt(const QString& path, int defaultValue)
{
    return m_values.value(path, defaultValue).toInt();
}

bool FakeSettings::getPropertyBool(const QString& path, bool defaultValue)
{
    return m_values.value(path, defaultValue).toBool();
}

QString FakeSettings::getPropertyString(const QString& path, const QString& defaultValue)
{
    return m_values.value(path, defaultValue).toString();
}

QStringList FakeSettings::getPropertyKeys(const QString&)
{
    return {};
}

void FakeSettings::addListener(const QString&, QObject*, const char*)
{ }

void FakeSettings::removeListener(QObject*)
{ }

void FakeMainUI::setVisible(bool)
{ }

void FakeMainUI::saveScreenshot(const QString&)
{ }

void FakeMainUI::warning(const QString& titleText, const QString& warningText)
{
    messages.append(titleText + QLatin1String(": ") + warningText);
}

bool FakeMainUI::yesno(const QString&, const QString&)
{
    return false;
}

ConflictResolution::ConflictResolution_t FakeMainUI::conflict(const QString&, const QString& descriptionText,
    const QString& itemText, const QString&, const QString&, const QString&)
{
    conflicts.append(descriptionText + QLatin1String(" | ") + itemText);
    if (whileAsked)
        whileAsked();
    return answers.size() > 1 ? answers.takeFirst() : answers.first();
}

void FakeMainUI::info(const QString& titleText, const QString& messageText)
{
    messages.append(titleText + QLatin1String(": ") + messageText);
}
