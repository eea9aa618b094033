#pragma once

#include "Journey.h"

#include <AppConstants.h>
#include <TestCase.h>

#include <QDomElement>
#include <QImage>
#include <QMap>
#include <QPoint>
#include <QRect>
#include <QScopedPointer>
#include <QSize>
#include <QString>
#include <QStringList>

/// Where the view of the controller has its things, in pixels of the window.
namespace ViewPlaces {

/// A point of the canvas as one of the window.
constexpr QPoint onCanvas(int x, int y)
{
    return {x, AppConstants::HeaderHeight + y};
}

inline constexpr QPoint NewButton = onCanvas(359, 108);
inline constexpr QPoint NewMenuArrow = onCanvas(359, 127);
inline constexpr QPoint ImportButton = onCanvas(392, 106);
inline constexpr QPoint ProfileSearchBox = onCanvas(430, 83);
inline constexpr QPoint Trashcan = onCanvas(339, 530);
inline constexpr QPoint BareCanvas = onCanvas(560, 505);
inline constexpr QRect BarArea(onCanvas(352, 37), QSize(593, 86));

/// The middle of the command list's row with that number, unscrolled.
constexpr QPoint commandRow(int row)
{
    return onCanvas(140, 237 + row * 31);
}

constexpr QPoint tile(int number)
{
    return onCanvas(552 + 68 * number, 73);
}

/// Where a tile's icon for the menu stands.
constexpr QPoint menuIcon(int number)
{
    return tile(number) + QPoint(19, 14);
}

/// The entries of a tile's menu by which keys reach them; those of the fixed default profile are fewer.
enum MenuEntry {
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

} // namespace ViewPlaces

/// A journey in the view of the controller: what people do there with profiles, and what is stored then.
/// Steps answer false when something that they wait for does not come.
class ViewJourney : public Journey
{
public:
    static const QString Controller;

    /// By default with the view open.
    explicit ViewJourney(const QStringList& arguments = {
                             QStringLiteral("--device"), Controller, QStringLiteral("--open-view")});

    /// The stored profiles by name.
    QMap<QString, QDomElement> storedProfiles() const;
    QStringList storedNames() const { return storedProfiles().keys(); }
    QString idOf(const QString& profile) const;
    int macroCount(const QString& profile) const;
    QString setting(const char* key) const;

    /// With the pointer out of the way.
    QImage restingBar();
    bool makeProfile(const QString& name);
    /// Chooses the entry with that number, as keys reach it, in the menu that comes up.
    void chooseEntry(int entry);
    /// The same in the menu of a tile.
    void chooseInMenuOf(int tile, int entry);
    /// Types the name of a file into the dialog and takes it.
    bool giveFile(const QString& title, const QString& path);
    /// Says yes to the question whether to delete.
    bool confirmDeletion();
    /// Ends the application; false if it does not end as it should or has something to tell.
    bool end();
};

/// Base of the tests that make such a journey in each case. A case that fails leaves a picture of the screen.
class ViewJourneyTest : public TestCase
{
    Q_OBJECT

protected Q_SLOTS:
    void init();
    void cleanup();

protected:
    QScopedPointer<ViewJourney> m_journey;
};
