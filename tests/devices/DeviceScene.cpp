#include "DeviceScene.h"

#include <cMacroBindingView.h>
#include <RecordingHost.h>

#include <QBitmap>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QFontMetrics>
#include <QGraphicsPathItem>
#include <QGuiApplication>
#include <QPen>
#include <QRegion>
#include <QScreen>

#include <algorithm>

namespace {

// A label's frame around its text.
constexpr int LabelFrameWidth = 10;
constexpr int LabelFrameHeight = 6;
constexpr int LabelLift = 8;
constexpr int KeyPenWidth = 3;

QString text(const cJsonValue& record, const char* key)
{
    return record[key].toString();
}

QPoint point(const cJsonValue& record, const char* x, const char* y)
{
    return QPoint(record[x].toInt(), record[y].toInt());
}

QRectF placed(const QPixmap& picture, double scale, const QPointF& position)
{
    return QRectF(position, QSizeF(picture.size()) * scale);
}

/// The height of a label's text, in the labels' font.
int labelTextHeight()
{
    QFont font(QStringLiteral("Arial"));
    font.setStyleStrategy(QFont::ForceOutline);
    font.setPointSizeF(8 * 96.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    return QFontMetrics(font).size(Qt::TextSingleLine, QStringLiteral("Ag")).height();
}

void readShape(const cJsonValue& record, ControlPlace& control)
{
    QPolygonF corners;
    if (record.contains("points")) {
        const cJsonValue& points = record["points"];
        for (int i = 0; i < int(points.size()); ++i)
            corners << point(points[i], "x", "y");
        control.shape.addPolygon(corners);
        control.shape.closeSubpath();
    } else if (record.contains("pixmapPath")) {
        control.isPixmap = true;
        control.glow = QPixmap(text(record, "pixmapPath"));
        QRegion region(QPixmap(text(record, "outlinePath")).mask());
        region.translate(point(record, "pixmap_offset_x", "pixmap_offset_y"));
        control.shape.addRegion(region);
    }
    // The key's item counts the pen that it never shows.
    QGraphicsPathItem item(control.shape);
    item.setPen(QPen(Qt::black, KeyPenWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QRect bounds = item.boundingRect().toRect();
    const QPoint middle(bounds.x() + bounds.width() / 2, bounds.y() + bounds.height() / 2);
    control.glowPosition = middle - QPointF(control.glow.width() / 2.0, control.glow.height() / 2.0);

    control.contextButton.setSize(Canvas::ContextButton);
    if (record.contains("context_button")) {
        control.contextButton.moveTopLeft(point(record["context_button"][0], "x", "y"));
        return;
    }
    // Without a place of its own the button stands in the lower of the two rightmost corners.
    if (control.isPixmap)
        corners = QPolygonF(item.boundingRect());
    if (corners.size() < 2)
        return;
    std::stable_sort(
        corners.begin(), corners.end(), [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); });
    const QPointF last = corners[corners.size() - 1];
    const QPointF beforeLast = corners[corners.size() - 2];
    control.contextButton.moveBottomRight(last.y() > beforeLast.y() ? last : beforeLast);
}

void readLabel(const cJsonValue& record, ControlPlace& control)
{
    if (!record.contains("assignment_label_x"))
        return;
    const QPoint place = point(record, "assignment_label_x", "assignment_label_y");
    const int rest = record["assignment_label_w_min"].toInt();
    const int grown = record["assignment_label_w_max"].toInt();
    const int height = labelTextHeight();
    const QPoint anchor = QPointF(place.x() + rest / 2.0, place.y() - LabelLift).toPoint();
    const QPoint corner(anchor.x() - rest / 2, anchor.y() - height / 2);
    control.labelAtRest = QRect(corner, QSize(rest + LabelFrameWidth, height + LabelFrameHeight));
    control.labelGrown = QRect(corner, QSize(grown + LabelFrameWidth, height + LabelFrameHeight));
    if (!record.contains("assignment_label_line_x1"))
        return;
    // The ends are taken relative to the anchor's height but drawn from the label's corner.
    const QPointF shift = corner - QPoint(place.x(), place.y() - LabelLift);
    control.line = QLineF(point(record, "assignment_label_line_x1", "assignment_label_line_y1"),
        point(record, "assignment_label_line_x2", "assignment_label_line_y2"))
                       .translated(shift);
}

ControlPlace readControl(const cJsonValue& record)
{
    ControlPlace control;
    control.id = text(record, "control_id");
    const cJsonValue& types = record["control_types"];
    for (int i = 0; i < int(types.size()); ++i)
        control.types << text(types[i], "control_type");
    control.genericType = text(record, "generic_assignment_type");
    control.genericName = text(record, "generic_assignment_name");
    control.isGenericRequired = record["generic_assignment_required"].toBool();
    control.isGenericHidden = record["generic_assignment_hidden"].toBool();
    control.cannotBeUnassigned = record["generic_assignment_cannotbeunassigned"].toBool();
    readShape(record, control);
    readLabel(record, control);
    return control;
}

} // namespace

QStringList DeviceScene::aliases()
{
    return QDir(QStringLiteral(DEVICES_FOLDER)).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

DeviceScene::DeviceScene(const QString& alias)
    : m_alias(alias)
{
    QDir::setSearchPaths(alias, {folder()});
    QFile file(folder() + QStringLiteral("/manifest.xml"));
    if (file.open(QFile::ReadOnly))
        m_document.setContent(&file);
    RecordingHost host;
    host.answer("metaData", [this](const RecordedCall&) { return QVariant::fromValue(manifest()); });
    const cMacroBindingView view;
    m_record = view.readDeviceMetadata(manifest().attribute(QStringLiteral("model")));
    readControls();
    readPictures();
}

QString DeviceScene::folder() const
{
    return QStringLiteral(DEVICES_FOLDER "/") + m_alias;
}

QPixmap DeviceScene::picture() const
{
    return QPixmap(
        manifest().firstChildElement(QStringLiteral("presentation")).attribute(QStringLiteral("picture")));
}

QRectF DeviceScene::home() const
{
    const QDomElement presentation = manifest().firstChildElement(QStringLiteral("presentation"));
    return placed(picture(), presentation.attribute(QStringLiteral("scale")).toDouble(),
        QPointF(presentation.attribute(QStringLiteral("x")).toInt(),
            presentation.attribute(QStringLiteral("y")).toInt()));
}

QRectF DeviceScene::transformed() const
{
    return placed(picture(), m_record["scale"].toDouble(), point(m_record, "pos_x", "pos_y"));
}

void DeviceScene::readControls()
{
    const cJsonValue hotspots = m_record["hotspots"];
    for (int i = 0; i < int(hotspots.size()); ++i)
        m_controls << readControl(hotspots[i]);
}

void DeviceScene::readPictures()
{
    const cJsonValue modes = m_record["mstates"];
    for (int i = 0; i < int(modes.size()); ++i) {
        const cJsonValue& mode = modes[i];
        m_modes << PicturePlace {text(mode, "id"), point(mode, "left", "top"),
            {QPixmap(text(mode, "normal_image")), QPixmap(text(mode, "hover_image")),
                QPixmap(text(mode, "on_image"))},
            {}};
    }
    const cJsonValue glows = m_record["pulseGlows"];
    for (int i = 0; i < int(glows.size()); ++i) {
        const cJsonValue& glow = glows[i];
        const cJsonValue& types = glow["pulse_glow_image_types"];
        // Of the types of glow number n the view reads the one with number n.
        m_glows << PicturePlace {text(glow, "pulse_glow_image"),
            point(glow, "pulse_glow_image_x", "pulse_glow_image_y"),
            {QPixmap(text(glow, "pulse_glow_image"))},
            i < int(types.size()) ? text(types[i], "type") : QString()};
    }
}
