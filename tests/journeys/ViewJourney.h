#pragma once

#include "Journey.h"
#include "ViewPlaces.h"

#include <TestCase.h>

#include <QByteArray>
#include <QDomElement>
#include <QImage>
#include <QMap>
#include <QScopedPointer>
#include <QString>
#include <QStringList>

/// A journey in the view of the controller: what people do there with profiles, and what is stored then.
/// Steps answer false when something that they wait for does not come.
class ViewJourney : public Journey
{
public:
    using Assignments = QMap<QString, QString>;

    static const QString Controller;
    /// The name of the profile that is always there.
    static const QString DefaultProfile;

    /// With the view open.
    explicit ViewJourney(const QMap<QString, QByteArray>& files = {});
    /// With the arguments alone.
    explicit ViewJourney(const QStringList& arguments);

    /// The stored profiles by name.
    QMap<QString, QDomElement> storedProfiles() const;
    QStringList storedNames() const { return storedProfiles().keys(); }
    QString idOf(const QString& profile) const;
    int macroCount(const QString& profile) const;
    /// The uids of the commands on the controller, by places as in "M1 G1".
    Assignments assignments(const QString& profile = DefaultProfile) const;
    /// The display name of the command at such a place; empty if there is none.
    QString commandOn(const char* place, const QString& profile = DefaultProfile) const;
    QString setting(const char* key) const;

    // With the pointer out of the way.
    QImage restingBar();
    /// What shows the state of profiles, commands and keys.
    QImage restingView();
    bool makeProfile(const QString& name);
    /// Goes to the entry with that number, as keys reach it, in the menu that comes up.
    void goToEntry(int entry);
    /// Chooses it.
    void chooseEntry(int entry);
    // The same in the menu of a tile.
    void goToInMenuOf(int number, int entry);
    void chooseInMenuOf(int number, int entry);
    /// Opens the submenu of all keys in the menu of a tile; its first entry is marked.
    void openKeysMenu(int number, int entry = ViewPlaces::AllKeys);
    /// Types the name of a file into the dialog and takes it.
    bool giveFile(const QString& title, const QString& path);
    /// Says yes to the question whether to delete.
    bool confirmDeletion();
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
