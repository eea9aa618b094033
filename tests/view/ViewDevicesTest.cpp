#include "ViewFixture.h"

#include <cGraphicsItem.h>
#include <cGraphicsText.h>
#include <cPulseGlowImage.h>
#include <Gkey.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QGraphicsPixmapItem>

namespace {

// What the view makes of each device, item by item: keys in the order of the manifest, mode buttons, glows,
// the overlay.

const QStringList K13Items {
    "G1: polygon of 8 at 358,265 76x36; label at 355,257 70 to 72; key",
    "G2: polygon of 8 at 442,258 76x36; label at 439,250 70 to 72; key",
    "G3: polygon of 8 at 526,250 76x36; label at 523,242 70 to 72; key",
    "G4: polygon of 8 at 610,247 76x36; label at 607,239 70 to 72; key",
    "G5: polygon of 8 at 694,251 76x36; label at 691,243 70 to 72; key",
    "G6: polygon of 8 at 778,257 76x36; label at 775,249 70 to 72; key",
    "G7: polygon of 8 at 862,263 76x36; label at 859,255 70 to 72; key",
    "G8: polygon of 8 at 358,325 76x36; label at 355,317 70 to 72; key",
    "G9: polygon of 8 at 442,318 76x36; label at 439,310 70 to 72; key",
    "G10: polygon of 8 at 526,310 76x36; label at 523,302 70 to 72; key",
    "G11: polygon of 8 at 610,307 76x36; label at 607,299 70 to 72; key",
    "G12: polygon of 8 at 694,311 76x36; label at 691,303 70 to 72; key",
    "G13: polygon of 8 at 778,317 76x36; label at 775,309 70 to 72; key",
    "G14: polygon of 8 at 862,323 76x36; label at 859,315 70 to 72; key",
    "G15: polygon of 8 at 442,378 76x36; label at 439,370 70 to 72; key",
    "G16: polygon of 8 at 526,370 76x36; label at 523,362 70 to 72; key",
    "G17: polygon of 8 at 610,367 76x36; label at 607,359 70 to 72; key",
    "G18: polygon of 8 at 694,371 76x36; label at 691,363 70 to 72; key",
    "G19: polygon of 8 at 778,377 76x36; label at 775,369 70 to 72; key",
    "G20: polygon of 8 at 526,430 76x36; label at 523,422 70 to 72; key",
    "G21: polygon of 8 at 610,427 76x36; label at 607,419 70 to 72; key",
    "G22: polygon of 8 at 694,431 76x36; label at 691,423 70 to 72; key",
    "G25: pixmap; label at 724,572 80 to 82; line 814,573 to 858,533; stick-press",
    "G26: polygon of 11 at 839,463 66x29; label at 774,448 80 to 82; line 838,459 to 862,480; "
    "stick-direction",
    "G27: polygon of 11 at 893,480 29x66; label at 872,448 80 to 82; line 926,459 to 911,508; "
    "stick-direction",
    "G28: polygon of 11 at 839,534 66x29; label at 827,585 80 to 82; line 872,578 to 872,564; "
    "stick-direction",
    "G29: polygon of 11 at 822,480 29x66; label at 724,518 80 to 82; line 815,519 to 830,519; "
    "stick-direction",
    "M1 at 764,173",
    "M2 at 820,173",
    "M3 at 876,173",
    "glow at 346,234",
    "glow at 806,447",
    "glow at 806,447",
    "overlay at 820,461",
};

const QStringList M5Items {
    "G1: pixmap; label at 380,273 120 to 126; line 510,274 to 580,274; button; generic Left Click required "
    "hidden cannotbeunassigned",
    "G2: pixmap; label at 790,273 120 to 126; line 790,274 to 720,274; button; generic Right Click required "
    "hidden",
    "G3: polygon of 8 at 637,210 26x64; label at 588,168 110 to 114; line 650,179 to 650,232; button; "
    "generic Middle Click required hidden",
    "G4: polygon of 8 at 536,460 33x56; label at 380,493 120 to 126; line 510,494 to 541,494; button; "
    "generic Back required hidden",
    "G5: polygon of 8 at 535,402 34x52; label at 380,433 120 to 126; line 510,434 to 541,434; button; "
    "generic Forward required hidden",
    "G6: polygon of 8 at 535,357 33x39; label at 380,377 120 to 126; line 510,378 to 540,378; button; "
    "generic DPI Shift hidden",
    "G7: polygon of 8 at 632,356 36x34; label at 790,419 120 to 126; line 790,420 to 662,386; button; "
    "generic DPI Down required hidden",
    "G8: polygon of 8 at 632,314 36x34; label at 790,375 120 to 126; line 790,376 to 662,350; button; "
    "generic DPI Up required hidden",
    "G9: polygon of 4 at 615,212 18x60; label at 456,168 110 to 114; line 568,179 to 624,228; wheel-tilt; "
    "generic Scroll Left required hidden",
    "G10: polygon of 4 at 667,212 18x60; label at 720,168 110 to 114; line 732,179 to 676,228; wheel-tilt; "
    "generic Scroll Right required hidden",
    "glow at 520,178",
    "glow at 520,178",
};

const QStringList B18Items {
    "G1: polygon of 8 at 388,226 76x38; label at 385,218 70 to 72; key",
    "G2: polygon of 8 at 472,226 76x38; label at 469,218 70 to 72; key",
    "G3: polygon of 8 at 556,226 76x38; label at 553,218 70 to 72; key",
    "G4: polygon of 8 at 388,288 76x38; label at 385,280 70 to 72; key",
    "G5: polygon of 8 at 472,288 76x38; label at 469,280 70 to 72; key",
    "G6: polygon of 8 at 556,288 76x38; label at 553,280 70 to 72; key",
    "G7: polygon of 8 at 388,350 76x38; label at 385,342 70 to 72; key",
    "G8: polygon of 8 at 472,350 76x38; label at 469,342 70 to 72; key",
    "G9: polygon of 8 at 556,350 76x38; label at 553,342 70 to 72; key",
    "G10: polygon of 8 at 388,412 76x38; label at 385,404 70 to 72; key",
    "G11: polygon of 8 at 472,412 76x38; label at 469,404 70 to 72; key",
    "G12: polygon of 8 at 556,412 76x38; label at 553,404 70 to 72; key",
    "G13: polygon of 8 at 388,474 76x38; label at 385,466 70 to 72; key",
    "G14: polygon of 8 at 472,474 76x38; label at 469,466 70 to 72; key",
    "G15: polygon of 8 at 556,474 76x38; label at 553,466 70 to 72; key",
    "G16: polygon of 8 at 388,536 76x38; label at 385,528 70 to 72; key",
    "G17: polygon of 8 at 472,536 76x38; label at 469,528 70 to 72; key",
    "G18: polygon of 8 at 556,536 76x38; label at 553,528 70 to 72; key",
    "M1 at 388,166",
    "M2 at 448,166",
    "M3 at 508,166",
    "glow at 376,214",
};

QString placeText(const QPointF& place)
{
    return QStringLiteral("%1,%2").arg(place.x()).arg(place.y());
}

QString keyText(const Gkey& key)
{
    QString text = key.contextID() + ": ";
    if (key.shapeKind() == Gkey::PixmapShape) {
        text += "pixmap";
    } else {
        text += QStringLiteral("polygon of %1 at %2 %3x%4")
                    .arg(key.path().elementCount())
                    .arg(placeText(key.keyRect().topLeft()))
                    .arg(key.keyRect().width())
                    .arg(key.keyRect().height());
    }
    text += QStringLiteral("; label at %1 %2 to %3")
                .arg(placeText(key.labelPos()))
                .arg(key.labelMinWidth())
                .arg(key.labelMaxWidth());
    if (key.hasConnectLine())
        text += QStringLiteral("; line %1 to %2")
                    .arg(placeText(key.connectLineP1()), placeText(key.connectLineP2()));
    text += "; " + key.controlTypes().join(' ');
    if (!key.genericName().isEmpty()) {
        text += "; generic " + key.genericName();
        if (key.isGenericRequired())
            text += " required";
        if (key.isGenericHidden())
            text += " hidden";
        if (key.cannotBeUnassignedFlag())
            text += " cannotbeunassigned";
    }
    return text;
}

} // namespace

