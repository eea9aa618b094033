#include "cListWidgetItem.h"

#include "cSortGuard.h"

namespace {

/// The namespace of an item that belongs behind all others.
const QLatin1String EmptyWell("EmptyWell");

int storedRole(int role)
{
    return role == Qt::UserRole + 1 ? cListWidgetItem::NamespaceRole : role;
}

QString namespaceOf(const QListWidgetItem& item)
{
    return item.data(cListWidgetItem::NamespaceRole).toString();
}

} // namespace

cListWidgetItem::cListWidgetItem(const QString& text, int sortMode)
    : QListWidgetItem(text)
    , m_sortMode(sortMode)
{ }

void cListWidgetItem::setNamespace(const QString& id)
{
    setData(NamespaceRole, id);
}

QVariant cListWidgetItem::data(int role) const
{
    return QListWidgetItem::data(storedRole(role));
}

void cListWidgetItem::setData(int role, const QVariant& value)
{
    QListWidgetItem::setData(storedRole(role), value);
}

bool cListWidgetItem::operator<(const QListWidgetItem& other) const
{
    switch (m_sortMode) {
    case SortByName:
        return isLessByName(other);
    case SortByType:
        return isLessByType(other);
    default:
        return false;
    }
}

void cListWidgetItem::onNameChanged(const QString& name)
{
    setText(name);
}

bool cListWidgetItem::isLessByName(const QListWidgetItem& other) const
{
    if (namespaceOf(*this) == EmptyWell)
        return false;
    if (namespaceOf(other) == EmptyWell)
        return true;
    return QString::localeAwareCompare(text(), other.text()) < 0;
}

bool cListWidgetItem::isLessByType(const QListWidgetItem& other) const
{
    int order = namespaceOf(*this).compare(namespaceOf(other));
    if (order == 0)
        order = QString::localeAwareCompare(text(), other.text());
    if (order == 0 && cSortGuard::isSorting(listWidget()))
        return false;
    return order >= 0;
}
