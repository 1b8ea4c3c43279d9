#include "config/RowMetrics.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <cmath>

namespace {

constexpr qsizetype wholeLength = 4096;
constexpr qsizetype megabyte = qsizetype(1) << 20;

QFont plainFont()
{
    QFont font = QApplication::font();
    font.setKerning(false);
    return font;
}

class Metrics : public testing::Test
{
protected:
    /// The width as the toolkit itself lays the whole row out.
    [[nodiscard]] int widthOf(const QString &row) const
    {
        return int(std::ceil(QFontMetricsF(plainFont()).horizontalAdvance("  " + row)));
    }

    /// The part that has to be seen, found by adding up one character after the other.
    void expectCovers(const QString &text, qreal left, qreal right) const
    {
        const QFontMetricsF toolkit(plainFont());
        const RowMetrics::Part part = metrics.visiblePart(text, left, right);
        qreal at = 0;
        qsizetype begin = -1;
        qsizetype end = 0;
        qreal beginAt = 0;
        for (qsizetype i = 0; i < text.size();) {
            const qsizetype length =
                text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate() ? 2 : 1;
            const qreal next = at + toolkit.horizontalAdvance(text.mid(i, length));
            if (begin < 0 && next > left) {
                begin = i;
                beginAt = at;
            }
            if (at < right)
                end = i + length;
            i += length;
            at = next;
        }
        if (begin < 0 || end <= begin)
            return;
        EXPECT_TRUE(part.text.contains(text.mid(begin, end - begin)));
        EXPECT_LE(part.offset, beginAt + 0.01);
        // Not the whole text that the painter would clip: a character or two more than can be seen.
        EXPECT_LE(part.text.size(), end - begin + 4);
    }

