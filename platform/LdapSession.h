#pragma once

#include "platform/LdapHandle.h"

#include "LdapInterface.h"

/// A session of the system's LDAP library. How it is opened and encrypted is another thing on each system; what is done
/// with it then is in LdapHandle.
class LdapSession final
{
public:
    explicit LdapSession(const LdapLimits &limits);
    LdapSession(const LdapSession &) = delete;
    LdapSession &operator=(const LdapSession &) = delete;
    ~LdapSession();

    /// Opens it; see LdapHandle::open().
    [[nodiscard]] LdapAnswer open(const DirectoryPath &path, const Directory::GoOn &goOn);
    /// See LdapHandle::startEncryption().
    [[nodiscard]] LdapAnswer startEncryption(const Directory::GoOn &goOn);

    /// Waits for all of the answer to a request.
    [[nodiscard]] LdapAnswer await(int message, const Directory::GoOn &goOn) const;
    /// What went wrong with the call before.
    [[nodiscard]] LdapAnswer failed(int code) const;

    /// None before it has been opened.
    [[nodiscard]] LDAP *get() const { return m_session; }
    [[nodiscard]] const LdapLimits &limits() const { return m_limits; }

private:
    struct Connection;

    /// What holds for every session, whatever files of the system or of the user say.
    [[nodiscard]] LdapAnswer setOptions() const;

    LdapLimits m_limits;
    LDAP *m_session = nullptr;
    std::unique_ptr<Connection> m_connection;
};
