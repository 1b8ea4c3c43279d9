#include "platform/linux/BlockDevices.h"

#include "platform/linux/DirectoryReader.h"
#include "platform/linux/Paths.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <fstream>

namespace {

// An encrypted volume in a group on a partition is three; the system itself allows eight.
constexpr int deepestStack = 8;

bool isFlagSet(const QByteArray &path)
{
    std::ifstream file(path.toStdString());
    return file.get() == '1';
}

bool exists(const QByteArray &path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0;
}

} // namespace

BlockDevices::BlockDevices(const QByteArray &sysFolder)
    : m_sysFolder(sysFolder)
{
}

DeviceTraits BlockDevices::traitsOf(const Mount &mount) const
{
    unsigned major = mount.major;
    unsigned minor = mount.minor;
    // Some file systems give themselves a number that is no device's, but name the device that they are on.
    struct stat status = {};
    if (major == 0 && mount.source.startsWith("/dev/") && ::stat(mount.source.constData(), &status) == 0 &&
        S_ISBLK(status.st_mode)) {
        major = gnu_dev_major(status.st_rdev);
        minor = gnu_dev_minor(status.st_rdev);
    }
    if (major == 0)
        return {};
    const QByteArray link = m_sysFolder + "/dev/block/" + QByteArray::number(major) + ':' + QByteArray::number(minor);
    return traitsIn(realPath(link), deepestStack);
}

DeviceTraits BlockDevices::traitsIn(const QByteArray &folder, int depth) const
{
    if (folder.isEmpty() || depth == 0)
        return {};
    // A partition's folder is in that of its disk.
    const QByteArray disk = exists(folder + "/partition") ? folder.first(folder.lastIndexOf('/')) : folder;
    const QByteArray name = disk.sliced(disk.lastIndexOf('/') + 1);

    DeviceTraits traits;
    traits.isRemovable = isFlagSet(disk + "/removable");
    traits.isOptical = name.startsWith("sr");
    traits.isMemory = name.startsWith("ram") || name.startsWith("zram");
    DirectoryReader slaves(folder + "/slaves");
    while (slaves.next())
        traits.isRemovable |= traitsIn(realPath(folder + "/slaves/" + slaves.name()), depth - 1).isRemovable;
    return traits;
}
