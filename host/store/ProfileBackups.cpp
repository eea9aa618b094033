#include "ProfileBackups.h"

#include "ProfileDocument.h"

#include <JsonText.h>
#include <WholeFile.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace {

const QLatin1String ManifestName("backup.json");
/// Of a backup that is being made.
const QLatin1String UnfinishedName(".unfinished");
const QString DocumentFilter = QStringLiteral("*.xml");
/// Of the moment, in UTC, by which a backup is named.
const QString StampFormat = QStringLiteral("yyyyMMdd-HHmmss");
constexpr int StampLength = 15;
constexpr int ManifestVersion = 1;
/// Far more than any manifest has.
constexpr qint64 MaxManifestSize = qint64(4) * 1024 * 1024;

constexpr const char* ReasonKeys[] = {"daily", "import", "deletion", "upgrade", "restore"};

QString backupText(const char* text)
{
    return QCoreApplication::translate("ProfileBackups", text);
}

QString digestOf(const QByteArray& content)
{
    return QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

/// Nothing if the file can't be read whole, with the reason in `error`.
std::optional<QByteArray> readWhole(const QString& path, qint64 maxSize, QString& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return std::nullopt;
    }
    if (file.size() > maxSize) {
        error = backupText("it is larger than %1 MB").arg(maxSize / 1024 / 1024);
        return std::nullopt;
    }
    QByteArray content = file.readAll();
    if (file.error() == QFileDevice::NoError)
        return content;
    error = file.errorString();
    return std::nullopt;
}

/// False for a file that was damaged since it was made of that content.
bool holds(const QString& file, const QByteArray& content)
{
    QString error;
    return readWhole(file, content.size(), error) == content;
}

/// Makes a second name for a file; false where the file system has none.
bool share(const QString& file, const QString& name)
{
    std::error_code error;
    std::filesystem::create_hard_link(
        QFile::encodeName(file).toStdString(), QFile::encodeName(name).toStdString(), error);
    return !error;
}

} // namespace

struct ProfileBackups::Manifest
{
    Backup backup;
    std::vector<Document> documents;
};

ProfileBackups::ProfileBackups(QString folder, QString documents, MacroTypeLookup types, Clock now)
    : m_folder(std::move(folder))
    , m_documents(std::move(documents))
    , m_types(std::move(types))
    , m_now(std::move(now))
{ }

QString ProfileBackups::text(Reason reason)
{
    switch (reason) {
    case Reason::Daily:
        return backupText("Daily");
    case Reason::Import:
        return backupText("Before an import");
    case Reason::Deletion:
        return backupText("Before a deletion");
    case Reason::Upgrade:
        return backupText("Before an upgrade");
    case Reason::Restore:
        return backupText("Before a restore");
    }
    return QString();
}

QString ProfileBackups::path(const QString& name) const
{
    return m_folder + QLatin1Char('/') + name;
}

bool ProfileBackups::isName(const QString& name)
{
    static const QRegularExpression form(QStringLiteral("^[0-9]{8}-[0-9]{6}(-[0-9]+)?$"));
    return form.match(name).hasMatch();
}

QString ProfileBackups::make(Reason reason, const QString& note)
{
    if (QDir(m_documents).entryList({DocumentFilter}, QDir::Files | QDir::Hidden).isEmpty())
        return QString();
    const QString unfinished = path(UnfinishedName);
    // Of a process that ended in the middle.
    QDir(unfinished).removeRecursively();
    if (!QDir().mkpath(unfinished))
        return backupText("the folder %1 can't be written to").arg(QDir::toNativeSeparators(m_folder));
    const QString error = fill(unfinished, reason, note);
    if (!error.isEmpty()) {
        QDir(unfinished).removeRecursively();
        return error;
    }
    const QString stem = m_now().toUTC().toString(StampFormat);
    QString name = stem;
    for (int i = 2; QFileInfo::exists(path(name)); ++i)
        name = QStringLiteral("%1-%2").arg(stem).arg(i);
    if (!QDir().rename(unfinished, path(name))) {
        QDir(unfinished).removeRecursively();
        return backupText("the folder %1 can't be written to").arg(QDir::toNativeSeparators(m_folder));
    }
    removeOld();
    return QString();
}

