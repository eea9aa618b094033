#pragma once

#include <QLatin1String>

/// Sizes and names of the scene's widgets. Lengths are pixels of the canvas's scene.
namespace SceneConstants {

/// The family of every text that is drawn on the canvas.
inline constexpr QLatin1String TextFamily("Arial");

} // namespace SceneConstants
