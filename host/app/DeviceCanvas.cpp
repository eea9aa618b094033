#include "DeviceCanvas.h"

#include "AppConstants.h"
#include "DeviceTransform.h"

#include <HostDevice.h>
#include <HostPalette.h>

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QPainter>
#include <QRadialGradient>

using namespace AppConstants;

DeviceCanvas::DeviceCanvas(QWidget* parent)
    : QGraphicsView(parent)
{
    auto* const scene = new QGraphicsScene(QRectF(QPointF(0, 0), QSizeF(SceneSize)), this);
    setScene(scene);
    setSceneRect(scene->sceneRect());
    setFixedSize(SceneSize);
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    setCacheMode(QGraphicsView::CacheBackground);
    // Items of feature views may draw beyond their bounds, and an update of a part would cut them there.
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setAccessibleName(tr("Device"));

    m_picture = scene->addPixmap(QPixmap());
    m_picture->setTransformationMode(Qt::SmoothTransformation);
    m_picture->setZValue(PictureZ);
    QFont noticeFont = font();
    noticeFont.setPixelSize(NoticeTextSize);
    m_notice = scene->addSimpleText(QString(), noticeFont);
    m_notice->setBrush(QColor(HostPalette::QuietText));
    m_notice->setZValue(PictureZ);
    m_transform = std::make_unique<DeviceTransform>(*m_picture);
    setDevice(nullptr);
}

DeviceCanvas::~DeviceCanvas()
{
    // It moves an item of the scene, which goes with the base class.
    m_transform.reset();
}

void DeviceCanvas::setDevice(const HostDevice* device)
{
    m_picture->setPixmap(device ? QPixmap(device->picturePath()) : QPixmap());
    m_transform->setHome(device ? device->homePosition() : QPointF(), device ? device->homeScale() : 1.0);
    QString text;
    if (!device)
        text = tr("No devices are installed.");
    else if (!device->problem().isEmpty())
        text = device->problem();
    else if (m_picture->pixmap().isNull())
        text = tr("There is no picture of this device.");
    m_notice->setText(text);
    m_notice->setPos(sceneRect().center() - m_notice->boundingRect().center());
    setAccessibleDescription(device ? device->displayName() : text);
}

void DeviceCanvas::setNoticeVisible(bool visible)
{
    m_notice->setVisible(visible);
}

QString DeviceCanvas::notice() const
{
    return m_notice->text();
}

void DeviceCanvas::drawBackground(QPainter* painter, const QRectF& rect)
{
    const QRectF area = sceneRect();
    QRadialGradient gradient(QPointF(area.width() * 0.6, area.height() * 0.55), area.width() * 0.55);
    gradient.setColorAt(0.0, QColor(HostPalette::CanvasLight));
    gradient.setColorAt(1.0, QColor(HostPalette::Canvas));
    painter->fillRect(rect, gradient);
}
