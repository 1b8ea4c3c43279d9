#include "config/LineReader.h"

#include "config/RowList.h"
#include "platform/ByteText.h"
#include "platform/RuntimeError.h"
#include "tests/config/PlainGrammar.h"
#include "tests/support/Errors.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

QStringList linesOf(const QByteArray &bytes, int pieceSize)
{
    LineReader reader("file.zcf");
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize)
        reader.take(QByteArrayView(bytes).sliced(at, qMin(qsizetype(pieceSize), bytes.size() - at)));
    return reader.lines();
}

RuntimeError errorOfLines(LineReader &reader)
{
    const auto error = errorOf([&] { (void)reader.lines(); });
    EXPECT_TRUE(error);
    return error.value_or(RuntimeError(RuntimeError::DeviceError));
}

RuntimeError errorOfLines(const QByteArray &bytes)
{
    LineReader reader("file.zcf");
    reader.take(bytes);
    return errorOfLines(reader);
}

TEST(LineReader, NothingReadGivesNoLines)
{
    EXPECT_EQ(LineReader().lines(), QStringList());
}

TEST(LineReader, EmptyLinesOnlyRaiseInvalidCall)
{
    for (const char *bytes : {"\n", "\r", "\r\n", "\n\n\r\n\r"}) {
        const RuntimeError error = errorOfLines(bytes);
        EXPECT_EQ(error.number(), 5);
        EXPECT_EQ(error.path(), "file.zcf");
    }
}

TEST(LineReader, LineEndCutInTwoIsOneLineEnd)
{
    EXPECT_EQ(linesOf("a\r\nb\r\n", 2), QStringList({"a", "b"}));
    EXPECT_EQ(linesOf("a\r\nb\r\n", 1), QStringList({"a", "b"}));
}

TEST(LineReader, ByteOrderMarkBelongsToTheFirstLine)
{
    EXPECT_EQ(linesOf("\xEF\xBB\xBF"
                      "a\nb",
                      100),
              QStringList({QChar(0xFEFF) + QString("a"), "b"}));
}

TEST(LineReader, CharacterCutInTwoByThePiecesIsWhole)
{
    EXPECT_EQ(linesOf("\xE2\x82\xAC\n", 1), QStringList{"\u20AC"});
}

TEST(LineReader, HoldsAsManyLinesAsADocument)
{
    const QByteArray full = QByteArray("x\n").repeated(RowList::maximumRows);
    EXPECT_EQ(linesOf(full + "\n\n\n", 4096).size(), 32767);
    // The same number when the last lines are empty lines that count because one more follows.
    const QByteArray sparse = QByteArray("\n").repeated(RowList::maximumRows - 1) + "x";
    EXPECT_EQ(linesOf(sparse, 4096).size(), 32767);
}

TEST(LineReader, OneLineTooManyRaisesOverflowWithLimitAndCount)
{
    const RuntimeError error = errorOfLines(QByteArray("x\n").repeated(RowList::maximumRows + 1));
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.detail(), "A document holds at most 32767 lines. This one has 32768.");
    EXPECT_EQ(error.path(), "file.zcf");
    const RuntimeError sparse = errorOfLines(QByteArray("\n").repeated(RowList::maximumRows) + "x\n\n");
    EXPECT_EQ(sparse.detail(), "A document holds at most 32767 lines. This one has 32768.");
}

TEST(LineReader, CountsEveryLineOfAFileThatIsTooLong)
{
    EXPECT_EQ(errorOfLines(QByteArray("x\r\n\r\n").repeated(20'000)).detail(),
              "A document holds at most 32767 lines. This one has 39999.");
}

TEST(LineReader, TooManyBytesRaiseOverflow)
{
    static_assert(LineReader::mostBytes == 1'073'741'824);
    LineReader fits("file.zcf", 1000);
    fits.take(QByteArray(1000, 'x'));
    EXPECT_EQ(fits.lines(), QStringList{QString(1000, u'x')});

    LineReader reader("file.zcf", 1000);
    reader.take(QByteArray(999, 'x'));
    reader.take("\nyz");
    const RuntimeError error = errorOfLines(reader);
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.detail(), "A document holds at most 1000 bytes. This one has 1002.");
}

TEST(LineReader, TooManyBytesAndLinesRaiseOverflowForTheBytes)
{
    // Lines that come in two pieces behind the limit are not counted: a number of lines would be wrong.
    LineReader reader("file.zcf", 4);
    for (int pair = 0; pair < 40'000; ++pair) {
        reader.take("a\nb");
        reader.take("\n");
    }
    EXPECT_EQ(errorOfLines(reader).detail(), "A document holds at most 4 bytes. This one has 160000.");
}

TEST(LineReader, RandomBytesInRandomPiecesGiveTheLinesOfThePlainModel)
{
    Random random(31);
    for (int round = 0; round < 20'000; ++round) {
        QByteArray bytes = random.bytes(12);
        for (char &byte : bytes) {
            if (random.chance(40))
                byte = random.oneOf(QByteArray("\r\n\na"));
        }
        QStringList expected;
        try {
            // Half a character at the end of a line must not take the line end into itself.
            for (const QString &line : plain::linesOf(QString::fromLatin1(bytes)))
                expected << decodeBytes(line.toLatin1());
        } catch (const plain::NegativeLength &) {
            if (bytes.isEmpty())
                EXPECT_EQ(linesOf(bytes, 1), QStringList());
            else
                EXPECT_EQ(errorOfLines(bytes).number(), 5);
            continue;
        }
        ASSERT_EQ(linesOf(bytes, random.number(1, 5)), expected);
    }
}

} // namespace
