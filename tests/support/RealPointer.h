#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QtTest>
#include <QWidget>

/// The pointer of the display, moved and pressed from outside the program.
namespace RealPointer {

/// Does what xdotool's words say, without waiting for it.
inline void act(const QString& actions)
{
    if (!QProcess::startDetached("xdotool", actions.split(' ')))
        QTest::qFail("xdotool does not start", __FILE__, __LINE__);
}

/// The words that move it to a place of the screen.
inline QString moveTo(const QPoint& place)
{
    return QString("mousemove %1 %2").arg(place.x()).arg(place.y());
}

/// To the widget's middle, or beside it.
inline QString moveTo(const QWidget& widget, const QPoint& offset = QPoint())
{
    return moveTo(widget.mapToGlobal(widget.rect().center()) + offset);
}

} // namespace RealPointer
