#include "ViewJourney.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

using namespace ViewPlaces;

namespace {

/// A menu takes a moment to come up.
constexpr int MenuTime = 300;
/// Documents are written half a second after a change.
constexpr int WriteTime = 5000;

} // namespace

const QString ViewJourney::Controller = QStringLiteral("Veltrano.Gaming.LeftHandedController.K13");

ViewJourney::ViewJourney(const QStringList& arguments)
    : Journey(arguments)
{ }

QMap<QString, QDomElement> ViewJourney::storedProfiles() const
{
    QMap<QString, QDomElement> found;
    const QDir folder(dataFile(QStringLiteral("profiles")));
    const QStringList names = folder.entryList({QStringLiteral("*.xml")}, QDir::Files);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        QDomDocument document;
        if (!file.open(QFile::ReadOnly) || !document.setContent(&file))
            continue;
        const QDomElement profile = document.documentElement().firstChildElement(QStringLiteral("profile"));
        found[profile.attribute(QStringLiteral("name"))] = profile;
    }
    return found;
}

QString ViewJourney::idOf(const QString& profile) const
{
    return storedProfiles().value(profile).attribute(QStringLiteral("uid"));
}

int ViewJourney::macroCount(const QString& profile) const
{
    return storedProfiles().value(profile).elementsByTagName(QStringLiteral("macro")).size();
}

QString ViewJourney::setting(const char* key) const
{
    QFile file(dataFile(QStringLiteral("settings.json")));
    if (!file.open(QFile::ReadOnly))
        return QString();
    const QRegularExpression line(QStringLiteral("\"%1\": \"?([^\",]*)").arg(QLatin1String(key)));
    return line.match(QString::fromUtf8(file.readAll())).captured(1);
}

QImage ViewJourney::restingBar()
{
    moveTo(BareCanvas);
    return restingPicture(TileArea);
}

bool ViewJourney::makeProfile(const QString& name)
{
    moveTo(NewButton - QPoint(3, 0));
    click(NewButton);
    if (!waitForWindow(QStringLiteral("New Profile")))
        return false;
    type(name);
    // A profile belongs to a program. The description and the choice of how to name the program, which the
    // controller's display brings, stand before its field.
    for (int i = 0; i < 3; ++i)
        key(QStringLiteral("Tab"));
    type(QStringLiteral("/bin/true"));
    key(QStringLiteral("Return"));
    return waitForNoWindow(QStringLiteral("New Profile"))
        && QTest::qWaitFor([&] { return storedNames().contains(name); }, WriteTime) && !restingBar().isNull();
}

void ViewJourney::chooseEntry(int entry)
{
    QTest::qWait(MenuTime);
    for (int i = 0; i < entry; ++i)
        key(QStringLiteral("Down"));
    key(QStringLiteral("Return"));
}

void ViewJourney::chooseInMenuOf(int number, int entry)
{
    click(tile(number), 3);
    chooseEntry(entry);
}

bool ViewJourney::giveFile(const QString& title, const QString& path)
{
    if (!waitForWindow(title))
        return false;
    type(path);
    key(QStringLiteral("Return"));
    return waitForNoWindow(title);
}

bool ViewJourney::confirmDeletion()
{
    if (!waitForWindow(QStringLiteral("Delete Profile")))
        return false;
    // No is what Return would answer.
    key(QStringLiteral("shift+Tab"));
    key(QStringLiteral("space"));
    return waitForNoWindow(QStringLiteral("Delete Profile"));
}

bool ViewJourney::end()
{
    key(QStringLiteral("ctrl+q"));
    if (!waitForEnd() || hasCrashed() || exitCode() != 0)
        return false;
    // Presses in wells are logged, and nothing else.
    QString told = errors();
    told.remove(
        QRegularExpression(QStringLiteral("MacroBindingView: User clicked on empty profile well \\d\n")));
    if (!told.isEmpty())
        qWarning("%s", qPrintable(told));
    return told.isEmpty();
}

void ViewJourneyTest::init()
{
    m_journey.reset(new ViewJourney);
    QVERIFY2(m_journey->isRunning(), qPrintable(m_journey->errors()));
    m_journey->restingBar();
}

void ViewJourneyTest::cleanup()
{
    const QScopedPointer<ViewJourney> journey(m_journey.take());
    // What has failed may wait in a dialog, and would not end.
    if (QTest::currentTestFailed())
        QVERIFY(Journey::saveScreen(QStringLiteral("failed-%1.png").arg(QTest::currentTestFunction())));
    else
        QVERIFY(journey->end());
}
