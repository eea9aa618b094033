#pragma once

#include <QGraphicsScene>
#include <QList>
#include <QRectF>
#include <QSignalSpy>

/// What a scene has told its views to draw anew since the last clear().
class SceneRedraws
{
    Q_DISABLE_COPY(SceneRedraws)

public:
    explicit SceneRedraws(const QGraphicsScene& scene)
        : m_changed(&scene, SIGNAL(changed(QList<QRectF>)))
    { }

    void clear() { m_changed.clear(); }
    /// True if one redraw is of the whole place.
    bool cover(const QRectF& place) const
    {
        for (const QVariantList& each : m_changed) {
            for (const QRectF& part : each.first().value<QList<QRectF>>()) {
                if (part.contains(place))
                    return true;
            }
        }
        return false;
    }

private:
    QSignalSpy m_changed;
};
