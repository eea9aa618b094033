#include "Strip.h"

#include <cMacroBindingView.h>
#include <cProfileItem.h>
#include <DialogDriver.h>
#include <EditProfileDialog.h>
#include <FixedIds.h>
#include <MenuDriver.h>
#include <ProfileBarConstants.h>
#include <ShownInView.h>
#include <TestCase.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QPointer>
#include <QSignalSpy>

#include <memory>

namespace {

const QString Default = FixedIds::DefaultProfile;

/// Entries with their state: "[x]" and "[ ]" for checks, the entries of a submenu behind its name.
QStringList describe(const QMenu& menu)
{
    QStringList entries = MenuDriver::entriesOf(menu);
    const QList<QAction*> actions = menu.actions();
    for (int i = 0; i < entries.size(); ++i) {
        if (actions[i]->isCheckable())
            entries[i].prepend(actions[i]->isChecked() ? "[x] " : "[ ] ");
        if (actions[i]->menu())
            entries[i] += ": " + describe(*actions[i]->menu()).join(", ");
        if (actions[i] == menu.defaultAction())
            entries[i].prepend("* ");
    }
    return entries;
}

void askForMenu(Strip& strip, const QPoint& point)
{
    QMetaObject::invokeMethod(&strip.list, "profileContextMenuIconClicked", Q_ARG(QPoint, point));
}

/// The menu at that place of the screen, and what was chosen in it.
QStringList menuOf(Strip& strip, const QString& choice = QString(), const QPoint& point = QPoint(300, 200))
{
    QStringList entries;
    const MenuDriver driver([&](QMenu& menu) {
        entries = describe(menu);
        strip.host.clear();
        if (!choice.isEmpty())
            MenuDriver::choose(menu, choice);
    });
    askForMenu(strip, point);
    return entries;
}

const QStringList FullMenu {"Alpha", "-", "Save", "Delete", "Export...", "Print...", "-",
    "All G-keys: (Use Default), Use Generic, Unassign", "-", "Test Profile", "Scripting", "-",
    "Choose Icon...", "-", "[ ] Set As Default", "[ ] Set As Persistent", "-", "* Properties"};

} // namespace

/// The menu of the tiles and what its entries do.
class ProfileMenuTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void oneTileHasTheWholeMenu();
    void stateOfTheEntries_data();
    void stateOfTheEntries();
    void callsOfTheMenu();
    void severalTilesCanOnlyBeDeleted();
    void nothingSelectedOpensNothing();
    void missingWindowIsLogged();
    void chosenOptions_data();
    void chosenOptions();
    void entryDoesItsWork_data();
    void entryDoesItsWork();
    void entriesOfTheKeysMenu_data();
    void entriesOfTheKeysMenu();
    void propertiesOpenTheDialog();
    void menuStaysInsideTheWindow();
    void placeOfSeveralIsNotCorrected();
    void contextMenuEventOfATile();
    void keyboardOpensTheMenu();
    void namesShowLetterByLetter_data();
    void namesShowLetterByLetter();
    void tileThatGoesWhileItsMenuIsOpen();
    void listThatGoesClosesItsMenu();
};

void ProfileMenuTest::oneTileHasTheWholeMenu()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    QCOMPARE(menuOf(strip), FullMenu);
}

void ProfileMenuTest::stateOfTheEntries_data()
{
    QTest::addColumn<QString>("of");
    QTest::addColumn<QString>("defaultId");
    QTest::addColumn<QString>("persistentId");
    QTest::addColumn<bool>("hasBackup");
    QTest::addColumn<bool>("hasCustomIcon");
    QTest::addColumn<QString>("category");
    QTest::addColumn<QStringList>("changes");
    QTest::newRow("default profile") << "Default" << Default << "" << false << false << ""
                                     << QStringList({"(Delete)", "[x] (Set As Default)", "* (Properties)"});
    QTest::newRow("fixed default profile, another is default")
        << "Default"
        << "{Alpha}"
        << "" << false << false << "" << QStringList({"[ ] Set As Default"});
    QTest::newRow("another default") << "Alpha"
                                     << "{Alpha}"
                                     << "" << false << false << ""
                                     << QStringList({"[x] Set As Default", "Delete", "* Properties"});
    QTest::newRow("persistent") << "Alpha" << Default << "{Alpha}" << false << false << ""
                                << QStringList({"[x] Set As Persistent", "[ ] Set As Default"});
    QTest::newRow("backup") << "Alpha" << Default << "" << true << false << ""
                            << QStringList({"All G-keys: Use Default, Use Generic, Unassign"});
    QTest::newRow("custom icon") << "Alpha" << Default << "" << false << true << ""
                                 << QStringList({"Choose Icon...", "Default Icon..."});
    QTest::newRow("mouse") << "Alpha" << Default << "" << true << false << "Veltrano.Gaming.Mouse"
                           << QStringList({"All Buttons: Use Default, Use Generic"});
}

