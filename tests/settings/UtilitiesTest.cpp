#include "settings/Utilities.h"

#include "tests/support/Printers.h"

#include <gtest/gtest.h>

namespace {

TEST(EscapeNonPrintableTest, TabBetweenLetters)
{
    EXPECT_EQ(EscapeNonPrintable("a\tb"), R"(a\u0x0009b)");
}

TEST(EscapeNonPrintableTest, CharacterOfCodeZeroStays)
{
    const QString text = QString("a") + QChar(0);
    EXPECT_EQ(EscapeNonPrintable(text), text);
}

TEST(EscapeNonPrintableTest, SmallEWithAcuteAccent)
{
    EXPECT_EQ(EscapeNonPrintable("\u00E9"), R"(\u0x00E9)");
}

TEST(EscapeNonPrintableTest, EveryCodeIsEitherKeptOrWrittenAsFourDigits)
{
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QString text{QChar(static_cast<char16_t>(code))};
        const bool isKept = code == 0 || (code >= 32 && code <= 126);
        char expected[9];
        (void)std::snprintf(expected, sizeof expected, "\\u0x%04X", unsigned(code));
        ASSERT_EQ(EscapeNonPrintable(text), isKept ? text : QString(expected)) << code;
    }
}

} // namespace
