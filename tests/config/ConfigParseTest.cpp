#include "config/ConfigParse.h"

#include "platform/RuntimeError.h"
#include "tests/config/PlainGrammar.h"
#include "tests/support/Errors.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

int errorNumberOfParsing(const QString &text)
{
    return errorNumberOf([&] { (void)ConfigParse().ParseFile(text); });
}

TEST(ParseFile, EveryLineEndGivesTheSameLines)
{
    const QStringList lines{"a", "", "b"};
    EXPECT_EQ(ConfigParse().ParseFile("a\r\n\r\nb\r\n"), lines);
    EXPECT_EQ(ConfigParse().ParseFile("a\n\nb\n"), lines);
    EXPECT_EQ(ConfigParse().ParseFile("a\r\rb\r"), lines);
    EXPECT_EQ(ConfigParse().ParseFile("a\r\n\rb"), lines);
}

TEST(ParseFile, DropsEmptyLinesAtTheEndOnly)
{
    EXPECT_EQ(ConfigParse().ParseFile("\na\n\nb\n\n\n"), QStringList({"", "a", "", "b"}));
    // A line of spaces is not empty.
    EXPECT_EQ(ConfigParse().ParseFile("a\n \n\n"), QStringList({"a", " "}));
}

TEST(ParseFile, TextWithoutALineThatIsNotEmptyRaisesInvalidCall)
{
    EXPECT_EQ(errorNumberOfParsing(""), 5);
    EXPECT_EQ(errorNumberOfParsing("\r\n"), 5);
    EXPECT_EQ(errorNumberOfParsing("\n\n\r\r\n"), 5);
    EXPECT_EQ(errorNumberOfParsing("\n "), 0);
}

TEST(ParseFile, RandomTextsAreCutAsThePlainModelCutsThem)
{
    Random random(21);
    const QStringList pieces{"\r\n", "\r", "\n", "a", " ", "\t", "\u00E9", QString(QChar(0))};
    for (int round = 0; round < 30'000; ++round) {
        const QString text = random.text(pieces, 10);
        QStringList expected;
        try {
            expected = plain::linesOf(text);
        } catch (const plain::NegativeLength &) {
            ASSERT_EQ(errorNumberOfParsing(text), 5) << text.toStdString();
            continue;
        }
        ASSERT_EQ(ConfigParse().ParseFile(text), expected) << text.toStdString();
    }
}

} // namespace
