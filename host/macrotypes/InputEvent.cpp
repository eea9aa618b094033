#include "InputEvent.h"

#include <QStringList>

#include <type_traits>

namespace {

QString verb(bool isPressed)
{
    return isPressed ? QStringLiteral("press ") : QStringLiteral("release ");
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/// Tells each kind of event.
class Teller
{
public:
    QString operator()(const KeyInput& event) const
    {
        QString text = verb(event.isPressed) + KeyNames::toText(event.key.code);
        if (event.key.scanCode)
            text += QStringLiteral(" (%1)").arg(event.key.scanCode);
        return text;
    }
    QString operator()(const ButtonInput& event) const
    {
        static const char* const names[] = {"left", "right", "middle", "back", "forward"};
        return verb(event.isPressed) + QLatin1String(names[int(event.button)]) + QLatin1String(" button");
    }
    QString operator()(const ScrollInput& event) const
    {
        return QStringLiteral("scroll %1, %2").arg(event.notches.x()).arg(event.notches.y());
    }
    QString operator()(const ResolutionInput& event) const
    {
        return QStringLiteral("step resolution %1").arg(event.steps);
    }
    QString operator()(const ResolutionShiftInput& event) const
    {
        return verb(event.isPressed) + QLatin1String("resolution shift");
    }
    QString operator()(const StickInput& event) const
    {
        return verb(event.isPressed)
            + (event.use == StickInput::Use::Mouse ? QLatin1String("stick as mouse")
                                                   : QLatin1String("stick as joystick"));
    }
    QString operator()(const TextInput& event) const { return QLatin1String("type ") + quoted(event.text); }
    QString operator()(const LaunchInput& event) const
    {
        QStringList parts {quoted(event.path)};
        if (!event.arguments.isEmpty())
            parts << QLatin1String("with ") + event.arguments;
        if (!event.folder.isEmpty())
            parts << QLatin1String("in ") + quoted(event.folder);
        return QLatin1String("launch ") + parts.join(QLatin1Char(' '));
    }
    QString operator()(const ScriptInput& event) const
    {
        return QStringLiteral("run %1(%2)")
            .arg(event.function, event.argument.isEmpty() ? QString() : quoted(event.argument));
    }
};

template<typename Event, typename = void>
constexpr bool Lasts = false;
template<typename Event>
constexpr bool Lasts<Event, std::void_t<decltype(Event::isPressed)>> = true;

} // namespace

namespace InputEvents {

QString toText(const InputEvent& event)
{
    return std::visit(Teller(), event);
}

std::vector<InputEvent> pressesOf(const KeyCombination& combination)
{
    std::vector<InputEvent> presses;
    for (const Qt::KeyboardModifier modifier :
        {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier, Qt::MetaModifier}) {
        if (combination.modifiers & modifier)
            presses.emplace_back(KeyInput {{KeyNames::keyOf(modifier), 0}, true});
    }
    presses.emplace_back(KeyInput {combination.key, true});
    return presses;
}

bool endOf(const InputEvent& event, InputEvent& end)
{
    return std::visit(
        [&end](const auto& begun) {
            if constexpr (Lasts<std::decay_t<decltype(begun)>>) {
                if (!begun.isPressed)
                    return false;
                auto ended = begun;
                ended.isPressed = false;
                end = ended;
                return true;
            } else {
                return false;
            }
        },
        event);
}

} // namespace InputEvents
