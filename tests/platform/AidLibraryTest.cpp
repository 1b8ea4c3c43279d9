#include "platform/AidLibrary.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class AidLibraryTest : public testing::Test
{
protected:
    AidLibrary library{QString::fromUtf8(AID_LIBRARY), QStringConverter::Latin1};
};

// With less room behind the password, or with room that is not empty, the library's answer is "!".
TEST_F(AidLibraryTest, ScramblesInPlaceWithThreeTimesTheLengthAndSixZerosBehindThePassword)
{
    EXPECT_EQ(library.scramble("A"), QString("agf.-end-"));
    EXPECT_EQ(library.scramble("secret"), QString("bbf.bab.ajj.bbe.bab.bbg.-end-"));
    EXPECT_EQ(library.scramble(QString(2000, u'x'))->size(), 4 * 2000 + 5);
}

TEST_F(AidLibraryTest, KeepsWhatStandsBeforeTheFirstZero)
{
    // It leaves the rest of the scrambled text behind the zero.
    EXPECT_EQ(library.unscramble("agf.-end-"), QString("A"));
    EXPECT_EQ(library.unscramble("-end-"), QString(""));
}

TEST_F(AidLibraryTest, APasswordComesBack)
{
    for (const char *password : {"", "x", "two words", "a:b@c/d?e", "p\xC3\xA4ssword"}) {
        const std::optional<QString> scrambled = library.scramble(password);
        ASSERT_TRUE(scrambled);
        EXPECT_NE(*scrambled, QString(password));
        EXPECT_EQ(library.unscramble(*scrambled), QString(password));
    }
}

TEST_F(AidLibraryTest, WhatIsNotScrambledIsHandedOnAsTheLibraryLeavesIt)
{
    EXPECT_EQ(library.unscramble("plain"), QString("plain"));
}

TEST_F(AidLibraryTest, APasswordThatTheCodePageLacksIsNoneToScramble)
{
    // As "?" it would be another password.
    EXPECT_EQ(library.scramble("\xE2\x82\xAC"), std::nullopt);
    EXPECT_EQ(library.scramble(QStringLiteral("a") + QChar(0) + u'b'), std::nullopt);
}

TEST_F(AidLibraryTest, AMissingLibraryIsAFailure)
{
    AidLibrary missing("no-such-library", QStringConverter::Latin1);
    EXPECT_EQ(missing.scramble("secret"), std::nullopt);
    EXPECT_EQ(missing.unscramble("secret"), std::nullopt);
}

TEST_F(AidLibraryTest, AFileThatIsNoLibraryIsAFailure)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("librunaid.so");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("text") == 4);
    file.close();
    EXPECT_EQ(AidLibrary(path, QStringConverter::Latin1).scramble("secret"), std::nullopt);
}

} // namespace
