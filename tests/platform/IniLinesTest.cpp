#include "platform/linux/IniLines.h"

#include "platform/ByteText.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <ostream>
#include <utility>

namespace {

struct TextCase
{
    const char *name;
    QString text;
};

void PrintTo(const TextCase &textCase, std::ostream *stream)
{
    *stream << textCase.name;
}

class OddText : public testing::TestWithParam<TextCase>
{
};

TEST_P(OddText, ComesBack)
{
    IniLines written({});
    written.setText("Settings", "Before", "1");
    written.setText("Settings", "Text", GetParam().text);
    written.setText("Settings", "Zuletzt", "2");
    const IniLines lines(written.content());
    EXPECT_EQ(lines.text("Settings", "Text"), GetParam().text);
    // A text does not become other keys.
    EXPECT_EQ(lines.text("Settings", "Before"), "1");
    EXPECT_EQ(lines.text("Settings", "Zuletzt"), "2");
}

// clang-format off
const std::array textCases {
    TextCase {"Escape", R"(\u0041 \\u0041 \u00 \\ \)"},
    TextCase {"LineSeparator", QString(QChar(u'\x2028')) + QChar(u'\xA0')},
    TextCase {"Empty", ""},
    TextCase {"Blank", " "},
    TextCase {"BlanksAround", "  a  "},
    TextCase {"Comma", "a, b,,c"},
    TextCase {"CommaAlone", ","},
    TextCase {"Semicolon", "a;b ; c"},
    TextCase {"Hash", "# a"},
    TextCase {"Equals", "a=b=="},
    TextCase {"Quotes", R"("a" "b)"},
    TextCase {"Backslashes", R"(C:\new\x41\)"},
    TextCase {"Percent", "%U005C %41 100%"},
    TextCase {"At", "@Invalid()"},
    TextCase {"AtBytes", "@ByteArray(x)"},
    TextCase {"TwoAts", "@@"},
    TextCase {"Section", "[Settings]"},
    TextCase {"LineEnds", "a\r\nb\nc\r"},
    TextCase {"KeyBehindALineEnd", "a\nBefore=9\n[Other]\n"},
    TextCase {"Tab", "\ta\t"},
    TextCase {"Nul", QString("a") + QChar(u'\0') + "b"},
    TextCase {"Control", QString(QChar(u'\x01')) + QChar(u'\x7F') + "1"},
    TextCase {"Umlaut", QString::fromUtf8("Größe é€")},
    TextCase {"Pair", QString::fromUcs4(U"\U0001F480")},
    // A path of bytes that are no UTF-8.
    TextCase {"CarriedByte", QString("caf") + QChar(u'\xDCE9') + "1"},
    TextCase {"Mark", QString(QChar(u'\xFEFF')) + "a"},
    TextCase {"True", "true"},
    TextCase {"Long", QString(100'000, 'x')},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Texts, OddText, testing::ValuesIn(textCases),
                         [](const auto &test) { return test.param.name; });

TEST(IniLinesTest, TextThatAPersonTypedIsGivenAsTyped)
{
    const IniLines lines(
        "; mine\r\n[Settings]\r\nPlain=a b\r\n  Blanks  =  a b  \r\nList=a, b\r\nPercent=100%\r\n"
        "Path=C:\\new\\x41\\user\\u12\r\nCode=caf\\u00e9\r\nSigns=a=b\r\nOld=caf\xE9\r\nPlain=second\r\n");
    const auto text = [&lines](const QString &key) { return lines.text("Settings", key); };
    EXPECT_EQ(text("Plain"), "a b");
    EXPECT_EQ(text("Blanks"), "a b");
    EXPECT_EQ(text("List"), "a, b");
    EXPECT_EQ(text("Percent"), "100%");
    EXPECT_EQ(text("Path"), R"(C:\new\x41\user\u12)");
    EXPECT_EQ(text("Code"), QString::fromUtf8("café"));
    EXPECT_EQ(text("Signs"), "a=b");
    EXPECT_EQ(text("Old"), decodeBytes("caf\xE9"));
    EXPECT_EQ(text("mine"), std::nullopt);
}

TEST(IniLinesTest, LinesOfOthersStayWhereTheyAre)
{
    IniLines lines("# top\n\n[Settings]\n; mine\nMainLeft=1\nnonsense\n\n[Other]\nMainLeft=2\ncaf\xE9=\xFF");
    lines.setText("Settings", "MainLeft", "9");
    lines.setText("Settings", "MainTop", "8");
    lines.setText("Third", "MainTop", "7");
    EXPECT_EQ(lines.content(), "# top\n\n[Settings]\n; mine\nMainLeft=9\nnonsense\nMainTop=8\n\n"
                               "[Other]\nMainLeft=2\ncaf\xE9=\xFF\n[Third]\nMainTop=7\n");
    EXPECT_EQ(lines.text("Other", "MainLeft"), "2");
}

TEST(IniLinesTest, NamesMayBeOdd)
{
    const QStringList names{"a=b", "[a]", "; a", "#a", " a ", "a\\b", "a\nb", "a]", QString::fromUtf8("Größe"), "a/b"};
    IniLines written({});
    for (const QString &section : names) {
        for (const QString &key : names)
            written.setText(section, key, section + '|' + key);
    }
    const IniLines lines(written.content());
    for (const QString &section : names) {
        for (const QString &key : names)
            EXPECT_EQ(lines.text(section, key), section + '|' + key);
    }
}

TEST(IniLinesTest, RandomTextsAreThoseOfAMap)
{
    // Signs of the form in names and texts: a line that is taken for another one gives another text.
    const QStringList alphabet{
        "a", "B", "\\", "u0041", "=", "[", "]", ";", "#", " ", "\n", "\t", QString(QChar(u'\xDCE9'))};
    Random random(11);
    for (int round = 0; round < 50; ++round) {
        IniLines lines(random.chance(50) ? random.bytes(40) : QByteArray());
        std::map<std::pair<QString, QString>, QString> model;
        for (int change = 0; change < 30; ++change) {
            const std::pair place(random.text(alphabet, 2), random.text(alphabet, 2));
            model[place] = random.text(alphabet, 5);
            lines.setText(place.first, place.second, model[place]);
            lines = IniLines(lines.content());
        }
        for (const auto &[place, text] : model)
            EXPECT_EQ(lines.text(place.first, place.second), text) << round;
    }
}

} // namespace
