#include "settings/Utilities.h"

#include "platform/Platform.h"
#include "tests/support/FakeRegistry.h"

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

TEST(PlatformProbe, WidthIsAlwaysNarrow)
{
    FakeRegistry registry;
    for (const quint32 versionWord :
         {0x00000000U, 0x00000004U, 0x1DB10106U, 0x7FFFFFFFU, 0x80000000U, 0x80000001U, 0xC0000004U, 0xFFFFFFFFU}) {
        registry.setCharacterWidth(Registry::CharacterWidth::Wide);
        PlatformProbe(registry, versionWord);
        EXPECT_EQ(registry.characterWidth(), Registry::CharacterWidth::Narrow) << versionWord;
    }
}

TEST(PlatformProbe, ThisSystemHasAVersion)
{
    Platform platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    EXPECT_GT(platform.versionWord & 0xFFU, 0U);
    PlatformProbe(*platform.registry, platform.versionWord);
    EXPECT_EQ(platform.registry->characterWidth(), Registry::CharacterWidth::Narrow);
}

} // namespace
