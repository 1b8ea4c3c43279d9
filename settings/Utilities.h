#pragma once

#include <QString>

/// Makes control and non-ASCII characters visible. A character whose code is 0, or from 32 to 126, is kept as it is
/// (0 deliberately); any other becomes "\u0x" and its 16-bit code in upper-case hexadecimal, padded with "0" to four
/// digits: a tab becomes \u0x0009. Nothing turns such an escape back.
[[nodiscard]] QString EscapeNonPrintable(const QString &text);
