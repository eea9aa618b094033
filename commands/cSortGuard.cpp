#include "cSortGuard.h"

#include <QAbstractItemModel>
#include <QListWidget>

const QListWidget* cSortGuard::s_sorted = nullptr;

cSortGuard::cSortGuard(QListWidget& list)
    : QObject(&list)
    , m_list(&list)
{
    connect(list.model(), SIGNAL(layoutAboutToBeChanged()), this, SLOT(onAboutToSort()));
    connect(list.model(), SIGNAL(layoutChanged()), this, SLOT(onSorted()));
}

cSortGuard::~cSortGuard()
{
    onSorted();
}

bool cSortGuard::isSorting(const QListWidget* list)
{
    return list && list == s_sorted;
}

void cSortGuard::onAboutToSort()
{
    s_sorted = m_list;
}

void cSortGuard::onSorted()
{
    if (s_sorted == m_list)
        s_sorted = nullptr;
}
