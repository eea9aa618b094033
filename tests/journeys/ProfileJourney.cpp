#include "Journey.h"

#include <AppConstants.h>
#include <TestCase.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

using namespace AppConstants;

namespace {

const QString Controller = QStringLiteral("Veltrano.Gaming.LeftHandedController.K13");

/// A point of the canvas as one of the window.
constexpr QPoint onCanvas(int x, int y)
{
    return {x, HeaderHeight + y};
}

constexpr QPoint NewButton = onCanvas(359, 108);
constexpr QPoint NewMenuArrow = onCanvas(359, 127);
constexpr QPoint ImportButton = onCanvas(392, 106);
constexpr QPoint PrintButton = onCanvas(424, 106);
constexpr QPoint SearchBox = onCanvas(430, 83);
constexpr QPoint Trashcan = onCanvas(339, 530);
constexpr QPoint BareCanvas = onCanvas(560, 505);
constexpr QPoint FirstCommand = onCanvas(140, 237);
constexpr QRect BarArea(QPoint(352, HeaderHeight + 37), QSize(593, 86));

constexpr QPoint tile(int number)
{
    return onCanvas(552 + 68 * number, 73);
}

/// Where a tile's icon for the menu stands.
constexpr QPoint menuIcon(int number)
{
    return tile(number) + QPoint(19, 14);
}

QString attributeOf(const QDomElement& profile, const char* name)
{
    return profile.attribute(QLatin1String(name));
}

/// The stored profiles by name.
QMap<QString, QDomElement> storedProfiles(const Journey& journey)
{
    QMap<QString, QDomElement> found;
    const QDir folder(journey.dataFile("profiles"));
    for (const QString& name : folder.entryList({"*.xml"}, QDir::Files)) {
        QFile file(folder.filePath(name));
        QDomDocument document;
        if (!file.open(QFile::ReadOnly) || !document.setContent(&file))
            continue;
        const QDomElement profile = document.documentElement().firstChildElement("profile");
        found[attributeOf(profile, "name")] = profile;
    }
    return found;
}

QStringList storedNames(const Journey& journey)
{
    return storedProfiles(journey).keys();
}

int macroCount(const Journey& journey, const QString& profile)
{
    return storedProfiles(journey).value(profile).elementsByTagName("macro").size();
}

QString setting(const Journey& journey, const char* key)
{
    QFile file(journey.dataFile("settings.json"));
    if (!file.open(QFile::ReadOnly))
        return QString();
    const QRegularExpression line(QString("\"%1\": \"?([^\",]*)").arg(key));
    return line.match(QString::fromUtf8(file.readAll())).captured(1);
}

/// The entries of a tile's menu by which keys reach them; those of the fixed default profile are fewer.
enum Entry {
    Save = 2,
    Delete,
    Export,
    Print,
    AllKeys,
    Test,
    Scripting,
    ChooseIcon,
    SetDefault,
    SetPersistent,
    Properties
};

} // namespace

/// Profiles are made, chosen, changed, copied, written out, read in and deleted.
class ProfileJourney : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void profileIsMadeChosenAndKept();
    void profileIsCopiedAndDeleted();
    void profileIsWrittenOutAndReadIn();
    void entriesOfTheMenuWork();
    void iconIsChosenAndGivenUp();
    void profilesAreSearched();
    void commandIsDroppedOnAProfile();
    void profileIsDroppedOnTheTrashCan();

private:
    void makeProfile(const QString& name);
    /// Opens the menu of a tile and chooses the entry with that number.
    void choose(int number, int entry);
    void chooseEntry(int entry);
    /// Answers the question that is on the screen.
    void sayYes();

    QScopedPointer<Journey> m_journey;
};

void ProfileJourney::init()
{
    m_journey.reset(new Journey({"--device", Controller, "--open-view"}));
    QVERIFY2(m_journey->isRunning(), qPrintable(m_journey->errors()));
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
}

void ProfileJourney::cleanup()
{
    m_journey->key("ctrl+q");
    QVERIFY(m_journey->waitForEnd());
    QVERIFY(!m_journey->hasCrashed());
    // Presses in wells are logged, and nothing else.
    QString errors = m_journey->errors();
    errors.remove(QRegularExpression("MacroBindingView: User clicked on empty profile well \\d\n"));
    QCOMPARE(errors, QString());
    m_journey.reset();
}

void ProfileJourney::makeProfile(const QString& name)
{
    m_journey->moveTo(NewButton - QPoint(3, 0));
    m_journey->click(NewButton);
    QVERIFY(m_journey->waitForWindow("New Profile"));
    m_journey->type(name);
    // A profile belongs to a program.
    m_journey->key("Tab");
    m_journey->key("Tab");
    m_journey->type("/bin/true");
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("New Profile"));
    QTRY_VERIFY(storedNames(*m_journey).contains(name));
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
}