    RowMetrics metrics{plainFont()};
};

TEST_F(Metrics, TheWidestRowIsMeasuredWithTwoSpacesInFront)
{
    EXPECT_EQ(metrics.widestRow({"a", "wider than a", ""}), widthOf("wider than a"));
    EXPECT_GT(metrics.widestRow({"a"}), int(QFontMetricsF(plainFont()).horizontalAdvance("a")));
}

TEST_F(Metrics, OneEmptyRowIsTwoSpacesWide)
{
    EXPECT_EQ(metrics.widestRow({""}), widthOf(""));
}

TEST_F(Metrics, NoRowsNeedNoWidth)
{
    EXPECT_EQ(metrics.widestRow({}), 0);
}

TEST_F(Metrics, TheOrderOfRowsDoesNotMatter)
{
    EXPECT_EQ(metrics.widestRow({"longest of all rows", "b"}), metrics.widestRow({"b", "longest of all rows"}));
}

TEST_F(Metrics, EveryPrintableCharacterCounts)
{
    QString row;
    for (char16_t c = 32; c < 127; ++c)
        row += QChar(c);
    EXPECT_NEAR(metrics.widestRow({row}), widthOf(row), 1);
}

TEST_F(Metrics, CharactersBeyondAsciiCountAsTheyArePainted)
{
    const QString row = QStringLiteral("C:\\Übergröße\\日本語\\😀 x");
    EXPECT_EQ(metrics.widestRow({row}), widthOf(row));
}

TEST_F(Metrics, AByteThatIsNotUtf8CountsAsTheCharacterThatIsShownForIt)
{
    const QString carried = QString(QChar(0xDC80)) + "uro";
    EXPECT_EQ(metrics.widestRow({carried}), widthOf(QStringLiteral("€uro")));
}

TEST_F(Metrics, AControlCharacterCountsAsItsPicture)
{
    EXPECT_EQ(metrics.widestRow({QString(QChar(1))}), widthOf(QString(QChar(0x2401))));
    EXPECT_EQ(metrics.widestRow({"\t"}), widthOf(" "));
}

TEST_F(Metrics, AVeryLongRowIsAsWideAsItsCharacters)
{
    const qreal one = QFontMetricsF(plainFont()).horizontalAdvance(u'x');
    const qreal exact = one * megabyte;
    EXPECT_NEAR(metrics.widestRow({QString(megabyte, u'x')}), exact, exact / 1000);

    const qreal wide = QFontMetricsF(plainFont()).horizontalAdvance(QStringLiteral("ö")) * megabyte;
    EXPECT_NEAR(metrics.widestRow({QString(megabyte, QChar(0xF6))}), wide, wide / 1000);
}

TEST_F(Metrics, OrdinaryRowsAreLaidOutWhole)
{
    const QString text(wholeLength, u'x');
    const RowMetrics::Part part = metrics.visiblePart(text, 5000, 5001);
    EXPECT_EQ(part.text.size(), wholeLength);
    EXPECT_EQ(part.offset, 0);
}

TEST_F(Metrics, OfAVeryLongRowOnlyWhatIsSeenIsLaidOut)
{
    const QString text(megabyte, u'x');
    const qreal one = QFontMetricsF(plainFont()).horizontalAdvance(u'x');
    for (const qreal left : {-10.0, 0.0, 1000.0, one * megabyte / 2, one * (megabyte - 10)}) {
        const RowMetrics::Part part = metrics.visiblePart(text, left, left + 1000);
        EXPECT_FALSE(part.text.isEmpty()) << left;
        EXPECT_LE(part.text.size(), int(1000 / one) + 4) << left;
        EXPECT_NEAR(part.offset, std::max(0.0, left), one + 0.01) << left;
    }
}

TEST_F(Metrics, BehindTheEndOfAVeryLongRowNothingIsLaidOut)
{
    const QString text(wholeLength + 1, u'x');
    EXPECT_EQ(metrics.visiblePart(text, 1e9, 1e9 + 100).text, QString());
}

TEST_F(Metrics, APairOfSurrogatesIsNotTakenApart)
{
    QString text;
    while (text.size() <= wholeLength)
        text += QStringLiteral("😀");
    const qreal one = QFontMetricsF(plainFont()).horizontalAdvance(QStringLiteral("😀"));
    for (int i = 0; i < 40; ++i) {
        const RowMetrics::Part part = metrics.visiblePart(text, i * one / 4, i * one / 4 + 100);
        ASSERT_FALSE(part.text.isEmpty());
        EXPECT_TRUE(part.text.front().isHighSurrogate());
        EXPECT_TRUE(part.text.back().isLowSurrogate());
    }
}

TEST_F(Metrics, HalfAPairIsACharacterOfItsOwn)
{
    const QString text = QString(wholeLength, u'x') + QChar(0xD800);
    const RowMetrics::Part part = metrics.visiblePart(text, 0, 1e9);
    EXPECT_EQ(part.text, text);
}

TEST_F(Metrics, RandomTextsAreCoveredWhereTheyAreSeen)
{
    Random random(11);
    const QStringList alphabet{
        "a", "W", " ", "i", QStringLiteral("ö"), QStringLiteral("日"), QStringLiteral("😀"), QString(QChar(0xD83D))};
    for (int round = 0; round < 20; ++round) {
        QString text;
        while (text.size() <= wholeLength)
            text += random.text(alphabet, 600);
        const qreal left = random.number(-100, 40000);
        expectCovers(text, left, left + random.number(1, 3000));
    }
}

TEST(PaintedText, ControlCharactersHavePictures)
{
    EXPECT_EQ(RowMetrics::painted(QString(QChar(0))), QString(QChar(0x2400)));
    EXPECT_EQ(RowMetrics::painted(QString(QChar(0x1B))), QString(QChar(0x241B)));
    EXPECT_EQ(RowMetrics::painted(QString(QChar(0x1F))), QString(QChar(0x241F)));
    EXPECT_EQ(RowMetrics::painted(QString(QChar(0x7F))), QString(QChar(0x2421)));
}

TEST(PaintedText, ATabIsASpace)
{
    EXPECT_EQ(RowMetrics::painted("a\tb"), "a b");
}

// A byte order mark, a soft hyphen, a space without width, marks of the order of letters, new lines, and a control
// character that a byte may stand for.
TEST(PaintedText, WhatWouldNotBeSeenIsASquare)
{
    for (const char16_t code : {u'\xFEFF', u'\xAD', u'\x200B', u'\x202E', u'\x2066', u'\x2028', u'\x2029', u'\x81'})
        EXPECT_EQ(RowMetrics::painted(u'a' + QString(QChar(code)) + u'b'), QStringLiteral("a□b")) << int(code);
}

// The joiners are needed to write words of some scripts.
TEST(PaintedText, EverythingElseStays)
{
    const QString text = QStringLiteral("C:\\a b\\ö 日 😀 \u0646\u200C\u0647 \u0D28\u0D4D\u200D");
    EXPECT_EQ(RowMetrics::painted(text), text);
}

} // namespace
