#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// The host's database of games while this lives: one without games.
class GameDatabase
{
    Q_DISABLE_COPY(GameDatabase)

public:
    GameDatabase()
    {
        QFile file(m_folder.filePath("GameDatabase.xml"));
        if (file.open(QFile::WriteOnly))
            file.write("<profiles/>");
        QDir::setSearchPaths("Profiler", {m_folder.path()});
    }
    ~GameDatabase() { QDir::setSearchPaths("Profiler", {}); }

private:
    QTemporaryDir m_folder;
};