/// The scenes of the three devices that the application has.
class ViewDevicesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void sceneHoldsWhatTheManifestSays_data();
    void sceneHoldsWhatTheManifestSays();
};

void ViewDevicesTest::sceneHoldsWhatTheManifestSays_data()
{
    QTest::addColumn<QString>("alias");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QString>("hint");
    const QString keys = "Drag commands onto G-keys or profile icons";
    QTest::newRow("K13") << "K13Device" << K13Items << "Veltrano.Gaming.LeftHandedController" << keys;
    QTest::newRow("M5") << "M5Device" << M5Items << "Veltrano.Gaming.Mouse"
                        << "Drag commands onto buttons or profile icons";
    QTest::newRow("B18") << "B18Device" << B18Items << "Veltrano.Gaming.Keyboard" << keys;
}

void ViewDevicesTest::sceneHoldsWhatTheManifestSays()
{
    QFETCH(QString, alias);
    QFETCH(QStringList, items);
    QFETCH(QString, category);
    QFETCH(QString, hint);
    const QString folder = QStringLiteral(PROJECT_FOLDER "/host/devices/") + alias;
    QDir::setSearchPaths(alias, {folder});
    QFile manifest(folder + "/manifest.xml");
    QVERIFY(manifest.open(QFile::ReadOnly));
    ViewFixture fixture;
    fixture.open(manifest.readAll());

    QStringList found;
    for (const Gkey* key : fixture.items<Gkey>()) {
        found.append(keyText(*key));
        if (key->shapeKind() == Gkey::PixmapShape) {
            // Shape and rectangle come from the outline's picture.
            QVERIFY(!key->path().isEmpty());
            QCOMPARE(key->keyRect(), QRectF(key->boundingRect().toRect()));
        }
    }
    for (const cGraphicsItem* button : fixture.items<cGraphicsItem>()) {
        found.append(button->id() + " at " + placeText(button->pos()));
        QVERIFY(!button->boundingRect().isEmpty());
    }
    for (const cPulseGlowImage* glow : fixture.items<cPulseGlowImage>()) {
        found.append("glow at " + placeText(glow->pos()));
        QVERIFY(!glow->pixmap().isNull());
    }
    for (QGraphicsPixmapItem* picture : fixture.items<QGraphicsPixmapItem>()) {
        if (picture->parentItem() == fixture.rootItem() && !dynamic_cast<cPulseGlowImage*>(picture)) {
            found.append("overlay at " + placeText(picture->pos()));
            QVERIFY(!picture->pixmap().isNull());
        }
    }
    QDir::setSearchPaths(alias, {});
    QCOMPARE(found, items);
    QCOMPARE(fixture.view.getDeviceCategory(), category);
    QCOMPARE(fixture.item<cGraphicsText>()->text(), hint);
}

VELTRANO_TEST_MAIN(ViewDevicesTest)
#include "ViewDevicesTest.moc"
