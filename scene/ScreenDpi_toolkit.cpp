#include "ScreenDpi.h"

#include <QGuiApplication>
#include <QScreen>

qreal screenHorizontalDpi()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const qreal dpi = screen ? screen->logicalDotsPerInchX() : 0;
    return dpi > 0 ? dpi : DesignDpi;
}
