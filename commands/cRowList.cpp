#include "cRowList.h"

#include "cRowWidget.h"

#include <QAbstractItemModel>
#include <QItemSelection>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace {

/// A list up to this long has all its widgets set at once.
constexpr int RowsSetAtOnce = 256;
/// How many waiting widgets are set in one turn of the event loop.
constexpr int RowsSetInATurn = 16;
/// After so many milliseconds without a new row a stream of rows has ended.
constexpr int StreamPause = 50;

} // namespace

cRowList::cRowList(QWidget* parent)
    : QListWidget(parent)
    , m_waitingRoom(new QWidget(this))
{
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    m_waitingRoom->hide();
}

cRowList::~cRowList() = default;

QWidget* cRowList::rowWidget(int row) const
{
    if (QWidget* widget = indexWidget(model()->index(row, 0)))
        return widget;
    return m_waiting.isEmpty() ? nullptr : m_waiting.value(item(row));
}

QWidget* cRowList::rowWidget(const QListWidgetItem* item) const
{
    auto* key = const_cast<QListWidgetItem*>(item);
    if (QWidget* widget = itemWidget(key))
        return widget;
    return m_waiting.value(key);
}

void cRowList::addRow(QListWidgetItem* item, cRowWidget* widget, bool hidden)
{
    // What others have changed meanwhile; the short way below does not look for it.
    executeDelayedItemsLayout();
    const QScopedValueRollback<bool> known(m_placesAreKnown, true);
    m_rowHeight = item->sizeHint().height();
    widget->setInSight(false);
    addItem(item);
    m_waiting.insert(item, widget);
    const bool isStream = count() > RowsSetAtOnce && m_streamTimer.isActive();
    if (isStream)
        widget->setParent(m_waitingRoom);
    else
        setWaitingWidget(item);
    m_streamTimer.start(StreamPause, this);
    if (hidden) {
        const int row = this->row(item);
        m_rows.remove(placeOf(row));
        m_scrollBy = 0;
        setRowHidden(row, true);
    }
    executeDelayedItemsLayout();
}

void cRowList::showOnlyRows(const QList<int>& rows)
{
    auto shown = rows.cbegin();
    for (int i = 0; i < count(); ++i) {
        const bool hide = shown == rows.cend() || *shown != i;
        if (!hide)
            ++shown;
        if (isRowHidden(i) != hide)
            setRowHidden(i, hide);
    }
}

void cRowList::showAllRows()
{
    for (int i = 0; i < count(); ++i) {
        if (isRowHidden(i))
            setRowHidden(i, false);
    }
}

QRect cRowList::visualRect(const QModelIndex& index) const
{
    const_cast<cRowList*>(this)->executeDelayedItemsLayout();
    if (!index.isValid() || index.model() != model() || isIndexHidden(index))
        return QRect();
    return contentRect(placeOf(index.row())).translated(0, -verticalOffset());
}

QModelIndex cRowList::indexAt(const QPoint& point) const
{
    const_cast<cRowList*>(this)->executeDelayedItemsLayout();
    const QPoint place = point + QPoint(0, verticalOffset());
    const Places hit = placesBetween(place.y(), place.y());
    if (hit.last < hit.first || !contentRect(hit.first).contains(place))
        return QModelIndex();
    return model()->index(m_rows[hit.first], 0);
}

void cRowList::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const QRect rect = visualRect(index);
    if (!rect.isValid())
        return;
    const QRect area = viewport()->rect();
    const bool above = hint == EnsureVisible && rect.top() < area.top();
    const bool below = hint == EnsureVisible && rect.bottom() > area.bottom();
    const QRect padded = rect.adjusted(-spacing(), -spacing(), spacing(), spacing());
    int distance = 0;
    if (hint == PositionAtTop || above)
        distance = padded.top();
    else if (hint == PositionAtBottom || below)
        distance = qMin(padded.top(), padded.bottom() - area.height() + 1);
    else if (hint == PositionAtCenter)
        distance = padded.top() - (area.height() - padded.height()) / 2;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + distance);
}

