#include "platform/linux/TcpConnection.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

#include <cerrno>

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

/// Name servers that do not answer before they are told to.
class SilentNameServers final
{
public:
    void fallSilent()
    {
        const std::lock_guard lock(m_mutex);
        m_answers = false;
    }

    /// Answers, and waits until nobody asks any more.
    void answer()
    {
        std::unique_lock lock(m_mutex);
        m_answers = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_asking == 0; });
    }

    static int find(const char *, const char *port, const addrinfo *wanted, addrinfo **found)
    {
        SilentNameServers &servers = instance();
        std::unique_lock lock(servers.m_mutex);
        ++servers.m_asking;
        servers.m_changed.wait(lock, [&] { return servers.m_answers; });
        const int error = getaddrinfo("127.0.0.1", port, wanted, found);
        --servers.m_asking;
        servers.m_changed.notify_all();
        return error;
    }

    static SilentNameServers &instance()
    {
        static SilentNameServers servers;
        return servers;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_answers = false;
    int m_asking = 0;
};

class TcpConnectionTest : public testing::Test
{
protected:
    TcpConnectionTest() { SilentNameServers::instance().fallSilent(); }
    ~TcpConnectionTest() override { SilentNameServers::instance().answer(); }

    static int noSuchHost(const char *, const char *, const addrinfo *, addrinfo **) { return EAI_NONAME; }
    static int brokenSystem(const char *, const char *, const addrinfo *, addrinfo **)
    {
        errno = EMFILE;
        return EAI_SYSTEM;
    }
};

TEST_F(TcpConnectionTest, WaitingForSilentNameServersCanBeCancelled)
{
    int asked = 0;
    const TcpConnection connection = TcpConnection::open(
        "dc.example.com", 389, hours(1), [&] { return ++asked < 3; }, SilentNameServers::find);
    EXPECT_EQ(connection.code, TcpConnection::Code::Cancelled);
    EXPECT_EQ(connection.socket, -1);
    EXPECT_EQ(asked, 3);
}

TEST_F(TcpConnectionTest, SilentNameServersAreWaitedForUntilTheLimit)
{
    const TcpConnection connection =
        TcpConnection::open("dc.example.com", 389, milliseconds(100), {}, SilentNameServers::find);
    EXPECT_EQ(connection.code, TcpConnection::Code::TimedOut);
    EXPECT_EQ(connection.socket, -1);
}

TEST_F(TcpConnectionTest, AHostWithoutAddressesIsToldInTheSystemsWords)
{
    const TcpConnection connection = TcpConnection::open("dc.example.com", 389, hours(1), {}, noSuchHost);
    EXPECT_EQ(connection.code, TcpConnection::Code::Failed);
    EXPECT_EQ(connection.text, QString::fromLocal8Bit(gai_strerror(EAI_NONAME)));
}

TEST_F(TcpConnectionTest, AFailureOfTheSystemIsToldInItsWords)
{
    const TcpConnection connection = TcpConnection::open("dc.example.com", 389, hours(1), {}, brokenSystem);
    EXPECT_EQ(connection.code, TcpConnection::Code::Failed);
    EXPECT_EQ(connection.text, qt_error_string(EMFILE));
}

} // namespace
