#include "ScreenshotRun.h"

#include "AppConstants.h"
#include "MainWindow.h"

#include <FeatureViewController.h>

#include <QDir>
#include <QPixmap>

#include <utility>

using namespace AppConstants;

ScreenshotRun::ScreenshotRun(MainWindow& window, FeatureViewController& controller, const QString& folder)
    : m_window(window)
    , m_controller(controller)
    , m_folder(folder)
{
    m_timeLimit.setSingleShot(true);
    connect(&m_timeLimit, SIGNAL(timeout()), this, SLOT(onTimeOut()));
    connect(&m_controller, SIGNAL(stateChanged()), this, SLOT(onStateChanged()));
}

void ScreenshotRun::start()
{
    // The pictures are of the whole window, also on a screen that is smaller.
    m_window.resize(WindowSize);
    m_timeLimit.start(ScreenshotTimeLimit);
    QTimer::singleShot(ScreenshotSettleTime, this, SLOT(takeHome()));
}

void ScreenshotRun::takeHome()
{
    if (save(QStringLiteral("home.png")) && !m_window.openFirstView())
        end(tr("No view could be opened."));
}

void ScreenshotRun::onStateChanged()
{
    const FeatureViewController::State state = m_controller.state();
    if (!m_isClosing && state == FeatureViewController::State::Open)
        QTimer::singleShot(ScreenshotSettleTime, this, SLOT(takeView()));
    else if (m_isClosing && state == FeatureViewController::State::Closed)
        end(QString());
}

void ScreenshotRun::takeView()
{
    if (!save(QStringLiteral("view.png")))
        return;
    m_isClosing = true;
    m_window.closeView();
}

void ScreenshotRun::onTimeOut()
{
    end(m_isClosing ? tr("The view did not close.") : tr("The view did not open."));
}

bool ScreenshotRun::save(const QString& name)
{
    const QString path = QDir(m_folder).filePath(name);
    if (QDir().mkpath(m_folder) && m_window.grab().save(path))
        return true;
    end(tr("The picture %1 can't be written.").arg(path));
    return false;
}

void ScreenshotRun::end(const QString& message)
{
    m_timeLimit.stop();
    if (!std::exchange(m_isOver, true))
        Q_EMIT finished(message);
}
