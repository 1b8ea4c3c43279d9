#include "config/ConfigLine.h"

#include "platform/ByteText.h"
#include "platform/RuntimeError.h"
#include "settings/Utilities.h"

#include <array>

namespace {

constexpr QChar space = u' ';
constexpr QChar quote = u'"';
constexpr QChar backslash = u'\\';

/// Drops the first and the last character of a text that begins with a double quote, whatever the last one is.
void dropQuotes(QString &text)
{
    if (!text.startsWith(quote))
        return;
    if (text.size() < 2)
        throw RuntimeError(RuntimeError::InvalidCall);
    text = text.sliced(1, text.size() - 2);
}

/// Takes sign, doubled or single, from the front of text. @return what was taken
QString takeSign(QString &text, QChar sign)
{
    if (!text.startsWith(sign))
        return {};
    const QString taken(text.startsWith(QString(2, sign)) ? 2 : 1, sign);
    text.remove(0, taken.size());
    return taken;
}

QString takeFlags(QString &text, ParseRule rule)
{
    qsizetype blank = text.lastIndexOf(space);
    if (rule == ParseRule::Document && text.lastIndexOf(quote) > blank)
        blank = -1;
    if (blank < 0)
        return {};
    const qsizetype length = rule == ParseRule::Document ? -1 : blank + 1;
    const QString flags = trimSpaces(text.mid(blank, length));
    text = trimSpaces(text.first(blank));
    return flags;
}

struct Tag
{
    QLatin1String text;
    bool isWhole;
    ItemKind kind;
};

// clang-format off
constexpr std::array<Tag, 6> tags {{
    {QLatin1String("NTUSER:"),       false, ItemKind::User},
    {QLatin1String("NTGROUP:"),      false, ItemKind::Group},
    {QLatin1String("LDAP:"),         false, ItemKind::DirectoryService},
    {QLatin1String("USERRIGHT:"),    false, ItemKind::UserRight},
    {QLatin1String("ACCOUNTPOLICY"), true,  ItemKind::AccountPolicy},
    {QLatin1String("AUDITPOLICY"),   true,  ItemKind::AuditPolicy},
}};
// clang-format on

ItemKind kindOfPath(const QString &object)
{
    const qsizetype end = object.indexOf(backslash);
    if (end < 0)
        return ItemKind::Line;
    const QString first = object.first(end);
    if (first.startsWith(QLatin1String("HK"), Qt::CaseInsensitive))
        return ItemKind::Registry;
    if (first.size() > 1 && first[1] == u':')
        return ItemKind::File;
    const QString trimmed = trimSpaces(first);
    if (trimmed.startsWith(u';') || trimmed.startsWith(u'#'))
        return ItemKind::Line;
    return ItemKind::Other;
}

} // namespace

QString trimSpaces(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == space)
        ++begin;
    while (end > begin && text[end - 1] == space)
        --end;
    return text.sliced(begin, end - begin);
}

void parseLine(const QString &line, ParseRule rule, QString &prefix, QString &object, QString &flags)
{
    QString rest = line;
    rest.replace(u'\t', space);
    rest = trimSpaces(rest);
    flags = takeFlags(rest, rule);
    dropQuotes(rest);
    // "=!" in front of an object yields "!": the later sign overwrites the earlier one.
    for (const QChar sign : {u'=', u'!'}) {
        const QString taken = takeSign(rest, sign);
        if (!taken.isEmpty())
            prefix = taken;
    }
    dropQuotes(rest);
    if (rest.endsWith(backslash) && !rest.endsWith(QLatin1String(":\\")))
        rest.chop(1);
    object = rest;
}

ItemKind GetItemType(const QString &line)
{
    QString object = trimSpaces(line);
    if (object.startsWith(quote))
        object.remove(0, 1);
    object = object.section(space, 0, 0);
    (void)takeSign(object, u'=');
    (void)takeSign(object, u'!');
    if (object.startsWith(quote))
        object.remove(0, 1);

    for (const Tag &tag : tags) {
        if (object.startsWith(tag.text, Qt::CaseInsensitive) && (!tag.isWhole || object.size() == tag.text.size()))
            return tag.kind;
    }
    return kindOfPath(object);
}

QString EscapeObject(const QString &object)
{
    return EscapeNonPrintable(shownText(object));
}

QString assembleLine(const QString &object, const QString &prefix, const QString &flags, FlagsSpace flagsSpace)
{
    QString stored = EscapeObject(object);
    if (stored.contains(space) && !stored.startsWith(quote))
        stored = quote + stored + quote;
    const bool isSetOff = flagsSpace == FlagsSpace::Yes && !flags.isEmpty();
    return prefix + stored + (isSetOff ? QString(space) : QString()) + flags;
}
