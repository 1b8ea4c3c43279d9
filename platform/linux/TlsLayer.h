#pragma once

#include "platform/LdapHandle.h"

struct ldap;

/// Encrypts what goes through a session from here on (TLS), once the server's certificate has passed its checks. The
/// LDAP library could do that too, but it would wait for a server without end, and not say which check failed.
/// @param socket the session's; it does not wait in its calls
/// @param host the name or address that was connected to
[[nodiscard]] LdapAnswer encryptSession(ldap *session, int socket, const QString &host, const LdapLimits &limits,
                                        const Directory::GoOn &goOn);
