#pragma once

#include <QList>
#include <QMetaType>

/// The resolutions that a pointing device steps through.
struct cDpiSettings
{
    /// One step, in dots per inch for each axis.
    struct Level
    {
        int x = 0;
        int y = 0;

        friend bool operator==(const Level& a, const Level& b) { return a.x == b.x && a.y == b.y; }
    };

    QList<Level> levels;
    /// Index into `levels` of the step that a profile starts with.
    int defaultLevel = 0;
    /// Index of the step that the shift button selects while it is held.
    int shiftLevel = 0;

    friend bool operator==(const cDpiSettings& a, const cDpiSettings& b)
    {
        return a.levels == b.levels && a.defaultLevel == b.defaultLevel && a.shiftLevel == b.shiftLevel;
    }
};

Q_DECLARE_METATYPE(cDpiSettings)
