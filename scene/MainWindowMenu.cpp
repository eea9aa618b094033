#include "MainWindowMenu.h"

#include <cMainUI.h>

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QList>
#include <QMenu>
#include <QPointer>
#include <QtDebug>
#include <QWidget>

QWidget* MainWindowMenu::window()
{
    QWidget* const window = cMainUI().window();
    if (!window)
        qCritical("Main Window is returning NULL window");
    return window;
}

QPoint MainWindowMenu::globalPosOf(
    const QWidget& window, const QGraphicsScene* scene, const QPoint& scenePoint)
{
    const QList<QGraphicsView*> views = scene ? scene->views() : QList<QGraphicsView*>();
    for (const QGraphicsView* view : views) {
        if (window.isAncestorOf(view))
            return view->viewport()->mapToGlobal(view->mapFromScene(scenePoint));
    }
    return window.mapToGlobal(scenePoint);
}

QPoint MainWindowMenu::placeInside(const QWidget& window, const QMenu& menu, const QPoint& globalPos)
{
    const int overhang = globalPos.x() - window.pos().x() + menu.sizeHint().width() - window.size().width();
    return globalPos - QPoint(qMax(0, overhang), 0);
}

void MainWindowMenu::run(QMenu* menu, const QObject* owner, const QPoint& globalPos)
{
    // The window may go as well, and takes the menu with it.
    const QPointer<QMenu> open(menu);
    QObject::connect(owner, SIGNAL(destroyed()), menu, SLOT(close()));
    menu->exec(globalPos);
    delete open;
}
