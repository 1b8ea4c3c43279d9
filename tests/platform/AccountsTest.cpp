#include "platform/Accounts.h"

#include "platform/Platform.h"
#include "tests/support/AccountNames.h"

#include <gtest/gtest.h>

namespace {

constexpr quint32 unlimited = 0xFFFFFFFF;

/// What every system's accounts have to be like, with those that this machine has.
class AccountsTest : public testing::Test
{
protected:
    const Platform m_platform = makePlatform(QStringLiteral("ZentilConf"), 0, nullptr);
    Accounts &m_accounts = *m_platform.accounts;
};

TEST_F(AccountsTest, ThisMachineHasUsers)
{
    const AccountNames users = readUserNames(m_accounts);
    EXPECT_EQ(users.result, Accounts::Success);
    EXPECT_FALSE(users.names.isEmpty());
    EXPECT_FALSE(users.names.contains(QString()));
}

TEST_F(AccountsTest, LocalGroupsCanBeRead)
{
    EXPECT_EQ(readLocalGroupNames(m_accounts).result, Accounts::Success);
}

TEST_F(AccountsTest, SmallBuffersGiveWhatALargeOneGives)
{
    EXPECT_EQ(readUserNames(m_accounts).names, readUserNames(m_accounts, {}, unlimited).names);
    EXPECT_EQ(readLocalGroupNames(m_accounts).names, readLocalGroupNames(m_accounts, {}, unlimited).names);
    EXPECT_EQ(readGroupNames(m_accounts).names, readGroupNames(m_accounts, {}, unlimited).names);
}

TEST_F(AccountsTest, AHostThatIsNotThereHasAnErrorAndNoUsers)
{
    // The second has no name at all; it must not be taken for this machine.
    for (const QString &server : {QStringLiteral(R"(\\no-such-host.invalid)"), QStringLiteral(R"(\\)")}) {
        const AccountNames users = readUserNames(m_accounts, server);
        EXPECT_NE(users.result, Accounts::Success) << server.toStdString();
        EXPECT_EQ(users.names, QStringList()) << server.toStdString();
    }
}

TEST_F(AccountsTest, NoBufferIsReleasedWithSuccess)
{
    EXPECT_EQ(m_accounts.NetApiBufferFree(nullptr), Accounts::Success);
}

} // namespace
