#include "browse/DirectoryLevels.h"

#include <gtest/gtest.h>

namespace {

TEST(DirectoryLevelsTest, AnEntryIsReachedFromItsContextLevelByLevel)
{
    EXPECT_EQ(levelsBelow("cn=b,ou=a,dc=x,dc=y", "dc=x,dc=y"), (QStringList{"ou=a", "cn=b"}));
    EXPECT_EQ(levelsBelow("dc=x,dc=y", "dc=x,dc=y"), QStringList());
    EXPECT_EQ(levelsBelow("CN=b,DC=X", "dc=x"), QStringList{"CN=b"});
    // A comma in a name ends no level.
    EXPECT_EQ(levelsBelow("cn=a\\,dc=x,dc=y", "dc=y"), QStringList{"cn=a\\,dc=x"});
    EXPECT_EQ(levelsBelow("cn=a , dc=x", "dc=x"), QStringList{"cn=a"});
}

TEST(DirectoryLevelsTest, AnEntryThatIsNotInAContextHasNoLevels)
{
    EXPECT_EQ(levelsBelow("cn=b,dc=x", "dc=y"), std::nullopt);
    EXPECT_EQ(levelsBelow("dc=x", "cn=b,dc=x"), std::nullopt);
    // It ends in the same letters, but not with the same name.
    EXPECT_EQ(levelsBelow("cn=b,adc=x", "dc=x"), std::nullopt);
    EXPECT_EQ(levelsBelow("cn=a\\,dc=x", "dc=x"), std::nullopt);
}

TEST(DirectoryLevelsTest, PossibleContextsGetLongerAndAreNotTheBareDcCom)
{
    EXPECT_EQ(possibleContexts("cn=a,dc=x,dc=com"), (QStringList{"dc=x,dc=com", "cn=a,dc=x,dc=com"}));
    EXPECT_EQ(possibleContexts("cn=a,o=com"), (QStringList{"o=com", "cn=a,o=com"}));
    EXPECT_EQ(possibleContexts("DC=Com"), QStringList());
    EXPECT_EQ(possibleContexts(""), QStringList());
}

} // namespace
