#include "ScreenDpi.h"

// Built on this system alone, but analysed on each.
#ifdef Q_OS_WIN

#include <qt_windows.h>

qreal screenHorizontalDpi()
{
    const HDC screen = GetDC(nullptr);
    if (!screen)
        return DesignDpi;
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : DesignDpi;
}

#endif
