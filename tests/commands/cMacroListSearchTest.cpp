#include "CommandSupport.h"

#include <cMacroItem.h>
#include <RowLists.h>
#include <TestCase.h>

#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <QRegExp>
#include <QScreen>
#include <QScrollBar>

using namespace CommandSupport;

class cMacroListSearchTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void findsWordsByTheirBeginning_data();
    void findsWordsByTheirBeginning();
    void emptyTextShowsEverything();
    void findsWhatQtFinds_data();
    void findsWhatQtFinds();
    void firstHitComesToTheMiddle();
    void noResultsShowsOnlyThen();
    void newHitClearsNoResults();
    void newCommandThatDoesNotMatchIsHidden();
    void renameFollowsTheFilter();
    void deletedHitIsForgotten();
    void hitsSurviveSorting();
    void hiddenSelectionStays();
};

void cMacroListSearchTest::findsWordsByTheirBeginning_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("beginning") << "jum" << QStringList({"High Jump", "Jump"});
    QTest::newRow("not inside") << "ump" << QStringList();
    QTest::newRow("case does not matter") << "JUMP" << QStringList({"High Jump", "Jump"});
    QTest::newRow("across words") << "high j" << QStringList({"High Jump"});
    QTest::newRow("expression") << "(jump|fire)" << QStringList({"Fire", "High Jump", "Jump"});
    QTest::newRow("any character") << "f.re" << QStringList({"Fire"});
    QTest::newRow("unmatched bracket") << "(" << QStringList();
    QTest::newRow("unmatched square bracket") << "[a" << QStringList();
    QTest::newRow("alternative of the whole pattern")
        << "fire|.*ump" << QStringList({"Fire", "High Jump", "Jump"});
    QTest::newRow("no word begins with a dot") << "\\." << QStringList();
    QTest::newRow("behind a sign") << "\\+mouse" << QStringList({"Ctrl+Mouse"});
    QTest::newRow("word behind a sign") << "mouse" << QStringList({"Ctrl+Mouse"});
    QTest::newRow("umlaut") << "übe" << QStringList({QString::fromUtf8("Übersicht")});
}

void cMacroListSearchTest::findsWordsByTheirBeginning()
{
    QFETCH(QString, text);
    QFETCH(QStringList, found);
    Panel panel;
    panel.fillNames({"Jump", "High Jump", "Fire", "Ctrl+Mouse", QString::fromUtf8("Übersicht")});
    panel.search(text);
    QCOMPARE(panel.shownNames(), found);
    QCOMPARE(panel.showsNoResults(), found.isEmpty());
    panel.search("");
    QCOMPARE(panel.shownNames().size(), 5);
    QVERIFY(!panel.showsNoResults());
}

void cMacroListSearchTest::emptyTextShowsEverything()
{
    Panel panel;
    panel.search("");
    QVERIFY(!panel.showsNoResults());
    panel.search("x");
    QVERIFY(panel.showsNoResults());
    panel.search("");
    QVERIFY(!panel.showsNoResults());
}

void cMacroListSearchTest::findsWhatQtFinds_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"a", "j", "ju", "jump", "1", "command", "a|b", "(", ")", "[", "[a-f]", "\\w+",
             "a*", "^", "$", "b$", " ", "\\", "+", "?", "{", "{2}", ".*", "\\d", "(a)(b)?", "-", "_"})
        QTest::newRow(text) << text;
}

void cMacroListSearchTest::findsWhatQtFinds()
{
    QFETCH(QString, text);
    QListWidget list;
    for (const char* name : {"Jump", "high jump", "A", "", "b", "a b", "ab", "x-y", "Command 12", "a\nb",
             "_under", "\\back", "(paren", "50% off", "aab", "trailing ", " leading"})
        list.addItem(name);
    QList<int> expected;
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    const Qt::MatchFlags flags = Qt::MatchRegExp;
    QT_WARNING_POP
    const QList<QListWidgetItem*> items = list.findItems(QStringLiteral(".*\\b%1.*").arg(text), flags);
    for (QListWidgetItem* item : items)
        expected.append(list.row(item));
    QCOMPARE(RowLists::findHits(list, text), expected);
    for (int i = 0; i < list.count(); ++i) {
        QRegExp pattern(QStringLiteral(".*\\b%1.*").arg(text), Qt::CaseInsensitive);
        QCOMPARE(
            RowLists::matchesSearch(list.item(i)->text(), text), pattern.indexIn(list.item(i)->text()) >= 0);
    }
    QVERIFY(!RowLists::matchesSearch("Jump", ""));
}

