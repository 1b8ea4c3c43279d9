#include "platform/linux/HostLookup.h"

#include <QByteArray>

#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

namespace {

HostLookup::Result lookUp(const QByteArray &host, const QByteArray &port, HostLookup::Find find)
{
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    const int error = find(host.constData(), port.constData(), &wanted, &found);
    HostLookup::Result result;
    if (error == 0)
        result.addresses.reset(found);
    else if (error == EAI_SYSTEM)
        result.text = qt_error_string(errno);
    else
        result.text = QString::fromLocal8Bit(gai_strerror(error));
    return result;
}

} // namespace

HostLookup::HostLookup(const QString &host, int port, Find find)
{
    std::packaged_task<Result()> task(
        [host = host.toLatin1(), port = QByteArray::number(port), find] { return lookUp(host, port, find); });
    m_result = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error &error) {
        std::promise<Result> none;
        m_result = none.get_future();
        Result result;
        result.text = qt_error_string(error.code().value());
        none.set_value(std::move(result));
    }
}

bool HostLookup::waitFor(std::chrono::milliseconds limit) const
{
    return m_result.wait_for(limit) == std::future_status::ready;
}

HostLookup::Result HostLookup::take()
{
    return m_result.get();
}
