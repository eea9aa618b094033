#include "cHelpMgrService.h"

#include "ServiceConstants.h"

#include <EventNames.h>
#include <IServiceMgr.h>

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

namespace {

const QString FallbackLanguage = QStringLiteral("en_US");

} // namespace

cHelpMgrService::cHelpMgrService(QObject* parent)
    : IHelpMgr(parent)
{ }

cHelpMgrService::~cHelpMgrService()
{
    cHelpMgrService::unloadHelp();
}

void cHelpMgrService::askProviders()
{
    for (int index = 0; index <= ServiceConstants::LastHelpProvider; ++index)
        IServiceMgr::instance()->publish(
            EventSources::HelpMgr, Events::RegisterHelpProvider, Q_ARG(int, index));
}

bool cHelpMgrService::registerHelp(const QString& helpID, const QString& helpUrl, const QString& helpFilePath)
{
    const QUrl url(helpUrl);
    if (helpID.isEmpty() || url.host().isEmpty() || !QFileInfo(helpFilePath).isDir())
        return false;
    const QStringList steps = url.path().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    Page page {helpID, url.host(), QString(), steps.value(steps.size() - 1), helpFilePath};
    if (steps.size() > 1)
        page.language = steps[steps.size() - 2];
    m_pages.erase(std::remove_if(m_pages.begin(), m_pages.end(),
                      [&](const Page& other) { return other.helpId == helpID; }),
        m_pages.end());
    m_pages.append(page);
    const QString compiled = collectionFile(page);
    if (m_collection && !compiled.isEmpty())
        m_collection->add(compiled);
    return true;
}

bool cHelpMgrService::unRegisterHelp(const QString& helpFilePath)
{
    for (const Page& page : qAsConst(m_pages)) {
        if (m_collection && page.folder == helpFilePath)
            m_collection->remove(page.section);
    }
    const auto rest = std::remove_if(
        m_pages.begin(), m_pages.end(), [&](const Page& page) { return page.folder == helpFilePath; });
    const bool isKnown = rest != m_pages.end();
    m_pages.erase(rest, m_pages.end());
    return isKnown;
}

void cHelpMgrService::LaunchHelpByViewID(const QString& helpID)
{
    const auto page = std::find_if(
        m_pages.begin(), m_pages.end(), [&](const Page& other) { return other.helpId == helpID; });
    if (page == m_pages.end())
        window().showUnknownTopic(helpID);
    else
        LaunchHelp(page->section, page->topic);
}

void cHelpMgrService::LaunchHelp(const QString& section, const QString& topic)
{
    for (const Page& page : qAsConst(m_pages)) {
        if (page.section.compare(section, Qt::CaseInsensitive) != 0)
            continue;
        const QUrl address = collection().find(page.section, {page.language, FallbackLanguage}, topic);
        if (address.isValid()) {
            window().showPage(address);
            return;
        }
        const QString file = findFile(page, topic);
        if (!file.isEmpty()) {
            window().showFile(file, page.folder);
            return;
        }
    }
    window().showUnknownTopic(topic.isEmpty() ? section : topic);
}

void cHelpMgrService::unloadHelp()
{
    delete m_helpWindow;
    m_collection.reset();
}

QString cHelpMgrService::collectionFile(const Page& page)
{
    const QDir folder(page.folder);
    const QStringList names = folder.entryList({QStringLiteral("*.qch")}, QDir::Files);
    for (const QString& name : names) {
        const QString file = folder.absoluteFilePath(name);
        if (HelpCollection::sectionOf(file) == page.section)
            return file;
    }
    return QString();
}

HelpCollection& cHelpMgrService::collection()
{
    if (!m_collection) {
        m_collection = std::make_unique<HelpCollection>(this);
        for (const Page& page : qAsConst(m_pages)) {
            const QString file = collectionFile(page);
            if (!file.isEmpty())
                m_collection->add(file);
        }
    }
    return *m_collection;
}

QString cHelpMgrService::findFile(const Page& page, const QString& topic)
{
    if (topic.isEmpty())
        return QString();
    const QDir folder(page.folder);
    const QString root = folder.canonicalPath() + QLatin1Char('/');
    for (const QString& language : {page.language, FallbackLanguage, QString()}) {
        const QFileInfo file(
            QDir::cleanPath(page.folder + QLatin1Char('/') + language + QLatin1Char('/') + topic));
        // A topic does not lead out of its folder.
        if (file.isFile() && file.canonicalFilePath().startsWith(root))
            return file.canonicalFilePath();
    }
    return QString();
}

HelpWindow& cHelpMgrService::window()
{
    // It belongs to no window: a dialog blocks all windows of the one that it belongs to, and help is what
    // its user asks for.
    if (!m_helpWindow)
        m_helpWindow = new HelpWindow(collection());
    return *m_helpWindow;
}
