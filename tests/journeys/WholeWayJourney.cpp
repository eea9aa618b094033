#include "ViewJourney.h"

#include <AppConstants.h>

#include <QDomElement>
#include <QFile>
#include <QImage>
#include <QPainter>

using namespace ViewPlaces;

namespace {

const QString Default = QStringLiteral("Default Profile");
const QString Chess = QStringLiteral("Chess");
constexpr QPoint KeyG3 = onCanvas(560, 268);

/// The display name of the command that a profile has on a key in its first mode.
QString commandOn(const QDomElement& profile, const QString& key)
{
    QString id;
    const QDomNodeList assignments = profile.elementsByTagName("assignment");
    for (int i = 0; i < assignments.size(); ++i) {
        const QDomElement assignment = assignments.at(i).toElement();
        // Backups hold assignments as well.
        const QDomElement parent = assignment.parentNode().toElement();
        if (parent.tagName() == "assignments"
            && ViewJourney::Controller.startsWith(parent.attribute("category"))
            && assignment.attribute("contextid") == key && assignment.attribute("shiftstate") == "M1")
            id = assignment.attribute("macrouid");
    }
    const QDomNodeList macros = profile.elementsByTagName("macro");
    for (int i = 0; i < macros.size(); ++i) {
        const QDomElement macro = macros.at(i).toElement();
        if (macro.attribute("uid") == id)
            return macro.attribute("display_name");
    }
    return QString();
}

} // namespace

/// All that somebody does on the first day, in one go, and what is there on the second.
class WholeWayJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everythingIsAsItWasLeft();

    void cleanup();

private:
    static QString stored(const ViewJourney& journey, const QString& profile, const QString& key)
    {
        return commandOn(journey.storedProfiles().value(profile), key);
    }
    /// The whole canvas while there is no view on it.
    static QImage restingHome(ViewJourney& journey)
    {
        journey.moveTo(BareCanvas);
        return journey.restingPicture(CanvasArea);
    }
    /// What shows the state of profiles, commands and keys.
    static QImage restingView(ViewJourney& journey)
    {
        journey.moveTo(BareCanvas);
        const QImage desk = journey.restingPicture(DeskArea);
        const QImage tiles = journey.restingPicture(TileArea);
        QImage view(desk.width(), tiles.height() + desk.height(), desk.format());
        view.fill(Qt::black);
        QPainter painter(&view);
        painter.drawImage(0, 0, tiles);
        painter.drawImage(0, tiles.height(), desk);
        return view;
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
    restingView(journey);
    QVERIFY(journey.savePicture("whole-way-2-view.png"));
    QCOMPARE(journey.storedNames(), QStringList(Default));

    QVERIFY(stored(journey, Default, "G1") != "2");
    journey.drag(commandRow(1), KeyG1);
    QTRY_COMPARE(stored(journey, Default, "G1"), QString("2"));
    restingView(journey);
    QVERIFY(journey.savePicture("whole-way-3-assigned.png"));

    // The new profile is the current one and stands first.
    QVERIFY(journey.makeProfile(Chess));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    const QImage empty = restingView(journey);
    QVERIFY(journey.savePicture("whole-way-4-new-profile.png"));
    journey.click(tile(1));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Default));
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    QTRY_VERIFY(restingView(journey) == empty);

    // A command of the one goes to the other, and there onto a key.
    journey.click(tile(1));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Default));
    restingView(journey);
    const int commands = journey.macroCount(Default);
    const int before = journey.macroCount(Chess);
    journey.drag(commandRow(6), tile(0));
    QTRY_COMPARE(journey.macroCount(Chess), before + 1);
    QCOMPARE(journey.macroCount(Default), commands);
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    restingView(journey);
    journey.drag(commandRow(0), KeyG3);
    QTRY_COMPARE(stored(journey, Chess, "G3"), QString("A"));
    restingView(journey);
    QVERIFY(journey.savePicture("whole-way-5-second-profile.png"));

    // Who comes back to a profile finds none of its commands selected.
    journey.click(tile(1));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Default));
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    const QImage filled = restingView(journey);

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
    restingView(journey);
    journey.key("ctrl+z");
    QTRY_COMPARE(journey.storedNames(), QStringList({Chess, Default}));
    QCOMPARE(stored(journey, Chess, "G3"), QString("A"));
    QCOMPARE(journey.macroCount(Chess), before + 1);
    restingView(journey);
    journey.click(tile(0));
    QTRY_COMPARE(journey.setting("lastProfile"), journey.idOf(Chess));
    QTRY_VERIFY(restingView(journey) == filled);
    QVERIFY(journey.savePicture("whole-way-7-undone.png"));

    QVERIFY(journey.restart());
    QTRY_VERIFY(restingHome(journey) == device);
    journey.click(ViewButton);
    QTRY_VERIFY(restingView(journey) == filled);
    QVERIFY(journey.savePicture("whole-way-8-next-day.png"));
    QCOMPARE(journey.storedNames(), QStringList({Chess, Default}));
    QCOMPARE(stored(journey, Default, "G1"), QString("2"));
    QCOMPARE(stored(journey, Chess, "G3"), QString("A"));
    QCOMPARE(journey.macroCount(Chess), before + 1);
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(WholeWayJourney)
#include "WholeWayJourney.moc"
