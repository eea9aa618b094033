#include "Gallery.h"

#include <PluginContext.h>

#include <QGraphicsItem>
#include <QGraphicsProxyWidget>
#include <QGraphicsSimpleTextItem>
#include <QPainter>
#include <QWidget>

namespace {

const QColor CanvasColor(0x0b, 0x0f, 0x10);
const QColor TitleColor(0x93, 0xc7, 0xc7);
const QColor CaptionColor(0x99, 0x99, 0x99);

constexpr qreal Margin = 24;
constexpr qreal RowGap = 18;
constexpr qreal CellGap = 22;
constexpr qreal TitleHeight = 22;
constexpr qreal CaptionGap = 6;
/// A row that reaches here goes on below.
constexpr qreal RowEnd = 1160;
constexpr int FontSize = 9;

} // namespace

QString pluginImage(const char* name)
{
    return pluginResource("Resources/images/") + QLatin1String(name) + QLatin1String(".png");
}

Gallery::Gallery(QWidget* parent)
    : QGraphicsView(parent)
{
    setWindowTitle(tr("Scene Gallery"));
    setScene(&m_scene);
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setRenderHint(QPainter::SmoothPixmapTransform);
    m_scene.setBackgroundBrush(CanvasColor);
    m_next = QPointF(Margin, Margin);
    m_rowBottom = Margin - RowGap;

    showPanels();
    showButtons();
    showTextButtons();
    showMenuButtons();
    showRibbonButtons();
    showButtonLists();
    showTexts();
    showLabels();
    showModeButtons();
    showGlows();
    showFilmStrips();
    showScrollBars();
    showTooltips();
    showTrashCans();
    showClickableLabels();
    m_scene.setSceneRect(0, 0, RowEnd + Margin, m_rowBottom + Margin);
}

QPixmap Gallery::picture()
{
    QPixmap picture(m_scene.sceneRect().size().toSize());
    QPainter painter(&picture);
    m_scene.render(&painter);
    return picture;
}

void Gallery::startRow(const QString& title)
{
    m_next = QPointF(Margin, m_rowBottom + RowGap);
    addText(title, m_next, TitleColor);
    m_next.ry() += TitleHeight;
    m_rowBottom = m_next.y();
}

void Gallery::add(QGraphicsItem* item, const QString& caption)
{
    if (!item->scene())
        m_scene.addItem(item);
    const QRectF bounds = item->boundingRect() | item->childrenBoundingRect();
    if (m_next.x() + bounds.width() > RowEnd)
        m_next = QPointF(Margin, m_rowBottom + RowGap);
    item->setPos(m_next - bounds.topLeft());
    place(caption, bounds);
}

void Gallery::add(QWidget* widget, const QString& caption)
{
    widget->setAttribute(Qt::WA_NoSystemBackground);
    widget->adjustSize();
    add(m_scene.addWidget(widget), caption);
}

void Gallery::addText(const QString& text, const QPointF& place, const QColor& color)
{
    QGraphicsSimpleTextItem* item = m_scene.addSimpleText(text, QFont(QStringLiteral("Arial"), FontSize));
    item->setBrush(color);
    item->setPos(place);
}

void Gallery::place(const QString& caption, const QRectF& bounds)
{
    QGraphicsSimpleTextItem* text = m_scene.addSimpleText(caption, QFont(QStringLiteral("Arial"), FontSize));
    text->setBrush(CaptionColor);
    text->setPos(m_next.x(), m_next.y() + bounds.height() + CaptionGap);
    m_rowBottom = qMax(m_rowBottom, text->sceneBoundingRect().bottom());
    m_next.rx() += qMax(bounds.width(), text->boundingRect().width()) + CellGap;
}
