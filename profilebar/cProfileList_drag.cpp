#include "cProfileList.h"

#include "cProfileItem.h"

#include <cProfileMgr.h>
#include <DragFormats.h>
#include <DragRun.h>

#include <QContextMenuEvent>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>

bool cProfileList::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto* const enter = static_cast<QDragEnterEvent*>(event);
        if (!enter->mimeData()->hasFormat(DragFormats::Profiles))
            break;
        enterDrag(*enter);
        return true;
    }
    case QEvent::Drop: {
        const QMimeData* dropped = static_cast<QDropEvent*>(event)->mimeData();
        if (!dropped->hasFormat(DragFormats::Profiles))
            break;
        copyProfiles(*dropped);
        return true;
    }
    case QEvent::ContextMenu:
        profileContextMenuIconClicked(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    default:
        break;
    }
    // Not the view's: tiles are no editors.
    return QObject::eventFilter(watched, event); // NOLINT(bugprone-parent-virtual-call)
}

void cProfileList::onProfileDragStart()
{
    const QList<QListWidgetItem*> selected = selectedItems();
    if (selected.isEmpty())
        return;
    QStringList ids;
    QPixmap icon;
    for (const QListWidgetItem* item : selected) {
        const cProfileItem* tile = tileOf(item);
        if (!tile)
            continue;
        ids.append(tile->id());
        if (icon.isNull())
            icon = tile->icon();
    }
    // The host may take the list down while the drag runs.
    const QPointer<cProfileList> self(this);
    Q_EMIT startDrag();
    if (!self)
        return;
    auto* const drag = new QDrag(this);
    // The drag owns the data.
    drag->setMimeData(DragFormats::makeProfiles(ids).release());
    drag->setPixmap(icon);
    DragRun::exec(drag, this, Qt::CopyAction);
    if (!self)
        return;
    Q_EMIT endDrag();
    if (self)
        setCursor(Qt::ArrowCursor);
}

void cProfileList::enterDrag(QDragEnterEvent& event) const
{
    if (event.source() != this && event.mimeData()->hasFormat(DragFormats::Profiles))
        event.acceptProposedAction();
    else
        event.ignore();
}

void cProfileList::dragEnterEvent(QDragEnterEvent* event)
{
    enterDrag(*event);
}

void cProfileList::dropEvent(QDropEvent* event)
{
    if (event->mimeData()->hasFormat(DragFormats::Profiles))
        copyProfiles(*event->mimeData());
}

void cProfileList::copyProfiles(const QMimeData& mimeData)
{
    // Taken before the host is called, which may do anything to the drag.
    const QStringList ids = DragFormats::profileIds(mimeData);
    for (const QString& id : ids)
        cProfileMgr().copyProfile(id);
}
