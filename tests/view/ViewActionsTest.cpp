#include "ViewFixture.h"

#include <cGraphicsText.h>
#include <cMacroList.h>
#include <cPanel.h>
#include <cProfileBar.h>
#include <cProfileList.h>
#include <cProfileTrashcanGraphicsItem.h>
#include <DialogDriver.h>
#include <FixedIds.h>
#include <GameDatabase.h>
#include <MenuDriver.h>
#include <SceneEvents.h>
#include <ShownInView.h>
#include <TestCase.h>

#include <QFrame>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QWidget>

#include <memory>

namespace {

const QString Default = FixedIds::DefaultProfile;

/// The view with a profile bar and a main window.
class View : public ViewFixture
{
public:
    View()
    {
        cJsonValue profiles;
        for (const auto& [uid, name] : {std::pair(QString("{A}"), "Alpha"), std::pair(QString("{B}"), "Beta"),
                 std::pair(Default, "Default")}) {
            cJsonValue profile;
            profile["uid"] = uid;
            profile["name"] = name;
            profiles.append(profile);
        }
        host.answer("profiles", profiles);
        host.answer("window", static_cast<QWidget*>(&window));
        host.answer("yesno", [this](const RecordedCall&) { return QVariant(sure); });
        host.answer("getPropertyString", "{A}");
        host.answer("getMacroTypeByID", type);
        // The command list asks the one view of the process for its profile.
        setShownInView(*cMacroBindingView::instance(), "{A}", category(), MKey::M1);
        window.setGeometry(20, 20, 500, 400);
    }

    cProfileList* profileList() const { return canvas->findChild<cProfileList*>(); }
    cProfileBar* bar() const { return item<cProfileBar>(); }
    QFrame* profileFrame() const { return qobject_cast<QFrame*>(profileList()->parentWidget()); }
    cProfileTrashcanGraphicsItem* trashcan() const { return item<cProfileTrashcanGraphicsItem>(); }
    QStringList macroNames() const
    {
        QStringList names;
        for (int row = 0; row < macroList()->count(); ++row)
            names.append(macroList()->item(row)->text());
        return names;
    }
    /// The calls since the last take that change something or talk to the user.
    QStringList takeRequests()
    {
        QStringList requests;
        for (const QString& call : host.takeCalls()) {
            if (!call.startsWith("get") && !call.startsWith("is") && !call.startsWith("window"))
                requests.append(call);
        }
        return requests;
    }

    const cMacroTypePtr type = makeMacroType({"keystroke"});
    QWidget window;
    bool sure = true;
};

/// The panes come in a quarter of a second after init(); the scene is built after them.
void openWithPanes(View& on)
{
    cJsonValue info;
    info["device_model"] = "Model";
    QVERIFY(on.view.init(info, on.canvas.get()));
    QTRY_COMPARE(on.items<cPanel>().size(), 2);
    on.host.publishDeviceTransformEnd();
}

} // namespace

/// The profile pane of the scene, the trash can, and the actions on lists and profiles.
class ViewActionsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void barStandsInItsPane();
    void barBeforeThePaneStaysOutside();
    void framesStandOnTheCanvas();
    void lastProfileIsShownWhenTheSceneIsBuilt();
    void barIsConnected();
    void sceneGoesWithTheListBeforeTheBar();

    void trashcanStandsInItsPlace();
    void trashcanDeletesTheSelection();
    void trashcanUnassignsEachKey();

    void scriptActionsWithoutASceneDoNothing();
    void scriptActionsReachTheBar();
    void dialogsEndWithTheSlotThatOpensThem_data();
    void dialogsEndWithTheSlotThatOpensThem();
    void viewIsClosedWhileADialogIsOpen_data();
    void viewIsClosedWhileADialogIsOpen();

    void sortActions();
    void sortMenu();
    void sortMenuWithoutAWindow();
    void viewIsClosedWhileTheSortMenuIsOpen();
};

void ViewActionsTest::barStandsInItsPane()
{
    View on;
    openWithPanes(on);
    cProfileBar* const bar = on.bar();
    QVERIFY(bar);
    QVERIFY(dynamic_cast<cPanel*>(bar->parentItem()));
    QCOMPARE(bar->pos(), QPointF(0, 0));
    QCOMPARE(bar->boundingRect(), QRectF(0, 0, 593, 96));
    QTRY_COMPARE(bar->scenePos(), QPointF(352, 37));
    QCOMPARE(on.profileList()->height(), 103);
    QCOMPARE(on.profileList()->maximumHeight(), 103);
}

