#pragma once

#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>

class QTimer;

/// A short text that pops up over the scene and goes by itself after two seconds.
class cTooltip : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cTooltip)

public:
    explicit cTooltip(QGraphicsItem* parent = nullptr);

    /// The text with its margin. The frame's right and lower lines lie just outside.
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Shows a text on one line with its frame's corner at `pos`, in coordinates of the parent item. A tip
    /// that still shows is replaced, and the time begins anew.
    void showTip(const QPointF& pos, const QString& text);

private Q_SLOTS:
    void timerOut();

private:
    /// Owned, as its parent.
    QTimer* m_timer;
    QPixmap m_textPixmap;
    QFont m_font;
    QColor m_textColor {230, 230, 230, 255};
    QColor m_backgroundColor {80, 80, 80, 255};
};
