#pragma once

#include "platform/DirectoryPath.h"
#include "platform/LdapHandle.h"

/// A connection to a server for one user: encrypted, where that is possible, logged in, and made again when the server
/// has ended it meanwhile.
class LdapConnection final
{
public:
    /// Whom a connection is for.
    struct Account
    {
        QString address;
        QString userName;
        QString password;
        Directory::Flags flags = Directory::None;

        bool operator==(const Account &) const = default;
    };

    LdapConnection(const LdapLimits &limits, const DirectoryPath &path, const Account &account);

    [[nodiscard]] const Account &account() const { return m_account; }
    [[nodiscard]] const LdapLimits &limits() const { return m_limits; }

    DirectoryStatus open(const Directory::GoOn &goOn);

    /// Whether it can be used: it has been opened, and not failed when it had to be made again.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// Sends a request. A connection that has worked before, and is lost now, is made again once, unless the request
    /// goes on with what only the lost one knows.
    [[nodiscard]] LdapAnswer search(const LdapSearch &search, const Directory::GoOn &goOn);

    /// What an answer means, as a status. Nothing is wrong with one that is incomplete.
    [[nodiscard]] DirectoryStatus statusOf(const LdapAnswer &answer) const;

private:
    [[nodiscard]] LdapAnswer connectToServer(const Directory::GoOn &goOn);
    [[nodiscard]] LdapAnswer connectAndLogIn(const Directory::GoOn &goOn);
    [[nodiscard]] bool mayLogIn(bool isEncrypted) const;

    LdapLimits m_limits;
    DirectoryPath m_path;
    Account m_account;
    std::unique_ptr<LdapHandle> m_handle;
    bool m_isOpen = false;
    bool m_hasWorked = false;
};
