#include "WinePrefixes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <initializer_list>

namespace {

/// The longest list of libraries that is read, in bytes.
constexpr qint64 MaxLibraryListSize = qint64(1024) * 1024;

/// Adds an existing folder by its one real path, unless it is there already.
void addFolder(QStringList& folders, const QString& path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    if (info.isDir() && !folders.contains(canonical))
        folders.append(canonical);
}

QStringList steamFolders()
{
    const QDir home = QDir::home();
    QStringList folders;
    for (const char* const place : {".steam/steam", ".steam/root", ".local/share/Steam",
             ".var/app/com.valvesoftware.Steam/.local/share/Steam",
             ".var/app/com.valvesoftware.Steam/data/Steam", "snap/steam/common/.local/share/Steam"})
        addFolder(folders, home.filePath(QLatin1String(place)));
    if (const QString data = qEnvironmentVariable("XDG_DATA_HOME"); !data.isEmpty())
        addFolder(folders, QDir(data).filePath(QStringLiteral("Steam")));
    return folders;
}

/// The folders that a list of libraries names: pairs of quoted texts, of which the first is "path" or, in
/// older lists, a number.
QStringList foldersIn(const QString& listPath)
{
    QFile list(listPath);
    if (!QFileInfo(listPath).isFile() || !list.open(QIODevice::ReadOnly))
        return QStringList();
    const QString text = QString::fromUtf8(list.read(MaxLibraryListSize));
    static const QRegularExpression pair(QStringLiteral(R"re("(?:path|\d+)"\s+"((?:[^"\\]|\\.)*)")re"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression escape(QStringLiteral(R"(\\(.))"));
    QStringList folders;
    for (auto match = pair.globalMatch(text); match.hasNext();) {
        QString folder = match.next().captured(1);
        folder.replace(escape, QStringLiteral("\\1"));
        // Numbers name other things too.
        if (QDir::isAbsolutePath(folder))
            folders.append(folder);
    }
    return folders;
}

QStringList steamLibraries()
{
    QStringList libraries = steamFolders();
    const QStringList installations = libraries;
    for (const QString& installation : installations) {
        for (const char* const list : {"/steamapps/libraryfolders.vdf", "/config/libraryfolders.vdf"}) {
            const QStringList folders = foldersIn(installation + QLatin1String(list));
            for (const QString& folder : folders)
                addFolder(libraries, folder);
        }
    }
    return libraries;
}

/// The names that a path on a drive goes through. On Windows ".." takes a name away, be it a folder's or not,
/// and doesn't leave the drive.
QStringList namesIn(QString path)
{
    QStringList names;
    const QStringList parts =
        path.replace(QLatin1Char('\\'), QLatin1Char('/')).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        if (part == QLatin1String("..")) {
            if (!names.isEmpty())
                names.removeLast();
        } else if (part != QLatin1String(".")) {
            names.append(part);
        }
    }
    return names;
}

/// The entries of a folder whose name is the same but for case, sorted.
QStringList entriesNamed(const QString& folder, const QString& name)
{
    QStringList found;
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System);
    while (entries.hasNext()) {
        entries.next();
        const QString entry = entries.fileName();
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            found.append(entry);
    }
    found.sort();
    return found;
}

} // namespace

namespace WinePrefixes {

QStringList find()
{
    QStringList prefixes;
    if (const QString chosen = qEnvironmentVariable("WINEPREFIX"); !chosen.isEmpty())
        addFolder(prefixes, chosen);
    addFolder(prefixes, QDir::home().filePath(QStringLiteral(".wine")));
    const QStringList libraries = steamLibraries();
    for (const QString& library : libraries) {
        const QDir games(library + QStringLiteral("/steamapps/compatdata"));
        const QStringList ids = games.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& id : ids)
            addFolder(prefixes, games.filePath(id + QStringLiteral("/pfx")));
    }
    return prefixes;
}

QString resolve(const QString& prefix, const QString& windowsPath)
{
    static const QRegularExpression drivePath(QStringLiteral(R"(^([A-Za-z]:)[\\/](.*)$)"));
    const QRegularExpressionMatch match = drivePath.match(windowsPath);
    if (!match.hasMatch())
        return QString();
    const QString drive =
        QFileInfo(prefix + QStringLiteral("/dosdevices/") + match.captured(1).toLower()).canonicalFilePath();
    if (drive.isEmpty())
        return QString();
    const QStringList names = namesIn(match.captured(2));
    if (names.isEmpty())
        return drive;
    if (const QString exact = QDir(drive).filePath(names.join(QLatin1Char('/'))); QFileInfo::exists(exact))
        return exact;

    // Level by level all folders that the path may mean, so that links in a circle are no trap.
    QStringList places {drive};
    for (const QString& name : names) {
        QStringList next;
        QStringList seen;
        for (const QString& place : qAsConst(places)) {
            const QStringList entries = entriesNamed(place, name);
            for (const QString& entry : entries) {
                const QString found = QDir(place).filePath(entry);
                const QString canonical = QFileInfo(found).canonicalFilePath();
                if (canonical.isEmpty() || seen.contains(canonical))
                    continue;
                seen.append(canonical);
                if (entry == name)
                    next.prepend(found);
                else
                    next.append(found);
            }
        }
        places = next;
    }
    return places.value(0);
}

} // namespace WinePrefixes
