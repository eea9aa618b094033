#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

/// Tells that the system asks the application to end: at the end of a session, or from a terminal. Without
/// it the process would be gone at once, together with the changes of the last moment. One at a time; on
/// systems without such signals there is nothing to tell.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    /// Leaves the signals to the system again.
    ~EndSignals() override;

Q_SIGNALS:
    void endAsked();

private Q_SLOTS:
    void onReadable();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
