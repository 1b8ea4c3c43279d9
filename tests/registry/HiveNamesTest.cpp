#include "registry/HiveNames.h"

#include "registry/clsKey.h"
#include "registry/RegistryConstants.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct HiveCase
{
    const char *name;
    quint32 handle;
    const char *shown;
    const char *understood;
};

// Written out once more, so that a slip in the program's own table does not go into the test with it.
// clang-format off
constexpr std::array<HiveCase, 7> hiveCases {{
    {"HKEY_CLASSES_ROOT",     0x80000000, "HKCR", "HKCR"},
    {"HKEY_CURRENT_USER",     0x80000001, "HKCU", "HKCU"},
    {"HKEY_LOCAL_MACHINE",    0x80000002, "HKLM", "HKLM"},
    {"HKEY_USERS",            0x80000003, "HKU",  "HKU"},
    {"HKEY_PERFORMANCE_DATA", 0x80000004, "HKPD", "HKPD"},
    {"HKEY_CURRENT_CONFIG",   0x80000005, "HKCC", "HKCC"},
    {"HKEY_DYN_DATA",         0x80000006, "HKDN", "HKDD"},
}};
// clang-format on

TEST(HiveNames, EveryHive)
{
    EXPECT_EQ(RegistryConstants::hives.size(), hiveCases.size());
    for (const HiveCase &row : hiveCases) {
        EXPECT_EQ(clsKey::HiveRoot2Num(row.name), row.handle) << row.name;
        EXPECT_EQ(shortHiveName(row.name), row.shown);
        EXPECT_EQ(fullHiveName(row.understood), row.name);
    }
}

TEST(HiveNames, HiveRoot2NumTakesNoShortNames)
{
    EXPECT_EQ(clsKey::HiveRoot2Num("HKEY_LOCAL_MACHINE"), 0x80000002U);
    for (const QString other :
         {"HKLM", "HKDD", "", "hkey_local_machine", "HKEY_LOCAL_MACHINE ", "HKEY_LOCAL_MACHINE\\", "SOFTWARE"})
        EXPECT_EQ(clsKey::HiveRoot2Num(other), 0U) << other.toStdString();
}

TEST(HiveNames, DynamicDataIsShownByAnotherNameThanItIsUnderstood)
{
    EXPECT_EQ(shortHiveName("HKEY_DYN_DATA"), "HKDN");
    EXPECT_EQ(fullHiveName("HKDD"), "HKEY_DYN_DATA");
    EXPECT_EQ(fullHiveName("HKDN"), "HKDN");
}

TEST(HiveNames, OtherTextsPassThrough)
{
    for (const QString other : {"", "hklm", "HKEY_LOCAL_MACHINE\\SOFTWARE", "HKLM\\SOFTWARE", "SOFTWARE"}) {
        EXPECT_EQ(shortHiveName(other), other);
        EXPECT_EQ(fullHiveName(other), other);
    }
    EXPECT_EQ(fullHiveName("HKEY_USERS"), "HKEY_USERS");
    EXPECT_EQ(shortHiveName("HKU"), "HKU");
}

} // namespace
