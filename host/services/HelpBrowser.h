#pragma once

#include <QTextBrowser>

class HelpCollection;

/// Shows a help page from a collection or a file. Links to other pages are followed here, links to the net by
/// the user's browser, and links to files outside the page's folder not at all.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    /// `collection` outlives the browser.
    explicit HelpBrowser(HelpCollection& collection, QWidget* parent = nullptr);

    void setFolder(const QString& folder) { m_folder = folder; }

    QVariant loadResource(int type, const QUrl& name) override;

private Q_SLOTS:
    void onAnchorClicked(const QUrl& link);

private:
    HelpCollection& m_collection;
    QString m_folder;
};
