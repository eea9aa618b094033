#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

class QHelpEngine;

/// The compiled help pages of those who have registered some, one file for each section, with their contents
/// and an index of their words.
///
/// Pages have the addresses "qthelp://<section>/doc/<file>" or, for one language, "qthelp://<section>/doc/
/// <language>/<file>".
class HelpCollection : public QObject
{
    Q_OBJECT

public:
    explicit HelpCollection(QObject* parent = nullptr);
    ~HelpCollection() override;

    /// The section of a file with compiled pages; empty for any other file.
    static QString sectionOf(const QString& file);

    /// False for a file that can't be used. Another file of the same section is replaced.
    bool add(const QString& file);
    void remove(const QString& section);

    /// The address of a topic: under the languages in their order, then in no language's folder. Empty if
    /// there is no such page.
    QUrl find(const QString& section, const QStringList& languages, const QString& topic) const;
    QByteArray data(const QUrl& address) const;

    QHelpEngine& engine() { return *m_engine; }

    struct Hit
    {
        QString title;
        QUrl address;
    };
    /// What searchFinished() is about, best first.
    QList<Hit> hits() const;
    /// Looks for pages with all these words, or words that begin like them.
    void search(const QString& words);

Q_SIGNALS:
    /// Other pages are there now.
    void changed();
    void searchFinished();

private Q_SLOTS:
    void onIndexed();

private:
    void reindex();
    void startSearch();

    QTemporaryDir m_folder;
    std::unique_ptr<QHelpEngine> m_engine;
    /// What is looked for once the index is ready.
    QString m_words;
    bool m_isIndexing = false;
    /// Pages have come or gone since the indexing began.
    bool m_isStale = false;
    bool m_isIndexed = false;
};
