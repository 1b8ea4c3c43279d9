#include "platform/linux/SqliteRegistry.h"

#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"
#include "tests/platform/RegistryUser.h"
#include "tests/support/Random.h"

#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <memory>

namespace {

using Handle = Registry::Handle;
using Result = Registry::Result;

class SqliteRegistryTest : public FileWorld
{
protected:
    void SetUp() override
    {
        FileWorld::SetUp();
        m_registry = started();
    }

    [[nodiscard]] QByteArray file() const { return at("registry.db"); }
    [[nodiscard]] std::unique_ptr<SqliteRegistry> started() const
    {
        return std::make_unique<SqliteRegistry>(file(), "me");
    }

    /// As another program that is started now.
    void restart() { m_registry = started(); }

    [[nodiscard]] Registry &registry() { return *m_registry; }
    [[nodiscard]] RegistryUser user() { return RegistryUser(*m_registry); }

    void setUserValue(const QByteArray &name, QByteArrayView data) { user().set(Registry::CurrentUser, name, data); }
    [[nodiscard]] QByteArray userValue(const QByteArray &name) { return user().get(Registry::CurrentUser, name); }

    /// Through SQLite itself, past what is tested.
    void runSql(const QByteArray &statements) const
    {
        sqlite3 *database = nullptr;
        ASSERT_EQ(sqlite3_open(file().constData(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

private:
    std::unique_ptr<SqliteRegistry> m_registry;
};

// What a store holds

TEST_F(SqliteRegistryTest, FreshStoreHoldsTheHivesAndSoftware)
{
    EXPECT_EQ(namesIn(folder()), QByteArrayList()) << "a program that asks nothing makes nothing";
    EXPECT_EQ(user().subKeys(Registry::LocalMachine), QByteArrayList{"SOFTWARE"});
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"registry.db"});
    EXPECT_EQ(user().subKeys(Registry::Users), QByteArrayList{"me"});
    for (const Handle hive :
         {Registry::ClassesRoot, Registry::CurrentUser, Registry::CurrentConfig, Registry::DynData}) {
        EXPECT_EQ(user().subKeys(hive), QByteArrayList());
        EXPECT_EQ(user().valueNames(hive), QByteArrayList());
        EXPECT_EQ(user().info(hive).subKeys, 0U);
    }
}

TEST_F(SqliteRegistryTest, ResultsHaveTheNumbersOfTheManual)
{
    EXPECT_EQ(int(Result::Success), 0);
    EXPECT_EQ(int(user().openResult(Registry::LocalMachine, "x")), 2);
    EXPECT_EQ(int(registry().RegDeleteKeyA(Registry::LocalMachine, "")), 5);
    EXPECT_EQ(int(user().openResult(4, "x")), 6);
    EXPECT_EQ(int(user().openResult(Registry::LocalMachine, "\\x")), 161);
    EXPECT_EQ(int(user().enumerateKeyResult(Registry::CurrentUser)), 259);
}

TEST_F(SqliteRegistryTest, FoldersAreMadeForTheUserAlone)
{
    SqliteRegistry deep(at("a/b/registry.db"), "me");
    RegistryUser(deep).set(Registry::CurrentUser, "v", "1");
    EXPECT_EQ(namesIn(at("a/b")), QByteArrayList{"registry.db"});
    EXPECT_EQ(modeOf(at("a")) & 0777U, 0700U);
    EXPECT_EQ(modeOf(at("a/b")) & 0777U, 0700U);
}

TEST_F(SqliteRegistryTest, FixedKeysAreNotDeleted)
{
    EXPECT_EQ(registry().RegDeleteKeyA(Registry::Users, "me"), Result::AccessDenied);
    EXPECT_EQ(registry().RegDeleteKeyA(Registry::LocalMachine, "Software"), Result::AccessDenied);
    const Handle software = user().opened(Registry::LocalMachine, "Software");
    EXPECT_EQ(registry().RegDeleteKeyA(software, ""), Result::AccessDenied);
    user().close(software);
    user().make(Registry::Users, "another");
    EXPECT_EQ(registry().RegDeleteKeyA(Registry::Users, "another"), Result::Success);
}

TEST_F(SqliteRegistryTest, UsersOfOneStoreHaveKeysOfTheirOwn)
{
    setUserValue("v", "mine");
    SqliteRegistry other(file(), "you");
    EXPECT_EQ(RegistryUser(other).get(Registry::CurrentUser, "v"), "<none> 2");
    RegistryUser(other).set(Registry::CurrentUser, "v", "yours");
    EXPECT_EQ(userValue("v"), "mine");
    const Handle yours = user().opened(Registry::Users, "you");
    EXPECT_EQ(user().get(yours, "v"), "yours");
    user().close(yours);
}

TEST_F(SqliteRegistryTest, DynamicDataTakesNothing)
{
    EXPECT_EQ(user().createResult(Registry::DynData, "a"), Result::AccessDenied);
    EXPECT_EQ(registry().RegSetValueExA(Registry::DynData, "a", 3, "1"), Result::AccessDenied);
    EXPECT_EQ(user().get(Registry::PerformanceData, "Global"), "<none> 2");
}

TEST_F(SqliteRegistryTest, UsersClassHidesTheMachines)
{
    user().make(Registry::LocalMachine, "SOFTWARE\\Classes\\both\\machine");
    user().make(Registry::LocalMachine, "SOFTWARE\\Classes\\machine only");
    user().make(Registry::CurrentUser, "Software\\Classes\\Both\\user");
    user().make(Registry::CurrentUser, "Software\\Classes\\a user only");
    EXPECT_EQ(user().subKeys(Registry::ClassesRoot), (QByteArrayList{"a user only", "Both", "machine only"}));
    EXPECT_EQ(user().info(Registry::ClassesRoot).subKeys, 3U);
    const Handle both = user().opened(Registry::ClassesRoot, "both");
    EXPECT_EQ(user().subKeys(both), QByteArrayList{"user"});
    user().close(both);
    EXPECT_EQ(user().openResult(Registry::ClassesRoot, "both\\machine"), Result::FileNotFound);

    // What is made below the user's key is the user's; what is deleted is what is seen.
    user().make(Registry::ClassesRoot, "both\\new");
    EXPECT_EQ(user().openResult(Registry::CurrentUser, "Software\\Classes\\both\\new"), Result::Success);
    EXPECT_EQ(registry().RegDeleteKeyA(Registry::ClassesRoot, "a user only"), Result::Success);
    EXPECT_EQ(user().openResult(Registry::CurrentUser, "Software\\Classes\\a user only"), Result::FileNotFound);
    user().removeTree(Registry::ClassesRoot, "both");
    EXPECT_EQ(user().openResult(Registry::ClassesRoot, "both\\machine"), Result::Success);
}

TEST_F(SqliteRegistryTest, ValuesOfTheClassesRoot)
{
    user().set(Registry::ClassesRoot, "v", "machine");
    const Handle machine = user().opened(Registry::LocalMachine, "SOFTWARE\\Classes");
    EXPECT_EQ(user().get(machine, "v"), "machine");
    const Handle own = user().made(Registry::CurrentUser, "Software\\Classes");
    user().set(own, "V", "user");
    EXPECT_EQ(user().get(Registry::ClassesRoot, "v"), "user");
    EXPECT_EQ(user().valueNames(Registry::ClassesRoot), QByteArrayList{"V"});
    user().set(Registry::ClassesRoot, "v", "changed");
    EXPECT_EQ(user().get(own, "v"), "changed");
    EXPECT_EQ(user().get(machine, "v"), "machine");
    EXPECT_EQ(registry().RegDeleteValueA(Registry::ClassesRoot, "v"), Result::Success);
    EXPECT_EQ(user().get(Registry::ClassesRoot, "v"), "machine");
    user().close(own);
    user().close(machine);
}

TEST_F(SqliteRegistryTest, ClassNameIsThatOfTheCreation)
{
    for (const QByteArray &className : {QByteArray("Class"), QByteArray("Other")}) {
        Handle key = 0;
        ASSERT_EQ(
            registry().RegCreateKeyExA(Registry::CurrentUser, "a", className, 0, Registry::AllAccess, &key, nullptr),
            Result::Success);
        user().close(key);
    }
    const Handle key = user().opened(Registry::CurrentUser, "a");
    std::array<char, 8> className{};
    quint32 length = 5;
    RegistryKeyInfo info;
    EXPECT_EQ(registry().RegQueryInfoKeyA(key, className.data(), &length, &info), Result::MoreData);
    length = 6;
    EXPECT_EQ(registry().RegQueryInfoKeyA(key, className.data(), &length, &info), Result::Success);
    EXPECT_STREQ(className.data(), "Class");
    EXPECT_EQ(length, 5U);
    EXPECT_EQ(user().info(Registry::CurrentUser).longestClassName, 5U);
    user().close(key);

    std::array<char, 8> name{};
    quint32 nameLength = name.size();
    length = className.size();
    className.fill('#');
    EXPECT_EQ(registry().RegEnumKeyExA(Registry::CurrentUser, 0, name.data(), &nameLength, className.data(), &length,
                                       nullptr),
              Result::Success);
    EXPECT_STREQ(className.data(), "Class");
}

TEST_F(SqliteRegistryTest, KeyThatWouldNotStayIsRefused)
{
    Handle key = 1;
    EXPECT_EQ(registry().RegCreateKeyExA(Registry::CurrentUser, "a", {}, 1, Registry::AllAccess, &key, nullptr),
              Result::CallNotImplemented);
    EXPECT_EQ(key, 0U);
    EXPECT_EQ(user().openResult(Registry::CurrentUser, "a"), Result::FileNotFound);
}

TEST_F(SqliteRegistryTest, NameThatIsTooLongIsRefused)
{
    EXPECT_EQ(user().createResult(Registry::CurrentUser, QByteArray(256, 'k')), Result::InvalidParameter);
    EXPECT_EQ(user().openResult(Registry::CurrentUser, "a\\" + QByteArray(256, 'k')), Result::InvalidParameter);
}

TEST_F(SqliteRegistryTest, AnyHostIsOutOfReach)
{
    for (const char *host : {"localhost", "\\\\localhost", "127.0.0.1"}) {
        Handle result = 1;
        EXPECT_EQ(registry().RegConnectRegistryA(host, Registry::LocalMachine, &result), Result::BadNetPath);
        EXPECT_EQ(result, 0U);
    }
    Handle result = 1;
    EXPECT_EQ(registry().RegConnectRegistryA({}, 4, &result), Result::InvalidHandle);
    EXPECT_EQ(result, 0U);
}

TEST_F(SqliteRegistryTest, NamesCanBeReadWithOtherTools)
{
    user().set(Registry::CurrentUser,
               "Gr\xF6\xDF"
               "e",
               "\xF6");
    restart();
    sqlite3 *database = nullptr;
    ASSERT_EQ(sqlite3_open(file().constData(), &database), SQLITE_OK);
    sqlite3_stmt *statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(database, "SELECT name, hex(data) FROM entries", -1, &statement, nullptr), SQLITE_OK);
    ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
    EXPECT_STREQ(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)), "Gr\u00F6\u00DFe");
    EXPECT_STREQ(reinterpret_cast<const char *>(sqlite3_column_text(statement, 1)), "F6");
    sqlite3_finalize(statement);
    sqlite3_close(database);
}

