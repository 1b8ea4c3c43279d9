#include "editors/UserRights.h"

#include <QStringList>

#include <gtest/gtest.h>

void PrintTo(const UserRightsText &rights, std::ostream *stream)
{
    *stream << (rights.isAll ? "all " : "") << rights.listed.to_string() << " [" << rights.others.toStdString() << ']';
}

namespace {

/// Rights by the numbers of their rows, counted from 1.
UserRightsText listed(std::initializer_list<size_t> rows, const QString &others = {})
{
    UserRightsText rights;
    for (const size_t row : rows)
        rights.listed.set(row - 1);
    rights.others = others;
    return rights;
}

const UserRightsText all{true, {}, {}};

TEST(UserRights, ArePairedWithTheirDescriptions)
{
    QStringList rows;
    for (const UserRight &right : userRights)
        rows << right.name + QString("|") + right.description;
    // "Bypass traverse checking" belongs to the last row but one, not to the row behind "SeMachineAccountPrivilege".
    EXPECT_EQ(rows, (QStringList{
                        "SeInteractiveLogonRight|Log on locally",
                        "SeNetworkLogonRight|Access this computer from network",
                        "SeBatchLogonRight|Log on as a batch job",
                        "SeServiceLogonRight|Log on as a service",
                        "SeCreateTokenPrivilege|Create a token object",
                        "SeAssignPrimaryTokenPrivilege|Replace a process level token",
                        "SeLockMemoryPrivilege|Lock pages in memory",
                        "SeIncreaseQuotaPrivilege|Increase quotas",
                        "SeMachineAccountPrivilege|Add workstations to domain",
                        "SeTcbPrivilege|Act as part of the operating system",
                        "SeSecurityPrivilege|Manage auditing and security log",
                        "SeTakeOwnershipPrivilege|Take ownership of files or other objects",
                        "SeLoadDriverPrivilege|Load and unload device drivers",
                        "SeSystemProfilePrivilege|Profile system performance",
                        "SeSystemtimePrivilege|Change the system time",
                        "SeProfileSingleProcessPrivilege|Profile a single process",
                        "SeIncreaseBasePriorityPrivilege|Increase scheduling priority",
                        "SeCreatePagefilePrivilege|Create a pagefile",
                        "SeCreatePermanentPrivilege|Create permanent shared objects",
                        "SeBackupPrivilege|Back up files and directories",
                        "SeRestorePrivilege|Restore files and directories",
                        "SeShutdownPrivilege|Shut down the system",
                        "SeDebugPrivilege|Debug programs",
                        "SeAuditPrivilege|Generate security audits",
                        "SeSystemEnvironmentPrivilege|Modify firmware environment values",
                        "SeChangeNotifyPrivilege|Bypass traverse checking",
                        "SeRemoteShutdownPrivilege|Force shutdown from a remote system",
                    }));
}

TEST(UserRights, AreWrittenInTheirOrderAndOthersBehindThem)
{
    EXPECT_EQ(buildUserRights(listed({9, 2}, "  SeFoo ")),
              "USERRIGHT:SeNetworkLogonRight,SeMachineAccountPrivilege,SeFoo");
    EXPECT_EQ(buildUserRights(listed({27})), "USERRIGHT:SeRemoteShutdownPrivilege");
    EXPECT_EQ(buildUserRights(listed({}, "Se*,SeFoo")), "USERRIGHT:Se*,SeFoo");
}

TEST(UserRights, MayBeNone)
{
    EXPECT_EQ(buildUserRights({}), "USERRIGHT:");
    EXPECT_EQ(buildUserRights(listed({}, "   ")), "USERRIGHT:");
}

TEST(UserRights, AllOfThemAreAStarWhateverElseIsChosen)
{
    EXPECT_EQ(buildUserRights(all), "USERRIGHT:*");
    UserRightsText rights = listed({1}, "SeFoo");
    rights.isAll = true;
    EXPECT_EQ(buildUserRights(rights), "USERRIGHT:*");
}

TEST(UserRights, OneCommaInFrontIsDropped)
{
    EXPECT_EQ(buildUserRights(listed({}, ",SeFoo")), "USERRIGHT:,SeFoo");
    EXPECT_EQ(buildUserRights(listed({1}, ",SeFoo,")), "USERRIGHT:SeInteractiveLogonRight,,SeFoo,");
}

TEST(UserRights, AnEmptyListIsReadAsAll)
{
    EXPECT_EQ(parseUserRights("USERRIGHT:"), all);
    EXPECT_EQ(parseUserRights("USERRIGHT:*"), all);
    EXPECT_EQ(parseUserRights("USERRIGHT:  "), all);
    EXPECT_EQ(parseUserRights("USERRIGHT: * "), all);
    EXPECT_EQ(parseUserRights("USER"), all);
    // These are not empty, whatever becomes of them.
    EXPECT_EQ(parseUserRights("USERRIGHT:,"), listed({}));
    EXPECT_EQ(parseUserRights("USERRIGHT:**"), listed({}, "**"));
    EXPECT_EQ(parseUserRights("USERRIGHT:*,*"), listed({}, "*,*"));
}

TEST(UserRights, AreFoundWhateverTheirCase)
{
    EXPECT_EQ(parseUserRights("USERRIGHT:seshutdownprivilege,SEDEBUGPRIVILEGE"), listed({22, 23}));
    EXPECT_EQ(buildUserRights(parseUserRights("USERRIGHT:seshutdownprivilege")), "USERRIGHT:SeShutdownPrivilege");
}

TEST(UserRights, AreFoundOnlyWhole)
{
    EXPECT_EQ(parseUserRights("USERRIGHT:SeDebug,SeDebugPrivilegeX,xSeDebugPrivilege"),
              listed({}, "SeDebug,SeDebugPrivilegeX,xSeDebugPrivilege"));
}

TEST(UserRights, OthersKeepTheirOrderAndLoseEveryBlank)
{
    EXPECT_EQ(parseUserRights("USERRIGHT: Se Foo , SeTcbPrivilege,,\tB,Se Debug Privilege,a"),
              listed({10, 23}, "SeFoo,\tB,a"));
}

TEST(UserRights, ThatStandTwiceAreListedOnce)
{
    EXPECT_EQ(parseUserRights("USERRIGHT:SeTcbPrivilege,setcbprivilege,SeFoo,SeFoo"), listed({10}, "SeFoo,SeFoo"));
}

TEST(UserRights, TheFirstTenCharactersAreTakenForTheTagWhateverTheyAre)
{
    EXPECT_EQ(parseUserRights("userright;SeTcbPrivilege"), listed({10}));
}

} // namespace
