#include "cMacroBindingView.h"

#include <cEventHelpers.h>
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
    QGraphicsRectItem* rootItem = std::exchange(m_rootItem, nullptr);
    if (m_scene)
        delete rootItem;
    for (QPointer<QFrame>* frame : {&m_profileFrame, &m_profileSearchFrame, &m_commandFrame}) {
        if (*frame)
            (*frame)->hide();
        delete *frame;
    }
    m_profileBar = nullptr;
    for (const QLatin1String source :
        {EventSources::ProfileMgr, EventSources::Profiler, EventSources::DevMgr, EventSources::ProfilesToGo})
        EventHelpers::unsubscribe(source, this);
}
