#include "Strip.h"

#include <cProfileItem.h>
#include <cProfileList.h>
#include <FixedIds.h>
#include <MetaMembers.h>
#include <PluginContext.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QElapsedTimer>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <cstdio>

namespace {

const QString Default = FixedIds::DefaultProfile;

} // namespace

/// The tiles, the selection and the current profile.
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

    void clickMakesCurrentAndPublishes();
    void secondClickOnTheCurrentPublishesNothing();
    void selectionWithTheCurrentKeepsIt();
    void deselectedCurrentStaysMarked();
    void selectingOthersMakesTheFirstCurrent();
    void selectProfileFindsItsRow();
    void selectProfileKeepsWhatAnArrivalFoundSelected();
    void listThatGoesWhileItTells();

    void tilesAreSortedByName();
    void addedProfileIsSelected();
    void addedProfileOfADeviceIsNot();
    void addedProfileHasTheIdOfItsEvent();
    void vanishedProfileIsNotAdded();
    void renamedProfileMovesAndStaysCurrent();
    void changedPropertyAsksForTheIcon();
    void eventsForUnknownProfilesAreIgnored();

    void deletionByTheHost_data();
    void deletionByTheHost();
    void deletionOfADeselectedCurrentMakesTheNextCurrent();
    void placeOfTheCurrentFollowsTheTiles();

    void iconsAre48Wide();
    void namesOfAllKinds_data();
    void namesOfAllKinds();
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

void cProfileListTest::clickMakesCurrentAndPublishes()
{
    Strip strip({"Alpha", "Beta", "Default"});
    QSignalSpy selected(&strip.list, SIGNAL(selectedProfile(const QString&)));
    strip.click("Beta");
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.selected(), QStringList("Beta"));
    QCOMPARE(selected, QList<QVariantList>({{"{Beta}"}}));
    QCOMPARE(
        strip.host.takeRequests(), QStringList(R"(setPropertyString("profiler/lastProfile", "{Beta}"))"));
    QCOMPARE(strip.host.takeEvents(), QStringList("ProfileSelectionChange "));
}

void cProfileListTest::secondClickOnTheCurrentPublishesNothing()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.click("Alpha");
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    QCOMPARE(strip.current(), QStringList("Alpha"));
}

void cProfileListTest::selectionWithTheCurrentKeepsIt()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.click("Default", Qt::ControlModifier);
    QCOMPARE(strip.selected(), QStringList({"Alpha", "Default"}));
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    strip.click("Beta", Qt::ControlModifier);
    QCOMPARE(strip.selected(), QStringList({"Alpha", "Beta", "Default"}));
    // Taking the current one out makes another selected one current.
    strip.click("Alpha", Qt::ControlModifier);
    QCOMPARE(strip.current().size(), 1);
    QVERIFY(strip.selected().contains(strip.current().first()));
    QVERIFY(strip.current().first() != "Alpha");
}

void cProfileListTest::deselectedCurrentStaysMarked()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.click("Alpha", Qt::ControlModifier);
    QVERIFY(strip.selected().isEmpty());
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    QTest::qWait(20);
    QCOMPARE(strip.current(), QStringList("Alpha"));
}

void cProfileListTest::selectingOthersMakesTheFirstCurrent()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.list.clearSelection();
    strip.list.selectionModel()->select(
        QItemSelection(strip.list.model()->index(1, 0), strip.list.model()->index(2, 0)),
        QItemSelectionModel::Select);
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.host.takeEvents(), QStringList("ProfileSelectionChange "));
}

void cProfileListTest::selectProfileFindsItsRow()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.list.selectProfile("{nobody}");
    QCOMPARE(strip.host.host.takeLog(), QStringList());
    strip.list.selectProfile("{Beta}");
    QCOMPARE(strip.current(), QStringList("Beta"));
    strip.list.selectRow(17);
    QCOMPARE(strip.current(), QStringList());
    strip.list.selectRow(-1);
    QCOMPARE(strip.current(), QStringList());
}

void cProfileListTest::selectProfileKeepsWhatAnArrivalFoundSelected()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    // The list moves on as lists of several do: what was selected when a row came stays so.
    strip.host.add("Device", "device-1");
    strip.list.selectProfile("{Beta}");
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.selected(), QStringList({"Alpha", "Beta"}));
    QCOMPARE(
        strip.host.takeRequests(), QStringList(R"(setPropertyString("profiler/lastProfile", "{Beta}"))"));
}

namespace {

/// Takes the list away when it says which profile is current.
class Remover : public QObject
{
    Q_OBJECT

public:
    explicit Remover(cProfileList* list)
        : m_list(list)
    {
        connect(list, SIGNAL(selectedProfile(const QString&)), SLOT(remove()));
    }

private Q_SLOTS:
    void remove() { delete m_list; }

private:
    QPointer<cProfileList> m_list;
};

} // namespace

