#pragma once

#include <QListWidget>
#include <QPointer>
#include <QVector>

class cRowWidget;

/// A QListWidget whose rows are widgets of one size, one below the other, in any number.
///
/// QListWidget itself computes the place of every row and moves every row's widget whenever one comes, goes
/// or is scrolled. Here the place of a row follows from its number, and only the widgets that are in sight
/// are shown and placed, so that the time for a new row does not depend on how many there are. Rows stand
/// where QListWidget would put them.
///
/// While the list is scrolled down, rows that come or go above keep those in sight where they are.
class cRowList : public QListWidget
{
    Q_DISABLE_COPY(cRowList)

public:
    explicit cRowList(QWidget* parent = nullptr);
    ~cRowList() override;

    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& point) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

protected:
    /// Adds an item with its row. Both are the list's from now on; the item's size hint is that of all rows.
    /// A hidden row leaves no gap.
    void addRow(QListWidgetItem* item, cRowWidget* widget, bool hidden);
    /// Hides all rows but those whose numbers are given, in order.
    void showOnlyRows(const QList<int>& rows);
    void showAllRows();

    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;
    void updateGeometries() override;
    void updateEditorGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    int verticalOffset() const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;

private:
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
    void showWidgetsInSight();

    /// The rows at the places, in order.
    QVector<int> m_rows;
    int m_rowHeight = 0;
    /// How far to scroll at the next layout.
    int m_scrollBy = 0;
    bool m_addingRow = false;
    /// Those that are shown.
    QVector<QPointer<cRowWidget>> m_inSight;
};
