#pragma once

#include <QString>
#include <QStringList>

/// What a drive is, by the numbers of the drive type.
enum class DriveKind : int {
    Unknown = 0,
    Removable = 1,
    FixedDisk = 2,
    Network = 3,
    Optical = 4,
    RamDisk = 5,
};

/// A drive or a share that exists.
struct Drive
{
    DriveKind DriveType = DriveKind::Unknown;
};

/// What a folder holds, by name, in the order in which the system has it.
struct FolderContent
{
    QStringList folders;
    QStringList files;
};

/// The drives, folders and files of this machine and of others, for looking only. A path begins with a drive ("C:") or
/// with a share of a host ("\\host\C$") and has "\" between its names; case does not count. Bytes of a name that are
/// not text are carried as decodeBytes() carries them. Whatever cannot be looked at counts as absent, and no operation
/// waits for a medium to be inserted.
class FileSystem
{
public:
    FileSystem() = default;
    FileSystem(const FileSystem &) = delete;
    FileSystem &operator=(const FileSystem &) = delete;
    virtual ~FileSystem() = default;

    /// Whether there is the drive or the share that path begins with. A removable drive exists without its medium
    /// where the system knows of it then.
    [[nodiscard]] virtual bool DriveExists(const QString &path) const = 0;

    /// The drive or share that path begins with; of unknown type when it does not exist.
    [[nodiscard]] virtual Drive GetDrive(const QString &path) const = 0;

    /// Whether path is a folder. The folder of a drive is that drive's first.
    [[nodiscard]] virtual bool FolderExists(const QString &path) const = 0;

    /// Whether path is something that is not a folder; a link that leads nowhere counts.
    [[nodiscard]] virtual bool FileExists(const QString &path) const = 0;

    /// The folders and files in the folder at path; nothing for one that cannot be read. A link counts as what it leads
    /// to, and as a file when that is nothing.
    [[nodiscard]] virtual FolderContent ListFolder(const QString &path) const = 0;

    /// Under which path the system itself knows path, as its file dialogs take it; empty for one that is not there.
    [[nodiscard]] virtual QString systemPath(const QString &path) const = 0;

    /// A path for what a file dialog gives, which may be a name that is not there yet; empty when none leads there.
    /// @param host the share has to be one of that host; empty for a path of this machine
    [[nodiscard]] virtual QString pathOf(const QString &systemsPath, const QString &host) const = 0;
};
