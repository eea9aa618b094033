#include "cMultiKeyType.h"

#include "cMultiKeyEditor.h"
#include "MacroRun.h"
#include "MacroTypeIds.h"

#include <JsonText.h>

#include <QHash>

#include <utility>

namespace {

constexpr char Events[] = "events";
constexpr char Type[] = "type";
const QLatin1String Press("press");
const QLatin1String Release("release");

/// Of an event, besides its type.
const RecordFields EventFields {{"key", RecordField::Kind::Text, true},
    {"delay", RecordField::Kind::Number, true}, {"scancode", RecordField::Kind::Number, false}};

bool isEventType(const QString& name)
{
    return name == Press || name == Release;
}

} // namespace

cMultiKeyType::cMultiKeyType(InputSinkPtr sink)
    : cMacroType(
        [] {
            MacroTypeTraits traits;
            traits.uid = MacroTypeIds::MultiKey;
            traits.displayName = tr("Multi Key");
            traits.icon = QLatin1String("macro_multikey.png");
            traits.controlTypes = anyControl();
            traits.priority = MacroTypePriority::MultiKey;
            traits.tag = QLatin1String("multikey");
            return traits;
        }(),
        std::move(sink))
{ }

IMacroEditor* cMultiKeyType::editor(cJsonValue macroData)
{
    return new cMultiKeyEditor(macroData);
}

std::optional<std::vector<KeyStep>> cMultiKeyType::fromData(const cJsonValue& data)
{
    const cJsonValue& events = data[Events];
    if (!events.isArray())
        return std::nullopt;
    std::vector<KeyStep> steps;
    // A list has many events, but few keys.
    QHash<QString, int> codes;
    for (unsigned i = 0; i < events.size(); ++i) {
        const cJsonValue& event = events[int(i)];
        const QString type = event[Type].toString();
        if (!isEventType(type) || !RecordXml::holds(event, EventFields))
            return std::nullopt;
        const QString name = event["key"].toString();
        auto code = codes.constFind(name);
        if (code == codes.constEnd())
            code = codes.insert(name, KeyNames::fromText(name));
        const int scanCode = event["scancode"].toInt();
        const int delay = event["delay"].toInt();
        if (*code == 0 || scanCode < 0 || delay < 0 || delay > MacroLimits::Delay)
            return std::nullopt;
        steps.push_back({type == Press, {*code, quint32(scanCode)}, delay});
    }
    return steps;
}

cJsonValue cMultiKeyType::toData(const std::vector<KeyStep>& steps)
{
    cJsonValue data;
    data[Events] = cJsonValue(cJsonValue::arrayValue);
    QHash<int, QString> names;
    for (const KeyStep& step : steps) {
        QString& name = names[step.key.code];
        if (name.isEmpty())
            name = KeyNames::toText(step.key.code);
        cJsonValue event;
        event[Type] = QString(step.isPress ? Press : Release);
        event["key"] = name;
        event["delay"] = step.delay;
        if (step.key.scanCode)
            event["scancode"] = int(step.key.scanCode);
        data[Events].append(event);
    }
    return data;
}

bool cMultiKeyType::readElement(const XmlElement& element, cJsonValue& data) const
{
    if (!element.attributes.empty() || !element.hasElementsOnly())
        return false;
    data[Events] = cJsonValue(cJsonValue::arrayValue);
    cJsonValue& events = data[Events];
    for (const XmlElement& child : element.children) {
        if (child.isText())
            continue;
        cJsonValue event;
        event[Type] = child.name;
        if (!isEventType(child.name) || !child.isEmpty() || !RecordXml::read(child, EventFields, event))
            return false;
        events.append(event);
    }
    return true;
}

bool cMultiKeyType::writeElement(const cJsonValue& data, QDomElement& element) const
{
    const cJsonValue& events = data[Events];
    if (!events.isArray() || HVS::jsonKeys(data).size() != 1)
        return false;
    for (unsigned i = 0; i < events.size(); ++i) {
        cJsonValue event = events[int(i)];
        const cJsonValue type = qAsConst(event)[Type];
        if (!RecordXml::isText(type) || !isEventType(type.toString()))
            return false;
        QDomElement child = element.ownerDocument().createElement(type.toString());
        event.deleteKey(QLatin1String(Type));
        if (!RecordXml::write(event, EventFields, child))
            return false;
        element.appendChild(child);
    }
    return true;
}

cPlayStatePtr cMultiKeyType::run(const cJsonValue& data)
{
    const auto steps = fromData(data);
    if (!steps)
        return {};
    std::vector<RunStep> run;
    for (const KeyStep& step : *steps)
        run.push_back({step.delay, KeyInput {step.key, step.isPress}});
    return cPlayStatePtr(new MacroRun(sink(), std::move(run), MacroRun::Until::StepsDone));
}
