#include "DeviceScene.h"

#include <FixedIds.h>
#include <TestCase.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QImage>
#include <QSet>

#include <algorithm>
#include <map>

namespace {

/// What a control can be; a command's type says which of these it fits.
const QStringList ControlTypes {"key", "button", "wheel-tilt", "stick-direction", "stick-press"};
// A mode button grows by this factor while it pulses.
constexpr double PulseScale = 1.15;
// How far a label without a line may stand from its key, in pixels.
constexpr int LabelDistance = 6;

QStringList numbered(const QString& letter, int first, int last)
{
    QStringList ids;
    for (int i = first; i <= last; ++i)
        ids << letter + QString::number(i);
    return ids;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

QStringList idsOf(const QList<ControlPlace>& controls)
{
    QStringList ids;
    for (const ControlPlace& control : controls)
        ids << control.id;
    return ids;
}

const ControlPlace& find(const DeviceScene& device, const QString& id)
{
    const QList<ControlPlace>& controls = device.controls();
    return *std::find_if(
        controls.begin(), controls.end(), [&](const ControlPlace& control) { return control.id == id; });
}

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

/// The values of all attributes in the element and below it that name a picture.
QStringList namedPictures(const QDomElement& element)
{
    QStringList found;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString value = attributes.item(i).nodeValue();
        if (value.endsWith(QLatin1String(".png")))
            found << value;
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        found << namedPictures(child);
    return found;
}

QStringList baseNames(const QString& folder, const QString& ending)
{
    QStringList names = QDir(folder).entryList({"*" + ending}, QDir::Files, QDir::Name);
    for (QString& name : names)
        name.chop(ending.size());
    return names;
}

/// The mean brightness of a picture's visible pixels, 0 to 255.
double brightness(const QPixmap& picture)
{
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    double sum = 0;
    double weight = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            sum += qGray(pixel) * qAlpha(pixel);
            weight += qAlpha(pixel);
        }
    }
    return weight > 0 ? sum / weight : 0;
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

/// The files of the devices: what the host and the view find when they read them.
class DeviceFilesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void devicesAreThoseOfTheProduct();

    void manifestParses_data() { everyDevice(); }
    void manifestParses();
    void presentationIsComplete_data() { everyDevice(); }
    void presentationIsComplete();
    void pictureStandsInsideTheDeviceArea_data() { everyDevice(); }
    void pictureStandsInsideTheDeviceArea();
    void namedPicturesLoad_data() { everyDevice(); }
    void namedPicturesLoad();
    void picturesAreThoseOfTheArtwork_data() { everyDevice(); }
    void picturesAreThoseOfTheArtwork();
    void picturesHaveTheSizeOfTheirArtwork_data() { everyDevice(); }
    void picturesHaveTheSizeOfTheirArtwork();
    void noPictureIsWithoutUse_data() { everyDevice(); }
    void noPictureIsWithoutUse();

    void controlsAreComplete_data();
    void controlsAreComplete();
    void controlsHaveNames_data() { everyDevice(); }
    void controlsHaveNames();
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
    void modeButtonLooksDiffer_data() { everyDevice(); }
    void modeButtonLooksDiffer();
    void pulseGlowsStayOnTheCanvas_data() { everyDevice(); }
    void pulseGlowsStayOnTheCanvas();
    void eachControlTypeHasItsGlow_data() { everyDevice(); }
    void eachControlTypeHasItsGlow();

    void stickLiesUnderTheOverlay();
    void stickDirectionsLieAroundItsPress();
    void mouseClicksAreRequired();
    void onlyTheControllerHasADisplay();

private:
    void everyDevice();

    std::map<QString, DeviceScene> m_devices;
};

#define DEVICE()                                                                                             \
    QFETCH(QString, alias);                                                                                  \
    const DeviceScene& device = m_devices.at(alias)

void DeviceFilesTest::initTestCase()
{
    TestCase::initTestCase();
    for (const QString& alias : DeviceScene::aliases())
        m_devices.emplace(alias, DeviceScene(alias));
}

