#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QString>

#include <unistd.h>

/// Makes this process an ordinary user's while it lives, and the folder that user's: the administrator may
/// write anywhere, so nothing would fail that a test wants to see fail.
class OrdinaryUser
{
    Q_DISABLE_COPY(OrdinaryUser)

public:
    explicit OrdinaryUser(const QString& folder)
    {
        if (::geteuid() != 0)
            return;
        give(folder);
        QDirIterator all(
            folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext())
            give(all.next());
        m_isOther = ::seteuid(Nobody) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_isOther && ::seteuid(0) != 0)
            qFatal("The process can't go back to being the administrator's");
    }

    static bool isAdministrator() { return ::geteuid() == 0; }

private:
    static constexpr uid_t Nobody = 65534;

    static void give(const QString& path)
    {
        if (::chown(QFile::encodeName(path).constData(), Nobody, gid_t(-1)) != 0)
            qWarning("%s can't be given away", qPrintable(path));
    }

    bool m_isOther = false;
};

/// Lets nothing be added to a folder, or taken from it, while it lives. An administrator is not held up.
class ReadOnlyFolder
{
    Q_DISABLE_COPY(ReadOnlyFolder)

public:
    explicit ReadOnlyFolder(const QString& path)
        : m_path(path)
    {
        QFile::setPermissions(m_path, QFile::ReadOwner | QFile::ExeOwner);
    }
    ~ReadOnlyFolder()
    {
        QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QString m_path;
};
