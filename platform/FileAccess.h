#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>

/// The files of this machine. Paths are as the system writes them; a path's bytes that are not UTF-8 are carried as
/// decodeBytes() carries them.
class FileAccess
{
public:
    using TakeBytes = std::function<void(QByteArrayView)>;

    FileAccess() = default;
    FileAccess(const FileAccess &) = delete;
    FileAccess &operator=(const FileAccess &) = delete;
    virtual ~FileAccess() = default;

    /// True when there is something at path that is not a folder. A path that cannot be looked at (a folder on the
    /// way may not be searched) counts as absent.
    [[nodiscard]] virtual bool fileExists(const QString &path) const = 0;

    /// Reads the file at path from its first byte to its last and hands the bytes to take, piece by piece.
    /// @throws RuntimeError FileNotFound, PathNotFound, PermissionDenied, PathAccess (a folder, a device, a pipe) or
    ///         DeviceError, with the path; and whatever take throws
    virtual void readFile(const QString &path, const TakeBytes &take) = 0;

    /// Makes bytes the whole content of the file at path, which is created when it is missing. Afterwards the file is
    /// either wholly new or, when an error is raised, wholly what it was; an error after which it is something else
    /// says so in its detail. What belongs to the file beside its bytes (owner, group, mode, access lists, other
    /// attributes, further names) stays; a symbolic link is followed.
    /// @throws RuntimeError as readFile, and DiskFull
    virtual void writeFile(const QString &path, QByteArrayView bytes) = 0;
};
