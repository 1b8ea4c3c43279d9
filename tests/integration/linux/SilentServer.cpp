#include "tests/integration/SilentServer.h"

#include "tests/integration/linux/Ports.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

struct SilentServer::Private
{
    void serve(Manner manner) const;

    int port = 0;
    int socket = -1;
    std::atomic<bool> isEnding = false;
    std::thread serving;
};

SilentServer::SilentServer(Manner manner)
    : m_private(std::make_unique<Private>())
{
    m_private->socket = listenOnFreePort(m_private->port);
    if (manner != Manner::Waits)
        m_private->serving = std::thread([this, manner] { m_private->serve(manner); });
}

SilentServer::~SilentServer()
{
    m_private->isEnding = true;
    if (m_private->serving.joinable())
        m_private->serving.join();
    close(m_private->socket);
}

int SilentServer::port() const
{
    return m_private->port;
}

void SilentServer::Private::serve(Manner manner) const
{
    std::vector<int> connections;
    while (!isEnding) {
        pollfd polled{socket, POLLIN, 0};
        if (poll(&polled, 1, 20) <= 0)
            continue;
        const int connection = accept(socket, nullptr, nullptr);
        if (manner == Manner::Drops) {
            close(connection);
            continue;
        }
        // The head of a message of 4096 bytes.
        const char head[] = {0x30, char(0x82), 0x10, 0x00, 0x02};
        (void)send(connection, head, sizeof head, MSG_NOSIGNAL);
        connections.push_back(connection);
    }
    for (const int connection : connections)
        close(connection);
}
