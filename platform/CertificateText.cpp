#include "platform/CertificateText.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CertificateText)
};

struct Row
{
    CertificateFault fault;
    const char *text;
};

// clang-format off
/// %1 is when the certificate begins, %2 when it ends, %3 its issuer, %4 the host.
constexpr std::array<Row, 13> rows {{
    {CertificateFault::Missing,         QT_TRANSLATE_NOOP("CertificateText", "The server has shown no certificate.")},
    {CertificateFault::Unreadable,      QT_TRANSLATE_NOOP("CertificateText", "The server's certificate cannot be read.")},
    {CertificateFault::Unchecked,       QT_TRANSLATE_NOOP("CertificateText", "The server's certificate cannot be checked.")},
    {CertificateFault::Revoked,         QT_TRANSLATE_NOOP("CertificateText", "The server's certificate has been revoked.")},
    {CertificateFault::Expired,         QT_TRANSLATE_NOOP("CertificateText", "The server's certificate has expired, on %2.")},
    {CertificateFault::NotYetValid,     QT_TRANSLATE_NOOP("CertificateText", "The server's certificate is not valid yet, but from %1 on.")},
    {CertificateFault::OwnIssuer,       QT_TRANSLATE_NOOP("CertificateText", "The server's certificate is its own issuer, and this machine does not trust it.")},
    {CertificateFault::UntrustedIssuer, QT_TRANSLATE_NOOP("CertificateText", "The issuer of the server's certificate, \"%3\", is not trusted by this machine.")},
    {CertificateFault::WrongSignature,  QT_TRANSLATE_NOOP("CertificateText", "The signature of the server's certificate is wrong.")},
    {CertificateFault::WeakSignature,   QT_TRANSLATE_NOOP("CertificateText", "The server's certificate is signed in a way that is not secure any more.")},
    {CertificateFault::WrongUse,        QT_TRANSLATE_NOOP("CertificateText", "The server's certificate is not meant for servers.")},
    {CertificateFault::OtherHost,       QT_TRANSLATE_NOOP("CertificateText", "The server's certificate is for another host than \"%4\".")},
    {CertificateFault::Other,           QT_TRANSLATE_NOOP("CertificateText", "The server's certificate is not valid.")},
}};
// clang-format on

} // namespace

QString certificateText(CertificateFault fault, const CertificateFacts &facts)
{
    const auto *row = std::find_if(rows.begin(), rows.end(), [fault](const Row &each) { return each.fault == fault; });
    return Texts::tr(row->text)
        .replace(QLatin1String("%1"), facts.begin.toString(Qt::ISODate))
        .replace(QLatin1String("%2"), facts.end.toString(Qt::ISODate))
        .replace(QLatin1String("%3"), facts.issuer)
        .replace(QLatin1String("%4"), facts.host);
}
