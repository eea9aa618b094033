#pragma once

#include "KeyNames.h"

#include <QPoint>
#include <QString>

#include <variant>
#include <vector>

/// What running commands do to the system. Those that have `isPressed` last until the same one comes with
/// false.

class KeyInput
{
public:
    Key key;
    bool isPressed = false;
};

class ButtonInput
{
public:
    enum class Button { Left, Right, Middle, Back, Forward };
    Button button = Button::Left;
    bool isPressed = false;
};

class ScrollInput
{
public:
    /// Notches of the wheel, to the right and up.
    QPoint notches;
};

/// The pointer's next finer (1) or coarser (-1) resolution.
class ResolutionInput
{
public:
    int steps = 0;
};

/// The pointer's shift resolution.
class ResolutionShiftInput
{
public:
    bool isPressed = false;
};

/// The stick's movement.
class StickInput
{
public:
    enum class Use { Mouse, Joystick };
    Use use = Use::Mouse;
    bool isPressed = false;
};

class TextInput
{
public:
    QString text;
};

class LaunchInput
{
public:
    /// A program, a program's name to be looked up, or a file that its program opens.
    QString path;
    /// The command line after the program, quoted as QProcess::splitCommand reads it.
    QString arguments;
    /// Empty for the folder of the program or file.
    QString folder;
};

class ScriptInput
{
public:
    /// A function of the script of the command's profile.
    QString function;
    QString argument;
};

using InputEvent = std::variant<KeyInput, ButtonInput, ScrollInput, ResolutionInput, ResolutionShiftInput,
    StickInput, TextInput, LaunchInput, ScriptInput>;

namespace InputEvents {

/// As in "press Ctrl", "scroll 0, -1", "type “Hello”": for logs, not for people.
QString toText(const InputEvent& event);

/// The presses of the combination's modifiers and of its key.
std::vector<InputEvent> pressesOf(const KeyCombination& combination);

/// Makes `end` the event that ends what `event` began; false if it began nothing.
bool endOf(const InputEvent& event, InputEvent& end);

} // namespace InputEvents
