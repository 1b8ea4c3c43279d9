#include "settings/Utilities.h"

#include <algorithm>

namespace {

bool isKept(QChar c)
{
    return c.unicode() == 0 || (c.unicode() >= 32 && c.unicode() <= 126);
}

QString hexadecimalCode(QChar c)
{
    return QString::number(c.unicode(), 16).toUpper().rightJustified(4, QLatin1Char('0'));
}

} // namespace

void PlatformProbe(Registry &registry, quint32 versionWord)
{
    constexpr qint64 wideBelow = -2147483648;
    const bool isWide = qint64(static_cast<qint32>(versionWord)) < wideBelow;
    registry.setCharacterWidth(isWide ? Registry::CharacterWidth::Wide : Registry::CharacterWidth::Narrow);
}

QString EscapeNonPrintable(const QString &text)
{
    if (std::all_of(text.begin(), text.end(), isKept))
        return text;

    QString escaped;
    escaped.reserve(text.size() * 2);
    for (const QChar c : text) {
        if (isKept(c))
            escaped += c;
        else
            escaped += QLatin1String("\\u0x") + hexadecimalCode(c);
    }
    return escaped;
}
