// What the list shows: the search, the device filter and the empty wells.
#include "cProfileList.h"

#include "cProfileItem.h"
#include "ProfileBarConstants.h"

#include <PluginContext.h>
#include <RowLists.h>

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

using namespace ProfileBarConstants;

namespace {

QRect wellArea(const QRect& first, int well)
{
    return first.translated(well * WellPitch, 0);
}

} // namespace

void cProfileList::setDeviceFilter(const QString& deviceId)
{
    m_deviceFilter = deviceId;
    for (int row = 0; row < count(); ++row) {
        if (const cProfileItem* tile = tileAt(row))
            item(row)->setHidden(isHiddenByDevice(tile->deviceId()));
    }
}

bool cProfileList::isHiddenByDevice(const QString& deviceId) const
{
    return !m_deviceFilter.isEmpty() && deviceId == m_deviceFilter;
}

void cProfileList::onSearch(const QString& name)
{
    m_searchText = name;
    m_searchActive = !name.isEmpty();
    m_searchHits.clear();
    if (m_searchActive) {
        const QList<int> hits = RowLists::findHits(*this, name);
        for (const int row : hits)
            m_searchHits.append(item(row));
    }
    for (int row = 0; row < count(); ++row) {
        const cProfileItem* tile = tileAt(row);
        const bool isFound = !m_searchActive || m_searchHits.contains(item(row));
        item(row)->setHidden(!isFound || (tile && isHiddenByDevice(tile->deviceId())));
    }
    if (!m_searchHits.isEmpty())
        scrollToItem(m_searchHits.first(), QAbstractItemView::EnsureVisible);
    refreshMouseTracking();
    viewport()->update();
}

void cProfileList::repeatSearch()
{
    if (m_searchActive)
        onSearch(m_searchText);
}

bool cProfileList::showsWells() const
{
    return !m_searchActive && count() < WellCount;
}

void cProfileList::setWellsClickable(bool clickable)
{
    m_wellsClickable = clickable;
    refreshMouseTracking();
}

void cProfileList::refreshMouseTracking()
{
    const bool isTracking = showsWells() && m_wellsClickable;
    setMouseTracking(isTracking);
    if (isTracking)
        return;
    // No move will come any more that could take them back.
    setCursor(Qt::ArrowCursor);
    setToolTip(QString());
}

void cProfileList::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    if (m_searchActive && m_searchHits.isEmpty()) {
        RowLists::setNoResultsLook(painter);
        painter.drawText(NoResultsPos, tr("No Results"));
        return;
    }
    if (!showsWells())
        return;
    // The tiles cover the wells of their own places.
    for (int well = 0; well < WellCount; ++well)
        painter.drawPixmap(FirstWellPos + QPoint(well * WellPitch, 0), m_wellPixmap);
}

void cProfileList::mouseMoveEvent(QMouseEvent* event)
{
    QListWidget::mouseMoveEvent(event);
    if (!showsWells()) {
        setToolTip(QString());
        return;
    }
    for (int well = count(); well < WellCount; ++well) {
        if (wellArea(WellHoverArea, well).contains(event->pos())) {
            setToolTip(tr("Create new profile"));
            setCursor(Qt::PointingHandCursor);
            return;
        }
    }
    setToolTip(QString());
    setCursor(Qt::ArrowCursor);
}

void cProfileList::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_wellsClickable) {
        // By the size of the picture, and also during a search.
        const QRect first(FirstWellPos, m_wellPixmap.size());
        for (int well = count(); well < WellCount; ++well) {
            if (wellArea(first, well).contains(event->pos())) {
                pluginLog().info() << "User clicked on empty profile well" << well;
                Q_EMIT newProfile();
                return;
            }
        }
    }
    QListWidget::mousePressEvent(event);
}

void cProfileList::updateGeometries()
{
    // Six tiles fit but for what stands empty beside the last; nobody wants to scroll for that.
    const QSize contents = contentsSize();
    const int overhang = contents.width() - viewport()->width();
    if (overhang > 0 && overhang <= EmptyMargin)
        resizeContents(viewport()->width(), contents.height());
    QListWidget::updateGeometries();
    // By whole tiles; the base class leaves out a part of the spacing.
    horizontalScrollBar()->setSingleStep(WellPitch);
}

void cProfileList::enterEvent(QEvent* event)
{
    QListWidget::enterEvent(event);
    Q_EMIT hoverIn();
}

void cProfileList::leaveEvent(QEvent* event)
{
    QListWidget::leaveEvent(event);
    Q_EMIT hoverOut();
}
