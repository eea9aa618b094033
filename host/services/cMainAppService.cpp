#include "cMainAppService.h"

#include "IHostWindow.h"
#include "MessageDialog.h"

#include <EventNames.h>
#include <IServiceMgr.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QWidget>

#include <utility>

cMainAppService::cMainAppService(QObject* parent)
    : IMainApp(parent)
    , m_publishedProcess(foregroundProcess())
{
    connect(&m_activeProcess, SIGNAL(changed()), this, SLOT(onForegroundMayHaveChanged()));
    connect(qApp, SIGNAL(applicationStateChanged(Qt::ApplicationState)), this,
        SLOT(onForegroundMayHaveChanged()));
}

cMainAppService::~cMainAppService() = default;

void cMainAppService::execute(bool wantsUpdateWizard)
{
    if (QWidget* const widget = mainWidget()) {
        widget->show();
        widget->raise();
        widget->activateWindow();
    }
    if (wantsUpdateWizard)
        launchUpdateWizard();
}

void cMainAppService::winRegisterDeviceChange(const QUuid&)
{ }

Qt::HANDLE cMainAppService::winRegisterDeviceHandleChange(Qt::HANDLE)
{
    return nullptr;
}

void cMainAppService::winUnregisterDeviceHandleChange(Qt::HANDLE)
{ }

QWidget* cMainAppService::mainWidget()
{
    return m_window ? m_window->widget() : nullptr;
}

void cMainAppService::loadStyleSheet()
{
    QFile file(m_styleSheetFile);
    if (!file.open(QIODevice::ReadOnly)) {
        Q_EMIT problemFound(tr("The style of the application can't be read from %1.").arg(m_styleSheetFile));
        return;
    }
    qApp->setStyleSheet(QString::fromUtf8(file.readAll()));
}

void cMainAppService::launchUpdateWizard()
{
    auto* const dialog = new MessageDialog(MessageDialog::Kind::Information, tr("Updates"),
        tr("This is version %1.\n\nUpdates come with the packages of your system: use its software manager "
           "to look for a newer version.")
            .arg(QCoreApplication::applicationVersion()),
        mainWidget());
    dialog->addChoice(QDialog::Accepted, tr("OK"), true);
    MessageDialog::run(dialog, QDialog::Rejected);
}

void cMainAppService::setModalLock(bool enable)
{
    if (QWidget* const widget = mainWidget())
        widget->setEnabled(!enable);
}

bool cMainAppService::inForeground()
{
    return isActive();
}

bool cMainAppService::isActive()
{
    return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

bool cMainAppService::showTrayMessage(
    const QString& title, const QString& message, MessageIcon::MessageIcon_t icon, int msecs, int cookie)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages())
        return false;
    if (!m_tray) {
        m_tray = new QSystemTrayIcon(QApplication::windowIcon(), this);
        connect(m_tray, SIGNAL(messageClicked()), this, SLOT(onTrayMessageClicked()));
    }
    m_trayCookie = cookie;
    m_tray->show();
    m_tray->showMessage(title, message, QSystemTrayIcon::MessageIcon(icon), msecs);
    return true;
}

void cMainAppService::onTrayMessageClicked()
{
    const int cookie = m_trayCookie;
    IServiceMgr::instance()->publish(
        EventSources::MainApp, MainAppEvents::TrayMessageClicked, Q_ARG(int, cookie));
}

QString cMainAppService::foregroundApp()
{
    return executable(foregroundProcess());
}

quint32 cMainAppService::foregroundProcess() const
{
    const auto own = quint32(QCoreApplication::applicationPid());
    if (isActive())
        return own;
    // A window manager may go on naming our window after it was hidden.
    const quint32 active = m_activeProcess.processId();
    return active == own ? 0 : active;
}

QString cMainAppService::executable(quint32 processId) const
{
    return processId == quint32(QCoreApplication::applicationPid()) ? QCoreApplication::applicationFilePath()
                                                                    : ActiveProcess::executable(processId);
}

void cMainAppService::onForegroundMayHaveChanged()
{
    const quint32 processId = foregroundProcess();
    if (std::exchange(m_publishedProcess, processId) == processId)
        return;
    const QString path = executable(processId);
    IServiceMgr::instance()->publish(
        EventSources::MainApp, Events::ForegroundAppChange, Q_ARG(QString, path), Q_ARG(quint32, processId));
}
