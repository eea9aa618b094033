#pragma once

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>
#include <QString>

#include <memory>

class QPropertyAnimation;

/// A selectable picture that can breathe, such as a mode button on the device picture.
///
/// It selects itself when it is pressed. It never unselects itself: cGraphicsItemGroup does that for the
/// items that it holds.
class cGraphicsItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cGraphicsItem)
    Q_PROPERTY(qreal scale READ scale WRITE setScale)

public:
    /// The pictures are given by their paths. One that does not load draws nothing in its state.
    cGraphicsItem(const QString& id, const QString& normalPath, const QString& hoverPath,
        const QString& selectedPath, QGraphicsItem* parent = nullptr);
    ~cGraphicsItem() override;

    /// As large as the normal picture, which the other two share their corner with.
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    QString id() const { return m_id; }
    bool isItemSelected() const { return m_selected; }
    void setItemSelected(bool selected);

    /// Lets the item breathe about its centre, if setPulsate(true) was called before.
    void startPulse();
    /// Stands the item still in its own size.
    void stopPulse();
    /// Says whether startPulse() has an effect; starts nothing itself.
    void setPulsate(bool on);
    /// Drives the scale; null until setPulsate() is called.
    QPropertyAnimation* pulseAnimation() const { return m_pulseAnimation.get(); }

Q_SIGNALS:
    void clicked(const QString& id);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    QString m_id;
    bool m_selected = false;
    bool m_hovered = false;
    QPixmap m_normalPixmap;
    QPixmap m_selectedPixmap;
    QPixmap m_hoverPixmap;
    QRectF m_rect;
    bool m_pulsing = false;
    std::unique_ptr<QPropertyAnimation> m_pulseAnimation;
};
