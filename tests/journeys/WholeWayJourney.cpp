#include "ViewJourney.h"

#include <AppConstants.h>

#include <QFile>
#include <QImage>

using namespace ViewPlaces;

namespace {

const QString& Default = ViewJourney::DefaultProfile;
const QString Chess = QStringLiteral("Chess");
constexpr QPoint KeyG3 = onCanvas(560, 268);

} // namespace

/// All that somebody does on the first day, in one go, and what is there on the second.
class WholeWayJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsAsItWasLeft();

    void cleanup();

private:
    /// The whole canvas while there is no view on it.
    static QImage restingHome(ViewJourney& journey)
    {
        journey.moveTo(BareCanvas);
        return journey.restingPicture(CanvasArea);
    }
};

void WholeWayJourney::cleanup()
{
    if (QTest::currentTestFailed())
        QVERIFY(Journey::saveScreen("failed-whole-way.png"));
}

void WholeWayJourney::everythingIsAsItWasLeft()
{
    ViewJourney journey {QStringList()};
    QVERIFY2(journey.isRunning(), qPrintable(journey.errors()));
    QTRY_COMPARE(journey.picture().size(), AppConstants::WindowSize);
    const QImage first = restingHome(journey);
    journey.click(deviceButton(1));
    QTRY_VERIFY(restingHome(journey) != first);
    const QImage device = restingHome(journey);
    QVERIFY(journey.savePicture("whole-way-1-device.png"));
    journey.click(ViewButton);
    QTRY_VERIFY(journey.picture().copy(DeskArea) != device.copy(DeskArea.translated(-CanvasArea.topLeft())));
    journey.restingView();
    QVERIFY(journey.savePicture("whole-way-2-view.png"));
    QCOMPARE(journey.storedNames(), QStringList(Default));

    QVERIFY(journey.commandOn("M1 G1", Default) != "2");
    journey.drag(commandRow(1), KeyG1);
    QTRY_COMPARE(journey.commandOn("M1 G1", Default), QString("2"));
    journey.restingView();
    QVERIFY(journey.savePicture("whole-way-3-assigned.png"));

    // The new profile is the current one and stands first.
    QVERIFY(journey.makeProfile(Chess));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    const QImage empty = journey.restingView();
    QVERIFY(journey.savePicture("whole-way-4-new-profile.png"));
    journey.click(tile(1));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Default));
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    QTRY_VERIFY(journey.restingView() == empty);

    // A command of the one goes to the other, and there onto a key.
    journey.click(tile(1));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Default));
    journey.restingView();
    const int commands = journey.macroCount(Default);
    const int before = journey.macroCount(Chess);
    journey.drag(commandRow(6), tile(0));
    QTRY_COMPARE(journey.macroCount(Chess), before + 1);
    QCOMPARE(journey.macroCount(Default), commands);
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    journey.restingView();
    journey.drag(commandRow(0), KeyG3);
    QTRY_COMPARE(journey.commandOn("M1 G3", Chess), QString("A"));
    journey.restingView();
    QVERIFY(journey.savePicture("whole-way-5-second-profile.png"));

    // Who comes back to a profile finds none of its commands selected.
    journey.click(tile(1));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Default));
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    const QImage filled = journey.restingView();

    const QString path = journey.dataFile("chess.xml");
    journey.chooseInMenuOf(0, Export);
    QVERIFY(journey.giveFile("Export Profile", path));
    QTRY_VERIFY(QFile::exists(path));

    journey.click(tile(0));
    journey.key("Delete");
    QVERIFY(journey.waitForWindow("Delete Profile"));
    QVERIFY(journey.savePicture("whole-way-6-delete.png"));
    QVERIFY(journey.confirmDeletion());
    QTRY_COMPARE(journey.storedNames(), QStringList(Default));
    journey.restingView();
    journey.key("ctrl+z");
    QTRY_COMPARE(journey.storedNames(), QStringList({Chess, Default}));
    QCOMPARE(journey.commandOn("M1 G3", Chess), QString("A"));
    QCOMPARE(journey.macroCount(Chess), before + 1);
    journey.restingView();
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    QTRY_VERIFY(journey.restingView() == filled);
    QVERIFY(journey.savePicture("whole-way-7-undone.png"));

    QVERIFY(journey.restart());
    QTRY_VERIFY(restingHome(journey) == device);
    journey.click(ViewButton);
    QTRY_VERIFY(journey.restingView() == filled);
    QVERIFY(journey.savePicture("whole-way-8-next-day.png"));
    QCOMPARE(journey.storedNames(), QStringList({Chess, Default}));
    QCOMPARE(journey.commandOn("M1 G1", Default), QString("2"));
    QCOMPARE(journey.commandOn("M1 G3", Chess), QString("A"));
    QCOMPARE(journey.macroCount(Chess), before + 1);
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(WholeWayJourney)
#include "WholeWayJourney.moc"
