#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

/// Counts how often a widget is painted. What it is asked to paint anyway, because it has just been shown,
/// has to be over before.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }

    int count() const { return m_count; }
    void clear() { m_count = 0; }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};
