#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QStringList>

#include <array>

/// Measures rows in one font and finds what of a row is to be painted. A row of ordinary length is laid out whole; of
/// a very long one (a line of a megabyte is a line) only the part that is seen, so that painting costs no more for it.
class RowMetrics final
{
public:
    /// @param font without kerning: the width of ASCII text is then the sum of its characters' widths
    explicit RowMetrics(const QFont &font);

    /// The width of the widest row, each prefixed by two spaces, in device-independent pixels.
    [[nodiscard]] int widestRow(const QStringList &rows) const;

    /// A part of a text and how far its left edge is from the text's own, in device-independent pixels.
    struct Part
    {
        QString text;
        qreal offset = 0;
    };

    /// What of text has to be painted for the range from left to right, in pixels from the text's own left edge.
    [[nodiscard]] Part visiblePart(const QString &text, qreal left, qreal right) const;

    /// How far a row's text stands from its left edge: one space, as it leaves one on the right.
    [[nodiscard]] qreal margin() const { return m_asciiAdvances[u' ']; }
    [[nodiscard]] qreal height() const { return m_metrics.height(); }
    [[nodiscard]] qreal ascent() const { return m_metrics.ascent(); }

    /// Text as it is painted: a control character as its picture (U+2400 and following), a tab as a space, and another
    /// character of which nothing would be seen, as a byte order mark, as a white square (U+25A1).
    [[nodiscard]] static QString painted(const QString &text);

private:
    [[nodiscard]] qreal rowWidth(const QString &row) const;
    [[nodiscard]] qreal advance(char32_t character) const;

    QFontMetricsF m_metrics;
    std::array<qreal, 128> m_asciiAdvances{};
    mutable QHash<char32_t, qreal> m_otherAdvances;
};
