#include "Bar.h"
#include "ColorPictures.h"

#include <cGraphicsMenuButton.h>
#include <cGraphicsRibbonButton.h>
#include <cGraphicsText.h>
#include <cSearchBox.h>
#include <MenuDriver.h>
#include <MetaMembers.h>
#include <SceneEvents.h>
#include <TestCase.h>
#include <TestPictures.h>

#include <QFont>
#include <QFontMetrics>
#include <QFrame>
#include <QGuiApplication>
#include <QPen>
#include <QScreen>
#include <QSignalSpy>

#include <memory>
#include <utility>

class cProfileBarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreReachableByName();
    void comesUpInOrder();
    void titleButtonsAndArrowsStandInPlace();
    void titleIsWrittenInItsFont();
    void picturesStandInTheButtons_data();
    void picturesStandInTheButtons();
    void paintsNothing();
    void hoverIsPassedOn();

    void switchIsPublishedAsAPairBeforeItIsStored();
    void hostsSwitchDoesTheSame();
    void barThatGoesDuringItsEvents();
    void signalsOfTheListArePassedOn();

    void printAndSilentSave();
    void sorting();
    void droppedCommandsAreCopied();

    void buttonsBySet_data();
    void buttonsBySet();
    void menuOptionsGoToTheList();
    void searchFrameFiltersTheList();
    void listMayGoFirst();
};

void cProfileBarTest::membersAreReachableByName()
{
    const QMetaObject& meta = cProfileBar::staticMetaObject;
    QCOMPARE(MetaMembers::signalsOf(meta),
        QStringList({"useGenericForAllGkeys(QString)", "unassignAllGkeys(QString)", "printProfile(QString)",
            "hoverIn()", "hoverOut()", "useDefaultForAllGkeys(QString)"}));
    QCOMPARE(MetaMembers::slotsOf(meta),
        QStringList({"newProfile()", "scanForGames()", "onPrintClicked()", "onSilentSaveClicked()",
            "onNewMenuClicked(QPoint)", "onSaveMenuClicked()", "onCurrentProfileSwitched(QString)",
            "onMenuImportProfile()", "onMenuExportProfile()", "onMenuSortProfileAscending()",
            "onMenuSortProfileDescending()", "onMacrosDropped(QStringList,QString)",
            "onCopyProfileClicked(QAction*)", "onScrollLeftClicked()", "onScrollRightClicked()",
            "onProfilesScrollChanged(int)", "onProfilesScrollRangeChanged(int,int)"}));
    QCOMPARE(MetaMembers::propertiesOf(meta), QStringList("int value"));
}

void cProfileBarTest::comesUpInOrder()
{
    ProfileHost on({"Alpha", "Default"});
    on.settings["profiler/lastProfile"] = "{Alpha}";
    auto* const bar = new cProfileBar(QRectF(0, 0, 593, 96), "{before}", nullptr);
    QStringList log;
    for (const QString& line : on.host.takeLog()) {
        if (line.startsWith("subscribe") || line.startsWith("publish") || line.contains("setPropertyString")
            || line.contains(" profiles("))
            log.append(line);
    }
    QCOMPARE(log,
        QStringList({"subscribe ProfileMgr_Events on", "Profiler.ProfileMgr profiles() -> cJsonValue",
            R"(publish Profiler_Events ProfileSelectionChanging(QString "{Alpha}"))",
            R"(publish Profiler_Events ProfileSelectionChanged(QString "{Alpha}"))",
            R"(VGFSettings.Settings setPropertyString(const QString "profiler/lastProfile", const QString "{Alpha}"))",
            "subscribe ProfileMgr_Events on"}));
    QCOMPARE(bar->currentProfileId(), QString("{Alpha}"));
    QVERIFY(!bar->profileList()->parentWidget());
    QVERIFY(!bar->parentItem());
    cProfileList* const list = bar->profileList();
    delete bar;
    QCOMPARE(on.host.takeLog(), QStringList("unsubscribe ProfileMgr_Events"));
    // It was not the bar's.
    QCOMPARE(list->count(), 2);
    delete list;
}

