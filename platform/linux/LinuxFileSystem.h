#pragma once

#include "platform/FileSystem.h"
#include "platform/linux/DriveMap.h"

/// The file system of this machine, seen through a map of drives. What is on a drive that is a mounted share is on
/// another machine.
class LinuxFileSystem final : public FileSystem
{
public:
    /// @param drivesFolder the folder of drives: see DriveMap
    explicit LinuxFileSystem(const QByteArray &drivesFolder);

    [[nodiscard]] bool DriveExists(const QString &path) const override;
    [[nodiscard]] Drive GetDrive(const QString &path) const override;
    [[nodiscard]] bool FolderExists(const QString &path) const override;
    [[nodiscard]] bool FileExists(const QString &path) const override;

    /// Names with a "\" are left out: no path leads to them.
    [[nodiscard]] FolderContent ListFolder(const QString &path) const override;

    [[nodiscard]] QString systemPath(const QString &path) const override;
    [[nodiscard]] QString pathOf(const QString &systemsPath, const QString &host) const override;

private:
    DriveMap m_drives;
};
