#include "editors/ExtractOption.h"

namespace {

bool isDigitAt(const QString &text, qsizetype at)
{
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9';
}

} // namespace

int ExtractOption(QString &flags, QLatin1String name, NotNumeric)
{
    const qsizetype found = flags.indexOf(name);
    if (found < 0)
        return 0;
    flags.remove(found, name.size());
    return 1;
}

QString ExtractOption(QString &flags, QLatin1String name, Numeric)
{
    const qsizetype found = flags.indexOf(name);
    if (found < 0)
        return {};
    qsizetype count = 0;
    while (IsNumberCharAt(flags, name, found, count))
        ++count;
    const QString number = flags.sliced(found + name.size(), count);
    flags.remove(found, name.size() + count);
    return number;
}

bool IsNumberCharAt(const QString &flags, QLatin1String name, qsizetype found, qsizetype count)
{
    const qsizetype at = found + name.size() + count;
    return isDigitAt(flags, at) || (at < flags.size() && flags[at] == u'-' && isDigitAt(flags, at + 1));
}
