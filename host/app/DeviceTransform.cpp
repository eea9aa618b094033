#include "DeviceTransform.h"

#include "AppConstants.h"

#include <EventNames.h>
#include <IServiceMgr.h>

#include <QGraphicsItem>

#include <cmath>

namespace {

/// Scales and places beyond these are taken for mistakes.
constexpr qreal MaxScale = 100.0;
constexpr qreal MaxCoordinate = 10000.0;

bool isUsable(const cJsonValue& metadata)
{
    const qreal scale = metadata["scale"].toDouble();
    const qreal x = metadata["pos_x"].toDouble();
    const qreal y = metadata["pos_y"].toDouble();
    return metadata.contains("pos_x") && metadata.contains("pos_y") && std::isfinite(scale) && scale > 0.0
        && scale <= MaxScale && std::isfinite(x) && std::abs(x) <= MaxCoordinate && std::isfinite(y)
        && std::abs(y) <= MaxCoordinate;
}

} // namespace

DeviceTransform::DeviceTransform(QGraphicsItem& picture, QObject* parent)
    : QObject(parent)
    , m_picture(picture)
{
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setDuration(AppConstants::TransformTime);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, SIGNAL(valueChanged(QVariant)), this, SLOT(onValueChanged(QVariant)));
    connect(&m_animation, SIGNAL(finished()), this, SLOT(onFinished()));
    m_end.setSingleShot(true);
    m_end.setTimerType(Qt::PreciseTimer);
    connect(&m_end, SIGNAL(timeout()), this, SLOT(onEndTimeout()));
    IServiceMgr::instance()->subscribe(EventSources::MainUI, this, Events::HandlerPrefix);
}

DeviceTransform::~DeviceTransform()
{
    IServiceMgr::instance()->unsubscribe(EventSources::MainUI, this);
}

void DeviceTransform::setHome(const QPointF& position, qreal scale)
{
    m_animation.stop();
    m_end.stop();
    m_home = {position, scale};
    m_picture.setPos(position);
    m_picture.setScale(scale);
}

void DeviceTransform::returnHome()
{
    m_end.stop();
    moveTo(m_home);
}

void DeviceTransform::onDeviceTransformBegin(const cJsonValue& metadata)
{
    Place place {m_picture.pos(), m_picture.scale()};
    if (isUsable(metadata))
        place = {QPointF(metadata["pos_x"].toDouble(), metadata["pos_y"].toDouble()),
            metadata["scale"].toDouble()};
    moveTo(place);
    m_end.start(AppConstants::TransformEndTime);
}

void DeviceTransform::moveTo(const Place& place)
{
    m_animation.stop();
    m_from = {m_picture.pos(), m_picture.scale()};
    m_to = place;
    m_animation.start();
}

void DeviceTransform::onValueChanged(const QVariant& value)
{
    const qreal progress = value.toReal();
    m_picture.setPos(m_from.position + (m_to.position - m_from.position) * progress);
    m_picture.setScale(m_from.scale + (m_to.scale - m_from.scale) * progress);
}

void DeviceTransform::onFinished()
{
    m_picture.setPos(m_to.position);
    m_picture.setScale(m_to.scale);
}

void DeviceTransform::onEndTimeout()
{
    m_animation.stop();
    onFinished();
    IServiceMgr::instance()->publish(EventSources::MainUI, Events::DeviceTransformEnd);
}
