#include "tests/config/PlainGrammar.h"

namespace plain {

namespace {

QString mid(const QString &s, int from, int length)
{
    if (length < 0)
        throw NegativeLength();
    QString result;
    for (int i = from; i < from + length && i <= s.size(); ++i)
        result += s[i - 1];
    return result;
}

QString left(const QString &s, int length)
{
    return mid(s, 1, length);
}

QString from(const QString &s, int start)
{
    return mid(s, start, int(s.size()));
}

int lastOf(const QString &s, char16_t c)
{
    for (int i = int(s.size()); i >= 1; --i) {
        if (s[i - 1] == c)
            return i;
    }
    return 0;
}

QString trim(QString s)
{
    while (left(s, 1) == " ")
        s = from(s, 2);
    while (!s.isEmpty() && s[s.size() - 1] == u' ')
        s = left(s, int(s.size()) - 1);
    return s;
}

void stripBothEnds(QString &s)
{
    if (left(s, 1) == "\"")
        s = mid(s, 2, int(s.size()) - 2);
}

void stripSigns(QString &s, QString &prefix)
{
    if (left(s, 2) == "==") {
        prefix = "==";
        s = from(s, 3);
    } else if (left(s, 1) == "=") {
        prefix = "=";
        s = from(s, 2);
    }
    if (left(s, 2) == "!!") {
        prefix = "!!";
        s = from(s, 3);
    } else if (left(s, 1) == "!") {
        prefix = "!";
        s = from(s, 2);
    }
}

Parts parse(QString s, bool isOlder)
{
    Parts parts;
    for (QChar &c : s) {
        if (c == u'\t')
            c = u' ';
    }
    s = trim(s);
    int p = lastOf(s, u' ');
    const int q = lastOf(s, u'"');
    if (!isOlder && q > p)
        p = 0;
    if (p != 0) {
        parts.flags = isOlder ? trim(mid(s, p, p)) : trim(from(s, p));
        s = trim(left(s, p));
    }
    stripBothEnds(s);
    stripSigns(s, parts.prefix);
    stripBothEnds(s);
    const int length = int(s.size());
    if (length >= 1 && s[length - 1] == u'\\' && !(length >= 2 && s[length - 2] == u':'))
        s = left(s, length - 1);
    parts.object = s;
    return parts;
}

bool startsLike(const QString &s, const QString &tag)
{
    return left(s, int(tag.size())).toUpper() == tag;
}

} // namespace

Parts parseAsDocument(QString line)
{
    return parse(std::move(line), false);
}

Parts parseAsOlderParser(QString line)
{
    return parse(std::move(line), true);
}

int kindOf(QString s)
{
    s = trim(s);
    if (left(s, 1) == "\"")
        s = from(s, 2);
    QString first;
    for (const QChar c : s) {
        if (c == u' ')
            break;
        first += c;
    }
    s = first;
    QString ignored;
    stripSigns(s, ignored);
    if (left(s, 1) == "\"")
        s = from(s, 2);
    if (startsLike(s, "NTUSER:"))
        return 4;
    if (startsLike(s, "NTGROUP:"))
        return 5;
    if (startsLike(s, "LDAP:"))
        return 6;
    if (startsLike(s, "USERRIGHT:"))
        return 7;
    if (s.toUpper() == "ACCOUNTPOLICY")
        return 8;
    if (s.toUpper() == "AUDITPOLICY")
        return 9;
    int backslash = 0;
    for (int i = int(s.size()); i >= 1; --i) {
        if (s[i - 1] == u'\\')
            backslash = i;
    }
    if (backslash == 0)
        return 3;
    const QString f = left(s, backslash - 1);
    if (startsLike(f, "HK"))
        return 2;
    if (mid(f, 2, 1) == ":")
        return 1;
    const QString start = left(trim(f), 1);
    return start == ";" || start == "#" ? 3 : 0;
}

QString escape(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        const int code = c.unicode();
        if (code == 0 || (code >= 32 && code <= 126)) {
            result += c;
            continue;
        }
        result += "\\u0x";
        for (int digit = 4096; digit >= 1; digit /= 16)
            result += QLatin1Char("0123456789ABCDEF"[code / digit % 16]);
    }
    return result;
}

QString assemble(const QString &object, const QString &prefix, const QString &flags, bool hasSpace)
{
    QString stored = escape(object);
    if (stored.count(u' ') > 0 && left(stored, 1) != "\"")
        stored = "\"" + stored + "\"";
    QString line = prefix + stored;
    if (!flags.isEmpty())
        line += (hasSpace ? " " : "") + flags;
    return line;
}

QStringList linesOf(const QString &text)
{
    QStringList lines;
    QString line;
    for (int i = 1; i <= text.size(); ++i) {
        const QString c = mid(text, i, 1);
        if (c == "\n" || c == "\r") {
            lines << line;
            line.clear();
            if (c == "\r" && mid(text, i + 1, 1) == "\n")
                ++i;
        } else {
            line += c;
        }
    }
    lines << line;
    while (lines.last().isEmpty()) {
        lines.removeLast();
        if (lines.isEmpty())
            throw NegativeLength();
    }
    return lines;
}

QString textOf(const QStringList &rows)
{
    QString text;
    for (const QString &row : rows)
        text += row + "\r\n";
    return text;
}

} // namespace plain
