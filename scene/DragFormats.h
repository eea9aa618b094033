#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <memory>

class QMimeData;

/// What travels in a drag: the three private formats, and the one place that writes and reads their payloads.
///
/// Each of the makers returns data with exactly one format; the caller hands it to its QDrag, which owns it
/// from then on. The readers take any data, also foreign ones: what does not decode comes back as odd or
/// empty ids, which their receivers treat like any unknown id.
namespace DragFormats {

/// One or more profile ids, as UTF-8 text joined by ",". An id holds no comma, and nothing escapes one.
inline const QLatin1String Profiles("application/x-velt-gaming-profiles");
/// One or more command uids, in the same form.
inline const QLatin1String Macros("application/x-velt-gaming-macros");
/// What lies on one key, see Assignment.
inline const QLatin1String Assignment("application/x-velt-gaming-assignment");

/// The assignment on a key: two strings in a QDataStream of the default version and byte order, the command
/// first.
struct AssignmentIds
{
    QString macroID;
    QString contextID;
};

std::unique_ptr<QMimeData> makeProfiles(const QStringList& profileIds);
std::unique_ptr<QMimeData> makeMacros(const QStringList& macroIds);
std::unique_ptr<QMimeData> makeAssignment(const AssignmentIds& assignment);

/// Never empty: without a payload, or with an empty one, the list has one empty id.
QStringList profileIds(const QMimeData& data);
QStringList macroIds(const QMimeData& data);
/// Strings that can't be read are empty; after the first of them the second is not looked for.
AssignmentIds assignment(const QMimeData& data);

} // namespace DragFormats
