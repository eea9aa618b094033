#pragma once

#include "FilmStrip.h"

#include <QGraphicsItem>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QTimer>

/// A film strip that runs in the scene. It stands still until start() is called.
class cAnimatedPixmap : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(cAnimatedPixmap)
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)

public:
    /// `frameWidth` is the width of a frame in the strip; -1 for a picture that is no strip. A strip that is
    /// narrower than a frame has none, and nothing is drawn.
    cAnimatedPixmap(const QPixmap& strip, int frameWidth, QGraphicsItem* parent = nullptr);
    ~cAnimatedPixmap() override;

    /// As large as the first frame.
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void start() { m_timer.start(); }
    void stop() { m_timer.stop(); }
    bool isRunning() const { return m_timer.isActive(); }
    int interval() const { return m_timer.interval(); }
    /// Milliseconds from frame to frame.
    void setInterval(int interval) { m_timer.setInterval(interval); }
    /// Shows a frame, counted from 0; nothing is drawn for one that the strip does not have.
    void setFrame(int frame);
    /// Shows the first frame.
    void reset() { setFrame(0); }
    int currentFrame() const { return m_strip.current(); }
    int frameCount() const { return m_strip.count(); }

public Q_SLOTS:
    /// Shows the next frame.
    void timeout();

private:
    QList<QPixmap> m_frames;
    int m_frameWidth;
    FilmStrip m_strip;
    QTimer m_timer;
};
