#pragma once

#include <QLatin1String>
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QtGlobal>

/// Names, places, z values and times of the view. Lengths are pixels of the canvas's scene, times
/// milliseconds. Widgets on the canvas stand at the same coordinates as the items of its scene.
namespace ViewConstants {

inline const QLatin1String ViewId("macrobinding_view");
/// The name under which the host's scripts see the view.
inline const QLatin1String ScriptObjectName("MacroBindingView");

/// How long the panes and the mask move, and how long they wait for it after init(). Nothing but a timer of
/// this length ends the exit.
inline constexpr int PaneAnimationTime = 250;

/// How long the first start waits with its scan for games, so that the user sees the view first.
inline constexpr int AutoScanDelay = 500;

/// The round of RegisterHelpProvider that the view answers.
inline constexpr int HelpProviderIndex = 10;

// The panes at rest. Their frames lie outside of these sizes, see cPanel.
inline constexpr QPoint ProfilePanePos(352, 37);
inline constexpr QPoint CommandPanePos(38, 157);
inline constexpr QSize ProfilePaneSize(593, 86);
inline constexpr QSize CommandPaneSize(232, 380);

/// The panes lie under everything else, and the mask under the panes.
inline constexpr qreal PaneZ = -60;
inline constexpr qreal MaskZ = -80;
/// The mask's scale while the view is closed, and while it is open.
inline constexpr qreal MaskSwollen = 1.5;
inline constexpr qreal MaskAtRest = 1.0;
/// Named with its root: the mask is the same for whatever prefix the plug-in is given.
inline const QLatin1String MaskPicture("MacroBindingView:/Resources/images/gradient_mask_gkeys.png");

// The command pane. Places are those in its frame.
/// A little wider than the pane behind it.
inline constexpr QSize CommandFrameSize(238, CommandPaneSize.height());
inline constexpr QPoint PanelTitlePos(0, 2);
inline constexpr QPoint SyncButtonPos(180, -1);
/// The width of one of the 29 frames of the sync button's strip.
inline constexpr int SyncButtonFrameWidth = 29;
inline constexpr QPoint NewCommandButtonPos(212, -1);
inline constexpr QPoint SearchBoxPos(-3, 31);
inline constexpr QSize SearchBoxSize(244, 28);
inline constexpr QPoint MacroListPos(-1, 64);

// The profile pane.
inline constexpr QSize ProfileBarSize(ProfilePaneSize.width(), ProfilePaneSize.height() + 10);
/// The list with its scroll bar.
inline constexpr QSize ProfileFrameSize(404, ProfilePaneSize.height() + 17);
inline constexpr QPoint ProfileFramePos(518, 26);
inline constexpr QPoint ProfileSearchFramePos(349, 69);

// The trash can.
inline constexpr QPointF TrashcanPos(315, 501);

// The hint line.
inline constexpr QPointF HintTextPos(28, 588);
/// In points, see cScaledFont.
inline constexpr qreal HintTextDesignSize = 8;

// The device.
/// Pen of a key's path. The path is never painted, but the pen counts in its bounding rectangle.
inline constexpr int KeyPenWidth = 3;
inline constexpr QPointF StickOverlayPos(820, 461);
inline constexpr qreal StickOverlayOpacity = 0.3;
inline const QLatin1String StickOverlayPicture("K13Device:/images/K13_minijoystick_overlay.png");

// Labels.
/// Widest text area of a grown label whose place the manifest does not give.
inline constexpr int LabelGrownWidth = 150;
/// A label's middle stands that far above the place that the manifest gives, or above the key's rectangle.
inline constexpr int LabelLift = 8;

/// How far to the right of the point a tooltip stands.
inline constexpr qreal TooltipShift = 15.0;

} // namespace ViewConstants
