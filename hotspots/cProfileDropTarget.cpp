#include "cProfileDropTarget.h"

#include <DragFormats.h>

#include <QMimeData>
#include <QWidget>

#include <algorithm>
#include <array>

void cProfileDropTarget::profilesDropped(const QStringList&)
{ }

void cProfileDropTarget::macrosDropped(const QStringList&)
{ }

void cProfileDropTarget::assignmentsDropped(const QStringList&)
{ }

bool cProfileDropTarget::canAcceptDrop(const QWidget* source, const QObject* target, const QMimeData* data)
{
    if (source == target || !data)
        return false;
    const QStringList present = data->formats();
    const std::array known {DragFormats::Profiles, DragFormats::Macros, DragFormats::Assignment};
    return std::any_of(
        known.begin(), known.end(), [&](QLatin1String format) { return present.contains(format); });
}

void cProfileDropTarget::deliverDrop(const QWidget*, const QObject*, const QMimeData* data)
{
    if (!data)
        return;
    if (data->hasFormat(DragFormats::Profiles))
        profilesDropped(DragFormats::profileIds(*data));
    else if (data->hasFormat(DragFormats::Macros))
        macrosDropped(DragFormats::macroIds(*data));
    else if (data->hasFormat(DragFormats::Assignment))
        assignmentsDropped({DragFormats::assignment(*data).contextID});
}
