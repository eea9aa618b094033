#include "HostApplication.h"

#include "BackupsDialog.h"
#include "ImportDialog.h"
#include "MainWindow.h"
#include "ProfileTable.h"

#include <ApplicationLook.h>
#include <cProfileMgrService.h>
#include <cSettingsService.h>
#include <DialogButtons.h>
#include <DialogDriver.h>
#include <ProfileDocument.h>
#include <ProfileStore.h>
#include <SettingsKeys.h>
#include <TestCase.h>

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

const QString Id = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
const QString OtherId = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000002}");

void savePicture(QWidget& widget, const QString& name)
{
    QCoreApplication::processEvents();
    QVERIFY(widget.grab().save(QStringLiteral(PICTURES_FOLDER "/") + name));
}

cJsonValue macro(const QString& uid, const QString& name)
{
    cJsonValue macro;
    macro["uid"] = uid;
    macro["name"] = name;
    macro["display_name"] = name;
    macro["namespace"] = "urn:none";
    return macro;
}

} // namespace

/// The dialogs for imports and backups, in the whole application with its real look.
class ProfileDialogsTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void importShowsWhatTheFilesHold();
    void importOfWhatIsCheckedOnly();
    void importCancelledChangesNothing();
    void importAsksAboutWhatIsThere();
    void importOfTheMenuTakesSeveralFiles();
    void backupsShowWhatTheyHold();
    void checkedProfileIsBroughtBack();
    void allAreBroughtBack();
    void damagedBackupIsShown();
    void noBackupsAreShown();
    void dialogsAreUsedByKeyboard();
    void unsavedProfilesAreShown();
    void menusHaveTheEntries();

private:
    cProfileMgrService& profiles() { return m_application->profiles(); }
    MainWindow& window() { return m_application->window(); }
    QString path(const QString& name) const { return m_folder->filePath(name); }
    void writeFile(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }
    void writeProfile(const QString& file, const QString& uid, const QString& name) const;
    void addProfile(const QString& uid, const QString& name);
    /// "Dungeon" and "Space", which the newest backup holds.
    void deleteTwoProfiles();
    QAction* entry(const QString& text);

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<HostApplication> m_application;
};

void ProfileDialogsTest::init()
{
    m_folder.reset(new QTemporaryDir);
    ApplicationLook::apply();
    ApplicationPaths paths;
    paths.pluginsFolder = path("plugins");
    paths.shareFolder = QStringLiteral(SHARE_FOLDER);
    m_application.reset(new HostApplication(paths, CommandLine({"test", "--data-dir", path("data")})));
    m_application->start();
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
}

void ProfileDialogsTest::cleanup()
{
    m_application.reset();
    m_folder.reset();
    qApp->setStyleSheet(QString());
}

void ProfileDialogsTest::writeProfile(const QString& file, const QString& uid, const QString& name) const
{
    Profile profile;
    profile.properties["uid"] = uid;
    profile.properties["name"] = name;
    for (int i = 0; i < 12; ++i)
        profile.macros.push_back(macro(QString("{%1}").arg(i), QString("Command %1").arg(i)));
    writeFile(file, ProfileDocument::write({profile}, {}));
}

void ProfileDialogsTest::addProfile(const QString& uid, const QString& name)
{
    cJsonValue record;
    record["uid"] = uid;
    record["name"] = name;
    QVERIFY(profiles().addProfile(record));
    QCoreApplication::processEvents();
}

void ProfileDialogsTest::deleteTwoProfiles()
{
    addProfile(Id, "Dungeon");
    addProfile(OtherId, "Space");
    QVERIFY(profiles().deleteProfileByID(Id));
    QVERIFY(profiles().deleteProfileByID(OtherId));
    QCoreApplication::processEvents();
}

QAction* ProfileDialogsTest::entry(const QString& text)
{
    for (QAction* action : window().menu().actions() + window().editMenu().actions()) {
        if (QString(action->text()).remove('&') == text)
            return action;
    }
    return nullptr;
}

