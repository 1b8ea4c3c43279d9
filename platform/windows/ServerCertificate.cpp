#include "platform/windows/ServerCertificate.h"

#include <QCoreApplication>
#include <QDateTime>

#include <array>
#include <memory>
#include <string>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ServerCertificate)
};

struct FreeChain
{
    void operator()(const CERT_CHAIN_CONTEXT *chain) const { CertFreeCertificateChain(chain); }
};
using Chain = std::unique_ptr<const CERT_CHAIN_CONTEXT, FreeChain>;

struct Check
{
    HRESULT failed;
    const char *text;
};

// clang-format off
/// %1 is when the certificate begins, %2 when it ends, %3 its issuer, %4 the host.
constexpr std::array<Check, 8> checks {{
    {CERT_E_REVOKED,         QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate has been revoked.")},
    {CERT_E_UNTRUSTEDROOT,   QT_TRANSLATE_NOOP("ServerCertificate", "The issuer of the server's certificate, \"%3\", is not trusted by this machine.")},
    {CERT_E_CHAINING,        QT_TRANSLATE_NOOP("ServerCertificate", "The issuer of the server's certificate, \"%3\", is not trusted by this machine.")},
    {TRUST_E_CERT_SIGNATURE, QT_TRANSLATE_NOOP("ServerCertificate", "The signature of the server's certificate is wrong.")},
    {CERT_E_WRONG_USAGE,     QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate is not meant for servers.")},
    {CERT_E_CN_NO_MATCH,     QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate is for another host than \"%4\".")},
    {CERT_E_INVALID_NAME,    QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate is for another host than \"%4\".")},
    {CERT_E_ROLE,            QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate is not meant for servers.")},
}};
// clang-format on

constexpr const char *expired = QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate has expired, on %2.");
constexpr const char *notYet =
    QT_TRANSLATE_NOOP("ServerCertificate", "The server's certificate is not valid yet, but from %1 on.");

QString dateText(const FILETIME &time)
{
    // In tenths of a microsecond since the beginning of the year 1601, UTC.
    const quint64 value = quint64(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    const QDateTime begin(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC);
    return begin.addSecs(qint64(value / 10'000'000)).toString(Qt::ISODate);
}

QString issuerOf(PCCERT_CONTEXT certificate)
{
    std::wstring name(256, L'\0');
    const DWORD size = CertNameToStrW(X509_ASN_ENCODING, &certificate->pCertInfo->Issuer, CERT_X500_NAME_STR,
                                      name.data(), DWORD(name.size()));
    return QString::fromWCharArray(name.data(), int(size > 0 ? size - 1 : 0));
}

Chain chainOf(PCCERT_CONTEXT certificate)
{
    std::string purpose = szOID_PKIX_KP_SERVER_AUTH;
    LPSTR purposes[] = {purpose.data()};
    CERT_CHAIN_PARA wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.RequestedUsage.dwType = USAGE_MATCH_TYPE_OR;
    wanted.RequestedUsage.Usage.cUsageIdentifier = 1;
    wanted.RequestedUsage.Usage.rgpszUsageIdentifier = purposes;
    PCCERT_CHAIN_CONTEXT chain = nullptr;
    if (!CertGetCertificateChain(nullptr, certificate, nullptr, certificate->hCertStore, &wanted, 0, nullptr, &chain))
        return {};
    return Chain(chain);
}

/// Nothing when the check itself failed.
std::unique_ptr<CERT_CHAIN_POLICY_STATUS> verify(const CERT_CHAIN_CONTEXT *chain, const QString &host)
{
    std::wstring name = host.toStdWString();
    SSL_EXTRA_CERT_CHAIN_POLICY_PARA server{};
    server.cbSize = sizeof server;
    server.dwAuthType = AUTHTYPE_SERVER;
    server.pwszServerName = name.data();
    CERT_CHAIN_POLICY_PARA wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.pvExtraPolicyPara = &server;
    auto status = std::make_unique<CERT_CHAIN_POLICY_STATUS>();
    status->cbSize = sizeof *status;
    if (!CertVerifyCertificateChainPolicy(CERT_CHAIN_POLICY_SSL, chain, &wanted, status.get()))
        return nullptr;
    return status;
}

} // namespace

QString certificateProblem(PCCERT_CONTEXT certificate, const QString &host)
{
    if (!certificate)
        return Texts::tr("The server has shown no certificate.");
    const auto fill = [&](const char *text) {
        return Texts::tr(text)
            .replace(QLatin1String("%1"), dateText(certificate->pCertInfo->NotBefore))
            .replace(QLatin1String("%2"), dateText(certificate->pCertInfo->NotAfter))
            .replace(QLatin1String("%3"), issuerOf(certificate))
            .replace(QLatin1String("%4"), host);
    };
    const LONG validity = CertVerifyTimeValidity(nullptr, certificate->pCertInfo);
    if (validity != 0)
        return fill(validity > 0 ? expired : notYet);

    const Chain chain = chainOf(certificate);
    const auto status = chain ? verify(chain.get(), host) : nullptr;
    if (!status)
        return Texts::tr("The server's certificate cannot be checked.");
    if (status->dwError == 0)
        return {};
    const bool isOwnIssuer = CertCompareCertificateName(X509_ASN_ENCODING, &certificate->pCertInfo->Issuer,
                                                        &certificate->pCertInfo->Subject) != FALSE;
    const auto failed = HRESULT(status->dwError);
    if (failed == CERT_E_UNTRUSTEDROOT && isOwnIssuer)
        return Texts::tr("The server's certificate is its own issuer, and this machine does not trust it.");
    for (const Check &check : checks) {
        if (check.failed == failed)
            return fill(check.text);
    }
    return Texts::tr("The server's certificate is not valid.");
}
