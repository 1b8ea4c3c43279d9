#include "platform/linux/LinuxFileSystem.h"

#include "platform/ByteText.h"
#include "platform/Platform.h"
#include "tests/platform/ChildProcess.h"
#include "tests/support/Random.h"

#include <QByteArrayList>
#include <QDir>
#include <QTemporaryDir>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A folder of drives, and folders that its links lead to.
class LinuxFileSystemTest : public testing::Test
{
protected:
    LinuxFileSystemTest()
    {
        makeFolder("drives");
        makeFolder("disk");
        link(at("disk"), "drives/c:");
    }

    [[nodiscard]] QByteArray at(const QByteArray &name) const { return root.path().toUtf8() + '/' + name; }

    void makeFolder(const QByteArray &name) const
    {
        ASSERT_EQ(mkdir(at(name).constData(), 0755), 0) << name.constData();
    }

    void makeFile(const QByteArray &name) const
    {
        std::ofstream file(at(name).toStdString());
        ASSERT_TRUE(file.is_open()) << name.constData();
    }

    void link(const QByteArray &target, const QByteArray &name) const
    {
        ASSERT_EQ(symlink(target.constData(), at(name).constData()), 0) << name.constData();
    }

    const QTemporaryDir root;
    const LinuxFileSystem fileSystem{at("drives")};
};

TEST_F(LinuxFileSystemTest, DrivesAreTheLinksOfTheFolder)
{
    makeFolder("other");
    link("../other", "drives/d:");
    makeFolder("drives/e:");
    link(at("none"), "drives/f:");
    makeFile("drives/g:");
    link("/dev/null", "drives/h:");

    for (const char *existing : {"C:\\", "c:\\", "C:", "C:/", "D:\\", "E:\\", "C:\\no\\such\\folder"})
        EXPECT_TRUE(fileSystem.DriveExists(existing)) << existing;
    // A link that leads nowhere, a file, a device, nothing at all, no drive.
    for (const char *missing : {"F:\\", "G:\\", "H:\\", "Z:\\", "", "\\", "C", ":\\", "\\\\host\\C$", "1:\\"})
        EXPECT_FALSE(fileSystem.DriveExists(missing)) << missing;
}

TEST_F(LinuxFileSystemTest, WithoutAFolderOfDrivesCIsTheRootFolder)
{
    const LinuxFileSystem plain(at("none"));
    EXPECT_TRUE(plain.DriveExists("C:\\"));
    EXPECT_FALSE(plain.DriveExists("D:\\"));
    EXPECT_FALSE(plain.DriveExists("\\\\host\\C$"));
    EXPECT_TRUE(plain.FolderExists("C:\\"));
    makeFile("disk/a");
    EXPECT_TRUE(plain.FileExists("C:" + root.path() + "/disk/a"));
}

TEST_F(LinuxFileSystemTest, AnEmptyFolderOfDrivesHasNone)
{
    makeFolder("empty");
    EXPECT_FALSE(LinuxFileSystem(at("empty")).DriveExists("C:\\"));
}

TEST_F(LinuxFileSystemTest, TheProgramsDrivesAreBelowTheConfigurationFolder)
{
    const Platform platform = makePlatform("ZentilConf", 0, nullptr);
    EXPECT_TRUE(platform.fileSystem->FolderExists("C:\\usr"));

    const QString drives = qEnvironmentVariable("XDG_CONFIG_HOME") + "/ZentilConf/dosdevices";
    ASSERT_TRUE(QDir().mkpath(drives));
    ASSERT_TRUE(QFile::link(decodeBytes(at("disk")), drives + "/q:"));
    EXPECT_TRUE(platform.fileSystem->DriveExists("Q:\\"));
    EXPECT_FALSE(platform.fileSystem->DriveExists("C:\\"));
}

