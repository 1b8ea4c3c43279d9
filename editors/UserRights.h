#pragma once

#include <QLatin1String>
#include <QString>

#include <array>
#include <bitset>

/// A right or privilege that an account may hold.
struct UserRight
{
    /// The constant by which Windows knows it: an account right or a privilege, as in its LsaEnumerateAccountRights().
    QLatin1String name;
    QLatin1String description;
};

// clang-format off
/// The rights that the list offers, one a row, in the order in which it shows and writes them.
inline constexpr std::array<UserRight, 27> userRights {{
    {QLatin1String("SeInteractiveLogonRight"),         QLatin1String("Log on locally")},
    {QLatin1String("SeNetworkLogonRight"),             QLatin1String("Access this computer from network")},
    {QLatin1String("SeBatchLogonRight"),               QLatin1String("Log on as a batch job")},
    {QLatin1String("SeServiceLogonRight"),             QLatin1String("Log on as a service")},
    {QLatin1String("SeCreateTokenPrivilege"),          QLatin1String("Create a token object")},
    {QLatin1String("SeAssignPrimaryTokenPrivilege"),   QLatin1String("Replace a process level token")},
    {QLatin1String("SeLockMemoryPrivilege"),           QLatin1String("Lock pages in memory")},
    {QLatin1String("SeIncreaseQuotaPrivilege"),        QLatin1String("Increase quotas")},
    {QLatin1String("SeMachineAccountPrivilege"),       QLatin1String("Add workstations to domain")},
    {QLatin1String("SeTcbPrivilege"),                  QLatin1String("Act as part of the operating system")},
    {QLatin1String("SeSecurityPrivilege"),             QLatin1String("Manage auditing and security log")},
    {QLatin1String("SeTakeOwnershipPrivilege"),        QLatin1String("Take ownership of files or other objects")},
    {QLatin1String("SeLoadDriverPrivilege"),           QLatin1String("Load and unload device drivers")},
    {QLatin1String("SeSystemProfilePrivilege"),        QLatin1String("Profile system performance")},
    {QLatin1String("SeSystemtimePrivilege"),           QLatin1String("Change the system time")},
    {QLatin1String("SeProfileSingleProcessPrivilege"), QLatin1String("Profile a single process")},
    {QLatin1String("SeIncreaseBasePriorityPrivilege"), QLatin1String("Increase scheduling priority")},
    {QLatin1String("SeCreatePagefilePrivilege"),       QLatin1String("Create a pagefile")},
    {QLatin1String("SeCreatePermanentPrivilege"),      QLatin1String("Create permanent shared objects")},
    {QLatin1String("SeBackupPrivilege"),               QLatin1String("Back up files and directories")},
    {QLatin1String("SeRestorePrivilege"),              QLatin1String("Restore files and directories")},
    {QLatin1String("SeShutdownPrivilege"),             QLatin1String("Shut down the system")},
    {QLatin1String("SeDebugPrivilege"),                QLatin1String("Debug programs")},
    {QLatin1String("SeAuditPrivilege"),                QLatin1String("Generate security audits")},
    {QLatin1String("SeSystemEnvironmentPrivilege"),    QLatin1String("Modify firmware environment values")},
    {QLatin1String("SeChangeNotifyPrivilege"),         QLatin1String("Bypass traverse checking")},
    {QLatin1String("SeRemoteShutdownPrivilege"),       QLatin1String("Force shutdown from a remote system")},
}};
// clang-format on

/// The object of a line of user rights taken apart, as its editor shows it.
struct UserRightsText
{
    /// The line is about all rights, and the rest of this is of no account.
    bool isAll = false;
    /// Which of userRights are named, by their place in it.
    std::bitset<userRights.size()> listed;
    /// Further names, with commas between them.
    QString others;

    bool operator==(const UserRightsText &) const = default;
};

/// Puts an object together: the listed rights in their order and behind them the others, without the spaces around
/// them. It may name no right at all.
[[nodiscard]] QString buildUserRights(const UserRightsText &rights);

/// Takes an object apart. Rights are found whatever their case, and no space is kept. Whatever stands in the place of
/// the tag is taken for it. An object that names no right is about all of them.
[[nodiscard]] UserRightsText parseUserRights(const QString &object);
