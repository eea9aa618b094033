#include "cMacroBindingView.h"

#include <cEventHelpers.h>
#include <EventNames.h>

#include <QFrame>
#include <QGraphicsRectItem>

#include <utility>

void cMacroBindingView::onDeviceTransformEnd()
{ }

void cMacroBindingView::onPopulatingMacros()
{ }

void cMacroBindingView::onPopulatedMacros()
{ }

void cMacroBindingView::removeScene()
{
    delete std::exchange(m_rootItem, nullptr);
    for (QFrame** frame : {&m_profileFrame, &m_profileSearchFrame, &m_commandFrame}) {
        if (*frame)
            (*frame)->hide();
        delete std::exchange(*frame, nullptr);
    }
    m_profileBar = nullptr;
    for (const QLatin1String source :
        {EventSources::ProfileMgr, EventSources::Profiler, EventSources::DevMgr, EventSources::ProfilesToGo})
        EventHelpers::unsubscribe(source, this);
}
