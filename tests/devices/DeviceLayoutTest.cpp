#include "DeviceTestCase.h"

#include <QImage>

namespace {

// A mode button grows by this factor while it pulses.
constexpr double PulseScale = 1.15;

// How far a label without a line may stand from its key, in pixels.
constexpr int LabelDistance = 6;

/// The area of a shape, in square pixels.
double size(const QPainterPath& shape)
{
    double twice = 0;
    const QList<QPolygonF> polygons = shape.simplified().toFillPolygons();
    for (const QPolygonF& polygon : polygons) {
        for (int i = 0; i + 1 < polygon.size(); ++i)
            twice += polygon[i].x() * polygon[i + 1].y() - polygon[i + 1].x() * polygon[i].y();
    }
    return qAbs(twice) / 2;
}

bool isVisible(const QPixmap& picture)
{
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 127)
                return true;
        }
    }
    return false;
}

} // namespace

/// Where the pictures, controls and labels of each device lie on the canvas.
class DeviceLayoutTest : public DeviceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictureStandsInsideTheDeviceArea_data() { everyDevice(); }
    void pictureStandsInsideTheDeviceArea();
    void hotspotsHaveRoomForTheirButton_data() { everyDevice(); }
    void hotspotsHaveRoomForTheirButton();
    void hotspotsDoNotOverlap_data() { everyDevice(); }
    void hotspotsDoNotOverlap();
    void contextButtonsLieOnTheirKeys_data() { everyDevice(); }
    void contextButtonsLieOnTheirKeys();
    void bothShapesAreUsed();
    void glowsOfPixmapControlsSurroundThem_data() { everyDevice(); }
    void glowsOfPixmapControlsSurroundThem();
    void labelsStayOnTheCanvas_data() { everyDevice(); }
    void labelsStayOnTheCanvas();
    void labelsCoverNothing_data() { everyDevice(); }
    void labelsCoverNothing();
    void linesJoinLabelAndKey_data() { everyDevice(); }
    void linesJoinLabelAndKey();
    void modeButtonsStandFree_data() { everyDevice(); }
    void modeButtonsStandFree();
    void pulseGlowsStayOnTheCanvas_data() { everyDevice(); }
    void pulseGlowsStayOnTheCanvas();
    void stickLiesUnderTheOverlay();
    void stickDirectionsLieAroundItsPress();
};

void DeviceLayoutTest::pictureStandsInsideTheDeviceArea()
{
    const DeviceScene& device = currentDevice();
    QVERIFY(QRectF(Canvas::DeviceArea).contains(device.transformed()));
}

void DeviceLayoutTest::hotspotsHaveRoomForTheirButton()
{
    const DeviceScene& device = currentDevice();
    for (const ControlPlace& control : device.controls()) {
        QVERIFY2(size(control.shape) >= Canvas::ContextButton.width() * Canvas::ContextButton.height(),
            qPrintable(control.id));
        QVERIFY2(QRectF(Canvas::DeviceArea).contains(control.shape.boundingRect()), qPrintable(control.id));
        QVERIFY2(device.transformed().contains(control.shape.boundingRect()), qPrintable(control.id));
    }
}

void DeviceLayoutTest::hotspotsDoNotOverlap()
{
    const DeviceScene& device = currentDevice();
    const QList<ControlPlace>& controls = device.controls();
    for (int i = 0; i < controls.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(!controls[i].shape.intersects(controls[j].shape),
                qPrintable(controls[j].id + " and " + controls[i].id));
    }
}

void DeviceLayoutTest::contextButtonsLieOnTheirKeys()
{
    const DeviceScene& device = currentDevice();
    for (const ControlPlace& control : device.controls()) {
        const QRectF bounds = control.shape.boundingRect().adjusted(-2, -2, 2, 2);
        QVERIFY2(bounds.contains(control.contextButton), qPrintable(control.id));
        QVERIFY2(control.shape.contains(control.contextButton.center()), qPrintable(control.id));
    }
}

void DeviceLayoutTest::bothShapesAreUsed()
{
    int pixmaps = 0;
    int polygons = 0;
    for (const auto& [alias, device] : devices()) {
        for (const ControlPlace& control : device.controls())
            ++(control.isPixmap ? pixmaps : polygons);
    }
    QVERIFY(pixmaps > 0);
    QVERIFY(polygons > 0);
}

void DeviceLayoutTest::glowsOfPixmapControlsSurroundThem()
{
    const DeviceScene& device = currentDevice();
    for (const ControlPlace& control : device.controls()) {
        if (!control.isPixmap)
            continue;
        QVERIFY2(isVisible(control.glow), qPrintable(control.id));
        const QRectF glow(control.glowPosition, QSizeF(control.glow.size()));
        const QRectF key = control.shape.boundingRect();
        QVERIFY2(glow.contains(key), qPrintable(control.id));
        QCOMPARE(glow.center(), key.center());
    }
}

