#pragma once

#include <QString>
#include <QVector>

#include <functional>
#include <memory>

/// One way to find a game: what its installation leaves in the Windows registry.
class GameSignature
{
public:
    /// The key with its root, "HKEY_LOCAL_MACHINE\..." or "HKEY_CURRENT_USER\..."; nothing is found under any
    /// other. The root is compared with regard to case, what follows it without.
    QString key;
    /// Name of the key's value that holds a directory, compared without regard to case. An empty name is the
    /// key's default value.
    QString value;
    /// The program's file below that directory. A text that begins with a blank is added to the directory as
    /// it stands. With an empty one nothing is found.
    QString executable;
};

/// Finds the programs of installed games. For use in one thread, which may be any.
///
/// There is one implementation for each platform: GameLocator_windows.cpp asks the registry of the system,
/// GameLocator_wine.cpp reads those of the prefixes in which Windows programs run on other systems.
class GameLocator
{
    Q_DISABLE_COPY(GameLocator)

public:
    /// `signatures` are all that locate() will be asked for. Where a registry is a large file, it is read
    /// here, once for all of them. That ends early, with less to find, when `isCancelled` answers true.
    GameLocator(const QVector<GameSignature>& signatures, const std::function<bool()>& isCancelled);
    ~GameLocator();

    /// The path of an existing file or folder; empty if there is none.
    QString locate(const GameSignature& signature) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
