#include "HelpKey.h"

#include <IServiceMgr.h>
#include <ServiceNames.h>

const QString HelpKey::Section = QStringLiteral("com.veltrano.application");

HelpKey::HelpKey(const QString& topic, QWidget* window)
    : QShortcut(QKeySequence(Qt::Key_F1), window)
    , m_topic(topic)
{
    connect(this, SIGNAL(activated()), this, SLOT(onActivated()));
}

void HelpKey::onActivated()
{
    IServiceMgr::instance()->invoke(ServiceNames::HelpMgr, QStringLiteral("LaunchHelp"),
        Q_ARG(QString, Section), Q_ARG(QString, m_topic));
}
