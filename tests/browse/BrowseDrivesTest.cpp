#include "browse/BrowseDrives.h"

#include "tests/support/FakeFileSystem.h"
#include "tests/support/Gestures.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <gtest/gtest.h>

namespace {

class BrowseDrivesTest : public testing::Test
{
protected:
    [[nodiscard]] static QStringList texts(const QListWidget &list)
    {
        QStringList result;
        for (int i = 0; i < list.count(); ++i)
            result << list.item(i)->text();
        return result;
    }

    FakeFileSystem fileSystem;
};

TEST_F(BrowseDrivesTest, TheListHasAll26LettersWhateverDrivesExist)
{
    BrowseDrives picker(fileSystem, "", nullptr);
    const QStringList drives = texts(*control<QListWidget>(picker, "DriveList"));
    ASSERT_EQ(drives.size(), 26);
    EXPECT_EQ(drives.first(), "A:\\");
    EXPECT_EQ(drives[2], "C:\\");
    EXPECT_EQ(drives.last(), "Z:\\");
    EXPECT_EQ(picker.GetDrives(), "");
}

TEST_F(BrowseDrivesTest, FixedDisksAreSelected)
{
    fileSystem.addDrive("C:\\");
    fileSystem.addDrive("E:\\");
    EXPECT_EQ(BrowseDrives(fileSystem, "", nullptr).GetDrives(), "C:\\ E:\\ ");
}

TEST_F(BrowseDrivesTest, RemovableNetworkAndOpticalDrivesAreListedButNotSelected)
{
    fileSystem.addDrive("A:\\", DriveKind::Removable);
    fileSystem.addDrive("C:\\", DriveKind::FixedDisk);
    fileSystem.addDrive("D:\\", DriveKind::Optical);
    fileSystem.addDrive("N:\\", DriveKind::Network);
    fileSystem.addDrive("R:\\", DriveKind::RamDisk);
    fileSystem.addDrive("U:\\", DriveKind::Unknown);
    BrowseDrives picker(fileSystem, "", nullptr);
    EXPECT_EQ(texts(*control<QListWidget>(picker, "DriveList")).size(), 26);
    EXPECT_EQ(picker.GetDrives(), "C:\\ ");
}

TEST_F(BrowseDrivesTest, ABlankFollowsEveryDriveTheLastToo)
{
    BrowseDrives picker(fileSystem, "", nullptr);
    showActive(picker);
    auto *list = control<QListWidget>(picker, "DriveList");
    // In the order of the list, not in that of the clicks.
    clickRow(*list, 3);
    clickRow(*list, 2);
    EXPECT_EQ(picker.GetDrives(), "C:\\ D:\\ ");
    clickRow(*list, 3);
    EXPECT_EQ(picker.GetDrives(), "C:\\ ");
}

TEST_F(BrowseDrivesTest, DrivesOfAHostAreAskedForThroughItsName)
{
    fileSystem.addDrive("C:\\");
    fileSystem.addDrive("\\\\srv\\D:\\");
    BrowseDrives picker(fileSystem, "srv", nullptr);
    EXPECT_EQ(picker.GetDrives(), "D:\\ ");
    EXPECT_EQ(fileSystem.asked.first(), "\\\\srv\\A:\\");
    EXPECT_EQ(fileSystem.asked.last(), "\\\\srv\\Z:\\");
    EXPECT_EQ(picker.windowTitle(), "Drives (\\\\srv)");
}

TEST_F(BrowseDrivesTest, TheKeyboardIsEnough)
{
    BrowseDrives picker(fileSystem, "", nullptr);
    showActive(picker);
    EXPECT_EQ(picker.focusWidget()->objectName(), "DriveList");
    key(picker, Qt::Key_Down);
    key(picker, Qt::Key_Down);
    key(picker, Qt::Key_Space);
    key(picker, Qt::Key_Down);
    EXPECT_EQ(picker.GetDrives(), "C:\\ ");
    key(picker, Qt::Key_Return);
    EXPECT_FALSE(picker.isVisible());
    EXPECT_EQ(picker.result(), QDialog::Accepted);
}

TEST_F(BrowseDrivesTest, EscapeAndCancelRejectIt)
{
    BrowseDrives picker(fileSystem, "", nullptr);
    showActive(picker);
    key(picker, Qt::Key_Escape);
    EXPECT_FALSE(picker.isVisible());
    EXPECT_EQ(picker.result(), QDialog::Rejected);
    showActive(picker);
    press(picker, "CancelButton");
    EXPECT_FALSE(picker.isVisible());
    EXPECT_EQ(picker.result(), QDialog::Rejected);
}

TEST_F(BrowseDrivesTest, EveryControlIsNamedAndLabelled)
{
    const BrowseDrives picker(fileSystem, "", nullptr);
    EXPECT_EQ(picker.objectName(), "BrowseDrives");
    EXPECT_EQ(control<QLabel>(picker, "Label1")->buddy(), control<QListWidget>(picker, "DriveList"));
    EXPECT_TRUE(control<QPushButton>(picker, "OKButton")->isDefault());
}

} // namespace
