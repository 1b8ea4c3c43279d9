#include "registry/clsValue.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

namespace {

clsValue valueOf(const QByteArray &data)
{
    return clsValue(QStringLiteral("name"), data, 1);
}

TEST(clsValue, BytesCountFromOne)
{
    clsValue value = valueOf("abc");
    EXPECT_EQ(value.Data(1), 'a');
    EXPECT_EQ(value.Data(3), 'c');
    value.Data(2, 0xE9);
    EXPECT_EQ(value.Data(2), 0xE9);
    EXPECT_EQ(value.size(), 3);
}

TEST(clsValue, PositionOutsideIsRefused)
{
    clsValue value = valueOf("abc");
    for (const qsizetype index : {0, 4, -1}) {
        EXPECT_THROW((void)value.Data(index), RuntimeError);
        EXPECT_THROW(value.Data(index, 1), RuntimeError);
    }
    EXPECT_THROW((void)clsValue().Data(1), RuntimeError);
    EXPECT_EQ(value.DataString(), "abc");
}

TEST(clsValue, DataStringHasACharacterForEachByte)
{
    QByteArray allBytes;
    QString allCharacters;
    for (int code = 0; code < 256; ++code) {
        allBytes += static_cast<char>(code);
        allCharacters += QChar(code);
    }
    EXPECT_EQ(valueOf(allBytes).DataString(), allCharacters);
    EXPECT_EQ(valueOf(QByteArray("abc\0", 4)).DataString(), QString("abc") + QChar(0));
    EXPECT_EQ(valueOf({}).DataString(), "");
}

TEST(clsValue, DataStringIsKeptOnceItHasBeenGiven)
{
    clsValue value = valueOf("abc");
    EXPECT_EQ(value.DataString(), "abc");
    value.Data(1, 'x');
    value.SetData(QStringLiteral("other"));
    EXPECT_EQ(value.DataString(), "abc");
    EXPECT_EQ(value.Data(1), 'o');
}

TEST(clsValue, EmptyDataStringIsMadeAnew)
{
    clsValue value = valueOf({});
    EXPECT_EQ(value.DataString(), "");
    value.SetData(QStringLiteral("abc"));
    EXPECT_EQ(value.DataString(), "abc");
}

TEST(clsValue, SetDataTakesTextByItsCodes)
{
    clsValue value;
    value.SetData(QStringLiteral(u"a\u00E9"));
    EXPECT_EQ(value.size(), 2);
    EXPECT_EQ(value.Data(2), 0xE9);
    EXPECT_EQ(value.DataString(), QStringLiteral(u"a\u00E9"));
}

TEST(clsValue, SetDataTakesBytes)
{
    clsValue value = valueOf("before");
    value.SetData(QByteArray("\0\xFF", 2));
    EXPECT_EQ(value.size(), 2);
    EXPECT_EQ(value.Data(1), 0);
    EXPECT_EQ(value.Data(2), 255);
}

TEST(clsValue, SetDataIgnoresAnythingElse)
{
    clsValue value = valueOf("abc");
    for (const QVariant &other : {QVariant(5), QVariant(1.5), QVariant(true), QVariant(QStringList{"x"}), QVariant()})
        value.SetData(other);
    EXPECT_EQ(value.DataString(), "abc");
    EXPECT_EQ(value.size(), 3);
}

} // namespace