void ProfileMenuTest::stateOfTheEntries()
{
    QFETCH(QString, of);
    QFETCH(QString, defaultId);
    QFETCH(QString, persistentId);
    QFETCH(bool, hasBackup);
    QFETCH(bool, hasCustomIcon);
    QFETCH(QString, category);
    QFETCH(QStringList, changes);
    Strip strip({"Alpha", "Default"}, of);
    strip.host.defaultId = defaultId;
    strip.host.persistentId = persistentId;
    if (hasBackup)
        strip.host.withBackup.append(ProfileHost::idOf(of));
    if (hasCustomIcon)
        strip.host.withCustomIcon.append(ProfileHost::idOf(of));
    setShownInView(*cMacroBindingView::instance(), QString(), category, MKey::M1);
    const QStringList menu = menuOf(strip);
    for (const QString& entry : changes)
        QVERIFY2(menu.contains(entry), qPrintable(entry + " in " + menu.join(" | ")));
    QCOMPARE(menu.contains("Default Icon..."), hasCustomIcon);
    QCOMPARE(menu.size(), FullMenu.size() + (hasCustomIcon ? 1 : 0));
}

void ProfileMenuTest::callsOfTheMenu()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    setShownInView(*cMacroBindingView::instance(), "{shown}", "Keyboard", MKey::M1);
    QStringList calls;
    const MenuDriver driver([&](QMenu&) { calls = strip.host.host.takeCalls(); });
    askForMenu(strip, QPoint(300, 200));
    QCOMPARE(calls,
        QStringList({"window()", R"(isDefaultConfiguration("{Alpha}"))",
            R"(profileHasBackup("{Alpha}", "Keyboard"))", R"(hasCustomIcon("{Alpha}"))",
            "getDefaultProfileID()", "getPersistentProfileID()", R"(isDefaultConfiguration("{Alpha}"))"}));
}

void ProfileMenuTest::severalTilesCanOnlyBeDeleted()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.select({"Alpha", "Default"});
    QCOMPARE(menuOf(strip, "Delete"), QStringList("Delete"));
    QVERIFY(strip.host.takeRequests().contains(R"(deleteProfileByID("{Alpha}"))"));
    QCOMPARE(strip.names(), QStringList({"Beta", "Default"}));
}

void ProfileMenuTest::nothingSelectedOpensNothing()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.list.clearSelection();
    const MenuDriver driver([](QMenu&) {});
    askForMenu(strip, QPoint(300, 200));
    QVERIFY(!driver.hasRun());
    QCOMPARE(strip.host.host.takeCalls(), QStringList());
}

void ProfileMenuTest::missingWindowIsLogged()
{
    Strip strip({"Alpha"}, "Alpha");
    strip.host.host.answer("window", static_cast<QWidget*>(nullptr));
    const ExpectedMessage line(QtCriticalMsg, "Main Window is returning NULL window");
    const MenuDriver driver([](QMenu&) {});
    askForMenu(strip, QPoint(300, 200));
    QVERIFY(!driver.hasRun());
}

void ProfileMenuTest::chosenOptions_data()
{
    QTest::addColumn<QList<int>>("options");
    QTest::addColumn<QStringList>("entries");
    const auto row = [](const QList<int>& options, const QStringList& entries) {
        QStringList name;
        for (const int option : options)
            name.append(QString::number(option));
        QTest::newRow(qPrintable(name.join(' '))) << options << entries;
    };
    row({}, {"Alpha", "-", "-", "-", "-"});
    row({0}, {"Alpha", "-", "Save", "-", "-", "-", "-"});
    row({1}, {"Alpha", "-", "Delete", "-", "-", "-", "-"});
    row({2}, {"Alpha", "-", "Export...", "-", "-", "-", "-"});
    row({3}, {"Alpha", "-", "Print...", "-", "-", "-", "-"});
    row({4}, {"Alpha", "-", "All G-keys: ", "-", "-", "-", "-"});
    row({4, 5}, {"Alpha", "-", "All G-keys: (Use Default)", "-", "-", "-", "-"});
    row({4, 6}, {"Alpha", "-", "All G-keys: Use Generic", "-", "-", "-", "-"});
    row({4, 7}, {"Alpha", "-", "All G-keys: Unassign", "-", "-", "-", "-"});
    row({5, 6, 7}, {"Alpha", "-", "-", "-", "-"});
    row({8}, {"Alpha", "-", "Test Profile", "-", "-", "-"});
    row({9}, {"Alpha", "-", "Scripting", "-", "-", "-"});
    row({10}, {"Alpha", "-", "-", "Choose Icon...", "-", "-"});
    row({11}, {"Alpha", "-", "-", "-", "-"});
    row({12}, {"Alpha", "-", "-", "-", "[ ] Set As Default", "-"});
    row({13}, {"Alpha", "-", "-", "-", "[ ] Set As Persistent", "-"});
    row({14, 15, -1}, {"Alpha", "-", "-", "-", "-", "* Properties"});
}

