#include "cGraphicsButton.h"

#include "ButtonDescription.h"
#include "DragRun.h"
#include "SceneConstants.h"

#include <QCursor>
#include <QDrag>
#include <QGraphicsSceneMouseEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QWidget>

cGraphicsButton::cGraphicsButton(const QPixmap& normal, QGraphicsItem* parent)
    : cGraphicsButton(normal, QPixmap(), QPixmap(), parent)
{ }

cGraphicsButton::cGraphicsButton(const QPixmap& normal, const QPixmap& hover, QGraphicsItem* parent)
    : cGraphicsButton(normal, hover, QPixmap(), parent)
{ }

cGraphicsButton::cGraphicsButton(
    const QPixmap& normal, const QPixmap& hover, const QPixmap& pressed, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_normalPixmap(normal)
    , m_pressedPixmap(pressed)
    , m_hoverPixmap(hover)
    , m_boundary(QPoint(0, 0), normal.size())
{
    setAcceptHoverEvents(true);
}

cGraphicsButton::cGraphicsButton(QGraphicsItem* parent)
    : cGraphicsButton(QPixmap(), QPixmap(), QPixmap(), parent)
{ }

cGraphicsButton::cGraphicsButton(const cJsonValue& description, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_boundary(0, 0, 0, 0)
{
    if (description.contains("normal")) {
        m_normalPixmap = QPixmap(description["normal"].toString());
        m_boundary.setSize(m_normalPixmap.size());
    }
    if (description.contains("hover"))
        setHoverPixmap(description["hover"].toString());
    if (description.contains("pressed"))
        m_pressedPixmap = QPixmap(description["pressed"].toString());
    if (description.contains("boundary")) {
        const QSize size = ButtonDescription::size(description["boundary"]);
        m_boundary.setSize(QSize(size.width() ? size.width() : m_normalPixmap.width(),
            size.height() ? size.height() : m_normalPixmap.height()));
    }
    if (description.contains("toggle"))
        m_toggleFlag = description["toggle"].toBool();
    if (description.contains("stretch"))
        m_stretch = description["stretch"].toBool();
    if (description.contains("pos"))
        setPos(ButtonDescription::point(description["pos"]));
    if (description.contains("alignment"))
        m_alignment = description["alignment"].toInt();
    if (description.contains("offset"))
        m_offset = ButtonDescription::point(description["offset"]);
    if (description.contains("tooltip"))
        setToolTip(description["tooltip"].toString());
}

QRectF cGraphicsButton::boundingRect() const
{
    return m_boundary;
}

void cGraphicsButton::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QPixmap picture = StatePicture::choose(m_state, m_normalPixmap, m_hoverPixmap, m_pressedPixmap);
    if (picture.isNull() && !m_gradientEnabled)
        return;
    if (m_gradientEnabled && m_gradientShown)
        paintGradient(*painter);
    if (m_stretch) {
        painter->drawPixmap(boundingRect(), picture, picture.rect());
        return;
    }
    const QPoint place = PictureAlignment::place(m_alignment, picture.size(), m_boundary.size());
    painter->drawPixmap(QPointF(place) + m_offset, picture);
}

void cGraphicsButton::paintGradient(QPainter& painter) const
{
    QLinearGradient gradient = m_state & StatePicture::UnderPointer ? m_hoverGradient : m_normalGradient;
    gradient.setStart(0, 0);
    gradient.setFinalStop(0, boundingRect().height());
    painter.fillRect(boundingRect(), gradient);
}

void cGraphicsButton::setState(int state)
{
    m_state = state;
    update();
}

void cGraphicsButton::setBoundarySize(const QSize& size)
{
    prepareGeometryChange();
    m_boundary.setSize(size.expandedTo(QSize(0, 0)));
}

void cGraphicsButton::setBoundarySize(int width, int height)
{
    setBoundarySize(QSize(width, height));
}

void cGraphicsButton::setNormalPixmap(const QPixmap& pixmap)
{
    m_normalPixmap = pixmap;
    update();
}

void cGraphicsButton::setNormalPixmap(const QString& path)
{
    setNormalPixmap(QPixmap(path));
}

void cGraphicsButton::setHoverPixmap(const QPixmap& pixmap)
{
    m_hoverPixmap = pixmap;
    update();
}

void cGraphicsButton::setHoverPixmap(const QString& path)
{
    setHoverPixmap(QPixmap(path));
    setAcceptHoverEvents(true);
}

void cGraphicsButton::setPressedPixmap(const QPixmap& pixmap)
{
    m_pressedPixmap = pixmap;
    update();
}

void cGraphicsButton::setPressedPixmap(const QString& path)
{
    setPressedPixmap(QPixmap(path));
}

void cGraphicsButton::setGradients(const QLinearGradient& normal, const QLinearGradient& hover)
{
    m_normalGradient = normal;
    m_hoverGradient = hover;
    m_gradientEnabled = true;
    setAcceptHoverEvents(true);
    update();
}

void cGraphicsButton::toggle()
{
    setState(m_state ^ StatePicture::ToggledOn);
}

void cGraphicsButton::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    setState(m_state | StatePicture::UnderPointer);
    setCursor(Qt::PointingHandCursor);
    Q_EMIT hoverEntered();
}

void cGraphicsButton::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    setState(m_state & ~StatePicture::UnderPointer);
    setCursor(Qt::ArrowCursor);
    Q_EMIT hoverLeft();
}

void cGraphicsButton::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    // Receivers run menus and dialogs, during which the scene may be taken down.
    const QPointer<cGraphicsButton> self(this);
    const QPoint point = event->lastScenePos().toPoint();
    Q_EMIT clicked(this);
    if (self)
        Q_EMIT clicked();
    if (!self)
        return;
    setEnabled(false);
    Q_EMIT clicked(point);
    if (self)
        setEnabled(true);
}

void cGraphicsButton::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!m_draggable)
        return;
    const QPointer<cGraphicsButton> self(this);
    // The drag owns the data.
    auto* data = new QMimeData;
    data->setText(QStringLiteral("#%1%2%3"));
    auto* drag = new QDrag(event->widget());
    drag->setMimeData(data);
    drag->setPixmap(m_normalPixmap);
    drag->setHotSpot(SceneConstants::ButtonDragHotSpot);
    DragRun::exec(drag, this, Qt::MoveAction);
    if (self)
        setCursor(Qt::OpenHandCursor);
}

void cGraphicsButton::mouseReleaseEvent(QGraphicsSceneMouseEvent*)
{
    Q_EMIT released(this);
}
