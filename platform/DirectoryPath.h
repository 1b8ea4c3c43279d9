#pragma once

#include <QString>

#include <optional>

/// A path of the directory service taken apart.
struct DirectoryPath
{
    /// The host and port as they are written; "localhost" stands for none.
    QString address;
    /// The host as the network knows it: without brackets, and with other letters than ASCII encoded (RFC 5890).
    QString host;
    int port = 389;
    /// The distinguished name of the entry; empty for the RootDSE.
    QString name;
    bool isRootDse = false;

    /// Takes "LDAP://host[:port]/name" apart. Nothing when it does not begin so, or when the address is none. An IPv6
    /// address with a port stands in brackets.
    [[nodiscard]] static std::optional<DirectoryPath> parse(const QString &path);

    /// The path of another entry of the same server.
    [[nodiscard]] QString pathOf(const QString &distinguishedName) const;

    /// Whether what is sent there does not leave this machine, as far as the name tells.
    [[nodiscard]] bool isThisMachine() const;
};
