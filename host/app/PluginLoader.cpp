#include "PluginLoader.h"

#include "PluginHost.h"

#include <IPlugin.h>

#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QRegularExpression>

namespace {

const QString LibraryPrefix = QStringLiteral("lib");
const QString LibrarySuffix = QStringLiteral(".so");

} // namespace

PluginLoader::PluginLoader(QObject* parent)
    : QObject(parent)
{ }

PluginLoader::~PluginLoader()
{
    stopAll();
}

void PluginLoader::loadAll(const QString& folder)
{
    const QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    if (names.isEmpty())
        Q_EMIT failed(tr("No plug-ins are installed in %1.").arg(folder));
    for (const QString& name : names)
        load(folder + QLatin1Char('/') + name + QLatin1Char('/') + LibraryPrefix + name + LibrarySuffix);
}

bool PluginLoader::load(const QString& libraryFile)
{
    const QString reason = start(libraryFile);
    if (reason.isEmpty())
        return true;
    Q_EMIT failed(tr("The plug-in %1 can't be used: %2").arg(QFileInfo(libraryFile).fileName(), reason));
    return false;
}

QString PluginLoader::start(const QString& libraryFile)
{
    const QFileInfo file(libraryFile);
    if (!file.isFile())
        return tr("there is no file %1.").arg(file.absoluteFilePath());
    static const QRegularExpression pattern(QStringLiteral("\\Alib([A-Za-z0-9]{2,})\\.so\\z"));
    const QString alias = pattern.match(file.fileName()).captured(1);
    if (alias.isEmpty())
        return tr("its file is not named lib<Name>.so, with letters and digits only.");
    if (m_loaded.contains(file.canonicalFilePath()))
        return tr("it was started already.");

    QLibrary library(file.absoluteFilePath());
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load())
        return library.errorString();
    m_loaded.append(file.canonicalFilePath());
    const auto entryPoint = reinterpret_cast<PluginEntryPoint>(library.resolve("entrypoint"));
    if (!entryPoint)
        return tr("it has no function \"entrypoint\".");
    IPlugin* const plugin = entryPoint();
    if (!plugin)
        return tr("it offers no plug-in.");

    QDir::setSearchPaths(alias, {file.absolutePath()});
    m_hosts.push_back(std::make_unique<PluginHost>(alias, file.absolutePath()));
    PluginHost* const host = m_hosts.back().get();
    if (!plugin->init(host))
        return tr("it could not be started.");
    m_running.push_back({plugin, host});
    return QString();
}

void PluginLoader::stopAll()
{
    while (!m_running.empty()) {
        const Entry entry = m_running.back();
        m_running.pop_back();
        entry.plugin->deinit(entry.host);
    }
}

QStringList PluginLoader::running() const
{
    QStringList aliases;
    for (const Entry& entry : m_running)
        aliases.append(entry.host->pluginAlias());
    return aliases;
}