void cRowList::doItemsLayout()
{
    if (m_placesAreKnown) {
        updateGeometries();
        return;
    }
    collectPlaces();
    // Not QListView's, which would place all rows.
    QAbstractItemView::doItemsLayout(); // NOLINT(bugprone-parent-virtual-call)
}

void cRowList::reset()
{
    m_streamTimer.stop();
    for (const QPointer<cRowWidget>& widget : qAsConst(m_waiting))
        delete widget;
    m_waiting.clear();
    QListWidget::reset();
}

void cRowList::rowsInserted(const QModelIndex& parent, int start, int end)
{
    const int added = end - start + 1;
    const int place = placeOf(start);
    for (int i = place; i < m_rows.size(); ++i)
        m_rows[i] += added;
    m_rows.insert(place, added, 0);
    for (int i = 0; i < added; ++i)
        m_rows[place + i] = start + i;
    // At the top of the list the new row is let in; below it, those in sight stay.
    const int offset = verticalOffset() + m_scrollBy;
    if (offset > 0 && contentRect(place).top() < offset)
        m_scrollBy += added * step();
    QListWidget::rowsInserted(parent, start, end);
}

void cRowList::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    QListWidget::rowsAboutToBeRemoved(parent, start, end);
    for (int i = start; i <= end && !m_waiting.isEmpty(); ++i)
        delete m_waiting.take(item(i));
    const int first = placeOf(start);
    const int behind = placeOf(end + 1);
    for (int i = behind - 1; i >= first; --i) {
        if (contentRect(i).bottom() < verticalOffset() + m_scrollBy)
            m_scrollBy -= step();
    }
    m_rows.remove(first, behind - first);
    for (int i = first; i < m_rows.size(); ++i)
        m_rows[i] -= end - start + 1;
}

void cRowList::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_streamTimer.timerId())
        setSomeWidgets();
    else
        QListWidget::timerEvent(event);
}

void cRowList::updateGeometries()
{
    // Not QListView's, which knows nothing of the places here.
    const int height = m_rows.size() * step();
    const int scrollBy = std::exchange(m_scrollBy, 0);
    QScrollBar* const bar = verticalScrollBar();
    bar->setSingleStep(step());
    bar->setPageStep(viewport()->height());
    bar->setRange(0, qMax(0, height - viewport()->height()));
    if (scrollBy != 0)
        bar->setValue(bar->value() + scrollBy);
    horizontalScrollBar()->setRange(0, 0);
    QAbstractItemView::updateGeometries(); // NOLINT(bugprone-parent-virtual-call)
}

void cRowList::updateEditorGeometries()
{
    showWidgetsInSight();
}

void cRowList::scrollContentsBy(int, int)
{
    showWidgetsInSight();
}

int cRowList::verticalOffset() const
{
    return verticalScrollBar()->value();
}

QModelIndex cRowList::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    executeDelayedItemsLayout();
    if (m_rows.isEmpty())
        return QModelIndex();
    const QModelIndex current = currentIndex();
    int place = 0;
    if (current.isValid()) {
        const int here = placeOf(current.row());
        // A current row that is hidden stands between its neighbours.
        const int below = isIndexHidden(current) ? here : here + 1;
        const int page = qMax(1, (viewport()->height() - m_rowHeight) / step());
        switch (action) {
        case MoveUp:
        case MovePrevious:
            place = here - 1;
            break;
        case MoveDown:
        case MoveNext:
            place = below;
            break;
        case MovePageUp:
            place = here - page;
            break;
        case MovePageDown:
            place = below - 1 + page;
            break;
        case MoveHome:
            place = 0;
            break;
        case MoveEnd:
            place = m_rows.size() - 1;
            break;
        case MoveLeft:
        case MoveRight:
            return current;
        }
    } else if (action == MoveEnd) {
        place = m_rows.size() - 1;
    }
    return model()->index(m_rows[qBound(0, place, m_rows.size() - 1)], 0);
}

