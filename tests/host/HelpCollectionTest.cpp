#include <cHelpMgr.h>
#include <cHelpMgrService.h>
#include <DeviceFolder.h>
#include <HelpCollection.h>
#include <HelpWindow.h>
#include <IServiceMgr.h>
#include <TestCase.h>

#include <QDirIterator>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBrowser>

#include <memory>

namespace {

const QString Section = QStringLiteral("com.example.help");

QByteArray page(const QByteArray& title, const QByteArray& body)
{
    return "<html><head><title>" + title + "</title></head><body><h1>" + title + "</h1>" + body
        + "</body></html>";
}

} // namespace

/// Help pages from their folder through the build to the window.
class HelpCollectionTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void contentsHaveTheTitlesOfThePages();
    void removedPageIsGoneAfterTheNextBuild();
    void pageWithoutATitleFailsTheBuild();
    void missingStartPageFailsTheBuild();

    void topicIsShownFromTheCollection();
    void viewIdOpensItsPage();
    void pageIsMarkedInTheContents();
    void contentsLeadToPages();
    void linksAreFollowedWithinTheCollection();
    void searchFindsPagesByTheBeginningsOfWords();
    void searchForNothingFindsNothing_data();
    void searchForNothingFindsNothing();
    void unknownTopicShowsAPageThatSaysSo();
    void unregisteredSectionIsForgotten();
    void sectionThatComesLaterIsThereToo();
    void damagedCollectionLeavesThePagesThemselves();
    void unloadLetsTheFilesGo();
    void realPagesAreAllThere_data();
    void realPagesAreAllThere();
    void topicsInTheCodeArePages();

private:
    QString source(const QString& name = {}) const { return m_folder->filePath("source/" + name); }
    QString built(const QString& name = {}) const { return m_folder->filePath("built/" + name); }
    /// Runs the build's script; the error that it printed.
    QString build(const QString& start = "start.htm");
    HelpWindow& window() { return *m_service->helpWindow(); }
    QStringList contents();
    QStringList search(const QString& words);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<cHelpMgrService> m_service;
};

void HelpCollectionTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    DeviceFolder::write(source("start.htm"), page("Zebras", "<p>Begin here. <a href='b.htm'>On</a></p>"));
    DeviceFolder::write(source("a.htm"), page("lions &amp; \"cubs\"; more", "<p>Roaring loudly.</p>"));
    DeviceFolder::write(
        source("b.htm"), page("Bears", "<p>Honey and salmon. <a href='start.htm'>Back</a></p>"));
    DeviceFolder::write(source("de_DE/b.htm"), page("not looked at", ""));
    QCOMPARE(build(), QString());
    m_service = std::make_unique<cHelpMgrService>();
    IServiceMgr::instance()->registerService(m_service.get());
    QVERIFY(cHelpMgr().registerHelp("view", "qthelp://" + Section + "/doc/de_DE/start.htm", built()));
}

void HelpCollectionTest::cleanup()
{
    m_service.reset();
    m_folder.reset();
}

QString HelpCollectionTest::build(const QString& start)
{
    QProcess process;
    process.start(QStringLiteral(CMAKE_PROGRAM),
        {"-DSOURCE=" + source(), "-DDESTINATION=" + built(), "-DNAMESPACE=" + Section, "-DSTART=" + start,
            QStringLiteral("-DGENERATOR=" HELP_GENERATOR), "-P", QStringLiteral(HELP_SCRIPT)});
    if (!process.waitForFinished())
        return "did not run";
    const QString output = QString::fromUtf8(process.readAllStandardError());
    return process.exitCode() == 0 ? QString() : "failed: " + output;
}

QStringList HelpCollectionTest::contents()
{
    auto* const widget = window().findChild<QHelpContentWidget*>();
    QStringList lines;
    for (QModelIndex index = widget->model()->index(0, 0); index.isValid(); index = widget->indexBelow(index))
        lines.append(QString(index.parent().isValid() ? 1 : 0, ' ') + index.data().toString());
    return lines;
}

QStringList HelpCollectionTest::search(const QString& words)
{
    auto* const tabs = window().findChild<QTabWidget*>();
    tabs->setCurrentIndex(1);
    auto* const field = window().findChild<QLineEdit*>();
    auto* const list = window().findChild<QListWidget*>();
    QSignalSpy finished(m_service->findChild<HelpCollection*>(), SIGNAL(searchFinished()));
    field->clear();
    field->setText(words);
    if (!finished.wait(20000))
        return {"not finished"};
    QStringList titles;
    for (int i = 0; i < list->count(); ++i)
        titles.append(list->item(i)->text());
    return titles;
}

void HelpCollectionTest::contentsHaveTheTitlesOfThePages()
{
    cHelpMgr().LaunchHelpByViewID("view");
    QTRY_COMPARE(contents(), QStringList({"Zebras", " Bears", " lions & \"cubs\"; more"}));
}

