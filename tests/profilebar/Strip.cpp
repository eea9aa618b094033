#include "Strip.h"

#include <cProfileItem.h>
#include <FixedIds.h>
#include <ProfileBarConstants.h>

#include <QLabel>
#include <QtTest>

using namespace ProfileBarConstants;

Strip::Strip(const QStringList& names, const QString& last)
    : host(names)
{
    if (!last.isEmpty())
        host.settings["profiler/lastProfile"] = ProfileHost::idOf(last);
    list.setFixedSize(404, 103);
    list.setFrameShape(QFrame::NoFrame);
    list.populate();
    list.show();
    host.clear();
}

cProfileItem* Strip::tile(const QString& name) const
{
    for (int row = 0; row < list.count(); ++row) {
        if (list.profileId(row) == ProfileHost::idOf(name))
            return qobject_cast<cProfileItem*>(list.itemWidget(list.item(row)));
    }
    return nullptr;
}

QStringList Strip::names() const
{
    QStringList found;
    for (int row = 0; row < list.count(); ++row)
        found.append(list.profileName(row));
    return found;
}

QStringList Strip::shownNames() const
{
    QStringList found;
    for (int row = 0; row < list.count(); ++row) {
        if (!list.item(row)->isHidden())
            found.append(list.profileName(row));
    }
    return found;
}

QStringList Strip::current() const
{
    QStringList found;
    for (int row = 0; row < list.count(); ++row) {
        const QWidget* const tile = list.itemWidget(list.item(row));
        const auto* const marker = tile->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        if (marker->isVisibleTo(tile))
            found.append(list.profileName(row));
    }
    return found;
}

QStringList Strip::selected() const
{
    QStringList names;
    for (const QString& id : list.selectedProfileIds())
        names.append(id == FixedIds::DefaultProfile ? QString("Default") : id.mid(1, id.size() - 2));
    names.sort();
    return names;
}

void Strip::click(const QString& name, Qt::KeyboardModifiers modifiers)
{
    for (int row = 0; row < list.count(); ++row) {
        if (list.profileId(row) == ProfileHost::idOf(name)) {
            QTest::mouseClick(
                list.viewport(), Qt::LeftButton, modifiers, list.visualItemRect(list.item(row)).center());
        }
    }
}

void Strip::select(const QStringList& names)
{
    for (const QString& name : names)
        click(name, name == names.first() ? Qt::NoModifier : Qt::ControlModifier);
}

QPoint Strip::wellCenter(int well)
{
    return WellHoverArea.translated(well * WellPitch, 0).center();
}
