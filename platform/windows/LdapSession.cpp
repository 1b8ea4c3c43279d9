#include "platform/LdapSession.h"

#include "platform/CertificateText.h"
#include "platform/DirectoryPath.h"
#include "platform/windows/ServerCertificate.h"

namespace {

/// What is known while a certificate is looked at: the library hands its callback nothing of ours, but calls it from
/// within the call that encrypts.
struct Check
{
    QString host;
    QString problem;
};
thread_local Check *check = nullptr;

/// Replaces the library's own check, which does not say what is wrong. The certificate stays the library's. Its type is
/// a pointer less in some headers.
BOOLEAN LDAPAPI verifyCertificate(PLDAP, PCCERT_CONTEXT *certificate)
{
    if (!check)
        return FALSE;
    check->problem = certificateProblem(certificate ? *certificate : nullptr, check->host);
    return check->problem.isEmpty() ? TRUE : FALSE;
}

/// Wine's library does not take the callback, and takes every certificate: what is encrypted then may go to anybody.
bool setVerification(LDAP *session)
{
    return ldap_set_option(session, LDAP_OPT_SERVER_CERTIFICATE, reinterpret_cast<void *>(verifyCertificate)) ==
           LDAP_SUCCESS;
}

} // namespace

struct LdapSession::Connection
{
    QString host;
};

LdapSession::LdapSession(const LdapLimits &limits)
    : m_limits(limits)
    , m_connection(std::make_unique<Connection>())
{
}

LdapSession::~LdapSession()
{
    if (m_session)
        LdapInterface::end(m_session);
}

// The library waits on its own here: what can be done is to ask before.
LdapAnswer LdapSession::open(const DirectoryPath &path, const Directory::GoOn &goOn)
{
    if (goOn && !goOn())
        return LdapAnswer::of(LdapAnswer::Cancelled);
    m_connection->host = path.host;
    LdapInterface::Argument host(path.host);
    const bool isEncrypted = path.port == m_limits.encryptedPort;
    m_session = isEncrypted ? ldap_sslinit(host.data(), ULONG(path.port), 1) : ldap_init(host.data(), ULONG(path.port));
    if (!m_session)
        return failed(int(LdapGetLastError()));
    if (const LdapAnswer set = setOptions(); set.code != LdapAnswer::Success)
        return set;
    if (isEncrypted && !setVerification(m_session))
        return LdapAnswer::of(LdapAnswer::Unencryptable, certificateText(CertificateFault::Unchecked));

    Check own{path.host, {}};
    check = &own;
    LdapInterface::Time limit = LdapInterface::timeOf(m_limits.connect);
    const ULONG code = ldap_connect(m_session, &limit);
    check = nullptr;
    if (!own.problem.isEmpty())
        return LdapAnswer::of(LdapAnswer::Unencryptable, own.problem);
    if (code == LDAP_SUCCESS)
        return {};
    if (code == LDAP_TIMEOUT)
        return LdapAnswer::of(LdapAnswer::TimedOut);
    return LdapAnswer::of(LdapAnswer::Unreachable, LdapInterface::textOf(ldap_err2string(code)));
}

LdapAnswer LdapSession::startEncryption(const Directory::GoOn &goOn)
{
    if (goOn && !goOn())
        return LdapAnswer::of(LdapAnswer::Cancelled);
    if (!setVerification(m_session))
        return LdapAnswer::of(LdapAnswer::UnwillingToPerform);
    Check own{m_connection->host, {}};
    check = &own;
    ULONG said = LDAP_SUCCESS;
    LDAPMessage *result = nullptr;
    const ULONG code = ldap_start_tls_s(m_session, &said, &result, nullptr, nullptr);
    check = nullptr;
    if (result)
        ldap_msgfree(result);
    if (!own.problem.isEmpty())
        return LdapAnswer::of(LdapAnswer::Unencryptable, own.problem);
    if (code == LDAP_SUCCESS)
        return {};
    // What the server has said counts: that it does not encrypt is no failure of the connection.
    return failed(int(said == LDAP_SUCCESS ? code : said));
}
