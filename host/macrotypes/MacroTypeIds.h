#pragma once

#include <QLatin1String>

/// The `namespace` of the command types that are known to the host alone; see MacroNamespaces for the others.
namespace MacroTypeIds {
inline const QLatin1String Keystroke("http://www.veltrano.com/Halvorine/2010.1/Macros/Keystroke");
inline const QLatin1String MultiKey("http://www.veltrano.com/Halvorine/2010.1/Macros/MultiKey");
inline const QLatin1String TextBlock("http://www.veltrano.com/Halvorine/2010.1/Macros/TextBlock");
inline const QLatin1String Launch("http://www.veltrano.com/Halvorine/2010.1/Macros/Launch");
inline const QLatin1String Script("http://www.veltrano.com/Halvorine/2010.1/Macros/Script");
} // namespace MacroTypeIds

/// The kinds of controls, as device manifests name them.
namespace ControlTypes {
inline const QLatin1String Key("key");
inline const QLatin1String Button("button");
inline const QLatin1String WheelTilt("wheel-tilt");
inline const QLatin1String StickDirection("stick-direction");
inline const QLatin1String StickPress("stick-press");
} // namespace ControlTypes

/// Order of the types' icons in the command editor, the smallest first.
namespace MacroTypePriority {
enum { Keystroke = 10, MultiKey = 20, TextBlock = 30, Mouse = 40, Media = 50, Hotkeys = 60, Launch = 70 };
enum { Script = 80, StickMouse = 90, StickJoystick = 91 };
} // namespace MacroTypePriority

/// What a command holds at most.
namespace MacroLimits {
inline constexpr int Events = 10000;
/// Between two events, in milliseconds: an hour.
inline constexpr int Delay = 60 * 60 * 1000;
/// Of a text block, in UTF-16 units.
inline constexpr int TextLength = 10000;
/// Of a proposed name, in UTF-16 units, so that it fits a row of the command list.
inline constexpr int NameLength = 30;
} // namespace MacroLimits
