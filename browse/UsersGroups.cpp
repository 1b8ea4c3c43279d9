#include "browse/UsersGroups.h"

#include "browse/WNetUser.h"

namespace {

/// Only names are read, of all kinds of users.
constexpr quint32 nameLevel = 0;
constexpr quint32 allUsers = 0;

} // namespace

UsersGroups::UsersGroups(Accounts &accounts)
    : m_accounts(accounts)
{
}

void UsersGroups::setServer(const QString &name)
{
    const QLatin1String front("\\\\");
    m_server = name.startsWith(front) ? name : front + name;
}

QStringList UsersGroups::Users() const
{
    return enumerateNames(m_accounts, [this](Accounts::Batch &batch, quintptr &resumeHandle) {
        return m_accounts.NetUserEnum(m_server, nameLevel, allUsers, batch, preferredBatchLength, resumeHandle);
    });
}

QStringList UsersGroups::Groups(bool isLocal) const
{
    return enumerateNames(m_accounts, [this, isLocal](Accounts::Batch &batch, quintptr &resumeHandle) {
        return isLocal ? m_accounts.NetLocalGroupEnum(m_server, nameLevel, batch, preferredBatchLength, resumeHandle)
                       : m_accounts.NetGroupEnum(m_server, nameLevel, batch, preferredBatchLength, resumeHandle);
    });
}
