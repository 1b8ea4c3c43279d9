#include "platform/linux/ServerCertificate.h"

#include "platform/CertificateText.h"

#include <QDateTime>
#include <QFile>

#include <gnutls/gnutls.h>
#include <gnutls/x509.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace {

struct FreeCertificate
{
    void operator()(gnutls_x509_crt_int *certificate) const { gnutls_x509_crt_deinit(certificate); }
};
using Certificate = std::unique_ptr<gnutls_x509_crt_int, FreeCertificate>;

struct FreeTrust
{
    void operator()(gnutls_x509_trust_list_st *list) const { gnutls_x509_trust_list_deinit(list, 1); }
};
using Trust = std::unique_ptr<gnutls_x509_trust_list_st, FreeTrust>;

struct Check
{
    unsigned failed;
    CertificateFault fault;
};

// clang-format off
/// When several fail, the first one is told.
constexpr std::array<Check, 7> checks {{
    {GNUTLS_CERT_REVOKED,                                      CertificateFault::Revoked},
    {GNUTLS_CERT_EXPIRED,                                      CertificateFault::Expired},
    {GNUTLS_CERT_NOT_ACTIVATED,                                CertificateFault::NotYetValid},
    {GNUTLS_CERT_SIGNER_NOT_FOUND | GNUTLS_CERT_SIGNER_NOT_CA, CertificateFault::UntrustedIssuer},
    {GNUTLS_CERT_SIGNATURE_FAILURE,                            CertificateFault::WrongSignature},
    {GNUTLS_CERT_INSECURE_ALGORITHM,                           CertificateFault::WeakSignature},
    {GNUTLS_CERT_PURPOSE_MISMATCH,                             CertificateFault::WrongUse},
}};
// clang-format on

Certificate readCertificate(const QByteArray &bytes)
{
    gnutls_x509_crt_t made = nullptr;
    if (gnutls_x509_crt_init(&made) != 0)
        return {};
    Certificate certificate(made);
    QByteArray copy = bytes;
    const gnutls_datum_t data{reinterpret_cast<unsigned char *>(copy.data()), unsigned(copy.size())};
    if (gnutls_x509_crt_import(certificate.get(), &data, GNUTLS_X509_FMT_DER) != 0)
        return {};
    return certificate;
}

Trust readTrusted(const QString &file)
{
    gnutls_x509_trust_list_t made = nullptr;
    if (gnutls_x509_trust_list_init(&made, 0) != 0)
        return {};
    Trust trust(made);
    // With none at all nothing is trusted, which is then what is said.
    if (file.isEmpty())
        (void)gnutls_x509_trust_list_add_system_trust(trust.get(), 0, 0);
    else
        (void)gnutls_x509_trust_list_add_trust_file(trust.get(), QFile::encodeName(file).constData(), nullptr,
                                                    GNUTLS_X509_FMT_PEM, 0, 0);
    return trust;
}

QString issuerOf(const Certificate &certificate)
{
    gnutls_datum_t name{};
    if (gnutls_x509_crt_get_issuer_dn3(certificate.get(), &name, 0) != 0)
        return {};
    const QString result = QString::fromUtf8(reinterpret_cast<const char *>(name.data), qsizetype(name.size));
    gnutls_free(name.data);
    return result;
}

/// What the library says about certificates, their dates included.
/// @return the checks that failed; nothing when there was no check
std::optional<unsigned> verify(const std::vector<Certificate> &certificates, const QString &trusted)
{
    const Trust trust = readTrusted(trusted);
    if (!trust)
        return std::nullopt;
    std::vector<gnutls_x509_crt_t> list;
    list.reserve(certificates.size());
    for (const Certificate &each : certificates)
        list.push_back(each.get());
    QByteArray purpose = GNUTLS_KP_TLS_WWW_SERVER;
    gnutls_typed_vdata_st use{GNUTLS_DT_KEY_PURPOSE_OID, reinterpret_cast<unsigned char *>(purpose.data()), 0};
    unsigned status = 0;
    if (gnutls_x509_trust_list_verify_crt2(trust.get(), list.data(), unsigned(list.size()), &use, 1, 0, &status,
                                           nullptr) != 0)
        return std::nullopt;
    return status;
}

CertificateFault faultOf(unsigned failed, const Certificate &certificate)
{
    const bool isOwnIssuer = gnutls_x509_crt_check_issuer(certificate.get(), certificate.get()) != 0;
    if ((failed & GNUTLS_CERT_SIGNER_NOT_FOUND) != 0 && isOwnIssuer)
        return CertificateFault::OwnIssuer;
    for (const Check &check : checks) {
        if ((failed & check.failed) != 0)
            return check.fault;
    }
    return CertificateFault::Other;
}

CertificateFacts factsOf(const Certificate &certificate, const QString &host)
{
    const auto utc = [](time_t when) { return QDateTime::fromSecsSinceEpoch(when, Qt::UTC); };
    return {utc(gnutls_x509_crt_get_activation_time(certificate.get())),
            utc(gnutls_x509_crt_get_expiration_time(certificate.get())), issuerOf(certificate), host};
}

} // namespace

QString certificateProblem(const QList<QByteArray> &chain, const QString &host, const QString &trusted)
{
    std::vector<Certificate> certificates;
    for (const QByteArray &bytes : chain) {
        certificates.push_back(readCertificate(bytes));
        if (!certificates.back())
            return certificateText(CertificateFault::Unreadable);
    }
    if (certificates.empty())
        return certificateText(CertificateFault::Missing);
    const std::optional<unsigned> failed = verify(certificates, trusted);
    if (!failed)
        return certificateText(CertificateFault::Unchecked);
    if (*failed != 0)
        return certificateText(faultOf(*failed, certificates.front()), factsOf(certificates.front(), host));
    if (gnutls_x509_crt_check_hostname(certificates.front().get(), host.toLatin1().constData()) == 0)
        return certificateText(CertificateFault::OtherHost, factsOf(certificates.front(), host));
    return {};
}
