#include <FixedIds.h>
#include <GKey.h>
#include <MKey.h>
#include <SettingsKeys.h>
#include <TestCase.h>

#include <QUrl>
#include <QUuid>

class ConstantsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fixedIdsAreUuidsInCapitals_data();
    void fixedIdsAreUuidsInCapitals();
    void namespacesDifferInTheirPathOnly();
    void stickHasKeys25To29();
    void firstModeIsZero();
    void settingsLieBelowOneBranch();
};

void ConstantsTest::fixedIdsAreUuidsInCapitals_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("{09D92D75-3C8C-4723-B06C-4090BCB899C0}") << QString(FixedIds::DefaultProfile);
    QTest::newRow("{8AE557B2-4775-4BC2-9877-DD627CE43692}") << QString(FixedIds::MouseMacro);
    QTest::newRow("{93F34A3F-7081-4D53-A99D-E858D4D86800}") << QString(FixedIds::JoystickMacro);
}

void ConstantsTest::fixedIdsAreUuidsInCapitals()
{
    QFETCH(QString, id);
    QCOMPARE(id, QString(QTest::currentDataTag()));
    QVERIFY(!QUuid(id).isNull());
    QCOMPARE(QUuid(id).toString().toUpper(), id);
}

void ConstantsTest::namespacesDifferInTheirPathOnly()
{
    const QUrl mouse(MacroNamespaces::MouseFunction);
    const QUrl media(MacroNamespaces::Media);
    const QUrl hotkeys(MacroNamespaces::Hotkeys);
    QCOMPARE(mouse.path(), QString("/Halvorine/2010.1/Macros/MouseFunction"));
    QCOMPARE(media.path(), QString("/Halvorine/2010.1/Macros/Media"));
    QCOMPARE(hotkeys.path(), QString("/Halvorine/2010.1/Macros/Hotkeys"));
    for (const QUrl& url : {mouse, media, hotkeys}) {
        QVERIFY(url.isValid());
        QVERIFY(!url.host().isEmpty());
        QCOMPARE(url.adjusted(QUrl::RemovePath), mouse.adjusted(QUrl::RemovePath));
    }
}

void ConstantsTest::stickHasKeys25To29()
{
    QCOMPARE(int(GKey::StickFirst), 25);
    QCOMPARE(int(GKey::StickLast), 29);
}

void ConstantsTest::firstModeIsZero()
{
    QCOMPARE(int(MKey::M1), 0);
}

void ConstantsTest::settingsLieBelowOneBranch()
{
    QCOMPARE(QString(SettingsKeys::AutoScannedForGames), QString("profiler/autoScannedForGames"));
    QCOMPARE(QString(SettingsKeys::LastProfile), QString("profiler/lastProfile"));
    QCOMPARE(QString(SettingsKeys::LastImportDir), QString("profiler/lastimportdir"));
    QCOMPARE(QString(SettingsKeys::LastExportDir), QString("profiler/lastexportdir"));
}

VELTRANO_TEST_MAIN(ConstantsTest)
#include "ConstantsTest.moc"
