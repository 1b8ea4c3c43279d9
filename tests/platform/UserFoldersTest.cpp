#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <pwd.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {

/// A program that is started in a folder of its own.
class UserFolders : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(QDir::setCurrent(m_folder.path())); }
    void TearDown() override { ASSERT_TRUE(QDir::setCurrent(m_before)); }

    /// What lies in the folder that the program was started in.
    [[nodiscard]] QStringList namesHere() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    static void useEverything()
    {
        const Platform platform = makePlatform("ZentilConf", 0, nullptr);
        EXPECT_TRUE(platform.userSettings->SaveSetting("Settings", "Key", "1"));
        EXPECT_EQ(platform.registry->RegSetValueExA(Registry::CurrentUser, "v", 3, "1"), Registry::Result::Success);
    }

private:
    QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};

TEST_F(UserFolders, ThatAreAbsoluteAreUsed)
{
    const QString configuration = qEnvironmentVariable("XDG_CONFIG_HOME");
    const QString data = qEnvironmentVariable("XDG_DATA_HOME");
    useEverything();
    EXPECT_TRUE(QFile::exists(configuration + "/ZentilConf/ZentilConf.ini"));
    EXPECT_TRUE(QFile::exists(data + "/ZentilConf/registry.db"));
}

TEST_F(UserFolders, ThatAreNotAbsoluteAreThoseOfTheHome)
{
    for (const char *path : {"relative", "./relative", "~/relative", ""}) {
        SCOPED_TRACE(path);
        QTemporaryDir home;
        qputenv("HOME", home.path().toUtf8());
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
            qputenv(variable, path);
        useEverything();
        EXPECT_TRUE(QFile::exists(home.filePath(".config/ZentilConf/ZentilConf.ini")));
        EXPECT_TRUE(QFile::exists(home.filePath(".local/share/ZentilConf/registry.db")));
        EXPECT_EQ(namesHere(), QStringList());
    }
}

TEST_F(UserFolders, HomeThatIsNotGivenIsThatOfTheUserDatabase)
{
    const passwd *user = getpwuid(geteuid());
    ASSERT_TRUE(user);
    const QByteArray expected = user->pw_dir;
    for (const char *path : {"", "relative", "~"}) {
        qputenv("HOME", path);
        (void)makePlatform("ZentilConf", 0, nullptr);
        EXPECT_EQ(qgetenv("HOME"), expected) << path;
    }
    qunsetenv("HOME");
    (void)makePlatform("ZentilConf", 0, nullptr);
    EXPECT_EQ(qgetenv("HOME"), expected);
    EXPECT_EQ(namesHere(), QStringList());
}

} // namespace
