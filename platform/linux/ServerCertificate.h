#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Says which check a server's certificate does not pass: who has issued it, its dates, its use, or its names. Empty
/// when it passes all of them.
/// @param chain the certificate, and behind it those of its issuers that the server has sent, as they are encoded (DER)
/// @param host the name or address that was connected to
/// @param trusted a file of certificates that are trusted; empty for the system's
[[nodiscard]] QString certificateProblem(const QList<QByteArray> &chain, const QString &host, const QString &trusted);