void DeviceFilesTest::everyDevice()
{
    QTest::addColumn<QString>("alias");
    for (const auto& [alias, device] : m_devices)
        QTest::newRow(qPrintable(alias)) << alias;
}

void DeviceFilesTest::devicesAreThoseOfTheProduct()
{
    QCOMPARE(DeviceScene::aliases(), QStringList({"B18Device", "K13Device", "M5Device"}));
}

void DeviceFilesTest::manifestParses()
{
    DEVICE();
    QFile file(device.folder() + "/manifest.xml");
    QVERIFY(file.open(QFile::ReadOnly));
    QDomDocument document;
    QString error;
    QVERIFY2(document.setContent(&file, &error), qPrintable(error));
    QCOMPARE(document.documentElement().tagName(), QString("device"));

    const cJsonValue record = device.record();
    QVERIFY(record["device_model"].toString().startsWith(record["profiler"]["category"].toString() + '.'));
    QCOMPARE(record["view_id"].toString(), QString("macrobinding_view"));
}

void DeviceFilesTest::presentationIsComplete()
{
    DEVICE();
    const QDomElement presentation = device.manifest().firstChildElement("presentation");
    QVERIFY(!presentation.attribute("name").isEmpty());
    QVERIFY(!presentation.attribute("short_name").isEmpty());
    QCOMPARE(QPixmap(presentation.attribute("icon")).size(), QSize(48, 48));
    QVERIFY2(QRectF(Canvas::Scene).contains(device.home()), "the picture leaves the home page");
}

void DeviceFilesTest::pictureStandsInsideTheDeviceArea()
{
    DEVICE();
    QVERIFY(QRectF(Canvas::DeviceArea).contains(device.transformed()));
}

void DeviceFilesTest::namedPicturesLoad()
{
    DEVICE();
    const QStringList pictures = namedPictures(device.manifest());
    QVERIFY(!pictures.isEmpty());
    for (const QString& picture : pictures) {
        QVERIFY2(picture.startsWith(alias + ":/images/"), qPrintable(picture));
        QVERIFY2(!QPixmap(picture).isNull(), qPrintable(picture));
    }
}

void DeviceFilesTest::picturesAreThoseOfTheArtwork()
{
    DEVICE();
    QCOMPARE(baseNames(device.folder() + "/images", ".png"), baseNames(device.folder() + "/artwork", ".svg"));
}

void DeviceFilesTest::picturesHaveTheSizeOfTheirArtwork()
{
    DEVICE();
    for (const QString& name : baseNames(device.folder() + "/artwork", ".svg")) {
        QFile file(device.folder() + "/artwork/" + name + ".svg");
        QVERIFY(file.open(QFile::ReadOnly));
        QDomDocument document;
        QVERIFY2(document.setContent(&file), qPrintable(name));
        const QDomElement svg = document.documentElement();
        const QSize size(svg.attribute("width").toInt(), svg.attribute("height").toInt());
        QVERIFY2(QImage(device.folder() + "/images/" + name + ".png").size() == size, qPrintable(name));
    }
}

void DeviceFilesTest::noPictureIsWithoutUse()
{
    DEVICE();
    QStringList used = namedPictures(device.manifest());
    // The view names this one itself.
    used << "K13Device:/images/K13_minijoystick_overlay.png";
    for (const QString& name : baseNames(device.folder() + "/images", ".png"))
        QVERIFY2(used.contains(alias + ":/images/" + name + ".png"), qPrintable(name));
}

void DeviceFilesTest::controlsAreComplete_data()
{
    QTest::addColumn<QString>("alias");
    QTest::addColumn<QStringList>("controls");
    QTest::addColumn<QStringList>("modes");
    const QStringList modes = numbered("M", 1, 3);
    QTest::newRow("controller") << "K13Device" << numbered("G", 1, 22) + numbered("G", 25, 29) << modes;
    QTest::newRow("mouse") << "M5Device" << numbered("G", 1, 10) << QStringList();
    QTest::newRow("keyboard") << "B18Device" << numbered("G", 1, 18) << modes;
}

