#include "platform/linux/TlsLayer.h"

#include "platform/LdapPatience.h"
#include "platform/linux/ServerCertificate.h"

#include <QCoreApplication>

#include <arpa/inet.h>
#include <gnutls/gnutls.h>
#include <ldap.h>
#include <poll.h>

#include <cerrno>
#include <memory>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TlsLayer)
};

bool isAddress(const QByteArray &host)
{
    in6_addr address{};
    return inet_pton(AF_INET, host.constData(), &address) == 1 || inet_pton(AF_INET6, host.constData(), &address) == 1;
}

/// The encryption of one connection.
class Tls final
{
public:
    Tls() = default;
    Tls(const Tls &) = delete;
    Tls &operator=(const Tls &) = delete;
    ~Tls();

    [[nodiscard]] bool prepare(int socket, const QByteArray &host);
    [[nodiscard]] LdapAnswer shakeHands(const LdapLimits &limits, const Directory::GoOn &goOn);
    [[nodiscard]] QList<QByteArray> serverCertificates() const;

    [[nodiscard]] gnutls_session_t session() const { return m_session; }

private:
    int m_socket = -1;
    gnutls_session_t m_session = nullptr;
    gnutls_certificate_credentials_t m_credentials = nullptr;
};

Tls::~Tls()
{
    if (m_session)
        gnutls_deinit(m_session);
    if (m_credentials)
        gnutls_certificate_free_credentials(m_credentials);
}

bool Tls::prepare(int socket, const QByteArray &host)
{
    m_socket = socket;
    if (gnutls_init(&m_session, GNUTLS_CLIENT | GNUTLS_NONBLOCK | GNUTLS_NO_SIGNAL) != 0 ||
        gnutls_certificate_allocate_credentials(&m_credentials) != 0 || gnutls_set_default_priority(m_session) != 0 ||
        gnutls_credentials_set(m_session, GNUTLS_CRD_CERTIFICATE, m_credentials) != 0)
        return false;
    gnutls_transport_set_int(m_session, m_socket);
    // A server that has several names shows the certificate of this one; addresses are not allowed there (RFC 6066).
    return isAddress(host) ||
           gnutls_server_name_set(m_session, GNUTLS_NAME_DNS, host.constData(), size_t(host.size())) == 0;
}

LdapAnswer Tls::shakeHands(const LdapLimits &limits, const Directory::GoOn &goOn)
{
    int code = 0;
    const LdapPatience::End end = LdapPatience(limits.connect, goOn).waitFor([&](std::chrono::milliseconds piece) {
        code = gnutls_handshake(m_session);
        if (code == GNUTLS_E_SUCCESS || gnutls_error_is_fatal(code) != 0)
            return true;
        if (code == GNUTLS_E_AGAIN) {
            const short wanted = gnutls_record_get_direction(m_session) == 0 ? POLLIN : POLLOUT;
            pollfd polled{m_socket, wanted, 0};
            (void)poll(&polled, 1, int(piece.count()));
        }
        return false;
    });
    if (end == LdapPatience::End::TimedOut)
        return LdapAnswer::of(LdapAnswer::TimedOut);
    if (end == LdapPatience::End::Cancelled)
        return LdapAnswer::of(LdapAnswer::Cancelled);
    switch (code) {
    case GNUTLS_E_SUCCESS:
        return {};
    case GNUTLS_E_PULL_ERROR:
    case GNUTLS_E_PUSH_ERROR:
    case GNUTLS_E_PREMATURE_TERMINATION:
        return LdapAnswer::of(LdapAnswer::Lost);
    default:
        return LdapAnswer::of(
            LdapAnswer::Unencryptable,
            Texts::tr("The connection cannot be encrypted. %1").arg(QLatin1String(gnutls_strerror(code))));
    }
}

QList<QByteArray> Tls::serverCertificates() const
{
    QList<QByteArray> chain;
    unsigned count = 0;
    const gnutls_datum_t *certificates = gnutls_certificate_get_peers(m_session, &count);
    for (unsigned i = 0; i < count; ++i)
        chain << QByteArray(reinterpret_cast<const char *>(certificates[i].data), qsizetype(certificates[i].size));
    return chain;
}

// What the LDAP library calls to read and write

gnutls_session_t sessionOf(const Sockbuf_IO_Desc *layer)
{
    return static_cast<const Tls *>(layer->sbiod_pvt)->session();
}

/// @param code the result of reading or writing
ber_slen_t countOf(ssize_t code)
{
    if (code >= 0)
        return code;
    // What cannot be done now, and what the encryption does among itself.
    errno = gnutls_error_is_fatal(int(code)) != 0 ? ECONNRESET : EWOULDBLOCK;
    return -1;
}

int setUp(Sockbuf_IO_Desc *layer, void *tls)
{
    layer->sbiod_pvt = tls;
    return 0;
}

int tearDown(Sockbuf_IO_Desc *layer)
{
    const std::unique_ptr<Tls> ended(static_cast<Tls *>(layer->sbiod_pvt));
    layer->sbiod_pvt = nullptr;
    return 0;
}

int control(Sockbuf_IO_Desc *layer, int option, void *argument)
{
    // What has been decrypted does not make the socket readable any more.
    if (option == LBER_SB_OPT_DATA_READY && gnutls_record_check_pending(sessionOf(layer)) > 0)
        return 1;
    return LBER_SBIOD_CTRL_NEXT(layer, option, argument);
}

ber_slen_t readBytes(Sockbuf_IO_Desc *layer, void *bytes, ber_len_t count)
{
    return countOf(gnutls_record_recv(sessionOf(layer), bytes, count));
}

ber_slen_t writeBytes(Sockbuf_IO_Desc *layer, void *bytes, ber_len_t count)
{
    return countOf(gnutls_record_send(sessionOf(layer), bytes, count));
}

int closeDown(Sockbuf_IO_Desc *layer)
{
    // The server is told, but not waited for.
    (void)gnutls_bye(sessionOf(layer), GNUTLS_SHUT_WR);
    return 0;
}

} // namespace

LdapAnswer encryptSession(ldap *session, int socket, const QString &host, const LdapLimits &limits,
                          const Directory::GoOn &goOn)
{
    static Sockbuf_IO calls{setUp, tearDown, control, readBytes, writeBytes, closeDown};

    auto tls = std::make_unique<Tls>();
    if (!tls->prepare(socket, host.toLatin1()))
        return LdapAnswer::of(LdapAnswer::Unencryptable, Texts::tr("The connection cannot be encrypted."));
    LdapAnswer agreed = tls->shakeHands(limits, goOn);
    if (agreed.code != LdapAnswer::Success)
        return agreed;
    const QString problem = certificateProblem(tls->serverCertificates(), host, limits.trustedCertificates);
    if (!problem.isEmpty())
        return LdapAnswer::of(LdapAnswer::Unencryptable, problem);

    Sockbuf *buffer = nullptr;
    if (ldap_get_option(session, LDAP_OPT_SOCKBUF, &buffer) != LDAP_OPT_SUCCESS ||
        ber_sockbuf_add_io(buffer, &calls, LBER_SBIOD_LEVEL_TRANSPORT, tls.get()) != 0)
        return LdapAnswer::of(LdapAnswer::Local, Texts::tr("The connection cannot be encrypted."));
    // The session ends it.
    (void)tls.release();
    return {};
}
