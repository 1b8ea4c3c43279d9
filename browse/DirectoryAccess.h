#pragma once

#include "platform/Directory.h"

#include <optional>

class Messages;

/// A directory server as one user sees it. The user is asked before a password leaves this machine unencrypted.
class DirectoryAccess final
{
public:
    DirectoryAccess(Directory &directory, Messages &messages, Directory::GoOn goOn);

    /// @param host with its port, where it has one
    void setServer(const QString &host, const QString &userName, const QString &password);

    /// The path of an entry of the server.
    [[nodiscard]] QString pathOf(const QString &distinguishedName) const;

    /// See Directory::OpenDSObject(). When the user does not want the password to be sent, nothing is.
    DirectoryStatus open(const QString &path, std::unique_ptr<DirectoryObject> &object);

    /// Reads where the trees of the server begin.
    DirectoryStatus readNamingContexts(QStringList &contexts);

private:
    [[nodiscard]] bool maySendUnencrypted(const DirectoryStatus &status) const;

    Directory &m_directory;
    Messages &m_messages;
    Directory::GoOn m_goOn;
    QString m_host;
    QString m_userName;
    QString m_password;
    /// The address to which the user lets the password be sent unencrypted.
    std::optional<QString> m_allowedAddress;
};
