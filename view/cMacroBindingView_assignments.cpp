#include "cMacroBindingView.h"

void cMacroBindingView::setAssignment(const QString&, const QString&)
{ }

void cMacroBindingView::onEditAssignment(const QString&)
{ }

void cMacroBindingView::onUseGenericAssignment(const QString&)
{ }

void cMacroBindingView::onUnassignAssignment(const QString&)
{ }

void cMacroBindingView::onUseGenericForAllGkeys(const QString&)
{ }

void cMacroBindingView::onUnassignAllGkeys(const QString&)
{ }

void cMacroBindingView::onUseDefaultForAllGkeys(const QString&)
{ }

void cMacroBindingView::onUseDefaultAssignment(const QString&)
{ }

void cMacroBindingView::onmacroAdded(const QString&, const cJsonValue&)
{ }

void cMacroBindingView::onmacroDeleted(const QString&, const cJsonValue&)
{ }

void cMacroBindingView::onmacroChanged(const QString&, const cJsonValue&)
{ }

void cMacroBindingView::onMacroAssigned(
    const QString&, const QString&, const QString&, MKey::MKey_t, const QString&)
{ }

void cMacroBindingView::onAssignmentRemoved(
    const QString&, const QString&, MKey::MKey_t, const QString&, const QString&)
{ }

void cMacroBindingView::onMacroEditorClosed(const QString&)
{ }