void DeviceLayoutTest::labelsStayOnTheCanvas()
{
    const DeviceScene& device = currentDevice();
    for (const ControlPlace& control : device.controls()) {
        QVERIFY2(!control.labelAtRest.isEmpty(), qPrintable(control.id));
        QVERIFY2(control.labelGrown.contains(control.labelAtRest), qPrintable(control.id));
        QVERIFY2(Canvas::DeviceArea.contains(control.labelGrown), qPrintable(control.id));
        QVERIFY2(!Canvas::TrashCan.intersects(control.labelGrown), qPrintable(control.id));
        QVERIFY2(!control.shape.intersects(QRectF(Canvas::TrashCan)), qPrintable(control.id));
    }
}

void DeviceLayoutTest::labelsCoverNothing()
{
    const DeviceScene& device = currentDevice();
    const QList<ControlPlace>& controls = device.controls();
    for (const ControlPlace& labelled : controls) {
        for (const ControlPlace& other : controls) {
            const QString pair = labelled.id + " and " + other.id;
            QVERIFY2(!other.shape.intersects(QRectF(labelled.labelGrown)), qPrintable(pair));
            if (other.id != labelled.id)
                QVERIFY2(!labelled.labelGrown.intersects(other.labelGrown), qPrintable(pair));
        }
    }
}

void DeviceLayoutTest::linesJoinLabelAndKey()
{
    const DeviceScene& device = currentDevice();
    for (const ControlPlace& control : device.controls()) {
        const QRectF grown = control.labelGrown;
        if (control.line.isNull()) {
            const QRectF near = grown.adjusted(0, 0, 0, LabelDistance);
            QVERIFY2(control.shape.intersects(near), qPrintable(control.id + " needs a line"));
            continue;
        }
        QVERIFY2(grown.adjusted(-2, -2, 2, 2).contains(control.line.p1()), qPrintable(control.id));
        QVERIFY2(!QRectF(control.labelAtRest).adjusted(2, 2, -2, -2).contains(control.line.p1()),
            qPrintable(control.id + ": the line starts under the label"));
        QVERIFY2(control.shape.contains(control.line.p2()), qPrintable(control.id));
    }
}

void DeviceLayoutTest::modeButtonsStandFree()
{
    const DeviceScene& device = currentDevice();
    QList<QRectF> places;
    for (const PicturePlace& mode : device.modes()) {
        const QSizeF growth = QSizeF(mode.rect().size()) * ((PulseScale - 1) / 2);
        const QRectF place =
            QRectF(mode.rect()).adjusted(-growth.width(), -growth.height(), growth.width(), growth.height());
        QVERIFY2(QRectF(Canvas::DeviceArea).contains(place), qPrintable(mode.id));
        for (const ControlPlace& control : device.controls()) {
            QVERIFY2(!control.shape.intersects(place), qPrintable(mode.id + " and " + control.id));
            QVERIFY2(!QRectF(control.labelGrown).intersects(place), qPrintable(mode.id + ", " + control.id));
        }
        for (const QRectF& other : places)
            QVERIFY2(!other.intersects(place), qPrintable(mode.id));
        places << place;
    }
}

void DeviceLayoutTest::pulseGlowsStayOnTheCanvas()
{
    const DeviceScene& device = currentDevice();
    QVERIFY(!device.glows().isEmpty());
    for (const PicturePlace& glow : device.glows()) {
        QVERIFY2(isVisible(glow.pictures.first()), qPrintable(glow.id));
        QVERIFY2(Canvas::DeviceArea.contains(glow.rect()), qPrintable(glow.id));
        for (const ControlPlace& control : device.controls()) {
            if (control.types.contains(glow.type))
                QVERIFY2(QRectF(glow.rect()).contains(control.shape.boundingRect()), qPrintable(control.id));
        }
    }
}

void DeviceLayoutTest::stickLiesUnderTheOverlay()
{
    const DeviceScene& device = deviceOf("K13Device");
    const QPixmap overlay("K13Device:/images/K13_minijoystick_overlay.png");
    QVERIFY(isVisible(overlay));
    const QRectF place(Canvas::StickOverlay, QSizeF(overlay.size()));
    QVERIFY(QRectF(Canvas::DeviceArea).contains(place));
    for (const QString& id : numbered("G", 25, 29))
        QVERIFY2(place.contains(control(device, id).shape.boundingRect()), qPrintable(id));
    QCOMPARE(control(device, "G25").shape.boundingRect().center(), place.center());
}

void DeviceLayoutTest::stickDirectionsLieAroundItsPress()
{
    const DeviceScene& device = deviceOf("K13Device");
    const auto centre = [&](const char* id) {
        return control(device, id).shape.boundingRect().center();
    };
    const QPointF press = centre("G25");
    QVERIFY(centre("G26").y() < press.y());
    QVERIFY(centre("G27").x() > press.x());
    QVERIFY(centre("G28").y() > press.y());
    QVERIFY(centre("G29").x() < press.x());
    // The mouse command takes G26 to G29, so those have to be the directions.
    QCOMPARE(control(device, "G25").types, QStringList({"stick-press"}));
    for (const QString& id : numbered("G", 26, 29))
        QCOMPARE(control(device, id).types, QStringList({"stick-direction"}));
}

VELTRANO_TEST_MAIN(DeviceLayoutTest)
#include "DeviceLayoutTest.moc"
