#pragma once

#include "platform/Directory.h"
#include "platform/LdapHandle.h"

class LdapConnection;

/// The directory service over LDAP. Entries that are opened one after the other on the same server, by the same user,
/// share a connection.
class LdapDirectory final : public Directory
{
public:
    explicit LdapDirectory(const LdapLimits &limits = {});
    ~LdapDirectory() override;

    DirectoryStatus OpenDSObject(const QString &path, const QString &userName, const QString &password, Flags flags,
                                 const GoOn &goOn, std::unique_ptr<DirectoryObject> &object) override;

private:
    LdapLimits m_limits;
    std::shared_ptr<LdapConnection> m_connection;
};
