#include "Journey.h"

#include <TestCase.h>

#include <QSet>

class GalleryJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void galleryShowsTheWidgets();
};

void GalleryJourney::galleryShowsTheWidgets()
{
    Journey journey(QStringLiteral(JOURNEY_GALLERY), {}, QStringLiteral("Scene Gallery"));
    QVERIFY2(journey.isRunning(), qPrintable(journey.errors()));
    // The widgets are many-coloured; a window that shows none of them has the canvas's colour and a few
    // greys.
    const auto colors = [&] {
        const QImage picture = journey.picture();
        QSet<QRgb> seen;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                seen.insert(picture.pixel(x, y));
        }
        return seen.size();
    };
    QTRY_VERIFY(colors() > 500);
    QVERIFY(journey.savePicture(QStringLiteral("gallery.png")));
    journey.key(QStringLiteral("alt+F4"));
    QVERIFY(journey.waitForEnd());
    QVERIFY(!journey.hasCrashed());
    QCOMPARE(journey.errors(), QString());
}

VELTRANO_TEST_MAIN(GalleryJourney)
#include "GalleryJourney.moc"
