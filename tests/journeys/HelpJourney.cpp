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
    QVERIFY(journey.opensHelp("Customizing G-keys"));

    journey.key("alt+m");
    journey.key("o");
    QVERIFY(journey.waitForWindow("On-board Memory"));
    QVERIFY(journey.opensHelp("Profiles in the memory of a device"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("On-board Memory"), 0);

    journey.key("ctrl+p");
    QVERIFY(journey.waitForWindow("Print Profile"));
    QVERIFY(journey.opensHelp("Printing"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("Print Profile"), 0);

    journey.key("alt+m");
    journey.key("c");
    QVERIFY(journey.waitForWindow("Script of"));
    QVERIFY(journey.opensHelp("Scripts"));
    journey.key("alt+F4");
    QTRY_COMPARE(Journey::countWindows("Script of"), 0);

    QVERIFY(journey.end());
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
    QVERIFY(journey.end());
}

VELTRANO_TEST_MAIN(HelpJourney)
#include "HelpJourney.moc"
