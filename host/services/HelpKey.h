#pragma once

#include <QShortcut>

/// F1 in a window of the application: opens the window's topic in the application's own section of the help.
class HelpKey : public QShortcut
{
    Q_OBJECT

public:
    /// The section of the application's pages.
    static const QString Section;

    /// Belongs to the window, whose topic is a file's name.
    HelpKey(const QString& topic, QWidget* window);

private Q_SLOTS:
    void onActivated();

private:
    QString m_topic;
};
