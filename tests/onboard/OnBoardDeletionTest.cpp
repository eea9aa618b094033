#include "OnBoardTestCase.h"

#include <OrdinaryUser.h>
#include <ProfileStore.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <optional>
#include <utility>

/// Profiles that the user deletes while a device holds them.
class OnBoardDeletionTest : public OnBoardTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void deletedProfileLeavesTheDevice();
    void profileThatWasDeletedMeanwhileGoesWhenTheDeviceComesBack();
    void profileThatWasDeletedMeanwhileStaysAwayAfterARestart_data();
    void profileThatWasDeletedMeanwhileStaysAwayAfterARestart();
    void profileThatWasDeletedWhileItIsWrittenLeavesTheDevice();
    void undoneDeletionLeavesTheProfileOnTheDevice();
    void profileThatCantBeRemovedIsToldOnce();
    void profileThatCantBeRemovedIsTriedAgainUponAnOccasion_data();
    void profileThatCantBeRemovedIsTriedAgainUponAnOccasion();

private:
    QString folderOfTheTest() const { return QFileInfo(memoryPath() + "/../..").canonicalFilePath(); }
};

void OnBoardDeletionTest::deletedProfileLeavesTheDevice()
{
    const QString doomed = copyToMouse(Local);
    const QString other = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    profiles().setProfileScript(other, "print(3)");
    takeEvents();
    QVERIFY(profiles().deleteProfileByID(doomed));
    waitUntilIdle();
    QCOMPARE(takeEvents(), QStringList({"Busy The Mouse " + Mouse + " writing", "Idle " + Mouse}));
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(other)}));
    // Nobody asked for the other one to be written.
    QVERIFY(profiles().isProfileToGoDirty(other));
    QVERIFY(profiles().deleteProfileByID(Local));
    QCOMPARE(takeEvents(), QStringList());
}

void OnBoardDeletionTest::profileThatWasDeletedMeanwhileGoesWhenTheDeviceComesBack()
{
    const QString doomed = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    service().setConnected(Mouse, false);
    QVERIFY(profiles().deleteProfileByID(doomed));
    service().setConnected(Mouse, true);
    QTRY_COMPARE(documents(), QStringList());
    QVERIFY(profiles().getProfileByID(doomed).isNull());
    QCOMPARE(takeProblems(), QStringList());
}

void OnBoardDeletionTest::profileThatWasDeletedMeanwhileStaysAwayAfterARestart_data()
{
    QTest::addColumn<bool>("isAwaySinceTheStart");
    QTest::newRow("pulled since") << false;
    QTest::newRow("away since the start") << true;
}

void OnBoardDeletionTest::profileThatWasDeletedMeanwhileStaysAwayAfterARestart()
{
    QFETCH(bool, isAwaySinceTheStart);
    const QString doomed = copyToMouse(Local);
    const QString other = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    service().setConnected(Mouse, false);
    if (isAwaySinceTheStart)
        restart();
    QVERIFY(profiles().deleteProfileByID(doomed));
    restart();
    // As long as it takes.
    restart();
    service().setConnected(Mouse, true);
    QTRY_COMPARE(documents(), QStringList({ProfileStore::fileName(other)}));
    waitUntilIdle();
    QVERIFY(profiles().getProfileByID(doomed).isNull());
    QVERIFY(!profiles().getProfileByID(other).isNull());
    QCOMPARE(takeProblems(), QStringList());
    // The next restart has nothing left to do.
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void OnBoardDeletionTest::profileThatWasDeletedWhileItIsWrittenLeavesTheDevice()
{
    const QString doomed = copyToMouse(Local);
    memories().commitDevice(Mouse);
    QVERIFY(memories().isDeviceBusyWriting(Mouse));
    QVERIFY(profiles().deleteProfileByID(doomed));
    waitUntilIdle();
    QTRY_COMPARE(documents(), QStringList());
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void OnBoardDeletionTest::undoneDeletionLeavesTheProfileOnTheDevice()
{
    const QString copy = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    service().setConnected(Mouse, false);
    QCoreApplication::processEvents();
    QVERIFY(profiles().deleteProfileByID(copy));
    QCoreApplication::processEvents();
    profileService().undo();
    restart();
    service().setConnected(Mouse, true);
    waitUntilIdle();
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(copy)}));
    QVERIFY(!profiles().getProfileByID(copy).isNull());
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

void OnBoardDeletionTest::profileThatCantBeRemovedIsToldOnce()
{
    const QString doomed = copyToMouse(Local);
    memories().commitDevice(Mouse);
    waitUntilIdle();
    const OrdinaryUser user(folderOfTheTest());
    if (OrdinaryUser::isAdministrator())
        QSKIP("The administrator may remove everything");
    const ReadOnlyFolder memory(memoryPath());
    takeEvents();
    QVERIFY(profiles().deleteProfileByID(doomed));
    waitUntilIdle();
    QCOMPARE(takeEvents(), QStringList({"Busy The Mouse " + Mouse + " writing", "Idle " + Mouse}));
    const QStringList problems = takeProblems();
    QCOMPARE(problems.size(), 1);
    QVERIFY2(problems[0].startsWith("What was deleted could not be removed from The Mouse: "),
        qPrintable(problems[0]));
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(doomed)}));
    QVERIFY(profiles().getProfileByID(doomed).isNull());
}

void OnBoardDeletionTest::profileThatCantBeRemovedIsTriedAgainUponAnOccasion_data()
{
    QTest::addColumn<QString>("occasion");
    for (const char* occasion : {"commit", "connection", "restart", "redo"})
        QTest::newRow(occasion) << QString(occasion);
}

void OnBoardDeletionTest::profileThatCantBeRemovedIsTriedAgainUponAnOccasion()
{
    QFETCH(const QString, occasion);
    const QString doomed = copyToMouse(Local);
    QCoreApplication::processEvents();
    memories().commitDevice(Mouse);
    waitUntilIdle();
    const OrdinaryUser user(folderOfTheTest());
    if (OrdinaryUser::isAdministrator())
        QSKIP("The administrator may remove everything");
    std::optional<ReadOnlyFolder> memory(std::in_place, memoryPath());
    QVERIFY(profiles().deleteProfileByID(doomed));
    QCoreApplication::processEvents();
    waitUntilIdle();
    QCOMPARE(takeProblems().size(), 1);

    const auto take = [&] {
        if (occasion == "commit") {
            memories().commitDevice(Mouse);
        } else if (occasion == "connection") {
            service().setConnected(Mouse, false);
            service().setConnected(Mouse, true);
        } else if (occasion == "restart") {
            restart();
        } else {
            profileService().undo();
            profileService().redo();
        }
        waitUntilIdle();
    };
    take();
    QCOMPARE(takeProblems().size(), 1);
    QCOMPARE(documents(), QStringList({ProfileStore::fileName(doomed)}));
    memory.reset();
    take();
    QCOMPARE(documents(), QStringList());
    QCOMPARE(takeProblems(), QStringList());
    QVERIFY(!QFile::exists(memoryPath() + ".deleted"));
}

VELTRANO_TEST_MAIN(OnBoardDeletionTest)
#include "OnBoardDeletionTest.moc"
