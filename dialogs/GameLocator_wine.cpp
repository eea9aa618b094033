#include "GameLocator.h"

#include "WineHive.h"
#include "WinePrefixes.h"

#include <utility>

namespace {

/// A key below one of the two roots.
class KeyPath
{
public:
    enum class Root { None, Machine, User };

    explicit KeyPath(const QString& key)
    {
        if (key.startsWith(QLatin1String("HKEY_LOCAL_MACHINE\\")))
            m_root = Root::Machine;
        else if (key.startsWith(QLatin1String("HKEY_CURRENT_USER\\")))
            m_root = Root::User;
        m_path = WineHive::folded(key.mid(key.indexOf(QLatin1Char('\\')) + 1));
        while (m_path.endsWith(QLatin1Char('\\')))
            m_path.chop(1);
    }

    Root root() const { return m_root; }

    /// Its folded paths in both views, in the order in which they are tried. The keys of 32-bit programs
    /// stand below one of their own.
    QStringList views() const
    {
        static const QString software = QStringLiteral("software\\");
        QStringList paths {m_path};
        if (m_path.startsWith(software))
            paths.append(QString(m_path).insert(software.size(), QStringLiteral("wow6432node\\")));
        return paths;
    }

private:
    Root m_root = Root::None;
    QString m_path;
};

/// The program's path as Windows writes it; empty if there is no way to tell it.
QString candidate(const QString& directory, const QString& executable)
{
    const auto isSlash = [&executable](int place) {
        return executable.size() > place
            && (executable[place] == QLatin1Char('\\') || executable[place] == QLatin1Char('/'));
    };
    if (directory.isEmpty() || executable.isEmpty())
        return QString();
    if (executable.startsWith(QLatin1Char(' ')))
        return directory + executable;
    if (executable.midRef(1, 1) == QLatin1String(":") && isSlash(2))
        return executable;
    if (isSlash(0))
        return directory.left(2) + executable;
    return directory + QLatin1Char('\\') + executable;
}

} // namespace

class GameLocator::Private
{
public:
    struct Prefix
    {
        QString path;
        WineHive::Texts machine;
        WineHive::Texts user;
    };
    QVector<Prefix> prefixes;
};

GameLocator::GameLocator(const QVector<GameSignature>& signatures, const std::function<bool()>& isCancelled)
    : d(std::make_unique<Private>())
{
    WineHive::Names machine;
    WineHive::Names user;
    for (const GameSignature& signature : signatures) {
        const KeyPath key(signature.key);
        if (key.root() == KeyPath::Root::None || signature.executable.isEmpty())
            continue;
        const QStringList views = key.views();
        for (const QString& path : views)
            (key.root() == KeyPath::Root::Machine ? machine : user)[path].insert(
                WineHive::folded(signature.value));
    }
    const QStringList prefixes = WinePrefixes::find();
    for (const QString& path : prefixes) {
        d->prefixes.append({path, WineHive::read(path + QStringLiteral("/system.reg"), machine, isCancelled),
            WineHive::read(path + QStringLiteral("/user.reg"), user, isCancelled)});
    }
}

GameLocator::~GameLocator() = default;

QString GameLocator::locate(const GameSignature& signature) const
{
    const KeyPath key(signature.key);
    if (key.root() == KeyPath::Root::None)
        return QString();
    const QStringList views = key.views();
    const QString value = WineHive::folded(signature.value);
    for (const Private::Prefix& prefix : qAsConst(d->prefixes)) {
        const WineHive::Texts& texts = key.root() == KeyPath::Root::Machine ? prefix.machine : prefix.user;
        for (const QString& path : views) {
            const QString found = WinePrefixes::resolve(
                prefix.path, candidate(texts.value(path).value(value), signature.executable));
            if (!found.isEmpty())
                return found;
        }
    }
    return QString();
}
