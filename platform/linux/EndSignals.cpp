#include "platform/linux/EndSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace {

constexpr std::array endSignals{SIGTERM, SIGINT, SIGHUP};

/// A handler may do little more than write: signal-safety(7). The event loop reads what it has written.
std::array<int, 2> pipeEnds{-1, -1};

void tellEventLoop(int)
{
    const int error = errno;
    // A full pipe means that there is something to read already.
    (void)!write(pipeEnds[1], "", 1);
    errno = error;
}

bool isIgnored(int number)
{
    struct sigaction present = {};
    return sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

void setHandler(int number, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(number, &action, nullptr);
}

} // namespace

EndSignals::EndSignals() = default;

EndSignals::~EndSignals()
{
    if (!m_notifier)
        return;
    for (const int number : endSignals) {
        if (!isIgnored(number))
            setHandler(number, SIG_DFL);
    }
    m_notifier.reset();
    for (int &end : pipeEnds)
        close(std::exchange(end, -1));
}

void EndSignals::listen(const std::function<void()> &asked)
{
    // Without a pipe the signals end the program as they do by themselves.
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [asked] {
        std::array<char, 64> signs{};
        while (read(pipeEnds[0], signs.data(), signs.size()) > 0) {
        }
        asked();
    });
    for (const int number : endSignals) {
        if (!isIgnored(number))
            setHandler(number, tellEventLoop);
    }
}
