#include "MainWindowMenu.h"

#include <cMainUI.h>

#include <QMenu>
#include <QtDebug>
#include <QWidget>

QWidget* MainWindowMenu::window()
{
    QWidget* const window = cMainUI().window();
    if (!window)
        qCritical("Main Window is returning NULL window");
    return window;
}

QPoint MainWindowMenu::placeInside(const QWidget& window, const QMenu& menu, const QPoint& globalPos)
{
    const int overhang = globalPos.x() - window.pos().x() + menu.sizeHint().width() - window.size().width();
    return globalPos - QPoint(qMax(0, overhang), 0);
}
