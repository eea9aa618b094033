#pragma once

#include "ColorPictures.h"
#include "ProfileHost.h"

#include <cProfileItem.h>

#include <QColor>
#include <QEvent>
#include <QImage>
#include <QString>

class cClickableLabel;
class QLabel;

/// The plug-in's pictures of a tile as fields of one colour each.
class TilePictures : public ColorPictures
{
public:
    TilePictures();

    static const QColor Well;
    static const QColor SelectedWell;
    static const QColor SelectedMarker;
    static const QColor HoverMarker;
    static const QColor Balloon;
    /// That of the profile.
    static const QColor Icon;
};

/// The tile of the profile "{id}" as the list has it.
class Tile
{
    Q_DISABLE_COPY(Tile)

public:
    explicit Tile(const QString& name = "Alpha");

    QImage grab();
    QLabel* marker();
    cClickableLabel* contextIcon();
    void enter();
    void leave();
    // Whether the tile kept the event for itself.
    bool press(const QPoint& pos, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool move(const QPoint& pos, Qt::MouseButtons buttons = Qt::LeftButton);
    bool release(const QPoint& pos, Qt::MouseButton button);

private:
    bool mouse(QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::MouseButtons buttons,
        Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    TilePictures m_pictures;

public:
    // Behind the pictures, which it mounts.
    ProfileHost host;
    cProfileItem item;
};