void ViewActionsTest::barBeforeThePaneStaysOutside()
{
    View on;
    on.open();
    QVERIFY(!on.bar());
    // It works all the same, as far as it is seen: by its list.
    QCOMPARE(on.profileList()->count(), 3);
    on.profileList()->selectProfile("{B}");
    QCOMPARE(on.view.getProfileId(), QString("{B}"));
    QTRY_COMPARE(on.items<cPanel>().size(), 2);
    QVERIFY(!on.bar());
}

void ViewActionsTest::framesStandOnTheCanvas()
{
    View on;
    on.open();
    QFrame* const frame = on.profileFrame();
    QCOMPARE(frame->parentWidget(), on.canvas.get());
    QCOMPARE(frame->geometry(), QRect(518, 26, 404, 103));
    QCOMPARE(frame->minimumSize(), frame->maximumSize());
    QCOMPARE(frame->frameStyle(), 0);
    QCOMPARE(frame->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(frame->layout()->spacing(), 0);
    QVERIFY(qobject_cast<QHBoxLayout*>(frame->layout()));
    QCOMPARE(frame->styleSheet(),
        QString(
            "    QScrollBar:horizontal {        height: 9px;    }    QScrollBar::handle:horizontal {        "
            "border-image: url(MainApp:/Resources/images/slider_thumb_H_small.png);        border-left: 7px "
            "transparent;        border-right: 7px transparent;    }    QScrollBar::add-line:horizontal, "
            "QScrollBar::sub-line:horizontal {    height: 0px;    }    QScrollBar::sub-page:horizontal, "
            "QScrollBar::add-page:horizontal {    background: transparent;    height: 1px;        "
            "border-image: url(MainApp:/Resources/images/horizontal_line.png);        border-left: 1px "
            "transparent;        border-right: 1px transparent;    }"));
    QVERIFY(frame->isVisibleTo(on.canvas.get()));
    QCOMPARE(on.profileList()->geometry(), QRect(0, 0, 404, 103));

    QFrame* searchFrame = nullptr;
    for (QFrame* candidate : on.canvas->findChildren<QFrame*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (candidate->pos() == QPoint(349, 69))
            searchFrame = candidate;
    }
    QVERIFY(searchFrame);
    QVERIFY(searchFrame->isVisibleTo(on.canvas.get()));
}

void ViewActionsTest::lastProfileIsShownWhenTheSceneIsBuilt()
{
    View on;
    on.putMacro("{A}", makeMacro("{1}", "Jump"));
    on.assign("{A}", "G1", "{1}");
    on.open();
    QCOMPARE(on.view.getProfileId(), QString("{A}"));
    QCOMPARE(on.labels(), QStringList("G1=Jump"));
    QTRY_COMPARE(on.macroNames(), QStringList("Jump"));
}

void ViewActionsTest::barIsConnected()
{
    View on;
    openWithPanes(on);
    const auto requestsAt = [&on](const char* signal) {
        on.takeRequests();
        QMetaObject::invokeMethod(on.bar(), signal, Q_ARG(QString, "{B}"));
        return on.takeRequests();
    };
    QCOMPARE(requestsAt("useDefaultForAllGkeys").mid(1),
        forPlainKeys(R"(setDefaultAssignment("{B}", "pad", 0, "%1"))")
            + QStringList(R"(cleanupBackup("{B}", "pad"))"));
    QCOMPARE(requestsAt("useGenericForAllGkeys").mid(1),
        forPlainKeys(R"(setGenericAssignment("{B}", "pad", "", "", false, 0, "%1"))"));
    QCOMPARE(requestsAt("unassignAllGkeys"), forPlainKeys(R"(removeAssignment("{A}", "pad", 0, "%1"))"));
    QCOMPARE(requestsAt("printProfile"), QStringList(R"(printProfile("{B}", "pad", ["G1", "G2", "G3"]))"));
    // The selected mode button pulsates while the pointer is on no panel.
    const QStringList pulsating = on.pulsatingModes();
    QCOMPARE(pulsating.size(), 1);
    QVERIFY(QMetaObject::invokeMethod(on.bar(), "hoverIn"));
    QCOMPARE(on.pulsatingModes(), QStringList());
    QVERIFY(QMetaObject::invokeMethod(on.bar(), "hoverOut"));
    QCOMPARE(on.pulsatingModes(), pulsating);
}

void ViewActionsTest::sceneGoesWithTheListBeforeTheBar()
{
    View on;
    openWithPanes(on);
    const QPointer<cProfileBar> bar(on.bar());
    const QPointer<cProfileList> list(on.profileList());
    on.view.deinit(cJsonValue(), on.canvas.get());
    QVERIFY(!list);
    QVERIFY(bar);
    // Events that come while the panes slide out.
    on.host.publishCurrentProfileSwitched("{B}");
    on.host.publishProfileAdded("{C}");
    SceneEvents::hoverEnter(*bar);
    QTRY_VERIFY(!bar);
    // And once more.
    openWithPanes(on);
    QVERIFY(on.bar());
    QCOMPARE(on.profileList()->count(), 3);
}

void ViewActionsTest::trashcanStandsInItsPlace()
{
    View on;
    on.open();
    QCOMPARE(on.trashcan()->pos(), QPointF(315, 501));
    QCOMPARE(on.trashcan()->parentItem(), on.rootItem());
    QCOMPARE(on.trashcan()->boundingRect(), QRectF(0, 0, 48, 56));
}

void ViewActionsTest::trashcanDeletesTheSelection()
{
    View on;
    on.putMacro("{A}", makeMacro("{1}", "Jump"));
    on.putMacro("{A}", makeMacro("{2}", "Run"));
    on.open();
    QTRY_COMPARE(on.macroNames().size(), 2);
    on.takeRequests();
    // One row was dropped, two are selected.
    on.macroList()->selectAll();
    Q_EMIT on.trashcan()->macrosDropped({"{1}"});
    const QStringList requests = on.takeRequests();
    QCOMPARE(requests.filter("yesno").size(), 1);
    QCOMPARE(requests.filter("deleteMacro").size(), 2);

    on.profileList()->selectAll();
    on.takeRequests();
    Q_EMIT on.trashcan()->profilesDropped({"{A}"});
    QCOMPARE(on.takeRequests(),
        QStringList(
            {R"(yesno("Delete Profile", "Are you sure you want to delete 3 profiles from your computer?"))",
                QString("setDefaultProfileByID(\"%1\")").arg(Default), R"(deleteProfileByID("{A}"))",
                R"(deleteProfileByID("{B}"))"}));
}

void ViewActionsTest::trashcanUnassignsEachKey()
{
    View on;
    on.open();
    on.takeRequests();
    Q_EMIT on.trashcan()->assignmentsDropped({"G3", "G1"});
    const QStringList requests = on.takeRequests();
    QCOMPARE(requests.size(), 2);
    QVERIFY(requests[0].startsWith("removeAssignment(") && requests[0].contains("\"G3\""));
    QVERIFY(requests[1].startsWith("removeAssignment(") && requests[1].contains("\"G1\""));
}

void ViewActionsTest::scriptActionsWithoutASceneDoNothing()
{
    View on;
    on.host.takeCalls();
    for (const char* slot : {"newProfile", "scanForGames", "testProfile", "deleteSelectedProfiles",
             "sortMacroNameAscending", "sortMacroType"})
        QVERIFY(on.call(slot));
    QVERIFY(on.call("selectProfile", Q_ARG(QString, "{B}")));
    QCOMPARE(on.host.takeCalls(), QStringList());
    QVERIFY(on.call("deleteProfiles", Q_ARG(QStringList, QStringList("{B}"))));
    QVERIFY(on.call("deleteMacros", Q_ARG(QStringList, QStringList("{1}"))));
    QCOMPARE(on.host.takeCalls(), QStringList());
}

void ViewActionsTest::scriptActionsReachTheBar()
{
    View on;
    openWithPanes(on);
    on.call("selectProfile", Q_ARG(QString, "{B}"));
    QCOMPARE(on.view.getProfileId(), QString("{B}"));
    on.takeRequests();
    on.call("testProfile");
    QCOMPARE(on.takeRequests(), QStringList(R"(testProfile("{B}"))"));
    on.sure = false;
    on.call("deleteSelectedProfiles");
    QCOMPARE(on.takeRequests().filter("yesno").size(), 1);

    QStringList titles;
    {
        const DialogDriver driver([&](QDialog& dialog) { titles.append(dialog.windowTitle()); });
        on.call("newProfile");
    }
    {
        const GameDatabase none;
        const DialogDriver driver([&](QDialog& dialog) { titles.append(dialog.windowTitle()); });
        on.call("scanForGames");
    }
    QCOMPARE(titles, QStringList({"New Profile", "Scan For New Games"}));
}

void ViewActionsTest::dialogsEndWithTheSlotThatOpensThem_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("dialog");
    for (const auto& [slot, dialog] : {std::pair("newCommand", "cMacroEditor"),
             std::pair("newProfile", "EditProfileDialog"), std::pair("scanForGames", "ScanForGamesDialog"),
             std::pair("onAutoScanForGames", "ScanForGamesDialog")})
        QTest::newRow(slot) << QByteArray(slot) << QByteArray(dialog);
}

