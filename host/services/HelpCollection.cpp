#include "HelpCollection.h"

#include <QHelpEngine>
#include <QHelpSearchEngine>
#include <QRegularExpression>
#include <QTextDocumentFragment>

namespace {

/// Pages that a search shows at most.
constexpr int MaxHits = 100;

/// The words as the index takes them: nothing in them is an operator, and each may go on.
QString queryFor(const QString& words)
{
    static const QRegularExpression noWord(
        QStringLiteral("[^\\w]+"), QRegularExpression::UseUnicodePropertiesOption);
    QStringList terms;
    for (const QString& word : words.split(noWord, Qt::SkipEmptyParts))
        terms.append(QLatin1Char('"') + word + QStringLiteral("\"*"));
    return terms.join(QLatin1Char(' '));
}

} // namespace

HelpCollection::HelpCollection(QObject* parent)
    : QObject(parent)
    , m_engine(std::make_unique<QHelpEngine>(m_folder.filePath(QStringLiteral("help.qhc"))))
{
    m_engine->setUsesFilterEngine(true);
    m_engine->setupData();
    QHelpSearchEngine* const search = m_engine->searchEngine();
    connect(search, SIGNAL(indexingFinished()), this, SLOT(onIndexed()));
    connect(search, SIGNAL(searchingFinished(int)), this, SIGNAL(searchFinished()));
}

HelpCollection::~HelpCollection() = default;

QString HelpCollection::sectionOf(const QString& file)
{
    return QHelpEngineCore::namespaceName(file);
}

bool HelpCollection::add(const QString& file)
{
    const QString section = sectionOf(file);
    if (section.isEmpty())
        return false;
    if (m_engine->documentationFileName(section) == file)
        return true;
    remove(section);
    const bool isAdded = m_engine->registerDocumentation(file);
    reindex();
    return isAdded;
}

void HelpCollection::remove(const QString& section)
{
    if (m_engine->registeredDocumentations().contains(section) && m_engine->unregisterDocumentation(section))
        reindex();
}

void HelpCollection::reindex()
{
    m_isIndexed = false;
    // An indexing that is cut short by the next ends like one that is complete. So the next one waits.
    m_isStale = m_isIndexing;
    if (!m_isIndexing) {
        m_isIndexing = true;
        // Reads the contents, and lets the search engine index what is new.
        m_engine->setupData();
    }
    Q_EMIT changed();
}

QUrl HelpCollection::find(const QString& section, const QStringList& languages, const QString& topic) const
{
    if (topic.isEmpty())
        return QUrl();
    for (const QString& language : languages + QStringList({QString()})) {
        QUrl address;
        address.setScheme(QStringLiteral("qthelp"));
        address.setHost(section);
        address.setPath(
            QStringLiteral("/doc/") + (language.isEmpty() ? topic : language + QLatin1Char('/') + topic));
        const QUrl found = m_engine->findFile(address);
        if (found.isValid() && !m_engine->fileData(found).isEmpty())
            return found;
    }
    return QUrl();
}

QByteArray HelpCollection::data(const QUrl& address) const
{
    return m_engine->fileData(address);
}

void HelpCollection::search(const QString& words)
{
    m_words = words;
    if (m_isIndexed)
        startSearch();
}

void HelpCollection::onIndexed()
{
    m_isIndexing = false;
    if (m_isStale) {
        reindex();
        return;
    }
    m_isIndexed = true;
    startSearch();
}

void HelpCollection::startSearch()
{
    const QString query = queryFor(m_words);
    if (!query.isEmpty())
        m_engine->searchEngine()->search(query);
}

QList<HelpCollection::Hit> HelpCollection::hits() const
{
    QList<Hit> list;
    QHelpSearchEngine* const search = m_engine->searchEngine();
    const auto results = search->searchResults(0, qMin(search->searchResultCount(), MaxHits));
    for (const QHelpSearchResult& result : results)
        // The index has titles as the pages' source has them.
        list.append({QTextDocumentFragment::fromHtml(result.title()).toPlainText(), result.url()});
    return list;
}
