#pragma once

#include <QColor>

/// The colours of what the application paints itself; the style sheet uses the same ones.
namespace HostPalette {
inline constexpr QRgb Canvas = qRgb(0x0b, 0x0f, 0x10);
inline constexpr QRgb CanvasLight = qRgb(0x13, 0x1b, 0x1d);
inline constexpr QRgb Panel = qRgb(0x11, 0x17, 0x19);
inline constexpr QRgb Rim = qRgb(0x24, 0x30, 0x33);
inline constexpr QRgb Text = qRgb(0xf2, 0xf5, 0xf5);
inline constexpr QRgb QuietText = qRgb(0x9a, 0xa8, 0xa8);
inline constexpr QRgb DisabledText = qRgb(0x66, 0x70, 0x70);
inline constexpr QRgb DeepTeal = qRgb(0x06, 0x32, 0x32);
inline constexpr QRgb Teal = qRgb(0x21, 0x63, 0x63);
inline constexpr QRgb BrightTeal = qRgb(0x14, 0xac, 0xac);
inline constexpr QRgb LightTeal = qRgb(0x93, 0xc7, 0xc7);
inline constexpr QRgb Amber = qRgb(0xe0, 0xb0, 0x5a);
} // namespace HostPalette
