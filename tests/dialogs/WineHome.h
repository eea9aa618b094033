#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QString>
#include <QTemporaryDir>

/// A home of its own for a test, with Wine prefixes made by hand. While it lives, it is the home of the
/// process, and no prefix is named by the environment.
class WineHome
{
    Q_DISABLE_COPY(WineHome)

public:
    WineHome()
        : m_previous(qgetenv("HOME"))
    {
        qputenv("HOME", m_folder.path().toLocal8Bit());
        qunsetenv("WINEPREFIX");
        qunsetenv("XDG_DATA_HOME");
    }
    ~WineHome()
    {
        qputenv("HOME", m_previous);
        qunsetenv("WINEPREFIX");
        qunsetenv("XDG_DATA_HOME");
    }

    QString path() const { return QDir(m_folder.path()).canonicalPath(); }
    QString path(const QString& name) const { return path() + QLatin1Char('/') + name; }

    /// Writes a file below the home with the folders above it, and returns its path.
    QString write(const QString& name, const QByteArray& content = QByteArray()) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("can't write %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    /// Makes a prefix with the drives C and Z, and returns its path.
    QString addPrefix(
        const QString& name, const QByteArray& system = hive({}), const QByteArray& user = hive({})) const
    {
        write(name + QStringLiteral("/system.reg"), system);
        write(name + QStringLiteral("/user.reg"), user);
        QDir().mkpath(path(name + QStringLiteral("/drive_c")));
        QDir().mkpath(path(name + QStringLiteral("/dosdevices")));
        QFile::link(QStringLiteral("../drive_c"), path(name + QStringLiteral("/dosdevices/c:")));
        QFile::link(QStringLiteral("/"), path(name + QStringLiteral("/dosdevices/z:")));
        return path(name);
    }

    /// A registry file with these lines.
    static QByteArray hive(const QList<QByteArray>& lines)
    {
        QByteArray text = "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n\n";
        for (const QByteArray& line : lines)
            text += line + '\n';
        return text;
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_previous;
};
