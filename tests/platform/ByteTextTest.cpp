#include "platform/ByteText.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <array>

namespace {

/// A byte as it is carried.
QChar carried(int byte)
{
    return QChar(char16_t(0xDC00 + byte));
}

QString carriedText(const QByteArray &bytes)
{
    QString text;
    for (const char byte : bytes)
        text += static_cast<uchar>(byte) < 0x80 ? QChar(char16_t(byte)) : carried(static_cast<uchar>(byte));
    return text;
}

struct BytesCase
{
    const char *name;
    QByteArray bytes;
    QString text;
};

void PrintTo(const BytesCase &bytesCase, std::ostream *stream)
{
    *stream << bytesCase.name;
}

class ByteText : public testing::TestWithParam<BytesCase>
{
};

TEST_P(ByteText, IsDecoded)
{
    EXPECT_EQ(decodeBytes(GetParam().bytes), GetParam().text);
}

TEST_P(ByteText, IsEncodedAgain)
{
    EXPECT_EQ(encodeText(GetParam().text), GetParam().bytes);
}

TEST_P(ByteText, IsTheSameAmongOtherText)
{
    // What comes before or behind it must not become a part of it, nor keep it from being seen.
    const QString aroundText = QString::fromUtf8("a\u00E9\u20AC\U0001F480");
    const QByteArray aroundBytes = aroundText.toUtf8();
    EXPECT_EQ(decodeBytes(aroundBytes + GetParam().bytes + aroundBytes), aroundText + GetParam().text + aroundText);
    EXPECT_EQ(encodeText(aroundText + GetParam().text + aroundText), aroundBytes + GetParam().bytes + aroundBytes);
    const QByteArray ill("\xFF");
    EXPECT_EQ(decodeBytes(ill + GetParam().bytes + ill), carried(0xFF) + GetParam().text + carried(0xFF));
}

BytesCase wellFormed(const char *name, const QByteArray &bytes, const std::u16string &text)
{
    // The toolkit's own conversions take a mark in front away.
    return {name, bytes, QString(reinterpret_cast<const QChar *>(text.data()), qsizetype(text.size()))};
}

/// Bytes of which every one that is not ASCII is carried by itself.
BytesCase illFormed(const char *name, const QByteArray &bytes)
{
    return {name, bytes, carriedText(bytes)};
}

// clang-format off
const std::vector<BytesCase> bytesCases {
    wellFormed("Nothing",               "",                     u""),
    wellFormed("Ascii",                 "C:\\x R",              u"C:\\x R"),
    wellFormed("Nul",                   QByteArray(1, '\0'),    std::u16string(1, u'\0')),
    wellFormed("LastOfOneByte",         "\x7F",                 u"\u007F"),
    wellFormed("FirstOfTwoBytes",       "\xC2\x80",             u"\u0080"),
    wellFormed("LastOfTwoBytes",        "\xDF\xBF",             u"\u07FF"),
    wellFormed("FirstOfThreeBytes",     "\xE0\xA0\x80",         u"\u0800"),
    wellFormed("BelowTheSurrogates",    "\xED\x9F\xBF",         u"\uD7FF"),
    wellFormed("AboveTheSurrogates",    "\xEE\x80\x80",         u"\uE000"),
    wellFormed("ReplacementCharacter",  "\xEF\xBF\xBD",         u"\uFFFD"),
    wellFormed("LastOfThreeBytes",      "\xEF\xBF\xBF",         u"\uFFFF"),
    wellFormed("FirstOfFourBytes",      "\xF0\x90\x80\x80",     u"\U00010000"),
    wellFormed("LastOfFourBytes",       "\xF4\x8F\xBF\xBF",     u"\U0010FFFF"),
    wellFormed("Noncharacter",          "\xEF\xB7\x90",         u"\uFDD0"),
    // A mark is text like any other, at the start and elsewhere.
    wellFormed("ByteOrderMark",         "\xEF\xBB\xBF",         u"\uFEFF"),
    wellFormed("TwoByteOrderMarks",     "\xEF\xBB\xBF\xEF\xBB\xBF" "a", u"\uFEFF\uFEFFa"),
    wellFormed("MarkOfTheOtherOrder",   "\xEF\xBF\xBE",         u"\uFFFE"),
    // Pairs whose low half is a number that carries a byte elsewhere.
    wellFormed("PairWithTheFirstCarrier", "\xF0\x9F\x92\x80",   u"\U0001F480"),
    wellFormed("PairWithTheLastCarrier",  "\xF0\x9F\x93\xBF",   u"\U0001F4FF"),
    wellFormed("TwoSuchPairs",          "\xF0\x9F\x92\x80\xF0\x9F\x92\x80", u"\U0001F480\U0001F480"),

    illFormed("LoneContinuation",       "\x80"),
    illFormed("LastLoneContinuation",   "\xBF"),
    illFormed("ManyContinuations",      "\x80\xBF\x80\xBF\x80"),
    illFormed("OverlongOfTwoBytes",     "\xC0\xAF"),
    illFormed("LastOverlongOfTwoBytes", "\xC1\xBF"),
    illFormed("OverlongOfThreeBytes",   "\xE0\x80\xAF"),
    illFormed("LastOverlongOfThreeBytes", "\xE0\x9F\xBF"),
    illFormed("OverlongOfFourBytes",    "\xF0\x80\x80\xAF"),
    illFormed("LastOverlongOfFourBytes", "\xF0\x8F\xBF\xBF"),
    illFormed("OverlongNul",            "\xC0\x80"),
    illFormed("FirstHighSurrogate",     "\xED\xA0\x80"),
    illFormed("LastHighSurrogate",      "\xED\xAF\xBF"),
    illFormed("FirstLowSurrogate",      "\xED\xB0\x80"),
    // The text's own carrier, written as if it were a character.
    illFormed("EncodedCarrier",         "\xED\xB2\x80"),
    illFormed("LastLowSurrogate",       "\xED\xBF\xBF"),
    illFormed("EncodedPair",            "\xED\xA0\xBD\xED\xB2\x80"),
    illFormed("BeyondUnicode",          "\xF4\x90\x80\x80"),
    illFormed("FarBeyondUnicode",       "\xF5\x80\x80\x80"),
    illFormed("FiveBytes",              "\xF8\x88\x80\x80\x80"),
    illFormed("SixBytes",               "\xFC\x84\x80\x80\x80\x80"),
    illFormed("NeverAByte",             "\xFE\xFF"),
    illFormed("LeadOfTwoAlone",         "\xC3"),
    illFormed("LeadOfTwoBeforeAscii",   "\xC3" "a"),
    illFormed("LeadOfThreeAlone",       "\xE2"),
    illFormed("TwoOfThree",             "\xE2\x82"),
    illFormed("TwoOfThreeBeforeAscii",  "\xE2\x82" "a"),
    illFormed("OneOfThreeBeforeAscii",  "\xE2" "a\x82"),
    illFormed("ThreeOfFour",            "\xF0\x9F\x92"),
    illFormed("ThreeOfFourBeforeAscii", "\xF0\x9F\x92" "a"),
    illFormed("TwoOfFour",              "\xF0\x9F"),
    illFormed("Latin1Word",             "caf\xE9 \xC4\xD6\xDC"),
    illFormed("Utf16Mark",              "\xFF\xFE" "a"),

    {"TruncatedThenWhole",              "\xE2\x82\xE2\x82\xAC",  carriedText("\xE2\x82") + u'\u20AC'},
    {"LeadThenWhole",                   "\xC3\xC3\xA9",          carriedText("\xC3") + u'\u00E9'},
    {"WholeThenContinuation",           "\xC3\xA9\xA9",          QChar(u'\u00E9') + carriedText("\xA9")},
    {"PairThenContinuation",            "\xF0\x9F\x92\x80\x80",  QString::fromUcs4(U"\U0001F480") + carriedText("\x80")},
    {"ContinuationThenPair",            "\x80\xF0\x9F\x92\x80",  carriedText("\x80") + QString::fromUcs4(U"\U0001F480")},
    // A decoder that is started anew behind an ill-formed byte must not eat the mark.
    {"MarkBehindAnIllFormedByte",       "\xFF\xEF\xBB\xBF" "a",  carriedText("\xFF") + u'\uFEFF' + u'a'},
    {"MarkBeforeAnIllFormedByte",       "\xEF\xBB\xBF\xFF",      QChar(u'\uFEFF') + carriedText("\xFF")},
    {"NulAmongIllFormedBytes",          QByteArray("\xFF\0\xFE", 3), carriedText(QByteArray("\xFF\0\xFE", 3))},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Bytes, ByteText, testing::ValuesIn(bytesCases),
                         [](const auto &test) { return test.param.name; });

TEST(ByteTextValues, EveryByteAloneComesBack)
{
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray bytes(1, static_cast<char>(byte));
        EXPECT_EQ(decodeBytes(bytes), QString(byte < 0x80 ? QChar(char16_t(byte)) : carried(byte))) << byte;
        EXPECT_EQ(encodeText(decodeBytes(bytes)), bytes) << byte;
    }
}

