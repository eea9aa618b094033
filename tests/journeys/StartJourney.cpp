#include "Journey.h"
#include "ViewPlaces.h"

#include <TestCase.h>

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>

#include <tuple>
#include <utility>

using namespace AppConstants;
using namespace ViewPlaces;

namespace {

/// How much of an area two pictures must differ in to be told apart, as a share of its pixels.
constexpr double VisibleShare = 0.02;

double differingShare(const QImage& a, const QImage& b, const QRect& area)
{
    if (a.size() != b.size())
        return 1.0;
    int differing = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            differing += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return double(differing) / (double(area.width()) * area.height());
}

/// Where nothing reacts to the pointer.
constexpr QPoint NeutralPoint(SceneSize.width() / 2, HeaderHeight / 2);

} // namespace

/// The first minute with the application.
class StartJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void deviceIsChosenAndItsViewOpenedClosedAndReopened();
    void brokenPluginIsToldInTheWindow();
    void versionAndHelpNeedNoDisplay();
    void menuMessagesAndHelpOpenByKeyboard();
};

void StartJourney::deviceIsChosenAndItsViewOpenedClosedAndReopened()
{
    Journey journey;
    QVERIFY(journey.isRunning());
    const auto isShown = [&](const QImage& before) {
        return differingShare(journey.picture(), before, CanvasArea) > VisibleShare;
    };
    // The same picture twice in a row: what moved has come to rest.
    const auto restingPicture = [&] {
        QImage last = journey.picture();
        std::ignore = QTest::qWaitFor([&] {
            QTest::qWait(2 * TransformTime);
            return std::exchange(last, journey.picture()) == last;
        });
        return last;
    };
    QTRY_COMPARE(journey.picture().size(), WindowSize);
    const QImage firstDevice = restingPicture();
    QVERIFY(journey.savePicture("start-home.png"));

    journey.click(deviceButton(1));
    journey.click(NeutralPoint);
    QTRY_VERIFY(isShown(firstDevice));
    const QImage home = restingPicture();
    QVERIFY(journey.savePicture("start-device.png"));

    journey.click(ViewButton);
    journey.click(NeutralPoint);
    QTRY_VERIFY(isShown(home));
    const QImage view = restingPicture();
    QVERIFY(journey.savePicture("start-view.png"));

    journey.click(ViewButton);
    journey.click(NeutralPoint);
    QTRY_VERIFY(isShown(view));
    QTRY_VERIFY(differingShare(journey.picture(), home, CanvasArea) < VisibleShare);

    // Once more, this time by keyboard.
    journey.key("alt+1");
    QTRY_VERIFY(isShown(home));
    QTRY_VERIFY(differingShare(journey.picture(), view, CanvasArea) < VisibleShare);
    QVERIFY(journey.savePicture("start-view-again.png"));

    QVERIFY(journey.end());
    QVERIFY(QFile::exists(journey.dataFile("settings.json")));
}

void StartJourney::brokenPluginIsToldInTheWindow()
{
    Journey journey({"--plugin", "/nonexistent/libBroken.so"});
    QVERIFY(journey.isRunning());
    QTRY_COMPARE(journey.picture().size(), WindowSize);
    // The strip has an amber edge.
    const auto showsStrip = [&] {
        const QImage picture = journey.picture();
        const int x = WindowSize.width() / 2;
        for (int y = CanvasArea.bottom(); y > CanvasArea.bottom() - 200; --y) {
            const QColor color = picture.pixelColor(x, y);
            if (color.red() > 180 && color.red() - color.blue() > 80)
                return true;
        }
        return false;
    };
    QTRY_VERIFY(showsStrip());
    QVERIFY(journey.savePicture("start-broken-plugin.png"));
    journey.key("ctrl+q");
    QVERIFY(journey.waitForEnd());
    QCOMPARE(journey.exitCode(), 0);
}

void StartJourney::versionAndHelpNeedNoDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    for (const auto& [option, text] :
        {std::pair("--version", "Veltrano Gaming "), std::pair("--help", "--screenshots")}) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(JOURNEY_APPLICATION), {QLatin1String(option)});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardOutput().contains(text));
        QCOMPARE(process.readAllStandardError(), QByteArray());
    }
}

void StartJourney::menuMessagesAndHelpOpenByKeyboard()
{
    Journey journey;
    QVERIFY(journey.isRunning());
    QTRY_COMPARE(journey.picture().size(), WindowSize);
    const QImage before = Journey::screen();
    journey.key("alt+m");
    QTRY_VERIFY(differingShare(Journey::screen(), before, before.rect()) > 0.01);
    QVERIFY(Journey::saveScreen("start-menu.png"));
    journey.key("a");
    QVERIFY(journey.waitForWindow("About"));
    QVERIFY(Journey::saveScreen("start-about.png"));
    journey.key("Return");
    QTRY_VERIFY(differingShare(Journey::screen(), before, before.rect()) < 0.01);
    journey.key("F1");
    QVERIFY(journey.waitForWindow("Help"));
    QVERIFY(Journey::saveScreen("start-help.png"));
    journey.key("Escape");
    QTRY_VERIFY(differingShare(Journey::screen(), before, before.rect()) < 0.01);
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(StartJourney)
#include "StartJourney.moc"
