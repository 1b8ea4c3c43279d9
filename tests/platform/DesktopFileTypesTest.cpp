// Associations as desktops see them, asked with the programs and libraries that desktops use.
#include "platform/linux/DesktopFileTypes.h"

#include "platform/ByteText.h"
#include "tests/platform/ChildProcess.h"
#include "tests/platform/FileWorld.h"

#include <QDir>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>

#include <sched.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace {

class DesktopFileTypesTest : public FileWorld
{
protected:
    void SetUp() override
    {
        FileWorld::SetUp();
        qputenv("XDG_DATA_HOME", at("data"));
        qputenv("XDG_CONFIG_HOME", at("config"));
        // No package has installed anything, but for the types that every desktop has.
        qputenv("XDG_DATA_DIRS", at("system") + ":/usr/share");
        makeProgram("program folder/zentilconf");
    }

    void makeProgram(const QByteArray &name)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(decodeBytes(at(name))).path()));
        store(at(name), "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"${0%/*}/arguments\"\n");
        ASSERT_EQ(chmod(at(name).constData(), 0755), 0);
    }

    void associate(const QByteArray &program)
    {
        const auto files = access();
        DesktopFileTypes(*files, decodeBytes(at("data")), decodeBytes(at("config")))
            .associate(".zcf", decodeBytes(at(program)));
    }

    /// What a program prints.
    static QByteArray output(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
        return process.readAllStandardOutput();
    }

    [[nodiscard]] static QString typeOf(const QString &name)
    {
        return QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension).name();
    }
};

TEST_F(DesktopFileTypesTest, ExtensionHasATypeThatOpensWithTheProgram)
{
    associate("program folder/zentilconf");
    EXPECT_EQ(typeOf("a.zcf"), "application/x-zentil-configuration");
    EXPECT_TRUE(QMimeDatabase().mimeTypeForName("application/x-zentil-configuration").inherits("text/plain"));
    output("desktop-file-validate", {decodeBytes(at("data/applications/zentilconf.desktop"))});
    const QByteArray answer = output("gio", {"mime", "application/x-zentil-configuration"});
    EXPECT_TRUE(answer.split('\n').first().endsWith(": zentilconf.desktop")) << answer.constData();
}

TEST_F(DesktopFileTypesTest, FileOpensWithTheProgram)
{
    associate("program folder/zentilconf");
    store(at("a b.zcf"), "C:\\ RS\n");
    output("gio", {"launch", decodeBytes(at("data/applications/zentilconf.desktop")), decodeBytes(at("a b.zcf"))});
    // The program is started, not waited for.
    while (bytesOf(at("program folder/arguments")).isEmpty())
        sched_yield();
    EXPECT_EQ(bytesOf(at("program folder/arguments")), at("a b.zcf") + '\n');
}

TEST_F(DesktopFileTypesTest, AnotherProgramTakesItsPlace)
{
    associate("program folder/zentilconf");
    makeProgram("other/zentilconf");
    associate("other/zentilconf");
    const QByteArray entry = bytesOf(at("data/applications/zentilconf.desktop"));
    EXPECT_TRUE(entry.contains("Exec=\"" + at("other/zentilconf") + "\" %F\n")) << entry.constData();
    EXPECT_FALSE(entry.contains("program folder"));
}

TEST_F(DesktopFileTypesTest, UsersOtherAssociationsStay)
{
    ASSERT_TRUE(QDir().mkpath(decodeBytes(at("config"))));
    store(at("config/mimeapps.list"), "[Default Applications]\ntext/html=browser.desktop\n");
    associate("program folder/zentilconf");
    EXPECT_TRUE(bytesOf(at("config/mimeapps.list")).startsWith("[Default Applications]\ntext/html=browser.desktop\n"));
}

TEST_F(DesktopFileTypesTest, InstalledProgramNeedsNoEntryOfTheUser)
{
    associate("program folder/zentilconf");
    ASSERT_TRUE(QDir().rename(decodeBytes(at("data")), decodeBytes(at("system"))));
    associate("program folder/zentilconf");
    EXPECT_EQ(namesIn(at("data")), QByteArrayList());
    EXPECT_EQ(typeOf("a.zcf"), "application/x-zentil-configuration");
    // Another program of the same name does.
    makeProgram("other/zentilconf");
    associate("other/zentilconf");
    EXPECT_TRUE(bytesOf(at("data/applications/zentilconf.desktop")).contains(at("other/zentilconf")));
}

TEST_F(DesktopFileTypesTest, ListThatCannotBeWrittenLeavesNothingBehind)
{
    asOrdinaryUser([this] {
        ASSERT_TRUE(QDir().mkpath(decodeBytes(at("config"))));
        store(at("config/mimeapps.list"), "[Default Applications]\n");
        ASSERT_EQ(chmod(at("config/mimeapps.list").constData(), 0444), 0);
        ASSERT_EQ(chmod(at("config").constData(), 0555), 0);
        const auto error = errorOf([this] { associate("program folder/zentilconf"); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), decodeBytes(at("config/mimeapps.list")));
        EXPECT_FALSE(QFileInfo::exists(decodeBytes(at("data/applications/zentilconf.desktop"))));
        EXPECT_FALSE(QFileInfo::exists(decodeBytes(at("data/mime/packages/zentilconf.xml"))));
        EXPECT_EQ(bytesOf(at("config/mimeapps.list")), "[Default Applications]\n");
    });
}

TEST_F(DesktopFileTypesTest, DesktopWithoutTypesIsToldAndLeavesNothingBehind)
{
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", at("nowhere"));
    const auto error = errorOf([this] { associate("program folder/zentilconf"); });
    qputenv("PATH", path);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), RuntimeError::FileNotFound);
    EXPECT_EQ(error->path(), "update-mime-database");
    EXPECT_FALSE(QFileInfo::exists(decodeBytes(at("data/applications/zentilconf.desktop"))));
    EXPECT_FALSE(QFileInfo::exists(decodeBytes(at("config/mimeapps.list"))));
}

} // namespace
