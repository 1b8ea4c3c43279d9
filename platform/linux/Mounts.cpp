#include "platform/linux/Mounts.h"

#include "platform/linux/Paths.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <optional>

namespace {

struct FileSystemType
{
    QByteArrayView name;
    DriveKind kind;
};

// clang-format off
/// File systems whose name says what they are, whatever device they are on. All others are those of their device.
constexpr std::array fileSystemTypes {
    FileSystemType{"9p",              DriveKind::Network},
    FileSystemType{"afs",             DriveKind::Network},
    FileSystemType{"autofs",          DriveKind::Network},
    FileSystemType{"ceph",            DriveKind::Network},
    FileSystemType{"cifs",            DriveKind::Network},
    FileSystemType{"coda",            DriveKind::Network},
    FileSystemType{"davfs",           DriveKind::Network},
    FileSystemType{"fuse.ceph",       DriveKind::Network},
    FileSystemType{"fuse.curlftpfs",  DriveKind::Network},
    FileSystemType{"fuse.glusterfs",  DriveKind::Network},
    FileSystemType{"fuse.gvfsd-fuse", DriveKind::Network},
    FileSystemType{"fuse.rclone",     DriveKind::Network},
    FileSystemType{"fuse.s3fs",       DriveKind::Network},
    FileSystemType{"fuse.smbnetfs",   DriveKind::Network},
    FileSystemType{"fuse.sshfs",      DriveKind::Network},
    FileSystemType{"lustre",          DriveKind::Network},
    FileSystemType{"ncpfs",           DriveKind::Network},
    FileSystemType{"nfs",             DriveKind::Network},
    FileSystemType{"nfs4",            DriveKind::Network},
    FileSystemType{"smb3",            DriveKind::Network},
    FileSystemType{"smbfs",           DriveKind::Network},
    FileSystemType{"devtmpfs",        DriveKind::RamDisk},
    FileSystemType{"ramfs",           DriveKind::RamDisk},
    FileSystemType{"tmpfs",           DriveKind::RamDisk},
    FileSystemType{"iso9660",         DriveKind::Optical},
    FileSystemType{"udf",             DriveKind::Optical},
    // Views of the kernel, on which nothing is stored.
    FileSystemType{"cgroup",          DriveKind::Unknown},
    FileSystemType{"cgroup2",         DriveKind::Unknown},
    FileSystemType{"debugfs",         DriveKind::Unknown},
    FileSystemType{"devpts",          DriveKind::Unknown},
    FileSystemType{"proc",            DriveKind::Unknown},
    FileSystemType{"securityfs",      DriveKind::Unknown},
    FileSystemType{"sysfs",           DriveKind::Unknown},
    FileSystemType{"tracefs",         DriveKind::Unknown},
};
// clang-format on

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

/// Blanks and the like stand in the text as "\" and three octal digits.
QByteArray unescaped(QByteArrayView field)
{
    QByteArray result;
    result.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        const bool isEscape = field[i] == '\\' && i + 3 < field.size() &&
                              std::all_of(field.begin() + i + 1, field.begin() + i + 4, isOctal);
        if (isEscape) {
            result += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0'));
            i += 3;
        } else {
            result += field[i];
        }
    }
    return result;
}

std::optional<Mount> parseMount(const QByteArray &line)
{
    // Fields: number, parent, device, root, folder, options, any number of optional ones, "-", type, source, options.
    const QByteArrayList fields = line.split(' ');
    const qsizetype separator = fields.indexOf("-", 6);
    if (separator < 0 || separator + 2 >= fields.size())
        return {};
    const qsizetype colon = fields[2].indexOf(':');
    if (colon < 0)
        return {};
    bool isMajorGood = false;
    bool isMinorGood = false;
    Mount mount;
    mount.major = fields[2].first(colon).toUInt(&isMajorGood);
    mount.minor = fields[2].sliced(colon + 1).toUInt(&isMinorGood);
    mount.folder = unescaped(fields[4]);
    mount.type = unescaped(fields[separator + 1]);
    mount.source = unescaped(fields[separator + 2]);
    if (!isMajorGood || !isMinorGood || !mount.folder.startsWith('/'))
        return {};
    return mount;
}

} // namespace

std::vector<Mount> parseMounts(QByteArrayView text)
{
    std::vector<Mount> mounts;
    for (const QByteArray &line : text.toByteArray().split('\n')) {
        if (std::optional<Mount> mount = parseMount(line))
            mounts.push_back(*std::move(mount));
    }
    return mounts;
}

const Mount *mountOf(const std::vector<Mount> &mounts, QByteArrayView path)
{
    const Mount *found = nullptr;
    for (const Mount &mount : mounts) {
        // Of several at one folder, the last one hides the others.
        if (isWithin(path, mount.folder) && (!found || mount.folder.size() >= found->folder.size()))
            found = &mount;
    }
    return found;
}

DriveKind driveKindOf(const Mount &mount, const DeviceTraits &device)
{
    const auto type = std::find_if(fileSystemTypes.begin(), fileSystemTypes.end(),
                                   [&mount](const FileSystemType &row) { return row.name == mount.type; });
    // A stick may hold the file system of a disc; a disc may hold any.
    const bool isDisc = type != fileSystemTypes.end() && type->kind == DriveKind::Optical;
    if (type != fileSystemTypes.end() && !isDisc)
        return type->kind;
    if (device.isOptical)
        return DriveKind::Optical;
    if (device.isMemory)
        return DriveKind::RamDisk;
    if (device.isRemovable)
        return DriveKind::Removable;
    return isDisc ? DriveKind::Optical : DriveKind::FixedDisk;
}
