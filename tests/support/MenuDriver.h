#pragma once

#include <QMenu>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

/// Runs a function on the next menu as soon as it is shown. The menu is closed afterwards if it is still
/// open, so that a test never hangs in exec().
class MenuDriver : public QObject
{
    Q_OBJECT

public:
    explicit MenuDriver(std::function<void(QMenu&)> action);

    bool hasRun() const { return m_hasRun; }

    /// Texts of the entries; "-" is a separator, and an entry that can't be chosen is in brackets.
    static QStringList entriesOf(const QMenu& menu);
    /// Clicks the entry with that text.
    static void choose(QMenu& menu, const QString& text);

private Q_SLOTS:
    void look();

private:
    std::function<void(QMenu&)> m_action;
    QTimer m_timer;
    bool m_hasRun = false;
};
