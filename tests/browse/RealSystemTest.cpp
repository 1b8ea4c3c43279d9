#include "browse/BrowseDrives.h"
#include "browse/BrowseReg.h"
#include "platform/Platform.h"
#include "registry/clsKey.h"
#include "registry/RegistryConstants.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/Gestures.h"

#include <QCoreApplication>
#include <QDir>
#include <QListWidget>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <gtest/gtest.h>

/// The pickers over what this machine really has.

namespace {

class RealSystem : public testing::Test
{
protected:
    const Platform platform = makePlatform("ZentilConf", 0, nullptr);
    FakeMessages messages;
};

TEST_F(RealSystem, TheDriveOfTheTemporaryFolderIsListed)
{
    const QTemporaryDir folder;
    const QString path = platform.fileSystem->pathOf(folder.path(), "");
    ASSERT_TRUE(platform.fileSystem->FolderExists(path)) << path.toStdString();
    EXPECT_TRUE(platform.fileSystem->DriveExists(path.first(3)));
    const bool isFixed = platform.fileSystem->GetDrive(path.first(3)).DriveType == DriveKind::FixedDisk;
    const BrowseDrives picker(*platform.fileSystem, "", nullptr);
    EXPECT_EQ(picker.GetDrives().contains(path.first(3) + ' '), isFixed);
    EXPECT_EQ(control<QListWidget>(picker, "DriveList")->count(), 26);
}

TEST_F(RealSystem, AKeyIsFoundBelowItsHive)
{
    // A name that nobody else has, not even a second run of this test.
    const QString name = QStringLiteral("ZentilConf test %1").arg(QCoreApplication::applicationPid());
    clsKey hive(*platform.registry);
    hive.OpenFull("HKEY_CURRENT_USER", "", 0, RegistryConstants::allAccess);
    ASSERT_TRUE(hive.KeyOK());
    hive.AddSubKey(name);
    const auto removed = qScopeGuard([&] {
        hive.DeleteSubKey(name, 0);
        hive.CloseKey();
    });

    BrowseReg picker(*platform.registry, messages, "", false, nullptr);
    picker.SetItem("HKCU\\" + name.toUpper());
    messages.verify();
    EXPECT_EQ(picker.keyPath(), "HKCU\\" + name);
    const QList<QTreeWidgetItem *> selected = control<QTreeWidget>(picker, "KeyList")->selectedItems();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected[0]->text(0), name);
    EXPECT_EQ(selected[0]->childCount(), 0);
}

} // namespace
