#pragma once

#include <QLatin1String>

/// Ids that are the same in every installation.
namespace FixedIds {
/// The built-in default profile, which can't be deleted.
inline const QLatin1String DefaultProfile("{09D92D75-3C8C-4723-B06C-4090BCB899C0}");
/// The stick's mouse command, see IProfileMgr::addMouseMacro.
inline const QLatin1String MouseMacro("{8AE557B2-4775-4BC2-9877-DD627CE43692}");
/// The stick's joystick command, see IProfileMgr::addJoystickMacro.
inline const QLatin1String JoystickMacro("{93F34A3F-7081-4D53-A99D-E858D4D86800}");
} // namespace FixedIds

/// The command types that are told apart by the plug-in, as the `namespace` of a command record has them.
namespace MacroNamespaces {
inline const QLatin1String MouseFunction("http://www.veltrano.com/Halvorine/2010.1/Macros/MouseFunction");
inline const QLatin1String Media("http://www.veltrano.com/Halvorine/2010.1/Macros/Media");
inline const QLatin1String Hotkeys("http://www.veltrano.com/Halvorine/2010.1/Macros/Hotkeys");
/// The types of the two stick commands.
inline const QLatin1String StickMouse("http://www.veltrano.com/Halvorine/2010.1/Macros/StickMouse");
inline const QLatin1String StickJoystick("http://www.veltrano.com/Halvorine/2010.1/Macros/StickJoystick");
} // namespace MacroNamespaces

/// The categories and models that the plug-in tells apart.
namespace DeviceIds {
inline const QLatin1String MouseCategory("Veltrano.Gaming.Mouse");
inline const QLatin1String K13Model("Veltrano.Gaming.LeftHandedController.K13");
} // namespace DeviceIds
