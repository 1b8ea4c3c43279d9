#include "editors/LineEdit.h"

#include "platform/ByteText.h"

#include <limits>

LineEdit::LineEdit(QLatin1String name, QWidget *parent)
    : QLineEdit(parent)
{
    setObjectName(name);
    // Without this it would cut off a long line.
    setMaxLength(std::numeric_limits<int>::max());
}

void LineEdit::setLine(const QString &text)
{
    m_line = text;
    setText(shownText(text));
}

QString LineEdit::line() const
{
    // Bytes that are not UTF-8 are shown as the characters that they stand for, one for one, and can be told from
    // these only by where they stand: in front of what the user has changed, or behind it.
    const QString now = text();
    const QString shown = shownText(m_line);
    const qsizetype shorter = qMin(now.size(), shown.size());
    qsizetype front = 0;
    while (front < shorter && now[front] == shown[front])
        ++front;
    qsizetype back = 0;
    while (back < shorter - front && now[now.size() - 1 - back] == shown[shown.size() - 1 - back])
        ++back;
    QString entered = now.sliced(front, now.size() - front - back);
    entered.replace(u'\r', u' ').replace(u'\n', u' ');
    return m_line.first(front) + entered + m_line.last(back);
}
