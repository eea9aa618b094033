#pragma once

#include <QAbstractEventDispatcher>

/// The single shots of that length, in milliseconds, that are under way in this thread. Qt keeps each as an
/// object with one timer below the event dispatcher.
inline int singleShots(int milliseconds)
{
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    int count = 0;
    for (QObject* child : dispatcher->children()) {
        for (const QAbstractEventDispatcher::TimerInfo& timer : dispatcher->registeredTimers(child))
            count += timer.interval == milliseconds;
    }
    return count;
}
