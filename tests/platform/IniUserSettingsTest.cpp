#include "platform/linux/IniUserSettings.h"

#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"

#include <QDir>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>

namespace {

class IniUserSettingsTest : public FileWorld
{
protected:
    [[nodiscard]] QByteArray bytes() const { return bytesOf(at("ZentilConf/ZentilConf.ini")); }

    void SetUp() override
    {
        FileWorld::SetUp();
        m_files = access();
    }

    [[nodiscard]] IniUserSettings settings() const { return settings(at("ZentilConf/ZentilConf.ini")); }
    [[nodiscard]] IniUserSettings settings(const QByteArray &file) const
    {
        return IniUserSettings(*m_files, decodeBytes(file));
    }
    [[nodiscard]] QString stored(const QString &key) const { return settings().GetSetting("Settings", key, "<none>"); }
    [[nodiscard]] bool save(const QString &key, const QString &text) const
    {
        return settings().SaveSetting("Settings", key, text);
    }

    void storeFile(const QByteArray &content) const
    {
        ASSERT_TRUE(QDir().mkpath(decodeBytes(at("ZentilConf"))));
        store(at("ZentilConf/ZentilConf.ini"), content);
    }

private:
    std::unique_ptr<LinuxFileAccess> m_files;
};

TEST_F(IniUserSettingsTest, MissingKeyGivesTheDefault)
{
    EXPECT_EQ(settings().GetSetting("Settings", "MainLeft", "1000"), "1000");
    EXPECT_EQ(settings().GetSetting("Settings", "MainLeft", {}), "");
    // Asking makes nothing.
    EXPECT_EQ(namesIn(folder()), QByteArrayList());
    ASSERT_TRUE(save("MainTop", "5"));
    EXPECT_EQ(settings().GetSetting("Settings", "MainLeft", "1000"), "1000");
    EXPECT_EQ(settings().GetSetting("Other", "MainTop", "1000"), "1000");
}

TEST_F(IniUserSettingsTest, FolderIsMade)
{
    const IniUserSettings made = settings(at("a/b/c/file.ini"));
    EXPECT_TRUE(settings(at("a/b/c/file.ini")).SaveSetting("Settings", "MainLeft", "7"));
    EXPECT_EQ(made.GetSetting("Settings", "MainLeft", {}), "7");
    EXPECT_EQ(namesIn(at("a/b/c")), QByteArrayList{"file.ini"});
}

TEST_F(IniUserSettingsTest, StoredTextIsThereAtOnceAndForOthers)
{
    IniUserSettings one = settings();
    IniUserSettings two = settings();
    EXPECT_TRUE(one.SaveSetting("Settings", "MainLeft", "1"));
    EXPECT_EQ(two.GetSetting("Settings", "MainLeft", {}), "1");
    EXPECT_TRUE(two.SaveSetting("Settings", "MainTop", "2"));
    EXPECT_TRUE(one.SaveSetting("Settings", "MainLeft", "3"));
    EXPECT_EQ(two.GetSetting("Settings", "MainLeft", {}), "3");
    EXPECT_EQ(one.GetSetting("Settings", "MainTop", {}), "2");
    // Another program: what it stores is seen here, and nothing of either is lost.
    inChild([this] {
        EXPECT_TRUE(save("MainWidth", "4"));
        EXPECT_TRUE(save("MainLeft", "55555"));
    });
    EXPECT_EQ(one.GetSetting("Settings", "MainWidth", {}), "4");
    EXPECT_EQ(one.GetSetting("Settings", "MainLeft", {}), "55555");
    EXPECT_TRUE(one.SaveSetting("Settings", "MainHeight", "6"));
    EXPECT_EQ(two.GetSetting("Settings", "MainWidth", {}), "4");
    EXPECT_EQ(two.GetSetting("Settings", "MainTop", {}), "2");
}

TEST_F(IniUserSettingsTest, FileCanBeReadByAPerson)
{
    ASSERT_TRUE(save("MainLeft", "1000"));
    EXPECT_EQ(bytes(), "[Settings]\nMainLeft=1000\n");
}

TEST_F(IniUserSettingsTest, WhatCannotBeStoredIsTold)
{
    // For the administrator too: a folder cannot be made where a file is.
    store(at("file"), "old");
    EXPECT_FALSE(settings(at("file/a.ini")).SaveSetting("Settings", "MainLeft", "7"));
    EXPECT_EQ(bytesOf(at("file")), "old");
    EXPECT_EQ(settings(at("file/a.ini")).GetSetting("Settings", "MainLeft", "1"), "1");
    // The file's name is a folder's.
    EXPECT_FALSE(settings(folder()).SaveSetting("Settings", "MainLeft", "7"));

    asOrdinaryUser([this] {
        storeFile("[Settings]\nMainLeft=1\n");
        ASSERT_EQ(chmod(at("ZentilConf/ZentilConf.ini").constData(), 0444), 0);
        ASSERT_EQ(chmod(at("ZentilConf").constData(), 0555), 0);
        EXPECT_FALSE(save("MainLeft", "2"));
        EXPECT_EQ(stored("MainLeft"), "1");
    });
}

TEST_F(IniUserSettingsTest, FileThatMayNotBeReadGivesTheDefault)
{
    asOrdinaryUser([this] {
        storeFile("[Settings]\nMainLeft=1\n");
        ASSERT_EQ(chmod(at("ZentilConf/ZentilConf.ini").constData(), 0), 0);
        EXPECT_EQ(stored("MainLeft"), "<none>");
    });
}

TEST_F(IniUserSettingsTest, FileThatCannotBeReadIsNotWritten)
{
    // Written anew from nothing it would lose everything else that it holds.
    storeFile("[Settings]\nMainLeft=1\n");
    const auto failing = std::make_shared<Interruption>();
    failing->errorOf = [](const Interruption::Call &call) { return call.name == QByteArray("read") ? EIO : 0; };
    const auto files = access(failing);
    IniUserSettings unreadable(*files, decodeBytes(at("ZentilConf/ZentilConf.ini")));
    EXPECT_FALSE(unreadable.SaveSetting("Settings", "MainTop", "2"));
    EXPECT_EQ(unreadable.GetSetting("Settings", "MainLeft", "absent"), "absent");
    EXPECT_EQ(bytes(), "[Settings]\nMainLeft=1\n");
}

TEST_F(IniUserSettingsTest, FullDiskIsToldAndLeavesWhatIsThere)
{
    withOwnMounts([this] {
        ASSERT_EQ(mkdir(at("ZentilConf").constData(), 0755), 0);
        ASSERT_EQ(mount("none", at("ZentilConf").constData(), "tmpfs", 0, "size=16k,mode=0777"), 0);
        const QString first(5'000, 'a');
        ASSERT_TRUE(save("First", first));
        const QByteArray before = bytes();
        // Four pages, of which two are taken.
        for (const int length : {4'000, 7'000, 12'000, 30'000}) {
            EXPECT_FALSE(save("Second", QString(length, 'b'))) << length;
            EXPECT_EQ(bytes(), before);
            EXPECT_EQ(stored("First"), first);
            EXPECT_EQ(stored("Second"), "<none>");
            EXPECT_FALSE(save("First", QString(5'000 + length, 'c'))) << length;
            EXPECT_EQ(stored("First"), first);
        }
        EXPECT_EQ(namesIn(at("ZentilConf")), QByteArrayList{"ZentilConf.ini"});
        EXPECT_TRUE(save("Third", "c"));
        EXPECT_EQ(stored("First"), first);
        EXPECT_EQ(stored("Second"), "<none>");
    });
}

TEST_F(IniUserSettingsTest, DamagedFileIsNoObstacle)
{
    const std::array<QByteArray, 8> damages{
        content(20'000, 3),
        QByteArray(5'000, '\0'),
        "[Settings",
        "[Settings]\nMainLeft",
        "[Settings]\nMainLeft=\"1",
        "=\n=\n[]\n[[[\n]]]\nMainLeft=@Variant(\\0\\0\\0\\x7f\\xff)\n",
        "[Settings]\nMainTop=@Rect(1 2)\nMainLeft=\\x\\\n",
        "\xFF\xFE[\0S\0",
    };
    for (const QByteArray &damage : damages) {
        storeFile(damage);
        (void)stored("MainLeft");
        (void)stored("MainTop");
        // Placements are no reason to keep a file that nobody can read.
        EXPECT_TRUE(save("MainLeft", "9"));
        EXPECT_EQ(stored("MainLeft"), "9");
    }
}

TEST_F(IniUserSettingsTest, DamagedFileThatCannotBeWrittenIsTold)
{
    asOrdinaryUser([this] {
        storeFile("[Settings");
        ASSERT_EQ(chmod(at("ZentilConf/ZentilConf.ini").constData(), 0444), 0);
        EXPECT_FALSE(save("MainLeft", "9"));
        EXPECT_EQ(bytes(), "[Settings");
        EXPECT_EQ(stored("MainLeft"), "<none>");
    });
}

TEST_F(IniUserSettingsTest, TextThatIsStoredAlreadyIsNotWrittenAgain)
{
    ASSERT_TRUE(save("MainLeft", "9"));
    const auto before = statusOf(at("ZentilConf/ZentilConf.ini"));
    ASSERT_TRUE(save("MainLeft", "9"));
    EXPECT_EQ(statusOf(at("ZentilConf/ZentilConf.ini")).st_ino, before.st_ino);
    ASSERT_TRUE(save("MainLeft", "10"));
    EXPECT_NE(statusOf(at("ZentilConf/ZentilConf.ini")).st_ino, before.st_ino);
}

TEST_F(IniUserSettingsTest, ProgramsThatStoreAtOnceLoseNothing)
{
    constexpr int programs = 4;
    constexpr int keys = 25;
    std::array<pid_t, programs> children{};
    for (int program = 0; program < programs; ++program) {
        children[size_t(program)] = fork();
        ASSERT_GE(children[size_t(program)], 0);
        if (children[size_t(program)] == 0) {
            bool isStored = true;
            for (int number = 0; number < keys; ++number)
                isStored = save(QString("Key%1of%2").arg(number).arg(program), QString::number(number)) && isStored;
            _exit(isStored ? 0 : 1);
        }
    }
    for (const pid_t child : children) {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    for (int program = 0; program < programs; ++program) {
        for (int number = 0; number < keys; ++number)
            EXPECT_EQ(stored(QString("Key%1of%2").arg(number).arg(program)), QString::number(number));
    }
    EXPECT_EQ(namesIn(at("ZentilConf")), QByteArrayList{"ZentilConf.ini"});
}

TEST_F(IniUserSettingsTest, FolderThatStaysLockedIsTold)
{
    ASSERT_TRUE(save("MainLeft", "1"));
    const int other = open(at("ZentilConf").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_FALSE(save("MainLeft", "2"));
    EXPECT_EQ(stored("MainLeft"), "1");
    ASSERT_EQ(close(other), 0);
    EXPECT_TRUE(save("MainLeft", "2"));
}

} // namespace