void HelpCollectionTest::removedPageIsGoneAfterTheNextBuild()
{
    QVERIFY(QFile::exists(built("a.htm")));
    QVERIFY(QFile::remove(source("a.htm")));
    QCOMPARE(build(), QString());
    QVERIFY(!QFile::exists(built("a.htm")));
    cHelpMgr().LaunchHelp(Section, "a.htm");
    QVERIFY(window().plainText().contains("There is no help page for \"a.htm\"."));
}

void HelpCollectionTest::pageWithoutATitleFailsTheBuild()
{
    DeviceFolder::write(source("c.htm"), "<html><body>Nameless</body></html>");
    QVERIFY(build().contains("c.htm has no title"));
}

void HelpCollectionTest::missingStartPageFailsTheBuild()
{
    QVERIFY(build("nowhere.htm").contains("has no page nowhere.htm"));
}

void HelpCollectionTest::topicIsShownFromTheCollection()
{
    cHelpMgr().LaunchHelp(Section, "b.htm");
    QVERIFY(window().isVisible());
    QCOMPARE(window().page(), QUrl("qthelp://com.example.help/doc/b.htm"));
    QVERIFY(window().plainText().contains("Honey and salmon."));
    QCOMPARE(window().windowTitle(), QString("Bears - Help"));
    QCOMPARE(window().file(), QString());
}

void HelpCollectionTest::viewIdOpensItsPage()
{
    cHelpMgr().LaunchHelpByViewID("view");
    QCOMPARE(window().windowTitle(), QString("Zebras - Help"));
}

void HelpCollectionTest::pageIsMarkedInTheContents()
{
    cHelpMgr().LaunchHelp(Section, "b.htm");
    auto* const widget = window().findChild<QHelpContentWidget*>();
    QTRY_COMPARE(widget->currentIndex().data().toString(), QString("Bears"));
    cHelpMgr().LaunchHelp(Section, "a.htm");
    QCOMPARE(window().page(), QUrl("qthelp://com.example.help/doc/a.htm"));
    QCOMPARE(widget->currentIndex().data().toString(), QString("lions & \"cubs\"; more"));
}

void HelpCollectionTest::contentsLeadToPages()
{
    cHelpMgr().LaunchHelpByViewID("view");
    QTRY_COMPARE(contents().size(), 3);
    auto* const widget = window().findChild<QHelpContentWidget*>();
    const QModelIndex bears = widget->indexBelow(widget->model()->index(0, 0));
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, widget->visualRect(bears).center());
    QTRY_COMPARE(window().windowTitle(), QString("Bears - Help"));
}

void HelpCollectionTest::linksAreFollowedWithinTheCollection()
{
    cHelpMgr().LaunchHelpByViewID("view");
    auto* const browser = window().findChild<QTextBrowser*>();
    QMetaObject::invokeMethod(browser, "anchorClicked", Q_ARG(QUrl, QUrl("b.htm")));
    QCOMPARE(window().page(), QUrl("qthelp://com.example.help/doc/b.htm"));
    // A page has no business with other files.
    QMetaObject::invokeMethod(browser, "anchorClicked", Q_ARG(QUrl, QUrl("file:///etc/hostname")));
    QCOMPARE(window().page(), QUrl("qthelp://com.example.help/doc/b.htm"));
    const QList<QPushButton*> buttons = window().findChildren<QPushButton*>();
    QTest::mouseClick(buttons[0], Qt::LeftButton);
    QCOMPARE(window().windowTitle(), QString("Zebras - Help"));
}

void HelpCollectionTest::searchFindsPagesByTheBeginningsOfWords()
{
    cHelpMgr().LaunchHelpByViewID("view");
    QTRY_COMPARE(search("salm"), QStringList({"Bears"}));
    QCOMPARE(search("loudly roar"), QStringList({"lions & \"cubs\"; more"}));
    QTRY_COMPARE(search("honey loudly"), QStringList());
    QCOMPARE(window().findChild<QListWidget*>()->count(), 0);
    QTRY_COMPARE(search("BEARS"), QStringList({"Bears"}));
    auto* const list = window().findChild<QListWidget*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
    QCOMPARE(window().windowTitle(), QString("Bears - Help"));
}

void HelpCollectionTest::searchForNothingFindsNothing_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("quotes and operators") << "\"*( OR NEAR) -^:";
    QTest::newRow("spaces") << "   ";
    QTest::newRow("unknown word") << "xyzzy";
}

void HelpCollectionTest::searchForNothingFindsNothing()
{
    QFETCH(QString, words);
    cHelpMgr().LaunchHelpByViewID("view");
    QTRY_COMPARE(search("bears").size(), 1);
    window().findChild<QLineEdit*>()->setText(words);
    QTRY_COMPARE(window().findChild<QListWidget*>()->count(), 0);
}

