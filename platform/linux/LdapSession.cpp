#include "platform/LdapSession.h"

#include "platform/DirectoryPath.h"
#include "platform/linux/TcpConnection.h"
#include "platform/linux/TlsLayer.h"

#include <openldap.h>
#include <unistd.h>

#include <csignal>

namespace {

LdapAnswer answerOf(const TcpConnection &connection)
{
    switch (connection.code) {
    case TcpConnection::Code::Success:
        return {};
    case TcpConnection::Code::TimedOut:
        return LdapAnswer::of(LdapAnswer::TimedOut);
    case TcpConnection::Code::Cancelled:
        return LdapAnswer::of(LdapAnswer::Cancelled);
    case TcpConnection::Code::Failed:
        break;
    }
    return LdapAnswer::of(LdapAnswer::Unreachable, connection.text);
}

QByteArray urlOf(const DirectoryPath &path)
{
    const QByteArray host = path.host.toLatin1();
    return "ldap://" + (host.contains(':') ? '[' + host + ']' : host) + ':' + QByteArray::number(path.port);
}

} // namespace

struct LdapSession::Connection
{
    int socket = -1;
    QString host;
};

LdapSession::LdapSession(const LdapLimits &limits)
    : m_limits(limits)
    , m_connection(std::make_unique<Connection>())
{
    // The library writes as to a file: to a connection that the server has ended, this would end the program.
    (void)std::signal(SIGPIPE, SIG_IGN);
}

LdapSession::~LdapSession()
{
    if (m_session)
        LdapInterface::end(m_session);
}

LdapAnswer LdapSession::open(const DirectoryPath &path, const Directory::GoOn &goOn)
{
    const TcpConnection made = TcpConnection::open(path.host, path.port, m_limits.connect, goOn);
    if (made.code != TcpConnection::Code::Success)
        return answerOf(made);
    const int code = ldap_init_fd(made.socket, LDAP_PROTO_TCP, urlOf(path).constData(), &m_session);
    if (code != LDAP_SUCCESS) {
        ::close(made.socket);
        m_session = nullptr;
        return failed(code);
    }
    *m_connection = {made.socket, path.host};
    if (const LdapAnswer set = setOptions(); set.code != LdapAnswer::Success)
        return set;
    if (path.port != m_limits.encryptedPort)
        return {};
    return encryptSession(m_session, m_connection->socket, m_connection->host, m_limits, goOn);
}

LdapAnswer LdapSession::startEncryption(const Directory::GoOn &goOn)
{
    int message = 0;
    const int code = ldap_start_tls(m_session, nullptr, nullptr, &message);
    if (code != LDAP_SUCCESS)
        return failed(code);
    LdapAnswer agreed = await(message, goOn);
    if (agreed.code != LdapAnswer::Success)
        return agreed;
    return encryptSession(m_session, m_connection->socket, m_connection->host, m_limits, goOn);
}
