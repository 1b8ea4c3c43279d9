#include "platform/AidLibrary.h"

#include <QByteArray>
#include <QLibrary>

namespace {

/// Both functions. What they return is not known to mean anything.
using Rewrite = void (*)(char *text);

} // namespace

AidLibrary::AidLibrary(const QString &name, QStringConverter::Encoding codePage)
    : m_name(name)
    , m_codePage(codePage)
{
}

std::optional<QString> AidLibrary::scramble(const QString &password)
{
    return rewrite("AidScramble", password, 3 * password.size() + 6);
}

std::optional<QString> AidLibrary::unscramble(const QString &scrambled)
{
    return rewrite("AidUnscramble", scrambled, 1);
}

/// @param zeros how many characters of code 0 the function finds behind the text, as room for its result
std::optional<QString> AidLibrary::rewrite(const char *function, const QString &text, qsizetype zeros) const
{
    QLibrary library(m_name);
    const auto call = reinterpret_cast<Rewrite>(library.resolve(function));
    if (!call)
        return std::nullopt;

    QStringEncoder encoder(m_codePage, QStringConverter::Flag::Stateless);
    QByteArray bytes = encoder(text);
    QStringDecoder decoder(m_codePage, QStringConverter::Flag::Stateless);
    // A character that the code page lacks would become another one, and the password a wrong one.
    if (encoder.hasError() || QString(decoder(bytes)) != text || text.contains(u'\0'))
        return std::nullopt;

    bytes.append(zeros, '\0');
    call(bytes.data());
    // Copied, so that what follows does not read beyond the first zero.
    const QByteArray result(bytes.constData());
    bytes.fill('\0');
    return QString(decoder(result));
}
