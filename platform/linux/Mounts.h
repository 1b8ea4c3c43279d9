#pragma once

#include "platform/FileSystem.h"

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

/// A file system and the folder at which it is seen.
struct Mount
{
    /// The device's number; the major one is 0 for a file system without a device of its own.
    unsigned major = 0;
    unsigned minor = 0;
    QByteArray folder;
    QByteArray type;
    QByteArray source;
};

/// What the system tells of a block device.
struct DeviceTraits
{
    bool isRemovable = false;
    bool isOptical = false;
    bool isMemory = false;
};

/// The mounts in the text of /proc/self/mountinfo, in its order. A line of another form is passed over. Source: the
/// manual page proc(5).
[[nodiscard]] std::vector<Mount> parseMounts(QByteArrayView text);

/// The mount that a path is seen through; null when there is none. @param path absolute, without links
[[nodiscard]] const Mount *mountOf(const std::vector<Mount> &mounts, QByteArrayView path);

/// What kind of drive a mount makes.
[[nodiscard]] DriveKind driveKindOf(const Mount &mount, const DeviceTraits &device);
