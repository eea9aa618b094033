#include "Strip.h"

#include <cCustomStyle.h>
#include <cProfileItem.h>
#include <FixedIds.h>
#include <MetaMembers.h>
#include <PluginContext.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QElapsedTimer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <cstdio>

namespace {

const QString Default = FixedIds::DefaultProfile;

} // namespace

/// The tiles, and which of them is current at the start.
class cProfileListTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreReachableByName();
    void subscribesForItsLife();
    void populateAsksForEachProfile();

    void lastProfileIsCurrentAgain_data();
    void lastProfileIsCurrentAgain();
    void hostWithoutAnArrayLeavesItEmpty();
    void noProfileToFallBackToKeepsTheSetting();

    void tilesAreSortedByName();
    void iconsAre48Wide();
    void namesOfAllKinds_data();
    void namesOfAllKinds();
    void hoverOfATileIsTheLists();
    void tileDragIsHandedToEachTile();
    void currentIsScrolledIntoSight();
    void fiveHundredProfiles();
};

void cProfileListTest::membersAreReachableByName()
{
    const QMetaObject& meta = cProfileList::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta),
        QStringList(
            {"useDefaultForAllGkeys(QString)", "useGenericForAllGkeys(QString)", "unassignAllGkeys(QString)",
                "printProfile(QString)", "macrosDropped(QStringList,QString)", "newProfile()", "hoverIn()",
                "hoverOut()", "selectedProfile(QString)", "startDrag()", "endDrag()", "exportProfile()"}));
    QCOMPARE(MetaMembers::slotsOf(meta),
        QStringList({"onProfileSelectionChanged()", "onProfileAdded(QString)", "onProfileDeleted(QString)",
            "onProfilePropertyChanged(QString)", "onProfileDragStart()",
            "profileContextMenuIconClicked(QPoint)", "onSearch(QString)", "onCurrentProfileDeleted()",
            "deleteSelectedProfiles()"}));
}

void cProfileListTest::subscribesForItsLife()
{
    ProfileHost on;
    {
        const cProfileList list;
        QCOMPARE(on.host.takeLog(), QStringList("subscribe ProfileMgr_Events on"));
        QVERIFY(list.isSortingEnabled());
        QCOMPARE(list.flow(), QListView::LeftToRight);
        QVERIFY(list.uniformItemSizes());
        QCOMPARE(list.selectionMode(), QAbstractItemView::ExtendedSelection);
        QCOMPARE(list.spacing(), 3);
        QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
        QCOMPARE(list.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list.horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QCOMPARE(list.property("uiType").toString(), QString("MacroOrProfileList"));
        QVERIFY(qobject_cast<cCustomStyle*>(list.style()));
        QCOMPARE(list.horizontalScrollBar()->contextMenuPolicy(), Qt::NoContextMenu);
    }
    QCOMPARE(on.host.takeLog(), QStringList("unsubscribe ProfileMgr_Events"));
}

void cProfileListTest::populateAsksForEachProfile()
{
    ProfileHost on({"Beta", "Default"});
    cProfileList list;
    QSignalSpy selected(&list, SIGNAL(selectedProfile(const QString&)));
    on.host.takeCalls();
    list.populate();
    QCOMPARE(on.host.takeCalls(),
        QStringList({"profiles()", R"(profileIcon("{Beta}"))", R"(getProfileDeviceId("{Beta}"))",
                        R"(profileIcon("%1"))", R"(getProfileDeviceId("%1"))",
                        R"(getPropertyString("profiler/lastProfile", "%1"))",
                        R"(setPropertyString("profiler/lastProfile", "%1"))"})
            .replaceInStrings("%1", Default));
    QCOMPARE(selected, QList<QVariantList>({{Default}}));
    QCOMPARE(list.item(0)->data(Qt::UserRole + 1).toString(), QString("ProfileItem"));
    QCOMPARE(list.item(0)->sizeHint(), QSize(62, 88));
}

void cProfileListTest::lastProfileIsCurrentAgain_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("current");
    const QStringList names {"Beta", "Default", "Alpha"};
    QTest::newRow("first start") << names << ""
                                 << "Default";
    QTest::newRow("remembered") << names << "Alpha"
                                << "Alpha";
    QTest::newRow("remembered one is gone") << names << "Gone"
                                            << "Default";
}

