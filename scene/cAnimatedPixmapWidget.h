#pragma once

#include "FilmStrip.h"

#include <QPixmap>
#include <QTimer>
#include <QWidget>

/// A film strip that runs in a widget and can be clicked. It stands still until start() is called.
class cAnimatedPixmapWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)

public:
    /// `frameWidth` is the width of a frame in the strip, and of the widget; -1 for a picture that is no
    /// strip.
    cAnimatedPixmapWidget(const QPixmap& strip, int frameWidth, QWidget* parent = nullptr);
    ~cAnimatedPixmapWidget() override;

    /// The size of the whole strip.
    QSize sizeHint() const override;

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
    int currentFrame() const { return m_counter.current(); }
    int frameCount() const { return m_counter.count(); }

    /// A still picture for the time that the pointer is on the widget; see setUseHoverPixmap().
    void setHoverPixmap(const QPixmap& pixmap) { m_hoverPixmap = pixmap; }
    void setUseHoverPixmap(bool use);

Q_SIGNALS:
    /// The left button was pressed.
    void clicked();
    void enter();
    void leave();

public Q_SLOTS:
    /// From 0.0 to 1.0; what lies outside counts as the nearer end.
    void setOpacity(qreal o);
    qreal opacity() const;
    /// Shows the next frame.
    void timeout();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_strip;
    QPixmap m_hoverPixmap;
    int m_frameWidth;
    FilmStrip m_counter;
    qreal m_opacity = 1.0;
    bool m_underPointer = false;
    bool m_useHoverPixmap = false;
    QTimer m_timer;
};
