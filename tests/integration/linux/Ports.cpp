#include "tests/integration/linux/Ports.h"

#include <QtGlobal>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {

sockaddr_in loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(quint16(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

} // namespace

int listenOnFreePort(int &port)
{
    const int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(listening, reinterpret_cast<sockaddr *>(&address), size), 0);
    EXPECT_EQ(listen(listening, 8), 0);
    EXPECT_EQ(getsockname(listening, reinterpret_cast<sockaddr *>(&address), &size), 0);
    port = ntohs(address.sin_port);
    return listening;
}

bool isListening(int port)
{
    const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(port);
    const bool isThere = connect(probe, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    close(probe);
    return isThere;
}
