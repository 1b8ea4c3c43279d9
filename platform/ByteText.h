#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Text in files is UTF-8, but an old file may hold bytes of a Windows code page. Such a byte b (0x80 to 0xFF, outside
/// any well-formed UTF-8 sequence) is carried as the lone low surrogate U+DC00 + b, so that
/// encodeText(decodeBytes(bytes)) == bytes for all bytes, with no state beside the text. The same scheme is known from
/// Python's PEP 383. A byte order mark is kept as U+FEFF.
[[nodiscard]] QString decodeBytes(QByteArrayView bytes);

/// The bytes for text. Half a surrogate pair that carries no byte has no UTF-8 form and becomes U+FFFD.
[[nodiscard]] QByteArray encodeText(QStringView text);

/// Text as it is shown: a carried byte appears as the character that it stands for in Windows code page 1252 (its five
/// unassigned bytes as the control characters of the same number, as Windows maps them). Everything else stays.
[[nodiscard]] QString shownText(const QString &text);

/// Whether the two halves of one character stand at a place of text and behind it. A half that stands alone may carry a
/// byte.
[[nodiscard]] inline bool isPairAt(QStringView text, qsizetype at)
{
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}
