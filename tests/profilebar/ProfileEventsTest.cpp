#include "Strip.h"

#include <cProfileItem.h>
#include <TestCase.h>
#include <TestPictures.h>

/// What the host tells of profiles, and what the tiles make of it.
class ProfileEventsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void addedProfileIsSelected();
    void addedProfileOfADeviceIsNot();
    void addedProfileHasTheIdOfItsEvent();
    void vanishedProfileIsNotAdded();
    void renamedProfileMovesAndStaysCurrent();
    void changedPropertyAsksForTheIcon();
    void eventsForUnknownProfilesAreIgnored();

    void deletionByTheHost_data();
    void deletionByTheHost();
    void deletionOfADeselectedCurrentMakesTheNextCurrent();
    void placeOfTheCurrentFollowsTheTiles();
};

void ProfileEventsTest::addedProfileIsSelected()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.add("Beta");
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.selected(), QStringList("Beta"));
    QCOMPARE(
        strip.host.takeRequests(), QStringList(R"(setPropertyString("profiler/lastProfile", "{Beta}"))"));
}

void ProfileEventsTest::addedProfileOfADeviceIsNot()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.add("Beta", "mouse-1");
    QCOMPARE(strip.names(), QStringList({"Alpha", "Beta", "Default"}));
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.tile("Beta")->deviceId(), QString("mouse-1"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
}

void ProfileEventsTest::addedProfileHasTheIdOfItsEvent()
{
    Strip strip({"Alpha"}, "Alpha");
    cJsonValue record;
    record["name"] = "Beta";
    strip.host.host.answer("getProfileByID", record);
    strip.host.host.publishProfileAdded("{Beta}");
    QCOMPARE(strip.list.profileId(1), QString("{Beta}"));
    QCOMPARE(strip.list.selectedProfileIds(), QStringList("{Beta}"));
}

void ProfileEventsTest::vanishedProfileIsNotAdded()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.host.publishProfileAdded("{gone}");
    QCOMPARE(strip.names(), QStringList("Alpha"));
}

void ProfileEventsTest::renamedProfileMovesAndStaysCurrent()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.host.rename("{Alpha}", "Zulu");
    QCOMPARE(strip.names(), QStringList({"Beta", "Default", "Zulu"}));
    QCOMPARE(strip.selected(), QStringList("Alpha"));
    QCOMPARE(strip.list.profileId(2), QString("{Alpha}"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
    const auto* tile = qobject_cast<cProfileItem*>(strip.list.itemWidget(strip.list.item(2)));
    QCOMPARE(tile->name(), QString("Zulu"));
    QCOMPARE(tile->toolTip(), QString("Zulu"));
}

void ProfileEventsTest::changedPropertyAsksForTheIcon()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.profile("{Alpha}").icon = filledPicture(48, 48, Qt::red);
    strip.host.host.publishProfilePropertyChanged("{Alpha}");
    QCOMPARE(strip.host.host.takeCalls(),
        QStringList({R"(getProfileByID("{Alpha}"))", R"(profileIcon("{Alpha}"))"}));
    QVERIFY(isFilled(strip.tile("Alpha")->icon().toImage(), QRect(0, 0, 48, 48), Qt::red));
}

void ProfileEventsTest::eventsForUnknownProfilesAreIgnored()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.host.publishProfilePropertyChanged("{nobody}");
    strip.host.host.publishProfileDeleted("{nobody}");
    QCOMPARE(strip.names(), QStringList("Alpha"));
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
}

void ProfileEventsTest::deletionByTheHost_data()
{
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QStringList>("next");
    QTest::newRow("first") << "A"
                           << "A" << QStringList("B");
    QTest::newRow("in the middle") << "B"
                                   << "B" << QStringList("C");
    QTest::newRow("last") << "D"
                          << "D" << QStringList("C");
    QTest::newRow("before the current") << "C"
                                        << "A" << QStringList("C");
    QTest::newRow("behind the current") << "C"
                                        << "D" << QStringList("C");
}

void ProfileEventsTest::deletionByTheHost()
{
    QFETCH(QString, current);
    QFETCH(QString, deleted);
    QFETCH(QStringList, next);
    Strip strip({"A", "B", "C", "D"}, current);
    strip.host.remove(ProfileHost::idOf(deleted));
    QTRY_COMPARE(strip.current(), next);
    QCOMPARE(strip.selected(), next);
    QCOMPARE(strip.list.count(), 3);
    // One profile changed hands at most once.
    QCOMPARE(strip.host.takeRequests().size(), current == deleted ? 1 : 0);
    QTest::qWait(10);
    QCOMPARE(strip.host.takeRequests().size(), 0);
}

void ProfileEventsTest::deletionOfADeselectedCurrentMakesTheNextCurrent()
{
    Strip strip({"A", "B", "C"}, "B");
    strip.click("B", Qt::ControlModifier);
    strip.host.remove("{B}");
    QTRY_COMPARE(strip.current(), QStringList("C"));
    // And of the only one nothing is left.
    strip.host.remove("{A}");
    strip.host.remove("{C}");
    QTest::qWait(10);
    QCOMPARE(strip.list.count(), 0);
    QVERIFY(strip.list.selectedProfileIds().isEmpty());
    strip.host.add("New");
    QCOMPARE(strip.current(), QStringList("New"));
}

void ProfileEventsTest::placeOfTheCurrentFollowsTheTiles()
{
    Strip strip({"C", "D", "E", "F", "G"}, "E");
    strip.host.remove("{C}");
    strip.host.put("A", "device");
    strip.host.host.publishProfileAdded("{A}");
    strip.host.rename("{D}", "X");
    QCOMPARE(strip.names(), QStringList({"A", "E", "F", "G", "X"}));
    strip.host.remove("{E}");
    QTRY_COMPARE(strip.current(), QStringList("F"));
}

VELTRANO_TEST_MAIN(ProfileEventsTest)
#include "ProfileEventsTest.moc"