void ProfileDialogsTest::importShowsWhatTheFilesHold()
{
    addProfile(Id, "Dungeon");
    writeProfile("dungeon.xml", Id, "Dungeon");
    writeProfile("space.lgp", OtherId, "Space & <b>Trade</b>");
    writeFile("holiday.xml", "<html/>");
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<ImportDialog*>(&dialog));
        auto* const table = dialog.findChild<ProfileTable*>();
        QCOMPARE(table->topLevelItemCount(), 3);
        const auto row = [&](int index) {
            QStringList texts;
            for (int i = 0; i < table->columnCount(); ++i)
                texts.append(table->topLevelItem(index)->text(i));
            return texts;
        };
        QCOMPARE(row(0), QStringList({"Dungeon", "12", "0", "Differs", "dungeon.xml"}));
        QCOMPARE(row(1), QStringList({"Space & <b>Trade</b>", "12", "0", "Not there", "space.lgp"}));
        QVERIFY(row(2)[0].startsWith("holiday.xml can't be read: "));
        QCOMPARE(table->checkedKeys().size(), 2);
        QVERIFY(!profiles().profileIDs().contains(OtherId));
        savePicture(dialog, "dialog-import.png");
    });
    profiles().importProfiles({path("dungeon.xml"), path("space.lgp"), path("holiday.xml")});
    QVERIFY(driver.hasRun());
    QVERIFY(!profiles().profileIDs().contains(OtherId));
}

void ProfileDialogsTest::importOfWhatIsCheckedOnly()
{
    writeProfile("a.xml", Id, "One");
    writeProfile("b.xml", OtherId, "Two");
    const DialogDriver driver([&](QDialog& dialog) {
        auto* const table = dialog.findChild<ProfileTable*>();
        table->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
        QVERIFY(buttonOf(dialog, "Import")->isEnabled());
        table->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
        QVERIFY(!buttonOf(dialog, "Import")->isEnabled());
        table->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QTest::mouseClick(buttonOf(dialog, "Import"), Qt::LeftButton);
    });
    profiles().importProfiles({path("a.xml"), path("b.xml")});
    QVERIFY(driver.hasRun());
    QVERIFY(!profiles().profileIDs().contains(Id));
    QVERIFY(profiles().profileIDs().contains(OtherId));
}

