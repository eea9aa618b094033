#include "cMacroList.h"

#include "cMacroItem.h"
#include "RowLists.h"

#include <cMacroBindingView.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <DragFormats.h>
#include <DragRun.h>
#include <MainWindowMenu.h>

#include <QContextMenuEvent>
#include <QDrag>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>

void cMacroList::deleteSelectedMacros()
{
    const QPointer<cMacroList> self(this);
    const bool sure =
        cMainUI().yesno(tr("Delete Command"), tr("Are you sure you want to delete the selected command(s)?"));
    if (!self || !sure)
        return;
    // Rows go while this runs: the host answers each call with its event.
    QList<cJsonValue> macros;
    const QList<QListWidgetItem*> selected = selectedItems();
    for (const QListWidgetItem* item : selected) {
        if (const cMacroItem* row = rowOf(item))
            macros.append(row->macro());
    }
    const QString profileID = cMacroBindingView::instance()->getProfileId();
    for (const cJsonValue& macro : qAsConst(macros))
        cProfileMgr().deleteMacro(profileID, macro);
}

void cMacroList::macroItemContextMenuIconClicked(const QPoint& point)
{
    QWidget* const window = MainWindowMenu::window();
    if (!window)
        return;
    auto* const menu = new QMenu(window);
    if (selectedItems().size() == 1)
        menu->addAction(tr("Edit..."), this, SLOT(onMenuEditMacro()));
    menu->addAction(tr("Delete"), this, SLOT(deleteSelectedMacros()));
    MainWindowMenu::run(menu, this, point);
}

void cMacroList::macroItemDblClicked(cListWidgetItem* pItem)
{
    if (pItem)
        emitEditMacro(pItem);
}

void cMacroList::onMenuEditMacro()
{
    const QList<QListWidgetItem*> selected = selectedItems();
    if (!selected.isEmpty())
        emitEditMacro(selected.constFirst());
}

void cMacroList::MacroStartDrag(const cJsonValue&)
{
    const QList<QListWidgetItem*> selected = selectedItems();
    QStringList ids;
    for (const QListWidgetItem* item : selected) {
        if (const cMacroItem* row = rowOf(item))
            ids.append(row->macroId());
    }
    const bool several = ids.size() > 1;
    const QPointer<cMacroList> self(this);
    auto* const drag = new QDrag(this);
    // The drag owns the data.
    drag->setMimeData(DragFormats::makeMacros(ids).release());
    if (several)
        Q_EMIT multiMacroStartDrag();
    else if (const cMacroItem* row = selected.isEmpty() ? nullptr : rowOf(selected.constFirst()))
        Q_EMIT singleMacroStartDrag(row->macro());
    // With the list the drag that did not run has gone.
    if (!self)
        return;
    DragRun::exec(drag, this, Qt::CopyAction);
    if (!self)
        return;
    if (several)
        Q_EMIT multiMacroEndDrag();
    else
        Q_EMIT singleMacroEndDrag();
    if (self)
        setCursor(Qt::OpenHandCursor);
}

void cMacroList::macroEditIconClicked(const cJsonValue& macro)
{
    const QString macroID = macro["uid"].toString();
    // Whoever edits may run an event loop.
    const QPointer<cMacroList> self(this);
    for (int i = 0; self && i < count(); ++i) {
        const cMacroItem* row = RowLists::rowAt<cMacroItem>(*this, i);
        if (row && row->macroId() == macroID)
            Q_EMIT editMacro(row->macro());
    }
}

bool cMacroList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ContextMenu || !qobject_cast<cMacroItem*>(watched))
        return cRowList::eventFilter(watched, event);
    macroItemContextMenuIconClicked(static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
}

void cMacroList::keyPressEvent(QKeyEvent* event)
{
    const QPointer<cMacroList> self(this);
    switch (event->key()) {
    case Qt::Key_Delete:
        deleteSelectedMacros();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (selectedItems().size() == 1)
            onMenuEditMacro();
        break;
    default:
        break;
    }
    if (self)
        cRowList::keyPressEvent(event);
}

void cMacroList::emitEditMacro(const QListWidgetItem* item)
{
    if (const cMacroItem* row = rowOf(item))
        Q_EMIT editMacro(row->macro());
}
