#include "tests/app/ProgramFixture.h"
#include "tests/support/Random.h"

#include <optional>

namespace {

/// What opening and saving makes of a file, thought of in the plainest way: every line end becomes CR LF, the empty
/// lines at the end go, the last line has a line end too. Nothing for a file that is refused: it has bytes, and every
/// line is empty.
std::optional<QByteArray> savedAgain(QByteArray bytes)
{
    if (bytes.isEmpty())
        return bytes;
    bytes.replace("\r\n", "\n").replace('\r', '\n');
    QList<QByteArray> lines = bytes.split('\n');
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    if (lines.isEmpty())
        return std::nullopt;
    return lines.join("\r\n") + "\r\n";
}

QByteArray allBytes()
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    return bytes;
}

class RoundTrip : public ProgramOnFiles
{
protected:
    void SetUp() override { start(); }

    /// Opens a file of these bytes and saves it with the File menu; the bytes that it has then, nothing when it was
    /// refused.
    [[nodiscard]] std::optional<QByteArray> openAndSave(const QByteArray &bytes)
    {
        const QString path = write("a.zcf", bytes);
        window->LoadAll({path});
        if (window->documents().empty())
            return std::nullopt;
        trigger(*window, "mnuFileSave");
        trigger(*window, "mnuFileClose");
        settle();
        EXPECT_TRUE(window->documents().empty());
        return bytesOf(path);
    }

    void expectOnlyLineEndsChange(const QByteArray &bytes)
    {
        const std::optional<QByteArray> expected = savedAgain(bytes);
        if (!expected) {
            messages.expectShow("Run-time error '5':\n\nInvalid procedure call or argument\n\n"
                                "The file holds only empty lines.\n\n" +
                                    at("a.zcf"),
                                Messages::Icon::Critical);
        }
        const std::optional<QByteArray> saved = openAndSave(bytes);
        messages.verify();
        ASSERT_EQ(saved.has_value(), expected.has_value());
        if (!saved)
            return;
        // A megabyte of a failed comparison helps nobody.
        ASSERT_EQ(saved->size(), expected->size());
        ASSERT_TRUE(*saved == *expected) << "of " << bytes.left(200).toHex(' ').toStdString();
        EXPECT_TRUE(openAndSave(*saved) == saved) << "once more";
    }
};

struct BytesCase
{
    const char *name;
    QByteArray bytes;
};

void PrintTo(const BytesCase &bytesCase, std::ostream *stream)
{
    *stream << bytesCase.name;
}

class RoundTripOf : public RoundTrip, public testing::WithParamInterface<BytesCase>
{
};