void cProfileListTest::lastProfileIsCurrentAgain()
{
    QFETCH(QStringList, names);
    QFETCH(QString, last);
    QFETCH(QString, current);
    const Strip strip(names, last);
    QCOMPARE(strip.current(), QStringList(current));
    QCOMPARE(strip.selected(), QStringList(current));
    QCOMPARE(strip.host.settings["profiler/lastProfile"], ProfileHost::idOf(current));
}

void cProfileListTest::hostWithoutAnArrayLeavesItEmpty()
{
    for (const cJsonValue& answer : {cJsonValue(), cJsonValue("text"), cJsonValue(7)}) {
        ProfileHost on;
        on.host.answer("profiles", answer);
        cProfileList list;
        list.populate();
        QCOMPARE(list.count(), 0);
        QCOMPARE(on.takeRequests(), QStringList());
        QVERIFY(list.selectedProfileIds().isEmpty());
    }
    ProfileHost on({"Alpha"});
    on.host.remove(QLatin1String("Profiler.ProfileMgr"));
    const ExpectedMessage line(QtCriticalMsg, "Failed to call 'profiles' on service Profiler.ProfileMgr");
    cProfileList list;
    list.populate();
    QCOMPARE(list.count(), 0);
}

void cProfileListTest::noProfileToFallBackToKeepsTheSetting()
{
    Strip strip({"Alpha", "Beta"}, "Gone");
    QCOMPARE(strip.current(), QStringList());
    QCOMPARE(strip.host.settings["profiler/lastProfile"], QString("{Gone}"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
    QVERIFY(strip.list.selectedProfileIds().isEmpty());
}

void cProfileListTest::tilesAreSortedByName()
{
    Strip strip({"beta", "Alpha", "gamma"});
    QCOMPARE(strip.names(), QStringList({"Alpha", "beta", "gamma"}));
    strip.list.setSortMode(cListWidgetItem::SortByName);
    strip.list.sortItems(Qt::DescendingOrder);
    QCOMPARE(strip.names(), QStringList({"gamma", "beta", "Alpha"}));
    strip.host.add("delta");
    QCOMPARE(strip.names(), QStringList({"gamma", "delta", "beta", "Alpha"}));
    QCOMPARE(strip.list.profileName(9), QString());
    QVERIFY(strip.list.profileId(-1).isNull());
}

void cProfileListTest::iconsAre48Wide()
{
    ProfileHost on({"Exact", "Wide", "None"});
    on.profile("{Exact}").icon = filledPicture(48, 20, Qt::red);
    on.profile("{Wide}").icon = filledPicture(96, 32, Qt::blue);
    on.profile("{None}").target = "/nonexistent/program";
    cProfileList list;
    list.populate();
    const auto icon = [&](int row) {
        return qobject_cast<cProfileItem*>(list.itemWidget(list.item(row)))->icon();
    };
    QCOMPARE(icon(0).size(), QSize(48, 20));
    QVERIFY(!icon(1).isNull());
    QCOMPARE(icon(1).toImage(), QPixmap(pluginResource("Resources/images/default_profile.png")).toImage());
    QCOMPARE(icon(2).size(), QSize(48, 16));
}

void cProfileListTest::namesOfAllKinds_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    QTest::newRow("300 characters") << QString(300, 'W');
    QTest::newRow("markup") << "<b>Bold</b> &amp; <img src='x.png'>";
    QTest::newRow("placeholder") << "100%1 %2 %%";
    QTest::newRow("expression") << "a.*[(+?\\";
    QTest::newRow("ampersand") << "Rock & Roll";
    QTest::newRow("line break") << "one\ntwo\tthree";
    QTest::newRow("comma") << "one,two";
    QTest::newRow("right to left") << QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd");
}

void cProfileListTest::namesOfAllKinds()
{
    QFETCH(QString, name);
    Strip strip({"Alpha", "Beta"}, "Alpha");
    HostProfile& changed = strip.host.profile("{Beta}");
    changed.name = name;
    strip.host.host.publishProfilePropertyChanged("{Beta}");
    cProfileItem* tile = strip.tile("Beta");
    QCOMPARE(tile->name(), name);
    QVERIFY(!tile->grab().isNull());
    for (const QString& search : {QString("Alp"), name.left(3)})
        strip.list.onSearch(search);
    strip.list.onSearch(QString());
    QCOMPARE(strip.shownNames().size(), 2);
    // The tip shows each letter.
    if (Qt::mightBeRichText(tile->toolTip()))
        QCOMPARE(QTextDocumentFragment::fromHtml(tile->toolTip()).toPlainText(), name);
    else
        QCOMPARE(tile->toolTip(), name);
}

void cProfileListTest::hoverOfATileIsTheLists()
{
    const Strip strip({"Alpha"}, "Alpha");
    QSignalSpy in(&strip.list, SIGNAL(hoverIn()));
    QSignalSpy out(&strip.list, SIGNAL(hoverOut()));
    QVERIFY(QMetaObject::invokeMethod(strip.tile("Alpha"), "hoverIn"));
    QCOMPARE(in.size(), 1);
    // Who leaves a tile is on the list still.
    QVERIFY(QMetaObject::invokeMethod(strip.tile("Alpha"), "hoverOut"));
    QCOMPARE(out.size(), 0);
}

void cProfileListTest::tileDragIsHandedToEachTile()
{
    Strip strip({"Alpha", "Beta"}, "Alpha");
    // A tile that can be dragged closes the hand.
    const auto draggable = [&strip] {
        QStringList found;
        for (const QString& name : strip.names()) {
            cProfileItem* const tile = strip.tile(name);
            tile->setCursor(Qt::ArrowCursor);
            QTest::mousePress(tile, Qt::LeftButton);
            if (tile->cursor().shape() == Qt::ClosedHandCursor)
                found.append(name);
            QTest::mouseRelease(tile, Qt::LeftButton);
        }
        return found;
    };
    QCOMPARE(draggable(), QStringList());
    strip.list.setTileDragEnabled(true);
    QCOMPARE(draggable(), QStringList({"Alpha", "Beta"}));
    strip.host.add("Gamma");
    QCOMPARE(draggable(), QStringList({"Alpha", "Beta", "Gamma"}));
    strip.list.setTileDragEnabled(false);
    strip.host.add("Delta");
    QCOMPARE(draggable(), QStringList());
}

void cProfileListTest::currentIsScrolledIntoSight()
{
    Strip strip(ProfileHost::someNames(20), "Default");
    const auto isInSight = [&strip](const QString& name) {
        const QRect tile = strip.list.visualItemRect(strip.list.item(strip.names().indexOf(name)));
        // Qt leaves out the last column of pixels.
        return tile.left() >= 0 && tile.right() <= strip.list.viewport()->width();
    };
    QVERIFY(isInSight("Default") && !isInSight("P019"));
    strip.list.selectProfile(ProfileHost::idOf("P019"));
    QVERIFY(isInSight("P019") && !isInSight("Default"));
    strip.list.horizontalScrollBar()->setValue(0);
    QVERIFY(!isInSight("P019"));
    strip.list.ensureCurrentVisible();
    QVERIFY(isInSight("P019"));
    // Without any tile there is nothing to do.
    Strip empty({});
    empty.list.ensureCurrentVisible();
    QCOMPARE(empty.list.horizontalScrollBar()->value(), 0);
}

void cProfileListTest::fiveHundredProfiles()
{
    QStringList names {"Default"};
    for (int i = 1; i < 500; ++i)
        names.append(QString("Profile %1").arg((i * 7919) % 500, 3, 10, QChar('0')));
    QElapsedTimer timer;
    timer.start();
    Strip strip(names);
    QCOMPARE(strip.list.count(), 500);
    QCoreApplication::processEvents();
    std::fprintf(stderr, "filled in %lld ms\n", timer.elapsed());
    QVERIFY(timer.elapsed() < 5000);
    timer.start();
    strip.list.onSearch("Profile 25");
    QCOMPARE(strip.shownNames().size(), 10);
    QVERIFY(timer.elapsed() < 1000);
}

VELTRANO_TEST_MAIN(cProfileListTest)
#include "cProfileListTest.moc"
