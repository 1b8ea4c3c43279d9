#pragma once

#include <QString>

#include <netdb.h>

#include <chrono>
#include <future>
#include <memory>

/// Finds the addresses of a host in the background: the system's call waits for name servers that do not answer, and
/// nothing can end it. Whoever does not want to wait any longer leaves the object; the call then ends on its own.
class HostLookup final
{
public:
    /// The call; getaddrinfo(3) has its arguments and results. It runs in a thread of its own.
    using Find = int (*)(const char *host, const char *port, const addrinfo *wanted, addrinfo **found);

    struct Result
    {
        /// Nothing when the host has none; then there is a text, the system's own words.
        std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses{nullptr, freeaddrinfo};
        QString text;
    };

    /// Begins the search.
    HostLookup(const QString &host, int port, Find find = getaddrinfo);

    /// Waits for the result, this time at most, and says whether it is there.
    [[nodiscard]] bool waitFor(std::chrono::milliseconds limit) const;
    /// The result, which is given once. Waits until it is there.
    [[nodiscard]] Result take();

private:
    std::future<Result> m_result;
};