TEST_P(RoundTripOf, ChangesLineEndsAndTrailingBlankLinesOnly)
{
    expectOnlyLineEndsChange(GetParam().bytes);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, RoundTripOf, testing::Values(
    BytesCase{"Empty",                  ""},
    BytesCase{"All256Values",           allBytes()},
    BytesCase{"All256ValuesTwice",      allBytes() + allBytes()},
    BytesCase{"MixedLineEnds",          "a\r\nb\nc\rd\n\re\r\r\nf\n\n\rg\r\n"},
    BytesCase{"BlankLinesAtTheEnd",     "a\r\n\r\nb\r\n\r\n\r\n"},
    BytesCase{"BlankLinesFirst",        "\n\n\na"},
    BytesCase{"BlankLinesOnly",         "\r\n\n\r"},
    BytesCase{"OneLineEnd",             "\n"},
    BytesCase{"ByteOrderMark",          "\xEF\xBB\xBF" "a\r\n"},
    BytesCase{"ByteOrderMarkAlone",     "\xEF\xBB\xBF"},
    BytesCase{"ByteOrderMarkInside",    "a\xEF\xBB\xBF" "b\r\n\xEF\xBB\xBF\r\n"},
    BytesCase{"Utf16LittleEndian",      QByteArrayLiteral("\xFF\xFE" "a\0b\0\r\0\n\0")},
    BytesCase{"Utf16BigEndian",         QByteArrayLiteral("\xFE\xFF\0a\0b\0\r\0\n")},
    BytesCase{"NoLineEndAtTheEnd",      "a\r\nb"},
    BytesCase{"Nul",                    QByteArrayLiteral("a\0b\r\n\0\r\n\0\0")},
    BytesCase{"BlanksAreNoBlankLines",  "a\r\n \r\n\t\r\n"},
    BytesCase{"InvalidUtf8",            "\x80 \xC3 \xC3\x28 \xE2\x82 \xF0\x9F\x98 \xFE\xFF\r\n"},
    BytesCase{"OverlongUtf8",           "\xC0\xAF \xE0\x80\xAF \xF0\x80\x80\xAF\r\n"},
    BytesCase{"SurrogatesInUtf8",       "\xED\xA0\x80 \xED\xBF\xBF \xED\xA0\xBD\xED\xB8\x80\r\n"},
    BytesCase{"CarriersInUtf8",         "\xED\xB2\x80 \xED\xB3\xBF\r\n"},
    BytesCase{"BeyondUnicode",          "\xF4\x8F\xBF\xBF \xF4\x90\x80\x80 \xF5\x80\x80\x80\r\n"},
    BytesCase{"NonCharacters",          "\xEF\xBF\xBE \xEF\xBF\xBF \xEF\xB7\x90\r\n"},
    BytesCase{"CharacterAcrossAnEnd",   "\xE2\x82\r\n\xAC\r\n"},
    BytesCase{"Windows1252",            "Gr\xF6\xDF" "e \x80 \x81 \x93\x94\r\n"},
    BytesCase{"Utf8",                   "Gr\xC3\xB6\xC3\x9F" "e \xE6\x97\xA5 \xF0\x9F\x98\x80\r\n"},
    BytesCase{"UnicodeLineSeparators",  "a\xE2\x80\xA8" "b\xE2\x80\xA9" "c\xC2\x85" "d\x0B" "e\x0C" "f\r\n"},
    BytesCase{"EndOfFileCharacter",     "a\r\n\x1A" "b\r\n"},
    BytesCase{"LineOfAMegabyte",        QByteArray(1 << 20, 'x') + "\nshort"},
    BytesCase{"LineOfAMegabyteOfBytes", QByteArray(1 << 20, '\xFF') + "\nshort"},
    BytesCase{"CarriageReturnLast",     "a\r"},
    BytesCase{"Escapes",                "C:\\a\\u0x00E4 \"b c\" $(A)\r\n#define X \"\r\n"}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

// The reader gets a file in pieces: what belongs together is cut at every place around their ends.
TEST_F(RoundTrip, OfLineEndsAndCharactersAtTheEndsOfPieces)
{
    constexpr int piece = 256 * 1024;
    for (const QByteArray &inside : {QByteArray("\r\n"), QByteArray("\xF0\x9F\x98\x80"), QByteArray("\r\r\n\n")}) {
        for (int shift = -5; shift <= 1; ++shift)
            expectOnlyLineEndsChange(QByteArray(piece + shift, 'x') + inside + "end\r\n\r\n");
    }
}

TEST_F(RoundTrip, OfRandomBytes)
{
    Random random(1);
    for (int round = 0; round < 60; ++round)
        expectOnlyLineEndsChange(random.bytes(3000));
}

TEST_F(RoundTrip, OfRandomPiecesThatMatter)
{
    Random random(2);
    const QList<QByteArray> pieces{"\r",
                                   "\n",
                                   "\r\n",
                                   "",
                                   "a",
                                   " ",
                                   "\t",
                                   QByteArray(1, '\0'),
                                   "\"",
                                   "\xC3\xA4",
                                   "\xE4",
                                   "\xE6\x97",
                                   "\xF0\x9F\x98\x80",
                                   "\xED\xA0\x80",
                                   "\xEF\xBB\xBF",
                                   "\x80",
                                   "\xFF"};
    for (int round = 0; round < 150; ++round) {
        QByteArray bytes;
        for (int count = random.number(0, 60); count > 0; --count)
            bytes += random.oneOf(pieces);
        expectOnlyLineEndsChange(bytes);
    }
}

TEST_F(RoundTrip, OfTwoDocumentsAtOnceKeepsThemApart)
{
    const QByteArray first = allBytes();
    const QByteArray second = "\xFF\xFE\nb\n";
    const QString firstPath = write("first.zcf", first);
    const QString secondPath = write("second.zcf", second);
    window->LoadAll({firstPath, secondPath});
    trigger(*window, "mnuFileSave");
    activate(document(0));
    trigger(*window, "mnuFileSave");
    EXPECT_EQ(bytesOf(firstPath), savedAgain(first));
    EXPECT_EQ(bytesOf(secondPath), savedAgain(second));
}

} // namespace
