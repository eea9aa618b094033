#include "cMacroList.h"

#include "cMacroItem.h"
#include "RowLists.h"

#include <cMacroBindingView.h>
#include <cProfileMgr.h>

void cMacroList::onmacroAdded(const QString& profileID, const cJsonValue& macro)
{
    if (profileID == m_profileID)
        addMacroRow(macro);
}

void cMacroList::onmacroDeleted(const QString& profileID, const cJsonValue& macro)
{
    if (profileID != m_profileID)
        return;
    const int row = rowByMacroId(macro["uid"].toString());
    if (row < 0)
        return;
    m_searchHits.removeAll(item(row));
    RowLists::deleteRow(*this, row);
}

void cMacroList::onmacroChanged(const QString& profileID, const cJsonValue& macro)
{
    if (profileID != m_profileID)
        return;
    const QString macroID = macro["uid"].toString();
    cMacroItem* const widget = itemByMacroId(macroID);
    if (!widget)
        return;
    widget->setMacro(macro);
    // A new name may have moved the row.
    const int row = rowByMacroId(macroID);
    if (row >= 0 && !m_searchText.isEmpty()) {
        QListWidgetItem* const changed = item(row);
        const bool hit = RowLists::matchesSearch(macro["display_name"].toString(), m_searchText);
        setRowHidden(row, !hit);
        if (!hit)
            m_searchHits.removeAll(changed);
        else if (!m_searchHits.contains(changed))
            m_searchHits.append(changed);
    }
    viewport()->update();
}

void cMacroList::onMacroAssigned(
    const QString& profileID, const QString&, const QString& macroID, MKey::MKey_t, const QString&)
{
    if (profileID != m_profileID)
        return;
    if (cMacroItem* const row = itemByMacroId(macroID)) {
        row->setAssigned(true);
        viewport()->update();
    }
}

void cMacroList::onAssignmentRemoved(
    const QString& profileID, const QString&, MKey::MKey_t, const QString&, const QString& macroID)
{
    if (profileID != m_profileID)
        return;
    cMacroItem* const row = itemByMacroId(macroID);
    if (!row)
        return;
    // Another control of the device may still hold the command.
    const cMacroBindingView* view = cMacroBindingView::instance();
    row->setAssigned(
        cProfileMgr().isMacroAssigned(profileID, view->getDeviceCategory(), view->getControlIds(), macroID));
    viewport()->update();
}

void cMacroList::onProfileSelectionChanged(const QString&)
{
    populate();
    show();
}
