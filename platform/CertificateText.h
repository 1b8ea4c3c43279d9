#pragma once

#include <QDateTime>
#include <QString>

/// The checks that a server's certificate may fail.
enum class CertificateFault {
    Missing,
    Unreadable,
    /// The check itself was not possible.
    Unchecked,
    Revoked,
    Expired,
    NotYetValid,
    /// It is signed by itself, and not trusted.
    OwnIssuer,
    UntrustedIssuer,
    WrongSignature,
    WeakSignature,
    WrongUse,
    OtherHost,
    Other,
};

/// What the texts say of a certificate.
struct CertificateFacts
{
    /// When it begins and ends to be valid, UTC.
    QDateTime begin;
    QDateTime end;
    /// The distinguished name of its issuer.
    QString issuer;
    /// The name or address that was connected to.
    QString host;
};

/// What a user is told of a certificate that has failed a check.
[[nodiscard]] QString certificateText(CertificateFault fault, const CertificateFacts &facts = {});