void cRowList::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command)
{
    executeDelayedItemsLayout();
    const QRect area = rect.normalized().translated(0, verticalOffset());
    const Places touched = placesBetween(area.top(), area.bottom());
    QItemSelection selection;
    for (int i = touched.first; i <= touched.last; ++i) {
        const int first = i;
        while (i < touched.last && m_rows[i + 1] == m_rows[i] + 1)
            ++i;
        selection.select(model()->index(m_rows[first], 0), model()->index(m_rows[i], 0));
    }
    selectionModel()->select(selection, command);
}

QRegion cRowList::visualRegionForSelection(const QItemSelection& selection) const
{
    return selection.isEmpty() ? QRegion() : QRegion(viewport()->rect());
}

int cRowList::placeOf(int row) const
{
    return int(std::lower_bound(m_rows.cbegin(), m_rows.cend(), row) - m_rows.cbegin());
}

int cRowList::step() const
{
    // Each row has the spacing on all of its sides.
    return m_rowHeight + 2 * spacing();
}

QRect cRowList::contentRect(int place) const
{
    return QRect(spacing(), spacing() + place * step(), viewport()->width() - 2 * spacing(), m_rowHeight);
}

cRowList::Places cRowList::placesBetween(int top, int bottom) const
{
    if (m_rows.isEmpty() || step() <= 0)
        return {};
    // The spacing around a row belongs to no row.
    Places places;
    places.first = qMax(0, top) / step();
    if (contentRect(places.first).bottom() < top)
        ++places.first;
    places.last = bottom < 0 ? -1 : qMin(bottom / step(), m_rows.size() - 1);
    if (places.last >= 0 && contentRect(places.last).top() > bottom)
        --places.last;
    return places;
}

void cRowList::collectPlaces()
{
    m_rows.clear();
    m_rows.reserve(count());
    for (int i = 0; i < count(); ++i) {
        if (!isRowHidden(i))
            m_rows.append(i);
    }
    m_rowHeight = count() > 0 ? item(0)->sizeHint().height() : 0;
}

cRowList::Places cRowList::placesInSight() const
{
    return placesBetween(verticalOffset(), verticalOffset() + viewport()->height() - 1);
}

void cRowList::showWidgetsInSight()
{
    if (!m_waiting.isEmpty())
        setWidgetsInSight();
    const int offset = verticalOffset();
    const Places places = placesInSight();
    QVector<QPointer<cRowWidget>> inSight;
    for (int i = places.first; i <= places.last; ++i) {
        auto* widget = dynamic_cast<cRowWidget*>(rowWidget(m_rows[i]));
        if (!widget)
            continue;
        widget->setInSight(true);
        widget->setGeometry(contentRect(i).translated(0, -offset));
        widget->show();
        inSight.append(widget);
    }
    for (const QPointer<cRowWidget>& widget : qAsConst(m_inSight)) {
        if (!widget || inSight.contains(widget))
            continue;
        widget->setInSight(false);
        widget->hide();
    }
    m_inSight = inSight;
}

void cRowList::setWidgetsInSight()
{
    QVector<QListWidgetItem*> items;
    const Places places = placesInSight();
    for (int i = places.first; i <= places.last; ++i) {
        QListWidgetItem* const item = this->item(m_rows[i]);
        if (item && m_waiting.contains(item))
            items.append(item);
    }
    if (items.isEmpty())
        return;
    const QScopedValueRollback<bool> known(m_placesAreKnown, true);
    for (QListWidgetItem* const item : qAsConst(items))
        setWaitingWidget(item);
    executeDelayedItemsLayout();
}

void cRowList::setSomeWidgets()
{
    executeDelayedItemsLayout();
    const QScopedValueRollback<bool> known(m_placesAreKnown, true);
    for (int i = 0; i < RowsSetInATurn && !m_waiting.isEmpty(); ++i)
        setWaitingWidget(m_waiting.cbegin().key());
    executeDelayedItemsLayout();
    if (m_waiting.isEmpty())
        m_streamTimer.stop();
    else
        m_streamTimer.start(0, this);
}

void cRowList::setWaitingWidget(QListWidgetItem* item)
{
    if (QWidget* widget = m_waiting.take(item))
        setItemWidget(item, widget);
}
