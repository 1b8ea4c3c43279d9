#pragma once

#include <QString>

#include <qt_windows.h>

#include <wincrypt.h>

/// Says which check a server's certificate does not pass: who has issued it, its dates, its use, or its names. Empty
/// when it passes all of them.
/// @param host the name or address that was connected to
[[nodiscard]] QString certificateProblem(PCCERT_CONTEXT certificate, const QString &host);
