#include "platform/linux/LinuxFileSystem.h"

#include "platform/ByteText.h"
#include "platform/linux/BlockDevices.h"
#include "platform/linux/DirectoryReader.h"
#include "platform/linux/Mounts.h"
#include "platform/linux/Paths.h"

#include <sys/stat.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace {

enum class Target { Nothing, Folder, Other };

Target targetOf(const std::optional<QByteArray> &path)
{
    struct stat status = {};
    if (!path || ::lstat(path->constData(), &status) != 0)
        return Target::Nothing;
    return ::stat(path->constData(), &status) == 0 && S_ISDIR(status.st_mode) ? Target::Folder : Target::Other;
}

std::vector<Mount> currentMounts()
{
    std::ifstream file("/proc/self/mountinfo");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return parseMounts(QByteArrayView(text));
}

} // namespace

LinuxFileSystem::LinuxFileSystem(const QByteArray &drivesFolder)
    : m_drives(drivesFolder)
{
}

bool LinuxFileSystem::DriveExists(const QString &path) const
{
    return m_drives.driveOf(path).has_value();
}

Drive LinuxFileSystem::GetDrive(const QString &path) const
{
    const std::optional<QByteArray> folder = m_drives.driveOf(path);
    if (!folder)
        return {};
    const std::vector<Mount> mounts = currentMounts();
    const Mount *mount = mountOf(mounts, realPath(*folder));
    return {mount ? driveKindOf(*mount, BlockDevices().traitsOf(*mount)) : DriveKind::Unknown};
}

bool LinuxFileSystem::FolderExists(const QString &path) const
{
    return targetOf(m_drives.find(path)) == Target::Folder;
}

bool LinuxFileSystem::FileExists(const QString &path) const
{
    return targetOf(m_drives.find(path)) == Target::Other;
}

FolderContent LinuxFileSystem::ListFolder(const QString &path) const
{
    FolderContent content;
    const std::optional<QByteArray> folder = m_drives.find(path);
    if (!folder)
        return content;
    DirectoryReader entries(*folder);
    while (entries.next()) {
        if (std::strchr(entries.name(), '\\'))
            continue;
        QStringList &names = entries.isDirectory() ? content.folders : content.files;
        names << decodeBytes(entries.name());
    }
    return content;
}

QString LinuxFileSystem::systemPath(const QString &path) const
{
    const std::optional<QByteArray> found = m_drives.find(path);
    if (!found)
        return {};
    // Not by way of the folder of drives, which nobody knows their files by.
    return decodeBytes(FolderExists(path) ? realPath(*found) : withRealFolder(*found));
}

QString LinuxFileSystem::pathOf(const QString &systemsPath, const QString &host) const
{
    return m_drives.pathOf(encodeText(systemsPath), host);
}
