#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

class cJsonValue;
class QPoint;
class QPointF;
class RecordingHost;

/// Writes each signal that an object's own class declares to the host's log, as in: macroDropped("{1}", "G7")
/// Points are written as 120,90, and records as the uid that they have.
class SignalLog : public QObject
{
    Q_OBJECT

public:
    SignalLog(const QObject& sender, RecordingHost& host);

    /// Called after each line.
    std::function<void(const QString&)> onLine;

private Q_SLOTS:
    // One for each list of parameters.
    void onSignal() { add({}); }
    void onSignal(const QString& text);
    void onSignal(const QString& one, const QString& other);
    void onSignal(const cJsonValue& record);
    void onSignal(const QPoint& point);
    void onSignal(const QPointF& point, const QString& text);

private:
    void add(const QStringList& values);

    RecordingHost& m_host;
};