void ViewActionsTest::dialogsEndWithTheSlotThatOpensThem()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, dialog);
    View on;
    openWithPanes(on);
    const GameDatabase none;
    QPointer<QDialog> opened;
    const DialogDriver driver([&](QDialog& shown) {
        opened = &shown;
        QCOMPARE(shown.metaObject()->className(), dialog.constData());
        QCOMPARE(shown.parentWidget(), &on.window);
        QCOMPARE(shown.windowModality(), Qt::WindowModal);
    });
    QVERIFY(on.call(slot));
    QVERIFY(driver.hasRun());
    // At once, without an event loop.
    QVERIFY(!opened);
}

void ViewActionsTest::viewIsClosedWhileADialogIsOpen_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char* slot : {"newProfile", "scanForGames", "onAutoScanForGames"})
        QTest::newRow(slot) << QByteArray(slot);
}

void ViewActionsTest::viewIsClosedWhileADialogIsOpen()
{
    QFETCH(QByteArray, slot);
    View on;
    openWithPanes(on);
    const GameDatabase none;
    const QPointer<cProfileBar> bar(on.bar());
    const DialogDriver driver([&](QDialog& dialog) {
        on.view.deinit(cJsonValue(), on.canvas.get());
        QTRY_VERIFY(!bar);
        // It is the window's, and stays until its user is done with it.
        QVERIFY(dialog.isVisible());
    });
    QVERIFY(on.call(slot));
    QVERIFY(driver.hasRun());
    QVERIFY(!bar);
    openWithPanes(on);
    QVERIFY(on.bar());
}

