#include "platform/DirectoryPath.h"

#include <gtest/gtest.h>

namespace {

struct Taken
{
    const char *tag;
    const char *path;
    const char *host;
    int port;
    const char *name;
    bool isRootDse = false;
};

class TakenPath : public testing::TestWithParam<Taken>
{
};

TEST_P(TakenPath, HasHostPortAndName)
{
    const std::optional<DirectoryPath> path = DirectoryPath::parse(GetParam().path);
    ASSERT_TRUE(path);
    EXPECT_EQ(path->host, GetParam().host);
    EXPECT_EQ(path->port, GetParam().port);
    EXPECT_EQ(path->name, GetParam().name);
    EXPECT_EQ(path->isRootDse, GetParam().isRootDse);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Paths, TakenPath, testing::Values(
    Taken{"Host",          "LDAP://host/dc=x",              "host",           389,  "dc=x"},
    Taken{"Port",          "LDAP://host:1389/dc=x",         "host",           1389, "dc=x"},
    Taken{"LowerCase",     "ldap://host/dc=x",              "host",           389,  "dc=x"},
    Taken{"RootDse",       "LDAP://host/RootDSE",           "host",           389,  "",          true},
    Taken{"RootDseCase",   "LDAP://host/rootdse",           "host",           389,  "",          true},
    Taken{"NoName",        "LDAP://host",                   "host",           389,  ""},
    Taken{"NoHost",        "LDAP:///dc=x",                  "localhost",      389,  "dc=x"},
    // The name begins at the first slash, and has the others.
    Taken{"SlashInName",   "LDAP://host/cn=a/b,dc=x",       "host",           389,  "cn=a/b,dc=x"},
    Taken{"Ipv4",          "LDAP://192.0.2.1:636/dc=x",     "192.0.2.1",      636,  "dc=x"},
    Taken{"Ipv6",          "LDAP://[2001:db8::1]/dc=x",     "2001:db8::1",    389,  "dc=x"},
    Taken{"Ipv6Port",      "LDAP://[2001:db8::1]:636/dc=x", "2001:db8::1",    636,  "dc=x"},
    // Without brackets its last part is no port.
    Taken{"Ipv6Bare",      "LDAP://2001:db8::1/dc=x",       "2001:db8::1",    389,  "dc=x"},
    Taken{"OtherLetters",  "LDAP://b\xC3\xBC" "cher.example/dc=x", "xn--bcher-kva.example", 389, "dc=x"}
), [](const auto &tested) { return tested.param.tag; });
// clang-format on

TEST(DirectoryPathTest, WhatIsNoPathIsNotTaken)
{
    for (const char *path :
         {"", "LDAP:", "LDAP:/host/x", "http://host/x", "LDAP://a b/x", "LDAP://host:/x", "LDAP://host:0/x",
          "LDAP://host:65536/x", "LDAP://host:+389/x", "LDAP://user@host/x", "LDAP://[::1/x", "LDAP://ho?st/x"})
        EXPECT_FALSE(DirectoryPath::parse(path)) << path;
    EXPECT_FALSE(DirectoryPath::parse(QStringLiteral("LDAP://host/dc=x") + QChar(0) + u'y'));
}

TEST(DirectoryPathTest, APathOfAnotherEntryKeepsTheAddressAsItIsWritten)
{
    const std::optional<DirectoryPath> path = DirectoryPath::parse("ldap://HOST:1389/RootDSE");
    ASSERT_TRUE(path);
    EXPECT_EQ(path->pathOf("dc=x"), QString("LDAP://HOST:1389/dc=x"));
    // A question mark would end the name in a URL.
    EXPECT_EQ(path->pathOf("cn=a?b,dc=x"), QString("LDAP://HOST:1389/cn=a\\3Fb,dc=x"));
}

TEST(DirectoryPathTest, OnlyThisMachineIsThisMachine)
{
    for (const char *host : {"localhost", "LOCALHOST", "127.0.0.1", "127.1.2.3", "[::1]"})
        EXPECT_TRUE(DirectoryPath::parse(QStringLiteral("LDAP://%1/x").arg(host))->isThisMachine()) << host;
    // The third is a name that somebody may register.
    for (const char *host : {"192.0.2.1", "localhost.example", "127.example.com", "0.0.0.0", "[::2]"})
        EXPECT_FALSE(DirectoryPath::parse(QStringLiteral("LDAP://%1/x").arg(host))->isThisMachine()) << host;
}

} // namespace
