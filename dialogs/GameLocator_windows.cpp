#include "GameLocator.h"

#include "WindowsRegistry.h"

#include <QDir>
#include <QFileInfo>

using WindowsRegistry::View;

namespace {

QString locateIn(View view, const GameSignature& signature)
{
    const std::optional<std::wstring> text =
        WindowsRegistry::readText(signature.key.toStdWString(), signature.value.toStdWString(), view);
    if (!text || signature.executable.isEmpty())
        return QString();
    const QString directory = QString::fromStdWString(*text);
    const QString candidate = signature.executable.startsWith(QLatin1Char(' '))
        ? directory + signature.executable
        : QDir(directory).absoluteFilePath(signature.executable);
    return QFileInfo::exists(candidate) ? candidate : QString();
}

} // namespace

/// The registry of the system is quick to ask; nothing is kept.
class GameLocator::Private
{
};

GameLocator::GameLocator(const QVector<GameSignature>&, const std::function<bool()>&)
{ }

GameLocator::~GameLocator() = default;

QString GameLocator::locate(const GameSignature& signature) const
{
    const QString path = locateIn(View::Native, signature);
    return path.isEmpty() ? locateIn(View::Bits32, signature) : path;
}
