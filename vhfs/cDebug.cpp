#include "cDebug.h"

cDebug::cDebug(const QString& logName)
    : m_logName(logName)
    , m_debug(&m_text)
{ }

cDebug::~cDebug()
{
    // QDebug puts a space behind everything that is streamed to it.
    const QString line = m_text.trimmed();
    if (line.isEmpty())
        return;
    if (m_logName.isEmpty())
        qInfo("%s", qUtf8Printable(line));
    else
        qInfo("%s: %s", qUtf8Printable(m_logName), qUtf8Printable(line));
}
