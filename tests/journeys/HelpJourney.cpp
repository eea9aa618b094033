#include "Journey.h"

#include <TestCase.h>

/// F1 wherever the user is.
class HelpJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eachWindowOpensItsTopic();
    void contentsAndSearchLeadToPages();
};

void HelpJourney::eachWindowOpensItsTopic()
{
    Journey journey({"--device", "Veltrano.Gaming.Mouse.M5"});
    QVERIFY(journey.isRunning());
    const auto opensTopic = [&](const QString& title) {
        journey.key("F1");
        if (!journey.waitForWindow(title + " - Help"))
            return false;
        journey.key("Escape");
        return QTest::qWaitFor([&] { return Journey::countWindows("Help") == 0; }, 20000);
    };
    QVERIFY(opensTopic("Customizing G-keys"));

    journey.key("alt+m");
    journey.key("o");
    QVERIFY(journey.waitForWindow("On-board Memory"));
    QVERIFY(opensTopic("Profiles in the memory of a device"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("On-board Memory"), 0);

    journey.key("ctrl+p");
    QVERIFY(journey.waitForWindow("Print Profile"));
    QVERIFY(opensTopic("Printing"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("Print Profile"), 0);

    journey.key("alt+m");
    journey.key("c");
    QVERIFY(journey.waitForWindow("Script of"));
    QVERIFY(opensTopic("Scripts"));
    journey.key("alt+F4");
    QTRY_COMPARE(Journey::countWindows("Script of"), 0);

    journey.key("ctrl+q");
    QVERIFY(journey.waitForEnd());
    QVERIFY(!journey.hasCrashed());
    QCOMPARE(journey.errors(), QString());
}

void HelpJourney::contentsAndSearchLeadToPages()
{
    Journey journey;
    QVERIFY(journey.isRunning());
    journey.key("F1");
    QVERIFY(journey.waitForWindow("Customizing G-keys - Help"));
    QVERIFY(Journey::saveScreen("help-contents.png"));
    journey.key("ctrl+f");
    journey.type("pulled");
    QTRY_VERIFY((journey.key("Tab"), journey.key("Down"), journey.key("Return"),
        Journey::countWindows("Profiles in the memory of a device - Help") == 1));
    QVERIFY(Journey::saveScreen("help-search.png"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("Help"), 0);
    journey.key("ctrl+q");
    QVERIFY(journey.waitForEnd());
    QCOMPARE(journey.errors(), QString());
}

VELTRANO_TEST_MAIN(HelpJourney)
#include "HelpJourney.moc"
