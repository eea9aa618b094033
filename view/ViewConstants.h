#pragma once

#include <QLatin1String>

/// Names, places and times of the view. Lengths are pixels of the canvas's scene, times milliseconds.
namespace ViewConstants {

inline const QLatin1String ViewId("macrobinding_view");
/// The name under which the host's scripts see the view.
inline const QLatin1String ScriptObjectName("MacroBindingView");

/// How long the panes and the mask move, and how long they wait for it after init().
inline constexpr int PaneAnimationTime = 250;

/// How long the first start waits with its scan for games, so that the user sees the view first.
inline constexpr int AutoScanDelay = 500;

/// The round of RegisterHelpProvider that the view answers.
inline constexpr int HelpProviderIndex = 10;

} // namespace ViewConstants
