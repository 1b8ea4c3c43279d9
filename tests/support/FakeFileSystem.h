#pragma once

#include "platform/FileSystem.h"

#include <QMap>

/// Drives, folders and files in memory. Case does not count, as on a real system.
class FakeFileSystem final : public FileSystem
{
public:
    /// Adds a drive or share and its first folder. @param root with "\" at its end: "C:\", "\\host\C$\"
    void addDrive(const QString &root, DriveKind kind = DriveKind::FixedDisk);
    /// Adds a folder or a file, with the folders on the way to it. Its drive has to be there.
    void addFolder(const QString &path);
    void addFile(const QString &path);
    /// Takes everything at and below path away.
    void remove(const QString &path);

    [[nodiscard]] bool DriveExists(const QString &path) const override;
    [[nodiscard]] Drive GetDrive(const QString &path) const override;
    [[nodiscard]] bool FolderExists(const QString &path) const override;
    [[nodiscard]] bool FileExists(const QString &path) const override;
    [[nodiscard]] FolderContent ListFolder(const QString &path) const override;
    [[nodiscard]] QString systemPath(const QString &path) const override;
    [[nodiscard]] QString pathOf(const QString &systemsPath, const QString &host) const override;

    /// Drives and shares, without "\" at their end, by the folders of this machine that file dialogs find them in.
    QMap<QString, QString> systemFolders;

    /// Every path that was asked for, in order.
    mutable QStringList asked;

private:
    struct Entry
    {
        QString path;
        bool isFolder;
    };

    [[nodiscard]] static QString keyOf(const QString &path);
    void add(const QString &path, bool isFolder);

    QMap<QString, DriveKind> m_drives;
    QMap<QString, Entry> m_entries;
};
