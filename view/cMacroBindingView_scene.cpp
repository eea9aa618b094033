#include "cMacroBindingView.h"

#include "ViewConstants.h"

#include <cEventHelpers.h>
#include <cGraphicsItem.h>
#include <cGraphicsItemGroup.h>
#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cMainApp.h>
#include <cMainUI.h>
#include <cProfiler.h>
#include <cPulseGlowImage.h>
#include <cTooltip.h>
#include <EventNames.h>
#include <FixedIds.h>
#include <Gkey.h>

#include <QBitmap>
#include <QBrush>
#include <QDebug>
#include <QFrame>
#include <QGraphicsPixmapItem>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>
#include <QRect>
#include <QRegion>

using namespace ViewConstants;

namespace {

constexpr QRgb KeyColor = qRgb(0, 80, 80);

/// The events of the profiles and of the device, in the order in which they are subscribed and unsubscribed.
const QLatin1String SceneSources[] = {
    EventSources::ProfileMgr, EventSources::Profiler, EventSources::DevMgr, EventSources::ProfilesToGo};

QString text(const cJsonValue& record, const char* key)
{
    return record[key].toString();
}

int integer(const cJsonValue& record, const char* key)
{
    return record[key].toInt();
}

QPoint point(const cJsonValue& record, const char* x, const char* y)
{
    return {integer(record, x), integer(record, y)};
}

/// The texts under `key` of the array's elements.
QStringList texts(const cJsonValue& array, const char* key)
{
    QStringList found;
    for (int i = 0; i < int(array.size()); ++i)
        found.append(text(array[i], key));
    return found;
}

void setPolygonShape(Gkey& key, const cJsonValue& points)
{
    QPolygonF polygon;
    for (int i = 0; i < int(points.size()); ++i) {
        const QPoint corner = point(points[i], "x", "y");
        qDebug() << "point is " << corner.x() << "--" << corner.y();
        polygon << corner;
    }
    QPainterPath path;
    path.addPolygon(polygon);
    key.setPath(path);
    key.setShapeKind(Gkey::PolygonShape);
    key.setPolygon(polygon);
}

/// The glow that is seen comes from one picture, the shape that can be clicked from another.
void setPixmapShape(Gkey& key, const cJsonValue& control)
{
    key.setGlowPixmap(QPixmap(text(control, "pixmapPath")));
    const QPixmap outline(text(control, "outlinePath"));
    QRegion region(outline.mask());
    region.translate(point(control, "pixmap_offset_x", "pixmap_offset_y"));
    QPainterPath path;
    path.addRegion(region);
    key.setPath(path);
    key.setShapeKind(Gkey::PixmapShape);
}

/// The key's shape, and its rectangle, which the key places its children by.
void setShape(Gkey& key, const cJsonValue& control)
{
    if (control.contains("points") && control["points"].isArray())
        setPolygonShape(key, control["points"]);
    else if (control.contains("pixmapPath"))
        setPixmapShape(key, control);

    const QBrush brush(QColor(KeyColor), Qt::SolidPattern);
    key.setBrush(brush);
    key.setPen(QPen(brush, KeyPenWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QRect place(
        point(control, "x", "y"), QSize(integer(control, "polywidth"), integer(control, "polyheight")));
    if (key.shapeKind() == Gkey::PixmapShape)
        place = key.boundingRect().toRect();
    key.setKeyRect(place.x(), place.y(), place.width(), place.height());
}

void setLabelPlace(Gkey& key, const cJsonValue& control)
{
    if (!control.contains("assignment_label_x"))
        return;
    key.setLabelRect(integer(control, "assignment_label_x"), integer(control, "assignment_label_y"),
        integer(control, "assignment_label_w_min"), integer(control, "assignment_label_w_max"));
    if (control.contains("assignment_label_line_x1")) {
        key.setConnectLine(point(control, "assignment_label_line_x1", "assignment_label_line_y1"),
            point(control, "assignment_label_line_x2", "assignment_label_line_y2"));
    }
}

} // namespace

void cMacroBindingView::onDeviceTransformEnd()
{
    if (!m_canvas || !m_scene)
        return;
    // Own copies and one client for the whole slot: events may come in between.
    const cJsonValue metadata = m_metadata;
    // First, because the profile bar selects a profile while it fills its list.
    subscribeToDeviceEvents();
    cProfiler profiler;
    readDeviceFacts(metadata, profiler);
    createHotspots(metadata);
    m_tooltip = new cTooltip(m_rootItem);
    createCommandFrame();
    createSyncButton();
    createNewCommandButton();
    createMacroList();
    createProfileBar();
    createProfileFrames();
    createHintText();
    placeProfileBar();
    createStickOverlay(metadata);
    createModeButtons(metadata, profiler);
    createPulseGlows(metadata);
    offerGameScan();
    createTrashcan();
    showFrames();
    cMainUI().raiseDeviceBar();
    m_sceneBuilt = true;
}

void cMacroBindingView::subscribeToDeviceEvents()
{
    for (const QLatin1String source : SceneSources)
        EventHelpers::subscribe(source, this);
}

void cMacroBindingView::readDeviceFacts(const cJsonValue& metadata, cProfiler& profiler)
{
    m_deviceCategory = metadata["profiler"]["category"].toString();
    m_currentMState = profiler.getMState(m_deviceCategory);
    m_controlIds.clear();
}

void cMacroBindingView::createHotspots(const cJsonValue& metadata)
{
    const cJsonValue& controls = metadata["hotspots"];
    for (int i = 0; i < int(controls.size()); ++i)
        createHotspot(controls[i]);
}

void cMacroBindingView::createHotspot(const cJsonValue& control)
{
    const QString contextID = text(control, "control_id");
    m_controlIds.append(contextID);
    auto* const key = new Gkey(this, m_rootItem);
    key->setGenericInfo(text(control, "generic_assignment_type"), text(control, "generic_assignment_name"),
        control["generic_assignment_required"].toBool(), control["generic_assignment_hidden"].toBool(),
        control["generic_assignment_cannotbeunassigned"].toBool());
    if (control.contains("context_button")) {
        const QPoint place = point(control["context_button"][0], "x", "y");
        key->setContextButtonPos(place.x(), place.y());
    }
    setShape(*key, control);
    setLabelPlace(*key, control);
    key->setContextID(contextID);
    key->setControlTypes(texts(control["control_types"], "control_type"));
    m_hotspots[contextID] = key;

    connect(key, SIGNAL(edit(QString)), this, SLOT(onEditAssignment(QString)));
    connect(key, SIGNAL(useDefault(QString)), this, SLOT(onUseDefaultAssignment(QString)));
    connect(key, SIGNAL(useGeneric(QString)), this, SLOT(onUseGenericAssignment(QString)));
    connect(key, SIGNAL(unassign(QString)), this, SLOT(onUnassignAssignment(QString)));
    connect(key, SIGNAL(macroDropped(QString, QString)), this, SLOT(setAssignment(QString, QString)));
    connect(key, SIGNAL(macroMoved(QString)), this, SLOT(onUnassignAssignment(QString)));
    connect(key, SIGNAL(showTooltip(QPointF, QString)), this, SLOT(onShowTooltip(QPointF, QString)));
    connect(key, SIGNAL(assignmentStartDrag(QString)), this, SLOT(onAssignmentStartPulsate(QString)));
    connect(key, SIGNAL(assignmentEndDrag()), this, SLOT(onStopGkeyPulsate()));
}

void cMacroBindingView::createStickOverlay(const cJsonValue& metadata)
{
    if (text(metadata, "device_model") != DeviceIds::K13Model)
        return;
    auto* const overlay = new QGraphicsPixmapItem(QPixmap(StickOverlayPicture), m_rootItem);
    overlay->setPos(StickOverlayPos);
    overlay->setOpacity(StickOverlayOpacity);
}

void cMacroBindingView::createModeButtons(const cJsonValue& metadata, cProfiler& profiler)
{
    if (!metadata.contains("mstates"))
        return;
    m_mStateGroup = new cGraphicsItemGroup(m_rootItem);
    connect(m_mStateGroup, SIGNAL(itemSelected(QString)), this, SLOT(SwitchMState(QString)));
    const cJsonValue& modes = metadata["mstates"];
    for (int i = 0; i < int(modes.size()); ++i) {
        const cJsonValue& mode = modes[i];
        auto* const button = new cGraphicsItem(text(mode, "id"), text(mode, "normal_image"),
            text(mode, "hover_image"), text(mode, "on_image"), m_rootItem);
        button->setPos(point(mode, "left", "top"));
        button->setPulsate(true);
        m_mStateGroup->addItem(button);
    }
    m_inForeground = cMainApp().inForeground();
    m_mStateGroup->select(profiler.mKeyToString(m_currentMState));
    m_mStateGroup->stopPulses();
    if (cGraphicsItem* const selected = m_mStateGroup->selectedItem(); selected && m_inForeground)
        selected->startPulse();
}

void cMacroBindingView::createPulseGlows(const cJsonValue& metadata)
{
    const cJsonValue& glows = metadata["pulseGlows"];
    for (int i = 0; i < int(glows.size()); ++i) {
        const cJsonValue& glow = glows[i];
        const cJsonValue& types = glow["pulse_glow_image_types"];
        // Of each glow's types the one with the glow's own number counts, as often as there are types. A glow
        // with too few of them has the empty type.
        QStringList controlTypes;
        for (unsigned type = 0; type < types.size(); ++type)
            controlTypes.append(text(types[i], "type"));
        if (controlTypes.isEmpty())
            continue;
        auto* const image = new cPulseGlowImage(text(glow, "pulse_glow_image"), controlTypes, m_rootItem);
        image->setPos(point(glow, "pulse_glow_image_x", "pulse_glow_image_y"));
        image->hide();
        // Once for each glow, on purpose: a drag calls the slots as often.
        connect(m_macroList, SIGNAL(singleMacroStartDrag(cJsonValue)), this,
            SLOT(onStartGkeyPulsate(cJsonValue)));
        connect(m_macroList, SIGNAL(singleMacroEndDrag()), this, SLOT(onStopGkeyPulsate()));
        m_pulseGlows.append(image);
    }
}

void cMacroBindingView::showFrames()
{
    for (QFrame* frame : {m_commandFrame.data(), m_profileFrame.data(), m_profileSearchFrame.data()}) {
        if (frame)
            frame->show();
    }
}

void cMacroBindingView::onPopulatingMacros()
{ }

void cMacroBindingView::onPopulatedMacros()
{ }

void cMacroBindingView::removeScene()
{
    clearLabels();
    for (QPointer<Gkey>& key : m_hotspots)
        delete key;
    m_hotspots.clear();
    for (QPointer<cPulseGlowImage>& glow : m_pulseGlows)
        delete glow;
    m_pulseGlows.clear();
    delete m_mStateGroup;
    delete m_macroList;
    delete rootItem();
    m_rootItem = nullptr;
    for (QPointer<QFrame>* frame : {&m_profileFrame, &m_profileSearchFrame, &m_commandFrame}) {
        if (*frame)
            (*frame)->hide();
        delete *frame;
    }
    // A scene that went before the view took its items with it.
    if (m_scene)
        delete m_hintText;
    m_hintText = nullptr;
    m_profileBar.clear();
    for (const QLatin1String source : SceneSources)
        EventHelpers::unsubscribe(source, this);
}
