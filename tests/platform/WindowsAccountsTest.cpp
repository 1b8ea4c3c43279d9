#include "platform/windows/WindowsAccounts.h"

#include "platform/windows/WindowsCalls.h"
#include "tests/support/AccountNames.h"

#include <lm.h>

#include <gtest/gtest.h>

#include <array>

namespace {

/// The accounts of this machine, held against what other functions of the system say of them.
class WindowsAccountsTest : public testing::Test
{
protected:
    WindowsAccounts accounts;
};

TEST_F(WindowsAccountsTest, EveryUserIsOneOfTheSystem)
{
    const AccountNames users = readUserNames(accounts);
    EXPECT_EQ(users.result, Accounts::Success);
    for (const QString &name : users.names) {
        LPBYTE information = nullptr;
        EXPECT_EQ(::NetUserGetInfo(nullptr, wide(name), 0, &information), NERR_Success) << name.toStdString();
        ::NetApiBufferFree(information);
    }
}

TEST_F(WindowsAccountsTest, ThisMachineAnswersToItsName)
{
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
    DWORD length = name.size();
    ASSERT_TRUE(::GetComputerNameW(name.data(), &length));
    const AccountNames users = readUserNames(accounts, "\\\\" + QString::fromWCharArray(name.data()));
    EXPECT_EQ(users.result, Accounts::Success);
    EXPECT_EQ(users.names, readUserNames(accounts).names);
}

TEST_F(WindowsAccountsTest, ALevelThatDoesNotExistIsRefused)
{
    Accounts::Batch batch;
    quintptr resume = 0;
    EXPECT_EQ(accounts.NetUserEnum({}, 99, 0, batch, 255, resume), Accounts::InvalidLevel);
    EXPECT_EQ(batch.buffer, nullptr);
    EXPECT_EQ(batch.entriesRead, 0U);
}

} // namespace
