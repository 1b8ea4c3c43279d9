#include "settings/NumberText.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <array>

namespace {

constexpr int mismatch = 13;
constexpr int overflow = 6;

/// The number, or the error's number below -1,000,000.
template<class Convert>
qint64 outcome(const Convert &convert, const QString &text)
{
    try {
        return convert(text);
    } catch (const RuntimeError &error) {
        return -1'000'000 - error.number();
    }
}

struct NumberCase
{
    const char *text;
    qint64 integer;
    qint64 longNumber;
};

constexpr qint64 error(int number)
{
    return -1'000'000 - number;
}

// clang-format off
constexpr std::array numberCases {
    NumberCase {"0",             0,               0},
    NumberCase {"300",           300,             300},
    NumberCase {"-1",            -1,              -1},
    NumberCase {"+7",            7,               7},
    NumberCase {"007",           7,               7},
    NumberCase {"  12 \t",       12,              12},
    NumberCase {"32767",         32767,           32767},
    NumberCase {"32768",         error(overflow), 32768},
    NumberCase {"-32768",        -32768,          -32768},
    NumberCase {"-32769",        error(overflow), -32769},
    NumberCase {"32767.4",       32767,           32767},
    NumberCase {"32767.5",       error(overflow), 32768},
    NumberCase {"0.5",           0,               0},
    NumberCase {"1.5",           2,               2},
    NumberCase {"2.5",           2,               2},
    NumberCase {"-2.5",          -2,              -2},
    NumberCase {"2.51",          3,               3},
    NumberCase {".5",            0,               0},
    NumberCase {"8.",            8,               8},
    NumberCase {"1e3",           1000,            1000},
    NumberCase {"1D+2",          100,             100},
    NumberCase {"25E-1",         2,               2},
    NumberCase {"1e400",         error(overflow), error(overflow)},
    NumberCase {"2147483647",    error(overflow), 2147483647},
    NumberCase {"2147483648",    error(overflow), error(overflow)},
    NumberCase {"",              error(mismatch), error(mismatch)},
    NumberCase {" ",             error(mismatch), error(mismatch)},
    NumberCase {"abc",           error(mismatch), error(mismatch)},
    NumberCase {"8pt",           error(mismatch), error(mismatch)},
    NumberCase {"1 2",           error(mismatch), error(mismatch)},
    NumberCase {"1,000",         error(mismatch), error(mismatch)},
    NumberCase {"0x10",          error(mismatch), error(mismatch)},
    NumberCase {"--1",           error(mismatch), error(mismatch)},
    NumberCase {"- 1",           error(mismatch), error(mismatch)},
    NumberCase {".",             error(mismatch), error(mismatch)},
    NumberCase {"1e",            error(mismatch), error(mismatch)},
    NumberCase {"inf",           error(mismatch), error(mismatch)},
    NumberCase {"nan",           error(mismatch), error(mismatch)},
    NumberCase {"1\n",           error(mismatch), error(mismatch)},
    NumberCase {"\u0661",        error(mismatch), error(mismatch)},
};
// clang-format on

TEST(NumberText, EveryForm)
{
    for (const NumberCase &row : numberCases) {
        EXPECT_EQ(outcome(integerOf, row.text), row.integer) << '"' << row.text << '"';
        EXPECT_EQ(outcome(longOf, row.text), row.longNumber) << '"' << row.text << '"';
    }
}

TEST(NumberText, NumbersWithAFraction)
{
    EXPECT_EQ(numberOf(u"1.25"), 1.25);
    EXPECT_EQ(numberOf(u"-1d-2"), -0.01);
    EXPECT_EQ(numberOf(u"1e-400"), 0.0);
}

} // namespace
