#include "platform/ByteText.h"

#include <QStringDecoder>
#include <QUtf8StringView>

#include <algorithm>
#include <array>

namespace {

constexpr char16_t carrierBase = 0xDC00;

bool isCarrier(QChar c)
{
    return c.unicode() >= carrierBase + 0x80 && c.unicode() <= carrierBase + 0xFF;
}

// Windows-1252, bytes 0x80 to 0x9F; the others are those of ISO 8859-1. Source: the mapping table that the Unicode
// Consortium publishes as CP1252.TXT, with the "best fit" controls in the unassigned places.
constexpr std::array<char16_t, 32> windows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QChar shownCarrier(QChar carrier)
{
    const auto byte = static_cast<char16_t>(carrier.unicode() - carrierBase);
    return byte < 0xA0 ? QChar(windows1252[byte - 0x80U]) : QChar(byte);
}

/// The length of the well-formed UTF-8 sequence at the start of bytes (Unicode standard, table 3-7), or 0.
qsizetype wellFormedLength(QByteArrayView bytes)
{
    const auto at = [bytes](qsizetype i) { return i < bytes.size() ? static_cast<uchar>(bytes[i]) : uchar(0); };
    const auto within = [](uchar byte, uchar low, uchar high) { return byte >= low && byte <= high; };
    const uchar lead = at(0);
    if (lead < 0x80)
        return 1;
    if (within(lead, 0xC2, 0xDF))
        return within(at(1), 0x80, 0xBF) ? 2 : 0;
    if (within(lead, 0xE0, 0xEF)) {
        const uchar low = lead == 0xE0 ? 0xA0 : 0x80;
        const uchar high = lead == 0xED ? 0x9F : 0xBF;
        return within(at(1), low, high) && within(at(2), 0x80, 0xBF) ? 3 : 0;
    }
    if (within(lead, 0xF0, 0xF4)) {
        const uchar low = lead == 0xF0 ? 0x90 : 0x80;
        const uchar high = lead == 0xF4 ? 0x8F : 0xBF;
        return within(at(1), low, high) && within(at(2), 0x80, 0xBF) && within(at(3), 0x80, 0xBF) ? 4 : 0;
    }
    return 0;
}

QString decodeWellFormed(QByteArrayView bytes)
{
    // A byte order mark is text here: what was read is written back.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return decoder(bytes);
}

} // namespace

QString decodeBytes(QByteArrayView bytes)
{
    if (QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8())
        return decodeWellFormed(bytes);

    QString text;
    text.reserve(bytes.size());
    qsizetype start = 0;
    qsizetype at = 0;
    while (at < bytes.size()) {
        const qsizetype length = wellFormedLength(bytes.sliced(at));
        if (length > 0) {
            at += length;
            continue;
        }
        if (at > start)
            text += decodeWellFormed(bytes.sliced(start, at - start));
        text += QChar(static_cast<char16_t>(carrierBase + static_cast<uchar>(bytes[at])));
        start = ++at;
    }
    return text += decodeWellFormed(bytes.sliced(start));
}

QByteArray encodeText(QStringView text)
{
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return c.isSurrogate(); }))
        return text.toUtf8();

    QByteArray bytes;
    bytes.reserve(text.size() + text.size() / 8);
    qsizetype start = 0;
    const auto flushUntil = [&](qsizetype end) {
        if (end > start)
            bytes += text.sliced(start, end - start).toUtf8();
        start = end + 1;
    };
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!text[at].isSurrogate())
            continue;
        if (isPairAt(text, at)) {
            ++at;
            continue;
        }
        flushUntil(at);
        if (isCarrier(text[at]))
            bytes += static_cast<char>(text[at].unicode() - carrierBase);
        else
            bytes += "\xEF\xBF\xBD";
    }
    flushUntil(text.size());
    return bytes;
}

QString shownText(const QString &text)
{
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return isCarrier(c); }))
        return text;

    QString shown = text;
    for (qsizetype at = 0; at < shown.size(); ++at) {
        if (isPairAt(shown, at))
            ++at;
        else if (isCarrier(shown[at]))
            shown[at] = shownCarrier(shown[at]);
    }
    return shown;
}
