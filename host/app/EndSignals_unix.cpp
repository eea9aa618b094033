#include "EndSignals.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> Signals {SIGTERM, SIGINT, SIGHUP};

/// A handler may do next to nothing but write to a pipe; the event loop reads it.
std::array<int, 2> pipeEnds {-1, -1};

void onSignal(int)
{
    const char byte = 0;
    // A full pipe says as much as another byte would.
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], &byte, 1);
}

void handleAll(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : Signals)
        ::sigaction(number, &action, nullptr);
}

} // namespace

EndSignals::EndSignals(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), SIGNAL(activated(int)), this, SLOT(onReadable()));
    handleAll(onSignal);
}

EndSignals::~EndSignals()
{
    if (!m_notifier)
        return;
    handleAll(SIG_DFL);
    m_notifier.reset();
    for (const int end : pipeEnds)
        ::close(end);
}

void EndSignals::onReadable()
{
    std::array<char, 16> bytes {};
    while (::read(pipeEnds[0], bytes.data(), bytes.size()) > 0) { }
    Q_EMIT endAsked();
}
