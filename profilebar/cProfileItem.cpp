#include "cProfileItem.h"

#include "ProfileBarConstants.h"

#include <cClickableLabel.h>
#include <cProfilesToGo.h>
#include <DragFormats.h>
#include <PlainText.h>
#include <PluginContext.h>
#include <SceneConstants.h>
#include <TextPixmap.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QtDebug>
#include <QToolTip>
#include <QVBoxLayout>

using namespace ProfileBarConstants;

namespace {

cScaledFont tileFont(qreal designSize)
{
    cScaledFont font(SceneConstants::TextFamily, designSize);
    font.setFixedPitch(true);
    font.setStyleStrategy(QFont::ForceOutline);
    return font;
}

QSize singleLineSize(const QString& text, const QFont& font)
{
    return QFontMetrics(font).size(Qt::TextSingleLine, text);
}

} // namespace

cProfileItem::cProfileItem(const QString& id, const QString& name, const QPixmap& icon, QWidget* parent)
    : QWidget(parent)
    , m_id(id)
    , m_name(name)
    , m_icon(icon)
    , m_wellPixmap(pluginResource("Resources/images/profile_outline.png"))
    , m_selectedWellPixmap(pluginResource("Resources/images/profile_icon_well_selected.png"))
    , m_selectedMarker(pluginResource("Resources/images/selected.png"))
    , m_hoverMarker(pluginResource("Resources/images/hover.png"))
    , m_nameFont(tileFont(NameFontSize))
    , m_deviceFont(tileFont(DeviceFontSize))
{
    setAcceptDrops(true);
    createMarker();
    setMinimumSize(cProfileItem::sizeHint());
    setMaximumSize(cProfileItem::sizeHint());
    m_shownWell = m_wellPixmap;
    createContextIcon();
    setToolTip(PlainText::toolTip(name));
    renderName();
}

void cProfileItem::createMarker()
{
    auto* const column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(TileLayoutSpacing);
    setLayout(column);
    m_markerLabel = new QLabel;
    m_markerLabel->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    column->addWidget(m_markerLabel);
    m_markerLabel->hide();
}

void cProfileItem::createContextIcon()
{
    m_contextIcon =
        new cClickableLabel(QPixmap(pluginResource("Resources/images/pointer_left-click.png")), this);
    // Queued, so that the click is over when the menu opens.
    connect(m_contextIcon, SIGNAL(clicked(const QPoint&)), SLOT(contextMenuIconClicked(const QPoint&)),
        Qt::QueuedConnection);
    m_contextIcon->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const row = new QHBoxLayout;
    row->addSpacing(ContextIconLeft);
    row->addWidget(m_contextIcon);
    auto* const column = static_cast<QVBoxLayout*>(layout());
    column->addLayout(row);
    column->addSpacing(ContextIconBottom);
    m_contextIcon->hide();
}

QSize cProfileItem::sizeHint() const
{
    return TileSize;
}

void cProfileItem::setTarget(const QString& target)
{
    m_target = target;
}

void cProfileItem::setProfileIcon(const QPixmap& icon)
{
    m_icon = icon;
    update();
}

void cProfileItem::setProfileName(const QString& name)
{
    m_name = name;
    setToolTip(PlainText::toolTip(name));
    renderName();
    update();
    Q_EMIT nameChanged(name);
}

void cProfileItem::setDeviceId(const QString& deviceId)
{
    m_deviceId = deviceId;
    if (deviceId.isEmpty())
        return;
    m_deviceShortName = cProfilesToGo().shortDeviceName(deviceId);
    // Measured with the larger font, which gives the text its room in the balloon.
    m_deviceTextPixmap = TextPixmap::render(m_deviceShortName, m_deviceFont, QColor(Qt::white),
        Qt::AlignCenter | Qt::TextSingleLine, singleLineSize(m_deviceShortName, m_nameFont));
    m_balloonPixmap = QPixmap(pluginResource("Resources/images/device_balloon.png"));
    update();
}

