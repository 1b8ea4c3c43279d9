#include "editors/ExtractOption.h"

#include <gtest/gtest.h>

#include <array>

namespace {

const QLatin1String evt("EVT");

struct NumberCase
{
    const char *name;
    QString flags;
    QString number;
    QString left;
};

void PrintTo(const NumberCase &numberCase, std::ostream *stream)
{
    *stream << numberCase.name;
}

class NumericOption : public testing::TestWithParam<NumberCase>
{
};

TEST_P(NumericOption, IsTakenWithItsNumber)
{
    QString flags = GetParam().flags;
    const QString number = ExtractOption(flags, evt, Numeric());
    EXPECT_EQ(number, GetParam().number);
    EXPECT_EQ(flags, GetParam().left);
}

// clang-format off
const std::array numberCases {
    NumberCase {"Alone",                    "EVT5",         "5",    ""},
    NumberCase {"BetweenOthers",            "tc,EVT15,xy",  "15",   "tc,,xy"},
    NumberCase {"Negative",                 "EVT-3",        "-3",   ""},
    // The minus sign may stand anywhere in the number.
    NumberCase {"MinusInTheMiddle",         "EVT10-2",      "10-2", ""},
    NumberCase {"MinusTwice",               "EVT-1-2-3",    "-1-2-3", ""},
    // ... but not without a digit behind it.
    NumberCase {"MinusAtTheEnd",            "EVT10-",       "10",   "-"},
    NumberCase {"MinusInFrontOfALetter",    "EVT-c",        "",     "-c"},
    NumberCase {"TwoMinusSignsInFront",     "EVT--3",       "",     "--3"},
    NumberCase {"TwoMinusSignsInTheMiddle", "EVT1--3",      "1",    "--3"},
    // Without a number the name is taken out all the same.
    NumberCase {"NameOnly",                 "EVT",          "",     ""},
    NumberCase {"NameOnlyBetweenOthers",    "t,EVT,x",      "",     "t,,x"},
    NumberCase {"BlankEndsTheNumber",       "EVT 5",        "",     " 5"},
    NumberCase {"CommaEndsTheNumber",       "EVT1,2",       "1",    ",2"},
    NumberCase {"PointAndPlusAreNoDigits",  "EVT+1.5",      "",     "+1.5"},
    // Digits of other scripts are not what the monitor counts in.
    NumberCase {"OtherDigits",              QString("EVT") + QChar(0x0665), "", QString(QChar(0x0665))},
    NumberCase {"FirstOfTwo",               "EVT1,EVT2",    "1",    ",EVT2"},
    NumberCase {"FirstHasNoNumber",         "EVTEVT2",      "",     "EVT2"},
    NumberCase {"InsideOfAWord",            "xEVT7y",       "7",    "xy"},
    // What is joined is not looked at again.
    NumberCase {"MadeByJoining",            "EEVT1VT2",     "1",    "EVT2"},
    NumberCase {"OtherCase",                "evt5",         "",     "evt5"},
    NumberCase {"NotThere",                 "tc",           "",     "tc"},
    NumberCase {"Empty",                    "",             "",     ""},
    NumberCase {"BeginningOnly",            "EV",           "",     "EV"},
    NumberCase {"LongNumber",               "EVT123456789012345678901234567890", "123456789012345678901234567890", ""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cases, NumericOption, testing::ValuesIn(numberCases),
                         [](const auto &tested) { return tested.param.name; });

TEST(Letter, IsTakenOnceAndReported)
{
    QString flags = "tct";
    EXPECT_EQ(ExtractOption(flags, QLatin1String("t"), NotNumeric()), 1);
    EXPECT_EQ(flags, "ct");
    EXPECT_EQ(ExtractOption(flags, QLatin1String("t"), NotNumeric()), 1);
    EXPECT_EQ(flags, "c");
    EXPECT_EQ(ExtractOption(flags, QLatin1String("t"), NotNumeric()), 0);
    EXPECT_EQ(flags, "c");
}

TEST(Letter, IsComparedWithRegardToCase)
{
    QString flags = "C";
    EXPECT_EQ(ExtractOption(flags, QLatin1String("c"), NotNumeric()), 0);
    EXPECT_EQ(flags, "C");
}

TEST(Letter, LeavesTheNumberBehindIt)
{
    QString flags = "EVT5";
    EXPECT_EQ(ExtractOption(flags, evt, NotNumeric()), 1);
    EXPECT_EQ(flags, "5");
}

TEST(NumberChar, IsADigitOrAMinusInFrontOfOne)
{
    const QString flags = "a,EVT1-2-";
    const qsizetype found = 2;
    EXPECT_TRUE(IsNumberCharAt(flags, evt, found, 0));
    EXPECT_TRUE(IsNumberCharAt(flags, evt, found, 1));
    EXPECT_TRUE(IsNumberCharAt(flags, evt, found, 2));
    EXPECT_FALSE(IsNumberCharAt(flags, evt, found, 3));
    // Behind the end of the text.
    EXPECT_FALSE(IsNumberCharAt(flags, evt, found, 4));
    EXPECT_FALSE(IsNumberCharAt(flags, evt, found, 400));
}

} // namespace
