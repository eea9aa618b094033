#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class FeatureViewController;
class MainWindow;

/// Writes pictures of the window to a folder: "home.png" of the home page and "view.png" of the first view of
/// the device, then closes the view. For machines without a display.
class ScreenshotRun : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the run.
    ScreenshotRun(MainWindow& window, FeatureViewController& controller, const QString& folder);

    void start();

Q_SIGNALS:
    /// The run is over; `message` says why it failed and is empty if it did not.
    void finished(const QString& message);

private Q_SLOTS:
    void takeHome();
    void onStateChanged();
    void takeView();
    void onTimeOut();

private:
    bool save(const QString& name);
    void end(const QString& message);

    MainWindow& m_window;
    FeatureViewController& m_controller;
    QString m_folder;
    QTimer m_timeLimit;
    bool m_isClosing = false;
    bool m_isOver = false;
};
