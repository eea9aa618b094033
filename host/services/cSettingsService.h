#pragma once

#include "SettingsFile.h"

#include <ISettings.h>

#include <QList>
#include <QMetaMethod>
#include <QPointer>
#include <QTimer>

/// The settings, kept in one file.
///
/// A null value is the same as none: storing it removes what is there. Storing below a value that is no
/// object replaces that value. Changes are written shortly after they are made, and at the end.
class cSettingsService : public ISettings
{
    Q_OBJECT
    Q_CLASSINFO("service", "VGFSettings.Settings")

public:
    /// Most names in a path; a longer one is refused with a warning.
    static constexpr int MaxPathDepth = 64;

    explicit cSettingsService(const QString& filePath, QObject* parent = nullptr);
    ~cSettingsService() override;

    /// From now on changes stay in memory: another process keeps the file.
    void setReadOnly() { m_file.setReadOnly(); }

    /// Reads the file. Before that, all settings are missing.
    void load();
    /// Writes what has changed since the last write; false if it could not be written.
    bool flush();

    /// Milliseconds after a failed write until the next one is tried.
    void setRetryTime(int milliseconds) { m_retryTime = milliseconds; }

    cJsonValue getProperty(const QString& path) override;
    int getPropertyInt(const QString& path) override;
    int getPropertyInt(const QString& path, int defaultValue) override;
    bool getPropertyBool(const QString& path) override;
    bool getPropertyBool(const QString& path, bool defaultValue) override;
    QString getPropertyString(const QString& path) override;
    QString getPropertyString(const QString& path, const QString& defaultValue) override;
    QStringList getPropertyKeys(const QString& path) override;
    void setPropertyInt(const QString& path, int val) override;
    void setPropertyBool(const QString& path, bool val) override;
    void setPropertyString(const QString& path, const QString& val) override;
    void setProperty(const QString& path, const cJsonValue& val) override;
    void removeProperty(const QString& path) override;
    /// Listeners are called in the order in which they were added, after the change. A change above the path
    /// calls too if the value at the path is another one then. A slot that the receiver lacks, or that takes
    /// something else, is refused with a warning.
    void addListener(const QString& path, QObject* receiver, const char* slotToCall) override;
    void removeListener(QObject* receiver) override;

Q_SIGNALS:
    /// The settings could not be read or written; the text is for the user. Of writes that fail in a row only
    /// the first is reported.
    void problemFound(const QString& message);

private Q_SLOTS:
    void save();

private:
    struct Listener
    {
        QStringList names;
        QPointer<QObject> receiver;
        QMetaMethod slot;
        int id = 0;
    };

    const cJsonValue& valueAt(const QStringList& names) const;
    /// Stores a value that differs from the present one and tells the listeners.
    void change(const QString& path, const cJsonValue& value);
    void callListeners(const cJsonValue& before, const QString& path);

    SettingsFile m_file;
    cJsonValue m_root;
    QList<Listener> m_listeners;
    int m_lastListenerId = 0;
    QTimer m_saveTimer;
    int m_retryTime;
    bool m_isChanged = false;
    bool m_hasFailed = false;
};
