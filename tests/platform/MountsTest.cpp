#include "platform/linux/Mounts.h"

#include "platform/linux/BlockDevices.h"
#include "tests/support/Random.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// As a desk has it: root on a disk, a stick, a disc, a share with a blank in its folder, an encrypted home.
constexpr const char *recorded =
    "22 28 0:21 / /sys rw,nosuid,nodev,noexec,relatime shared:7 - sysfs sysfs rw\n"
    "23 28 0:22 / /proc rw,nosuid,nodev,noexec,relatime shared:14 - proc proc rw\n"
    "28 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw,errors=remount-ro\n"
    "45 28 0:36 / /tmp rw,nosuid,nodev shared:20 - tmpfs tmpfs rw,size=8131720k\n"
    "90 28 8:17 / /media/anna/STICK rw,nosuid,nodev,relatime shared:65 - vfat /dev/sdb1 rw,uid=1000\n"
    "91 28 11:0 / /media/anna/Disc\\0401 ro,nosuid,nodev,relatime shared:66 - iso9660 /dev/sr0 ro\n"
    "92 28 0:52 / /mnt/Server\\040Share rw,relatime shared:67 - cifs //srv/C$ rw,vers=3.1.1\n"
    "93 28 254:0 / /home rw,relatime - btrfs /dev/mapper/home rw,subvolid=5\n";

const Mount &at(const std::vector<Mount> &mounts, const char *path)
{
    static const Mount none{};
    const Mount *found = mountOf(mounts, path);
    return found ? *found : none;
}

Mount mountOfType(const char *type)
{
    return {8, 1, "/mnt", type, "/dev/sda1"};
}

TEST(Mounts, LinesAreTakenApart)
{
    const std::vector<Mount> mounts = parseMounts(recorded);
    ASSERT_EQ(mounts.size(), 8U);
    EXPECT_EQ(mounts[2].major, 259U);
    EXPECT_EQ(mounts[2].minor, 2U);
    EXPECT_EQ(mounts[2].folder, "/");
    EXPECT_EQ(mounts[2].type, "ext4");
    EXPECT_EQ(mounts[2].source, "/dev/nvme0n1p2");
    // No optional fields before the hyphen.
    EXPECT_EQ(mounts[7].type, "btrfs");
}

TEST(Mounts, EscapedBlanksAreReadBack)
{
    const std::vector<Mount> mounts = parseMounts(recorded);
    EXPECT_EQ(mounts[5].folder, "/media/anna/Disc 1");
    EXPECT_EQ(mounts[6].folder, "/mnt/Server Share");
    // A backslash is escaped too; what only looks like an escape stays.
    EXPECT_EQ(parseMounts("1 1 8:1 / /a\\134040\\08 rw - ext4 x rw").at(0).folder, "/a\\040\\08");
}

TEST(Mounts, APathBelongsToTheMountItIsSeenThrough)
{
    const std::vector<Mount> mounts = parseMounts(recorded);
    EXPECT_EQ(at(mounts, "/").type, "ext4");
    EXPECT_EQ(at(mounts, "/etc").type, "ext4");
    EXPECT_EQ(at(mounts, "/tmp").type, "tmpfs");
    EXPECT_EQ(at(mounts, "/tmp/a/b").type, "tmpfs");
    // Its name only begins like the mount's.
    EXPECT_EQ(at(mounts, "/tmpfiles").type, "ext4");
    EXPECT_EQ(at(mounts, "/mnt/Server Share/dir").type, "cifs");
    EXPECT_EQ(mountOf(mounts, "relative"), nullptr);
    EXPECT_EQ(mountOf({}, "/"), nullptr);
}

TEST(Mounts, TheLastMountAtAFolderCounts)
{
    const std::vector<Mount> mounts = parseMounts("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                                  "2 1 0:40 / /net rw - autofs auto rw\n"
                                                  "3 2 0:41 / /net rw - nfs4 srv:/ rw\n");
    EXPECT_EQ(at(mounts, "/net/x").type, "nfs4");
}

TEST(Mounts, LinesOfAnotherFormArePassedOver)
{
    for (const char *line : {"", "\n\n", "28", "28 1 259:2 / / rw", "28 1 259:2 / / rw -", "28 1 259:2 / / rw - ext4",
                             "28 1 259 / / rw - ext4 /dev/sda rw", "28 1 a:b / / rw - ext4 /dev/sda rw",
                             "28 1 8:1 / none rw - ext4 /dev/sda rw"})
        EXPECT_TRUE(parseMounts(line).empty()) << line;
    EXPECT_EQ(parseMounts("nonsense\n28 1 8:1 / / rw - ext4 /dev/sda rw\n").size(), 1U);
}

TEST(Mounts, NoBytesHarmTheParser)
{
    Random random(1);
    const QStringList pieces{"28 ", "1 ", "8:1 ", "/ ", "/mnt\\040 ", "rw ", "- ", "ext4 ", "\\", "0", "\n", ":", " "};
    for (int round = 0; round < 5'000; ++round) {
        const QByteArray text = random.text(pieces, 30).toUtf8();
        for (const Mount &mount : parseMounts(text))
            EXPECT_TRUE(mount.folder.startsWith('/')) << text.constData();
    }
}

