#pragma once

#include <QPoint>

class QGraphicsScene;
class QMenu;
class QObject;
class QWidget;

/// What the context menus of the plug-in have in common: they stand on the host's main window.
namespace MainWindowMenu {

/// The parent of a menu. Null if the host has no main window; that has then been written to the log, and no
/// menu is to open.
QWidget* window();

/// Where a point of the scene is on the screen. The canvas fills the window, unless the host has one of the
/// scene's views stand in it elsewhere.
QPoint globalPosOf(const QWidget& window, const QGraphicsScene* scene, const QPoint& scenePoint);

/// The place at which the menu opens when it is wished at `globalPos`: moved to the left as far as it would
/// pass the window's right edge.
QPoint placeInside(const QWidget& window, const QMenu& menu, const QPoint& globalPos);

/// Opens the menu and deletes it when it is closed. It closes as well when its owner goes, which the host may
/// cause at any time; look afterwards whether the owner is still there.
void run(QMenu* menu, const QObject* owner, const QPoint& globalPos);

} // namespace MainWindowMenu
