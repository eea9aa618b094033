#include "cClickableLabel.h"

#include <QMouseEvent>
#include <QPointer>

cClickableLabel::cClickableLabel(const QPixmap& pixmap, QWidget* parent)
    : QLabel(parent)
    , m_normalPixmap(pixmap)
    , m_hoverPixmap(pixmap)
    , m_pressedPixmap(pixmap)
{
    setPixmap(pixmap);
    setCursor(Qt::PointingHandCursor);
}

void cClickableLabel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setPixmap(m_pressedPixmap);
    event->ignore();
}

void cClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    setPixmap(m_hoverPixmap);
    // The menu that the first signal opens may delete the row on which this label stands.
    const QPointer<cClickableLabel> self(this);
    Q_EMIT clicked(event->globalPos());
    if (self)
        Q_EMIT clicked();
}

void cClickableLabel::enterEvent(QEvent*)
{
    setPixmap(m_hoverPixmap);
    Q_EMIT hoverIn();
}

void cClickableLabel::leaveEvent(QEvent*)
{
    setPixmap(m_normalPixmap);
    Q_EMIT hoverOut();
}