TEST(ByteTextValues, EveryTwoBytesComeBack)
{
    for (int pair = 0; pair < 65'536; ++pair) {
        const QByteArray bytes{QByteArray(1, static_cast<char>(pair >> 8)) + static_cast<char>(pair & 0xFF)};
        ASSERT_EQ(encodeText(decodeBytes(bytes)), bytes) << pair;
    }
}

TEST(ByteTextValues, EveryCharacterIsUtf8)
{
    QString all;
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code < 0xD800 || code > 0xDFFF)
            all += QChar::fromUcs4(code);
    }
    const QByteArray utf8 = all.toUtf8();
    EXPECT_TRUE(decodeBytes(utf8) == all);
    EXPECT_TRUE(encodeText(all) == utf8);
    EXPECT_TRUE(shownText(all) == all);
    // The same by another way through the code: one byte is none of UTF-8.
    EXPECT_TRUE(decodeBytes(utf8 + '\xFF') == all + carried(0xFF));
    EXPECT_TRUE(encodeText(all + carried(0xFF)) == utf8 + '\xFF');
    EXPECT_TRUE(shownText(all + carried(0xFF)) == all + QChar(u'\u00FF'));
}

TEST(ByteTextValues, HalvesOfPairsThatCarryNothingBecomeTheReplacementCharacter)
{
    const QByteArray replacement("\xEF\xBF\xBD");
    for (int code = 0xD800; code <= 0xDFFF; ++code) {
        const QChar half{char16_t(code)};
        const bool isCarrier = code >= 0xDC80 && code <= 0xDCFF;
        const QByteArray expected = isCarrier ? QByteArray(1, static_cast<char>(code - 0xDC00)) : replacement;
        ASSERT_EQ(encodeText(QString(half)), expected) << code;
        ASSERT_EQ(encodeText(QString("a") + half + "b"), "a" + expected + "b") << code;
    }
    const QChar high(u'\xD83D');
    EXPECT_EQ(encodeText(QString(high) + high), replacement + replacement);
    // The last of three halves is the pair's, the first has none.
    EXPECT_EQ(encodeText(QString(high) + QString::fromUcs4(U"\U0001F480")), replacement + "\xF0\x9F\x92\x80");
    EXPECT_EQ(encodeText(QString::fromUcs4(U"\U0001F480") + high), "\xF0\x9F\x92\x80" + replacement);
}

