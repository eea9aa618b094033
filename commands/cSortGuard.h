#pragma once

#include <QObject>

class QListWidget;

/// Knows whether a list sorts all of its items at this moment. A child of the list.
///
/// Sorting takes an order in which no item is less than itself, or it runs over the ends of the list. The
/// order by type of cListWidgetItem is no such order for equal items, and is one while a guarded list sorts.
class cSortGuard : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(cSortGuard)

public:
    explicit cSortGuard(QListWidget& list);
    ~cSortGuard() override;

    /// False for a null list.
    static bool isSorting(const QListWidget* list);

private Q_SLOTS:
    void onAboutToSort();
    void onSorted();

private:
    static const QListWidget* s_sorted;

    const QListWidget* const m_list;
};
