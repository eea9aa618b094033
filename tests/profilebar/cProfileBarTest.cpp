#include "ProfileHost.h"

#include <cGraphicsButton.h>
#include <cGraphicsRibbonButton.h>
#include <cGraphicsText.h>
#include <cGraphicsTextButton.h>
#include <cProfileBar.h>
#include <cProfileList.h>
#include <cSearchBox.h>
#include <DialogDriver.h>
#include <EditProfileDialog.h>
#include <GameDatabase.h>
#include <MenuDriver.h>
#include <MetaMembers.h>
#include <ScanForGamesDialog.h>
#include <SceneEvents.h>
#include <TestCase.h>

#include <QAction>
#include <QActionGroup>
#include <QDir>
#include <QFileDialog>
#include <QFrame>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>
#include <utility>

namespace {

/// A bar in a scene, with its list in a frame as large as in the view.
class Bar
{
    Q_DISABLE_COPY(Bar)

public:
    explicit Bar(const QStringList& names = {"Alpha", "Default"}, const QString& last = "Alpha")
        : host(names)
    {
        host.settings["profiler/lastProfile"] = ProfileHost::idOf(last);
        bar = new cProfileBar(QRectF(0, 0, 593, 96), "{before}", nullptr);
        scene.addItem(bar);
        list.reset(bar->profileList());
        list->setFixedSize(404, 103);
        list->setFrameShape(QFrame::NoFrame);
        list->show();
        QCoreApplication::processEvents();
        host.clear();
    }

    template<typename Item>
    QList<Item*> children() const
    {
        QList<Item*> found;
        for (QGraphicsItem* item : bar->childItems()) {
            if (auto* wanted = dynamic_cast<Item*>(item))
                found.append(wanted);
        }
        return found;
    }
    cGraphicsRibbonButton& newButton() const { return *children<cGraphicsRibbonButton>().at(0); }
    cGraphicsButton& importButton() const { return *children<cGraphicsTextButton>().at(0); }
    cGraphicsButton& printButton() const { return *children<cGraphicsTextButton>().at(1); }
    cGraphicsButton& arrow(int x) const
    {
        for (cGraphicsButton* button : children<cGraphicsButton>()) {
            if (button->pos() == QPointF(x, 22))
                return *button;
        }
        qFatal("no arrow");
    }
    cGraphicsButton& left() const { return arrow(143); }
    cGraphicsButton& right() const { return arrow(579); }
    bool call(const char* slot) const { return QMetaObject::invokeMethod(bar, slot); }

    ProfileHost host;
    QGraphicsScene scene;
    /// The scene's.
    cProfileBar* bar = nullptr;
    std::unique_ptr<cProfileList> list;
};

QStringList manyNames(int count)
{
    QStringList names {"Default"};
    for (int i = 1; i < count; ++i)
        names.append(QString("P%1").arg(i, 3, 10, QChar('0')));
    return names.mid(0, count);
}

/// Looks at the next file dialog and answers it.
class FileChoice
{
public:
    /// No path cancels.
    explicit FileChoice(const QString& path = QString())
        : m_driver([this, path](QDialog& dialog) {
            auto& files = *qobject_cast<QFileDialog*>(&dialog);
            title = files.windowTitle();
            folder = files.directory().absolutePath();
            filters = files.nameFilters();
            mode = files.acceptMode();
            hasParent = dialog.parentWidget() != nullptr;
            if (path.isEmpty())
                return;
            files.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            QMetaObject::invokeMethod(&files, "accept");
        })
    { }

    bool hasRun() const { return m_driver.hasRun(); }

    QString title;
    QString folder;
    QStringList filters;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    bool hasParent = true;

private:
    DialogDriver m_driver;
};

QString desktop()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

} // namespace

class cProfileBarTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void membersAreReachableByName();
    void comesUpInOrder();
    void titleButtonsAndArrowsStandInPlace();
    void paintsNothing();
    void hoverIsPassedOn();

    void switchIsPublishedAsAPairBeforeItIsStored();
    void hostsSwitchDoesTheSame();
    void barThatGoesDuringItsEvents();
    void signalsOfTheListArePassedOn();

    void newButtonOpensTheDialog();
    void wellOpensTheDialog();
    void scanOpensTheDialog();
    void newMenu();
    void newMenuCopiesProfiles();
    void menusOpenOnTheCanvas();
    void importMenu();
    void missingWindowIsLogged_data();
    void missingWindowIsLogged();
    void printAndSilentSave();
    void sorting();

    void droppedCommandsAreCopied();

    void importAsksForAFile_data();
    void importAsksForAFile();
    void exportAsksForAFile_data();
    void exportAsksForAFile();
    void exportTakesWhatIsCurrentWhenTheFileIsChosen();
    void exportWithoutADesktopEmptiesTheSetting();
    void barThatGoesDuringAFileDialog();

    void fewTilesShowNoArrows_data();
    void fewTilesShowNoArrows();
    void arrowsFollowThePlace();
    void arrowsScrollByOneTile();
    void arrowsFadeWhenTilesComeAndGo();
    void valueIsThatOfTheScrollBar();

    void buttonsBySet_data();
    void buttonsBySet();
    void menuOptionsGoToTheList();
    void searchFrameFiltersTheList();
    void listMayGoFirst();
};

void cProfileBarTest::initTestCase()
{
    TestCase::initTestCase();
    QStandardPaths::setTestModeEnabled(true);
    QDir().mkpath(desktop());
}

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

void cProfileBarTest::newButtonOpensTheDialog()
{
    const Bar on;
    QString title;
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<EditProfileDialog*>(&dialog));
        QCOMPARE(dialog.parentWidget(), &on.host.window);
        title = dialog.windowTitle();
    });
    Q_EMIT on.newButton().clicked();
    QVERIFY(driver.hasRun());
    QCOMPARE(title, QString("New Profile"));
}

void cProfileBarTest::wellOpensTheDialog()
{
    const Bar on;
    const DialogDriver driver(
        [](QDialog& dialog) { QCOMPARE(dialog.windowTitle(), QString("New Profile")); });
    const ExpectedMessage line(QtInfoMsg, QRegularExpression("empty profile well 4$"));
    QTest::mouseClick(on.list->viewport(), Qt::LeftButton, {}, QPoint(4 * 68 + 30, 40));
    QVERIFY(driver.hasRun());
}

void cProfileBarTest::scanOpensTheDialog()
{
    const Bar on;
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<ScanForGamesDialog*>(&dialog));
        QCOMPARE(dialog.parentWidget(), &on.host.window);
    });
    const GameDatabase none;
    on.call("scanForGames");
    QVERIFY(driver.hasRun());
}

void cProfileBarTest::newMenu()
{
    const Bar on({"Beta", "Default", "Rock & Roll"});
    QStringList entries;
    QStringList copies;
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        copies = MenuDriver::entriesOf(*menu.actions().last()->menu());
        place = menu.pos();
        QCOMPARE(menu.parentWidget(), &on.host.window);
    });
    Q_EMIT on.newButton().menu(QPoint(20, 30));
    QVERIFY(driver.hasRun());
    QCOMPARE(entries, QStringList({"Create New Profile...", "Scan For New Games", "Copy Existing Profile"}));
    QCOMPARE(copies, QStringList({"Beta", "Default", "Rock && Roll"}));
    QCOMPARE(place, on.host.window.mapToGlobal(QPoint(20, 30)));
}

void cProfileBarTest::newMenuCopiesProfiles()
{
    Bar on({"Beta", "Default"});
    const MenuDriver driver([&](QMenu& menu) {
        QAction* copy = menu.actions().last()->menu()->actions().first();
        QVERIFY(copy->actionGroup());
        QCOMPARE(copy->data().toString(), QString("{Beta}"));
        on.host.clear();
        copy->trigger();
    });
    Q_EMIT on.newButton().menu(QPoint(20, 30));
    QVERIFY(driver.hasRun());
    QCOMPARE(on.host.takeRequests(), QStringList(R"(copyProfile("{Beta}"))"));
}

