#pragma once

#include <QString>
#include <QStringList>

/// The two forms of a path. A line has it as the host itself knows it, "C:\dir\file"; what is on another host is looked
/// at through that host's share of the drive, "\\host\C$\dir\file". A local path is the same in both.

/// @param host empty for the local system
/// @return path as it is when it begins with no drive
[[nodiscard]] QString browsePath(const QString &path, const QString &host);

/// @param host as for browsePath(): a share of any other host is no drive of it, and stays
[[nodiscard]] QString linePath(const QString &path, const QString &host);

/// The path of a name in a folder, in either form.
[[nodiscard]] QString pathIn(const QString &folder, const QString &name);

/// The folders on the way to a folder, and that one, by their paths: first the drive, "C:\", or the share,
/// "\\host\C$\". @param path of either form
[[nodiscard]] QStringList foldersOnTheWay(const QString &path);

/// A drive as the user sees it, "C:\". @param index from 0 for A to 25 for Z
[[nodiscard]] QString driveText(int index);

/// Where a drive is asked for whether it exists and what it is: with a host, "\\host\C:\".
[[nodiscard]] QString drivePath(int index, const QString &host);

inline constexpr int driveCount = 26;