void DeviceFilesTest::controlsAreComplete()
{
    DEVICE();
    QFETCH(QStringList, controls);
    QFETCH(QStringList, modes);
    QCOMPARE(sorted(idsOf(device.controls())), sorted(controls));
    QStringList found;
    for (const PicturePlace& mode : device.modes())
        found << mode.id;
    QCOMPARE(found, modes);
}

void DeviceFilesTest::controlsHaveNames()
{
    DEVICE();
    QSet<QString> names;
    const QDomNodeList controls = device.manifest().elementsByTagName("control");
    for (int i = 0; i < controls.count(); ++i)
        names << controls.at(i).toElement().attribute("name");
    QCOMPARE(names.size(), device.controls().size());
    QVERIFY(!names.contains(QString()));
}

void DeviceFilesTest::hotspotsHaveRoomForTheirButton()
{
    DEVICE();
    for (const ControlPlace& control : device.controls()) {
        QVERIFY2(size(control.shape) >= Canvas::ContextButton.width() * Canvas::ContextButton.height(),
            qPrintable(control.id));
        QVERIFY2(QRectF(Canvas::DeviceArea).contains(control.shape.boundingRect()), qPrintable(control.id));
        QVERIFY2(device.transformed().contains(control.shape.boundingRect()), qPrintable(control.id));
    }
}

void DeviceFilesTest::hotspotsDoNotOverlap()
{
    DEVICE();
    const QList<ControlPlace>& controls = device.controls();
    for (int i = 0; i < controls.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY2(!controls[i].shape.intersects(controls[j].shape),
                qPrintable(controls[j].id + " and " + controls[i].id));
    }
}

void DeviceFilesTest::contextButtonsLieOnTheirKeys()
{
    DEVICE();
    for (const ControlPlace& control : device.controls()) {
        const QRectF bounds = control.shape.boundingRect().adjusted(-2, -2, 2, 2);
        QVERIFY2(bounds.contains(control.contextButton), qPrintable(control.id));
        QVERIFY2(control.shape.contains(control.contextButton.center()), qPrintable(control.id));
    }
}

void DeviceFilesTest::bothShapesAreUsed()
{
    int pixmaps = 0;
    int polygons = 0;
    for (const auto& [alias, device] : m_devices) {
        for (const ControlPlace& control : device.controls())
            ++(control.isPixmap ? pixmaps : polygons);
    }
    QVERIFY(pixmaps > 0);
    QVERIFY(polygons > 0);
}