void cProfileBarTest::menusOpenOnTheCanvas()
{
    // The canvas may stand anywhere in the window.
    Bar on;
    auto* const canvas = new QGraphicsView(&on.scene, &on.host.window);
    canvas->setFrameShape(QFrame::NoFrame);
    canvas->setSceneRect(0, 0, 600, 300);
    canvas->setGeometry(15, 40, 600, 300);
    on.host.window.show();
    on.bar->setPos(10, 5);
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
    on.call("onSaveMenuClicked");
    QVERIFY(driver.hasRun());
    QCOMPARE(place, on.host.window.mapToGlobal(QPoint(15 + 10 + 27, 40 + 5 + 54 + 41)));
}

void cProfileBarTest::importMenu()
{
    Bar on;
    on.bar->setPos(100, 20);
    QStringList entries;
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        place = menu.pos();
    });
    SceneEvents::press(on.importButton());
    QVERIFY(driver.hasRun());
    QCOMPARE(entries, QStringList({"Import...", "Export..."}));
    QCOMPARE(place, on.host.window.mapToGlobal(QPoint(100 + 27, 20 + 54 + 41)));
}

void cProfileBarTest::missingWindowIsLogged_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::newRow("new") << true;
    QTest::newRow("import") << false;
}

void cProfileBarTest::missingWindowIsLogged()
{
    QFETCH(bool, isNew);
    Bar on;
    on.host.host.answer("window", static_cast<QWidget*>(nullptr));
    const MenuDriver driver([](QMenu&) {});
    const ExpectedMessage line(QtCriticalMsg, "Main Window is returning NULL window");
    if (isNew)
        Q_EMIT on.newButton().menu(QPoint(1, 1));
    else
        on.call("onSaveMenuClicked");
    QVERIFY(!driver.hasRun());
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

void cProfileBarTest::importAsksForAFile_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<bool>("cancels");
    QTest::newRow("first time") << QString() << false;
    QTest::newRow("again") << QString("there") << false;
    QTest::newRow("folder that is gone") << QString("gone") << false;
    QTest::newRow("cancelled") << QString("there") << true;
}

void cProfileBarTest::importAsksForAFile()
{
    QFETCH(QString, last);
    QFETCH(bool, cancels);
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("there");
    QDir(folder.path()).mkpath("other");
    const QString path = folder.filePath("other/100% %1.lgp");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    Bar on;
    if (!last.isEmpty())
        on.host.settings["profiler/lastimportdir"] = folder.filePath(last);
    FileChoice choice(cancels ? QString() : path);
    on.call("onMenuImportProfile");
    QVERIFY(choice.hasRun());
    QCOMPARE(choice.title, QString("Import Profile"));
    QVERIFY(!choice.hasParent);
    QCOMPARE(choice.filters, QStringList({"Game Profiles (*.lgp *.xml)", "All Files (*)"}));
    QCOMPARE(choice.mode, QFileDialog::AcceptOpen);
    if (last == "there")
        QCOMPARE(choice.folder, folder.filePath("there"));
    QStringList calls {QString("getPropertyString(\"profiler/lastimportdir\", \"%1\")").arg(desktop())};
    if (!cancels) {
        calls += QString("importProfile(\"%1\")").replace("%1", path);
        calls +=
            QString("setPropertyString(\"profiler/lastimportdir\", \"%1\")").arg(folder.filePath("other"));
    }
    QCOMPARE(on.host.host.takeCalls(), calls);
}

