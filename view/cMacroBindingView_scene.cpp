#include "cMacroBindingView.h"

#include <cEventHelpers.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cPulseGlowImage.h>
#include <EventNames.h>

#include <QFrame>
#include <QGraphicsRectItem>
#include <QGraphicsScene>

#include <utility>

void cMacroBindingView::onDeviceTransformEnd()
{ }

void cMacroBindingView::onPopulatingMacros()
{ }

void cMacroBindingView::onPopulatedMacros()
{ }

void cMacroBindingView::removeScene()
{
    // A scene that went before the view took its items with it.
    const bool ownsItems = m_scene != nullptr;
    const auto remove = [ownsItems](auto*& item) {
        const auto* doomed = std::exchange(item, nullptr);
        if (ownsItems)
            delete doomed;
    };
    for (cPulseGlowImage*& glow : m_pulseGlows)
        remove(glow);
    m_pulseGlows.clear();
    remove(m_mStateGroup);
    remove(m_rootItem);
    for (QPointer<QFrame>* frame : {&m_profileFrame, &m_profileSearchFrame, &m_commandFrame}) {
        if (*frame)
            (*frame)->hide();
        delete *frame;
    }
    remove(m_hintText);
    m_profileBar = nullptr;
    for (const QLatin1String source :
        {EventSources::ProfileMgr, EventSources::Profiler, EventSources::DevMgr, EventSources::ProfilesToGo})
        EventHelpers::unsubscribe(source, this);
}