TEST_F(LinuxFileSystemTest, NamesAreFoundWhateverTheirCase)
{
    makeFolder("disk/Program Files");
    makeFile("disk/Program Files/Überall.TXT");
    EXPECT_TRUE(fileSystem.FolderExists("C:\\Program Files"));
    EXPECT_TRUE(fileSystem.FolderExists("c:\\PROGRAM FILES\\"));
    EXPECT_TRUE(fileSystem.FileExists("C:\\program files\\überall.txt"));
    EXPECT_TRUE(fileSystem.FileExists("C:\\program files\\ÜBERALL.TXT"));
    EXPECT_FALSE(fileSystem.FileExists("C:\\program files\\uberall.txt"));
    EXPECT_EQ(fileSystem.ListFolder("C:\\PROGRAM files").files, QStringList{"Überall.TXT"});
}

TEST_F(LinuxFileSystemTest, ANameAsItIsWrittenGoesFirst)
{
    makeFolder("disk/data");
    makeFolder("disk/Data");
    makeFolder("disk/DATA");
    makeFile("disk/data/small");
    makeFile("disk/Data/mixed");
    makeFile("disk/DATA/great");
    EXPECT_EQ(fileSystem.ListFolder("C:\\data").files, QStringList{"small"});
    EXPECT_EQ(fileSystem.ListFolder("C:\\Data").files, QStringList{"mixed"});
    // As it is written there is none: the first by bytes.
    EXPECT_EQ(fileSystem.ListFolder("C:\\dATA").files, QStringList{"great"});
}

TEST_F(LinuxFileSystemTest, FoldersAndFilesAreToldApart)
{
    makeFolder("disk/folder");
    makeFile("disk/file");
    EXPECT_TRUE(fileSystem.FolderExists("C:\\folder"));
    EXPECT_FALSE(fileSystem.FileExists("C:\\folder"));
    EXPECT_TRUE(fileSystem.FileExists("C:\\file"));
    EXPECT_FALSE(fileSystem.FolderExists("C:\\file"));
    EXPECT_FALSE(fileSystem.FolderExists("C:\\file\\x"));
    EXPECT_FALSE(fileSystem.FileExists("C:\\none"));
    EXPECT_FALSE(fileSystem.FileExists("file"));
    EXPECT_FALSE(fileSystem.FolderExists("folder"));
    EXPECT_FALSE(fileSystem.FolderExists("\\folder"));
}

TEST_F(LinuxFileSystemTest, EverythingInAFolderIsListed)
{
    makeFolder("disk/folder");
    makeFolder("disk/.hidden");
    makeFile("disk/file");
    makeFile("disk/.dot");
    ASSERT_EQ(mkfifo(at("disk/pipe").constData(), 0600), 0);
    const FolderContent content = fileSystem.ListFolder("C:\\");
    EXPECT_THAT(content.folders, UnorderedElementsAre(QString("folder"), QString(".hidden")));
    EXPECT_THAT(content.files, UnorderedElementsAre(QString("file"), QString(".dot"), QString("pipe")));
}

TEST_F(LinuxFileSystemTest, ALinkIsWhatItLeadsTo)
{
    makeFolder("disk/folder");
    makeFile("disk/folder/file");
    link("folder", "disk/toFolder");
    link("folder/file", "disk/toFile");
    link("none", "disk/toNothing");
    const FolderContent content = fileSystem.ListFolder("C:\\");
    EXPECT_THAT(content.folders, UnorderedElementsAre(QString("folder"), QString("toFolder")));
    EXPECT_THAT(content.files, UnorderedElementsAre(QString("toFile"), QString("toNothing")));
    EXPECT_TRUE(fileSystem.FileExists("C:\\TOFOLDER\\FILE"));
    EXPECT_TRUE(fileSystem.FileExists("C:\\toNothing"));
}

