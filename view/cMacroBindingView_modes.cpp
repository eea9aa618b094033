#include "cMacroBindingView.h"

#include "SystemVersion.h"
#include "ViewConstants.h"

#include <cAnimatedPixmapWidget.h>
#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cProfileMgr.h>
#include <cProfiler.h>
#include <cProfilesToGo.h>
#include <cPulseGlowImage.h>
#include <cTooltip.h>
#include <MagnetTextItem.h>

#include <QCoreApplication>

using namespace ViewConstants;

void cMacroBindingView::SwitchMState(const QString& MStateID)
{
    cProfiler profiler;
    profiler.setMState(m_deviceCategory, profiler.stringToMKey(MStateID));
}

void cMacroBindingView::onMStateChanged(MKey::MKey_t mkeyState, const QString& category)
{
    // Other devices change their modes too.
    if (category != m_deviceCategory)
        return;
    const QString name = cProfiler().mKeyToString(mkeyState);
    if (m_mStateGroup) {
        m_mStateGroup->stopPulses();
        if (cGraphicsItem* const button = m_mStateGroup->itemByID(name); button && m_inForeground)
            button->startPulse();
        m_mStateGroup->select(name);
    }
    m_currentMState = mkeyState;
    refreshAssignments();
}

void cMacroBindingView::onProfileSelectionChanging(const QString& profileID)
{
    m_profileId = profileID;
    // The list of commands follows with the next event: labels change first.
    refreshAssignments();
    cProfileMgr profiles;
    m_profilesToGoDeviceId = profiles.getProfileDeviceId(profileID);
    const bool isBound = !m_profilesToGoDeviceId.isEmpty();
    const bool isDirty = isBound && profiles.isProfileToGoDirty(profileID);
    const bool isBusy = isBound && cProfilesToGo().isDeviceBusy(m_profilesToGoDeviceId);
    if (!m_syncButton)
        return;
    m_syncButton->setVisible(isDirty || isBusy);
    if (isBusy) {
        m_syncButton->reset();
        m_syncButton->start();
    }
}

void cMacroBindingView::highlightAssignment(const cJsonValue& macro)
{
    setLabelsSelected(macro, true);
}

void cMacroBindingView::unHighlightAssignment(const cJsonValue& macro)
{
    setLabelsSelected(macro, false);
}

void cMacroBindingView::setLabelsSelected(const cJsonValue& macro, bool selected)
{
    const QString macroID = macro["uid"].toString();
    for (MagnetTextItem* label : qAsConst(m_labels)) {
        if (label && label->macroID() == macroID)
            label->setBalloonSelected(selected);
    }
}

void cMacroBindingView::onStartGkeyPulsate(const cJsonValue& macro)
{
    for (cPulseGlowImage* glow : qAsConst(m_pulseGlows)) {
        if (glow)
            glow->pulseFor(macro);
    }
}

void cMacroBindingView::onAssignmentStartPulsate(const QString& macroID)
{
    onStartGkeyPulsate(cProfileMgr().getMacroByID(m_profileId, macroID));
}

void cMacroBindingView::onStopGkeyPulsate()
{
    for (cPulseGlowImage* glow : qAsConst(m_pulseGlows)) {
        if (glow)
            glow->stopPulse();
    }
}

void cMacroBindingView::onStartMkeyPulsate()
{
    if (SystemVersion::isWindows7())
        return;
    if (cGraphicsItem* const button = selectedModeButton())
        button->startPulse();
}

void cMacroBindingView::onStopMkeyPulsate()
{
    if (SystemVersion::isWindows7())
        return;
    if (cGraphicsItem* const button = selectedModeButton())
        button->stopPulse();
}

void cMacroBindingView::onForegroundAppChange(const QString&, quint32 processId)
{
    if (!rootItem() || !m_mStateGroup)
        return;
    if (processId != quint32(QCoreApplication::applicationPid()))
        m_mStateGroup->stopPulses();
    else if (cGraphicsItem* const button = selectedModeButton())
        button->startPulse();
}

cGraphicsItem* cMacroBindingView::selectedModeButton() const
{
    return m_mStateGroup ? m_mStateGroup->selectedItem() : nullptr;
}

void cMacroBindingView::onShowTooltip(const QPointF& pt, const QString& tip)
{
    if (m_tooltip)
        m_tooltip->showTip(QPointF(pt.x() + TooltipShift, pt.y()), tip);
}

void cMacroBindingView::setSyncButtonEnabled(bool on)
{
    if (!m_syncButton)
        return;
    m_syncButton->setVisible(on);
    m_syncButton->reset();
    m_syncButton->setEnabled(on);
}

void cMacroBindingView::refreshSyncButton()
{
    if (!m_profilesToGoDeviceId.isEmpty())
        setSyncButtonEnabled(true);
}

void cMacroBindingView::onProfilePropertyChanged(const QString& profileId)
{
    if (profileId == m_profileId)
        refreshSyncButton();
}

void cMacroBindingView::onForceProfilesToGoSync()
{
    cProfilesToGo().commitDevice(m_profilesToGoDeviceId);
}

void cMacroBindingView::onProfilesToGoDeviceBusy(const QString&, const QString& deviceId)
{
    if (deviceId != m_profilesToGoDeviceId || !m_syncButton)
        return;
    m_syncButton->reset();
    m_syncButton->start();
    m_syncButton->setUseHoverPixmap(false);
}

void cMacroBindingView::onProfilesToGoDeviceIdle(const QString& deviceId)
{
    if (deviceId != m_profilesToGoDeviceId || !m_syncButton)
        return;
    m_syncButton->setUseHoverPixmap(true);
    setSyncButtonEnabled(false);
    m_syncButton->stop();
}
