#include "cMacroBindingView.h"

void cMacroBindingView::newProfile()
{ }

void cMacroBindingView::scanForGames()
{ }

void cMacroBindingView::selectProfile(const QString&)
{ }

void cMacroBindingView::testProfile()
{ }

void cMacroBindingView::deleteSelectedProfiles()
{ }

void cMacroBindingView::onSortIconClicked(const QPoint&)
{ }

void cMacroBindingView::sortMacroNameAscending()
{ }

void cMacroBindingView::sortMacroNameDescending()
{ }

void cMacroBindingView::sortMacroType()
{ }

void cMacroBindingView::deleteProfiles(const QStringList&)
{ }

void cMacroBindingView::deleteMacros(const QStringList&)
{ }

void cMacroBindingView::deleteAssignments(const QStringList&)
{ }

void cMacroBindingView::createTrashcan()
{ }