void cProfileBarTest::titleButtonsAndArrowsStandInPlace()
{
    const Bar on;
    QCOMPARE(on.bar->boundingRect(), QRectF(0, 0, 593, 96));
    const cGraphicsText& title = *on.children<cGraphicsText>().at(0);
    QCOMPARE(title.text(), QString("Profiles"));
    QCOMPARE(title.pos(), QPointF(-1, 1));
    QCOMPARE(title.pen().brush(), QBrush(Qt::white, Qt::SolidPattern));
    QCOMPARE(on.newButton().pos(), QPointF(-6, 54));
    QCOMPARE(on.newButton().boundingRect(), QRectF(0, 0, 27, 41));
    QCOMPARE(on.importButton().pos(), QPointF(27, 54));
    QCOMPARE(on.importButton().boundingRect(), QRectF(0, 0, 27, 31));
    QCOMPARE(on.importButton().toolTip(), QString("Import/Export"));
    QCOMPARE(on.printButton().pos(), QPointF(59, 54));
    QCOMPARE(on.printButton().boundingRect(), QRectF(0, 0, 27, 31));
    QCOMPARE(on.printButton().toolTip(), QString("Print"));
    QCOMPARE(on.left().opacity(), 0.0);
    QCOMPARE(on.right().opacity(), 0.0);
    QStringList tips;
    for (const QGraphicsItem* item : on.newButton().childItems())
        tips.append(item->toolTip());
    QVERIFY(tips.contains("Create new profile"));
}