void HelpCollectionTest::unknownTopicShowsAPageThatSaysSo()
{
    for (const char* topic : {"missing.htm", "../../../../etc/hostname", ""}) {
        cHelpMgr().LaunchHelp(Section, topic);
        QVERIFY2(window().plainText().contains("There is no help page for"), topic);
    }
}

void HelpCollectionTest::unregisteredSectionIsForgotten()
{
    cHelpMgr().LaunchHelpByViewID("view");
    QTRY_COMPARE(contents().size(), 3);
    QVERIFY(cHelpMgr().unRegisterHelp(built()));
    QTRY_COMPARE(contents(), QStringList());
    cHelpMgr().LaunchHelp(Section, "b.htm");
    QVERIFY(window().plainText().contains("There is no help page for"));
}

void HelpCollectionTest::sectionThatComesLaterIsThereToo()
{
    cHelpMgr().LaunchHelpByViewID("view");
    QTRY_COMPARE(contents().size(), 3);
    QVERIFY(cHelpMgr().registerHelp("application",
        "qthelp://com.veltrano.application/doc/en_US/getting_started.htm", QStringLiteral(APPLICATION_HELP)));
    QTRY_VERIFY(contents().contains("Getting started"));
    QVERIFY(contents().contains("Zebras"));
    QVERIFY(search("honey").contains("Bears"));
}

void HelpCollectionTest::damagedCollectionLeavesThePagesThemselves()
{
    DeviceFolder::write(built(Section + ".qch"), "damaged");
    cHelpMgr().LaunchHelp(Section, "b.htm");
    QVERIFY(window().plainText().contains("Honey and salmon."));
    QCOMPARE(QFileInfo(window().file()).fileName(), QString("b.htm"));
}

void HelpCollectionTest::unloadLetsTheFilesGo()
{
    cHelpMgr().LaunchHelpByViewID("view");
    cHelpMgr().unloadHelp();
    QVERIFY(!m_service->helpWindow());
    QVERIFY(!m_service->findChild<HelpCollection*>());
    cHelpMgr().LaunchHelp(Section, "b.htm");
    QCOMPARE(window().windowTitle(), QString("Bears - Help"));
}

void HelpCollectionTest::realPagesAreAllThere_data()
{
    QTest::addColumn<QString>("sourceFolder");
    QTest::addColumn<QString>("builtFolder");
    QTest::addColumn<QString>("section");
    QTest::newRow("plug-in") << QStringLiteral(PLUGIN_PAGES) << QStringLiteral(PLUGIN_HELP)
                             << "com.veltrano.profile";
    QTest::newRow("application") << QStringLiteral(APPLICATION_PAGES) << QStringLiteral(APPLICATION_HELP)
                                 << "com.veltrano.application";
}

void HelpCollectionTest::realPagesAreAllThere()
{
    QFETCH(QString, sourceFolder);
    QFETCH(QString, builtFolder);
    QFETCH(QString, section);
    const QStringList pages = QDir(sourceFolder).entryList({"*.htm"}, QDir::Files);
    QVERIFY(!pages.isEmpty());
    QVERIFY(
        cHelpMgr().registerHelp("real", "qthelp://" + section + "/doc/en_US/" + pages.first(), builtFolder));
    QStringList titles;
    for (const QString& each : pages) {
        cHelpMgr().LaunchHelp(section, each);
        QCOMPARE(window().page(), QUrl("qthelp://" + section + "/doc/" + each));
        titles.append(window().windowTitle().section(" - ", 0, -2));
    }
    const auto isListed = [&] {
        QStringList listed;
        for (const QString& line : contents())
            listed.append(line.trimmed());
        return std::all_of(
            titles.begin(), titles.end(), [&](const QString& title) { return listed.contains(title); });
    };
    QTRY_VERIFY2(isListed(), qPrintable(titles.join("|") + " / " + contents().join("|")));
}

void HelpCollectionTest::topicsInTheCodeArePages()
{
    static const QRegularExpression topic("new HelpKey\\(QStringLiteral\\(\"([^\"]*)\"\\)");
    const QStringList pages = QDir(APPLICATION_PAGES).entryList({"*.htm"}, QDir::Files);
    QStringList sources;
    QDirIterator files(
        QStringLiteral(APPLICATION_PAGES "/.."), {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        sources.append(files.next());
    int keys = 0;
    int topics = 0;
    for (const QString& path : qAsConst(sources)) {
        QFile source(path);
        QVERIFY(source.open(QIODevice::ReadOnly));
        const QString code = QString::fromUtf8(source.readAll());
        keys += code.count("new HelpKey(");
        for (auto found = topic.globalMatch(code); found.hasNext(); ++topics) {
            const QString page = found.next().captured(1);
            QVERIFY2(pages.contains(page), qPrintable(path + ": " + page));
        }
    }
    QVERIFY(topics >= 5);
    // Each was understood.
    QCOMPARE(topics, keys);
}

VELTRANO_TEST_MAIN(HelpCollectionTest)
#include "HelpCollectionTest.moc"
