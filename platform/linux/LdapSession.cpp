#include "platform/LdapSession.h"

#include "platform/DirectoryPath.h"
#include "platform/linux/TcpConnection.h"
#include "platform/linux/TlsLayer.h"

#include <QCoreApplication>

#include <openldap.h>
#include <unistd.h>

#include <csignal>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdapSession)
};

LdapAnswer answer(LdapAnswer::Code code, const QString &text = {})
{
    LdapAnswer result;
    result.code = code;
    result.text = text;
    return result;
}

LdapAnswer answerOf(const TcpConnection &connection)
{
    switch (connection.code) {
    case TcpConnection::Code::Success:
        return {};
    case TcpConnection::Code::TimedOut:
        return answer(LdapAnswer::TimedOut);
    case TcpConnection::Code::Cancelled:
        return answer(LdapAnswer::Cancelled);
    case TcpConnection::Code::Failed:
        break;
    }
    return answer(LdapAnswer::Unreachable, connection.text);
}

QByteArray urlOf(const DirectoryPath &path)
{
    const QByteArray host = path.host.toLatin1();
    return "ldap://" + (host.contains(':') ? '[' + host + ']' : host) + ':' + QByteArray::number(path.port);
}

/// Also what the system's and the user's files say about the library is overruled here.
bool setOptions(LDAP *session)
{
    const int version = LDAP_VERSION3;
    const int noReference = LDAP_DEREF_NEVER;
    const int noLimit = LDAP_NO_LIMIT;
    return ldap_set_option(session, LDAP_OPT_PROTOCOL_VERSION, &version) == LDAP_OPT_SUCCESS &&
           ldap_set_option(session, LDAP_OPT_REFERRALS, LDAP_OPT_OFF) == LDAP_OPT_SUCCESS &&
           ldap_set_option(session, LDAP_OPT_DEREF, &noReference) == LDAP_OPT_SUCCESS &&
           ldap_set_option(session, LDAP_OPT_SIZELIMIT, &noLimit) == LDAP_OPT_SUCCESS;
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
    if (!setOptions(m_session))
        return answer(LdapAnswer::Local, Texts::tr("The LDAP library does not know a setting."));
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
