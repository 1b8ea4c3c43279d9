#include "platform/windows/WindowsFileSystem.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::UnorderedElementsAre;

class WindowsFileSystemTest : public testing::Test
{
protected:
    [[nodiscard]] QString at(const QString &name) const { return QDir::toNativeSeparators(root.filePath(name)); }

    void makeFile(const QString &name) const
    {
        QFile file(root.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    }

    void makeFolder(const QString &name) const { ASSERT_TRUE(QDir(root.path()).mkpath(name)); }

    const QTemporaryDir root;
    const WindowsFileSystem fileSystem;
};

TEST_F(WindowsFileSystemTest, TheSystemsDriveIsAFixedDisk)
{
    const QString drive = QDir::toNativeSeparators(qEnvironmentVariable("SystemDrive")) + '\\';
    EXPECT_TRUE(fileSystem.DriveExists(drive));
    EXPECT_TRUE(fileSystem.DriveExists(drive.toLower()));
    EXPECT_EQ(fileSystem.GetDrive(drive).DriveType, DriveKind::FixedDisk);
    EXPECT_TRUE(fileSystem.FolderExists(drive));
    EXPECT_TRUE(fileSystem.FolderExists(drive.first(2)));
}

TEST_F(WindowsFileSystemTest, WhatIsNoDriveDoesNotExist)
{
    for (const char *missing : {"", "\\", "C", "1:\\", "\\\\no host\\C:\\", "\\\\", "\\\\host"}) {
        EXPECT_FALSE(fileSystem.DriveExists(missing)) << missing;
        EXPECT_EQ(fileSystem.GetDrive(missing).DriveType, DriveKind::Unknown) << missing;
    }
}

TEST_F(WindowsFileSystemTest, FoldersAndFilesAreToldApart)
{
    makeFolder("Folder");
    makeFile("Überall.txt");
    EXPECT_TRUE(fileSystem.FolderExists(at("FOLDER")));
    EXPECT_TRUE(fileSystem.FolderExists(at("Folder") + '\\'));
    EXPECT_FALSE(fileSystem.FileExists(at("Folder")));
    EXPECT_TRUE(fileSystem.FileExists(at("überall.TXT")));
    EXPECT_FALSE(fileSystem.FolderExists(at("Überall.txt")));
    EXPECT_FALSE(fileSystem.FileExists(at("none")));
}

TEST_F(WindowsFileSystemTest, APathIsNeverTakenFromTheCurrentFolder)
{
    makeFolder("Folder");
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(root.path()));
    EXPECT_FALSE(fileSystem.FolderExists("Folder"));
    EXPECT_FALSE(fileSystem.FolderExists(at("").first(2) + "Folder"));
    EXPECT_TRUE(fileSystem.ListFolder("").folders.isEmpty());
    QDir::setCurrent(before);
}

TEST_F(WindowsFileSystemTest, EverythingInAFolderIsListed)
{
    makeFolder("a/b");
    makeFolder("a/c");
    makeFile("a/d.txt");
    makeFile("a/é");
    const FolderContent content = fileSystem.ListFolder(at("a"));
    EXPECT_THAT(content.folders, UnorderedElementsAre(QString("b"), QString("c")));
    EXPECT_THAT(content.files, UnorderedElementsAre(QString("d.txt"), QString("é")));
    EXPECT_TRUE(fileSystem.ListFolder(at("a\\b")).files.isEmpty());
    EXPECT_TRUE(fileSystem.ListFolder(at("none")).folders.isEmpty());
}

TEST_F(WindowsFileSystemTest, PathsMayBeLong)
{
    QString folder = "long";
    for (int i = 0; i < 6; ++i)
        folder += '/' + QString(50, 'x');
    makeFolder(folder);
    makeFile(folder + "/file");
    EXPECT_TRUE(fileSystem.FolderExists(at(folder)));
    EXPECT_EQ(fileSystem.ListFolder(at(folder)).files, QStringList{"file"});
}

TEST_F(WindowsFileSystemTest, TheSystemsPathsAreTheSame)
{
    makeFile("a");
    EXPECT_EQ(fileSystem.systemPath(at("a")), at("a"));
    EXPECT_EQ(fileSystem.systemPath(at("none")), QString());
    // A file dialog of the toolkit gives it with other separators.
    EXPECT_EQ(fileSystem.pathOf(root.filePath("a"), ""), at("a"));
    EXPECT_EQ(fileSystem.pathOf("//host/C$/a", "HOST"), "\\\\host\\C$\\a");
    EXPECT_EQ(fileSystem.pathOf("//host/C$/a", ""), "\\\\host\\C$\\a");
    for (const char *elsewhere : {"C:/a", "//other/C$/a", "", "a"})
        EXPECT_EQ(fileSystem.pathOf(elsewhere, "host"), QString()) << elsewhere;
}

TEST(DriveRoot, IsThatOfTheDriveOrTheShare)
{
    EXPECT_EQ(driveRootOf("C:\\a\\b"), "C:\\");
    EXPECT_EQ(driveRootOf("d:"), "d:\\");
    EXPECT_EQ(driveRootOf("\\\\host\\C$\\a"), "\\\\host\\C$\\");
    EXPECT_EQ(driveRootOf("//host/share"), "\\\\host\\share\\");
    for (const char *none : {"", "C", "1:", "é:\\a", "\\a", "a\\b", "\\\\host", "\\\\host\\"})
        EXPECT_EQ(driveRootOf(none), QString()) << none;
}

} // namespace