QString ProfileBackups::fill(const QString& target, Reason reason, const QString& note) const
{
    const QHash<QString, QString> last = lastDocuments();
    cJsonValue documents(cJsonValue::arrayValue);
    const QDir source(m_documents);
    const QStringList names = source.entryList({DocumentFilter}, QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString& name : names) {
        // No profile is as large; what it is stays where it is.
        if (QFileInfo(source.filePath(name)).size() > ProfileDocument::MaxSize)
            continue;
        QString error;
        const std::optional<QByteArray> content =
            readWhole(source.filePath(name), ProfileDocument::MaxSize, error);
        if (!content)
            return backupText("%1: %2").arg(name, error);
        const QString digest = digestOf(*content);
        const QString copy = target + QLatin1Char('/') + name;
        const bool isShared =
            last.contains(digest) && holds(last[digest], *content) && share(last[digest], copy);
        if (!isShared && !WholeFile::write(copy, *content, &error))
            return backupText("%1: %2").arg(name, error);
        cJsonValue document;
        document["name"] = name;
        document["size"] = content->size();
        document["sha256"] = digest;
        documents.append(document);
    }
    cJsonValue manifest;
    manifest["version"] = ManifestVersion;
    manifest["time"] = m_now().toUTC().toString(Qt::ISODate);
    manifest["reason"] = ReasonKeys[int(reason)];
    manifest["note"] = note;
    manifest["application"] = QCoreApplication::applicationVersion();
    manifest["documents"] = documents;
    QString error;
    WholeFile::write(target + QLatin1Char('/') + ManifestName, HVS::toJsonText(manifest, true), &error);
    return error;
}

QHash<QString, QString> ProfileBackups::lastDocuments() const
{
    QHash<QString, QString> paths;
    for (const Backup& backup : list()) {
        if (!backup.problem.isEmpty())
            continue;
        for (const Document& document : readManifest(backup.name).documents)
            paths[document.digest] = path(backup.name) + QLatin1Char('/') + document.name;
        break;
    }
    return paths;
}

ProfileBackups::Manifest ProfileBackups::readManifest(const QString& name) const
{
    Manifest manifest;
    Backup& backup = manifest.backup;
    backup.name = name;
    // What the folder tells, if the manifest does not.
    backup.time = QDateTime::fromString(name.left(StampLength), StampFormat);
    backup.time.setTimeSpec(Qt::UTC);
    backup.count = QDir(path(name)).entryList({DocumentFilter}, QDir::Files | QDir::Hidden).size();
    QString error;
    const std::optional<QByteArray> text =
        readWhole(path(name) + QLatin1Char('/') + ManifestName, MaxManifestSize, error);
    cJsonValue content;
    if (!text || !HVS::fromJsonText(*text, content, &error)) {
        backup.problem = backupText("its list of contents can't be read");
        return manifest;
    }
    const cJsonValue& record = content;
    const QDateTime time = QDateTime::fromString(record["time"].toString(), Qt::ISODate);
    const auto* const reason =
        std::find(std::begin(ReasonKeys), std::end(ReasonKeys), record["reason"].toString());
    if (record["version"].toInt() > ManifestVersion)
        backup.problem = backupText("a newer version of this application made it");
    else if (record["version"].toInt() < 1 || !time.isValid() || reason == std::end(ReasonKeys)
        || !record["documents"].isArray())
        backup.problem = backupText("its list of contents is damaged");
    if (!backup.problem.isEmpty())
        return manifest;
    backup.time = time;
    backup.reason = Reason(reason - std::begin(ReasonKeys));
    backup.note = record["note"].toString();
    const cJsonValue& documents = record["documents"];
    for (unsigned i = 0; i < documents.size(); ++i) {
        const cJsonValue& document = documents[int(i)];
        const QString file = document["name"].toString();
        // A manifest that somebody made up must not lead out of the backup.
        if (file.isEmpty() || file != QFileInfo(file).fileName() || !file.endsWith(QLatin1String(".xml"))) {
            backup.problem = backupText("its list of contents is damaged");
            manifest.documents.clear();
            return manifest;
        }
        manifest.documents.push_back({file, document["size"].toInt(), document["sha256"].toString()});
    }
    backup.count = int(manifest.documents.size());
    return manifest;
}

