#include "ProfileStore.h"

#include "ProfileDocument.h"

#include <WholeFile.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace {

const QLatin1String DocumentEnding(".xml");
const QLatin1String LockName(".lock");
const QLatin1String DamagedFolder("damaged");

} // namespace

ProfileStore::ProfileStore(const QString& folder, MacroTypeLookup types, Source source, QObject* parent)
    : QObject(parent)
    , m_folder(folder)
    , m_types(std::move(types))
    , m_source(std::move(source))
    , m_lock(QDir(folder).filePath(LockName))
{
    m_writeTimer.setSingleShot(true);
    connect(&m_writeTimer, SIGNAL(timeout()), this, SLOT(onWriteTimer()));
    openFolder();
}

ProfileStore::~ProfileStore()
{
    writeNow();
}

void ProfileStore::openFolder()
{
    // The lock ends with its process, however that ends; its age says nothing.
    m_lock.setStaleLockTime(0);
    if (QDir().mkpath(m_folder) && m_lock.tryLock(0))
        return;
    m_isReadOnly = true;
}

std::vector<Profile> ProfileStore::readAll()
{
    if (m_isReadOnly)
        Q_EMIT problem(readOnlyText());
    std::vector<Profile> profiles;
    const QDir folder(m_folder);
    const QStringList names =
        folder.entryList({QLatin1Char('*') + DocumentEnding}, QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString& name : names) {
        const QString path = folder.filePath(name);
        bool isUnread = false;
        const QString reason = readDocument(path, profiles, &isUnread);
        if (isUnread)
            Q_EMIT problem(unusable(path, reason) + QLatin1Char(' ') + tr("It stays where it is."));
        else if (!reason.isEmpty())
            setAside(path, reason);
    }
    return profiles;
}

QString ProfileStore::readOnlyText() const
{
    if (m_lock.error() == QLockFile::LockFailedError)
        return tr(
            "Another process of this application uses your profiles. Changes that you make here are not "
            "saved.");
    return tr("The folder %1 can't be written to. Changes that you make are not saved.")
        .arg(QDir::toNativeSeparators(m_folder));
}

QString ProfileStore::unusable(const QString& path, const QString& reason)
{
    return tr("The profile document %1 can't be used: %2.").arg(QFileInfo(path).fileName(), reason);
}

QString ProfileStore::readDocument(const QString& path, std::vector<Profile>& profiles, bool* isUnread)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *isUnread = true;
        return file.errorString();
    }
    if (file.size() > ProfileDocument::MaxSize)
        return tr("it is larger than %1 MB").arg(ProfileDocument::MaxSize / 1024 / 1024);
    const QByteArray document = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        // What a bad moment of the disk left out is no damage of the document.
        *isUnread = true;
        return file.errorString();
    }
    ProfileDocument::ReadResult result = ProfileDocument::read(document, m_types);
    if (!result.error.isEmpty())
        return result.error;
    if (result.profiles.size() != 1)
        return tr("it holds %1 profiles instead of one").arg(result.profiles.size());
    const QString id = result.profiles.front().uid().toUpper();
    if (id.isEmpty())
        return tr("its profile has no id");
    if (m_paths.contains(id))
        return tr("another document holds a profile of the same id");
    m_paths[id] = path;
    profiles.push_back(std::move(result.profiles.front()));
    return QString();
}

void ProfileStore::setAside(const QString& path, const QString& reason)
{
    const QString text = unusable(path, reason);
    if (m_isReadOnly) {
        Q_EMIT problem(text);
        return;
    }
    const QDir folder(m_folder);
    folder.mkpath(DamagedFolder);
    const QString base = QFileInfo(path).completeBaseName() + QLatin1Char('-')
        + QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString target;
    for (int i = 0; target.isEmpty() || QFile::exists(target); ++i) {
        const QString number = i == 0 ? QString() : QStringLiteral("-%1").arg(i);
        target = folder.filePath(DamagedFolder + QLatin1Char('/') + base + number + DocumentEnding);
    }
    if (!QFile::rename(path, target)) {
        // It is safe where it is too: documentPath() keeps clear of it.
        Q_EMIT problem(text + QLatin1Char(' ') + tr("It stays where it is."));
        return;
    }
    QFile note(target + QLatin1String(".reason.txt"));
    if (note.open(QIODevice::WriteOnly))
        note.write(text.toUtf8() + '\n');
    Q_EMIT problem(text + QLatin1Char(' ') + tr("It was moved to %1.").arg(QDir::toNativeSeparators(target)));
}

void ProfileStore::markChanged(const QString& profileId)
{
    m_changed.insert(profileId.toUpper());
    // A change does not put off what waits already.
    if (!m_isReadOnly && !m_writeTimer.isActive())
        m_writeTimer.start(WriteDelay);
}

bool ProfileStore::writeNow()
{
    if (m_isReadOnly && hasUnwritten())
        reportFailure(readOnlyText());
    bool allWritten = true;
    const QSet<QString> ids = m_changed;
    for (const QString& id : ids)
        allWritten = write(id) && allWritten;
    if (!allWritten)
        scheduleRetry();
    return allWritten;
}

