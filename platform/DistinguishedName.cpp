#include "platform/DistinguishedName.h"

#include "platform/ByteText.h"

#include <QByteArray>

namespace {

// Stands for a separator while the same character from a value stands for itself. No value holds it unescaped, because
// it is no character at all.
constexpr QChar partSeparator(0xFDD0);

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// Whether a backslash and two hexadecimal digits stand there.
bool isByteEscape(const QString &text, qsizetype at)
{
    return at + 2 < text.size() && text[at] == u'\\' && isHexDigit(text[at + 1]) && isHexDigit(text[at + 2]);
}

/// The length of the escape at a backslash.
qsizetype escapeLength(const QString &text, qsizetype at)
{
    if (isByteEscape(text, at))
        return 3;
    return qMin<qsizetype>(2, text.size() - at);
}

/// The bytes of all escapes from a place on, as text; a byte that is none is kept in a form of its own.
QString takeBytes(const QString &text, qsizetype &at)
{
    QByteArray bytes;
    for (; isByteEscape(text, at); at += 3)
        bytes += static_cast<char>(text.mid(at + 1, 2).toInt(nullptr, 16));
    return decodeBytes(bytes);
}

/// A line of a configuration holds printable ASCII only. It has a form for other characters, but that does not become
/// the character again.
bool isSafeInUrl(QChar c)
{
    return c >= u' ' && c <= u'~' && c != u'?' && c != u'%';
}

/// The escapes of all bytes of a text.
QString byteEscapes(const QString &text)
{
    QString escapes;
    for (const char byte : encodeText(text))
        escapes += QStringLiteral("\\%1").arg(uchar(byte), 2, 16, QLatin1Char('0')).toUpper();
    return escapes;
}

/// Without blanks at the ends, except one that is escaped.
QString trimmedName(const QString &name)
{
    qsizetype begin = 0;
    while (begin < name.size() && name[begin] == u' ')
        ++begin;
    qsizetype end = begin;
    for (qsizetype at = begin; at < name.size();) {
        const qsizetype length = name[at] == u'\\' ? escapeLength(name, at) : 1;
        if (length > 1 || name[at] != u' ')
            end = at + length;
        at += length;
    }
    return name.mid(begin, end - begin);
}

} // namespace

QStringList relativeNames(const QString &distinguishedName)
{
    QStringList names;
    qsizetype begin = 0;
    bool isQuoted = false;
    for (qsizetype at = 0; at < distinguishedName.size();) {
        const QChar c = distinguishedName[at];
        if (c == u'\\') {
            at += escapeLength(distinguishedName, at);
            continue;
        }
        if (c == u'"')
            isQuoted = !isQuoted;
        if (c == u',' && !isQuoted) {
            names << trimmedName(distinguishedName.mid(begin, at - begin));
            begin = at + 1;
        }
        ++at;
    }
    if (!distinguishedName.isEmpty())
        names << trimmedName(distinguishedName.mid(begin));
    return names;
}

QString comparableName(const QString &relativeName)
{
    const QString name = trimmedName(relativeName);
    QString result;
    bool isQuoted = false;
    bool isValue = false;
    // Blanks that may yet turn out to stand at the end of a part.
    QString blanks;
    const auto add = [&](const QString &text) {
        result += blanks + text;
        blanks.clear();
    };
    for (qsizetype at = 0; at < name.size();) {
        const QChar c = name[at];
        if (isByteEscape(name, at)) {
            add(takeBytes(name, at));
            continue;
        }
        if (c == u'\\' && at + 1 < name.size()) {
            add(name[at + 1]);
            at += 2;
            continue;
        }
        ++at;
        const bool isSeparator = !isQuoted && ((c == u'=' && !isValue) || c == u'+');
        if (c == u'"') {
            isQuoted = !isQuoted;
        } else if (isSeparator) {
            blanks.clear();
            result += partSeparator;
            isValue = c == u'=';
        } else if (c == u' ' && !isQuoted) {
            if (!result.isEmpty() && result.back() != partSeparator)
                blanks += c;
        } else {
            add(c);
        }
    }
    return result.toUpper();
}

QString nameForUrl(const QString &distinguishedName)
{
    QString result;
    for (qsizetype at = 0; at < distinguishedName.size();) {
        const bool isEscape = distinguishedName[at] == u'\\';
        qsizetype length = isEscape ? escapeLength(distinguishedName, at) : 1;
        const qsizetype character = at + length - 1;
        if (isPairAt(distinguishedName, character))
            ++length;
        if (isSafeInUrl(distinguishedName[character]))
            result += distinguishedName.mid(at, length);
        else
            result += byteEscapes(distinguishedName.mid(character, at + length - character));
        at += length;
    }
    return result;
}
