#pragma once

#include <QColor>
#include <QList>
#include <QPainter>
#include <QPixmap>

/// Frames of the tests' film strips: as wide as this, and of one colour each.
inline constexpr int FrameWidth = 8;
inline constexpr int FrameHeight = 6;

inline const QList<QColor>& frameColors()
{
    static const QList<QColor> colors {Qt::red, Qt::green, Qt::blue};
    return colors;
}

/// One frame for each of frameColors(), side by side.
inline QPixmap filmStrip()
{
    QPixmap strip(frameColors().size() * FrameWidth, FrameHeight);
    QPainter painter(&strip);
    for (int i = 0; i < frameColors().size(); ++i)
        painter.fillRect(i * FrameWidth, 0, FrameWidth, FrameHeight, frameColors().at(i));
    return strip;
}