// Several programs, and programs that end

TEST_F(SqliteRegistryTest, ProgramsSeeEachOthersChanges)
{
    const auto other = started();
    setUserValue("v", "1");
    EXPECT_EQ(RegistryUser(*other).get(Registry::CurrentUser, "v"), "1");
    inChild([this] {
        const auto third = started();
        RegistryUser(*third).set(Registry::CurrentUser, "v", "2");
        RegistryUser(*third).make(Registry::CurrentUser, "a");
    });
    EXPECT_EQ(userValue("v"), "2");
    EXPECT_EQ(RegistryUser(*other).subKeys(Registry::CurrentUser), QByteArrayList{"a"});
}

TEST_F(SqliteRegistryTest, KeyThatAnotherProgramDeletedIsGone)
{
    const Handle key = user().made(Registry::CurrentUser, "a");
    const auto other = started();
    EXPECT_EQ(other->RegDeleteKeyA(Registry::CurrentUser, "a"), Result::Success);
    EXPECT_EQ(registry().RegSetValueExA(key, "v", 3, "1"), Result::KeyDeleted);
    user().close(key);
}

TEST_F(SqliteRegistryTest, ProgramsThatStartAndStoreAtOnceLoseNothing)
{
    constexpr int programs = 4;
    constexpr int values = 12;
    std::array<pid_t, programs> children{};
    for (int program = 0; program < programs; ++program) {
        children[size_t(program)] = fork();
        ASSERT_GE(children[size_t(program)], 0);
        if (children[size_t(program)] == 0) {
            // The store is missing: all of them try to make it.
            const auto own = started();
            bool isStored = true;
            for (int number = 0; number < values; ++number) {
                Handle key = 0;
                const QByteArray name = "Key" + QByteArray::number(number);
                isStored = isStored && own->RegCreateKeyExA(Registry::CurrentUser, name, {}, 0, Registry::AllAccess,
                                                            &key, nullptr) == Result::Success;
                isStored = isStored && own->RegSetValueExA(key, QByteArray::number(program), 3,
                                                           QByteArray::number(number)) == Result::Success;
            }
            _exit(isStored ? 0 : 1);
        }
    }
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (int number = 0; number < values; ++number) {
        const Handle key = user().opened(Registry::CurrentUser, "Key" + QByteArray::number(number));
        for (int program = 0; program < programs; ++program)
            EXPECT_EQ(user().get(key, QByteArray::number(program)), QByteArray::number(number));
        user().close(key);
    }
    EXPECT_EQ(user().subKeys(Registry::CurrentUser).size(), values);
    EXPECT_EQ(namesIn(folder()), QByteArrayList{"registry.db"});
}

