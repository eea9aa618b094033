#include "MagnetTextItem.h"

#include "HotspotConstants.h"

#include <cScaledFont.h>
#include <PluginContext.h>
#include <SceneConstants.h>
#include <TextPixmap.h>

#include <QByteArray>
#include <QColor>
#include <QCursor>
#include <QFontMetrics>
#include <QMargins>
#include <QPainter>

using namespace HotspotConstants;

std::unique_ptr<cScaledFont> MagnetTextItem::s_font;
int MagnetTextItem::s_instances = 0;

namespace {

/// The size of the picture on which a wrapped text is tried out.
constexpr QSize ScratchSize(8, 8);

/// The nine pictures of one look. Those that are missing stay null and draw nothing.
NineSlice loadBalloon(const char* look)
{
    NineSlice balloon;
    const auto load = [look](const char* piece) {
        const QByteArray name = QByteArray("Resources/images/balloon_") + piece + '_' + look + ".png";
        return QPixmap(pluginResource(name.constData()));
    };
    balloon.topLeft = load("topleft");
    balloon.topRight = load("topright");
    balloon.top = load("top");
    balloon.left = load("left");
    balloon.bottomLeft = load("bottomleft");
    balloon.bottomRight = load("bottomright");
    balloon.bottom = load("bottom");
    balloon.right = load("right");
    balloon.center = load("center");
    return balloon;
}

int boundedLength(int length)
{
    return qBound(0, length, LabelMaxLength);
}

} // namespace

MagnetTextItem::MagnetTextItem(const QString& contextID, bool isStatic, QGraphicsItem* parent)
    : QGraphicsItem(parent)
    , m_isStatic(isStatic)
    , m_contextID(contextID)
{
    if (s_instances++ == 0) {
        s_font = std::make_unique<cScaledFont>(SceneConstants::TextFamily, LabelFontSize);
        s_font->setStyleStrategy(QFont::ForceOutline);
        s_font->setFixedPitch(true);
    }
    setAcceptHoverEvents(true);
    setAcceptDrops(true);
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton);
    m_restingZ = zValue();
    loadBalloons();
}

MagnetTextItem::~MagnetTextItem()
{
    if (--s_instances == 0)
        s_font.reset();
}

void MagnetTextItem::setExpandedMaxWidth(int width)
{
    m_expandedMaxWidth = width;
}

void MagnetTextItem::setCollapsedWidth(int width)
{
    m_collapsedWidth = width;
}

void MagnetTextItem::setConnectLine(const QPointF& start, const QPointF& end)
{
    m_hasConnectLine = true;
    m_lineStart = start;
    m_lineEnd = end;
    update();
}

void MagnetTextItem::setCenter(qreal x, qreal y)
{
    m_center = QPointF(x, y);
    // Whole halves, so that a label that is centred on whole pixels stands on whole pixels.
    const int halfWidth = m_width / 2;
    const int halfHeight = m_height / 2;
    setPos(x - halfWidth, y - halfHeight);
}

void MagnetTextItem::setMacroID(const QString& macroID)
{
    m_macroID = macroID;
}

void MagnetTextItem::setText(const QString& text)
{
    m_text = text;
    layoutText(true);
    setCenter(m_center.x(), m_center.y());
}

void MagnetTextItem::setBalloonSelected(bool selected)
{
    m_selected = selected;
    update(QRectF());
}

QRectF MagnetTextItem::boundingRect() const
{
    return QRectF(0, 0, m_width + 2 * LabelTextMarginX, m_height + 2 * LabelTextMarginY);
}

void MagnetTextItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_text.isEmpty())
        return;
    if (m_hasConnectLine)
        painter->drawLine(m_lineStart, m_lineEnd);
    balloon().draw(*painter, boundingRect().toRect(),
        QMargins(BalloonBorder, BalloonBorder, BalloonBorder, BalloonBorder));
    painter->drawPixmap(LabelTextMarginX, LabelTextMarginY, m_isStatic ? m_staticTextPixmap : m_textPixmap);
}

void MagnetTextItem::onGkeyHoverIn()
{
    const bool canBeDragged = !m_macroID.isEmpty() && !m_isStatic;
    setCursor(canBeDragged ? Qt::OpenHandCursor : Qt::ArrowCursor);
    if (!m_overflowing)
        return;
    setZValue(GrownLabelZ);
    layoutText(false);
    m_expanded = true;
}

void MagnetTextItem::onGkeyHoverOut()
{
    if (!m_expanded)
        return;
    setZValue(m_restingZ);
    layoutText(true);
    m_expanded = false;
}

void MagnetTextItem::loadBalloons()
{
    m_normalBalloon = loadBalloon("normal");
    m_expandedBalloon = loadBalloon("normal_expanded");
    m_selectedBalloon = loadBalloon("selected");
    m_staticBalloon = loadBalloon("static");
}

void MagnetTextItem::layoutText(bool collapsed)
{
    m_overflowing = false;
    prepareGeometryChange();
    const QSize natural = QFontMetrics(*s_font).size(Qt::TextSingleLine, m_text);
    m_height = natural.height();
    if (collapsed) {
        m_width = boundedLength(m_collapsedWidth);
        m_overflowing = natural.width() > m_width;
        m_textFlags = Qt::TextSingleLine | int(m_overflowing ? Qt::AlignLeft : Qt::AlignCenter);
    } else {
        const int widest = boundedLength(m_expandedMaxWidth);
        m_width = qMin(natural.width(), widest);
        m_overflowing = natural.width() > widest;
        // At any character, so that a long word without a space doesn't leave the balloon.
        m_textFlags = int(Qt::AlignCenter) | Qt::TextWrapAnywhere;
        if (m_overflowing) {
            const QRect area(0, 0, m_width, 0);
            const QRect wrapped = TextPixmap::measure(m_text, *s_font, m_textFlags, area, ScratchSize);
            m_height = boundedLength(wrapped.height());
        }
    }
    const QSize size(m_width, m_height);
    m_textPixmap = TextPixmap::render(m_text, *s_font, QColor(Qt::white), m_textFlags, size);
    const QColor grey(StaticTextGrey, StaticTextGrey, StaticTextGrey);
    m_staticTextPixmap = TextPixmap::render(m_text, *s_font, grey, m_textFlags, size);
}

const NineSlice& MagnetTextItem::balloon() const
{
    if (m_isStatic)
        return m_staticBalloon;
    if (m_selected)
        return m_selectedBalloon;
    return m_expanded ? m_expandedBalloon : m_normalBalloon;
}
