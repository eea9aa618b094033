#pragma once

#include "Journey.h"
#include "ViewPlaces.h"

#include <TestCase.h>

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