void ProfileMenuTest::chosenOptions()
{
    QFETCH(QList<int>, options);
    QFETCH(QStringList, entries);
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.list.setMenuOptions(QSet<int>(options.begin(), options.end()));
    QCOMPARE(menuOf(strip), entries);
}

void ProfileMenuTest::entryDoesItsWork_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QStringList>("requests");
    const auto row = [](const char* choice, const QStringList& requests) {
        QTest::newRow(choice) << QString(choice) << requests;
    };
    row("Alpha", {});
    row("Save", {"saveAllProfiles()", R"(info("Profile Saved", "Profile saved."))"});
    row("Export...", {});
    row("Print...", {});
    row("Test Profile", {R"(testProfile("{Alpha}"))"});
    row("Scripting", {R"(showEditor(true, "{Alpha}"))"});
    row("Default Icon...", {R"(setProfileIcon("{Alpha}", 0x0))"});
    row("Set As Default", {R"(setDefaultProfileByID("{Alpha}"))"});
    row("Set As Persistent", {R"(setPersistentProfileByID(""))"});
}

void ProfileMenuTest::entryDoesItsWork()
{
    QFETCH(QString, choice);
    QFETCH(QStringList, requests);
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.withCustomIcon.append("{Alpha}");
    strip.host.persistentId = "{Alpha}";
    QSignalSpy printed(&strip.list, SIGNAL(printProfile(const QString&)));
    QSignalSpy exported(&strip.list, SIGNAL(exportProfile()));
    menuOf(strip, choice);
    QCOMPARE(strip.host.takeRequests(), requests);
    QCOMPARE(printed, choice == "Print..." ? QList<QVariantList>({{"{Alpha}"}}) : QList<QVariantList>());
    QCOMPARE(exported.size(), choice == "Export..." ? 1 : 0);
    if (choice == "Set As Default") {
        // Given up again, it goes to the fixed one.
        strip.host.defaultId = "{Alpha}";
        menuOf(strip, choice);
        QCOMPARE(
            strip.host.takeRequests(), QStringList(QString("setDefaultProfileByID(\"%1\")").arg(Default)));
    }
    if (choice == "Set As Persistent") {
        strip.host.persistentId.clear();
        menuOf(strip, choice);
        QCOMPARE(strip.host.takeRequests(), QStringList(R"(setPersistentProfileByID("{Alpha}"))"));
    }
}

void ProfileMenuTest::entriesOfTheKeysMenu_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("default") << "Use Default" << QByteArray(SIGNAL(useDefaultForAllGkeys(const QString&)));
    QTest::newRow("generic") << "Use Generic" << QByteArray(SIGNAL(useGenericForAllGkeys(const QString&)));
    QTest::newRow("unassign") << "Unassign" << QByteArray(SIGNAL(unassignAllGkeys(const QString&)));
}

void ProfileMenuTest::entriesOfTheKeysMenu()
{
    QFETCH(QString, choice);
    QFETCH(QByteArray, signal);
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.host.withBackup.append("{Alpha}");
    QSignalSpy told(&strip.list, signal);
    const MenuDriver driver([&](QMenu& menu) {
        for (QAction* action : menu.actions()) {
            if (!action->menu())
                continue;
            for (QAction* entry : action->menu()->actions()) {
                if (entry->text() == choice)
                    entry->trigger();
            }
        }
    });
    askForMenu(strip, QPoint(300, 200));
    QVERIFY(driver.hasRun());
    QCOMPARE(told, QList<QVariantList>({{"{Alpha}"}}));
}

