#include "RowLists.h"

#include "cCustomStyle.h"
#include "cListWidgetItem.h"
#include "CommandConstants.h"
#include "cRowList.h"
#include "cSortGuard.h"

#include <cScaledFont.h>
#include <SceneConstants.h>

#include <QAbstractItemModel>
#include <QPainter>
#include <QRegExp>
#include <QVariant>

using namespace CommandConstants;

namespace {

QRegExp searchExpression(const QString& text)
{
    // The text is not escaped: people may use the expression's syntax.
    return QRegExp(QStringLiteral(".*\\b%1.*").arg(text), Qt::CaseInsensitive);
}

} // namespace

void RowLists::setUp(QListWidget& list)
{
    list.setSortingEnabled(true);
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    list.setUniformItemSizes(true);
    list.setProperty("uiType", QString(ListUiType));
    auto* style = new cCustomStyle;
    style->setParent(&list);
    list.setStyle(style);
    new cSortGuard(list);
}

QWidget* RowLists::widgetAt(const QListWidget& list, int row)
{
    return list.indexWidget(list.model()->index(row, 0));
}

QWidget* RowLists::widgetAt(const cRowList& list, int row)
{
    return list.rowWidget(row);
}

void RowLists::setSortMode(QListWidget& list, int sortMode)
{
    for (int i = 0; i < list.count(); ++i) {
        if (auto* item = dynamic_cast<cListWidgetItem*>(list.item(i)))
            item->setSortMode(sortMode);
    }
}

bool RowLists::matchesSearch(const QString& name, const QString& text)
{
    return !text.isEmpty() && searchExpression(text).indexIn(name) >= 0;
}

QList<int> RowLists::findHits(const QListWidget& list, const QString& text)
{
    const QRegExp expression = searchExpression(text);
    QList<int> hits;
    for (int i = 0; i < list.count(); ++i) {
        if (expression.exactMatch(list.item(i)->text()))
            hits.append(i);
    }
    return hits;
}

void RowLists::setNoResultsLook(QPainter& painter)
{
    painter.setPen(Qt::white);
    painter.setFont(cScaledFont(SceneConstants::TextFamily, NoResultsFontSize));
}