void cMacroListSearchTest::firstHitComesToTheMiddle()
{
    Panel panel;
    QStringList names;
    for (int i = 0; i < 100; ++i)
        names.append(QString("Word%1 many").arg(i, 3, 10, QLatin1Char('0')));
    panel.fill(macros(names));
    panel.search("many");
    QCOMPARE(panel.list->verticalScrollBar()->value(), 0);
    panel.list->verticalScrollBar()->setValue(32 * 60);
    panel.search("man");
    QCOMPARE(panel.list->verticalScrollBar()->value(), 0);
    panel.search("word09");
    QCOMPARE(panel.shownNames().size(), 10);
    QCOMPARE(panel.list->visualItemRect(panel.list->item(90)).y(), 1);
}

void cMacroListSearchTest::noResultsShowsOnlyThen()
{
    Panel panel;
    panel.fillNames({"Jump"});
    QVERIFY(!panel.showsNoResults());
    panel.search("j");
    QVERIFY(!panel.showsNoResults());
    panel.search("z");
    QVERIFY(panel.showsNoResults());
    const QImage shown = panel.list->viewport()->grab().toImage();
    // In the middle of the list, in Arial of 12 points at 96 dots per inch.
    QImage expected(shown.size(), shown.format());
    expected.fill(Qt::black);
    QFont font("Arial");
    font.setPointSizeF(12 * 96.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    QPainter painter(&expected);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(QRect(0, 0, 239, 315), Qt::AlignCenter, "No Results");
    painter.end();
    QCOMPARE(shown, expected);
    panel.search("");
    QVERIFY(!panel.showsNoResults());
}

void cMacroListSearchTest::newHitClearsNoResults()
{
    Panel panel;
    panel.fillNames({"Jump"});
    panel.search("fi");
    QVERIFY(panel.showsNoResults());
    panel.host.publishMacroAdded(Profile, macro("{9}", "Fire"));
    QVERIFY(!panel.showsNoResults());
    QCOMPARE(panel.shownNames(), QStringList({"Fire"}));
}

void cMacroListSearchTest::newCommandThatDoesNotMatchIsHidden()
{
    Panel panel;
    panel.fillNames({"Jump"});
    panel.search("fi");
    panel.host.publishMacroAdded(Profile, macro("{9}", "Gun fight in a bag"));
    panel.host.publishMacroAdded(Profile, macro("{8}", "Bagfire"));
    QCOMPARE(panel.shownNames(), QStringList({"Gun fight in a bag"}));
    QCOMPARE(panel.list->count(), 3);
}

void cMacroListSearchTest::renameFollowsTheFilter()
{
    Panel panel;
    panel.fillNames({"Jump", "Fire"});
    panel.search("fi");
    panel.host.publishMacroChanged(Profile, macro("{1}", "Find"));
    QCOMPARE(panel.shownNames(), QStringList({"Find", "Fire"}));
    // Hit already: it stays one once.
    panel.host.publishMacroChanged(Profile, macro("{1}", "Finish"));
    panel.host.publishMacroChanged(Profile, macro("{2}", "Zap"));
    QCOMPARE(panel.shownNames(), QStringList({"Finish"}));
    QVERIFY(!panel.showsNoResults());
    panel.host.publishMacroChanged(Profile, macro("{1}", "Zip"));
    QVERIFY(panel.showsNoResults());
    QCOMPARE(panel.shownNames(), QStringList());
    panel.search("");
    QCOMPARE(panel.shownNames(), QStringList({"Zap", "Zip"}));
}

void cMacroListSearchTest::deletedHitIsForgotten()
{
    Panel panel;
    panel.fillNames({"Fire", "Jump"});
    panel.search("fi");
    panel.host.publishMacroDeleted(Profile, macro("{1}", ""));
    QVERIFY(panel.showsNoResults());
    panel.host.publishMacroDeleted(Profile, macro("{2}", ""));
    QCOMPARE(panel.list->count(), 0);
}

void cMacroListSearchTest::hitsSurviveSorting()
{
    Panel panel;
    panel.fillNames({"Fire", "Find", "Jump", "Run"});
    panel.search("fi");
    panel.list->sortItems(Qt::DescendingOrder);
    QCOMPARE(panel.shownNames(), QStringList({"Fire", "Find"}));
    QCOMPARE(panel.list->visualItemRect(panel.list->item(2)).y(), 1);
    QCOMPARE(panel.list->visualItemRect(panel.list->item(3)).y(), 33);
}

void cMacroListSearchTest::hiddenSelectionStays()
{
    Panel panel;
    panel.fillNames({"Fire", "Jump"});
    panel.select({1});
    panel.host.clear();
    panel.search("fi");
    QVERIFY(panel.list->item(1)->isSelected());
    QCOMPARE(panel.takeLog(), QStringList());
}

VELTRANO_TEST_MAIN(cMacroListSearchTest)
#include "cMacroListSearchTest.moc"
