#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class IPlugin;
class PluginHost;

/// Loads plug-ins and starts and stops them.
///
/// The plug-in <Name> is the library lib<Name>.so in a folder that also holds its files and that is mounted
/// as the search path <Name>. A library stays loaded to the end of the process, because objects of its
/// classes may outlive the plug-in's stop; each plug-in therefore runs once.
class PluginLoader : public QObject
{
    Q_OBJECT

public:
    explicit PluginLoader(QObject* parent = nullptr);
    /// Stops the plug-ins that still run.
    ~PluginLoader() override;

    /// Loads <folder>/<Name>/lib<Name>.so of each folder in it.
    void loadAll(const QString& folder);
    /// Loads and starts one plug-in; false, with the reason in failed(), if it does not run then.
    bool load(const QString& libraryFile);
    /// Stops all plug-ins, the last one first.
    void stopAll();

    /// The aliases of the plug-ins that run.
    QStringList running() const;

Q_SIGNALS:
    /// A plug-in does not run; the text is for the user.
    void failed(const QString& message);

private:
    struct Entry
    {
        IPlugin* plugin = nullptr;
        PluginHost* host = nullptr;
    };

    /// Why the plug-in does not run, or an empty text.
    QString start(const QString& libraryFile);

    /// One for each plug-in whose start was tried: it may hold on to it, also if it did not start.
    std::vector<std::unique_ptr<PluginHost>> m_hosts;
    std::vector<Entry> m_running;
    /// Canonical paths of all that were ever loaded here.
    QStringList m_loaded;
};
