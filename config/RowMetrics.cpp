#include "config/RowMetrics.h"

#include "platform/ByteText.h"

#include <algorithm>
#include <cmath>

namespace {

// Up to this many characters a text is laid out whole, so that scripts whose characters change shape with their
// neighbours look right.
constexpr qsizetype wholeLength = 4096;

constexpr char16_t controlPictures = 0x2400;
constexpr char16_t deletePicture = 0x2421;
constexpr char16_t whiteSquare = 0x25A1;
constexpr char16_t zeroWidthNonJoiner = 0x200C;
constexpr char16_t zeroWidthJoiner = 0x200D;

bool isControl(QChar c)
{
    return c.unicode() < 32 || c.unicode() == 127;
}

/// Whether nothing is seen of a character beyond ASCII, but perhaps of what it does with others: their order, or a new
/// line. Those that join letters are a part of how words are written.
bool isHidden(QChar c)
{
    if (c.unicode() < 128 || c == QChar(zeroWidthNonJoiner) || c == QChar(zeroWidthJoiner))
        return false;
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QChar paintedCharacter(QChar c)
{
    if (isHidden(c))
        return QChar(whiteSquare);
    if (!isControl(c))
        return c;
    if (c == u'\t')
        return u' ';
    return c.unicode() == 127 ? QChar(deletePicture) : QChar(static_cast<char16_t>(controlPictures + c.unicode()));
}

char32_t characterAt(const QString &text, qsizetype at)
{
    return isPairAt(text, at) ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode();
}

} // namespace

RowMetrics::RowMetrics(const QFont &font)
    : m_metrics(font)
{
    for (size_t code = 0; code < m_asciiAdvances.size(); ++code) {
        const QString character = painted(QChar(static_cast<char16_t>(code)));
        m_asciiAdvances[code] = m_metrics.horizontalAdvance(character);
    }
}

int RowMetrics::widestRow(const QStringList &rows) const
{
    qreal widest = 0;
    for (const QString &row : rows)
        widest = std::max(widest, rowWidth(row));
    return rows.isEmpty() ? 0 : int(std::ceil(widest + 2 * advance(U' ')));
}

RowMetrics::Part RowMetrics::visiblePart(const QString &text, qreal left, qreal right) const
{
    if (text.size() <= wholeLength)
        return {text, 0};
    Part part;
    qsizetype begin = -1;
    qsizetype i = 0;
    for (qreal at = 0; i < text.size() && at <= right;) {
        const char32_t character = characterAt(text, i);
        const qreal end = at + advance(character);
        if (begin < 0 && end >= left) {
            begin = i;
            part.offset = at;
        }
        i += QChar::requiresSurrogates(character) ? 2 : 1;
        at = end;
    }
    if (begin >= 0)
        part.text = text.sliced(begin, i - begin);
    return part;
}

QString RowMetrics::painted(const QString &text)
{
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return isControl(c) || isHidden(c); }))
        return text;
    QString result(text.size(), Qt::Uninitialized);
    std::transform(text.cbegin(), text.cend(), result.begin(), paintedCharacter);
    return result;
}

qreal RowMetrics::rowWidth(const QString &row) const
{
    qreal width = 0;
    for (const QChar c : row) {
        if (c.unicode() < m_asciiAdvances.size()) {
            width += m_asciiAdvances[c.unicode()];
            continue;
        }
        const QString text = painted(shownText(row));
        if (text.size() <= wholeLength)
            return m_metrics.horizontalAdvance(text);
        width = 0;
        for (qsizetype at = 0; at < text.size();) {
            const char32_t character = characterAt(text, at);
            width += advance(character);
            at += QChar::requiresSurrogates(character) ? 2 : 1;
        }
        return width;
    }
    return width;
}

qreal RowMetrics::advance(char32_t character) const
{
    if (character < m_asciiAdvances.size())
        return m_asciiAdvances[character];
    const auto known = m_otherAdvances.constFind(character);
    if (known != m_otherAdvances.constEnd())
        return *known;
    return *m_otherAdvances.insert(character, m_metrics.horizontalAdvance(QString::fromUcs4(&character, 1)));
}
