#pragma once

#include <QWidget>

class QTextBrowser;

/// The window that shows help pages.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);

    /// Shows a page of a file. Links to files outside `folder` are not followed.
    void showFile(const QString& path, const QString& folder);
    /// Shows a page that says that there is no such topic.
    void showUnknownTopic(const QString& topic);

    QString plainText() const;
    /// The file that is shown; empty for the page of an unknown topic.
    QString file() const;

private Q_SLOTS:
    void onSourceChanged();

private:
    void bringUp();

    QTextBrowser* m_browser = nullptr;
};
