#include "browse/UsersGroups.h"

#include "tests/support/FakeAccounts.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

class UsersGroupsTest : public testing::Test
{
protected:
    /// Names that fill many batches.
    static QStringList manyNames(int count)
    {
        QStringList names;
        for (int i = 0; i < count; ++i)
            names << QStringLiteral("account %1").arg(i);
        return names;
    }

    FakeAccounts m_accounts;
    UsersGroups m_source{m_accounts};
};

TEST_F(UsersGroupsTest, AHostIsStoredWithTwoBackslashesInFront)
{
    EXPECT_EQ(m_source.Server(), QString());
    struct Case
    {
        const char *set;
        const char *stored;
    };
    for (const Case &each : {
             Case{"srv", R"(\\srv)"},
             // Were they always put in front, it would have four.
             Case{R"(\\srv)", R"(\\srv)"},
             Case{R"(\srv)", R"(\\\srv)"},
             Case{R"(a\\srv)", R"(\\a\\srv)"},
             Case{"s", R"(\\s)"},
             Case{R"(\)", R"(\\\)"},
             Case{R"(\\)", R"(\\)"},
             Case{"", R"(\\)"},
         }) {
        m_source.setServer(QString::fromLatin1(each.set));
        EXPECT_EQ(m_source.Server(), each.stored) << each.set;
    }
}

TEST_F(UsersGroupsTest, GivesUsersLocalGroupsAndGlobalGroupsInTheServersOrder)
{
    m_accounts.users = QStringList{"zoe", "adam", "zoe"};
    m_accounts.localGroups = QStringList{"Users", "Administrators"};
    m_accounts.globalGroups = QStringList{"Domain Users", "Users"};
    EXPECT_EQ(m_source.Users(), m_accounts.users);
    EXPECT_EQ(m_source.Groups(true), m_accounts.localGroups);
    EXPECT_EQ(m_source.Groups(false), m_accounts.globalGroups);
}

TEST_F(UsersGroupsTest, AsksForNamesOfAllKindsOfAccountsInSmallBatches)
{
    m_accounts.server = QStringLiteral(R"(\\srv)");
    m_source.setServer(QStringLiteral("srv"));
    (void)m_source.Users();
    (void)m_source.Groups(true);
    (void)m_source.Groups(false);
    QStringList functions;
    for (const FakeAccounts::Call &call : m_accounts.calls) {
        functions << call.function;
        EXPECT_EQ(call.server, R"(\\srv)");
        EXPECT_EQ(call.level, 0U);
        EXPECT_EQ(call.filter, 0U);
        EXPECT_EQ(call.preferredLength, 255U);
        EXPECT_EQ(call.resumeHandle, 0U);
    }
    EXPECT_EQ(functions, (QStringList{"NetUserEnum", "NetLocalGroupEnum", "NetGroupEnum"}));
}

TEST_F(UsersGroupsTest, ThisMachineIsAskedWithoutAName)
{
    (void)m_source.Users();
    ASSERT_EQ(m_accounts.calls.size(), 1);
    EXPECT_EQ(m_accounts.calls[0].server, QString());
}

