#pragma once

#include "WineHome.h"

#include <QByteArray>
#include <QDir>
#include <QList>
#include <QString>

/// A machine for the game scan: a database of games and a Wine prefix in which some of them are installed.
/// Both exist while this lives.
class GameFiles
{
    Q_DISABLE_COPY(GameFiles)

public:
    GameFiles() { QDir::setSearchPaths(QStringLiteral("Profiler"), {m_home.path()}); }
    ~GameFiles() { QDir::setSearchPaths(QStringLiteral("Profiler"), {}); }

    /// Adds a game to the database. Of its signatures the first has no name; each tells whether it finds the
    /// game.
    void addGame(const QString& name, const QList<bool>& areFound)
    {
        QByteArray signatures;
        for (int i = 0; i < areFound.size(); ++i)
            signatures += signature(QStringLiteral("%1 by %2").arg(name).arg(i), QString(), areFound[i]);
        addElement(name, signatures);
    }
    /// A `signature` element; the game is installed if it is to be found.
    QByteArray signature(const QString& key, const QString& edition, bool isFound)
    {
        if (isFound) {
            m_registry << "[Software\\\\" + key.toUtf8() + "]"
                       << "\"Dir\"=\"C:\\\\" + key.toUtf8() + '"';
            m_home.write(QStringLiteral(".wine/drive_c/%1/game.exe").arg(key));
        }
        return "<signature key=\"HKEY_LOCAL_MACHINE\\SOFTWARE\\" + key.toUtf8()
            + R"(" value="Dir" executable="game.exe" name=")" + edition.toUtf8() + "\"/>";
    }
    void addElement(const QString& name, const QByteArray& content)
    {
        m_profiles += "<profile name=\"" + name.toUtf8() + "\">" + content + "</profile>\n";
    }

    /// The program of a signature of addGame().
    QString program(const QString& name, int signature = 0) const
    {
        return m_home.path(QStringLiteral(".wine/drive_c/%1 by %2/game.exe").arg(name).arg(signature));
    }

    void write() const
    {
        writeDatabase("<profiles>\n" + m_profiles + "</profiles>\n");
        m_home.addPrefix(QStringLiteral(".wine"), WineHome::hive(m_registry));
    }
    void writeDatabase(const QByteArray& text) const
    {
        m_home.write(QStringLiteral("GameDatabase.xml"), text);
    }
    const WineHome& home() const { return m_home; }

private:
    WineHome m_home;
    QByteArray m_profiles;
    QList<QByteArray> m_registry;
};
