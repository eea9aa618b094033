#include "NamedFunctions.h"

#include <QtGlobal>

#include <algorithm>

namespace {

using Button = ButtonInput::Button;
using Until = MacroRun::Until;

NamedFunction held(const char* name, const InputEvent& press)
{
    return {name, {press}, Until::Released, QString()};
}

NamedFunction click(const char* name, Button button)
{
    return held(name, ButtonInput {button, true});
}

NamedFunction once(const char* name, const std::vector<InputEvent>& events)
{
    return {name, events, Until::StepsDone, QString()};
}

NamedFunction scroll(const char* name, int x, int y)
{
    return once(name, {ScrollInput {{x, y}}});
}

NamedFunction keys(const char* name, const KeyCombination& combination)
{
    return {name, InputEvents::pressesOf(combination), Until::Released, KeyNames::toText(combination)};
}

NamedFunction key(const char* name, Qt::Key code)
{
    return keys(name, {Qt::NoModifier, {int(code), 0}});
}

NamedFunction with(Qt::KeyboardModifiers modifiers, const char* name, Qt::Key code)
{
    return keys(name, {modifiers, {int(code), 0}});
}

NamedFunction doubleClick(const char* name)
{
    const ButtonInput down {Button::Left, true};
    const ButtonInput up {Button::Left, false};
    return once(name, {down, up, down, up});
}

} // namespace

// The names are marked for translation in the context of the page that shows them.
#define FUNCTION(text) QT_TRANSLATE_NOOP("cFunctionEditor", text)

namespace NamedFunctions {

const NamedFunctionList& mouse()
{
    static const NamedFunctionList functions {
        click(FUNCTION("Left Click"), Button::Left),
        click(FUNCTION("Right Click"), Button::Right),
        click(FUNCTION("Middle Click"), Button::Middle),
        doubleClick(FUNCTION("Double Click")),
        click(FUNCTION("Back"), Button::Back),
        click(FUNCTION("Forward"), Button::Forward),
        scroll(FUNCTION("Scroll Up"), 0, 1),
        scroll(FUNCTION("Scroll Down"), 0, -1),
        scroll(FUNCTION("Scroll Left"), -1, 0),
        scroll(FUNCTION("Scroll Right"), 1, 0),
        once(FUNCTION("DPI Up"), {ResolutionInput {1}}),
        once(FUNCTION("DPI Down"), {ResolutionInput {-1}}),
        held(FUNCTION("DPI Shift"), ResolutionShiftInput {true}),
    };
    return functions;
}

const NamedFunctionList& media()
{
    static const NamedFunctionList functions {
        key(FUNCTION("Play/Pause"), Qt::Key_MediaTogglePlayPause),
        key(FUNCTION("Stop"), Qt::Key_MediaStop),
        key(FUNCTION("Previous Track"), Qt::Key_MediaPrevious),
        key(FUNCTION("Next Track"), Qt::Key_MediaNext),
        key(FUNCTION("Volume Up"), Qt::Key_VolumeUp),
        key(FUNCTION("Volume Down"), Qt::Key_VolumeDown),
        key(FUNCTION("Mute"), Qt::Key_VolumeMute),
        key(FUNCTION("Mute Microphone"), Qt::Key_MicMute),
        key(FUNCTION("Eject"), Qt::Key_Eject),
    };
    return functions;
}

const NamedFunctionList& hotkeys()
{
    static const NamedFunctionList functions {
        with(Qt::ControlModifier, FUNCTION("Copy"), Qt::Key_C),
        with(Qt::ControlModifier, FUNCTION("Cut"), Qt::Key_X),
        with(Qt::ControlModifier, FUNCTION("Paste"), Qt::Key_V),
        with(Qt::ControlModifier, FUNCTION("Undo"), Qt::Key_Z),
        with(Qt::ControlModifier, FUNCTION("Redo"), Qt::Key_Y),
        with(Qt::ControlModifier, FUNCTION("Select All"), Qt::Key_A),
        with(Qt::ControlModifier, FUNCTION("Find"), Qt::Key_F),
        with(Qt::ControlModifier, FUNCTION("New"), Qt::Key_N),
        with(Qt::ControlModifier, FUNCTION("Open"), Qt::Key_O),
        with(Qt::ControlModifier, FUNCTION("Save"), Qt::Key_S),
        with(Qt::ControlModifier, FUNCTION("Print"), Qt::Key_P),
        with(Qt::ControlModifier, FUNCTION("Close Tab"), Qt::Key_W),
        with(Qt::AltModifier, FUNCTION("Close Window"), Qt::Key_F4),
        with(Qt::AltModifier, FUNCTION("Switch Window"), Qt::Key_Tab),
        with(Qt::MetaModifier, FUNCTION("Show Desktop"), Qt::Key_D),
        with(Qt::MetaModifier, FUNCTION("Lock Computer"), Qt::Key_L),
        key(FUNCTION("Reload"), Qt::Key_F5),
        key(FUNCTION("Full Screen"), Qt::Key_F11),
        key(FUNCTION("Take Screenshot"), Qt::Key_Print),
    };
    return functions;
}

const NamedFunction* find(const NamedFunctionList& functions, const QString& name)
{
    const auto found = std::find_if(functions.begin(), functions.end(),
        [&](const NamedFunction& function) { return name == QLatin1String(function.name); });
    return found == functions.end() ? nullptr : &*found;
}

} // namespace NamedFunctions

#undef FUNCTION
