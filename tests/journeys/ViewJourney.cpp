#include "ViewJourney.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QtTest>

using namespace ViewPlaces;

namespace {

/// A menu takes a moment to come up.
constexpr int MenuTime = 300;
/// Documents are written half a second after a change.
constexpr int WriteTime = 5000;

const QString Category = QStringLiteral("Veltrano.Gaming.LeftHandedController");

} // namespace

const QString ViewJourney::Controller = QStringLiteral("Veltrano.Gaming.LeftHandedController.K13");
const QString ViewJourney::DefaultProfile = QStringLiteral("Default Profile");

ViewJourney::ViewJourney(const QMap<QString, QByteArray>& files)
    : Journey({QStringLiteral("--device"), Controller, QStringLiteral("--open-view")}, files)
{ }

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

ViewJourney::Assignments ViewJourney::assignments(const QString& profile) const
{
    Assignments found;
    const QDomNodeList all = storedProfiles().value(profile).elementsByTagName(QStringLiteral("assignment"));
    for (int i = 0; i < all.size(); ++i) {
        const QDomElement assignment = all.at(i).toElement();
        // Backups hold assignments as well.
        const QDomElement parent = assignment.parentNode().toElement();
        if (parent.tagName() == QLatin1String("assignments")
            && parent.attribute(QStringLiteral("category")) == Category)
            found[assignment.attribute(QStringLiteral("shiftstate")) + QLatin1Char(' ')
                + assignment.attribute(QStringLiteral("contextid"))] =
                assignment.attribute(QStringLiteral("macrouid"));
    }
    return found;
}

QString ViewJourney::commandOn(const char* place, const QString& profile) const
{
    const QString id = assignments(profile).value(QLatin1String(place));
    const QDomNodeList macros = storedProfiles().value(profile).elementsByTagName(QStringLiteral("macro"));
    for (int i = 0; i < macros.size(); ++i) {
        const QDomElement macro = macros.at(i).toElement();
        if (macro.attribute(QStringLiteral("uid")) == id)
            return macro.attribute(QStringLiteral("display_name"));
    }
    return QString();
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

QImage ViewJourney::restingView()
{
    moveTo(BareCanvas);
    const QImage desk = restingPicture(DeskArea);
    const QImage tiles = restingPicture(TileArea);
    QImage view(desk.width(), tiles.height() + desk.height(), desk.format());
    view.fill(Qt::black);
    QPainter painter(&view);
    painter.drawImage(0, 0, tiles);
    painter.drawImage(0, tiles.height(), desk);
    return view;
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

void ViewJourney::goToEntry(int entry)
{
    QTest::qWait(MenuTime);
    for (int i = 0; i < entry; ++i)
        key(QStringLiteral("Down"));
}

void ViewJourney::chooseEntry(int entry)
{
    goToEntry(entry);
    key(QStringLiteral("Return"));
}

void ViewJourney::goToInMenuOf(int number, int entry)
{
    click(tile(number), 3);
    goToEntry(entry);
}

void ViewJourney::chooseInMenuOf(int number, int entry)
{
    click(tile(number), 3);
    chooseEntry(entry);
}

void ViewJourney::openKeysMenu(int number, int entry)
{
    goToInMenuOf(number, entry);
    key(QStringLiteral("Right"));
    QTest::qWait(MenuTime);
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