void DeviceFilesTest::glowsOfPixmapControlsSurroundThem()
{
    DEVICE();
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

void DeviceFilesTest::labelsStayOnTheCanvas()
{
    DEVICE();
    for (const ControlPlace& control : device.controls()) {
        QVERIFY2(!control.labelAtRest.isEmpty(), qPrintable(control.id));
        QVERIFY2(control.labelGrown.contains(control.labelAtRest), qPrintable(control.id));
        QVERIFY2(Canvas::DeviceArea.contains(control.labelGrown), qPrintable(control.id));
        QVERIFY2(!Canvas::TrashCan.intersects(control.labelGrown), qPrintable(control.id));
        QVERIFY2(!control.shape.intersects(QRectF(Canvas::TrashCan)), qPrintable(control.id));
    }
}

void DeviceFilesTest::labelsCoverNothing()
{
    DEVICE();
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

void DeviceFilesTest::linesJoinLabelAndKey()
{
    DEVICE();
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

void DeviceFilesTest::modeButtonsStandFree()
{
    DEVICE();
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

void DeviceFilesTest::modeButtonLooksDiffer()
{
    DEVICE();
    for (const PicturePlace& mode : device.modes()) {
        const double normal = brightness(mode.pictures[0]);
        const double hover = brightness(mode.pictures[1]);
        const double on = brightness(mode.pictures[2]);
        for (const QPixmap& picture : mode.pictures)
            QCOMPARE(picture.size(), mode.rect().size());
        // Told apart in grey, too: each is clearly brighter than the one before.
        QVERIFY2(hover > normal + 10 && on > hover + 10,
            qPrintable(QString("%1: %2 %3 %4").arg(mode.id).arg(normal).arg(hover).arg(on)));
    }
}

void DeviceFilesTest::pulseGlowsStayOnTheCanvas()
{
    DEVICE();
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

void DeviceFilesTest::eachControlTypeHasItsGlow()
{
    DEVICE();
    QStringList lit;
    for (const PicturePlace& glow : device.glows())
        lit << glow.type;
    QSet<QString> used;
    for (const ControlPlace& control : device.controls()) {
        QVERIFY2(!control.types.isEmpty(), qPrintable(control.id));
        for (const QString& type : control.types) {
            QVERIFY2(ControlTypes.contains(type), qPrintable(type));
            used << type;
        }
    }
    QCOMPARE(sorted(lit), sorted(used.values()));
}

void DeviceFilesTest::stickLiesUnderTheOverlay()
{
    const DeviceScene& device = m_devices.at("K13Device");
    const QPixmap overlay("K13Device:/images/K13_minijoystick_overlay.png");
    QVERIFY(isVisible(overlay));
    const QRectF place(Canvas::StickOverlay, QSizeF(overlay.size()));
    QVERIFY(QRectF(Canvas::DeviceArea).contains(place));
    for (const QString& id : numbered("G", 25, 29))
        QVERIFY2(place.contains(find(device, id).shape.boundingRect()), qPrintable(id));
    QCOMPARE(find(device, "G25").shape.boundingRect().center(), place.center());
}

void DeviceFilesTest::stickDirectionsLieAroundItsPress()
{
    const DeviceScene& device = m_devices.at("K13Device");
    const auto centre = [&](const char* id) {
        return find(device, id).shape.boundingRect().center();
    };
    const QPointF press = centre("G25");
    QVERIFY(centre("G26").y() < press.y());
    QVERIFY(centre("G27").x() > press.x());
    QVERIFY(centre("G28").y() > press.y());
    QVERIFY(centre("G29").x() < press.x());
    // The mouse command takes G26 to G29, so those have to be the directions.
    QCOMPARE(find(device, "G25").types, QStringList({"stick-press"}));
    for (const QString& id : numbered("G", 26, 29))
        QCOMPARE(find(device, id).types, QStringList({"stick-direction"}));
}

void DeviceFilesTest::mouseClicksAreRequired()
{
    const DeviceScene& device = m_devices.at("M5Device");
    QCOMPARE(device.record()["profiler"]["category"].toString(), QString(DeviceIds::MouseCategory));
    QSet<QString> names;
    for (const ControlPlace& control : device.controls()) {
        QCOMPARE(control.genericType, QString(MacroNamespaces::MouseFunction));
        QVERIFY2(!control.genericName.isEmpty(), qPrintable(control.id));
        QVERIFY2(control.isGenericHidden, qPrintable(control.id));
        QCOMPARE(control.cannotBeUnassigned, control.id == QLatin1String("G1"));
        names << control.genericName;
    }
    QCOMPARE(names.size(), device.controls().size());
    QCOMPARE(find(device, "G1").genericName, QString("Left Click"));
    QVERIFY(find(device, "G1").isGenericRequired);
    QCOMPARE(find(device, "G2").genericName, QString("Right Click"));
    QVERIFY(find(device, "G2").isGenericRequired);
}

void DeviceFilesTest::onlyTheControllerHasADisplay()
{
    for (const auto& [alias, device] : m_devices) {
        const QDomElement lcd = device.manifest().firstChildElement("lcd");
        const bool isController = device.record()["device_model"].toString() == DeviceIds::K13Model;
        QCOMPARE(!lcd.isNull(), isController);
        if (isController) {
            QCOMPARE(lcd.attribute("width"), QString("160"));
            QCOMPARE(lcd.attribute("height"), QString("43"));
        }
    }
}

VELTRANO_TEST_MAIN(DeviceFilesTest)
#include "DeviceFilesTest.moc"
