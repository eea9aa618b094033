#include "Gkey.h"

#include "StickCommands.h"

#include <cMacroBindingView.h>
#include <cProfileMgr.h>
#include <DragFormats.h>
#include <DragRun.h>

#include <QApplication>
#include <QCursor>
#include <QDrag>
#include <QGraphicsSceneDragDropEvent>
#include <QGraphicsSceneMouseEvent>
#include <QMimeData>
#include <QPointer>
#include <QWidget>

void Gkey::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (!m_pressed || !holdsVisibleMacro())
        return;
    const QPointF way = event->pos() - m_pressPos;
    if (way.manhattanLength() > QApplication::startDragDistance() && !StickCommands::find(m_macroID))
        dragAssignment(event->widget());
}

void Gkey::dragAssignment(QWidget* source)
{
    const QPointer<Gkey> self(this);
    const QPointer<QWidget> canvas(source);
    // What is dragged stays this command of this key, whatever the host does to the key meanwhile.
    const DragFormats::AssignmentIds dragged {m_macroID, m_contextID};
    Q_EMIT assignmentStartDrag(dragged.macroID);
    if (!self)
        return;
    auto* const drag = new QDrag(canvas);
    // The drag owns the data.
    drag->setMimeData(DragFormats::makeAssignment(dragged).release());
    setCursor(Qt::OpenHandCursor);
    const Qt::DropAction result = DragRun::exec(drag, this, Qt::MoveAction);
    if (!self)
        return;
    if (result == Qt::MoveAction) {
        Q_EMIT macroMoved(m_contextID);
        if (!self)
            return;
        setChildrenVisible(false);
        setCursor(Qt::ArrowCursor);
    }
    Q_EMIT assignmentEndDrag();
}

bool Gkey::wantsDrag(const QMimeData& data) const
{
    // Whether the command may go on this key is asked at the drop.
    if (data.hasFormat(DragFormats::Macros) && DragFormats::macroIds(data).size() == 1)
        return true;
    return data.hasFormat(DragFormats::Assignment) && DragFormats::assignment(data).contextID != m_contextID;
}

void Gkey::dragEnterEvent(QGraphicsSceneDragDropEvent* event)
{
    // Entering one of key and label ends the stay on the other, of which the scene tells only afterwards.
    m_dragOverKey = !m_eventFromLabel;
    m_dragOverLabel = m_eventFromLabel;
    m_eventFromLabel = false;
    if (!wantsDrag(*event->mimeData())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    setChildrenVisible(true);
}

void Gkey::dragLeaveEvent(QGraphicsSceneDragDropEvent*)
{
    (m_eventFromLabel ? m_dragOverLabel : m_dragOverKey) = false;
    m_eventFromLabel = false;
    if (!m_dragOverLabel && !m_dragOverKey)
        setChildrenVisible(false);
}

void Gkey::dropEvent(QGraphicsSceneDragDropEvent* event)
{
    const QMimeData& data = *event->mimeData();
    DragFormats::AssignmentIds dropped;
    if (data.hasFormat(DragFormats::Macros))
        dropped.macroID = DragFormats::macroIds(data).constFirst();
    else if (data.hasFormat(DragFormats::Assignment))
        dropped = DragFormats::assignment(data);
    if (dropped.macroID.isEmpty()) {
        event->ignore();
        return;
    }
    // The host answers a changed assignment with events, in which it may take the key down.
    const QPointer<Gkey> self(this);
    const bool isAllowed = cProfileMgr().canMacroBeAssignedTo(dropped.macroID, m_view->getProfileId(),
        m_view->getDeviceCategory(), m_view->getCurrentMState(), m_contextID);
    if (!isAllowed) {
        event->setDropAction(Qt::IgnoreAction);
    } else if (self && dropped.contextID != m_contextID) {
        takeDrop(dropped.macroID);
        event->setDropAction(Qt::MoveAction);
    }
    event->accept();
    if (self)
        setChildrenVisible(false);
}

void Gkey::takeDrop(const QString& macroID)
{
    const QPointer<Gkey> self(this);
    // A stick command goes as a whole, so that no part of it stays behind.
    if (const StickCommand* replaced = StickCommands::find(m_macroID))
        emitForStick(*replaced, &Gkey::macroMoved);
    if (self)
        Q_EMIT macroDropped(macroID, m_contextID);
}
