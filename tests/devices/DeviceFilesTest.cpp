#include "DeviceTestCase.h"

#include <FixedIds.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QImage>
#include <QSet>

namespace {

/// What a control can be; a command's type says which of these it fits.
const QStringList ControlTypes {"key", "button", "wheel-tilt", "stick-direction", "stick-press"};

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

} // namespace

/// What each device's folder holds and what its manifest says, apart from places.
class DeviceFilesTest : public DeviceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void devicesAreThoseOfTheProduct();
    void manifestParses_data() { everyDevice(); }
    void manifestParses();
    void presentationIsComplete_data() { everyDevice(); }
    void presentationIsComplete();
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
    void modeButtonLooksDiffer_data() { everyDevice(); }
    void modeButtonLooksDiffer();
    void eachControlTypeHasItsGlow_data() { everyDevice(); }
    void eachControlTypeHasItsGlow();
    void mouseClicksAreRequired();
    void onlyTheControllerHasADisplay();
};

void DeviceFilesTest::devicesAreThoseOfTheProduct()
{
    QCOMPARE(DeviceScene::aliases(), QStringList({"B18Device", "K13Device", "M5Device"}));
}

void DeviceFilesTest::manifestParses()
{
    const DeviceScene& device = currentDevice();
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
    const DeviceScene& device = currentDevice();
    const QDomElement presentation = device.manifest().firstChildElement("presentation");
    QVERIFY(!presentation.attribute("name").isEmpty());
    QVERIFY(!presentation.attribute("short_name").isEmpty());
    QCOMPARE(QPixmap(presentation.attribute("icon")).size(), QSize(48, 48));
    QVERIFY2(QRectF(Canvas::Scene).contains(device.home()), "the picture leaves the home page");
}

void DeviceFilesTest::namedPicturesLoad()
{
    const DeviceScene& device = currentDevice();
    const QStringList pictures = namedPictures(device.manifest());
    QVERIFY(!pictures.isEmpty());
    for (const QString& picture : pictures) {
        QVERIFY2(picture.startsWith(device.alias() + ":/images/"), qPrintable(picture));
        QVERIFY2(!QPixmap(picture).isNull(), qPrintable(picture));
    }
}

void DeviceFilesTest::picturesAreThoseOfTheArtwork()
{
    const DeviceScene& device = currentDevice();
    QCOMPARE(baseNames(device.folder() + "/images", ".png"), baseNames(device.folder() + "/artwork", ".svg"));
}

void DeviceFilesTest::picturesHaveTheSizeOfTheirArtwork()
{
    const DeviceScene& device = currentDevice();
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
    const DeviceScene& device = currentDevice();
    QStringList used = namedPictures(device.manifest());
    // The view names this one itself.
    used << "K13Device:/images/K13_minijoystick_overlay.png";
    for (const QString& name : baseNames(device.folder() + "/images", ".png"))
        QVERIFY2(used.contains(device.alias() + ":/images/" + name + ".png"), qPrintable(name));
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
    const DeviceScene& device = currentDevice();
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
    const DeviceScene& device = currentDevice();
    QSet<QString> names;
    const QDomNodeList controls = device.manifest().elementsByTagName("control");
    for (int i = 0; i < controls.count(); ++i)
        names << controls.at(i).toElement().attribute("name");
    QCOMPARE(names.size(), device.controls().size());
    QVERIFY(!names.contains(QString()));
}

void DeviceFilesTest::modeButtonLooksDiffer()
{
    const DeviceScene& device = currentDevice();
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

void DeviceFilesTest::eachControlTypeHasItsGlow()
{
    const DeviceScene& device = currentDevice();
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

void DeviceFilesTest::mouseClicksAreRequired()
{
    const DeviceScene& device = deviceOf("M5Device");
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
    QCOMPARE(control(device, "G1").genericName, QString("Left Click"));
    QVERIFY(control(device, "G1").isGenericRequired);
    QCOMPARE(control(device, "G2").genericName, QString("Right Click"));
    QVERIFY(control(device, "G2").isGenericRequired);
}

void DeviceFilesTest::onlyTheControllerHasADisplay()
{
    for (const auto& [alias, device] : devices()) {
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
