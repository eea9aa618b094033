#include "DesktopEntry.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>

namespace {

constexpr qint64 MaxEntrySize = qint64(1024) * 1024;

using Values = QHash<QString, QString>;

QString unescaped(const QString& value)
{
    QString text;
    for (int i = 0; i < value.size(); ++i) {
        if (value.at(i) != QLatin1Char('\\') || i + 1 == value.size()) {
            text += value.at(i);
            continue;
        }
        const QChar code = value.at(++i);
        if (code == QLatin1Char('s'))
            text += QLatin1Char(' ');
        else if (code == QLatin1Char('n') || code == QLatin1Char('r') || code == QLatin1Char('t'))
            text += QLatin1Char('\t');
        else
            text += code;
    }
    return text;
}

/// The values of the group that describes the entry. QSettings would take apart values with commas and treat
/// what stands behind a semicolon as a comment.
Values readEntry(const QString& path)
{
    Values values;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return values;
    bool isInGroup = false;
    const QStringList lines = QString::fromUtf8(file.read(MaxEntrySize)).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QString text = line.trimmed();
        if (text.startsWith(QLatin1Char('[')))
            isInGroup = text == QLatin1String("[Desktop Entry]");
        const int equals = text.indexOf(QLatin1Char('='));
        if (isInGroup && equals > 0 && !text.startsWith(QLatin1Char('#')))
            values.insert(text.left(equals).trimmed(), unescaped(text.mid(equals + 1).trimmed()));
    }
    return values;
}

bool isTrue(const QString& value)
{
    return value == QLatin1String("true");
}

/// A command line without what stands in front of the program: "env" and the variables that it sets.
QStringList commandOf(const QString& exec)
{
    QStringList words = QProcess::splitCommand(exec);
    if (!words.isEmpty() && QFileInfo(words.first()).fileName() == QLatin1String("env")) {
        words.removeFirst();
        while (!words.isEmpty() && words.first().contains(QLatin1Char('=')))
            words.removeFirst();
    }
    return words;
}

bool isProgram(const QString& command, const QString& program)
{
    if (command.isEmpty())
        return false;
    const QString path = QDir::isAbsolutePath(command) ? command : QStandardPaths::findExecutable(command);
    return !path.isEmpty() && QFileInfo(path).canonicalFilePath() == program;
}

/// True if there is more than the places for files and addresses, such as "%U".
bool hasArguments(const QStringList& command)
{
    for (const QString& argument : command.mid(1)) {
        if (!argument.startsWith(QLatin1Char('%')))
            return true;
    }
    return false;
}

} // namespace

namespace DesktopEntry {

QStringList iconsOfProgram(const QString& program)
{
    QStringList icons;
    QStringList iconsWithArguments;
    // An entry in an earlier folder replaces those of the same name in later ones.
    QSet<QString> seen;
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    for (const QString& folder : folders) {
        QStringList paths;
        QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            paths.append(files.next());
        paths.sort();
        for (const QString& path : qAsConst(paths)) {
            const QString id = QDir(folder).relativeFilePath(path);
            if (seen.contains(id))
                continue;
            seen.insert(id);
            const Values values = readEntry(path);
            const QString icon = values.value(QStringLiteral("Icon"));
            if (icon.isEmpty() || isTrue(values.value(QStringLiteral("Hidden"))))
                continue;
            const QStringList command = commandOf(values.value(QStringLiteral("Exec")));
            if (!isProgram(command.value(0), program)
                && !isProgram(values.value(QStringLiteral("TryExec")), program))
                continue;
            (hasArguments(command) ? iconsWithArguments : icons).append(icon);
        }
    }
    return icons + iconsWithArguments;
}

} // namespace DesktopEntry
