#pragma once

#include <QList>
#include <QListWidget>
#include <QString>

class cRowList;
class QPainter;

/// What the command list and the profile list have in common. The rows of both are child widgets set with
/// setItemWidget, their items are of the class cListWidgetItem.
///
/// A row is given by its number, since finding the number of an item takes a search.
namespace RowLists {

/// The settings in which both lists agree. Call it in the list's constructor.
void setUp(QListWidget& list);

/// The row's widget; null if the row has none.
QWidget* widgetAt(const QListWidget& list, int row);
QWidget* widgetAt(const cRowList& list, int row);

template<class Row, class List>
Row* rowAt(const List& list, int row)
{
    return qobject_cast<Row*>(widgetAt(list, row));
}

/// The number of the first row whose widget has that id, -1 if there is none. `idOf` is the member that tells
/// it.
template<class Row, class List>
int findRow(const List& list, QString (Row::*idOf)() const, const QString& id)
{
    for (int i = 0; i < list.count(); ++i) {
        const Row* row = rowAt<Row>(list, i);
        if (row && (row->*idOf)() == id)
            return i;
    }
    return -1;
}

/// Deletes the row's widget and then its item.
template<class List>
void deleteRow(List& list, int row)
{
    delete widgetAt(list, row);
    list.removeItemWidget(list.item(row));
    delete list.takeItem(row);
}

/// Deletes the widgets of all rows; the items stay.
template<class List>
void deleteRowWidgets(List& list)
{
    for (int i = 0; i < list.count(); ++i) {
        delete widgetAt(list, i);
        list.removeItemWidget(list.item(i));
    }
}

/// Stores the sort mode on all items, see cListWidgetItem. The list stays as it is until its next
/// sortItems().
void setSortMode(QListWidget& list, int sortMode);

/// True if the text, a regular expression as people type it, is found at the beginning of a word of the name,
/// without regard to case. False for an empty text.
bool matchesSearch(const QString& name, const QString& text);

/// The numbers of the rows whose whole text the search's pattern matches, in order. It differs from
/// matchesSearch() for expressions that look at both ends of the name. None for text that is not a valid
/// expression.
QList<int> findHits(const QListWidget& list, const QString& text);

/// Prepares for "No Results": a white pen and the font.
void setNoResultsLook(QPainter& painter);

} // namespace RowLists
