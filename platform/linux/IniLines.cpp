#include "platform/linux/IniLines.h"

#include "platform/ByteText.h"

namespace {

QString escaped(const QString &text, QStringView special = {})
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar c = text[at];
        const bool isEdge = at == 0 || at == text.size() - 1;
        if (c == u'\\')
            result += QStringLiteral("\\\\");
        else if (c < u' ' || special.contains(c) || (c.isSpace() && isEdge))
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}

QString unescaped(QStringView text)
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QStringView rest = text.sliced(at);
        bool isCode = false;
        const ushort code = rest.startsWith(u"\\u") && rest.size() >= 6 ? rest.sliced(2, 4).toUShort(&isCode, 16) : 0;
        result += isCode ? QChar(code) : text[at];
        if (isCode)
            at += 5;
        else if (rest.startsWith(u"\\\\"))
            ++at;
    }
    return result;
}

} // namespace

IniLines::IniLines(const QByteArray &content)
    : m_lines(decodeBytes(content).split(u'\n'))
{
    if (m_lines.last().isEmpty())
        m_lines.removeLast();
}

QByteArray IniLines::content() const
{
    return encodeText(m_lines.join(u'\n') + u'\n');
}

std::optional<QString> IniLines::text(const QString &section, const QString &key) const
{
    const Place place = find(section, key);
    if (!place.isFound)
        return std::nullopt;
    const QStringView line(m_lines[place.line]);
    return unescaped(line.sliced(line.indexOf(u'=') + 1).trimmed());
}

void IniLines::setText(const QString &section, const QString &key, const QString &text)
{
    const Place place = find(section, key);
    const QString line = escaped(key, u"=[];#") + u'=' + escaped(text);
    if (place.isFound)
        m_lines[place.line] = line;
    else if (place.line > 0)
        m_lines.insert(place.line, line);
    else
        m_lines << u'[' + escaped(section, u"]") + u']' << line;
}

IniLines::Place IniLines::find(const QString &section, const QString &key) const
{
    bool isInside = false;
    qsizetype end = 0;
    for (qsizetype at = 0; at < m_lines.size(); ++at) {
        const QStringView line = QStringView(m_lines[at]).trimmed();
        const qsizetype sign = line.indexOf(u'=');
        if (line.startsWith(u'[') && line.endsWith(u']'))
            isInside = unescaped(line.sliced(1, line.size() - 2)) == section;
        else if (isInside && sign >= 0 && unescaped(line.first(sign).trimmed()) == key)
            return {true, at};
        if (isInside && !line.isEmpty())
            end = at + 1;
    }
    return {false, end};
}
