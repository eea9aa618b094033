#include "HostApplication.h"

#include "MainWindow.h"
#include "MessageStrip.h"
#include "PluginLoader.h"

#include <cSettingsService.h>
#include <DeviceFolder.h>
#include <FeatureViewController.h>
#include <IServiceMgr.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>

/// The whole application in this process, with the real plug-in where a test names it.
class HostApplicationTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void servicesAreThereWhileItLives();
    void lastDeviceIsRemembered();
    void chosenDeviceWins();
    void everythingMissingStillShowsAWindow();
    void screenshotsWithoutAViewFail();
    void endWithAnOpenWindowIsClean();

private:
    CommandLine commandLine(const QStringList& arguments = {}) const;
    ApplicationPaths paths() const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void HostApplicationTest::init()
{
    m_folder.reset(new QTemporaryDir);
    DeviceFolder::make(m_folder->filePath("share/devices"), "Alpha");
    DeviceFolder::make(m_folder->filePath("share/devices"), "Beta");
    DeviceFolder::write(
        m_folder->filePath("share/Resources/style/veltrano.qss"), "QWidget { color: white; }");
    DeviceFolder::write(m_folder->filePath("share/Resources/profiler/DefaultProfile.xml"),
        "<profile name=\"Start\"><macros><macro uid=\"{1}\" name=\"Copy\" "
        "namespace=\"http://www.veltrano.com/Halvorine/2010.1/Macros/Hotkeys\"><data><hotkey "
        "function=\"Copy\"/></data></macro></macros></profile>");
    qApp->setStyleSheet(QString());
}

ApplicationPaths HostApplicationTest::paths() const
{
    ApplicationPaths result;
    result.pluginsFolder = m_folder->filePath("plugins");
    result.shareFolder = m_folder->filePath("share");
    return result;
}

CommandLine HostApplicationTest::commandLine(const QStringList& arguments) const
{
    return CommandLine(QStringList({"test", "--data-dir", m_folder->filePath("data")}) + arguments);
}

void HostApplicationTest::servicesAreThereWhileItLives()
{
    const QList<QLatin1String> names {ServiceNames::MainUI, ServiceNames::FeatureViewMgr,
        ServiceNames::MainApp, ServiceNames::DevMgr, ServiceNames::Settings, ServiceNames::HelpMgr,
        ServiceNames::ECMAScriptMgr, ServiceNames::ProfileMgr, ServiceNames::MacroTypeMgr,
        ServiceNames::Profiler, ServiceNames::ProfilesToGo, ServiceNames::LCDMon, ServiceNames::LuaScript};
    {
        HostApplication application(paths(), commandLine());
        application.start();
        for (const QLatin1String name : names)
            QVERIFY2(IServiceMgr::instance()->hasService(name), name.data());
        QVERIFY(application.window().isVisible());
        QVERIFY(QFile::exists("MainApp:/Resources/style/veltrano.qss"));
    }
    for (const QLatin1String name : names)
        QVERIFY2(!IServiceMgr::instance()->hasService(name), name.data());
}

void HostApplicationTest::lastDeviceIsRemembered()
{
    {
        HostApplication application(paths(), commandLine());
        application.start();
        QCOMPARE(application.window().activeDeviceModel(), QString("Test.Alpha"));
        application.window().selectDevice("Test.Beta");
    }
    HostApplication application(paths(), commandLine());
    application.start();
    QCOMPARE(application.window().activeDeviceModel(), QString("Test.Beta"));
}

void HostApplicationTest::chosenDeviceWins()
{
    {
        HostApplication application(paths(), commandLine({"--device", "Test.Beta"}));
        application.start();
        QCOMPARE(application.window().activeDeviceModel(), QString("Test.Beta"));
    }
    HostApplication application(paths(), commandLine({"--device", "Nobody"}));
    application.start();
    QCOMPARE(application.window().activeDeviceModel(), QString("Test.Alpha"));
    QVERIFY(application.window().messageStrip().messages().join(' ').contains("Nobody"));
}

void HostApplicationTest::everythingMissingStillShowsAWindow()
{
    ApplicationPaths nothing;
    nothing.pluginsFolder = "/nonexistent/plugins";
    nothing.shareFolder = "/nonexistent/share";
    HostApplication application(nothing, commandLine({"--open-view"}));
    application.start();
    QVERIFY(application.window().isVisible());
    // Style sheet, devices, the new user's profile, plug-ins.
    QCOMPARE(application.window().messageStrip().messages().size(), 4);
}

void HostApplicationTest::screenshotsWithoutAViewFail()
{
    HostApplication application(paths(), commandLine({"--screenshots", m_folder->filePath("pictures")}));
    application.start();
    QCOMPARE(QCoreApplication::exec(), 1);
    QVERIFY(!QPixmap(m_folder->filePath("pictures/home.png")).isNull());
    QVERIFY(!QFile::exists(m_folder->filePath("pictures/view.png")));
}

void HostApplicationTest::endWithAnOpenWindowIsClean()
{
    HostApplication application(paths(), commandLine());
    application.start();
    QMetaObject::invokeMethod(&application.window(), "close", Qt::QueuedConnection);
    QCOMPARE(QCoreApplication::exec(), 0);
}

VELTRANO_TEST_MAIN(HostApplicationTest)
#include "HostApplicationTest.moc"