void cProfileBarTest::exportAsksForAFile_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<bool>("cancels");
    // Whether the setting is emptied before the dialog opens.
    QTest::addColumn<bool>("empties");
    QTest::newRow("first time") << QString() << false << false;
    QTest::newRow("again") << QString("there") << false << false;
    QTest::newRow("empty setting") << QString("") << false << false;
    QTest::newRow("folder that is gone") << QString("gone") << false << true;
    QTest::newRow("file instead of a folder") << QString("file") << true << true;
    QTest::newRow("cancelled") << QString("there") << true << false;
    QTest::newRow("gone and cancelled") << QString("gone") << true << true;
}

void cProfileBarTest::exportAsksForAFile()
{
    QFETCH(QString, last);
    QFETCH(bool, cancels);
    QFETCH(bool, empties);
    QTemporaryDir folder;
    QDir(folder.path()).mkpath("there");
    QDir(folder.path()).mkpath("other");
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString path = folder.filePath("other/profile.xml");
    Bar on({"Alpha", "Beta", "Default"});
    if (!last.isNull())
        on.host.settings["profiler/lastexportdir"] = last.isEmpty() ? QString("") : folder.filePath(last);
    FileChoice choice(cancels ? QString() : path);
    // From a tile's menu as well as from the bar's.
    Q_EMIT on.list->exportProfile();
    QVERIFY(choice.hasRun());
    QCOMPARE(choice.title, QString("Export Profile"));
    QVERIFY(!choice.hasParent);
    QCOMPARE(choice.filters, QStringList({"Game Profiles (*.xml)", "All Files (*)"}));
    QCOMPARE(choice.mode, QFileDialog::AcceptSave);
    QCOMPARE(choice.folder, last == "there" ? folder.filePath("there") : desktop());
    QStringList calls {QString("getPropertyString(\"profiler/lastexportdir\", \"%1\")").arg(desktop())};
    if (empties)
        calls += R"(setPropertyString("profiler/lastexportdir", ""))";
    if (!cancels) {
        calls += QString("exportProfile(\"{Alpha}\", \"%1\")").arg(path);
        calls +=
            QString("setPropertyString(\"profiler/lastexportdir\", \"%1\")").arg(folder.filePath("other"));
    }
    QCOMPARE(on.host.host.takeCalls(), calls);
}

