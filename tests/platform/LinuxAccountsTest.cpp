#include "platform/linux/LinuxAccounts.h"

#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/support/AccountNames.h"

#include <QFile>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>

#include <sys/mount.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <optional>

namespace {

/// Accounts of a test. A name is an entry; every call may be told to fail.
class FakeNameService final : public NameService
{
public:
    struct Names
    {
        QByteArrayList entries;
        qsizetype next = 0;
        /// What the call for this entry answers once, or from then on.
        std::optional<qsizetype> failing;
        int error = 0;
        bool isErrorLasting = false;
        int begins = 0;
        int ends = 0;
    };

    explicit FakeNameService(Names &users, Names &groups)
        : m_users(users)
        , m_groups(groups)
    {
    }

    void setpwent() override { begin(m_users); }
    void endpwent() override { ++m_users.ends; }
    int getpwent_r(passwd *entry, char *buffer, size_t size, passwd **result) override
    {
        *entry = {};
        return give(m_users, entry, &entry->pw_name, buffer, size, result);
    }

    void setgrent() override { begin(m_groups); }
    void endgrent() override { ++m_groups.ends; }
    int getgrent_r(group *entry, char *buffer, size_t size, group **result) override
    {
        *entry = {};
        return give(m_groups, entry, &entry->gr_name, buffer, size, result);
    }

private:
    static void begin(Names &names)
    {
        ++names.begins;
        names.next = 0;
    }

    template<class Entry>
    static int give(Names &names, Entry *entry, char **name, char *buffer, size_t size, Entry **result)
    {
        *result = nullptr;
        if (names.failing == names.next) {
            if (!names.isErrorLasting)
                names.failing.reset();
            return names.error;
        }
        if (names.next == names.entries.size())
            return ENOENT;
        const QByteArray &given = names.entries[names.next];
        if (size_t(given.size()) >= size)
            return ERANGE;
        std::memcpy(buffer, given.constData(), size_t(given.size()) + 1);
        *name = buffer;
        *result = entry;
        ++names.next;
        return 0;
    }

