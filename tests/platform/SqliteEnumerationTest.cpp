#include "platform/linux/SqliteRegistry.h"
#include "tests/platform/FileWorld.h"
#include "tests/platform/RegistryUser.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>

namespace {

using Result = Registry::Result;

/// The store keeps the keys and values that it was asked for last. Each of these changes something between two
/// questions: what was kept would give another answer than what is there.
class SqliteEnumeration : public FileWorld
{
protected:
    void SetUp() override
    {
        FileWorld::SetUp();
        registry = std::make_unique<SqliteRegistry>(at("registry.db"), "me");
        for (const char *name : {"a", "b", "d"})
            user().make(Registry::CurrentUser, name);
    }

    /// The name of the sub-key at a position; "<none>" behind the last one.
    QByteArray keyAt(quint32 index, Registry::Handle key = Registry::CurrentUser)
    {
        std::array<char, 256> name{};
        quint32 length = name.size();
        const Result result = registry->RegEnumKeyExA(key, index, name.data(), &length, nullptr, nullptr, nullptr);
        EXPECT_TRUE(result == Result::Success || result == Result::NoMoreItems);
        return result == Result::Success ? QByteArray(name.data(), qsizetype(length)) : QByteArray("<none>");
    }

    /// The name of the value at a position; "<none>" behind the last one.
    QByteArray valueAt(quint32 index)
    {
        std::array<char, 256> name{};
        quint32 length = name.size();
        const Result result =
            registry->RegEnumValueA(Registry::CurrentUser, index, name.data(), &length, nullptr, nullptr, nullptr);
        EXPECT_TRUE(result == Result::Success || result == Result::NoMoreItems);
        return result == Result::Success ? QByteArray(name.data(), qsizetype(length)) : QByteArray("<none>");
    }

    [[nodiscard]] RegistryUser user() const { return RegistryUser(*registry); }

    std::unique_ptr<SqliteRegistry> registry;
};

TEST_F(SqliteEnumeration, SeesAKeyThatIsMadeMeanwhile)
{
    EXPECT_EQ(keyAt(0), "a");
    user().make(Registry::CurrentUser, "c");
    EXPECT_EQ(keyAt(2), "c");
    EXPECT_EQ(keyAt(3), "d");
    EXPECT_EQ(keyAt(4), "<none>");
}

TEST_F(SqliteEnumeration, SeesAKeyThatIsDeletedMeanwhile)
{
    EXPECT_EQ(keyAt(0), "a");
    EXPECT_EQ(registry->RegDeleteKeyA(Registry::CurrentUser, "b"), Result::Success);
    EXPECT_EQ(keyAt(1), "d");
    EXPECT_EQ(keyAt(2), "<none>");
}

TEST_F(SqliteEnumeration, SeesWhatAnotherProgramChangesMeanwhile)
{
    EXPECT_EQ(keyAt(0), "a");
    SqliteRegistry other(at("registry.db"), "me");
    RegistryUser(other).make(Registry::CurrentUser, "c");
    EXPECT_EQ(keyAt(2), "c");
    EXPECT_EQ(other.RegDeleteKeyA(Registry::CurrentUser, "a"), Result::Success);
    EXPECT_EQ(keyAt(0), "b");
}

TEST_F(SqliteEnumeration, SeveralKeysAtOnceAreNotMixed)
{
    user().make(Registry::CurrentUser, "a\\inner");
    const Registry::Handle inner = user().opened(Registry::CurrentUser, "a");
    EXPECT_EQ(keyAt(0), "a");
    EXPECT_EQ(keyAt(0, inner), "inner");
    EXPECT_EQ(keyAt(1), "b");
    EXPECT_EQ(keyAt(1, inner), "<none>");
    user().close(inner);
}

TEST_F(SqliteEnumeration, SeesValuesThatAreStoredAndDeletedMeanwhile)
{
    user().set(Registry::CurrentUser, "z", "data");
    EXPECT_EQ(valueAt(0), "z");
    user().set(Registry::CurrentUser, "a", "data");
    EXPECT_EQ(valueAt(1), "a");
    EXPECT_EQ(registry->RegDeleteValueA(Registry::CurrentUser, "z"), Result::Success);
    EXPECT_EQ(valueAt(0), "a");
    EXPECT_EQ(valueAt(1), "<none>");

    SqliteRegistry other(at("registry.db"), "me");
    RegistryUser(other).set(Registry::CurrentUser, "b", "data");
    EXPECT_EQ(valueAt(1), "b");
}

// Two folders are shown as one there.
TEST_F(SqliteEnumeration, SeesAKeyOfEitherPartOfTheClassesMeanwhile)
{
    user().make(Registry::LocalMachine, "SOFTWARE\\Classes\\m");
    EXPECT_EQ(keyAt(0, Registry::ClassesRoot), "m");
    user().make(Registry::CurrentUser, "Software\\Classes\\c");
    EXPECT_EQ(keyAt(0, Registry::ClassesRoot), "c");
    user().make(Registry::LocalMachine, "SOFTWARE\\Classes\\d");
    EXPECT_EQ(keyAt(1, Registry::ClassesRoot), "d");
    EXPECT_EQ(keyAt(2, Registry::ClassesRoot), "m");
}

// The new file may have the same number of changes behind it.
TEST_F(SqliteEnumeration, SeesAFileThatTakesThePlaceOfTheFirst)
{
    EXPECT_EQ(keyAt(0), "a");
    {
        SqliteRegistry other(at("other.db"), "me");
        for (const char *name : {"x", "y", "z"})
            RegistryUser(other).make(Registry::CurrentUser, name);
    }
    ASSERT_EQ(rename(at("other.db").constData(), at("registry.db").constData()), 0);
    EXPECT_EQ(keyAt(0), "x");
}

} // namespace
