#include "registry/TextBuffer.h"

#include <algorithm>

namespace {

QByteArray wideBytes(const QString &text)
{
    QByteArray bytes;
    bytes.reserve(text.size() * 2);
    for (const QChar c : text) {
        bytes += static_cast<char>(c.cell());
        bytes += static_cast<char>(c.row());
    }
    return bytes;
}

} // namespace

FixedBuffer TextToFixedBuffer(const QString &text, const Registry &registry)
{
    const bool isWide = registry.characterWidth() == Registry::CharacterWidth::Wide;
    const QByteArray bytes = isWide ? wideBytes(text) : registry.toCodePage(text);
    FixedBuffer buffer{};
    std::copy_n(bytes.begin(), std::min(bytes.size(), qsizetype(buffer.size()) - 1), buffer.begin());
    return buffer;
}

QString WideBufferToText(const QByteArray &buffer, Registry::CharacterWidth width)
{
    if (width == Registry::CharacterWidth::Narrow)
        return QString::fromLatin1(buffer);
    QString text;
    for (qsizetype at = 0; at + 1 < buffer.size(); at += 2) {
        const QChar c(static_cast<uchar>(buffer[at]), static_cast<uchar>(buffer[at + 1]));
        if (c.isNull())
            break;
        text += c;
    }
    return text;
}
