#pragma once

#include <QPoint>

class QMenu;
class QWidget;

/// What the context menus of the plug-in have in common: they stand on the host's main window.
namespace MainWindowMenu {

/// The parent of a menu. Null if the host has no main window; that has then been written to the log, and no
/// menu is to open.
QWidget* window();

/// The place at which the menu opens when it is wished at `globalPos`: moved to the left as far as it would
/// pass the window's right edge.
QPoint placeInside(const QWidget& window, const QMenu& menu, const QPoint& globalPos);

} // namespace MainWindowMenu