TEST_F(SqliteRegistryTest, ValueIsThereAfterAKillRightAfterTheCall)
{
    for (const int count : {1, 2, 7, 20}) {
        std::array<int, 2> pipeEnds{};
        ASSERT_EQ(pipe(pipeEnds.data()), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const auto own = started();
            for (int number = 0;; ++number) {
                const QByteArray name = QByteArray::number(count) + '.' + QByteArray::number(number);
                const bool isStored = own->RegSetValueExA(Registry::CurrentUser, name, 3, name) == Result::Success;
                if (!isStored || ::write(pipeEnds[1], "+", 1) != 1)
                    _exit(1);
            }
        }
        close(pipeEnds[1]);
        int told = 0;
        for (char sign = 0; told < count && ::read(pipeEnds[0], &sign, 1) == 1;)
            ++told;
        ASSERT_EQ(kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
        for (char sign = 0; ::read(pipeEnds[0], &sign, 1) == 1;)
            ++told;
        close(pipeEnds[0]);
        EXPECT_GE(told, count);
        for (int number = 0; number < told; ++number) {
            const QByteArray name = QByteArray::number(count) + '.' + QByteArray::number(number);
            EXPECT_EQ(userValue(name), name);
        }
        // The store goes on as if nothing had been.
        setUserValue("next", QByteArray::number(count));
        EXPECT_EQ(userValue("next"), QByteArray::number(count));
    }
}

TEST_F(SqliteRegistryTest, ChangeThatWasCutOffIsUndone)
{
    setUserValue("v", "old");
    EXPECT_EQ(exitCodeOf([this] {
                  sqlite3 *database = nullptr;
                  // A small cache makes SQLite write to the file before the end of the change.
                  if (sqlite3_open(file().constData(), &database) != SQLITE_OK ||
                      sqlite3_exec(database,
                                   "PRAGMA cache_size=1; BEGIN IMMEDIATE; UPDATE entries SET data = x'6E6577';"
                                   "CREATE TABLE much (a); INSERT INTO much VALUES (zeroblob(1000000));"
                                   "INSERT INTO much VALUES (zeroblob(1000000))",
                                   nullptr, nullptr, nullptr) != SQLITE_OK)
                      _exit(3);
                  ::kill(getpid(), SIGKILL);
              }),
              -1);
    EXPECT_EQ(namesIn(folder()), (QByteArrayList{"registry.db", "registry.db-journal"}));
    EXPECT_EQ(userValue("v"), "old");
    setUserValue("v", "new");
    restart();
    EXPECT_EQ(userValue("v"), "new");
}

TEST_F(SqliteRegistryTest, StoreThatStaysLockedIsTold)
{
    setUserValue("v", "1");
    sqlite3 *other = nullptr;
    ASSERT_EQ(sqlite3_open(file().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "2"), Result::Busy);
    EXPECT_EQ(userValue("v"), "1") << "reading goes on meanwhile";
    ASSERT_EQ(sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    setUserValue("v", "2");
    EXPECT_EQ(userValue("v"), "2");
}

// Files that cannot be used

TEST_F(SqliteRegistryTest, FileThatIsNoDatabaseIsLeftAlone)
{
    for (const QByteArray &content :
         {QByteArray("xy"), content(20'000, 3), QByteArray(4096, '\0'), QByteArray("SQLite format 3\0", 16),
          "SQLite format 3" + QByteArray(1, '\0') + content(8'192, 4)}) {
        store(file(), content);
        restart();
        for (int again = 0; again < 2; ++again) {
            const Result opened = user().openResult(Registry::LocalMachine, "SOFTWARE");
            EXPECT_TRUE(opened == Result::RegistryCorrupt || opened == Result::BadDatabase) << int(opened);
            EXPECT_EQ(user().createResult(Registry::LocalMachine, "a"), opened);
            EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "1"), opened);
            EXPECT_EQ(registry().RegDeleteKeyA(Registry::LocalMachine, "a"), opened);
            EXPECT_EQ(user().enumerateKeyResult(Registry::LocalMachine), opened);
        }
        EXPECT_EQ(bytesOf(file()), content);
        EXPECT_EQ(namesIn(folder()), QByteArrayList{"registry.db"});
    }
}

TEST_F(SqliteRegistryTest, DatabaseOfSomethingElseIsLeftAlone)
{
    for (const char *statements : {"CREATE TABLE mine (a); INSERT INTO mine VALUES ('kept')", "PRAGMA application_id=1",
                                   "PRAGMA user_version=1"}) {
        ASSERT_TRUE(unlink(file().constData()) == 0 || errno == ENOENT);
        runSql(statements);
        const QByteArray before = bytesOf(file());
        restart();
        EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "1"), Result::BadDatabase);
        EXPECT_EQ(bytesOf(file()), before);
    }
}

TEST_F(SqliteRegistryTest, StoreOfALaterVersionIsLeftAlone)
{
    setUserValue("v", "1");
    runSql("PRAGMA user_version=2");
    const QByteArray before = bytesOf(file());
    restart();
    EXPECT_EQ(userValue("v"), "<none> 1009");
    EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "2"), Result::BadDatabase);
    EXPECT_EQ(bytesOf(file()), before);
    // Once it can be used again, the same program uses it.
    runSql("PRAGMA user_version=1");
    EXPECT_EQ(userValue("v"), "1");
}

