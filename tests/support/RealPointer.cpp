#include "RealPointer.h"

#include <QCoreApplication>
#include <QtTest>
#include <QWidget>

RealPointer::RealPointer(QObject* parent)
    : QObject(parent)
{
    connect(&m_process, SIGNAL(finished(int, QProcess::ExitStatus)), this, SLOT(onFinished()));
}

RealPointer::~RealPointer()
{
    m_process.disconnect(this);
    m_process.waitForFinished();
}

RealPointer& RealPointer::instance()
{
    // The application's child, because a process can't outlive its event dispatcher.
    static RealPointer* const pointer = new RealPointer(QCoreApplication::instance());
    return *pointer;
}

void RealPointer::act(const QString& actions)
{
    RealPointer& pointer = instance();
    pointer.m_waiting.append(actions);
    if (pointer.m_process.state() == QProcess::NotRunning)
        pointer.startNext();
}

bool RealPointer::isIdle()
{
    const RealPointer& pointer = instance();
    return pointer.m_waiting.isEmpty() && pointer.m_process.state() == QProcess::NotRunning;
}

QString RealPointer::moveTo(const QPoint& place)
{
    return QStringLiteral("mousemove %1 %2").arg(place.x()).arg(place.y());
}

QString RealPointer::moveTo(const QWidget& widget, const QPoint& offset)
{
    return moveTo(widget.mapToGlobal(widget.rect().center()) + offset);
}

void RealPointer::startNext()
{
    m_process.start(QStringLiteral("xdotool"), m_waiting.takeFirst().split(QLatin1Char(' ')));
    if (!m_process.waitForStarted())
        QTest::qFail("xdotool does not start", __FILE__, __LINE__);
}

void RealPointer::onFinished()
{
    if (m_process.exitCode() != 0)
        QTest::qFail(m_process.readAllStandardError().constData(), __FILE__, __LINE__);
    if (!m_waiting.isEmpty())
        startNext();
}
