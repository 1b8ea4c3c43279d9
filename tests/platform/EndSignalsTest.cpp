#include "platform/linux/EndSignals.h"

#include <QScopeGuard>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <string>

namespace {

constexpr int patienceMs = 60000;

/// Each signal by which a program is asked to end.
class EndSignalsTest : public testing::TestWithParam<int>
{
protected:
    /// What the system does with the signal now.
    [[nodiscard]] static auto handler()
    {
        struct sigaction action = {};
        EXPECT_EQ(sigaction(GetParam(), nullptr, &action), 0);
        return action.sa_handler;
    }
};

TEST_P(EndSignalsTest, AreToldFromTheEventLoop)
{
    EndSignals endSignals;
    int asked = 0;
    endSignals.listen([&] { ++asked; });
    ASSERT_EQ(raise(GetParam()), 0);
    EXPECT_EQ(asked, 0) << "told from within the handler, where nearly nothing may be done";
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 1; }, patienceMs));
    ASSERT_EQ(raise(GetParam()), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked == 2; }, patienceMs));
}

TEST_P(EndSignalsTest, ThatComeTogetherAreOneRequest)
{
    EndSignals endSignals;
    int asked = 0;
    endSignals.listen([&] { ++asked; });
    // More than the pipe between handler and loop holds.
    for (int i = 0; i < 100'000; ++i)
        ASSERT_EQ(raise(GetParam()), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }, patienceMs));
    QCoreApplication::processEvents();
    EXPECT_LT(asked, 2'000) << "a request for each signal";
}

TEST_P(EndSignalsTest, ThatAreIgnoredStayIgnored)
{
    ASSERT_NE(signal(GetParam(), SIG_IGN), SIG_ERR);
    const auto restore = qScopeGuard([] { (void)signal(GetParam(), SIG_DFL); });
    {
        EndSignals endSignals;
        endSignals.listen([] { ADD_FAILURE() << "the program was started to ignore it"; });
        EXPECT_EQ(handler(), SIG_IGN);
        ASSERT_EQ(raise(GetParam()), 0);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(handler(), SIG_IGN);
}

TEST_P(EndSignalsTest, AreTheSystemsAgainAfterwards)
{
    {
        EndSignals endSignals;
        endSignals.listen([] {});
        EXPECT_NE(handler(), SIG_DFL);
    }
    EXPECT_EQ(handler(), SIG_DFL);
}

INSTANTIATE_TEST_SUITE_P(Signals, EndSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto &test) { return std::string(sigabbrev_np(test.param)); });

} // namespace
