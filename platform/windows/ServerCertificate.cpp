#include "platform/windows/ServerCertificate.h"

#include "platform/CertificateText.h"

#include <QDateTime>

#include <array>
#include <memory>
#include <string>

namespace {

struct FreeChain
{
    void operator()(const CERT_CHAIN_CONTEXT *chain) const { CertFreeCertificateChain(chain); }
};
using Chain = std::unique_ptr<const CERT_CHAIN_CONTEXT, FreeChain>;

struct Check
{
    HRESULT failed;
    CertificateFault fault;
};

// clang-format off
constexpr std::array<Check, 8> checks {{
    {CERT_E_REVOKED,         CertificateFault::Revoked},
    {CERT_E_UNTRUSTEDROOT,   CertificateFault::UntrustedIssuer},
    {CERT_E_CHAINING,        CertificateFault::UntrustedIssuer},
    {TRUST_E_CERT_SIGNATURE, CertificateFault::WrongSignature},
    {CERT_E_WRONG_USAGE,     CertificateFault::WrongUse},
    {CERT_E_CN_NO_MATCH,     CertificateFault::OtherHost},
    {CERT_E_INVALID_NAME,    CertificateFault::OtherHost},
    {CERT_E_ROLE,            CertificateFault::WrongUse},
}};
// clang-format on

QDateTime dateOf(const FILETIME &time)
{
    // In tenths of a microsecond since the beginning of the year 1601, UTC.
    const quint64 value = quint64(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    const QDateTime begin(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC);
    return begin.addSecs(qint64(value / 10'000'000));
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

CertificateFault faultOf(HRESULT failed, PCCERT_CONTEXT certificate)
{
    const bool isOwnIssuer = CertCompareCertificateName(X509_ASN_ENCODING, &certificate->pCertInfo->Issuer,
                                                        &certificate->pCertInfo->Subject) != FALSE;
    if (failed == CERT_E_UNTRUSTEDROOT && isOwnIssuer)
        return CertificateFault::OwnIssuer;
    for (const Check &check : checks) {
        if (check.failed == failed)
            return check.fault;
    }
    return CertificateFault::Other;
}

} // namespace

QString certificateProblem(PCCERT_CONTEXT certificate, const QString &host)
{
    if (!certificate)
        return certificateText(CertificateFault::Missing);
    const CertificateFacts facts{dateOf(certificate->pCertInfo->NotBefore), dateOf(certificate->pCertInfo->NotAfter),
                                 issuerOf(certificate), host};
    const LONG validity = CertVerifyTimeValidity(nullptr, certificate->pCertInfo);
    if (validity != 0)
        return certificateText(validity > 0 ? CertificateFault::Expired : CertificateFault::NotYetValid, facts);

    const Chain chain = chainOf(certificate);
    const auto status = chain ? verify(chain.get(), host) : nullptr;
    if (!status)
        return certificateText(CertificateFault::Unchecked);
    if (status->dwError == 0)
        return {};
    return certificateText(faultOf(HRESULT(status->dwError), certificate), facts);
}
