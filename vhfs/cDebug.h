#pragma once

#include "VHFSExport.h"

#include <QDebug>
#include <QString>

/// One line of a cLog while it is put together. The line is written when this is destroyed, as an
/// informational message of Qt's logging; nothing is written if nothing was streamed.
class VHFS_EXPORT cDebug
{
    Q_DISABLE_COPY(cDebug)

public:
    explicit cDebug(const QString& logName);
    ~cDebug();

    template<typename T>
    cDebug& operator<<(const T& value)
    {
        m_debug << value;
        return *this;
    }

private:
    QString m_logName;
    QString m_text;
    QDebug m_debug;
};
