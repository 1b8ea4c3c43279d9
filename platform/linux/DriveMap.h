#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A path of a drive or a share, taken apart.
struct DrivePath
{
    /// What stands for the drive or the share in the folder of drives: "c:", or "unc", the host and the share.
    QStringList drive;
    /// The names below it, without "." and "..".
    QStringList names;
};

/// Takes a path apart. "/" counts as "\", and ".." does not lead out of the drive. Nothing for a text that begins with
/// neither a drive nor a share.
[[nodiscard]] std::optional<DrivePath> parseDrivePath(const QString &path);

/// Finds the folders and files that paths of drives stand for. The drives are links, or folders, in the folder of
/// drives ("c:" and so on), as compatibility layers have them; so are the shares of other hosts, in its folder
/// "unc/host". Where there is no folder of drives, "C:" is the root folder. A name is found as it is written, else
/// whatever its case; of several, the first by bytes.
class DriveMap final
{
public:
    explicit DriveMap(const QByteArray &drivesFolder);

    /// The system's path of the folder that the drive or share is; nothing when there is none.
    [[nodiscard]] std::optional<QByteArray> driveOf(const QString &path) const;

    /// The system's path of something that there is; it may be a link that leads nowhere.
    [[nodiscard]] std::optional<QByteArray> find(const QString &path) const;

    /// The path that leads to the system's path, through the drive or share that is nearest to it; empty when there is
    /// none, or none with a name that a path can have.
    /// @param host only its shares count; empty for every drive and share
    [[nodiscard]] QString pathOf(const QByteArray &systemsPath, const QString &host) const;

private:
    struct Root
    {
        /// "C:", or "\\host\share".
        QString text;
        QByteArray folder;
    };

    [[nodiscard]] std::vector<Root> roots(const QString &host) const;
    [[nodiscard]] std::optional<QByteArray> findDrive(const DrivePath &path) const;

    QByteArray m_drivesFolder;
};
