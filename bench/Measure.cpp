#include "Measure.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

double cpuTime()
{
    timespec time {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

} // namespace

Times Times::ofOwnProcess(const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
    const QList<QByteArray> output = process.readAllStandardOutput().simplified().split(' ');
    if (process.exitCode() != 0 || output.size() != 2) {
        std::fprintf(stderr, "the process that was to be measured failed\n");
        std::exit(1);
    }
    return {output[0].toDouble(), output[1].toDouble()};
}

void Times::print() const
{
    std::printf("%f %f\n", cpu, clock);
    std::fflush(stdout);
}

Stopwatch::Stopwatch()
    : m_cpuBefore(cpuTime())
{
    m_clock.start();
}

Times Stopwatch::times() const
{
    return {cpuTime() - m_cpuBefore, double(m_clock.nsecsElapsed()) / 1e6};
}

Times Stopwatch::timesSinceStart() const
{
    return {cpuTime(), times().clock};
}
