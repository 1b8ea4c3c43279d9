#include "browse/DrivePaths.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

TEST(DrivePaths, ALocalPathIsTheSameInBothForms)
{
    for (const char *path : {"C:\\", "C:", "D:\\dir\\file", "c:\\a", "\\\\srv\\C$\\dir", "%TEMP%\\x", "", "\\"}) {
        EXPECT_EQ(browsePath(path, ""), path);
        EXPECT_EQ(linePath(path, ""), path);
    }
}

TEST(DrivePaths, ForARemoteDocumentBootIniIsBrowsedThroughTheHostsShare)
{
    EXPECT_EQ(browsePath("C:\\boot.ini", "host"), "\\\\host\\C$\\boot.ini");
    EXPECT_EQ(linePath("\\\\host\\C$\\boot.ini", "host"), "C:\\boot.ini");
}

TEST(DrivePaths, ADriveAloneIsItsShare)
{
    EXPECT_EQ(browsePath("C:\\", "host"), "\\\\host\\C$\\");
    EXPECT_EQ(browsePath("C:", "host"), "\\\\host\\C$");
    EXPECT_EQ(linePath("\\\\host\\C$\\", "host"), "C:\\");
    EXPECT_EQ(linePath("\\\\host\\C$", "host"), "C:");
}

TEST(DrivePaths, HostsAreComparedWithoutCase)
{
    EXPECT_EQ(linePath("\\\\HOST\\d$\\x", "host"), "d:\\x");
}

TEST(DrivePaths, OnlyADriveOfTheHostHasALineForm)
{
    // Another host, a share that is no drive, a name that begins like one, the host alone.
    for (const char *path : {"\\\\other\\C$\\x", "\\\\host\\share\\x", "\\\\host\\C$x\\y", "\\\\host\\ADMIN$",
                             "\\\\host\\", "\\\\host", "\\\\hostess\\C$\\x", "C:\\x", "\\\\host\\1$\\x"})
        EXPECT_EQ(linePath(path, "host"), path);
}

TEST(DrivePaths, WhatBeginsWithNoDriveStays)
{
    for (const char *path : {"", "C", "\\dir", "dir\\file", "1:\\x", "%SystemRoot%\\x", "\\\\srv\\share"})
        EXPECT_EQ(browsePath(path, "host"), path);
}

TEST(DrivePaths, ASeparatorIsNotDoubled)
{
    EXPECT_EQ(pathIn("C:\\", "a"), "C:\\a");
    EXPECT_EQ(pathIn("C:\\a", "b"), "C:\\a\\b");
    EXPECT_EQ(pathIn("\\\\host\\C$\\", "a"), "\\\\host\\C$\\a");
}

TEST(DrivePaths, TheWayToAFolderBeginsWithItsDriveOrShare)
{
    EXPECT_EQ(foldersOnTheWay("C:\\"), QStringList{"C:\\"});
    EXPECT_EQ(foldersOnTheWay("C:"), QStringList{"C:\\"});
    EXPECT_EQ(foldersOnTheWay("C:\\a\\b c\\"), (QStringList{"C:\\", "C:\\a", "C:\\a\\b c"}));
    EXPECT_EQ(foldersOnTheWay("c:/a\\\\b"), (QStringList{"c:\\", "c:\\a", "c:\\a\\b"}));
    EXPECT_EQ(foldersOnTheWay("\\\\host\\C$"), QStringList{"\\\\host\\C$\\"});
    EXPECT_EQ(foldersOnTheWay("\\\\host\\C$\\a"), (QStringList{"\\\\host\\C$\\", "\\\\host\\C$\\a"}));
}

TEST(DrivePaths, ADriveIsAskedForThroughTheHostsName)
{
    EXPECT_EQ(drivePath(2, ""), "C:\\");
    EXPECT_EQ(drivePath(2, "srv"), "\\\\srv\\C:\\");
    EXPECT_EQ(drivePath(0, ""), "A:\\");
    EXPECT_EQ(drivePath(25, ""), "Z:\\");
}

/// There and back gives every path of a drive again, whatever follows the drive.
TEST(DrivePaths, EveryDrivesPathComesBack)
{
    Random random(3);
    const QStringList pieces{"a", "Ü", " ", "$", ":", "\\", ".", "host", "C$"};
    for (int round = 0; round < 2'000; ++round) {
        const QString path = driveText(random.number(0, driveCount - 1)) + random.text(pieces, 12);
        const QString host = random.oneOf(QStringList{"", "host", "10.0.0.1", "a-b.example.com"});
        EXPECT_EQ(linePath(browsePath(path, host), host), path);
        EXPECT_EQ(browsePath(path, host).startsWith("\\\\"), !host.isEmpty());
    }
}

} // namespace