void ViewActionsTest::sortActions()
{
    View on;
    for (const char* name : {"Bravo", "Alpha", "Charlie"})
        on.putMacro("{A}", makeMacro(name, name));
    on.open();
    QTRY_COMPARE(on.macroNames(), QStringList({"Alpha", "Bravo", "Charlie"}));
    on.call("sortMacroNameDescending");
    QCOMPARE(on.macroNames(), QStringList({"Charlie", "Bravo", "Alpha"}));
    on.call("sortMacroNameAscending");
    QCOMPARE(on.macroNames(), QStringList({"Alpha", "Bravo", "Charlie"}));
    // By type names run backwards within one type.
    on.call("sortMacroType");
    QCOMPARE(on.macroNames(), QStringList({"Charlie", "Bravo", "Alpha"}));
}

void ViewActionsTest::sortMenu()
{
    View on;
    for (const char* name : {"Bravo", "Alpha"})
        on.putMacro("{A}", makeMacro(name, name));
    on.open();
    QTRY_COMPARE(on.macroNames().size(), 2);
    QStringList entries;
    QStringList byName;
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) {
        entries = MenuDriver::entriesOf(menu);
        byName = MenuDriver::entriesOf(*menu.actions().first()->menu());
        place = menu.pos();
        QCOMPARE(menu.parentWidget(), &on.window);
        menu.actions().first()->menu()->actions().last()->trigger();
    });
    QVERIFY(on.call("onSortIconClicked", Q_ARG(QPoint, QPoint(30, 40))));
    QVERIFY(driver.hasRun());
    QCOMPARE(entries, QStringList({"Sort by Name...", "Sort By Type..."}));
    QCOMPARE(byName, QStringList({"Ascending", "Descending"}));
    QCOMPARE(place, on.window.mapToGlobal(QPoint(30, 40)));
    QCOMPARE(on.macroNames(), QStringList({"Bravo", "Alpha"}));
}

void ViewActionsTest::sortMenuWithoutAWindow()
{
    View on;
    on.open();
    on.host.answer("window", static_cast<QWidget*>(nullptr));
    const ExpectedMessage line(QtCriticalMsg, "Main Window is returning NULL window");
    const MenuDriver driver([](QMenu&) {});
    on.call("onSortIconClicked", Q_ARG(QPoint, QPoint(30, 40)));
    QVERIFY(!driver.hasRun());
}

void ViewActionsTest::viewIsClosedWhileTheSortMenuIsOpen()
{
    View on;
    on.open();
    const MenuDriver driver([&](QMenu& menu) {
        on.view.deinit(cJsonValue(), on.canvas.get());
        on.host.clear();
        menu.actions().last()->trigger();
    });
    QVERIFY(on.call("onSortIconClicked", Q_ARG(QPoint, QPoint(30, 40))));
    QVERIFY(driver.hasRun());
    QVERIFY(!on.macroList());
    QCOMPARE(on.host.takeCalls(), QStringList());
}

VELTRANO_TEST_MAIN(ViewActionsTest)
#include "ViewActionsTest.moc"