void cProfileBarTest::exportTakesWhatIsCurrentWhenTheFileIsChosen()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("profile.xml");
    Bar on({"Alpha", "Beta", "Default"});
    const DialogDriver driver([&](QDialog& dialog) {
        on.host.host.publishCurrentProfileSwitched("{Beta}");
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    on.call("onMenuExportProfile");
    QVERIFY(driver.hasRun());
    QVERIFY(on.host.takeRequests().contains(QString("exportProfile(\"{Beta}\", \"%1\")").arg(path)));
}

void cProfileBarTest::exportWithoutADesktopEmptiesTheSetting()
{
    // A person's folder in which nothing is.
    const QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    const auto restore = qScopeGuard([&] { qputenv("HOME", before); });
    qputenv("HOME", QFile::encodeName(home.path()));
    QVERIFY(!QDir(desktop()).exists());
    Bar on;
    on.host.settings["profiler/lastexportdir"] = QString("");
    const FileChoice choice;
    on.call("onMenuExportProfile");
    QVERIFY(choice.hasRun());
    QCOMPARE(on.host.host.takeCalls(),
        QStringList({QString("getPropertyString(\"profiler/lastexportdir\", \"%1\")").arg(desktop()),
            R"(setPropertyString("profiler/lastexportdir", ""))"}));
}

void cProfileBarTest::barThatGoesDuringAFileDialog()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("profile.xml");
    Bar on;
    const DialogDriver driver([&](QDialog& dialog) {
        delete on.bar;
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    on.call("onMenuExportProfile");
    QVERIFY(driver.hasRun());
    // What the user asked for is done all the same.
    QVERIFY(on.host.takeRequests().contains(QString("exportProfile(\"{Alpha}\", \"%1\")").arg(path)));
}

void cProfileBarTest::fewTilesShowNoArrows_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("scrolls");
    for (int count = 0; count <= 8; ++count)
        QTest::newRow(qPrintable(QString::number(count))) << count << (count > 6);
}

void cProfileBarTest::fewTilesShowNoArrows()
{
    QFETCH(int, count);
    QFETCH(bool, scrolls);
    const Bar on(manyNames(count), "Default");
    QCOMPARE(on.list->horizontalScrollBar()->isVisible(), scrolls);
    QCOMPARE(on.list->horizontalScrollBar()->maximum() > 0, scrolls);
    QTRY_COMPARE(on.right().opacity(), scrolls ? 1.0 : 0.0);
    QCOMPARE(on.left().opacity(), 0.0);
}

void cProfileBarTest::arrowsFollowThePlace()
{
    const Bar on(manyNames(20), "Default");
    QScrollBar& scrollBar = *on.list->horizontalScrollBar();
    const auto showArrows = [&](double left, double right) {
        return QTest::qWaitFor([&] { return on.left().opacity() == left && on.right().opacity() == right; });
    };
    QVERIFY(showArrows(0, 1));
    scrollBar.setValue(1);
    QVERIFY(showArrows(1, 1));
    scrollBar.setValue(scrollBar.maximum() - 1);
    QVERIFY(showArrows(1, 1));
    scrollBar.setValue(scrollBar.maximum());
    QVERIFY(showArrows(1, 0));
    // To and fro faster than the fade: the last word counts.
    scrollBar.setValue(0);
    QTest::qWait(20);
    scrollBar.setValue(scrollBar.maximum() / 2);
    QVERIFY(showArrows(1, 1));
    scrollBar.setValue(0);
    QVERIFY(showArrows(0, 1));
}

void cProfileBarTest::arrowsScrollByOneTile()
{
    const Bar on(manyNames(20), "Default");
    QScrollBar& scrollBar = *on.list->horizontalScrollBar();
    QCOMPARE(scrollBar.singleStep(), 68);
    SceneEvents::press(on.right());
    QVERIFY(scrollBar.value() < 68);
    QTRY_COMPARE(scrollBar.value(), 68);
    SceneEvents::press(on.right());
    QTRY_COMPARE(scrollBar.value(), 136);
    SceneEvents::press(on.left());
    QTRY_COMPARE(scrollBar.value(), 68);
    // At the ends it stays inside.
    SceneEvents::press(on.left());
    QTRY_COMPARE(scrollBar.value(), 0);
    SceneEvents::press(on.left());
    QTest::qWait(250);
    QCOMPARE(scrollBar.value(), 0);
    // A second press on the way starts where the first has got to.
    SceneEvents::press(on.right());
    QTRY_VERIFY(scrollBar.value() > 20);
    const int reached = scrollBar.value();
    SceneEvents::press(on.right());
    QTRY_VERIFY(scrollBar.value() >= reached + 60);
    // The list may go while it runs.
    SceneEvents::press(on.right());
}

void cProfileBarTest::arrowsFadeWhenTilesComeAndGo()
{
    Bar on(manyNames(6), "Default");
    QCOMPARE(on.right().opacity(), 0.0);
    on.host.add("More", "device");
    QTRY_COMPARE(on.right().opacity(), 1.0);
    on.host.remove("{More}");
    QTRY_COMPARE(on.right().opacity(), 0.0);
    // A search leaves few.
    on.host.add("More", "device");
    QTRY_COMPARE(on.right().opacity(), 1.0);
    on.list->onSearch("more");
    QTRY_COMPARE(on.right().opacity(), 0.0);
    on.list->onSearch(QString());
    QTRY_COMPARE(on.right().opacity(), 1.0);
}

void cProfileBarTest::valueIsThatOfTheScrollBar()
{
    const Bar on(manyNames(20), "Default");
    QVERIFY(on.bar->setProperty("value", 77));
    QCOMPARE(on.list->horizontalScrollBar()->value(), 77);
    QCOMPARE(on.bar->property("value").toInt(), 77);
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
