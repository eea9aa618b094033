#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cECMAScript.h>
#include <cEventHelpers.h>
#include <cHelpMgr.h>
#include <EventNames.h>
#include <HelpTopics.h>
#include <HVS.h>
#include <PluginContext.h>

#include <QDir>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QTimer>

using namespace ViewConstants;

namespace {

cMacroBindingView* s_instance = nullptr;

/// Absolute path of the folder with the plug-in's help.
QString helpFolder()
{
    return QDir(pluginResource("Help")).absolutePath();
}

} // namespace

cMacroBindingView::cMacroBindingView()
{
    if (!s_instance)
        s_instance = this;
    // Kept while the view is closed: the host asks for help providers at any time.
    EventHelpers::subscribe(EventSources::HelpMgr, this);
    cECMAScript().newObject(this, ScriptObjectName);
}

cMacroBindingView::~cMacroBindingView()
{
    EventHelpers::unsubscribe(EventSources::HelpMgr, this);
    cHelpMgr().unRegisterHelp(helpFolder());
    cMacroBindingView::deinit(cJsonValue(), nullptr);
    // Nobody is left to end the exit.
    removePanesAndMask();
    if (s_instance == this)
        s_instance = nullptr;
}

cMacroBindingView* cMacroBindingView::instance()
{
    // The constructor makes itself known.
    return s_instance ? s_instance : new cMacroBindingView;
}

bool cMacroBindingView::init(cJsonValue viewInfo, QGraphicsView* canvas)
{
    if (!canvas || !canvas->scene())
        return false;
    m_leaving = false;
    m_canvas = canvas;
    m_scene = canvas->scene();
    m_deviceModel = viewInfo["device_model"].toString();
    m_metadata = readDeviceMetadata(m_deviceModel);

    m_rootItem = new QGraphicsRectItem;
    m_rootItem->setRect(canvas->sceneRect());
    m_rootItem->setPos(0, 0);
    m_scene->addItem(m_rootItem);

    QTimer::singleShot(PaneAnimationTime, this, SLOT(onPaneAndMaskEnterAnimation()));

    EventHelpers::subscribe(EventSources::MainUI, this);
    EventHelpers::subscribe(EventSources::MainApp, this);
    // The host moves the device picture and answers with the end of the transform; see
    // onDeviceTransformEnd().
    EventHelpers::publishDeviceTransformBegin(m_metadata);
    m_sceneBuilt = false;
    m_mainWindowClosing = false;
    return true;
}

bool cMacroBindingView::deinit(cJsonValue, QGraphicsView*)
{
    m_leaving = true;
    // The flag stays as it is, so that a second deinit() comes by here again.
    if (m_sceneBuilt)
        removeScene();
    EventHelpers::unsubscribe(EventSources::MainUI, this);
    EventHelpers::unsubscribe(EventSources::MainApp, this);
    onPaneAndMaskExitAnimation();
    return true;
}

bool cMacroBindingView::activate(cJsonValue)
{
    return true;
}

bool cMacroBindingView::deactivate(cJsonValue)
{
    return true;
}

cJsonValue cMacroBindingView::viewInfo()
{
    const QDir images(pluginResource("Resources/images"));
    cJsonValue info;
    info["view_id"] = QString(ViewId);
    info["tooltip"] = tr("Customize G-keys");
    info["icon_on_path"] = images.absoluteFilePath(QStringLiteral("gkey_on.png"));
    info["icon_off_path"] = images.absoluteFilePath(QStringLiteral("gkey_off.png"));
    info["icon_hover_path"] = images.absoluteFilePath(QStringLiteral("gkey_hover.png"));
    return info;
}

void cMacroBindingView::onRegisterHelpProvider(int index)
{
    if (index != HelpProviderIndex)
        return;
    const QString url =
        QStringLiteral("qthelp://%1/doc/%2_%3/")
            .arg(HelpTopics::Section, HVS::currentLocaleLanguage(), HVS::currentLocaleCountry());
    cHelpMgr().registerHelp(ViewId, url + HelpTopics::View, helpFolder());
}
