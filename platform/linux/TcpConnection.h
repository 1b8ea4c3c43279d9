#pragma once

#include "platform/Directory.h"
#include "platform/linux/HostLookup.h"

#include <QString>

#include <chrono>

/// A connection to a host, made so that the user may stop waiting for it: the library for directories would wait on its
/// own.
struct TcpConnection
{
    enum class Code { Success, Failed, TimedOut, Cancelled };

    Code code = Code::Success;
    /// With Failed: what is wrong.
    QString text;
    /// With Success: the socket, which belongs to whoever takes it; it does not wait in its calls. Otherwise -1.
    int socket = -1;

    /// Tries the addresses of the host one after the other. The limit is for finding them and for all of
    /// them together.
    [[nodiscard]] static TcpConnection open(const QString &host, int port, std::chrono::milliseconds limit,
                                            const Directory::GoOn &goOn, HostLookup::Find find = getaddrinfo);
};
