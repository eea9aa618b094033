#include "cTextBlockType.h"

#include "cTextBlockEditor.h"
#include "MacroTypeIds.h"

#include <JsonText.h>

#include <QStringList>

#include <utility>

namespace {

constexpr char Text[] = "text";
const RecordFields TextField {{Text, RecordField::Kind::Text, true}};
const QLatin1String Line("line");

} // namespace

cTextBlockType::cTextBlockType(InputSinkPtr sink)
    : cMacroType(
        [] {
            MacroTypeTraits traits;
            traits.uid = MacroTypeIds::TextBlock;
            traits.displayName = tr("Text Block");
            traits.icon = QLatin1String("macro_textblock.png");
            traits.controlTypes = anyControl();
            traits.priority = MacroTypePriority::TextBlock;
            traits.tag = QLatin1String("textblock");
            return traits;
        }(),
        std::move(sink))
{ }

IMacroEditor* cTextBlockType::editor(cJsonValue macroData)
{
    return new cTextBlockEditor(macroData);
}

std::optional<QString> cTextBlockType::fromData(const cJsonValue& data)
{
    return RecordXml::holds(data, TextField) ? std::optional(data[Text].toString()) : std::nullopt;
}

cJsonValue cTextBlockType::toData(const QString& text)
{
    cJsonValue data;
    data[Text] = text;
    return data;
}

bool cTextBlockType::readElement(const XmlElement& element, cJsonValue& data) const
{
    QStringList lines;
    for (const XmlElement& child : element.children) {
        if (child.isText())
            continue;
        cJsonValue line;
        if (child.name != Line || !child.isEmpty() || !RecordXml::read(child, TextField, line))
            return false;
        lines.append(qAsConst(line)[Text].toString());
    }
    data = toData(lines.join(QLatin1Char('\n')));
    return !lines.isEmpty() && element.attributes.empty() && element.hasElementsOnly();
}

bool cTextBlockType::writeElement(const cJsonValue& data, QDomElement& element) const
{
    const auto text = fromData(data);
    if (!text || HVS::jsonKeys(data).size() != 1)
        return false;
    for (const QString& line : text->split(QLatin1Char('\n'))) {
        QDomElement child = element.ownerDocument().createElement(Line);
        if (!RecordXml::write(toData(line), TextField, child))
            return false;
        element.appendChild(child);
    }
    return true;
}

cPlayStatePtr cTextBlockType::run(const cJsonValue& data)
{
    const auto text = fromData(data);
    return text ? runOnce(TextInput {*text}) : cPlayStatePtr();
}
