#include "CommandEditorHost.h"

#include <cHelpMgrService.h>
#include <DialogConstants.h>
#include <HelpTopics.h>
#include <HelpWindow.h>
#include <IMacroEditor.h>
#include <TestCase.h>

#include <QDir>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

#include <memory>

/// The plug-in's help pages: there is one for each topic that the code names, and their links lead somewhere.
class HelpPagesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eachFormHasItsPage();
    void hostFindsThePage_data();
    void hostFindsThePage();
    void pageIsWhole_data();
    void pageIsWhole();
    void eachPageIsReachedFromTheFirst();

private:
    static QStringList pages() { return QDir(HELP_FOLDER).entryList({"*.htm"}, QDir::Files, QDir::Name); }
    static QString read(const QString& page)
    {
        QFile file(QDir(HELP_FOLDER).filePath(page));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    static QStringList linksOf(const QString& page)
    {
        QStringList links;
        auto found = QRegularExpression("href=\"([^\"]*)\"").globalMatch(read(page));
        while (found.hasNext())
            links << found.next().captured(1);
        return links;
    }
    /// The topics of the dialogs and of the forms of all command types.
    static QStringList topics()
    {
        CommandEditorHost host;
        QStringList topics {DialogConstants::ProfileHelpTopic, DialogConstants::ScanHelpTopic};
        for (const cMacroTypePtr& type : host.types()) {
            const std::unique_ptr<IMacroEditor> form(type->editor(cJsonValue()));
            host.clear();
            form->onHelp();
            const RecordedCall& call = host.calls().constLast();
            if (call.values[0].toString() == HelpTopics::Section)
                topics << call.values[1].toString();
        }
        return topics;
    }
    static void addPages()
    {
        QTest::addColumn<QString>("page");
        for (const QString& page : pages())
            QTest::newRow(qPrintable(page)) << page;
    }
};

void HelpPagesTest::eachFormHasItsPage()
{
    const QStringList found = topics();
    QCOMPARE(found.size(), 12);
    for (const QString& topic : found + QStringList({HelpTopics::View}))
        QVERIFY2(pages().contains(topic), qPrintable(topic));
}

void HelpPagesTest::hostFindsThePage_data()
{
    addPages();
}

void HelpPagesTest::hostFindsThePage()
{
    QFETCH(QString, page);
    cHelpMgrService service;
    QVERIFY(service.registerHelp(
        "macrobinding_view", "qthelp://com.veltrano.profile/doc/de_CH/customizing_gkeys.htm", HELP_FOLDER));
    service.LaunchHelp(HelpTopics::Section, page);
    QCOMPARE(QFileInfo(service.helpWindow()->file()).fileName(), page);
    QVERIFY(service.helpWindow()->plainText().size() > 200);
}

void HelpPagesTest::pageIsWhole_data()
{
    addPages();
}

void HelpPagesTest::pageIsWhole()
{
    QFETCH(QString, page);
    QTextDocument document;
    document.setHtml(read(page));
    const QString title = document.metaInformation(QTextDocument::DocumentTitle);
    QVERIFY(!title.isEmpty());
    // The page begins with its title.
    QCOMPARE(document.firstBlock().text(), title);
    QVERIFY(!document.toPlainText().contains('<'));
    for (const QString& link : linksOf(page))
        QVERIFY2(pages().contains(link), qPrintable(link));
    for (const char* tag : {"p", "b", "a", "ul", "ol", "li", "h1", "h2", "table", "tr", "td", "th"}) {
        const QString text = read(page);
        QCOMPARE(text.count(QRegularExpression(QString("<%1[ >]").arg(tag))),
            text.count(QString("</%1>").arg(tag)));
    }
}

void HelpPagesTest::eachPageIsReachedFromTheFirst()
{
    QStringList reached {HelpTopics::View};
    for (int i = 0; i < reached.size(); ++i) {
        for (const QString& link : linksOf(reached[i])) {
            if (!reached.contains(link))
                reached << link;
        }
    }
    reached.sort();
    for (const QString& topic : topics())
        QVERIFY2(reached.contains(topic), qPrintable(topic));
}

VELTRANO_TEST_MAIN(HelpPagesTest)
#include "HelpPagesTest.moc"
