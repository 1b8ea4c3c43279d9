#include "registry/TextBuffer.h"

#include "tests/support/FakeRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr auto narrow = Registry::CharacterWidth::Narrow;
constexpr auto wide = Registry::CharacterWidth::Wide;

QByteArray bytesOf(const FixedBuffer &buffer)
{
    return {buffer.data(), qsizetype(buffer.size())};
}

TEST(TextToFixedBuffer, NameOf2000CharactersIsCutTo1024)
{
    const FakeRegistry registry;
    EXPECT_EQ(bytesOf(TextToFixedBuffer(QString(2000, 'k'), registry)), QByteArray(1024, 'k') + '\0');
    EXPECT_EQ(bytesOf(TextToFixedBuffer(QString(1024, 'k'), registry)), QByteArray(1024, 'k') + '\0');
    EXPECT_EQ(bytesOf(TextToFixedBuffer(QString(1023, 'k'), registry)), QByteArray(1023, 'k') + QByteArray(2, '\0'));
}

TEST(TextToFixedBuffer, IsZeroBehindTheText)
{
    const FakeRegistry registry;
    EXPECT_EQ(bytesOf(TextToFixedBuffer("abc", registry)), "abc" + QByteArray(1022, '\0'));
    EXPECT_EQ(bytesOf(TextToFixedBuffer(QString(), registry)), QByteArray(1025, '\0'));
}

TEST(TextToFixedBuffer, IsInTheCodePage)
{
    const FakeRegistry registry;
    EXPECT_STREQ(TextToFixedBuffer(QStringLiteral(u"\u00E9"), registry).data(), "\xE9");
}

TEST(TextToFixedBuffer, WideCharactersTakeTwoBytes)
{
    FakeRegistry registry;
    registry.setCharacterWidth(wide);
    EXPECT_EQ(bytesOf(TextToFixedBuffer(QStringLiteral(u"a\u20AC"), registry)).first(6),
              QByteArray("a\0\xAC\x20\0\0", 6));
    const QByteArray full = bytesOf(TextToFixedBuffer(QString(2000, 'k'), registry));
    EXPECT_EQ(full.count('k'), 512);
    EXPECT_EQ(full.back(), '\0');
}

TEST(WideBufferToText, NarrowTextComesBackUnchanged)
{
    EXPECT_EQ(WideBufferToText("ab\xE9", narrow), QStringLiteral(u"ab\u00E9"));
    EXPECT_EQ(WideBufferToText(QByteArray("a\0b\0", 4), narrow), QString("a") + QChar(0) + "b" + QChar(0));
}

TEST(WideBufferToText, PairsUpToTheFirstZero)
{
    EXPECT_EQ(WideBufferToText(QByteArray("a\0\xAC\x20\0\0b\0", 8), wide), QStringLiteral(u"a\u20AC"));
    // A zero byte alone ends nothing.
    EXPECT_EQ(WideBufferToText(QByteArray("\0\x01\x01\0", 4), wide), QStringLiteral(u"\u0100\u0001"));
    EXPECT_EQ(WideBufferToText(QByteArray("a\0b", 3), wide), "a");
    EXPECT_EQ(WideBufferToText({}, wide), "");
}

} // namespace