void cProfileItem::setCurrent(bool current)
{
    m_current = current;
    if (current)
        m_markerLabel->setPixmap(m_selectedMarker);
    m_markerLabel->setVisible(current);
    update();
}

void cProfileItem::setTileSelected(bool selected)
{
    m_selected = selected;
    m_shownWell = selected ? m_selectedWellPixmap : m_wellPixmap;
    update();
}

void cProfileItem::setDragEnabled(bool enabled)
{
    m_dragEnabled = enabled;
}

void cProfileItem::renderName()
{
    const QSize natural = singleLineSize(m_name, m_nameFont);
    const QSize size(TileSize.width(), natural.height());
    const bool isCut = natural.width() > size.width();
    const int flags = Qt::TextSingleLine | int(isCut ? Qt::AlignLeft : Qt::AlignHCenter);
    m_namePixmap = TextPixmap::render(m_name, m_nameFont, QColor(Qt::gray), flags, size);
    m_currentNamePixmap = TextPixmap::render(m_name, m_nameFont, QColor(Qt::cyan), flags, size);
}

void cProfileItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(TileWellPos, m_shownWell);
    painter.drawPixmap(TileIconPos, m_icon);
    painter.drawPixmap(TileNamePos, m_current ? m_currentNamePixmap : m_namePixmap);
    if (m_deviceShortName.isEmpty())
        return;
    const int overhang = (m_balloonPixmap.height() - m_deviceTextPixmap.height()) / 2;
    painter.drawPixmap(BalloonRight - m_balloonPixmap.width(), BalloonTextTop - overhang, m_balloonPixmap);
    painter.drawPixmap(BalloonRight - m_balloonPixmap.width() / 2 - m_deviceTextPixmap.width() / 2,
        BalloonTextTop, m_deviceTextPixmap);
}

bool cProfileItem::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        // At the upper edge, so that the tip doesn't cover the name. The base class then finds the tip as it
        // wants it.
        const int x = static_cast<QHelpEvent*>(event)->globalX();
        QToolTip::showText(QPoint(x, mapToGlobal(QPoint(0, 0)).y()), toolTip(), this);
    }
    return QWidget::event(event);
}

void cProfileItem::mousePressEvent(QMouseEvent* event)
{
    if (!m_dragEnabled) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier) {
        m_pressPoint = event->pos();
        setCursor(Qt::ClosedHandCursor);
    }
    // The list selects.
    event->ignore();
}

void cProfileItem::mouseReleaseEvent(QMouseEvent* event)
{
    setCursor(Qt::PointingHandCursor);
    event->ignore();
}

void cProfileItem::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragEnabled) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    const QPoint way = event->pos() - m_pressPoint;
    if (event->buttons() == Qt::LeftButton && way.manhattanLength() > QApplication::startDragDistance())
        Q_EMIT dragStart();
}

void cProfileItem::enterEvent(QEvent*)
{
    setCursor(Qt::PointingHandCursor);
    if (!m_current) {
        m_markerLabel->setPixmap(m_hoverMarker);
        m_markerLabel->show();
    }
    m_contextIcon->show();
}

void cProfileItem::leaveEvent(QEvent*)
{
    qDebug() << "cProfileItem::leaveEvent profile:" << m_name;
    setCursor(Qt::ArrowCursor);
    if (!m_current)
        m_markerLabel->hide();
    m_contextIcon->hide();
}

void cProfileItem::dragEnterEvent(QDragEnterEvent* event)
{
    // Commands come from the list of this process; what comes from elsewhere names nothing that is known
    // here.
    if (!event->source())
        return;
    if (event->mimeData()->hasFormat(DragFormats::Macros))
        event->acceptProposedAction();
    else
        event->ignore();
}

void cProfileItem::dropEvent(QDropEvent* event)
{
    if (!event->mimeData()->hasFormat(DragFormats::Macros)) {
        event->ignore();
        return;
    }
    // The host may end the tile in answer to the signal.
    const QString profileID = m_id;
    Q_EMIT macrosDropped(DragFormats::macroIds(*event->mimeData()), profileID);
    event->acceptProposedAction();
}
