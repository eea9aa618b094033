#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <functional>

/// Reads the files in which a Wine prefix keeps its registry, "system.reg" and "user.reg".
namespace WineHive {

/// Names of values by the path of their key below the file's root, all of them folded.
using Names = QHash<QString, QSet<QString>>;
/// The texts of values, by folded path and folded name.
using Texts = QHash<QString, QHash<QString, QString>>;

/// The form in which names of keys and values are compared.
QString folded(const QString& name);

/// The texts of those of the wanted values that the file has. Binary data are read as UTF-16; a text ends
/// with its first zero, and one that takes more than 520 bytes counts as missing, as it does where the
/// registry is asked for it.
///
/// The file is read once from its beginning to its end, in pieces, whatever its size and however many values
/// are wanted. What is not a registry has no values, and damaged lines are passed over. Ends early, with less
/// to return, when `isCancelled` answers true.
Texts read(const QString& path, const Names& wanted, const std::function<bool()>& isCancelled);

} // namespace WineHive
