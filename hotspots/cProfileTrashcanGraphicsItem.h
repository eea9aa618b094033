#pragma once

#include "cProfileDropTarget.h"

#include <StatePicture.h>

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>
#include <QRectF>

/// The trash can on the device scene: takes profiles, commands and assignments that are dragged onto it and
/// says so by a signal. It deletes nothing itself; that is the view's work. It shows another picture while a
/// drag is over it.
class cProfileTrashcanGraphicsItem : public QObject, public QGraphicsItem, public cProfileDropTarget
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cProfileTrashcanGraphicsItem)

public:
    /// The item is as large as the normal picture. Without a hover picture the normal one is shown always.
    cProfileTrashcanGraphicsItem(
        const QPixmap& normalPixmap, const QPixmap& hoverPixmap, QGraphicsItem* parent);

    /// A StatePicture::State, or any number; "under the pointer" means that a drag is over the item.
    void setState(int state);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

Q_SIGNALS:
    // Each overrides the operation of the drop target: to be given a drop is to emit the signal.
    void profilesDropped(const QStringList& profileIds) override;
    void macrosDropped(const QStringList& macroIds) override;
    void assignmentsDropped(const QStringList& contextIds) override;

protected:
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragLeaveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    QPixmap m_normalPixmap;
    QPixmap m_hoverPixmap;
    int m_state = StatePicture::Resting;
    QRectF m_rect;
};
