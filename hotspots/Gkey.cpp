#include "Gkey.h"

#include <cGraphicsButton.h>
#include <cJsonValue.h>
#include <cMacroBindingView.h>
#include <cProfileMgr.h>
#include <PluginContext.h>

#include <QCursor>
#include <QGraphicsPixmapItem>
#include <QGraphicsSceneMouseEvent>
#include <QPixmap>
#include <QPointer>

#include <algorithm>

namespace {

/// In a coordinate of the context button: the key chooses the place.
constexpr int AutomaticPlace = -1;

} // namespace

Gkey::Gkey(cMacroBindingView* view, QGraphicsItem* parent)
    : QGraphicsPathItem(parent)
    , m_view(view)
{
    m_targetGlow = new QGraphicsPixmapItem(this);
    m_targetGlow->setTransformationMode(Qt::SmoothTransformation);
    m_targetGlow->setPixmap(QPixmap(pluginResource("Resources/images/key_target_glow.png")));
    m_targetGlow->hide();
    // The glow may be larger than the key, and must not take presses from what lies around it.
    m_targetGlow->setAcceptedMouseButtons(Qt::NoButton);

    const QPixmap buttonPicture(pluginResource("Resources/images/pointer_left-click.png"));
    m_contextButton = new cGraphicsButton(buttonPicture, this);
    connect(m_contextButton, SIGNAL(clicked(QPoint)), SLOT(onClickedContextButton(QPoint)));
    m_contextButton->hide();

    setAcceptHoverEvents(true);
    setAcceptDrops(true);
}

void Gkey::setContextID(const QString& contextID)
{
    m_contextID = contextID;
}

void Gkey::setGenericInfo(
    const QString& type, const QString& name, bool required, bool hidden, bool cannotBeUnassigned)
{
    m_genericType = type;
    m_genericName = name;
    m_genericRequired = required;
    m_genericHidden = hidden;
    m_cannotBeUnassigned = cannotBeUnassigned;
}

void Gkey::setPolygon(const QPolygonF& polygon)
{
    m_polygon = polygon;
}

void Gkey::setShapeKind(int kind)
{
    m_shapeKind = kind;
}

void Gkey::setGlowPixmap(const QPixmap& pixmap)
{
    m_targetGlow->setPixmap(pixmap);
}

void Gkey::setContextButtonPos(int x, int y)
{
    m_contextButtonX = x;
    m_contextButtonY = y;
}

void Gkey::setKeyRect(int x, int y, int width, int height)
{
    m_rectX = x;
    m_rectY = y;
    m_rectWidth = width;
    m_rectHeight = height;
    // Whole halves of the key, but true halves of the glow.
    const QPoint middle(x + width / 2, y + height / 2);
    const QSizeF glow = m_targetGlow->boundingRect().size();
    m_targetGlow->setPos(middle.x() - glow.width() / 2.0, middle.y() - glow.height() / 2.0);
    placeContextButton();
}

void Gkey::placeContextButton()
{
    if (m_contextButtonX != AutomaticPlace && m_contextButtonY != AutomaticPlace) {
        m_contextButton->setPos(m_contextButtonX, m_contextButtonY);
        return;
    }
    const QPointF corner = lowerRightCorner();
    const QSizeF button = m_contextButton->boundingRect().size();
    m_contextButton->setPos(corner.x() - button.width(), corner.y() - button.height());
}

QPointF Gkey::lowerRightCorner() const
{
    QPolygonF corners = m_shapeKind == PolygonShape ? m_polygon : QPolygonF(boundingRect());
    std::stable_sort(corners.begin(), corners.end(),
        [](const QPointF& one, const QPointF& other) { return one.x() < other.x(); });
    if (corners.isEmpty())
        return {};
    const QPointF last = corners.last();
    if (corners.size() == 1)
        return last;
    const QPointF nextToLast = corners.at(corners.size() - 2);
    return last.y() > nextToLast.y() ? last : nextToLast;
}

void Gkey::setLabelRect(int x, int y, int minWidth, int maxWidth)
{
    m_hasLabelRect = true;
    m_labelX = x;
    m_labelY = y;
    m_labelMinWidth = minWidth;
    m_labelMaxWidth = maxWidth;
}

void Gkey::setConnectLine(const QPointF& p1, const QPointF& p2)
{
    m_hasConnectLine = true;
    m_lineP1 = p1;
    m_lineP2 = p2;
}