TEST(Mounts, TheKindIsThatOfTheFileSystemOrItsDevice)
{
    const DeviceTraits disk;
    const DeviceTraits stick{.isRemovable = true};
    const DeviceTraits reader{.isRemovable = true, .isOptical = true};
    const DeviceTraits memory{.isMemory = true};

    EXPECT_EQ(driveKindOf(mountOfType("ext4"), disk), DriveKind::FixedDisk);
    EXPECT_EQ(driveKindOf(mountOfType("overlay"), disk), DriveKind::FixedDisk);
    EXPECT_EQ(driveKindOf(mountOfType("vfat"), stick), DriveKind::Removable);
    EXPECT_EQ(driveKindOf(mountOfType("ext4"), memory), DriveKind::RamDisk);
    EXPECT_EQ(driveKindOf(mountOfType("tmpfs"), disk), DriveKind::RamDisk);
    for (const char *network : {"nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs"})
        EXPECT_EQ(driveKindOf(mountOfType(network), disk), DriveKind::Network) << network;
    EXPECT_EQ(driveKindOf(mountOfType("proc"), disk), DriveKind::Unknown);
    // A disc in its drive, a disc with another file system, an image of a disc, a stick with a disc's file system.
    EXPECT_EQ(driveKindOf(mountOfType("iso9660"), reader), DriveKind::Optical);
    EXPECT_EQ(driveKindOf(mountOfType("ext4"), reader), DriveKind::Optical);
    EXPECT_EQ(driveKindOf(mountOfType("udf"), disk), DriveKind::Optical);
    EXPECT_EQ(driveKindOf(mountOfType("udf"), stick), DriveKind::Removable);
}

TEST(Mounts, KindsHaveTheNumbersOfDriveTypes)
{
    EXPECT_EQ(int(DriveKind::FixedDisk), 2);
    EXPECT_EQ(int(DriveKind::Removable), 1);
    EXPECT_EQ(int(DriveKind::Network), 3);
    EXPECT_EQ(int(DriveKind::Optical), 4);
    EXPECT_EQ(int(DriveKind::RamDisk), 5);
}

/// A folder with what sysfs shows of some devices.
class Devices : public testing::Test
{
protected:
    /// @param device its folder below devices/block; @param number as "8:0"
    void add(const QString &device, const QString &number, const char *removable = nullptr)
    {
        const QString folder = root.filePath("devices/block/" + device);
        ASSERT_TRUE(QDir().mkpath(folder) && QDir().mkpath(root.filePath("dev/block")));
        if (removable)
            write(folder + "/removable", removable);
        ASSERT_TRUE(QFile::link(folder, root.filePath("dev/block/" + number)));
    }

    static void write(const QString &path, const QByteArray &text)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }

    [[nodiscard]] DeviceTraits traits(unsigned major, unsigned minor) const
    {
        return BlockDevices(root.path().toUtf8()).traitsOf({major, minor, "/mnt", "ext4", "none"});
    }

    const QTemporaryDir root;
};

TEST_F(Devices, APartitionIsAsItsDisk)
{
    add("sda", "8:0", "0\n");
    add("sdb", "8:16", "1\n");
    for (const char *partition : {"sda/sda1", "sdb/sdb1"})
        add(partition, QString(partition).contains("sda") ? "8:1" : "8:17");
    write(root.filePath("devices/block/sda/sda1/partition"), "1\n");
    write(root.filePath("devices/block/sdb/sdb1/partition"), "1\n");

    EXPECT_FALSE(traits(8, 0).isRemovable);
    EXPECT_FALSE(traits(8, 1).isRemovable);
    EXPECT_TRUE(traits(8, 16).isRemovable);
    EXPECT_TRUE(traits(8, 17).isRemovable);
}

TEST_F(Devices, AnEncryptedStickIsRemovable)
{
    add("sdb", "8:16", "1\n");
    add("dm-0", "254:0", "0\n");
    add("dm-1", "254:1", "0\n");
    ASSERT_TRUE(QDir().mkpath(root.filePath("devices/block/dm-0/slaves")));
    ASSERT_TRUE(QFile::link(root.filePath("devices/block/sdb"), root.filePath("devices/block/dm-0/slaves/sdb")));
    EXPECT_TRUE(traits(254, 0).isRemovable);
    EXPECT_FALSE(traits(254, 1).isRemovable);
}

TEST_F(Devices, DevicesThatStandOnEachOtherEndSomewhere)
{
    add("dm-0", "254:0", "0\n");
    ASSERT_TRUE(QDir().mkpath(root.filePath("devices/block/dm-0/slaves")));
    ASSERT_TRUE(QFile::link(root.filePath("devices/block/dm-0"), root.filePath("devices/block/dm-0/slaves/dm-0")));
    EXPECT_FALSE(traits(254, 0).isRemovable);
}

TEST_F(Devices, DiscsAndMemoryAreKnownByTheirNames)
{
    add("sr0", "11:0", "1\n");
    add("ram0", "1:0", "0\n");
    add("zram0", "252:0", "0\n");
    EXPECT_TRUE(traits(11, 0).isOptical);
    EXPECT_TRUE(traits(1, 0).isMemory);
    EXPECT_TRUE(traits(252, 0).isMemory);
}

TEST_F(Devices, OfWhatIsUnknownNothingIsSet)
{
    for (const DeviceTraits &unknown : {traits(0, 52), traits(8, 1)})
        EXPECT_TRUE(!unknown.isRemovable && !unknown.isOptical && !unknown.isMemory);
}

} // namespace
