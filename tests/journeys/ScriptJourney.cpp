#include "Journey.h"

#include <FixedIds.h>
#include <ProfileStore.h>
#include <TestCase.h>

#include <QFile>

/// A script that never ends on its own.
class ScriptJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void endlessScriptIsStoppedAndTheMendedOneIsKept();
    void scriptEndsWithAnApplicationThatIsKilled();
};

void ScriptJourney::endlessScriptIsStoppedAndTheMendedOneIsKept()
{
    Journey journey;
    QVERIFY(journey.isRunning());
    QCOMPARE(journey.childProcesses(), QStringList());
    journey.key("alt+m");
    journey.key("c");
    QVERIFY(journey.waitForWindow("Script of Default Profile"));
    journey.type("while true do end");
    journey.key("F5");
    QTRY_COMPARE(journey.childProcesses().size(), 1);
    // The window is as quick as ever: what is typed arrives, and other windows open.
    journey.type(" -- on and on");
    QTRY_VERIFY(Journey::saveScreen("script-endless.png"));
    journey.key("F1");
    QVERIFY(journey.waitForWindow("Help"));
    journey.key("Escape");
    QTRY_COMPARE(Journey::countWindows("Help"), 0);
    // On a slow machine its time may be over by now. One that still runs is not run a second time.
    journey.key("F5");
    QTRY_COMPARE(journey.childProcesses().size(), 1);
    journey.key("shift+F5");
    QTRY_COMPARE(journey.childProcesses(), QStringList());

    journey.key("ctrl+a");
    journey.type("print('mended')");
    journey.key("F5");
    QTRY_COMPARE(journey.childProcesses(), QStringList());
    journey.key("ctrl+s");
    const QString document =
        journey.dataFile(QStringLiteral("profiles/") + ProfileStore::fileName(FixedIds::DefaultProfile));
    const auto isKept = [&] {
        QFile file(document);
        return file.open(QIODevice::ReadOnly) && file.readAll().contains("<script>print('mended')</script>");
    };
    QTRY_VERIFY(isKept());
    QVERIFY(Journey::saveScreen("script-mended.png"));

    journey.key("F5");
    journey.key("alt+F4");
    QTRY_COMPARE(Journey::countWindows("Script of"), 0);
    QVERIFY(journey.end());
}

void ScriptJourney::scriptEndsWithAnApplicationThatIsKilled()
{
    QString runner;
    {
        Journey journey;
        QVERIFY(journey.isRunning());
        journey.key("alt+m");
        journey.key("c");
        QVERIFY(journey.waitForWindow("Script of Default Profile"));
        journey.type("while true do end");
        journey.key("F5");
        QTRY_COMPARE(journey.childProcesses().size(), 1);
        runner = QStringLiteral("/proc/") + journey.childProcesses().constFirst();
        QVERIFY(QFile::exists(runner));
        // The journey's end kills the application.
    }
    QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(runner), 3000);
}

VELTRANO_TEST_MAIN(ScriptJourney)
#include "ScriptJourney.moc"