void Gkey::setControlTypes(const QStringList& types)
{
    m_controlTypes = types;
}

void Gkey::setMacro(const QString& macroID)
{
    const cJsonValue macro = cProfileMgr().getMacroByID(m_view->getProfileId(), macroID);
    m_macroHidden = !macro.isNull() && macro["hidden"].toBool();
    m_macroID = macroID;
}

void Gkey::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*)
{ }

bool Gkey::sceneEventFilter(QGraphicsItem* watched, QEvent* event)
{
    // Handlers may take the key down, so nothing of it is touched after they return.
    switch (event->type()) {
    case QEvent::GraphicsSceneMouseMove:
        mouseMoveEvent(static_cast<QGraphicsSceneMouseEvent*>(event));
        return true;
    case QEvent::GraphicsSceneMousePress:
        mousePressEvent(static_cast<QGraphicsSceneMouseEvent*>(event));
        return true;
    case QEvent::GraphicsSceneMouseDoubleClick:
        mouseDoubleClickEvent(static_cast<QGraphicsSceneMouseEvent*>(event));
        return true;
    case QEvent::GraphicsSceneContextMenu:
        contextMenuEvent(static_cast<QGraphicsSceneContextMenuEvent*>(event));
        return true;
    case QEvent::GraphicsSceneHoverEnter:
        hoverEnterEvent(static_cast<QGraphicsSceneHoverEvent*>(event));
        return false;
    case QEvent::GraphicsSceneHoverLeave:
        hoverLeaveEvent(static_cast<QGraphicsSceneHoverEvent*>(event));
        return false;
    case QEvent::GraphicsSceneDragEnter:
        m_eventFromLabel = true;
        dragEnterEvent(static_cast<QGraphicsSceneDragDropEvent*>(event));
        return true;
    case QEvent::GraphicsSceneDragLeave:
        m_eventFromLabel = true;
        dragLeaveEvent(static_cast<QGraphicsSceneDragDropEvent*>(event));
        return true;
    case QEvent::GraphicsSceneDrop:
        dropEvent(static_cast<QGraphicsSceneDragDropEvent*>(event));
        return true;
    default:
        return QGraphicsPathItem::sceneEventFilter(watched, event);
    }
}

void Gkey::setChildrenVisible(bool visible)
{
    m_targetGlow->setVisible(visible);
    m_contextButton->setVisible(visible);
}

void Gkey::hoverEnterEvent(QGraphicsSceneHoverEvent*)
{
    setCursor(holdsVisibleMacro() ? Qt::OpenHandCursor : Qt::ArrowCursor);
    Q_EMIT hoverIn();
    setChildrenVisible(true);
    update();
}

void Gkey::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    Q_EMIT hoverOut();
    setChildrenVisible(false);
    update();
}

void Gkey::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPointer<Gkey> self(this);
    Q_EMIT clicked(m_contextID);
    if (!self)
        return;
    if (m_macroID.isEmpty()) {
        if (cProfileMgr().macros(m_view->getProfileId()) == cJsonValue()) {
            onAddNewMacro();
        } else {
            Q_EMIT showTooltip(
                event->scenePos(), tr("To assign a command to this G-key, drag the command here"));
        }
    } else if (!m_macroHidden) {
        m_pressPos = event->pos();
        m_pressed = true;
        setCursor(Qt::ClosedHandCursor);
        event->accept();
    }
}

void Gkey::mouseReleaseEvent(QGraphicsSceneMouseEvent*)
{
    setCursor(Qt::ArrowCursor);
}

void Gkey::mouseDoubleClickEvent(QGraphicsSceneMouseEvent*)
{
    if (m_macroID.isEmpty())
        onAddNewMacro();
    else
        onEditMacro();
}

void Gkey::onEditMacro()
{
    Q_EMIT edit(m_contextID);
}

void Gkey::onUseDefault()
{
    Q_EMIT useDefault(m_contextID);
}

void Gkey::onUseGeneric()
{
    Q_EMIT useGeneric(m_contextID);
}

void Gkey::onUnassign()
{
    Q_EMIT unassign(m_contextID);
}

void Gkey::onMacroEditorClosed(const QString& macroID)
{
    Q_EMIT macroDropped(macroID, m_contextID);
}
