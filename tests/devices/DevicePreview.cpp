#include "DeviceScene.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>

namespace {

const QColor CanvasColor(0x0b, 0x0f, 0x10);
const QColor PaneColor(0x21, 0x63, 0x63, 120);

void drawPanes(QPainter& painter)
{
    painter.setPen(PaneColor);
    painter.setBrush(Qt::black);
    for (const QRect& pane : {Canvas::CommandPane, Canvas::ProfilePane, Canvas::TrashCan})
        painter.drawRect(pane);
}

void drawLabel(QPainter& painter, const ControlPlace& control)
{
    painter.setPen(Qt::black);
    if (!control.line.isNull())
        painter.drawLine(control.line);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 180, 60), 1, Qt::DotLine));
    painter.drawRect(QRectF(control.labelGrown).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.setPen(QColor(0x21, 0x63, 0x63));
    painter.setBrush(QColor(6, 50, 50));
    painter.drawRoundedRect(QRectF(control.labelAtRest).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(Qt::white);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(11);
    painter.setFont(font);
    painter.drawText(control.labelAtRest, Qt::AlignCenter, QStringLiteral("Command ") + control.id);
}

void drawOutlines(QPainter& painter, const ControlPlace& control)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QColor(255, 80, 80));
    painter.drawPath(control.shape.simplified());
    painter.fillRect(control.contextButton, QColor(255, 255, 255, 70));
    if (control.isPixmap)
        painter.drawPixmap(control.glowPosition, control.glow);
}

} // namespace

/// device_preview <alias> <picture.png> [home|labels|hotspots|glows]
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: device_preview <alias> <picture.png> [home|labels|hotspots|glows]\n", stderr);
        return 2;
    }
    const QString what = arguments.value(3, QStringLiteral("labels"));
    const DeviceScene device(arguments[1]);

    QImage image(Canvas::Scene.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(CanvasColor);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QPixmap picture = device.picture();
    const QRectF place = what == QLatin1String("home") ? device.home() : device.transformed();
    painter.drawPixmap(place, picture, picture.rect());
    if (what != QLatin1String("home")) {
        drawPanes(painter);
        const QPixmap overlay(device.alias() + QStringLiteral(":/images/K13_minijoystick_overlay.png"));
        painter.setOpacity(0.3);
        painter.drawPixmap(Canvas::StickOverlay, overlay);
        painter.setOpacity(1);
        for (int i = 0; i < device.modes().size(); ++i) {
            const PicturePlace& mode = device.modes()[i];
            painter.drawPixmap(mode.position, mode.pictures[2 - i % 3]);
        }
    }
    for (const ControlPlace& control : device.controls()) {
        if (what == QLatin1String("labels"))
            drawLabel(painter, control);
        if (what == QLatin1String("hotspots"))
            drawOutlines(painter, control);
    }
    if (what == QLatin1String("glows")) {
        for (const PicturePlace& glow : device.glows())
            painter.drawPixmap(glow.position, glow.pictures.first());
    }
    painter.end();
    return image.save(arguments[2]) ? 0 : 1;
}
