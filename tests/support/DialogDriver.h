#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <functional>

/// Runs a function on the next modal dialog as soon as it is shown. The dialog is rejected afterwards if it
/// is still open, so that a test never hangs in exec().
class DialogDriver : public QObject
{
    Q_OBJECT

public:
    explicit DialogDriver(std::function<void(QDialog&)> action)
        : m_action(std::move(action))
    {
        connect(&m_timer, SIGNAL(timeout()), this, SLOT(look()));
        m_timer.start(10);
    }

    bool hasRun() const { return m_hasRun; }

private Q_SLOTS:
    void look()
    {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        m_timer.stop();
        m_hasRun = true;
        m_action(*dialog);
        if (dialog && dialog->isVisible())
            dialog->reject();
    }

private:
    std::function<void(QDialog&)> m_action;
    QTimer m_timer;
    bool m_hasRun = false;
};
