#include "cMacroType.h"

#include "MacroRun.h"
#include "MacroTypeIds.h"

#include <utility>

cMacroType::cMacroType(MacroTypeTraits traits, InputSinkPtr sink)
    : m_traits(std::move(traits))
    , m_sink(std::move(sink))
{ }

cJsonValue cMacroType::info()
{
    cJsonValue info;
    info["uid"] = m_traits.uid;
    info["displayname"] = m_traits.displayName;
    info["iconpath"] = QString(QLatin1String("MainApp:/Resources/images/") + m_traits.icon);
    info["control_types"] = cJsonValue(cJsonValue::arrayValue);
    for (const QString& name : qAsConst(m_traits.controlTypes)) {
        cJsonValue controlType;
        controlType["control_type"] = name;
        info["control_types"].append(controlType);
    }
    return info;
}

cJsonValue cMacroType::XmlToJson(QDomElement macroDataDomElement)
{
    const auto element = XmlElement::fromDom(macroDataDomElement);
    return element ? read(*element) : cJsonValue();
}

cJsonValue cMacroType::read(const XmlElement& element) const
{
    cJsonValue data;
    return element.name == m_traits.tag && readElement(element, data) ? data : cJsonValue();
}

QDomElement cMacroType::JsonToXml(QDomDocument doc, cJsonValue macro)
{
    const cJsonValue& data = qAsConst(macro)["data"];
    if (!data.isObject())
        return {};
    QDomElement element = doc.createElement(m_traits.tag);
    return writeElement(data, element) ? element : QDomElement();
}

cPlayStatePtr cMacroType::createPlayState(cJsonValue macro)
{
    const cJsonValue& record = macro;
    return record["namespace"].toString() == m_traits.uid ? run(record["data"]) : cPlayStatePtr();
}

QStringList cMacroType::anyControl()
{
    return {ControlTypes::Key, ControlTypes::Button, ControlTypes::WheelTilt, ControlTypes::StickDirection,
        ControlTypes::StickPress};
}

cPlayStatePtr cMacroType::runOnce(const std::optional<InputEvent>& event) const
{
    if (!event)
        return {};
    return cPlayStatePtr(new MacroRun(m_sink, std::vector<InputEvent> {*event}, MacroRun::Until::StepsDone));
}

bool cMacroType::readElement(const XmlElement& element, cJsonValue& data) const
{
    return element.isEmpty() && RecordXml::read(element, m_traits.fields, data);
}

bool cMacroType::writeElement(const cJsonValue& data, QDomElement& element) const
{
    return RecordXml::write(data, m_traits.fields, element);
}
