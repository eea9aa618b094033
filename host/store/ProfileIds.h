#pragma once

#include <QString>
#include <QUuid>

/// Ids of profiles and commands.
namespace ProfileIds {

/// Ids are compared without regard to case.
inline bool isSame(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

inline QString newUid()
{
    return QUuid::createUuid().toString().toUpper();
}

} // namespace ProfileIds
