#pragma once

#include <QUrl>
#include <QWidget>

class HelpBrowser;
class HelpCollection;
class QHelpContentWidget;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTabWidget;

/// The window that shows help pages, with the contents of all pages and a search beside them.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    /// `collection` outlives the window.
    explicit HelpWindow(HelpCollection& collection, QWidget* parent = nullptr);

    /// Shows a page of the collection.
    void showPage(const QUrl& address);
    /// Shows a page of a file. Links to files outside `folder` are not followed.
    void showFile(const QString& path, const QString& folder);
    /// Shows a page that says that there is no such topic.
    void showUnknownTopic(const QString& topic);

    QString plainText() const;
    /// The file that is shown; empty for a page that is none.
    QString file() const;
    /// The page of the collection that is shown; empty for one that is not of it.
    QUrl page() const;

private Q_SLOTS:
    void onSourceChanged(const QUrl& address);
    void onLinkActivated(const QUrl& address);
    void onContentsCreated();
    void onSearchChanged(const QString& words);
    void onSearchFinished();
    void onHitChosen(QListWidgetItem* item);
    void onSearchWanted();

private:
    QWidget* createBar();
    QWidget* createSearch();
    void bringUp();
    void markPage(const QUrl& address);

    HelpCollection& m_collection;
    HelpBrowser* m_browser = nullptr;
    QTabWidget* m_tabs = nullptr;
    QHelpContentWidget* m_contents = nullptr;
    QLineEdit* m_words = nullptr;
    QListWidget* m_hits = nullptr;
    QLabel* m_noHits = nullptr;
};
