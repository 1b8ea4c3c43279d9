#include "platform/UnfinishedContent.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const QByteArray path = "C:\\a.zcf";

QByteArray copyOf(const UnfinishedContent &content)
{
    return UnfinishedContent::heading(path, content.before.size(), content.after.size()) + content.before +
           content.after;
}

TEST(UnfinishedContentTest, ComesBackFromItsCopy)
{
    Random random(1);
    for (int round = 0; round < 200; ++round) {
        const UnfinishedContent content{random.bytes(60), random.bytes(60)};
        const auto again = UnfinishedContent::fromCopy(copyOf(content));
        ASSERT_TRUE(again.has_value());
        EXPECT_EQ(again->before, content.before);
        EXPECT_EQ(again->after, content.after);
    }
}

TEST(UnfinishedContentTest, CopyTellsAPersonWhatItIs)
{
    // So that a copy that is found after an update of the program still counts.
    EXPECT_EQ(UnfinishedContent::heading(path, 6, 15),
              QByteArray("ZentilConf: content of a file while it was written in place") + '\0' + path + '\0' + "6" +
                  '\0' + "15" + '\0');
}

TEST(UnfinishedContentTest, IsNothingForBytesThatAreNotAWholeCopy)
{
    const QByteArray bytes = copyOf({"before", "after"});
    for (qsizetype size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(UnfinishedContent::fromCopy(bytes.first(size)).has_value()) << size;
    EXPECT_FALSE(UnfinishedContent::fromCopy(bytes + 'x').has_value());
    QByteArray other = bytes;
    other[0] = 'x';
    EXPECT_FALSE(UnfinishedContent::fromCopy(other).has_value());
    // Sizes that agree with the whole only in sum.
    other = bytes;
    other.replace(QByteArrayLiteral("6\0005\000"), QByteArrayLiteral("-6\00017\000"));
    ASSERT_NE(other, bytes);
    EXPECT_FALSE(UnfinishedContent::fromCopy(other).has_value());
}

TEST(UnfinishedContentTest, KnowsEveryPlaceWhereAWriteCanBeCutOff)
{
    Random random(2);
    for (int round = 0; round < 200; ++round) {
        const UnfinishedContent content{random.bytes(40), random.bytes(40)};
        // The file is made long enough first, then written from its beginning, then cut.
        QByteArray bytes = content.before;
        bytes.append(std::max(qsizetype(0), content.after.size() - bytes.size()), '\0');
        for (qsizetype at = 0; at <= content.after.size(); ++at) {
            EXPECT_EQ(content.isCutOff(bytes), bytes != content.before && bytes != content.after);
            if (at < content.after.size())
                bytes[at] = content.after[at];
        }
    }
}

TEST(UnfinishedContentTest, LeavesWhatSomebodyElseHasWritten)
{
    const UnfinishedContent content{"one two", "ONE"};
    EXPECT_TRUE(content.isCutOff("ONe two"));
    EXPECT_TRUE(content.isCutOff("ONE two"));
    EXPECT_FALSE(content.isCutOff("one two"));
    EXPECT_FALSE(content.isCutOff("ONE"));
    EXPECT_FALSE(content.isCutOff("ONe twx"));
    EXPECT_FALSE(content.isCutOff("ON"));
    EXPECT_FALSE(content.isCutOff("ONE two and more"));
}

} // namespace
