#pragma once

#include "HelpCollection.h"
#include "HelpWindow.h"

#include <IHelpMgr.h>

#include <QList>
#include <QPointer>

#include <memory>

/// The help pages that plug-ins have registered, and the window that shows them.
///
/// The address of a page, "qthelp://<section>/doc/<language>_<COUNTRY>/<file>", tells its section. A topic is
/// looked for in the registered folder of its section: under the language of the address, under "en_US" and
/// in the folder itself. A folder that holds a help collection of its section, a file that ends in ".qch",
/// shows its pages from there, with contents and search.
class cHelpMgrService : public IHelpMgr
{
    Q_OBJECT
    Q_CLASSINFO("service", "Help.HelpMgr")

public:
    explicit cHelpMgrService(QObject* parent = nullptr);
    ~cHelpMgrService() override;

    /// Has all providers register their pages. What is registered already stays.
    void askProviders();

    /// Null before help was shown for the first time and after unloadHelp().
    HelpWindow* helpWindow() const { return m_helpWindow; }

    /// False if a text is empty or the folder is not there. An id that is registered already gets the new
    /// page.
    bool registerHelp(const QString& helpID, const QString& helpUrl, const QString& helpFilePath) override;
    /// False for a folder without pages.
    bool unRegisterHelp(const QString& helpFilePath) override;
    void LaunchHelpByViewID(const QString& helpID) override;
    void LaunchHelp(const QString& section, const QString& topic) override;
    void unloadHelp() override;

private:
    struct Page
    {
        QString helpId;
        QString section;
        QString language;
        QString topic;
        QString folder;
    };

    /// The file of a topic in the folder of a page, or empty.
    static QString findFile(const Page& page, const QString& topic);
    /// The help collection in the folder of a page, or empty.
    static QString collectionFile(const Page& page);
    HelpCollection& collection();
    HelpWindow& window();

    QList<Page> m_pages;
    /// Made when help is shown for the first time: it takes a moment.
    std::unique_ptr<HelpCollection> m_collection;
    QPointer<HelpWindow> m_helpWindow;
};
