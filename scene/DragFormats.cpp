#include "DragFormats.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace {

constexpr QLatin1Char Separator(',');

std::unique_ptr<QMimeData> makeIds(QLatin1String format, const QStringList& ids)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(format, ids.join(Separator).toUtf8());
    return data;
}

QStringList readIds(QLatin1String format, const QMimeData& data)
{
    const QByteArray payload = data.data(format);
    // Through the plain pointer, so that the text ends at the first zero byte.
    return QString::fromUtf8(payload.constData()).split(Separator, Qt::KeepEmptyParts, Qt::CaseSensitive);
}

} // namespace

std::unique_ptr<QMimeData> DragFormats::makeProfiles(const QStringList& profileIds)
{
    return makeIds(Profiles, profileIds);
}

std::unique_ptr<QMimeData> DragFormats::makeMacros(const QStringList& macroIds)
{
    return makeIds(Macros, macroIds);
}

std::unique_ptr<QMimeData> DragFormats::makeAssignment(const AssignmentIds& assignment)
{
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << assignment.macroID << assignment.contextID;
    auto data = std::make_unique<QMimeData>();
    data->setData(Assignment, payload);
    return data;
}

QStringList DragFormats::profileIds(const QMimeData& data)
{
    return readIds(Profiles, data);
}

QStringList DragFormats::macroIds(const QMimeData& data)
{
    return readIds(Macros, data);
}

DragFormats::AssignmentIds DragFormats::assignment(const QMimeData& data)
{
    const QByteArray payload = data.data(Assignment);
    QDataStream stream(payload);
    AssignmentIds ids;
    stream >> ids.macroID;
    // After a garbled first string the stream stands in the middle of it, and what follows is no string that
    // anybody wrote.
    if (stream.status() == QDataStream::Ok)
        stream >> ids.contextID;
    return ids;
}
