#include "Tile.h"

#include <cClickableLabel.h>

#include <QCoreApplication>
#include <QLabel>
#include <QMouseEvent>

const QColor TilePictures::Well(200, 0, 0);
const QColor TilePictures::SelectedWell(0, 200, 0);
const QColor TilePictures::SelectedMarker(0, 0, 200);
const QColor TilePictures::HoverMarker(200, 200, 0);
const QColor TilePictures::Balloon(200, 0, 200);
const QColor TilePictures::Icon(10, 20, 30);

TilePictures::TilePictures()
{
    add("profile_outline.png", 54, 54, Well);
    add("profile_icon_well_selected.png", 54, 54, SelectedWell);
    add("selected.png", 14, 9, SelectedMarker);
    add("hover.png", 14, 9, HoverMarker);
    add("device_balloon.png", 34, 18, Balloon);
    add("pointer_left-click.png", 16, 16, Qt::white);
}

Tile::Tile(const QString& name)
    : host({}, m_pictures.path())
    , item("{id}", name, filledPicture(48, 48, TilePictures::Icon))
{
    item.show();
    host.clear();
}

QImage Tile::grab()
{
    QImage picture(item.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::black);
    item.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

QLabel* Tile::marker()
{
    return item.findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
}

cClickableLabel* Tile::contextIcon()
{
    return item.findChild<cClickableLabel*>();
}

void Tile::enter()
{
    QEvent event(QEvent::Enter);
    QCoreApplication::sendEvent(&item, &event);
}

void Tile::leave()
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(&item, &event);
}

bool Tile::press(const QPoint& pos, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    return mouse(QEvent::MouseButtonPress, pos, button, button, modifiers);
}

bool Tile::move(const QPoint& pos, Qt::MouseButtons buttons)
{
    return mouse(QEvent::MouseMove, pos, Qt::NoButton, buttons);
}

bool Tile::release(const QPoint& pos, Qt::MouseButton button)
{
    return mouse(QEvent::MouseButtonRelease, pos, button, Qt::NoButton);
}

bool Tile::mouse(QEvent::Type type, const QPoint& pos, Qt::MouseButton button, Qt::MouseButtons buttons,
    Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, pos, button, buttons, modifiers);
    event.accept();
    QCoreApplication::sendEvent(&item, &event);
    return event.isAccepted();
}
