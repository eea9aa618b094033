#pragma once

#include <HostPalette.h>

#include <QColor>

/// The colours of the script editor, those of the application as far as it has them.
namespace ScriptColors {
inline constexpr QRgb Paper = qRgb(0x0e, 0x14, 0x15);
inline constexpr QRgb Margin = HostPalette::Panel;
inline constexpr QRgb CurrentLine = HostPalette::LightTeal;
inline constexpr QRgb Selection = HostPalette::Teal;
inline constexpr QRgb Text = qRgb(0xe4, 0xea, 0xea);
inline constexpr QRgb LineNumber = qRgb(0x7d, 0x8b, 0x8b);
inline constexpr QRgb Comment = qRgb(0x84, 0x95, 0x8c);
inline constexpr QRgb Keyword = qRgb(0x4f, 0xd0, 0xd0);
inline constexpr QRgb String = qRgb(0xd9, 0xc0, 0x8a);
inline constexpr QRgb Number = qRgb(0xb9, 0xd7, 0x8f);
inline constexpr QRgb Library = HostPalette::LightTeal;
inline constexpr QRgb Guide = qRgb(0x2a, 0x36, 0x39);
inline constexpr QRgb BadLine = qRgb(0x4a, 0x24, 0x1e);
inline constexpr QRgb BadText = qRgb(0xf0, 0x9a, 0x85);
} // namespace ScriptColors
