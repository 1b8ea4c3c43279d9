#pragma once

#include "platform/Registry.h"
#include "registry/TextBuffer.h" // TextToFixedBuffer() and WideBufferToText() belong to these utilities

#include <QString>

/// Decides whether the registry's wide functions are to be used. Called once when the program starts.
/// @param versionWord the system's version as GetVersion() gives it (see Platform::versionWord)
///
/// The wide functions are for a version word that is less than -2147483648 as a signed number of 32 bits. There is no
/// such number, so the width is always narrow; the whole registry layer counts on that.
void PlatformProbe(Registry &registry, quint32 versionWord);

/// Makes control and non-ASCII characters visible. A character whose code is 0, or from 32 to 126, is kept as it is
/// (0 deliberately); any other becomes "\u0x" and its 16-bit code in upper-case hexadecimal, padded with "0" to four
/// digits: a tab becomes \u0x0009. Nothing turns such an escape back.
[[nodiscard]] QString EscapeNonPrintable(const QString &text);
