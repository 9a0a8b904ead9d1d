#include "desk/unixsignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

constexpr std::array Signals = {SIGINT, SIGTERM, SIGHUP};

volatile int eventFd = -1; // read by the handler

extern "C" void tellEvent(int)
{
    const int before = errno; // belongs to the code that was interrupted
    const std::uint64_t one = 1;
    // Nothing can be done about a failure inside a handler.
    [[maybe_unused]] const ssize_t written = ::write(eventFd, &one, sizeof one);
    errno = before;
}

} // namespace

UnixSignals::UnixSignals(QObject* parent) : QObject(parent)
{
    eventFd = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (eventFd < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(eventFd, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        emit endWanted();
    });
    struct sigaction action = {};
    action.sa_handler = tellEvent;
    action.sa_flags = int(SA_RESETHAND);
    for (const int signal : Signals)
        ::sigaction(signal, &action, nullptr);
}

UnixSignals::~UnixSignals()
{
    for (const int signal : Signals)
        ::signal(signal, SIG_DFL);
    m_notifier.reset();
    if (eventFd >= 0)
        ::close(eventFd);
    eventFd = -1;
}
