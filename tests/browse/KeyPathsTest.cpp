#include "browse/KeyPaths.h"

#include <gtest/gtest.h>

namespace {

TEST(KeyPaths, HivesAreShownWithTheirShortNames)
{
    EXPECT_EQ(shownKeyPath("HKEY_LOCAL_MACHINE\\SOFTWARE"), "HKLM\\SOFTWARE");
    EXPECT_EQ(shownKeyPath("HKEY_USERS"), "HKU");
    // Only the first component is a hive.
    EXPECT_EQ(shownKeyPath("HKEY_USERS\\HKEY_USERS\\a"), "HKU\\HKEY_USERS\\a");
    EXPECT_EQ(shownKeyPath("other\\a"), "other\\a");
    EXPECT_EQ(shownKeyPath(""), "");
}

TEST(KeyPaths, ShortNamesOfHivesAreUnderstood)
{
    EXPECT_EQ(meantKeyPath("HKCR\\a\\b"), "HKEY_CLASSES_ROOT\\a\\b");
    EXPECT_EQ(meantKeyPath("HKEY_CLASSES_ROOT\\a"), "HKEY_CLASSES_ROOT\\a");
    EXPECT_EQ(meantKeyPath("HKCC"), "HKEY_CURRENT_CONFIG");
}

TEST(KeyPaths, HkddIsUnderstoodAndHkdnIsShown)
{
    EXPECT_EQ(meantKeyPath("HKDD\\a"), "HKEY_DYN_DATA\\a");
    EXPECT_EQ(shownKeyPath("HKEY_DYN_DATA\\a"), "HKDN\\a");
    EXPECT_EQ(meantKeyPath("HKDN\\a"), "HKDN\\a");
}

TEST(KeyPaths, BlanksAroundAPathAndOneSeparatorAtItsEndDoNotCount)
{
    EXPECT_EQ(meantKeyPath("  HKLM\\SOFTWARE\\ "), "HKEY_LOCAL_MACHINE\\SOFTWARE");
    EXPECT_EQ(meantKeyPath("HKLM\\"), "HKEY_LOCAL_MACHINE");
    EXPECT_EQ(meantKeyPath("HKLM\\a\\\\"), "HKEY_LOCAL_MACHINE\\a\\");
    // Other white space is a part of a name.
    EXPECT_EQ(meantKeyPath("HKLM\\a\t"), "HKEY_LOCAL_MACHINE\\a\t");
    EXPECT_EQ(meantKeyPath("  "), "");

    KeyPaths paths;
    const QString key = paths.enter(" HKEY_USERS\\a\\ ");
    EXPECT_EQ(paths.path(key), "HKEY_USERS\\a");
    EXPECT_EQ(key, paths.enter("HKEY_USERS\\a"));
}

TEST(KeyPaths, APathIsNotEnteredTwice)
{
    KeyPaths paths;
    const QString key = paths.enter("HKEY_USERS\\Name");
    EXPECT_EQ(paths.enter("HKEY_USERS\\NAME"), key);
    EXPECT_EQ(paths.path(key), "HKEY_USERS\\Name");
}

TEST(KeyPaths, WhatWasNotEnteredHasNoPath)
{
    EXPECT_EQ(KeyPaths().path("HKEY_USERS"), "");
}

TEST(KeyPaths, KeysThatTheRegistryTellsApartStayTwo)
{
    EXPECT_NE(KeyPaths::nodeKey("HKEY_USERS\\stra\u00DFe"), KeyPaths::nodeKey("HKEY_USERS\\strasse"));
    EXPECT_EQ(KeyPaths::nodeKey("HKEY_USERS\\\u00E9"), KeyPaths::nodeKey("HKEY_USERS\\\u00C9"));
}

} // namespace