void ProfileJourney::chooseEntry(int entry)
{
    // A menu takes a moment to come up.
    QTest::qWait(300);
    for (int i = 0; i < entry; ++i)
        m_journey->key("Down");
    m_journey->key("Return");
}

void ProfileJourney::choose(int number, int entry)
{
    m_journey->click(tile(number), 3);
    chooseEntry(entry);
}

void ProfileJourney::sayYes()
{
    QVERIFY(m_journey->waitForWindow("Delete Profile"));
    QVERIFY(Journey::saveScreen("profile-question.png"));
    // No is what Return would answer.
    m_journey->key("shift+Tab");
    m_journey->key("space");
    QVERIFY(m_journey->waitForNoWindow("Delete Profile"));
}

void ProfileJourney::profileIsMadeChosenAndKept()
{
    QCOMPARE(storedNames(*m_journey), QStringList("Default Profile"));
    makeProfile("Chess & Go");
    const QString id = attributeOf(storedProfiles(*m_journey)["Chess & Go"], "uid");
    QTRY_COMPARE(setting(*m_journey, "lastProfile"), id);
    QVERIFY(m_journey->savePicture("profile-made.png"));
    // The second tile is the default profile.
    m_journey->click(tile(1));
    QTRY_VERIFY(setting(*m_journey, "lastProfile") != id);
    m_journey->click(tile(0));
    QTRY_COMPARE(setting(*m_journey, "lastProfile"), id);
    m_journey->moveTo(BareCanvas);
    const QImage before = m_journey->restingPicture(BarArea);
    QVERIFY(m_journey->restart());
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY_WITH_TIMEOUT(m_journey->restingPicture(BarArea) == before, 20000);

    // A press in an empty well asks for a profile as well.
    m_journey->moveTo(tile(3) - QPoint(2, 0));
    m_journey->click(tile(3));
    QVERIFY(m_journey->waitForWindow("New Profile"));
    QVERIFY(Journey::saveScreen("profile-new.png"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("New Profile"));
}

void ProfileJourney::profileIsCopiedAndDeleted()
{
    makeProfile("Chess");
    m_journey->moveTo(NewButton);
    m_journey->moveTo(NewMenuArrow);
    m_journey->click(NewMenuArrow);
    QTest::qWait(300);
    for (const char* key : {"Down", "Down", "Down", "Right"})
        m_journey->key(key);
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-copy-menu.png"));
    m_journey->key("Return");
    QTRY_COMPARE(storedNames(*m_journey).size(), 3);
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
    QVERIFY(m_journey->savePicture("profile-copied.png"));

    // By the menu, and two at once by the keyboard, with the fixed default profile among them.
    m_journey->click(menuIcon(1));
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-menu.png"));
    chooseEntry(Delete);
    sayYes();
    QTRY_COMPARE(storedNames(*m_journey).size(), 2);
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
    m_journey->click(tile(0));
    m_journey->clickWith("ctrl", tile(1));
    m_journey->key("Delete");
    sayYes();
    QTRY_COMPARE(storedNames(*m_journey), QStringList("Default Profile"));
}

void ProfileJourney::profileIsWrittenOutAndReadIn()
{
    makeProfile("Chess");
    const QString path = m_journey->dataFile("exported.xml");
    choose(0, Export);
    QVERIFY(m_journey->waitForWindow("Export Profile"));
    QVERIFY(Journey::saveScreen("profile-export.png"));
    m_journey->type(path);
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Export Profile"));
    QTRY_VERIFY(QFile::exists(path));
    QTRY_COMPARE(setting(*m_journey, "lastexportdir"), QFileInfo(path).absolutePath());

    m_journey->click(tile(0));
    m_journey->key("Delete");
    sayYes();
    QTRY_COMPARE(storedNames(*m_journey), QStringList("Default Profile"));

    m_journey->click(ImportButton);
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-import-menu.png"));
    chooseEntry(1);
    QVERIFY(m_journey->waitForWindow("Import Profile"));
    m_journey->type(path);
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Import Profile"));
    // The application shows what would come in.
    QVERIFY(m_journey->waitForWindow("Profiles to Import"));
    QVERIFY(Journey::saveScreen("profile-import.png"));
    m_journey->key("Return");
    QTRY_COMPARE(storedNames(*m_journey), QStringList({"Chess", "Default Profile"}));
}

void ProfileJourney::entriesOfTheMenuWork()
{
    makeProfile("Chess");
    choose(0, Save);
    QVERIFY(m_journey->waitForWindow("Profile Saved"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Profile Saved"));

    const QString id = attributeOf(storedProfiles(*m_journey)["Chess"], "uid");
    QVERIFY(id != setting(*m_journey, "defaultProfile"));
    choose(0, SetDefault);
    choose(0, SetPersistent);
    QTest::qWait(300);
    m_journey->click(tile(0), 3);
    QTest::qWait(400);
    QVERIFY(Journey::saveScreen("profile-menu-checked.png"));
    m_journey->key("Escape");

    choose(0, Test);
    choose(0, Properties);
    // The name is selected, so that typing replaces it.
    QVERIFY(m_journey->waitForWindow("Edit"));
    m_journey->key("ctrl+a");
    m_journey->type("Draughts");
    QVERIFY(Journey::saveScreen("profile-properties.png"));
    m_journey->key("Return");
    QTRY_COMPARE(storedNames(*m_journey), QStringList({"Default Profile", "Draughts"}));

    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
    // The submenu of all keys: its last entry but one asks first. The second tile is the renamed profile.
    m_journey->click(tile(1), 3);
    QTest::qWait(300);
    for (int i = 0; i < AllKeys; ++i)
        m_journey->key("Down");
    m_journey->key("Right");
    QTest::qWait(300);
    QVERIFY(Journey::saveScreen("profile-keys-menu.png"));
    for (const char* key : {"End", "Up", "Return"})
        m_journey->key(key);
    QVERIFY(m_journey->waitForWindow("Use Generic"));
    m_journey->key("Escape");
    QVERIFY(m_journey->waitForNoWindow("Use Generic"));
}

void ProfileJourney::iconIsChosenAndGivenUp()
{
    makeProfile("Chess");
    m_journey->moveTo(BareCanvas);
    const QImage before = m_journey->restingPicture(BarArea);
    QImage picture(200, 100, QImage::Format_RGB32);
    picture.fill(QColor(220, 120, 20));
    const QString path = m_journey->dataFile("icon.png");
    QVERIFY(picture.save(path));
    choose(0, ChooseIcon);
    QVERIFY(m_journey->waitForWindow("Choose Icon"));
    m_journey->type(path);
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Choose Icon"));
    m_journey->moveTo(BareCanvas);
    QTRY_COMPARE(m_journey->picture().pixelColor(tile(0) - QPoint(10, 10)), QColor(220, 120, 20));
    QVERIFY(m_journey->savePicture("profile-icon.png"));

    // A file that is none.
    QFile file(m_journey->dataFile("no picture.png"));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("none");
    file.close();
    choose(0, ChooseIcon);
    QVERIFY(m_journey->waitForWindow("Choose Icon"));
    m_journey->type(file.fileName());
    m_journey->key("Return");
    QTest::qWait(500);
    QVERIFY(Journey::saveScreen("profile-no-icon.png"));
    m_journey->key("Return");
    QVERIFY(m_journey->waitForNoWindow("Choose Icon"));

    // The entry stands below that by which it was chosen.
    choose(0, ChooseIcon + 1);
    m_journey->moveTo(BareCanvas);
    QTRY_VERIFY(m_journey->restingPicture(BarArea) == before);
}

void ProfileJourney::profilesAreSearched()
{
    makeProfile("Chess");
    makeProfile("Go");
    m_journey->click(SearchBox);
    m_journey->type("che");
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
    QVERIFY(m_journey->savePicture("profile-search.png"));
    m_journey->type("quers");
    m_journey->restingPicture(BarArea);
    QVERIFY(m_journey->savePicture("profile-no-results.png"));
    m_journey->key("ctrl+a");
    m_journey->key("BackSpace");
    m_journey->restingPicture(BarArea);
    m_journey->click(tile(0));
    QTRY_COMPARE(setting(*m_journey, "lastProfile"), attributeOf(storedProfiles(*m_journey)["Chess"], "uid"));
}

void ProfileJourney::commandIsDroppedOnAProfile()
{
    makeProfile("Chess");
    // Of the default profile's commands one goes to the other.
    m_journey->click(tile(1));
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
    QTest::qWait(500);
    const int before = macroCount(*m_journey, "Chess");
    const int ofDefault = macroCount(*m_journey, "Default Profile");
    m_journey->drag(FirstCommand, tile(0));
    QTRY_COMPARE(macroCount(*m_journey, "Chess"), before + 1);
    QCOMPARE(macroCount(*m_journey, "Default Profile"), ofDefault);
    // On its own profile nothing happens.
    m_journey->drag(FirstCommand, tile(1));
    QTest::qWait(300);
    QCOMPARE(macroCount(*m_journey, "Default Profile"), ofDefault);
}

void ProfileJourney::profileIsDroppedOnTheTrashCan()
{
    makeProfile("Chess");
    m_journey->drag(tile(0), Trashcan);
    sayYes();
    QTRY_COMPARE(storedNames(*m_journey), QStringList("Default Profile"));
    // The one that stays can be dragged and nothing is asked.
    m_journey->moveTo(BareCanvas);
    m_journey->restingPicture(BarArea);
    m_journey->drag(tile(0), Trashcan);
    QTest::qWait(300);
    QCOMPARE(storedNames(*m_journey), QStringList("Default Profile"));
    QVERIFY(m_journey->savePicture("profile-last.png"));
}

VELTRANO_TEST_MAIN(ProfileJourney)
#include "ProfileJourney.moc"
