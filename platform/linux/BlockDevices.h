#pragma once

#include "platform/linux/Mounts.h"

#include <QByteArray>

/// The block devices of this machine, as sysfs(5) shows them.
class BlockDevices final
{
public:
    /// @param sysFolder where sysfs is seen
    explicit BlockDevices(const QByteArray &sysFolder = "/sys");

    /// Of the device that a mount is on. One that is made of others (encrypted, or a group) is removable when one of
    /// those is. Without a device, or one that the system tells nothing of, nothing is set.
    [[nodiscard]] DeviceTraits traitsOf(const Mount &mount) const;

private:
    [[nodiscard]] DeviceTraits traitsIn(const QByteArray &folder, int depth) const;

    QByteArray m_sysFolder;
};
