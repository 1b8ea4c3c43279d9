#pragma once

#include "platform/FileSystem.h"

/// The system's own drives, folders and files, and the shares of other hosts.
class WindowsFileSystem final : public FileSystem
{
public:
    [[nodiscard]] bool DriveExists(const QString &path) const override;
    [[nodiscard]] Drive GetDrive(const QString &path) const override;
    [[nodiscard]] bool FolderExists(const QString &path) const override;
    [[nodiscard]] bool FileExists(const QString &path) const override;
    [[nodiscard]] FolderContent ListFolder(const QString &path) const override;

    [[nodiscard]] QString systemPath(const QString &path) const override;
    [[nodiscard]] QString pathOf(const QString &systemsPath, const QString &host) const override;
};

/// The first folder of the drive or share that a path begins with, with "\" at its end; empty for any other text.
[[nodiscard]] QString driveRootOf(const QString &path);
