#pragma once

#include <QObject>

#include <memory>

/// The process whose window has the input focus of the desktop. Each platform has an implementation of its
/// own; where the desktop does not tell, the process is never known.
class ActiveProcess : public QObject
{
    Q_OBJECT

public:
    explicit ActiveProcess(QObject* parent = nullptr);
    ~ActiveProcess() override;

    /// Id of the process; 0 if it is not known.
    quint32 processId() const;

    /// Path of the executable of a process; empty if it is not known.
    static QString executable(quint32 processId);

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void onReadable();

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
