#include "platform/DistinguishedName.h"

#include "platform/ByteText.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

struct Split
{
    const char *tag;
    const char *name;
    QStringList parts;
};

class SplitName : public testing::TestWithParam<Split>
{
};

TEST_P(SplitName, HasItsRelativeNames)
{
    EXPECT_EQ(relativeNames(GetParam().name), GetParam().parts);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Names, SplitName, testing::Values(
    Split{"Empty",            "",                        {}},
    Split{"One",              "dc=x",                    {"dc=x"}},
    Split{"Two",              "cn=a,dc=x",               {"cn=a", "dc=x"}},
    Split{"BlanksAround",     " cn=a , dc=x ",           {"cn=a", "dc=x"}},
    Split{"EscapedComma",     "cn=a\\,b,dc=x",           {"cn=a\\,b", "dc=x"}},
    // The backslash is escaped, and not the comma.
    Split{"EscapedBackslash", "cn=a\\\\,dc=x",           {"cn=a\\\\", "dc=x"}},
    Split{"CommaInHex",       "cn=a\\2Cb,dc=x",          {"cn=a\\2Cb", "dc=x"}},
    Split{"Quoted",           "cn=\"a,b\",dc=x",         {"cn=\"a,b\"", "dc=x"}},
    Split{"EscapedQuote",     "cn=a\\\"b,dc=x",          {"cn=a\\\"b", "dc=x"}},
    Split{"EscapedBlankEnd",  "cn=a\\ ,dc=x",            {"cn=a\\ ", "dc=x"}},
    Split{"TwoValues",        "cn=a+sn=b,dc=x",          {"cn=a+sn=b", "dc=x"}},
    Split{"EmptyParts",       ",dc=x,",                  {"", "dc=x", ""}},
    Split{"LastBackslash",    "dc=x\\",                  {"dc=x\\"}}
), [](const auto &tested) { return tested.param.tag; });
// clang-format on

struct Pair
{
    const char *tag;
    const char *one;
    const char *other;
    bool isSame;
};

class ComparedNames : public testing::TestWithParam<Pair>
{
};

TEST_P(ComparedNames, AreTheSameOrNot)
{
    EXPECT_EQ(comparableName(GetParam().one) == comparableName(GetParam().other), GetParam().isSame);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Names, ComparedNames, testing::Values(
    Pair{"Case",              "DC=Example",      "dc=example",             true},
    Pair{"Blanks",            " cn = a ",        "cn=a",                   true},
    Pair{"HexAndBackslash",   "cn=a\\2cb",       "cn=a\\,b",               true},
    Pair{"Quoted",            "cn=\"a,b\"",      "cn=a\\,b",               true},
    Pair{"Utf8Hex",           "cn=\\C3\\A9",     "cn=\xC3\xA9",            true},
    Pair{"Utf8HexCase",       "cn=\\C3\\89",     "cn=\xC3\xA9",            true},
    Pair{"OtherValue",        "cn=a",            "cn=b",                   false},
    Pair{"OtherType",         "cn=a",            "ou=a",                   false},
    // A plus sign in a value is not the one between two values.
    Pair{"PlusInValue",       "cn=a\\+sn=b",     "cn=a+sn=b",              false},
    Pair{"EscapedBlank",      "cn=\\ a",         "cn=a",                   false},
    Pair{"InnerBlanks",       "cn=a  b",         "cn=a b",                 false}
), [](const auto &tested) { return tested.param.tag; });
// clang-format on

TEST(DistinguishedNameTest, NamesForUrlsMeanTheSameAndHaveNoQuestionMarksAndPercentSigns)
{
    EXPECT_EQ(nameForUrl("cn=a?b%41c,dc=x"), QString("cn=a\\3Fb\\2541c,dc=x"));
    // Escaped already, by a backslash that is not left over.
    EXPECT_EQ(nameForUrl("cn=a\\?"), QString("cn=a\\3F"));
    EXPECT_EQ(nameForUrl("cn=a\\\\?"), QString("cn=a\\\\\\3F"));
    EXPECT_EQ(nameForUrl("cn=a\\,b,dc=x"), QString("cn=a\\,b,dc=x"));
}

TEST(DistinguishedNameTest, AUrlHasPrintableAsciiOnly)
{
    EXPECT_EQ(nameForUrl("cn=\xC3\xA9\xF0\x9F\x99\x82,dc=x"), QString("cn=\\C3\\A9\\F0\\9F\\99\\82,dc=x"));
    EXPECT_EQ(nameForUrl("cn=a\nb\x7F"), QString("cn=a\\0Ab\\7F"));
    // Behind a backslash that is not needed.
    EXPECT_EQ(nameForUrl("cn=\\\xC3\xA9\\\xF0\x9F\x99\x82"), QString("cn=\\C3\\A9\\F0\\9F\\99\\82"));
    // A byte that is no character stays that byte.
    EXPECT_EQ(nameForUrl(decodeBytes("cn=\xE9")), QString("cn=\\E9"));
    EXPECT_EQ(nameForUrl("cn= ~"), QString("cn= ~"));
}

// Any text, with many of the characters that mean something: nothing of it gets lost, and names that are put together
// of parts that stand for themselves are taken apart into these.
TEST(DistinguishedNameTest, AnyTextIsSplitWithoutALoss)
{
    Random random(8);
    const QStringList pieces{"a", "=", ",", "+", "\"", "\\",       " ",  "#",
                             ";", "<", "?", "%", "2C", "\xC3\xA9", "\n", "\xF0\x9F\x99\x82"};
    for (int run = 0; run < 3000; ++run) {
        const QString text = random.text(pieces, 24);
        const QStringList parts = relativeNames(text);
        QString joined = parts.join(u',');
        QString without = text;
        EXPECT_EQ(joined.remove(u' '), without.remove(u' ')) << text.toStdString();
        const QString safe = nameForUrl(text);
        EXPECT_FALSE(safe.contains(u'?') || safe.contains(u'%')) << text.toStdString();
        if (!text.contains(u'"')) {
            ASSERT_EQ(relativeNames(safe).size(), parts.size()) << text.toStdString();
            for (qsizetype i = 0; i < parts.size(); ++i)
                EXPECT_EQ(comparableName(relativeNames(safe)[i]), comparableName(parts[i])) << text.toStdString();
        }
    }
}

} // namespace
