#pragma once

#include <QBasicTimer>
#include <QHash>
#include <QListWidget>
#include <QPointer>
#include <QVector>

class cRowWidget;

/// A QListWidget whose rows are widgets of one size, one below the other, in any number.
///
/// QListWidget itself computes the place of every row and moves every row's widget whenever one comes, goes
/// or is scrolled. Here the place of a row follows from its number, and only the widgets that are in sight
/// are shown and placed. Rows stand where QListWidget would put them.
///
/// A widget that is set on an item costs time for each row that comes above it later. When very many rows
/// come one after the other, those out of sight therefore get their widget set when they come into sight or
/// when the stream has ended, whichever is first. rowWidget() knows the widget at any time.
///
/// So the time for a new row does not depend on how many there are. While the list is scrolled down, rows
/// that come or go above keep those in sight where they are.
class cRowList : public QListWidget
{
public:
    explicit cRowList(QWidget* parent = nullptr);
    ~cRowList() override;

    /// The widget that was added with the row; null if it has been deleted.
    QWidget* rowWidget(int row) const;
    QWidget* rowWidget(const QListWidgetItem* item) const;

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;
    void reset() override;

protected:
    /// Adds an item with its row. Both are the list's from now on; the item's size hint is that of all rows.
    /// A hidden row leaves no gap.
    void addRow(QListWidgetItem* item, cRowWidget* widget, bool hidden);
    /// Hides all rows but those whose numbers are given, in order.
    void showOnlyRows(const QList<int>& rows);
    void showAllRows();

    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    void timerEvent(QTimerEvent* event) override;
    void updateGeometries() override;
    void updateEditorGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    int verticalOffset() const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;

private:
    Q_DISABLE_COPY(cRowList)

    /// A stretch of places, from the first to the last. Empty if the last is less than the first.
    struct Places
    {
        int first = 0;
        int last = -1;
    };

    /// Places count the rows that are not hidden. The place that a row has, or would have if it were not
    /// hidden.
    int placeOf(int row) const;
    /// From one row's top to the next one's.
    int step() const;
    /// The rectangle of a place, in pixels from the top of the first row's margin.
    QRect contentRect(int place) const;
    /// The places that touch the stretch between two heights of the content.
    Places placesBetween(int top, int bottom) const;
    void collectPlaces();
    Places placesInSight() const;
    void showWidgetsInSight();
    /// Sets the waiting widgets that are in sight.
    void setWidgetsInSight();
    /// Sets a number of waiting widgets.
    void setSomeWidgets();
    void setWaitingWidget(QListWidgetItem* item);

    /// The rows at the places, in order.
    QVector<int> m_rows;
    int m_rowHeight = 0;
    /// How far to scroll at the next layout.
    int m_scrollBy = 0;
    /// What happens now changes no place that is not known already.
    bool m_placesAreKnown = false;
    /// Those that are not set on their items yet.
    QHash<QListWidgetItem*, QPointer<cRowWidget>> m_waiting;
    /// Their parent, a hidden child of the list: a widget that is painted looks through all of its children.
    QWidget* const m_waitingRoom;
    /// Runs while rows come one after the other, and while widgets wait.
    QBasicTimer m_streamTimer;
    /// Those that are shown.
    QVector<QPointer<cRowWidget>> m_inSight;
};
