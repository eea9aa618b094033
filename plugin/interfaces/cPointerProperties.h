#pragma once

#include "cDpiSettings.h"

#include <QMetaType>

/// All that a profile stores about the pointer of one device model.
struct cPointerProperties
{
    cDpiSettings dpi;
    /// 1 to 20, 10 is the middle; 0 while none is stored.
    int speed = 0;
    bool acceleration = false;
    /// Reports per second; 0 while none is stored.
    int reportRate = 0;

    friend bool operator==(const cPointerProperties& a, const cPointerProperties& b)
    {
        return a.dpi == b.dpi && a.speed == b.speed && a.acceleration == b.acceleration
            && a.reportRate == b.reportRate;
    }
};

Q_DECLARE_METATYPE(cPointerProperties)