std::vector<ProfileBackups::Backup> ProfileBackups::list() const
{
    std::vector<Backup> backups;
    const QStringList names = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        if (isName(name))
            backups.push_back(readManifest(name).backup);
    }
    const auto number = [](const QString& name) {
        return name.section(QLatin1Char('-'), 2).toInt();
    };
    std::sort(backups.begin(), backups.end(), [&](const Backup& a, const Backup& b) {
        if (a.name.left(StampLength) != b.name.left(StampLength))
            return a.name > b.name;
        return number(a.name) > number(b.name);
    });
    return backups;
}

bool ProfileBackups::isDailyDue() const
{
    const QDate today = m_now().toLocalTime().date();
    // Each start asks this, and there may be many backups: those of earlier days are not opened.
    const QString first = today.startOfDay().toUTC().toString(StampFormat);
    const QStringList names = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::none_of(names.begin(), names.end(), [&](const QString& name) {
        if (!isName(name) || name < first)
            return false;
        const Backup backup = readManifest(name).backup;
        return backup.problem.isEmpty() && backup.reason == Reason::Daily
            && backup.time.toLocalTime().date() == today;
    });
}

std::vector<ProfileBackups::Entry> ProfileBackups::read(const QString& name) const
{
    std::vector<Entry> entries;
    if (!isName(name))
        return entries;
    const Manifest manifest = readManifest(name);
    const QDir folder(path(name));
    if (manifest.backup.problem.isEmpty()) {
        for (const Document& document : manifest.documents)
            entries.push_back(readEntry(folder.filePath(document.name), &document));
    } else {
        // Each document may still be whole.
        const QStringList names = folder.entryList({DocumentFilter}, QDir::Files | QDir::Hidden, QDir::Name);
        for (const QString& document : names)
            entries.push_back(readEntry(folder.filePath(document), nullptr));
    }
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
        if (a.profile && b.profile)
            return a.profile->name().localeAwareCompare(b.profile->name()) < 0;
        return a.profile.has_value() && !b.profile.has_value();
    });
    return entries;
}

ProfileBackups::Entry ProfileBackups::readEntry(const QString& path, const Document* expected) const
{
    Entry entry;
    entry.document = QFileInfo(path).fileName();
    const std::optional<QByteArray> content = readWhole(path, ProfileDocument::MaxSize, entry.problem);
    if (!content)
        return entry;
    if (expected && digestOf(*content) != expected->digest) {
        entry.problem = backupText("it is not what the backup was made of");
        return entry;
    }
    ProfileDocument::ReadResult result = ProfileDocument::read(*content, m_types);
    if (!result.error.isEmpty())
        entry.problem = result.error;
    else if (result.profiles.size() != 1 || result.profiles.front().uid().isEmpty())
        entry.problem = backupText("it does not hold one profile");
    else
        entry.profile = std::move(result.profiles.front());
    return entry;
}

void ProfileBackups::removeOld() const
{
    int daily = 0;
    int others = 0;
    for (const Backup& backup : list()) {
        if (!backup.problem.isEmpty())
            continue;
        int& count = backup.reason == Reason::Daily ? daily : others;
        // What can't be removed now is found again the next time.
        if (++count > Kept)
            QDir(path(backup.name)).removeRecursively();
    }
}