bool ProfileStore::writeNow(const QString& profileId)
{
    const bool isWritten = write(profileId.toUpper());
    if (!isWritten)
        scheduleRetry();
    return isWritten;
}

bool ProfileStore::write(const QString& id)
{
    if (!m_changed.contains(id))
        return true;
    if (m_isReadOnly || !writeOne(id))
        return false;
    m_changed.remove(id);
    if (m_changed.isEmpty()) {
        m_writeTimer.stop();
        m_retryDelay = FirstRetryDelay;
        m_reported.clear();
    }
    return true;
}

void ProfileStore::onWriteTimer()
{
    writeNow();
}

bool ProfileStore::writeOne(const QString& profileId)
{
    const Profile* profile = m_source(profileId);
    if (!profile) {
        const bool isGone = removeOne(m_paths.value(profileId));
        if (isGone)
            m_paths.remove(profileId);
        return isGone;
    }
    const QByteArray document = ProfileDocument::write({*profile}, m_types);
    if (document.size() > ProfileDocument::MaxSize) {
        reportFailure(tr("The profile %1 is too large to be saved: it may have %2 MB.")
                          .arg(profile->name())
                          .arg(ProfileDocument::MaxSize / 1024 / 1024));
        return false;
    }
    // A document that could not be read again would cost all that the old one holds.
    const QString unreadable = ProfileDocument::read(document, m_types).error;
    if (!unreadable.isEmpty()) {
        reportFailure(
            tr("The profile %1 holds something that can't be saved: %2.").arg(profile->name(), unreadable));
        return false;
    }
    QString reason;
    if (WholeFile::write(documentPath(profileId), document, &reason))
        return true;
    reportFailure(tr("The profile %1 could not be saved: %2. It stays open and is tried again.")
                      .arg(profile->name(), reason));
    return false;
}

std::vector<const Profile*> ProfileStore::unwritten() const
{
    std::vector<const Profile*> profiles;
    for (const QString& id : m_changed) {
        if (const Profile* profile = m_source(id))
            profiles.push_back(profile);
    }
    std::sort(profiles.begin(), profiles.end(), [](const Profile* a, const Profile* b) {
        return std::make_pair(a->name(), a->uid()) < std::make_pair(b->name(), b->uid());
    });
    return profiles;
}

QString ProfileStore::writeUnwrittenTo(const QString& folder) const
{
    for (const Profile* profile : unwritten()) {
        const QByteArray document = ProfileDocument::write({*profile}, m_types);
        QString reason;
        if (!WholeFile::write(freePath(folder, profile->uid()), document, &reason)) {
            return tr("The profile %1 could not be saved in %2: %3.")
                .arg(profile->name(), QDir::toNativeSeparators(folder), reason);
        }
    }
    return QString();
}

bool ProfileStore::holds(const QString& path) const
{
    // The folder of the path, since the file itself need not be there yet.
    const QString folder = QFileInfo(QFileInfo(path).absolutePath()).canonicalFilePath();
    const QString own = QFileInfo(m_folder).canonicalFilePath();
    return !own.isEmpty() && (folder + QLatin1Char('/')).startsWith(own + QLatin1Char('/'));
}

bool ProfileStore::removeOne(const QString& path)
{
    QFile file(path);
    if (path.isEmpty() || !file.exists() || file.remove())
        return true;
    reportFailure(tr("The document %1 of a deleted profile could not be removed: %2.")
                      .arg(QFileInfo(path).fileName(), file.errorString()));
    return false;
}

QString ProfileStore::documentPath(const QString& profileId)
{
    QString& path = m_paths[profileId];
    if (path.isEmpty())
        path = freePath(m_folder, profileId);
    return path;
}

QString ProfileStore::freePath(const QString& folder, const QString& profileId)
{
    const QString name = fileName(profileId);
    QString path = QDir(folder).filePath(name);
    // A link that leads nowhere is there, too.
    for (int i = 2; QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++i)
        path = QDir(folder).filePath(QStringLiteral("%1-%2").arg(i).arg(name));
    return path;
}

QStringList ProfileStore::failures() const
{
    QStringList texts = m_reported.values();
    texts.sort();
    return texts;
}

void ProfileStore::reportFailure(const QString& text)
{
    if (m_reported.contains(text))
        return;
    m_reported.insert(text);
    Q_EMIT problem(text);
}

void ProfileStore::scheduleRetry()
{
    if (m_isReadOnly)
        return;
    m_writeTimer.start(m_retryDelay);
    m_retryDelay = qMin(2 * m_retryDelay, LastRetryDelay);
}

QString ProfileStore::fileName(const QString& profileId)
{
    const QUuid uuid(profileId);
    if (!uuid.isNull())
        return uuid.toString(QUuid::WithoutBraces).toLower() + DocumentEnding;
    const QByteArray digest =
        QCryptographicHash::hash(profileId.toUpper().toUtf8(), QCryptographicHash::Sha256).toHex();
    return QLatin1String("id-") + QString::fromLatin1(digest) + DocumentEnding;
}