TEST_F(UsersGroupsTest, MoreAccountsThanFitInABatchAreReadCompletely)
{
    m_accounts.users = manyNames(10'000);
    m_accounts.localGroups = m_accounts.globalGroups = manyNames(100);
    EXPECT_EQ(m_source.Users(), m_accounts.users);
    EXPECT_GE(m_accounts.calls.size(), 1000);
    EXPECT_EQ(m_source.Groups(true), m_accounts.localGroups);
    EXPECT_EQ(m_source.Groups(false), m_accounts.globalGroups);
    EXPECT_EQ(m_accounts.buffersGiven, m_accounts.calls.size());
    // Every buffer is released before the next one is asked for.
    EXPECT_EQ(m_accounts.mostBuffersOpen, 1);
}

TEST_F(UsersGroupsTest, EveryCallGoesOnWhereTheLastOneEnded)
{
    m_accounts.users = manyNames(20);
    // Handles mean something to the server alone.
    m_accounts.onAnswer = [this](qsizetype, FakeAccounts::Answer &answer) {
        EXPECT_EQ(m_accounts.calls.last().resumeHandle, answer.first);
    };
    EXPECT_EQ(m_source.Users(), m_accounts.users);
    EXPECT_EQ(m_accounts.calls.first().resumeHandle, 0U);
}

TEST_F(UsersGroupsTest, NoAccountsGiveNoNames)
{
    EXPECT_EQ(m_source.Users(), QStringList());
    EXPECT_EQ(m_accounts.calls.size(), 1);
}

TEST_F(UsersGroupsTest, AFailingCallGivesNoNames)
{
    m_accounts.users = manyNames(20);
    for (const quint32 error : {5U, 53U, 2351U, 1722U}) {
        m_accounts.onAnswer = [error](qsizetype, FakeAccounts::Answer &answer) {
            answer.result = error;
            answer.last = answer.first;
        };
        EXPECT_EQ(m_source.Users(), QStringList()) << error;
    }
    EXPECT_EQ(m_accounts.calls.size(), 4);
}

TEST_F(UsersGroupsTest, AFailureInTheMiddleKeepsWhatWasRead)
{
    m_accounts.users = manyNames(1000);
    size_t readBefore = 0;
    m_accounts.onAnswer = [&](qsizetype call, FakeAccounts::Answer &answer) {
        if (call < 7)
            readBefore = answer.last;
        else
            answer.result = Accounts::AccessDenied;
    };
    const QStringList names = m_source.Users();
    EXPECT_EQ(names, m_accounts.users.first(qsizetype(readBefore)));
    EXPECT_EQ(m_accounts.calls.size(), 8);
    // A server may give a buffer with its error too; the fake fails the test unless it is released.
    EXPECT_EQ(m_accounts.buffersGiven, 8);
}

TEST_F(UsersGroupsTest, AnUnreachableServerHasNoNames)
{
    m_accounts.users = m_accounts.localGroups = m_accounts.globalGroups = manyNames(3);
    m_source.setServer(QStringLiteral("elsewhere"));
    EXPECT_EQ(m_source.Users(), QStringList());
    EXPECT_EQ(m_source.Groups(true), QStringList());
    EXPECT_EQ(m_source.Groups(false), QStringList());
}

TEST_F(UsersGroupsTest, NamesMayHoldBlanksAndAnyLetters)
{
    m_accounts.users = QStringList{QStringLiteral("Guest Account"),
                                   QStringLiteral(" leading and trailing "),
                                   QString::fromUtf16(u"J\u00fcrgen"),
                                   QString::fromUtf16(u"\u6587\u5b57"),
                                   QString::fromUtf16(u"\U0001f464"),
                                   QStringLiteral("DOMAIN\\name,with=signs"),
                                   QString(),
                                   QString(300, u'x')};
    EXPECT_EQ(m_source.Users(), m_accounts.users);
}

TEST_F(UsersGroupsTest, ABatchThatHoldsTheTotalIsTheLastAlsoWhenMoreIsPromised)
{
    m_accounts.users = manyNames(50);
    m_accounts.onAnswer = [](qsizetype, FakeAccounts::Answer &answer) {
        answer.totalEntries = quint32(answer.last - answer.first);
    };
    const QStringList names = m_source.Users();
    EXPECT_EQ(m_accounts.calls.size(), 1);
    EXPECT_EQ(names, m_accounts.users.first(names.size()));
}

TEST_F(UsersGroupsTest, ATotalThatIsAnEstimateNeitherCutsNorRepeatsNames)
{
    m_accounts.users = manyNames(100);
    m_accounts.onAnswer = [](qsizetype, FakeAccounts::Answer &answer) { answer.totalEntries = 1000; };
    EXPECT_EQ(m_source.Users(), m_accounts.users);
}

TEST_F(UsersGroupsTest, AServerThatPromisesMoreAndGivesNothingIsLeft)
{
    m_accounts.users = manyNames(100);
    m_accounts.onAnswer = [](qsizetype call, FakeAccounts::Answer &answer) {
        if (call < 3)
            return;
        answer.last = answer.first;
        answer.resumeHandle = answer.first;
        ASSERT_LT(call, 10) << "it is asked again and again";
    };
    const QStringList names = m_source.Users();
    EXPECT_EQ(m_accounts.calls.size(), 4);
    EXPECT_EQ(names, m_accounts.users.first(names.size()));
}

TEST_F(UsersGroupsTest, AnEmptyBatchOnTheWayIsNotTheEnd)
{
    m_accounts.users = manyNames(100);
    // The server looks for names of the kind that is asked for, and finds none in this part.
    m_accounts.onAnswer = [](qsizetype call, FakeAccounts::Answer &answer) {
        if (call == 2)
            answer.first = answer.last;
    };
    EXPECT_EQ(m_source.Users().last(), m_accounts.users.last());
}

TEST_F(UsersGroupsTest, ReadsAnyNamesInAnyBatches)
{
    // The model is the list that the server has: whatever the sizes of names and batches, that is what comes.
    Random random(7);
    const QStringList alphabet{
        "a", "B", " ", "\\", QString::fromUtf16(u"\u00e9"), QString::fromUtf16(u"\U0001f464"), "0123456789"};
    for (int round = 0; round < 200; ++round) {
        QStringList names;
        for (int count = random.number(0, 60); count > 0; --count)
            names << random.text(alphabet, random.chance(5) ? 200 : 12);
        m_accounts.users = m_accounts.localGroups = names;
        const int most = random.number(1, 20);
        m_accounts.onAnswer = [&](qsizetype, FakeAccounts::Answer &answer) {
            if (answer.last - answer.first <= size_t(most))
                return;
            answer.last = answer.first + size_t(most);
            answer.resumeHandle = answer.last;
            answer.result = random.chance(50) ? Accounts::MoreData : Accounts::Success;
        };
        ASSERT_EQ(m_source.Users(), names);
        ASSERT_EQ(m_source.Groups(true), names);
    }
}

} // namespace
