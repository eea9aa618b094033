#include "ProfileTable.h"

#include "AppConstants.h"

#include <cProfileMgrService.h>

#include <QHeaderView>

using namespace AppConstants;

ProfileTable::ProfileTable(cProfileMgrService& profiles, QWidget* parent)
    : QTreeWidget(parent)
    , m_profiles(profiles)
{
    setHeaderLabels({tr("Profile"), tr("Commands"), tr("Keys"), tr("On This Computer")});
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    setTextElideMode(Qt::ElideMiddle);
    header()->setStretchLastSection(true);
    header()->setSectionsMovable(false);
    header()->resizeSection(Name, TableNameWidth);
    header()->resizeSection(Commands, TableNumberWidth);
    header()->resizeSection(Keys, TableNumberWidth);
    header()->resizeSection(Status, TableStatusWidth);
    connect(this, SIGNAL(itemChanged(QTreeWidgetItem*, int)), this, SIGNAL(checkedChanged()));
}

void ProfileTable::addColumn(const QString& title)
{
    QStringList titles;
    for (int i = 0; i < columnCount(); ++i)
        titles.append(headerItem()->text(i));
    setHeaderLabels(titles + QStringList(title));
}

void ProfileTable::showEvent(QShowEvent* event)
{
    // Rows that span all columns have been laid out as they were added, before the style was known.
    scheduleDelayedItemsLayout();
    QTreeWidget::showEvent(event);
}

QTreeWidgetItem* ProfileTable::addRow(const QStringList& texts, const QString& lastText)
{
    auto* const item = new QTreeWidgetItem(this, texts);
    if (columnCount() > Last)
        item->setText(Last, lastText);
    for (int i = 0; i < columnCount(); ++i)
        item->setToolTip(i, item->text(i).toHtmlEscaped());
    if (!currentItem())
        setCurrentItem(item);
    return item;
}

void ProfileTable::addProfile(
    const Profile& profile, const QVariant& key, bool isChecked, const QString& lastText)
{
    QTreeWidgetItem* const item = addRow({profile.name().simplified(), QString::number(profile.macros.size()),
                                             QString::number(profile.assignments.size()), statusOf(profile)},
        lastText);
    item->setData(Name, Qt::UserRole, key);
    item->setCheckState(Name, isChecked ? Qt::Checked : Qt::Unchecked);
}

void ProfileTable::addProblem(const QString& name, const QString& problem)
{
    QTreeWidgetItem* const item = addRow({tr("%1 can't be read: %2").arg(name, problem)}, QString());
    // The reason needs the whole width.
    item->setFirstColumnSpanned(true);
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
}

QString ProfileTable::statusOf(const Profile& profile) const
{
    using Presence = cProfileMgrService::Presence;
    switch (m_profiles.presenceOf(profile)) {
    case Presence::New:
        return tr("Not there");
    case Presence::Same:
        return tr("The same");
    case Presence::Different:
        return tr("Differs");
    case Presence::NameTaken:
        return tr("Another of that name");
    }
    return QString();
}

QVariantList ProfileTable::checkedKeys() const
{
    QVariantList keys;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = topLevelItem(i);
        if (item->data(Name, Qt::CheckStateRole).isValid() && item->checkState(Name) == Qt::Checked)
            keys.append(item->data(Name, Qt::UserRole));
    }
    return keys;
}

QVariantList ProfileTable::keys() const
{
    QVariantList keys;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = topLevelItem(i);
        if (item->data(Name, Qt::CheckStateRole).isValid())
            keys.append(item->data(Name, Qt::UserRole));
    }
    return keys;
}
