#include "cHelpMgrService.h"

#include <cHelpMgr.h>
#include <DeviceFolder.h>
#include <EventLog.h>
#include <FakeWindow.h>
#include <HelpWindow.h>
#include <ServiceConstants.h>
#include <TestCase.h>

#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>

/// The service is called through the plug-in's client, by name.
class cHelpMgrServiceTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void providersAreAskedInOrder();
    void topicIsShownInTheLanguageOfTheAddress();
    void topicFallsBackToEnglishAndToTheFolder();
    void viewIdOpensItsPage();
    void unknownTopicShowsAPageThatSaysSo_data();
    void unknownTopicShowsAPageThatSaysSo();
    void textOfAnUnknownTopicIsNoMarkup();
    void linksCanBeFollowedBackAndForth();
    void unregisteredFolderIsForgotten();
    void incompleteRegistrationIsRefused();
    void secondRegistrationReplacesTheFirst();
    void unloadClosesTheWindow();

private:
    bool registerPage();
    QString shownText() const { return m_service->helpWindow()->plainText(); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<cHelpMgrService> m_service;
};

void cHelpMgrServiceTest::init()
{
    m_folder.reset(new QTemporaryDir);
    const auto write = [this](const char* name, const QByteArray& text) {
        DeviceFolder::write(m_folder->filePath(QLatin1String(name)), text);
    };
    write("de_DE/start.htm", "<html><title>Anfang</title>German start <a href='next.htm'>on</a></html>");
    write("de_DE/next.htm", "German next");
    write("en_US/start.htm", "English start");
    write("en_US/only.htm", "Only English");
    write("flat.htm", "In the folder itself");
    m_service.reset(new cHelpMgrService);
    IServiceMgr::instance()->registerService(m_service.get());
}

void cHelpMgrServiceTest::cleanup()
{
    m_service.reset();
}

bool cHelpMgrServiceTest::registerPage()
{
    return cHelpMgr().registerHelp(
        "view", "qthelp://com.veltrano.profile/doc/de_DE/start.htm", m_folder->path());
}

void cHelpMgrServiceTest::providersAreAskedInOrder()
{
    EventLog events(EventSources::HelpMgr);
    m_service->askProviders();
    const QStringList log = events.take();
    QCOMPARE(log.size(), ServiceConstants::LastHelpProvider + 1);
    QCOMPARE(log.constFirst(), QString("RegisterHelpProvider 0"));
    QCOMPARE(log.at(10), QString("RegisterHelpProvider 10"));
}

void cHelpMgrServiceTest::topicIsShownInTheLanguageOfTheAddress()
{
    QVERIFY(registerPage());
    cHelpMgr().LaunchHelp("com.veltrano.profile", "start.htm");
    QVERIFY(m_service->helpWindow()->isVisible());
    QVERIFY(shownText().contains("German start"));
    QVERIFY(m_service->helpWindow()->windowTitle().contains("Anfang"));
}

void cHelpMgrServiceTest::topicFallsBackToEnglishAndToTheFolder()
{
    registerPage();
    cHelpMgr().LaunchHelp("com.veltrano.profile", "only.htm");
    QCOMPARE(shownText(), QString("Only English"));
    cHelpMgr().LaunchHelp("com.veltrano.profile", "flat.htm");
    QCOMPARE(shownText(), QString("In the folder itself"));
}

void cHelpMgrServiceTest::viewIdOpensItsPage()
{
    registerPage();
    cHelpMgr().LaunchHelpByViewID("view");
    QVERIFY(shownText().contains("German start"));
    cHelpMgr().LaunchHelpByViewID("no such view");
    QVERIFY(shownText().contains("no such view"));
}

void cHelpMgrServiceTest::unknownTopicShowsAPageThatSaysSo_data()
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("topic");
    QTest::newRow("topic") << "com.veltrano.profile"
                           << "missing.htm";
    QTest::newRow("section") << "com.example"
                             << "start.htm";
    QTest::newRow("way out of the folder") << "com.veltrano.profile"
                                           << "../../../../../../etc/hostname";
    QTest::newRow("folder") << "com.veltrano.profile"
                            << "../de_DE";
    QTest::newRow("empty") << "com.veltrano.profile"
                           << "";
}

void cHelpMgrServiceTest::unknownTopicShowsAPageThatSaysSo()
{
    QFETCH(QString, section);
    QFETCH(QString, topic);
    registerPage();
    cHelpMgr().LaunchHelp(section, topic);
    QVERIFY(m_service->helpWindow()->isVisible());
    QVERIFY(shownText().contains("There is no help page for"));
    QVERIFY(shownText().contains(topic.isEmpty() ? section : topic));
}

void cHelpMgrServiceTest::textOfAnUnknownTopicIsNoMarkup()
{
    cHelpMgr().LaunchHelp("s", "<b>x</b>");
    QVERIFY(shownText().contains("<b>x</b>"));
}

void cHelpMgrServiceTest::linksCanBeFollowedBackAndForth()
{
    registerPage();
    cHelpMgr().LaunchHelp("com.veltrano.profile", "start.htm");
    HelpWindow* const window = m_service->helpWindow();
    auto* const browser = window->findChild<QTextBrowser*>();
    const QList<QPushButton*> buttons = window->findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 2);
    QVERIFY(!buttons[0]->isEnabled());
    browser->setSource(QUrl("next.htm"));
    QVERIFY(shownText().contains("German next"));
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    QVERIFY(shownText().contains("German start"));
    QTest::mouseClick(buttons[1], Qt::LeftButton);
    QVERIFY(shownText().contains("German next"));
}

void cHelpMgrServiceTest::unregisteredFolderIsForgotten()
{
    registerPage();
    QVERIFY(cHelpMgr().unRegisterHelp(m_folder->path()));
    QVERIFY(!cHelpMgr().unRegisterHelp(m_folder->path()));
    cHelpMgr().LaunchHelpByViewID("view");
    QVERIFY(shownText().contains("There is no help page"));
}

void cHelpMgrServiceTest::incompleteRegistrationIsRefused()
{
    const QString url = "qthelp://com.veltrano.profile/doc/de_DE/start.htm";
    QVERIFY(!cHelpMgr().registerHelp("", url, m_folder->path()));
    QVERIFY(!cHelpMgr().registerHelp("view", "", m_folder->path()));
    QVERIFY(!cHelpMgr().registerHelp("view", url, "/nonexistent"));
}

void cHelpMgrServiceTest::secondRegistrationReplacesTheFirst()
{
    registerPage();
    QVERIFY(cHelpMgr().registerHelp(
        "view", "qthelp://com.veltrano.profile/doc/en_US/start.htm", m_folder->path()));
    cHelpMgr().LaunchHelpByViewID("view");
    QCOMPARE(shownText(), QString("English start"));
}

void cHelpMgrServiceTest::unloadClosesTheWindow()
{
    cHelpMgr().unloadHelp();
    cHelpMgr().LaunchHelp("s", "t");
    cHelpMgr().unloadHelp();
    QVERIFY(!m_service->helpWindow());
    cHelpMgr().LaunchHelp("s", "t");
    QVERIFY(m_service->helpWindow()->isVisible());
}

VELTRANO_TEST_MAIN(cHelpMgrServiceTest)
#include "cHelpMgrServiceTest.moc"
