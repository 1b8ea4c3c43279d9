#pragma once

#include <QStringList>

class Accounts;

/// The names of the users and groups of one server, in the order in which it gives them. What cannot be read is missing
/// without a word: an unreachable server has no names.
class UsersGroups final
{
public:
    /// Begins with this machine.
    explicit UsersGroups(Accounts &accounts);

    /// @param name a host, with or without "\\" in front
    void setServer(const QString &name);
    /// With "\\" in front; empty for this machine.
    [[nodiscard]] const QString &Server() const { return m_server; }

    [[nodiscard]] QStringList Users() const;

    /// @param isLocal whether the server's local groups are meant, or the global ones
    [[nodiscard]] QStringList Groups(bool isLocal) const;

private:
    Accounts &m_accounts;
    QString m_server;
};