TEST_F(SqliteRegistryTest, DamageNeverEndsTheProgramOrReplacesTheStore)
{
    for (int number = 0; number < 40; ++number)
        user().make(Registry::CurrentUser, "Key" + QByteArray::number(number));
    setUserValue("long", QByteArray(30'000, 'x'));
    const QByteArray whole = bytesOf(file());
    Random random(7);
    for (int round = 0; round < 150; ++round) {
        QByteArray damaged = random.chance(20) ? whole.first(random.number(100, int(whole.size()) - 1)) : whole;
        for (int count = random.number(1, 60); count > 0; --count)
            damaged[random.number(0, int(damaged.size()) - 1)] = static_cast<char>(random.number(0, 255));
        store(file(), damaged);
        const ino_t number = statusOf(file()).st_ino;
        EXPECT_EQ(exitCodeOf([this] {
                      const auto own = started();
                      const RegistryUser ownUser(*own);
                      std::array<char, 256> name{};
                      std::array<uchar, 256> data{};
                      for (quint32 index = 0; index < 50; ++index) {
                          quint32 length = name.size();
                          quint32 size = data.size();
                          (void)own->RegEnumKeyExA(Registry::CurrentUser, index, name.data(), &length, nullptr, nullptr,
                                                   nullptr);
                          length = name.size();
                          (void)own->RegEnumValueA(Registry::CurrentUser, index, name.data(), &length, nullptr,
                                                   data.data(), &size);
                      }
                      (void)ownUser.get(Registry::CurrentUser, "long");
                      (void)ownUser.createResult(Registry::CurrentUser, "Key7\\below");
                      (void)own->RegSetValueExA(Registry::CurrentUser, "long", 3, QByteArray(9'000, 'y'));
                      (void)own->RegDeleteKeyA(Registry::CurrentUser, "Key8");
                      _exit(0);
                  }),
                  0)
            << "round " << round;
        EXPECT_EQ(statusOf(file()).st_ino, number) << "round " << round;
        for (const char *behind : {"-journal", "-wal", "-shm"})
            (void)unlink((file() + behind).constData());
    }
}

TEST_F(SqliteRegistryTest, FileThatMayOnlyBeReadIsRead)
{
    setUserValue("v", "1");
    user().make(Registry::CurrentUser, "a");
    giveToOrdinaryUser(file());
    ASSERT_EQ(chmod(file().constData(), 0444), 0);
    ASSERT_EQ(chmod(folder().constData(), 0555), 0);
    const QByteArray before = bytesOf(file());
    asOrdinaryUser([this] {
        restart();
        EXPECT_EQ(userValue("v"), "1");
        EXPECT_EQ(user().openResult(Registry::CurrentUser, "a", Registry::ReadAccess), Result::Success);
        EXPECT_EQ(user().openResult(Registry::CurrentUser, "a", Registry::MaximumAllowed), Result::Success);
        // Asking for what nobody may do is refused, as it is for a key that only others may write.
        EXPECT_EQ(user().openResult(Registry::CurrentUser, "a", Registry::AllAccess), Result::AccessDenied);
        EXPECT_EQ(user().createResult(Registry::CurrentUser, "a"), Result::AccessDenied);
        EXPECT_EQ(user().createResult(Registry::CurrentUser, "b"), Result::AccessDenied);
        EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "2"), Result::AccessDenied);
        EXPECT_EQ(registry().RegDeleteValueA(Registry::CurrentUser, "v"), Result::AccessDenied);
        EXPECT_EQ(registry().RegDeleteKeyA(Registry::CurrentUser, "a"), Result::AccessDenied);
        EXPECT_EQ(userValue("v"), "1");
    });
    EXPECT_EQ(bytesOf(file()), before);
}

TEST_F(SqliteRegistryTest, FolderThatMayNotBeWritten)
{
    setUserValue("v", "1");
    giveToOrdinaryUser(file());
    ASSERT_EQ(chmod(folder().constData(), 0555), 0);
    asOrdinaryUser([this] {
        // The file could be written, but not its journal.
        restart();
        EXPECT_EQ(userValue("v"), "1");
        EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "2"), Result::AccessDenied);
        EXPECT_EQ(user().openResult(Registry::LocalMachine, "SOFTWARE"), Result::AccessDenied);
        EXPECT_EQ(userValue("v"), "1");
        SqliteRegistry missing(at("other.db"), "me");
        EXPECT_EQ(RegistryUser(missing).openResult(Registry::LocalMachine, "SOFTWARE"), Result::AccessDenied);
        SqliteRegistry deep(at("a/b/other.db"), "me");
        EXPECT_EQ(RegistryUser(deep).openResult(Registry::LocalMachine, "SOFTWARE"), Result::AccessDenied);
    });
}