void ProfileMenuTest::propertiesOpenTheDialog()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    QString title;
    const DialogDriver dialogDriver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<EditProfileDialog*>(&dialog));
        title = dialog.windowTitle();
        QCOMPARE(dialog.parentWidget(), &strip.host.window);
        // The profile may go meanwhile, with its tile.
        strip.host.remove("{Alpha}");
    });
    menuOf(strip, "Properties");
    QVERIFY(dialogDriver.hasRun());
    QVERIFY(!title.isEmpty());
    QCOMPARE(strip.names(), QStringList("Default"));
}

void ProfileMenuTest::menuStaysInsideTheWindow()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    int width = 0;
    const MenuDriver measure([&](QMenu& menu) { width = menu.sizeHint().width(); });
    askForMenu(strip, QPoint(300, 200));
    const int right = strip.host.window.pos().x() + strip.host.window.width();
    for (const int overhang : {-10, 0, 1, 25}) {
        QPoint place;
        const MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
        askForMenu(strip, QPoint(right - width + overhang, 120));
        QCOMPARE(place.x(), right - width + qMin(overhang, 0));
    }
}

void ProfileMenuTest::placeOfSeveralIsNotCorrected()
{
    Strip strip({"Alpha", "Beta", "Default"}, "Alpha");
    strip.select({"Alpha", "Beta"});
    strip.host.window.setGeometry(0, 0, 300, 300);
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
    askForMenu(strip, QPoint(290, 120));
    QCOMPARE(place, QPoint(290, 120));
}

void ProfileMenuTest::contextMenuEventOfATile()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    QPoint place;
    const MenuDriver driver([&](QMenu& menu) { place = menu.pos(); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(310, 220));
    QCoreApplication::sendEvent(strip.tile("Alpha"), &event);
    QCOMPARE(place, QPoint(310, 220));
    QVERIFY(event.isAccepted());
}

void ProfileMenuTest::keyboardOpensTheMenu()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    strip.list.move(50, 50);
    const MenuDriver driver([](QMenu&) {});
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(310, 220));
    QCoreApplication::sendEvent(&strip.list, &event);
    QVERIFY(driver.hasRun());
}

void ProfileMenuTest::namesShowLetterByLetter_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("entry");
    QTest::newRow("ampersand") << "Rock & Roll"
                               << "Rock && Roll";
    QTest::newRow("tabulator") << "One\tTwo"
                               << "One Two";
    QTest::newRow("markup") << "<b>Bold</b>"
                            << "<b>Bold</b>";
    QTest::newRow("placeholder") << "%1 %2"
                                 << "%1 %2";
    QTest::newRow("empty") << ""
                           << "";
}

void ProfileMenuTest::namesShowLetterByLetter()
{
    QFETCH(QString, name);
    QFETCH(QString, entry);
    Strip strip({"Alpha"}, "Alpha");
    strip.host.rename("{Alpha}", name);
    QCOMPARE(menuOf(strip).first(), entry);
    // A long one leaves the menu usable.
    strip.host.rename("{Alpha}", QString(300, 'W'));
    int width = 0;
    const MenuDriver driver([&](QMenu& menu) { width = menu.width(); });
    askForMenu(strip, QPoint(300, 200));
    QVERIFY(width < 450);
}

void ProfileMenuTest::tileThatGoesWhileItsMenuIsOpen()
{
    Strip strip({"Alpha", "Default"}, "Alpha");
    const MenuDriver driver([&](QMenu& menu) {
        strip.host.remove("{Alpha}");
        strip.host.clear();
        MenuDriver::choose(menu, "Test Profile");
    });
    askForMenu(strip, QPoint(300, 200));
    QVERIFY(driver.hasRun());
    QVERIFY(strip.host.takeRequests().filter("test").isEmpty());
}

void ProfileMenuTest::listThatGoesClosesItsMenu()
{
    ProfileHost on({"Alpha", "Default"});
    auto list = std::make_unique<cProfileList>();
    list->populate();
    QPointer<QMenu> menu;
    const MenuDriver driver([&](QMenu& opened) {
        menu = &opened;
        list.reset();
    });
    QMetaObject::invokeMethod(list.get(), "profileContextMenuIconClicked", Q_ARG(QPoint, QPoint(300, 200)));
    QVERIFY(driver.hasRun());
    QVERIFY(!menu);
}

VELTRANO_TEST_MAIN(ProfileMenuTest)
#include "ProfileMenuTest.moc"