void cProfileBarTest::titleIsWrittenInItsFont()
{
    const Bar on;
    const cGraphicsText& title = *on.children<cGraphicsText>().at(0);
    // On one line, in plain Arial of 15 points at 96 dots per inch.
    QFont font("Arial");
    font.setWeight(50);
    font.setPointSizeF(15 * 96.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    const QSize size = QFontMetrics(font).size(Qt::TextSingleLine, title.text());
    QCOMPARE(title.boundingRect().size().toSize().height(), size.height());
    QVERIFY(qAbs(title.boundingRect().width() - size.width()) <= 2);
}

namespace {

using ButtonOf = cGraphicsButton& (*)(const Bar&);

/// The main button of the ribbon, or the arrow in the strip under it.
cGraphicsButton& partOfRibbon(const Bar& on, bool isStrip)
{
    on.newButton().showMenu(true);
    for (QGraphicsItem* part : on.newButton().childItems()) {
        if (isStrip == (dynamic_cast<cGraphicsMenuButton*>(part) != nullptr)) {
            auto* const shown = isStrip ? part->childItems().constFirst() : part;
            return dynamic_cast<cGraphicsButton&>(*shown);
        }
    }
    qFatal("no such part");
}

} // namespace

Q_DECLARE_METATYPE(ButtonOf)

void cProfileBarTest::picturesStandInTheButtons_data()
{
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("hover");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<ButtonOf>("buttonOf");
    // In the scene, for a bar at its origin.
    QTest::addColumn<QRect>("place");
    // In the middle of 27 pixels, 5 below the upper edge.
    QTest::newRow("new") << "icon_new_normal.png"
                         << "icon_new_hover.png" << QSize(21, 20)
                         << ButtonOf(
                                [](const Bar& on) -> cGraphicsButton& { return partOfRibbon(on, false); })
                         << QRect(-6 + 3, 54 + 5, 21, 20);
    QTest::newRow("menu of new") << "pointer_down_up.png"
                                 << "pointer_down_hover.png" << QSize(9, 6)
                                 << ButtonOf([](const Bar& on) -> cGraphicsButton& {
                                        return partOfRibbon(on, true);
                                    })
                                 << QRect(-6 + 9, 54 + 31 + 2, 9, 6);
    QTest::newRow("import") << "folder_normal.png"
                            << "folder_hover.png" << QSize(21, 20)
                            << ButtonOf([](const Bar& on) -> cGraphicsButton& { return on.importButton(); })
                            << QRect(27 + 3, 54 + 5, 21, 20);
    QTest::newRow("print") << "print_profile.png"
                           << "print_profile_hover.png" << QSize(21, 20)
                           << ButtonOf([](const Bar& on) -> cGraphicsButton& { return on.printButton(); })
                           << QRect(59 + 3, 54 + 5, 21, 20);
    // The arrows have one picture alone.
    QTest::newRow("left") << "pointer_left_large.png" << QString() << QSize(12, 46)
                          << ButtonOf([](const Bar& on) -> cGraphicsButton& { return on.left(); })
                          << QRect(143, 22, 12, 46);
    QTest::newRow("right") << "pointer_right_large.png" << QString() << QSize(12, 46)
                           << ButtonOf([](const Bar& on) -> cGraphicsButton& { return on.right(); })
                           << QRect(579, 22, 12, 46);
}

void cProfileBarTest::picturesStandInTheButtons()
{
    QFETCH(QString, normal);
    QFETCH(QString, hover);
    QFETCH(QSize, size);
    QFETCH(ButtonOf, buttonOf);
    QFETCH(QRect, place);
    ColorPictures pictures;
    pictures.add(qPrintable(normal), size.width(), size.height(), Qt::red);
    if (!hover.isEmpty())
        pictures.add(qPrintable(hover), size.width(), size.height(), Qt::green);
    const Bar on({"Alpha", "Default"}, "Alpha", pictures.path());
    cGraphicsButton& button = buttonOf(on);
    const auto extent = [&](const QColor& color) {
        const QRect found = colorExtent(SceneEvents::painted(button, QSize(60, 60)), color);
        return found.isNull() ? found : found.translated(button.scenePos().toPoint());
    };
    QCOMPARE(extent(Qt::red), place);
    SceneEvents::hoverEnter(button);
    QCOMPARE(extent(hover.isEmpty() ? Qt::red : Qt::green), place);
    SceneEvents::hoverLeave(button);
    QCOMPARE(extent(Qt::red), place);
}

void cProfileBarTest::paintsNothing()
{
    const Bar on;
    QImage picture = SceneEvents::painted(*on.bar, QSize(593, 96));
    QImage empty(picture.size(), picture.format());
    empty.fill(Qt::transparent);
    QCOMPARE(picture, empty);
}

void cProfileBarTest::hoverIsPassedOn()
{
    const Bar on;
    QSignalSpy in(on.bar, SIGNAL(hoverIn()));
    QSignalSpy out(on.bar, SIGNAL(hoverOut()));
    SceneEvents::hoverEnter(*on.bar);
    QCOMPARE(in.size(), 1);
    SceneEvents::hoverLeave(*on.bar);
    QCOMPARE(out.size(), 1);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(on.list.get(), &enter);
    QCOMPARE(in.size(), 2);
    // The list's own is not: the pointer has only gone from the list to the bar.
    QSignalSpy listOut(on.list.get(), SIGNAL(hoverOut()));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(on.list.get(), &leave);
    QCOMPARE(listOut.size(), 1);
    QCOMPARE(out.size(), 1);
}

namespace {

/// Notes what the bar says during each event.
class Listener : public QObject
{
    Q_OBJECT

public:
    explicit Listener(const cProfileBar& bar)
        : m_bar(bar)
    {
        IServiceMgr::instance()->subscribe("Profiler_Events", this, "on");
    }

    QStringList heard;

    Q_INVOKABLE void onProfileSelectionChanging(const QString& id) { note("changing", id); }
    Q_INVOKABLE void onProfileSelectionChanged(const QString& id) { note("changed", id); }

private:
    void note(const QString& event, const QString& id)
    {
        heard.append(event + ' ' + id + " while " + m_bar.currentProfileId());
    }

    const cProfileBar& m_bar;
};

} // namespace

void cProfileBarTest::switchIsPublishedAsAPairBeforeItIsStored()
{
    const Bar on;
    const Listener listener(*on.bar);
    on.list->selectProfile(ProfileHost::idOf("Default"));
    const QString id = ProfileHost::idOf("Default");
    QCOMPARE(listener.heard,
        QStringList({"changing " + id + " while {Alpha}", "changed " + id + " while {Alpha}"}));
    QCOMPARE(on.bar->currentProfileId(), id);
}

void cProfileBarTest::hostsSwitchDoesTheSame()
{
    Bar on;
    const Listener listener(*on.bar);
    on.host.host.publishCurrentProfileSwitched("{other}");
    QCOMPARE(
        listener.heard, QStringList({"changing {other} while {Alpha}", "changed {other} while {Alpha}"}));
    QCOMPARE(on.bar->currentProfileId(), QString("{other}"));
    // The tiles stay as they are.
    QCOMPARE(on.list->selectedProfileIds(), QStringList("{Alpha}"));
}

namespace {

/// Takes the bar away at the first event.
class Remover : public QObject
{
    Q_OBJECT

public:
    explicit Remover(const cProfileBar* bar)
        : m_bar(bar)
    {
        IServiceMgr::instance()->subscribe("Profiler_Events", this, "on");
    }

    Q_INVOKABLE void onProfileSelectionChanging(const QString&) { delete std::exchange(m_bar, nullptr); }

private:
    const cProfileBar* m_bar;
};

} // namespace

void cProfileBarTest::barThatGoesDuringItsEvents()
{
    Bar on;
    const Remover remover(on.bar);
    on.list->selectProfile(ProfileHost::idOf("Default"));
    QCOMPARE(on.host.takeEvents().filter("ProfileSelectionChanged").size(), 1);
    QCOMPARE(on.list->selectedProfileIds(), QStringList(ProfileHost::idOf("Default")));
}

void cProfileBarTest::signalsOfTheListArePassedOn()
{
    const Bar on;
    for (const char* signal :
        {SIGNAL(useDefaultForAllGkeys(const QString&)), SIGNAL(useGenericForAllGkeys(const QString&)),
            SIGNAL(unassignAllGkeys(const QString&)), SIGNAL(printProfile(const QString&))}) {
        QSignalSpy told(on.bar, signal);
        const QByteArray name(signal + 1);
        QVERIFY(QMetaObject::invokeMethod(
            on.list.get(), name.left(name.indexOf('(')).constData(), Q_ARG(QString, "{1}")));
        QCOMPARE(told, QList<QVariantList>({{"{1}"}}));
    }
}

void cProfileBarTest::printAndSilentSave()
{
    Bar on;
    QSignalSpy printed(on.bar, SIGNAL(printProfile(const QString&)));
    SceneEvents::press(on.printButton());
    QCOMPARE(printed, QList<QVariantList>({{"{Alpha}"}}));
    on.call("onSilentSaveClicked");
    QCOMPARE(on.host.host.takeCalls(), QStringList("saveAllProfiles()"));
}

void cProfileBarTest::sorting()
{
    const Bar on({"Beta", "Alpha", "Gamma"}, "Beta");
    const auto names = [&] {
        QStringList found;
        for (int row = 0; row < on.list->count(); ++row)
            found.append(on.list->profileName(row));
        return found;
    };
    QCOMPARE(names(), QStringList({"Alpha", "Beta", "Gamma"}));
    on.call("onMenuSortProfileDescending");
    QCOMPARE(names(), QStringList({"Gamma", "Beta", "Alpha"}));
    on.call("onMenuSortProfileAscending");
    QCOMPARE(names(), QStringList({"Alpha", "Beta", "Gamma"}));
    QCOMPARE(on.list->selectedProfileIds(), QStringList("{Beta}"));
}

void cProfileBarTest::droppedCommandsAreCopied()
{
    Bar on;
    const auto drop = [&](const QString& id) {
        QMetaObject::invokeMethod(on.list.get(), "macrosDropped",
            Q_ARG(QStringList, QStringList({"{1}", "{2}"})), Q_ARG(QString, id));
    };
    drop("{Alpha}");
    QCOMPARE(on.host.host.takeCalls(), QStringList());
    drop("{Beta}");
    QCOMPARE(on.host.host.takeCalls(), QStringList(R"(copyMacros("{Alpha}", "{Beta}", ["{1}", "{2}"]))"));
    // What is current is what the bar heard last.
    on.host.host.publishCurrentProfileSwitched("{Beta}");
    drop("{Beta}");
    QCOMPARE(on.host.host.takeCalls(), QStringList());
}

void cProfileBarTest::buttonsBySet_data()
{
    QTest::addColumn<QList<int>>("set");
    QTest::addColumn<QList<int>>("places");
    // The x of each button; -1 for one that is hidden.
    QTest::newRow("all") << QList<int>({0, 1, 2}) << QList<int>({-6, 27, 59});
    QTest::newRow("no new") << QList<int>({1, 2}) << QList<int>({-1, 0, 32});
    QTest::newRow("no import") << QList<int>({0, 2}) << QList<int>({-6, -1, 27});
    QTest::newRow("no print") << QList<int>({0, 1}) << QList<int>({-6, 27, -1});
    QTest::newRow("new") << QList<int>({0}) << QList<int>({-6, -1, -1});
    QTest::newRow("import") << QList<int>({1}) << QList<int>({-1, 0, -1});
    QTest::newRow("print") << QList<int>({2}) << QList<int>({-1, -1, 0});
    QTest::newRow("none") << QList<int>() << QList<int>({-1, -1, -1});
    QTest::newRow("others") << QList<int>({-1, 3, 17}) << QList<int>({-1, -1, -1});
}

void cProfileBarTest::buttonsBySet()
{
    QFETCH(QList<int>, set);
    QFETCH(QList<int>, places);
    const Bar on;
    QVERIFY(on.bar->setButtons(QSet<int>(set.begin(), set.end())));
    const auto place = [](const QGraphicsItem& button) {
        return button.isVisible() ? int(button.x()) : -1;
    };
    QCOMPARE(QList<int>({place(on.newButton()), place(on.importButton()), place(on.printButton())}), places);
    QCOMPARE(on.importButton().y(), 54.0);
    QCOMPARE(on.printButton().y(), 54.0);
    // Without the new button the wells make no profile either.
    QCOMPARE(on.list->hasMouseTracking(), set.contains(0));
    if (!set.contains(0)) {
        QSignalSpy wanted(on.list.get(), SIGNAL(newProfile()));
        QTest::mouseClick(on.list->viewport(), Qt::LeftButton, {}, QPoint(4 * 68 + 30, 40));
        QCOMPARE(wanted.size(), 0);
    }
}

void cProfileBarTest::menuOptionsGoToTheList()
{
    const Bar on;
    QVERIFY(on.bar->setMenuOptions({0}));
    QStringList entries;
    const MenuDriver driver([&](QMenu& menu) { entries = MenuDriver::entriesOf(menu); });
    QMetaObject::invokeMethod(on.list.get(), "profileContextMenuIconClicked", Q_ARG(QPoint, QPoint(10, 10)));
    QVERIFY(entries.contains("Save"));
    QVERIFY(!entries.contains("Delete"));
}

void cProfileBarTest::searchFrameFiltersTheList()
{
    const Bar on({"Alpha", "Beta"});
    const std::unique_ptr<QFrame> frame(on.bar->searchFrame());
    QCOMPARE(on.bar->searchFrame(), frame.get());
    QVERIFY(!frame->parentWidget());
    QCOMPARE(frame->frameStyle(), 0);
    QVERIFY(frame->autoFillBackground());
    auto* const box = frame->findChild<cSearchBox*>();
    QCOMPARE(box->size(), QSize(135, 28));
    QVERIFY(frame->rect().contains(box->geometry()));
    Q_EMIT box->textEdited("bet");
    QVERIFY(on.list->item(0)->isHidden());
    QVERIFY(!on.list->item(1)->isHidden());
}

void cProfileBarTest::listMayGoFirst()
{
    Bar on;
    on.list.reset();
    on.host.clear();
    QVERIFY(!on.bar->profileList());
    QVERIFY(!on.bar->setMenuOptions({0}));
    QVERIFY(on.bar->setButtons({0, 1, 2}));
    for (const char* slot : {"onScrollLeftClicked", "onScrollRightClicked", "onMenuSortProfileAscending"})
        QVERIFY(on.call(slot));
    QCOMPARE(on.bar->property("value").toInt(), 0);
    const std::unique_ptr<QFrame> frame(on.bar->searchFrame());
    QVERIFY(frame->findChild<cSearchBox*>());
    QStringList entries;
    const MenuDriver driver([&](QMenu& menu) { entries = MenuDriver::entriesOf(menu); });
    Q_EMIT on.newButton().menu(QPoint(20, 30));
    QCOMPARE(entries.size(), 3);
    on.host.host.publishCurrentProfileSwitched("{other}");
    QCOMPARE(on.bar->currentProfileId(), QString("{other}"));
}

VELTRANO_TEST_MAIN(cProfileBarTest)
#include "cProfileBarTest.moc"
