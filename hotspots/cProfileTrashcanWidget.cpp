#include "cProfileTrashcanWidget.h"

#include <QDragEnterEvent>
#include <QDropEvent>

namespace {

/// The widget that a drag comes from; null if that is not in this process.
const QWidget* sourceWidget(const QDropEvent* event)
{
    return qobject_cast<const QWidget*>(event->source());
}

} // namespace

cProfileTrashcanWidget::cProfileTrashcanWidget(QWidget* parent)
    : QLabel(parent)
{
    setAcceptDrops(true);
}

void cProfileTrashcanWidget::setNormalPixmap(const QPixmap& pixmap)
{
    m_normalPixmap = pixmap;
}

void cProfileTrashcanWidget::setHoverPixmap(const QPixmap& pixmap)
{
    m_hoverPixmap = pixmap;
    setPixmap(m_hoverPixmap);
}

void cProfileTrashcanWidget::dragEnterEvent(QDragEnterEvent* event)
{
    if (canAcceptDrop(sourceWidget(event), this, event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void cProfileTrashcanWidget::dropEvent(QDropEvent* event)
{
    deliverDrop(sourceWidget(event), this, event->mimeData());
    event->acceptProposedAction();
}

void cProfileTrashcanWidget::enterEvent(QEvent*)
{
    setPixmap(m_hoverPixmap);
}

void cProfileTrashcanWidget::leaveEvent(QEvent*)
{
    setPixmap(m_normalPixmap);
}
