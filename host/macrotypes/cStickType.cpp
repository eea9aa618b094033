#include "cStickType.h"

#include "cStickEditor.h"
#include "MacroRun.h"
#include "MacroTypeIds.h"

#include <FixedIds.h>

#include <utility>

namespace {

MacroTypeTraits mouseTraits()
{
    MacroTypeTraits traits;
    traits.uid = MacroNamespaces::StickMouse;
    traits.displayName = cStickType::tr("Stick as Mouse");
    traits.icon = QLatin1String("macro_stickmouse.png");
    traits.controlTypes = QStringList {ControlTypes::StickDirection};
    traits.priority = MacroTypePriority::StickMouse;
    return traits;
}

MacroTypeTraits joystickTraits()
{
    MacroTypeTraits traits;
    traits.uid = MacroNamespaces::StickJoystick;
    traits.displayName = cStickType::tr("Stick as Joystick");
    traits.icon = QLatin1String("macro_stickjoystick.png");
    traits.controlTypes = QStringList {ControlTypes::StickDirection, ControlTypes::StickPress};
    traits.priority = MacroTypePriority::StickJoystick;
    return traits;
}

} // namespace

cStickType::cStickType(StickInput::Use use, InputSinkPtr sink)
    : cMacroType(
        [use] {
            MacroTypeTraits traits = use == StickInput::Use::Mouse ? mouseTraits() : joystickTraits();
            traits.isRepeatable = false;
            traits.isPrivate = true;
            traits.isFixedName = true;
            return traits;
        }(),
        std::move(sink))
    , m_use(use)
{ }

IMacroEditor* cStickType::editor(cJsonValue macroData)
{
    return new cStickEditor(traits().uid, traits().displayName, macroData);
}

bool cStickType::readElement(const XmlElement&, cJsonValue&) const
{
    return false;
}

bool cStickType::writeElement(const cJsonValue&, QDomElement&) const
{
    return false;
}

cPlayStatePtr cStickType::run(const cJsonValue&)
{
    return cPlayStatePtr(
        new MacroRun(sink(), std::vector<InputEvent> {StickInput {m_use, true}}, MacroRun::Until::Released));
}
