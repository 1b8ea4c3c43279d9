#include "platform/linux/TcpConnection.h"

#include "platform/LdapPatience.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace {

class Socket final
{
public:
    explicit Socket(int number)
        : m_number(number)
    {
    }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;
    ~Socket()
    {
        if (m_number >= 0)
            close(m_number);
    }

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] int release() { return std::exchange(m_number, -1); }

private:
    int m_number;
};

TcpConnection failed(const QString &text)
{
    return {TcpConnection::Code::Failed, text, -1};
}

TcpConnection failed(int error)
{
    return failed(qt_error_string(error));
}

/// What a wait that has not brought anything means.
TcpConnection ended(LdapPatience::End end)
{
    const bool isCancelled = end == LdapPatience::End::Cancelled;
    return {isCancelled ? TcpConnection::Code::Cancelled : TcpConnection::Code::TimedOut, {}, -1};
}

/// 0 when connected, EINPROGRESS as long as that goes on, otherwise what is wrong.
int connectionError(int socket, std::chrono::milliseconds patience)
{
    pollfd polled{socket, POLLOUT, 0};
    if (poll(&polled, 1, int(patience.count())) <= 0)
        return EINPROGRESS;
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

TcpConnection connectTo(const addrinfo &address, const LdapPatience &patience)
{
    Socket made(socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, address.ai_protocol));
    if (made.number() < 0)
        return failed(errno);
    int error = connect(made.number(), address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
    if (error == EINPROGRESS) {
        const LdapPatience::End end = patience.waitFor([&](std::chrono::milliseconds piece) {
            error = connectionError(made.number(), piece);
            return error != EINPROGRESS;
        });
        if (end != LdapPatience::End::Done)
            return ended(end);
    }
    if (error != 0)
        return failed(error);
    const int on = 1;
    // Requests are small, and each waits for its answer. Without these it works too.
    (void)setsockopt(made.number(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    (void)setsockopt(made.number(), SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
    return {TcpConnection::Code::Success, {}, made.release()};
}

} // namespace

TcpConnection TcpConnection::open(const QString &host, int port, std::chrono::milliseconds limit,
                                  const Directory::GoOn &goOn, HostLookup::Find find)
{
    const LdapPatience patience(limit, goOn);
    HostLookup lookup(host, port, find);
    const LdapPatience::End end =
        patience.waitFor([&](std::chrono::milliseconds piece) { return lookup.waitFor(piece); });
    if (end != LdapPatience::End::Done)
        return ended(end);
    const HostLookup::Result found = lookup.take();
    if (!found.addresses)
        return failed(found.text);

    TcpConnection result = failed(EHOSTUNREACH);
    for (const addrinfo *address = found.addresses.get(); address; address = address->ai_next) {
        result = connectTo(*address, patience);
        if (result.code != Code::Failed)
            break;
    }
    return result;
}
