#include "SettingsFile.h"

#include <JsonText.h>
#include <WholeFile.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("SettingsFile", text);
}

} // namespace

SettingsFile::SettingsFile(const QString& path)
    : m_path(path)
{ }

cJsonValue SettingsFile::read(QString& problem)
{
    m_isBlocked = false;
    cJsonValue settings(cJsonValue::objectValue);
    const QFileInfo file(m_path);
    if (!file.exists() && !file.isSymLink())
        return settings;
    const QString reason = parse(settings);
    if (reason.isEmpty())
        return settings;

    const QString kept = m_isReadOnly ? QString() : setAside();
    m_isBlocked = kept.isEmpty();
    qWarning("Settings in %s are not used (%s); the file %s", qUtf8Printable(m_path), qUtf8Printable(reason),
        m_isBlocked ? "could not be set aside and is left alone"
                    : qUtf8Printable(QStringLiteral("is kept as ") + kept));
    problem = m_isBlocked
        ? tr("The settings can't be read from %1. Changes will not be kept.").arg(m_path)
        : tr("The settings could not be read and start afresh. The old ones are kept in %1.").arg(kept);
    return cJsonValue(cJsonValue::objectValue);
}

QString SettingsFile::parse(cJsonValue& settings) const
{
    QFile file(m_path);
    if (!QFileInfo(m_path).isFile())
        return QStringLiteral("not a file");
    if (file.size() > MaxSize)
        return QStringLiteral("too large");
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    // The limit holds for what is read, too: the size may have been reported wrongly.
    const QByteArray text = file.read(MaxSize + 1);
    if (text.size() > MaxSize)
        return QStringLiteral("too large");
    cJsonValue document;
    QString error;
    if (!HVS::fromJsonText(text, document, &error))
        return error;
    const cJsonValue& content = qAsConst(document);
    const int version = content["version"].toInt();
    if (content["version"] != cJsonValue(version) || version < 1 || !content["settings"].isObject())
        return QStringLiteral("not a document of settings");
    if (version > Version)
        return QStringLiteral("written by a newer version of the application");
    settings = content["settings"];
    return QString();
}

QString SettingsFile::setAside() const
{
    const QString stem = m_path + QStringLiteral(".damaged-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    constexpr int MaxTries = 1000;
    for (int i = 0; i < MaxTries; ++i) {
        QString name = i == 0 ? stem : stem + QLatin1Char('-') + QString::number(i);
        // rename() does not replace an existing file.
        if (QFile::rename(m_path, name))
            return name;
        if (!QFileInfo::exists(name))
            break;
    }
    return QString();
}

bool SettingsFile::write(const cJsonValue& settings, QString& problem)
{
    if (m_isReadOnly)
        return true;
    const auto fail = [&](const QString& reason) {
        problem = tr("The settings can't be saved: %1").arg(reason);
        return false;
    };
    if (m_isBlocked)
        return fail(tr("%1 can't be read.").arg(m_path));
    cJsonValue document;
    document["version"] = Version;
    document["settings"] = settings;
    const QByteArray text = HVS::toJsonText(document, true);
    if (text.size() > MaxSize)
        return fail(tr("They are too large."));
    if (!QDir().mkpath(QFileInfo(m_path).absolutePath()))
        return fail(tr("The folder %1 can't be made.").arg(QFileInfo(m_path).absolutePath()));
    QString reason;
    if (!WholeFile::write(m_path, text, &reason))
        return fail(reason);
    return true;
}
