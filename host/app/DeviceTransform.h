#pragma once

#include <cJsonValue.h>

#include <QObject>
#include <QPointF>
#include <QTimer>
#include <QVariantAnimation>

class QGraphicsItem;

/// Moves and scales the device picture.
///
/// A feature view asks for a place by the event "DeviceTransformBegin", with `pos_x`, `pos_y` (of the upper
/// left corner, in the scene) and `scale`. The picture is moved there, and "DeviceTransformEnd" is published
/// when it has come to rest, but never before the event's delivery is over. A record without a usable place
/// leaves the picture where it is and is answered all the same.
class DeviceTransform : public QObject
{
    Q_OBJECT

public:
    /// The picture outlives this.
    explicit DeviceTransform(QGraphicsItem& picture, QObject* parent = nullptr);
    ~DeviceTransform() override;

    /// Puts the picture at its place on the home page at once. A transform that is under way ends without an
    /// event.
    void setHome(const QPointF& position, qreal scale);
    /// The same, as a movement.
    void returnHome();

    bool isRunning() const { return m_animation.state() == QAbstractAnimation::Running; }

    /// Handler of the event. A transform that is under way goes on from where the picture is, and its end is
    /// the end of the new one.
    Q_INVOKABLE void onDeviceTransformBegin(const cJsonValue& metadata);

private Q_SLOTS:
    void onValueChanged(const QVariant& value);
    void onFinished();
    void onEndTimeout();

private:
    struct Place
    {
        QPointF position;
        qreal scale = 1.0;
    };

    void moveTo(const Place& place);

    QGraphicsItem& m_picture;
    Place m_home;
    Place m_from;
    Place m_to;
    QVariantAnimation m_animation;
    /// Runs while somebody waits for the end of the transform. A timer, because under load an animation may
    /// finish before shorter timers have had their turn; timers keep their order.
    QTimer m_end;
};
