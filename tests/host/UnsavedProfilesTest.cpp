#include "HostApplication.h"

#include "MainWindow.h"

#include <cProfileMgrService.h>
#include <DeviceFolder.h>
#include <DialogDriver.h>
#include <ProfileStore.h>
#include <TestCase.h>

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

const QString Id = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");

QPushButton* buttonOf(const QDialog& dialog, const QString& text)
{
    const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
    for (QPushButton* button : buttons) {
        if (button->accessibleName() == text)
            return button;
    }
    return nullptr;
}

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
    QString place() const { return m_folder->filePath("data/profiles/") + ProfileStore::fileName(Id); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<HostApplication> m_application;
};

void UnsavedProfilesTest::init()
{
    m_folder.reset(new QTemporaryDir);
    DeviceFolder::write(
        m_folder->filePath("share/Resources/style/veltrano.qss"), "QWidget { color: white; }");
    DeviceFolder::write(
        m_folder->filePath("share/Resources/profiler/DefaultProfile.xml"), "<profile name=\"S\"/>");
    DeviceFolder::make(m_folder->filePath("share/devices"), "Alpha");
    ApplicationPaths paths;
    paths.pluginsFolder = m_folder->filePath("plugins");
    paths.shareFolder = m_folder->filePath("share");
    m_application.reset(
        new HostApplication(paths, CommandLine({"test", "--data-dir", m_folder->filePath("data")})));
    m_application->start();
    cJsonValue record;
    record["uid"] = Id;
    record["name"] = "Game";
    QVERIFY(m_application->profiles().addProfile(record));
    QVERIFY(m_application->profiles().saveAllProfiles());
    // A folder in the document's place fails every write, for root as well.
    QVERIFY(QFile::remove(place()));
    QVERIFY(QDir().mkpath(place() + "/in the way"));
    m_application->profiles().setProfileScript(Id, "changed");
}

void UnsavedProfilesTest::cleanup()
{
    // What the closed window asked for is the end of this test, not of the next one's dialog.
    if (!m_application->window().isVisible())
        QCoreApplication::exec();
    QDir(place()).removeRecursively();
    m_application.reset();
    m_folder.reset();
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
    QVERIFY(!m_application->window().close());
    QVERIFY(driver.hasRun());
    QVERIFY(m_application->window().isVisible());
}

void UnsavedProfilesTest::quitAnywayEnds()
{
    const DialogDriver driver(
        [](QDialog& dialog) { QTest::mouseClick(buttonOf(dialog, "Quit Anyway"), Qt::LeftButton); });
    QVERIFY(m_application->window().close());
    QVERIFY(driver.hasRun());
}

void UnsavedProfilesTest::tryAgainSavesWhatCanBeSavedByNow()
{
    const DialogDriver driver([this](QDialog& dialog) {
        QVERIFY(QDir(place()).removeRecursively());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QVERIFY(m_application->window().close());
    QVERIFY(driver.hasRun());
    QVERIFY(QFileInfo(place()).isFile());
}

void UnsavedProfilesTest::saveElsewhereWritesADocumentThere()
{
    const QString elsewhere = m_folder->filePath("elsewhere");
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
    QVERIFY(m_application->window().close());
    QVERIFY(folderDriver && folderDriver->hasRun());
    QCOMPARE(QDir(elsewhere).entryList(QDir::Files), QStringList(ProfileStore::fileName(Id)));
}

void UnsavedProfilesTest::nothingIsAskedWhenAllIsSaved()
{
    QVERIFY(QDir(place()).removeRecursively());
    const DialogDriver driver([](QDialog&) { QFAIL("a question"); });
    QVERIFY(m_application->window().close());
    QVERIFY(!driver.hasRun());
}

VELTRANO_TEST_MAIN(UnsavedProfilesTest)
#include "UnsavedProfilesTest.moc"