void cProfileListTest::listThatGoesWhileItTells()
{
    ProfileHost on({"Alpha", "Default"});
    const QPointer<cProfileList> list(new cProfileList);
    list->populate();
    const Remover remover(list);
    on.clear();
    list->selectProfile("{Alpha}");
    QVERIFY(!list);
    // What the user chose is remembered all the same.
    QCOMPARE(on.settings["profiler/lastProfile"], QString("{Alpha}"));
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

void cProfileListTest::addedProfileIsSelected()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.add("Beta");
    QCOMPARE(strip.current(), QStringList("Beta"));
    QCOMPARE(strip.selected(), QStringList("Beta"));
    QCOMPARE(
        strip.host.takeRequests(), QStringList(R"(setPropertyString("profiler/lastProfile", "{Beta}"))"));
}

void cProfileListTest::addedProfileOfADeviceIsNot()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.add("Beta", "mouse-1");
    QCOMPARE(strip.names(), QStringList({"Alpha", "Beta", "Default"}));
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.tile("Beta")->deviceId(), QString("mouse-1"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
}

void cProfileListTest::addedProfileHasTheIdOfItsEvent()
{
    Strip strip({"Alpha"}, "Alpha");
    cJsonValue record;
    record["name"] = "Beta";
    strip.host.host.answer("getProfileByID", record);
    strip.host.host.publishProfileAdded("{Beta}");
    QCOMPARE(strip.list.profileId(1), QString("{Beta}"));
    QCOMPARE(strip.list.selectedProfileIds(), QStringList("{Beta}"));
}

void cProfileListTest::vanishedProfileIsNotAdded()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.host.publishProfileAdded("{gone}");
    QCOMPARE(strip.names(), QStringList("Alpha"));
}

void cProfileListTest::renamedProfileMovesAndStaysCurrent()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.host.rename("{Alpha}", "Zulu");
    QCOMPARE(strip.names(), QStringList({"Beta", "Default", "Zulu"}));
    QCOMPARE(strip.selected(), QStringList("Alpha"));
    QCOMPARE(strip.list.profileId(2), QString("{Alpha}"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
    const auto* tile = qobject_cast<cProfileItem*>(strip.list.itemWidget(strip.list.item(2)));
    QCOMPARE(tile->name(), QString("Zulu"));
    QCOMPARE(tile->toolTip(), QString("Zulu"));
}

void cProfileListTest::changedPropertyAsksForTheIcon()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.profile("{Alpha}").icon = filledPicture(48, 48, Qt::red);
    strip.host.host.publishProfilePropertyChanged("{Alpha}");
    QCOMPARE(strip.host.host.takeCalls(),
        QStringList({R"(getProfileByID("{Alpha}"))", R"(profileIcon("{Alpha}"))"}));
    QVERIFY(isFilled(strip.tile("Alpha")->icon().toImage(), QRect(0, 0, 48, 48), Qt::red));
}

void cProfileListTest::eventsForUnknownProfilesAreIgnored()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.host.publishProfilePropertyChanged("{nobody}");
    strip.host.host.publishProfileDeleted("{nobody}");
    QCOMPARE(strip.names(), QStringList("Alpha"));
    QCOMPARE(strip.current(), QStringList("Alpha"));
    QCOMPARE(strip.host.takeRequests(), QStringList());
}

void cProfileListTest::deletionByTheHost_data()
{
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QStringList>("next");
    QTest::newRow("first") << "A"
                           << "A" << QStringList("B");
    QTest::newRow("in the middle") << "B"
                                   << "B" << QStringList("C");
    QTest::newRow("last") << "D"
                          << "D" << QStringList("C");
    QTest::newRow("before the current") << "C"
                                        << "A" << QStringList("C");
    QTest::newRow("behind the current") << "C"
                                        << "D" << QStringList("C");
}

void cProfileListTest::deletionByTheHost()
{
    QFETCH(QString, current);
    QFETCH(QString, deleted);
    QFETCH(QStringList, next);
    Strip strip({"A", "B", "C", "D"}, current);
    strip.host.remove(ProfileHost::idOf(deleted));
    QTRY_COMPARE(strip.current(), next);
    QCOMPARE(strip.selected(), next);
    QCOMPARE(strip.list.count(), 3);
    // One profile changed hands at most once.
    QCOMPARE(strip.host.takeRequests().size(), current == deleted ? 1 : 0);
    QTest::qWait(10);
    QCOMPARE(strip.host.takeRequests().size(), 0);
}

void cProfileListTest::deletionOfADeselectedCurrentMakesTheNextCurrent()
{
    Strip strip({"A", "B", "C"}, "B");
    strip.click("B", Qt::ControlModifier);
    strip.host.remove("{B}");
    QTRY_COMPARE(strip.current(), QStringList("C"));
    // And of the only one nothing is left.
    strip.host.remove("{A}");
    strip.host.remove("{C}");
    QTest::qWait(10);
    QCOMPARE(strip.list.count(), 0);
    QVERIFY(strip.list.selectedProfileIds().isEmpty());
    strip.host.add("New");
    QCOMPARE(strip.current(), QStringList("New"));
}

void cProfileListTest::placeOfTheCurrentFollowsTheTiles()
{
    Strip strip({"C", "D", "E", "F", "G"}, "E");
    strip.host.remove("{C}");
    strip.host.put("A", "device");
    strip.host.host.publishProfileAdded("{A}");
    strip.host.rename("{D}", "X");
    QCOMPARE(strip.names(), QStringList({"A", "E", "F", "G", "X"}));
    strip.host.remove("{E}");
    QTRY_COMPARE(strip.current(), QStringList("F"));
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