void ProfileDialogsTest::importCancelledChangesNothing()
{
    writeProfile("a.xml", Id, "One");
    const int before = profiles().profileIDs().size();
    const DialogDriver driver([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    profiles().importProfile(path("a.xml"));
    QVERIFY(driver.hasRun());
    QCOMPARE(profiles().profileIDs().size(), before);
    QVERIFY(!profiles().history().canUndo());
}

void ProfileDialogsTest::importAsksAboutWhatIsThere()
{
    addProfile(Id, "Dungeon");
    writeProfile("dungeon.xml", Id, "Dungeon");
    QScopedPointer<DialogDriver> conflictDriver;
    const DialogDriver driver([&](QDialog& dialog) {
        conflictDriver.reset(new DialogDriver([](QDialog& conflict) {
            QVERIFY(buttonOf(conflict, "Leave as It Is"));
            QVERIFY(buttonOf(conflict, "Keep Both"));
            savePicture(conflict, "dialog-conflict.png");
            QTest::mouseClick(buttonOf(conflict, "Replace"), Qt::LeftButton);
        }));
        QTest::mouseClick(buttonOf(dialog, "Import"), Qt::LeftButton);
    });
    profiles().importProfile(path("dungeon.xml"));
    QVERIFY(conflictDriver && conflictDriver->hasRun());
    QCOMPARE(profiles().macros(Id).size(), 12u);
    window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(profiles().macros(Id).size(), 0u);
}

void ProfileDialogsTest::importOfTheMenuTakesSeveralFiles()
{
    QVERIFY(QDir(m_folder->path()).mkdir("in"));
    writeProfile("in/a.xml", Id, "One");
    writeProfile("in/b.xml", OtherId, "Two");
    m_application->settings().setPropertyString(SettingsKeys::LastImportDir, path("in"));
    QScopedPointer<DialogDriver> reviewDriver;
    const DialogDriver driver([&](QDialog& chooser) {
        auto* const name = chooser.findChild<QLineEdit*>("fileNameEdit");
        QVERIFY(name);
        reviewDriver.reset(new DialogDriver(
            [](QDialog& dialog) { QTest::mouseClick(buttonOf(dialog, "Import"), Qt::LeftButton); }));
        name->setText("\"a.xml\" \"b.xml\"");
        QMetaObject::invokeMethod(&chooser, "accept");
    });
    entry("Import Profiles...")->trigger();
    QVERIFY(reviewDriver && reviewDriver->hasRun());
    QCOMPARE(profiles().getProfileName(Id), QString("One"));
    QCOMPARE(profiles().getProfileName(OtherId), QString("Two"));
    QCOMPARE(m_application->settings().getPropertyString(SettingsKeys::LastImportDir), path("in"));
}

void ProfileDialogsTest::backupsShowWhatTheyHold()
{
    addProfile(Id, "Dungeon");
    profiles().addMacro(Id, macro("{1}", "Jump"));
    addProfile(OtherId, "Space & <b>Trade</b>");
    profiles().deleteProfileByID(OtherId);
    QCoreApplication::processEvents();
    profiles().setProfileScript(Id, "x");
    BackupsDialog dialog(profiles(), &window());
    dialog.show();
    const QList<QTreeWidget*> lists = dialog.findChildren<QTreeWidget*>();
    auto* const table = dialog.findChild<ProfileTable*>();
    auto* const backups = lists[0] == table ? lists[1] : lists[0];
    QCOMPARE(backups->topLevelItemCount(), 2);
    QCOMPARE(backups->currentItem()->text(1), QString("Before a deletion"));
    QCOMPARE(table->topLevelItemCount(), 3);
    QCOMPARE(table->topLevelItem(1)->text(0), QString("Dungeon"));
    QCOMPARE(table->topLevelItem(1)->text(1), QString("1"));
    QCOMPARE(table->topLevelItem(1)->text(3), QString("Differs"));
    QCOMPARE(table->topLevelItem(2)->text(3), QString("Not there"));
    QVERIFY(!buttonOf(dialog, "Bring Back Checked")->isEnabled());
    table->topLevelItem(2)->setCheckState(0, Qt::Checked);
    savePicture(dialog, "dialog-backups.png");
    backups->setCurrentItem(backups->topLevelItem(1));
    QCOMPARE(table->topLevelItemCount(), 1);
}

void ProfileDialogsTest::checkedProfileIsBroughtBack()
{
    deleteTwoProfiles();
    BackupsDialog dialog(profiles(), &window());
    dialog.show();
    auto* const table = dialog.findChild<ProfileTable*>();
    for (int i = 0; i < table->topLevelItemCount(); ++i) {
        if (table->topLevelItem(i)->text(0) == "Space")
            table->topLevelItem(i)->setCheckState(0, Qt::Checked);
    }
    QTest::mouseClick(buttonOf(dialog, "Bring Back Checked"), Qt::LeftButton);
    QVERIFY(!profiles().profileIDs().contains(Id));
    QVERIFY(profiles().profileIDs().contains(OtherId));
    QCOMPARE(table->checkedKeys().size(), 0);
    savePicture(dialog, "dialog-backups-brought-back.png");
    dialog.close();
    QCoreApplication::processEvents();
    entry("Undo Bring Back Profile Space")->trigger();
    QVERIFY(!profiles().profileIDs().contains(OtherId));
}

void ProfileDialogsTest::allAreBroughtBack()
{
    deleteTwoProfiles();
    BackupsDialog dialog(profiles(), &window());
    dialog.show();
    QTest::mouseClick(buttonOf(dialog, "Bring Back All"), Qt::LeftButton);
    QVERIFY(profiles().profileIDs().contains(Id));
    QVERIFY(profiles().profileIDs().contains(OtherId));
    QTest::mouseClick(buttonOf(dialog, "Bring Back All"), Qt::LeftButton);
    bool saysSo = false;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        saysSo = saysSo || label->text().startsWith("Nothing had to be brought back");
    QVERIFY(saysSo);
}

void ProfileDialogsTest::damagedBackupIsShown()
{
    addProfile(Id, "Dungeon");
    profiles().deleteProfileByID(Id);
    const QString backup = profiles().backups().list().front().name;
    writeFile("data/backups/" + backup + "/backup.json", "{");
    const QString document = profiles().backups().read(backup).back().document;
    writeFile("data/backups/" + backup + '/' + document, "<profiles version=\"1\"><profile");
    BackupsDialog dialog(profiles(), &window());
    dialog.show();
    auto* const table = dialog.findChild<ProfileTable*>();
    QCOMPARE(table->topLevelItemCount(), 2);
    QVERIFY(table->topLevelItem(1)->text(0).contains("can't be read"));
    QCOMPARE(table->keys().size(), 1);
    savePicture(dialog, "dialog-backups-damaged.png");
}

void ProfileDialogsTest::noBackupsAreShown()
{
    QVERIFY(QDir(path("data/backups")).removeRecursively());
    BackupsDialog dialog(profiles(), &window());
    dialog.show();
    QVERIFY(!buttonOf(dialog, "Bring Back All")->isEnabled());
    QVERIFY(!buttonOf(dialog, "Bring Back Checked")->isEnabled());
    savePicture(dialog, "dialog-backups-none.png");
}

void ProfileDialogsTest::dialogsAreUsedByKeyboard()
{
    addProfile(Id, "Dungeon");
    profiles().deleteProfileByID(Id);
    QCoreApplication::processEvents();
    const DialogDriver driver([&](QDialog& dialog) {
        QVERIFY(qobject_cast<BackupsDialog*>(&dialog));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        auto* const table = qobject_cast<ProfileTable*>(dialog.focusWidget());
        QVERIFY(table);
        QTest::keyClick(table, Qt::Key_Down);
        QTest::keyClick(table, Qt::Key_Space);
        QCOMPARE(table->checkedKeys().size(), 1);
        QTest::keyClick(table, Qt::Key_Return);
        QVERIFY(profiles().profileIDs().contains(Id));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    });
    QTest::keyClick(&window(), Qt::Key_B, Qt::ControlModifier);
    QVERIFY(driver.hasRun());
}

void ProfileDialogsTest::unsavedProfilesAreShown()
{
    addProfile(Id, "Dungeon");
    QVERIFY(profiles().saveAllProfiles());
    // A folder in the document's place fails every write, for root as well.
    const QString place = path("data/profiles/") + ProfileStore::fileName(Id);
    QVERIFY(QFile::remove(place));
    QVERIFY(QDir().mkpath(place + "/in the way"));
    profiles().setProfileScript(Id, "changed");
    const DialogDriver driver([](QDialog& dialog) {
        QVERIFY(buttonOf(dialog, "Save Elsewhere..."));
        savePicture(dialog, "dialog-unsaved.png");
    });
    QVERIFY(!window().close());
    QVERIFY(driver.hasRun());
    savePicture(window(), "window-unsaved.png");
    QVERIFY(QDir(place).removeRecursively());
}

void ProfileDialogsTest::menusHaveTheEntries()
{
    addProfile(Id, "Dungeon");
    profiles().deleteProfileByID(Id);
    QCoreApplication::processEvents();
    QVERIFY(entry("Undo Delete Profile Dungeon"));
    window().menu().popup(QPoint(0, 0));
    savePicture(window().menu(), "menu-main.png");
    window().menu().close();
    window().editMenu().popup(QPoint(0, 0));
    savePicture(window().editMenu(), "menu-edit.png");
    window().editMenu().close();
    savePicture(window(), "window-header.png");
}

VELTRANO_TEST_MAIN(ProfileDialogsTest)
#include "ProfileDialogsTest.moc"