TEST_F(LinuxFileSystemTest, LinksThatLoopDoNoHarm)
{
    link("self", "disk/self");
    link("b", "disk/a");
    link("a", "disk/b");
    link(".", "disk/here");
    link("x:", "drives/x:");
    const FolderContent content = fileSystem.ListFolder("C:\\");
    EXPECT_THAT(content.files, UnorderedElementsAre(QString("self"), QString("a"), QString("b")));
    EXPECT_EQ(content.folders, QStringList{"here"});
    EXPECT_FALSE(fileSystem.FolderExists("C:\\self\\x"));
    EXPECT_TRUE(fileSystem.FolderExists("C:\\here\\HERE\\here"));
    EXPECT_FALSE(fileSystem.DriveExists("X:\\"));
    // The system follows only so many, and names of only so many bytes.
    EXPECT_FALSE(fileSystem.FolderExists("C:" + QString("\\here").repeated(100)));
    EXPECT_THAT(fileSystem.ListFolder("C:" + QString("\\here").repeated(2'000)).folders, IsEmpty());
}

TEST_F(LinuxFileSystemTest, AnUnreadableFolderIsEmpty)
{
    makeFolder("disk/closed");
    makeFile("disk/closed/file");
    giveToOrdinaryUser(at(""));
    giveToOrdinaryUser(at("disk"));
    ASSERT_EQ(chmod(at("disk/closed").constData(), 0), 0);
    asOrdinaryUser([this] {
        EXPECT_TRUE(fileSystem.FolderExists("C:\\closed"));
        const FolderContent content = fileSystem.ListFolder("C:\\closed");
        EXPECT_TRUE(content.folders.isEmpty() && content.files.isEmpty());
        EXPECT_FALSE(fileSystem.FileExists("C:\\closed\\file"));
        EXPECT_FALSE(fileSystem.FileExists("C:\\closed\\FILE"));
        EXPECT_EQ(fileSystem.ListFolder("C:\\").folders, QStringList{"closed"});
    });
    ASSERT_EQ(chmod(at("disk/closed").constData(), 0755), 0);
    EXPECT_EQ(fileSystem.ListFolder("C:\\closed").files, QStringList{"file"});
}

TEST_F(LinuxFileSystemTest, BytesThatAreNoTextAreCarried)
{
    makeFolder("disk/Stra\xDF\x65");
    makeFile("disk/Stra\xDF\x65/\xFF\xFE");
    const QString folder = fileSystem.ListFolder("C:\\").folders.value(0);
    EXPECT_EQ(encodeText(folder), "Stra\xDF\x65");
    EXPECT_EQ(fileSystem.ListFolder("C:\\" + folder).files, QStringList{decodeBytes("\xFF\xFE")});
    EXPECT_TRUE(fileSystem.FileExists("c:\\" + decodeBytes("sTRA\xDF\x45\\\xFF\xFE")));
    // The toolkit's temporary folder cannot remove such names.
    ASSERT_EQ(unlink(at("disk/Stra\xDF\x65/\xFF\xFE").constData()), 0);
    ASSERT_EQ(rmdir(at("disk/Stra\xDF\x65").constData()), 0);
}

TEST_F(LinuxFileSystemTest, NamesThatNoPathLeadsToAreLeftOut)
{
    makeFile("disk/a\\b");
    makeFolder("disk/c\\d");
    makeFile("disk/plain");
    const FolderContent content = fileSystem.ListFolder("C:\\");
    EXPECT_EQ(content.files, QStringList{"plain"});
    EXPECT_TRUE(content.folders.isEmpty());
}

TEST_F(LinuxFileSystemTest, NoPathLeadsOutOfItsDrive)
{
    makeFolder("disk/sub");
    makeFile("outside");
    EXPECT_TRUE(fileSystem.FolderExists("C:\\..\\sub"));
    EXPECT_TRUE(fileSystem.FolderExists("C:\\sub\\.\\..\\sub\\\\"));
    EXPECT_FALSE(fileSystem.FileExists("C:\\..\\outside"));
    EXPECT_FALSE(fileSystem.FileExists("C:\\sub\\..\\..\\outside"));
    EXPECT_FALSE(fileSystem.FolderExists("\\\\..\\disk\\sub"));
    EXPECT_FALSE(fileSystem.FolderExists(QString("C:\\sub") + QChar(u'\0') + "x"));
}

TEST_F(LinuxFileSystemTest, SharesAreLinksBelowTheirHost)
{
    makeFolder("drives/unc");
    makeFolder("drives/unc/Server");
    link(at("disk"), "drives/unc/Server/C$");
    makeFile("disk/boot.ini");
    EXPECT_TRUE(fileSystem.DriveExists("\\\\server\\c$\\"));
    EXPECT_TRUE(fileSystem.FolderExists("\\\\SERVER\\C$"));
    EXPECT_TRUE(fileSystem.FileExists("\\\\server\\C$\\BOOT.INI"));
    EXPECT_EQ(fileSystem.ListFolder("\\\\server\\C$\\").files, QStringList{"boot.ini"});
    for (const char *missing :
         {"\\\\server\\D$\\", "\\\\other\\C$\\", "\\\\server", "\\\\server\\", "\\\\", "\\\\server\\C:\\"})
        EXPECT_FALSE(fileSystem.DriveExists(missing)) << missing;
    EXPECT_FALSE(fileSystem.FolderExists("\\\\server"));
}

TEST_F(LinuxFileSystemTest, TheSystemsPathIsTheOneThatIsFound)
{
    makeFolder("disk/Folder");
    makeFile("disk/Folder/A");
    link("A", "disk/Folder/link");
    EXPECT_EQ(fileSystem.systemPath("c:\\FOLDER\\a"), decodeBytes(at("disk/Folder/A")));
    EXPECT_EQ(fileSystem.systemPath("C:\\folder"), decodeBytes(at("disk/Folder")));
    EXPECT_EQ(fileSystem.systemPath("C:\\"), decodeBytes(at("disk")));
    // A link to a file is a file of its own.
    EXPECT_EQ(fileSystem.systemPath("C:\\folder\\link"), decodeBytes(at("disk/Folder/link")));
    EXPECT_EQ(fileSystem.systemPath("C:\\none"), QString());
    EXPECT_EQ(fileSystem.systemPath("none"), QString());
}

TEST_F(LinuxFileSystemTest, TheNearestDriveLeadsToASystemsPath)
{
    makeFolder("disk/sub");
    makeFolder("disk/sub2");
    link(at("disk/sub"), "drives/d:");
    const auto pathOf = [this](const QByteArray &name) { return fileSystem.pathOf(decodeBytes(at(name)), ""); };
    EXPECT_EQ(pathOf("disk/a b"), "C:\\a b");
    EXPECT_EQ(pathOf("disk/sub2/x"), "C:\\sub2\\x");
    EXPECT_EQ(pathOf("disk/sub/x"), "D:\\x");
    EXPECT_EQ(pathOf("disk/sub"), "D:\\");
    EXPECT_EQ(pathOf("disk/"), "C:\\");
    // Through the folder of drives itself, as systemPath() gives it.
    EXPECT_EQ(pathOf("drives/c:/sub2/x"), "C:\\sub2\\x");
    // A link in front of the name is followed, one that is the name is meant itself.
    link(at("disk/sub2"), "toSub");
    link("sub2", "disk/link");
    EXPECT_EQ(pathOf("toSub/x"), "C:\\sub2\\x");
    EXPECT_EQ(pathOf("disk/link"), "C:\\link");
    EXPECT_EQ(pathOf("disk/St\xDF"), decodeBytes("C:\\St\xDF"));
}

TEST_F(LinuxFileSystemTest, NoDriveLeadsToOtherPaths)
{
    makeFolder("disk2");
    for (const char *name : {"", "outside", "disk2/x", "disk/none/x", "disk/a\\b"})
        EXPECT_EQ(fileSystem.pathOf(decodeBytes(at(name)), ""), QString()) << name;
    EXPECT_EQ(fileSystem.pathOf("", ""), QString());
    EXPECT_EQ(fileSystem.pathOf("disk/x", ""), QString());
}

TEST_F(LinuxFileSystemTest, WithoutAFolderOfDrivesEveryPathIsOneOfC)
{
    const LinuxFileSystem plain(at("none"));
    EXPECT_EQ(plain.pathOf("/", ""), "C:\\");
    EXPECT_EQ(plain.pathOf("/none", ""), "C:\\none");
    EXPECT_EQ(plain.pathOf("/usr/lib", ""), "C:\\usr\\lib");
    EXPECT_EQ(plain.pathOf("/usr/lib", "host"), QString());
}

TEST_F(LinuxFileSystemTest, AHostsPathsLeadThroughItsShares)
{
    makeFolder("share");
    makeFolder("drives/unc");
    makeFolder("drives/unc/Server");
    link(at("share"), "drives/unc/Server/C$");
    link(at("share"), "drives/s:");
    makeFile("drives/unc/Server/note");
    const QString there = decodeBytes(at("share/a"));
    EXPECT_EQ(fileSystem.pathOf(there, "SERVER"), "\\\\SERVER\\C$\\a");
    EXPECT_EQ(fileSystem.pathOf(there, ""), "S:\\a");
    EXPECT_EQ(fileSystem.pathOf(there, "other"), QString());
    EXPECT_EQ(fileSystem.pathOf(decodeBytes(at("disk/a")), "server"), QString());
    ASSERT_EQ(unlink(at("drives/s:").constData()), 0);
    EXPECT_EQ(fileSystem.pathOf(there, ""), "\\\\Server\\C$\\a");
}

TEST_F(LinuxFileSystemTest, ADriveIsOfTheKindOfItsMount)
{
    withOwnMounts([this] {
        ASSERT_EQ(mount("none", at("disk").constData(), "tmpfs", 0, nullptr), 0);
        makeFolder("disk/sub");
        link(at("disk/sub"), "drives/r:");
        EXPECT_EQ(fileSystem.GetDrive("C:\\").DriveType, DriveKind::RamDisk);
        EXPECT_EQ(fileSystem.GetDrive("R:\\").DriveType, DriveKind::RamDisk);
    });
    link("/proc", "drives/p:");
    EXPECT_EQ(fileSystem.GetDrive("P:\\").DriveType, DriveKind::Unknown);
    EXPECT_EQ(fileSystem.GetDrive("Z:\\").DriveType, DriveKind::Unknown);
}

/// Random trees, found again through names in random case, as a walk over the tree by hand finds them.
TEST_F(LinuxFileSystemTest, EveryPathOfATreeIsFound)
{
    Random random(6);
    const QStringList alphabet{"a", "B", "ä", "Ö", " ", ".x", "$"};
    QStringList folders{QString()};
    QStringList files;
    for (int i = 0; i < 200; ++i) {
        // The number keeps names apart that differ in case only.
        const QString path = random.oneOf(folders) + '/' + random.text(alphabet, 6) + QString::number(i);
        if (random.chance(40)) {
            makeFolder("disk" + path.toUtf8());
            folders << path;
        } else {
            makeFile("disk" + path.toUtf8());
            files << path;
        }
    }
    const auto anyCase = [&random](const QString &path) {
        QString line = "C:";
        for (const QChar c : path)
            line += c == '/' ? QChar('\\') : random.chance(50) ? c.toUpper() : c.toLower();
        return line;
    };
    for (const QString &folder : folders) {
        ASSERT_TRUE(fileSystem.FolderExists(anyCase(folder))) << folder.toStdString();
        const FolderContent content = fileSystem.ListFolder(anyCase(folder));
        const auto directlyIn = [&folder](const QStringList &paths) {
            QStringList names;
            for (const QString &path : paths) {
                if (!path.isEmpty() && path.left(path.lastIndexOf('/')) == folder)
                    names << path.mid(path.lastIndexOf('/') + 1);
            }
            return names;
        };
        EXPECT_THAT(content.folders, testing::UnorderedElementsAreArray(directlyIn(folders)));
        EXPECT_THAT(content.files, testing::UnorderedElementsAreArray(directlyIn(files)));
    }
    for (const QString &file : files)
        EXPECT_TRUE(fileSystem.FileExists(anyCase(file))) << file.toStdString();
}

} // namespace