    Names &m_users;
    Names &m_groups;
};

class LinuxAccountsTest : public testing::Test
{
protected:
    FakeNameService::Names m_users;
    FakeNameService::Names m_groups;
    LinuxAccounts m_accounts{std::make_unique<FakeNameService>(m_users, m_groups)};
    LinuxAccounts m_realAccounts{std::make_unique<NameService>()};
};

/// What getent lists of a database of the name service switch.
QStringList namesByGetent(const QString &database)
{
    QProcess getent;
    getent.start(QStringLiteral("getent"), {database});
    EXPECT_TRUE(getent.waitForFinished());
    EXPECT_EQ(getent.exitCode(), 0);
    QStringList names;
    for (const QByteArray &line : getent.readAllStandardOutput().split('\n')) {
        if (!line.isEmpty())
            names << decodeBytes(line.first(line.indexOf(':')));
    }
    EXPECT_FALSE(names.isEmpty());
    return names;
}

TEST_F(LinuxAccountsTest, GivesTheUsersAndGroupsOfThisMachineAsGetentDoes)
{
    EXPECT_EQ(readUserNames(m_realAccounts).names, namesByGetent(QStringLiteral("passwd")));
    EXPECT_EQ(readLocalGroupNames(m_realAccounts).names, namesByGetent(QStringLiteral("group")));
}

TEST_F(LinuxAccountsTest, ThisMachineAnswersToItsNames)
{
    const QStringList users = readUserNames(m_realAccounts).names;
    const QString host = QSysInfo::machineHostName();
    for (const QString &name : {host, host.toUpper(), host.section(u'.', 0, 0), QStringLiteral("localhost")})
        EXPECT_EQ(readUserNames(m_realAccounts, QStringLiteral(R"(\\)") + name).names, users) << name.toStdString();
}

TEST_F(LinuxAccountsTest, AnotherHostHasAnErrorForAllThree)
{
    m_users.entries = QByteArrayList{"one"};
    m_groups.entries = QByteArrayList{"one"};
    const QString server = QStringLiteral(R"(\\another)");
    for (const AccountNames &read : {readUserNames(m_accounts, server), readLocalGroupNames(m_accounts, server),
                                     readGroupNames(m_accounts, server)}) {
        EXPECT_EQ(read.result, Accounts::BadNetworkPath);
        EXPECT_EQ(read.names, QStringList());
    }
    EXPECT_EQ(m_users.begins + m_groups.begins, 0);
}

TEST_F(LinuxAccountsTest, ThereAreNoGlobalGroups)
{
    m_groups.entries = QByteArrayList{"one"};
    const AccountNames groups = readGroupNames(m_accounts);
    EXPECT_EQ(groups.result, Accounts::Success);
    EXPECT_EQ(groups.names, QStringList());
}

TEST_F(LinuxAccountsTest, ReadsManyAccountsInSmallBuffersAndAsksForThemOnce)
{
    QStringList names;
    for (int i = 0; i < 10'000; ++i)
        names << QStringLiteral("account%1").arg(i);
    for (const QString &name : names)
        m_users.entries << name.toLatin1();
    const AccountNames users = readUserNames(m_accounts);
    EXPECT_EQ(users.names, names);
    EXPECT_EQ(users.result, Accounts::Success);
    EXPECT_LE(users.largestBuffer, 255U);
    // With an entry more in any of the buffers it would be too large.
    EXPECT_GE(users.calls, 1000);
    // The source of accounts may be a far one.
    EXPECT_EQ(m_users.begins, 1);
    EXPECT_EQ(m_users.ends, 1);
}

TEST_F(LinuxAccountsTest, EveryBatchTellsHowManyEntriesAreLeft)
{
    m_users.entries = QByteArrayList(30, "abcdef");
    quintptr resumeHandle = 0;
    quint32 left = 30;
    while (left > 0) {
        Accounts::Batch batch;
        const quint32 result = m_accounts.NetUserEnum({}, 0, 0, batch, 255, resumeHandle);
        EXPECT_EQ(batch.totalEntries, left);
        ASSERT_GT(batch.entriesRead, 0U);
        left -= batch.entriesRead;
        EXPECT_EQ(result, left == 0 ? Accounts::Success : Accounts::MoreData);
        EXPECT_EQ(m_accounts.NetApiBufferFree(batch.buffer), Accounts::Success);
    }
    EXPECT_EQ(resumeHandle, 0U);
}

TEST_F(LinuxAccountsTest, ANameThatFillsMoreThanABufferComesAlone)
{
    const QByteArray longName(5000, 'x');
    m_users.entries = QByteArrayList{"a", "b", longName, "c"};
    EXPECT_EQ(readUserNames(m_accounts).names, (QStringList{"a", "b", QString::fromLatin1(longName), "c"}));
}

TEST_F(LinuxAccountsTest, NamesMayHoldAnything)
{
    m_users.entries =
        QByteArrayList{"two words", "J\xc3\xbcrgen", "old\xfc", "\xf0\x9f\x91\xa4", "DOMAIN\\name", "name@host"};
    QStringList expected;
    for (const QByteArray &name : m_users.entries)
        expected << decodeBytes(name);
    EXPECT_EQ(readUserNames(m_accounts).names, expected);
    EXPECT_EQ(expected[2].size(), 4) << "the byte that is no text is carried";
}

TEST_F(LinuxAccountsTest, AnEntryThatNeedsMoreRoomIsReadAgain)
{
    // A group with many members; the room for its texts has to grow more than once.
    m_groups.entries = QByteArrayList{"first", QByteArray(100'000, 'g'), "last"};
    EXPECT_EQ(readLocalGroupNames(m_accounts).names.size(), 3);
}

TEST_F(LinuxAccountsTest, AnInterruptedCallIsMadeAgain)
{
    m_users.entries = QByteArrayList{"a", "b", "c"};
    m_users.failing = 1;
    m_users.error = EINTR;
    EXPECT_EQ(readUserNames(m_accounts).names, (QStringList{"a", "b", "c"}));
}

TEST_F(LinuxAccountsTest, WhatCouldBeReadComesBeforeTheError)
{
    struct Case
    {
        int error;
        quint32 result;
    };
    for (const Case &each : {Case{EACCES, Accounts::AccessDenied}, Case{ENOMEM, Accounts::NotEnoughMemory},
                             Case{ERANGE, Accounts::NotEnoughMemory}, Case{EIO, Accounts::GeneralFailure}}) {
        m_users = {QByteArrayList{"a", "b", "c"}, 0, 2, each.error, true, 0, 0};
        const AccountNames users = readUserNames(m_accounts);
        EXPECT_EQ(users.names, (QStringList{"a", "b"}));
        EXPECT_EQ(users.result, each.result);
        EXPECT_EQ(m_users.ends, 1);
        m_users.failing = 0;
        const AccountNames none = readUserNames(m_accounts);
        EXPECT_EQ(none.names, QStringList());
        EXPECT_EQ(none.result, each.result);
    }
}

TEST_F(LinuxAccountsTest, RefusesWhatItDoesNotHave)
{
    m_users.entries = QByteArrayList{"a"};
    Accounts::Batch batch;
    quintptr resumeHandle = 0;
    EXPECT_EQ(m_accounts.NetUserEnum({}, 1, 0, batch, 255, resumeHandle), Accounts::InvalidLevel);
    EXPECT_EQ(m_accounts.NetLocalGroupEnum({}, 1, batch, 255, resumeHandle), Accounts::InvalidLevel);
    EXPECT_EQ(m_accounts.NetGroupEnum({}, 1, batch, 255, resumeHandle), Accounts::InvalidLevel);
    EXPECT_EQ(m_accounts.NetUserEnum({}, 0, 2, batch, 255, resumeHandle), Accounts::InvalidParameter);
    EXPECT_EQ(batch.buffer, nullptr);
}

TEST_F(LinuxAccountsTest, ABufferIsReleasedOnce)
{
    m_users.entries = QByteArrayList{"a"};
    Accounts::Batch batch;
    quintptr resumeHandle = 0;
    ASSERT_EQ(m_accounts.NetUserEnum({}, 0, 0, batch, 255, resumeHandle), Accounts::Success);
    EXPECT_EQ(m_accounts.NetApiBufferFree(batch.buffer), Accounts::Success);
    EXPECT_EQ(m_accounts.NetApiBufferFree(batch.buffer), Accounts::InvalidParameter);
}

TEST_F(LinuxAccountsTest, ReadsOneListingWhileAnotherIsOpen)
{
    m_users.entries = QByteArrayList(30, "user");
    m_groups.entries = QByteArrayList(30, "group");
    Accounts::Batch batch;
    quintptr resumeHandle = 0;
    ASSERT_EQ(m_accounts.NetUserEnum({}, 0, 0, batch, 255, resumeHandle), Accounts::MoreData);
    EXPECT_EQ(readLocalGroupNames(m_accounts).names, QStringList(30, "group"));
    EXPECT_EQ(QString::fromUtf16(batch.buffer[0].name), "user");
    EXPECT_EQ(m_accounts.NetApiBufferFree(batch.buffer), Accounts::Success);
    ASSERT_EQ(m_accounts.NetUserEnum({}, 0, 0, batch, 255, resumeHandle), Accounts::MoreData);
    EXPECT_EQ(QString::fromUtf16(batch.buffer[0].name), "user");
    EXPECT_EQ(m_accounts.NetApiBufferFree(batch.buffer), Accounts::Success);
}

/// Puts content in place of a file of the system, for this process and those that it starts.
void replaceSystemFile(const QTemporaryDir &folder, const char *path, const QByteArray &content)
{
    QFile file(folder.filePath(QString::fromLatin1(path).section(u'/', -1)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();
    ASSERT_EQ(mount(file.fileName().toUtf8().constData(), path, nullptr, MS_BIND, nullptr), 0);
}

TEST_F(LinuxAccountsTest, ReadsAMachineWithThousandsOfAccountsAndAGroupOfAllOfThem)
{
    withOwnMounts([this] {
        QByteArray users = "root:x:0:0:root:/root:/bin/sh\n";
        QByteArray groups = "root:x:0:\nall:x:1000:root";
        for (int i = 0; i < 10'000; ++i) {
            const QByteArray number = QByteArray::number(i);
            users += "user" + number + ":x:" + QByteArray::number(100'000 + i) + ":1000::/:/bin/sh\n";
            groups += ",user" + number;
        }
        const QTemporaryDir folder;
        replaceSystemFile(folder, "/etc/passwd", users);
        replaceSystemFile(folder, "/etc/group", groups + "\nlast:x:1001:\n");
        const QStringList names = readUserNames(m_realAccounts).names;
        EXPECT_GE(names.size(), 10'001);
        EXPECT_EQ(names, namesByGetent(QStringLiteral("passwd")));
        const QStringList groupNames = readLocalGroupNames(m_realAccounts).names;
        EXPECT_EQ(groupNames.first(3), (QStringList{"root", "all", "last"}));
        EXPECT_EQ(groupNames, namesByGetent(QStringLiteral("group")));
    });
}

} // namespace
