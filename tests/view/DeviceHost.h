#pragma once

#include <cJsonValue.h>
#include <IMacroType.h>
#include <MKey.h>
#include <PluginFolder.h>
#include <RecordingHost.h>

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>

/// Three keys, three modes, no glows.
extern const char* const PlainDevice;
/// A call for each of its keys, whose id takes the place of "%1".
QStringList forPlainKeys(const QString& call);
/// G1 can't be empty, G2 has a generic command, G3 has none.
extern const char* const GenericDevice;

/// A manifest of the category "pad" with that content below `macrobindingmetadata`.
QByteArray makeManifest(const char* content, const char* model = "Model", const char* category = "pad");

/// A command record as the host keeps it.
cJsonValue makeMacro(const char* uid, const char* displayName, bool hidden = false);

/// A command type that fits those control types.
cMacroTypePtr makeMacroType(const QStringList& controlTypes, bool isPrivate = false);

/// A recording host with one device that keeps the commands and assignments of some profiles, as a host does:
/// what the view asks for comes back, but nothing that it asks to change is changed.
class DeviceHost
{
    Q_DISABLE_COPY(DeviceHost)

public:
    DeviceHost();
    ~DeviceHost();

    /// What the host has as the manifest of every model.
    void setManifest(const QByteArray& xml);
    /// What `profiler.category` of makeManifest() gives.
    static QString category() { return QStringLiteral("pad"); }

    void putMacro(const QString& profileID, const cJsonValue& macro);
    /// For the category of the device, in one mode.
    void assign(const QString& profileID, const QString& contextID, const QString& macroID,
        MKey::MKey_t inMode = MKey::M1);

    /// The log since the last take without the lines of clients that are made.
    QStringList takeLog();
    /// The same with calls and events without services and types.
    QStringList takeBriefLog();

    // The host's data.
    QHash<QString, QStringList> categories;
    QString boundDevice;
    bool isDirty = false;
    bool isBusy = false;
    bool isInForeground = true;
    MKey::MKey_t mode = MKey::M1;

private:
    void answerQueries();
    cJsonValue macro(const QString& profileID, const QString& macroID) const;

    QByteArray m_manifest;
    QHash<QString, cJsonValue> m_macros;
    QMap<QString, QString> m_assignments;

public:
    // Behind the data, for which it is asked until it has gone.
    const PluginFolder folder;
    RecordingHost host;
};
