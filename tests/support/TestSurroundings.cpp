#include "tests/support/TestSurroundings.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace {

class FreshHome final : public testing::EmptyTestEventListener
{
public:
    void OnTestStart(const testing::TestInfo &) override
    {
        m_home = std::make_unique<QTemporaryDir>();
        ASSERT_TRUE(m_home->isValid());
        const auto give = [this](const char *variable, const char *folder) {
            const QString path = m_home->filePath(QLatin1String(folder));
            QDir().mkpath(path);
            qputenv(variable, path.toUtf8());
        };
        give("HOME", "home");
        give("XDG_CONFIG_HOME", "config");
        give("XDG_DATA_HOME", "data");
        give("XDG_STATE_HOME", "state");
        give("XDG_CACHE_HOME", "cache");
    }

    void OnTestEnd(const testing::TestInfo &) override { m_home.reset(); }

private:
    std::unique_ptr<QTemporaryDir> m_home;
};

} // namespace

void isolateTests()
{
    qputenv("LC_ALL", "C.UTF-8");
    // The listeners belong to the framework from here on.
    testing::UnitTest::GetInstance()->listeners().Append(std::make_unique<FreshHome>().release());
}