TEST(ByteTextValues, PartOfATextIsEncoded)
{
    const QString text = QString("ab") + carried(0xE9) + "cd";
    EXPECT_EQ(encodeText(QStringView(text).sliced(1, 3)), "b\xE9"
                                                          "c");
    EXPECT_EQ(encodeText(QStringView()), QByteArray());
    EXPECT_EQ(decodeBytes(QByteArrayView()), QString());
}

TEST(ByteTextValues, LineOfAMegabyte)
{
    const QByteArray utf8 = QByteArray("C:\\Straße\\日本語\\💀 ").repeated(40'000);
    ASSERT_GT(utf8.size(), 1'000'000);
    EXPECT_EQ(decodeBytes(utf8), QString::fromUtf8(utf8));
    EXPECT_EQ(encodeText(decodeBytes(utf8)), utf8);

    const QByteArray mixed = QByteArray("C:\\Stra\xDF\x65\\日本語\\💀 ").repeated(40'000);
    const QString text = decodeBytes(mixed);
    EXPECT_EQ(text.count(carried(0xDF)), 40'000);
    EXPECT_EQ(encodeText(text), mixed);

    const QByteArray illFormed(1'000'000, '\xE9');
    EXPECT_EQ(decodeBytes(illFormed), QString(1'000'000, carried(0xE9)));
    EXPECT_EQ(encodeText(decodeBytes(illFormed)), illFormed);
}

// Windows code page 1252, bytes 0x80 to 0xFF, written out as the text that a Windows editor shows. The bytes 81, 8D,
// 8F, 90 and 9D have no character there; Windows maps them to the control characters of the same numbers.
const std::u16string codePage1252 = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F"
                                    u"\u0090‘’“”•–—˜™š›œ\u009DžŸ"
                                    u"\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯"
                                    u"°±²³´µ¶·¸¹º»¼½¾¿"
                                    u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏ"
                                    u"ÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"
                                    u"àáâãäåæçèéêëìíîï"
                                    u"ðñòóôõö÷øùúûüýþÿ";

TEST(ShownText, CarriedByteIsItsCharacterInTheWindowsCodePage)
{
    ASSERT_EQ(codePage1252.size(), 128U);
    QString all;
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const QString expected{QChar(codePage1252[size_t(byte) - 0x80])};
        EXPECT_EQ(shownText(QString(carried(byte))), expected) << std::hex << byte;
        all += carried(byte);
    }
    EXPECT_EQ(shownText(all), QString::fromStdU16String(codePage1252));
}

TEST(ShownText, TheRestStays)
{
    for (const QString &text : {QString(), QString("C:\\x R"), QString::fromUtf8("é€"), QString(QChar(u'\0')),
                                QString::fromUcs4(U"\U0001F480"), QString(QChar(u'\xDC7F')), QString(QChar(u'\xDD00')),
                                QString(QChar(u'\xD83D')), QString(QChar(u'\xFEFF'))})
        EXPECT_EQ(shownText(text), text);
}

TEST(ShownText, PairsBesideCarriedBytesStay)
{
    const QString skull = QString::fromUcs4(U"\U0001F480");
    EXPECT_EQ(shownText(carried(0x80) + skull + carried(0x80) + skull), QString(u'€') + skull + u'€' + skull);
    // A first half that stands alone takes no part of a pair with it.
    EXPECT_EQ(shownText(QString(QChar(u'\xD83D')) + skull), QString(QChar(u'\xD83D')) + skull);
}

TEST(ShownText, TheTextItselfIsNotChanged)
{
    const QString text = QString("caf") + carried(0xE9);
    EXPECT_EQ(shownText(text), QString::fromUtf8("café"));
    EXPECT_EQ(text, QString("caf") + QChar(u'\xDCE9'));
    EXPECT_EQ(encodeText(text), "caf\xE9");
}

TEST(ByteTextProperty, RandomBytesComeBack)
{
    // Every byte alike is nearly never well-formed; pieces of sequences make both, in every neighbourhood.
    Random random(21);
    const std::array<QByteArray, 16> pieces{"a",
                                            QByteArray(1, '\0'),
                                            "\r\n",
                                            "\xC3\xA9",
                                            "\xE2\x82\xAC",
                                            "\xF0\x9F\x92\x80",
                                            "\xEF\xBB\xBF",
                                            "\xED\xA0\x80",
                                            "\xC3",
                                            "\xE2\x82",
                                            "\xF0\x9F\x92",
                                            "\xF4\x90",
                                            "\x80",
                                            "\xBF",
                                            "\xC0",
                                            "\xFF"};
    for (int round = 0; round < 30'000; ++round) {
        QByteArray bytes = random.bytes(12);
        for (int count = random.number(0, 12); count > 0; --count)
            bytes += random.oneOf(pieces);
        const QString text = decodeBytes(bytes);
        ASSERT_EQ(encodeText(text), bytes);
        // A carrier stands for exactly one byte, so nothing is carried that need not be: what is shown as a carrier is
        // not a part of a well-formed sequence.
        ASSERT_EQ(shownText(text).size(), text.size());
    }
}

TEST(ByteTextProperty, RandomUtf8IsDecodedAsTheToolkitDecodesIt)
{
    Random random(22);
    for (int round = 0; round < 20'000; ++round) {
        QString text;
        for (int count = random.number(1, 20); count > 0; --count) {
            const std::array<char32_t, 5> limits{0x7F, 0x7FF, 0xD7FF, 0xFFFD, 0x10FFFF};
            auto code = char32_t(random.number(1, int(random.oneOf(limits))));
            if (code >= 0xD800 && code <= 0xDFFF)
                code = 0xFFFD;
            text += QString::fromUcs4(&code, 1);
        }
        // A mark in front would be the one difference: there it is kept.
        text.prepend("a");
        const QByteArray bytes = text.toUtf8();
        ASSERT_EQ(decodeBytes(bytes), QString::fromUtf8(bytes));
        ASSERT_EQ(decodeBytes(bytes), text);
        ASSERT_EQ(encodeText(text), bytes);
    }
}

TEST(ByteTextProperty, JoinedPiecesAreTheSameAsTheWhole)
{
    // Rows are decoded one by one; an ASCII character between pieces keeps their sequences apart.
    Random random(23);
    for (int round = 0; round < 10'000; ++round) {
        const QByteArray first = random.bytes(8);
        const QByteArray second = random.bytes(8);
        ASSERT_EQ(decodeBytes(first + '\n' + second), decodeBytes(first) + '\n' + decodeBytes(second));
    }
}

} // namespace
