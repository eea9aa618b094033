#include "MainWindow.h"

#include <cProfileMgrService.h>
#include <DialogButtons.h>
#include <DialogDriver.h>
#include <ProfileStore.h>
#include <TestApplication.h>
#include <TestCase.h>

#include <QDir>
#include <QLabel>
#include <QLineEdit>

namespace {

const QString Id = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");

} // namespace

/// The end of the application with a profile that can't be saved.
class UnsavedProfilesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void escapeGoesOnWorking();
    void quitAnywayEnds();
    void tryAgainSavesWhatCanBeSavedByNow();
    void saveElsewhereWritesADocumentThere();
    void nothingIsAskedWhenAllIsSaved();

private:
    TestApplication& application() { return *m_application; }
    QString place() const { return m_application->path("data/profiles/") + ProfileStore::fileName(Id); }

    QScopedPointer<TestApplication> m_application;
};

void UnsavedProfilesTest::init()
{
    m_application.reset(new TestApplication);
    cJsonValue record;
    record["uid"] = Id;
    record["name"] = "Game";
    QVERIFY(application()->profiles().addProfile(record));
    QVERIFY(application()->profiles().saveAllProfiles());
    // A folder in the document's place fails every write, for root as well.
    QVERIFY(QFile::remove(place()));
    QVERIFY(QDir().mkpath(place() + "/in the way"));
    application()->profiles().setProfileScript(Id, "changed");
}

void UnsavedProfilesTest::cleanup()
{
    // What the closed window asked for is the end of this test, not of the next one's dialog.
    if (!application()->window().isVisible())
        QCoreApplication::exec();
    QDir(place()).removeRecursively();
    m_application.reset();
}

void UnsavedProfilesTest::escapeGoesOnWorking()
{
    const DialogDriver driver([](QDialog& dialog) {
        QVERIFY(dialog.windowTitle().contains("Not Saved"));
        bool namesTheProfile = false;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            namesTheProfile = namesTheProfile || label->text() == QLatin1String("Game");
        QVERIFY(namesTheProfile);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QVERIFY(!application()->window().close());
    QVERIFY(driver.hasRun());
    QVERIFY(application()->window().isVisible());
}

void UnsavedProfilesTest::quitAnywayEnds()
{
    const DialogDriver driver(
        [](QDialog& dialog) { QTest::mouseClick(buttonOf(dialog, "Quit Anyway"), Qt::LeftButton); });
    QVERIFY(application()->window().close());
    QVERIFY(driver.hasRun());
}

void UnsavedProfilesTest::tryAgainSavesWhatCanBeSavedByNow()
{
    const DialogDriver driver([this](QDialog& dialog) {
        QVERIFY(QDir(place()).removeRecursively());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QVERIFY(application()->window().close());
    QVERIFY(driver.hasRun());
    QVERIFY(QFileInfo(place()).isFile());
}

void UnsavedProfilesTest::saveElsewhereWritesADocumentThere()
{
    const QString elsewhere = m_application->path("elsewhere");
    QVERIFY(QDir().mkpath(elsewhere));
    QScopedPointer<DialogDriver> folderDriver;
    const DialogDriver driver([&](QDialog& dialog) {
        folderDriver.reset(new DialogDriver([&](QDialog& chooser) {
            auto* const name = chooser.findChild<QLineEdit*>("fileNameEdit");
            QVERIFY(name);
            name->setText(elsewhere);
            QMetaObject::invokeMethod(&chooser, "accept");
        }));
        QTest::mouseClick(buttonOf(dialog, "Save Elsewhere..."), Qt::LeftButton);
    });
    QVERIFY(application()->window().close());
    QVERIFY(folderDriver && folderDriver->hasRun());
    QCOMPARE(QDir(elsewhere).entryList(QDir::Files), QStringList(ProfileStore::fileName(Id)));
}

void UnsavedProfilesTest::nothingIsAskedWhenAllIsSaved()
{
    QVERIFY(QDir(place()).removeRecursively());
    const DialogDriver driver([](QDialog&) { QFAIL("a question"); });
    QVERIFY(application()->window().close());
    QVERIFY(!driver.hasRun());
}

VELTRANO_TEST_MAIN(UnsavedProfilesTest)
#include "UnsavedProfilesTest.moc"
