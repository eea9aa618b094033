#include "cMacroBindingView.h"

void cMacroBindingView::SwitchMState(const QString&)
{ }

void cMacroBindingView::highlightAssignment(const cJsonValue&)
{ }

void cMacroBindingView::unHighlightAssignment(const cJsonValue&)
{ }

void cMacroBindingView::onShowTooltip(const QPointF&, const QString&)
{ }

void cMacroBindingView::onStartGkeyPulsate(const cJsonValue&)
{ }

void cMacroBindingView::onAssignmentStartPulsate(const QString&)
{ }

void cMacroBindingView::onStopGkeyPulsate()
{ }

void cMacroBindingView::onStartMkeyPulsate()
{ }

void cMacroBindingView::onStopMkeyPulsate()
{ }

void cMacroBindingView::onProfileSelectionChanging(const QString&)
{ }

void cMacroBindingView::onMStateChanged(MKey::MKey_t, const QString&)
{ }

void cMacroBindingView::onProfilePropertyChanged(const QString&)
{ }

void cMacroBindingView::onForegroundAppChange(const QString&, quint32)
{ }

void cMacroBindingView::onProfilesToGoDeviceBusy(const QString&, const QString&)
{ }

void cMacroBindingView::onProfilesToGoDeviceIdle(const QString&)
{ }
