#pragma once

#include "cDebug.h"
#include "VHFSExport.h"

#include <QString>

/// A log to which lines are written one at a time. Copies write to the same log. A log without a name belongs
/// to nobody yet and can be written to as well.
class VHFS_EXPORT cLog
{
public:
    cLog() = default;
    /// `name` stands in front of each line.
    explicit cLog(const QString& name);

    QString name() const { return m_name; }

    /// A line for people who look into the log: log.info() << "text" << number.
    cDebug info() const;

private:
    QString m_name;
};