TEST_F(SqliteRegistryTest, FileThatMayNotBeRead)
{
    setUserValue("v", "1");
    giveToOrdinaryUser(file());
    ASSERT_EQ(chmod(file().constData(), 0), 0);
    asOrdinaryUser([this] {
        restart();
        EXPECT_EQ(userValue("v"), "<none> 5");
        EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "2"), Result::AccessDenied);
        // With the rights back it goes on.
        ASSERT_EQ(chmod(file().constData(), 0600), 0);
        EXPECT_EQ(userValue("v"), "1");
    });
}

TEST_F(SqliteRegistryTest, PathThatCannotBeAFile)
{
    ASSERT_EQ(mkdir(file().constData(), 0755), 0);
    EXPECT_EQ(user().openResult(Registry::LocalMachine, "SOFTWARE"), Result::CannotOpen);
    EXPECT_EQ(registry().RegSetValueExA(Registry::CurrentUser, "v", 3, "2"), Result::CannotOpen);
    store(at("file"), "old");
    SqliteRegistry below(at("file/registry.db"), "me");
    EXPECT_EQ(RegistryUser(below).openResult(Registry::LocalMachine, "SOFTWARE"), Result::CannotOpen);
    EXPECT_EQ(bytesOf(at("file")), "old");
}

TEST_F(SqliteRegistryTest, FullDiskIsToldAndLeavesWhatIsThere)
{
    withOwnMounts([this] {
        ASSERT_EQ(mkdir(at("small").constData(), 0755), 0);
        ASSERT_EQ(mount("none", at("small").constData(), "tmpfs", 0, "size=200k,mode=0777"), 0);
        store(at("small/in the way"), QByteArray(40'000, 'x'));
        SqliteRegistry small(at("small/registry.db"), "me");
        const RegistryUser smallUser(small);
        int stored = 0;
        Result result = Result::Success;
        const QByteArray data(10'000, 'x');
        while (result == Result::Success && stored < 100) {
            result = small.RegSetValueExA(Registry::CurrentUser, QByteArray::number(stored), 3, data);
            if (result == Result::Success)
                ++stored;
        }
        EXPECT_EQ(result, Result::DiskFull);
        EXPECT_GT(stored, 3);
        EXPECT_EQ(smallUser.valueNames(Registry::CurrentUser).size(), stored);
        for (int number = 0; number < stored; ++number)
            EXPECT_EQ(smallUser.get(Registry::CurrentUser, QByteArray::number(number)), data);
        // With room again it goes on.
        ASSERT_EQ(unlink(at("small/in the way").constData()), 0);
        EXPECT_EQ(small.RegDeleteValueA(Registry::CurrentUser, "0"), Result::Success);
        smallUser.set(Registry::CurrentUser, "again", data);
        EXPECT_EQ(smallUser.get(Registry::CurrentUser, "again"), data);
    });
}

TEST_F(SqliteRegistryTest, StoreThatWasTakenAwayIsMadeAnew)
{
    const Handle key = user().made(Registry::CurrentUser, "a");
    ASSERT_EQ(unlink(file().constData()), 0);
    // A key of the old store may have the number of another one in the new.
    EXPECT_EQ(registry().RegSetValueExA(key, "v", 3, "1"), Result::KeyDeleted);
    user().close(key);
    setUserValue("v", "2");
    restart();
    EXPECT_EQ(userValue("v"), "2");
    EXPECT_EQ(user().subKeys(Registry::CurrentUser), QByteArrayList());
}

TEST_F(SqliteRegistryTest, HandlesAreNotUsedAgainAtOnce)
{
    const Handle first = user().made(Registry::CurrentUser, "a");
    user().close(first);
    const Handle second = user().made(Registry::CurrentUser, "a");
    EXPECT_NE(first, second);
    EXPECT_EQ(registry().RegCloseKey(first), Result::InvalidHandle);
    user().close(second);
}

} // namespace
