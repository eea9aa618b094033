#include "DeletedProfiles.h"

#include <WholeFile.h>

#include <QFile>
#include <QStringList>

namespace {

/// More than all that was ever deleted.
constexpr qint64 MaxSize = qint64(1024) * 1024;

} // namespace

DeletedProfiles::DeletedProfiles(const QString& file)
    : m_file(file)
{
    QFile lines(m_file);
    if (!lines.open(QIODevice::ReadOnly))
        return;
    const QStringList ids = QString::fromUtf8(lines.read(MaxSize)).split(QLatin1Char('\n'));
    for (const QString& id : ids) {
        if (!id.isEmpty())
            m_ids.insert(id.toUpper());
    }
}

QString DeletedProfiles::add(const QString& profileId)
{
    const QString id = profileId.toUpper();
    if (m_ids.contains(id))
        return QString();
    m_ids.insert(id);
    return save();
}

QString DeletedProfiles::forgetUnless(const std::function<bool(const QString& id)>& isNeeded)
{
    QSet<QString> needed;
    for (const QString& id : qAsConst(m_ids)) {
        if (isNeeded(id))
            needed.insert(id);
    }
    if (needed == m_ids)
        return QString();
    m_ids = needed;
    return save();
}

QString DeletedProfiles::save() const
{
    if (m_ids.isEmpty() && QFile::remove(m_file))
        return QString();
    QStringList sorted = m_ids.values();
    sorted.sort();
    QString error;
    WholeFile::write(m_file, sorted.join(QLatin1Char('\n')).toUtf8() + '\n', &error);
    return error;
}
