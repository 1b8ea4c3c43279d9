#include "platform/linux/LockPatience.h"

#include "platform/linux/SqliteRegistry.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"
#include "tests/platform/RegistryUser.h"

#include <sqlite3.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {

using Result = Registry::Result;
using std::chrono::milliseconds;

const LockPatience::Clock::time_point start{std::chrono::hours(1)};

TEST(LockPatienceTest, IsWholeForTheFirstOperation)
{
    EXPECT_EQ(LockPatience().at(start), milliseconds(5000));
}

TEST(LockPatienceTest, IsNoneForTheOperationsRightAfterOneThatGaveUp)
{
    LockPatience patience;
    patience.gaveUp(start);
    EXPECT_EQ(patience.at(start), milliseconds(0));
    EXPECT_EQ(patience.at(start + milliseconds(999)), milliseconds(0));
    patience.gaveUp(start + milliseconds(999));
    EXPECT_EQ(patience.at(start + milliseconds(1998)), milliseconds(0)) << "each that gives up counts";
}

TEST(LockPatienceTest, IsWholeAgainForTheNextCommand)
{
    LockPatience patience;
    patience.gaveUp(start);
    EXPECT_EQ(patience.at(start + milliseconds(1000)), milliseconds(5000));
}

// A store that is locked

class LockedStore : public FileWorld
{
protected:
    void SetUp() override
    {
        FileWorld::SetUp();
        SqliteRegistry registry(file(), "me");
        RegistryUser(registry).set(Registry::CurrentUser, "v", "1");
    }

    [[nodiscard]] QByteArray file() const { return at("registry.db"); }

    /// In a process that lives for no longer than 100 seconds: one operation fails after five, and so many that each
    /// waited would not come to their end.
    void failOften(const char *lock) const
    {
        EXPECT_EQ(exitCodeOf([&] {
                      sqlite3 *other = nullptr;
                      if (sqlite3_open(file().constData(), &other) != SQLITE_OK ||
                          sqlite3_exec(other, lock, nullptr, nullptr, nullptr) != SQLITE_OK)
                          _exit(2);
                      SqliteRegistry registry(file(), "me");
                      for (int i = 0; i < 100; ++i) {
                          if (registry.RegSetValueExA(Registry::CurrentUser, "v", 3, "2") != Result::Busy)
                              _exit(3);
                      }
                  }),
                  0);
        SqliteRegistry registry(file(), "me");
        EXPECT_EQ(RegistryUser(registry).get(Registry::CurrentUser, "v"), "1");
    }
};

TEST_F(LockedStore, IsWaitedForOnceByManyOperationsOfOneCommand)
{
    failOften("BEGIN IMMEDIATE");
}

TEST_F(LockedStore, ThatCannotEvenBeOpenedIsWaitedForOnce)
{
    failOften("BEGIN EXCLUSIVE");
}

} // namespace
