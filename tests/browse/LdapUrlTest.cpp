#include "browse/LdapUrl.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

LdapUrl taken(const QString &text)
{
    const std::optional<LdapUrl> url = readLdapUrl(text);
    EXPECT_TRUE(url) << text.toStdString();
    return url.value_or(LdapUrl());
}

TEST(LdapUrlTest, OnlyWhatBeginsAsOneIsTakenApart)
{
    for (const char *text : {"", "LDAP:", "LDAP:/x/y", "LDAP:cn=x,dc=y", "http://x/y", " LDAP://x/y", "LDAPS://x/y"})
        EXPECT_FALSE(readLdapUrl(text)) << text;
    EXPECT_EQ(taken("ldap://host/dc=x").host, "host");
    EXPECT_EQ(taken("LDAP://").host, "");
}

struct Address
{
    const char *tag;
    const char *address;
    const char *userName;
    const char *password;
    const char *host;
};

class ReadAddress : public testing::TestWithParam<Address>
{
};

TEST_P(ReadAddress, HasAccountAndHost)
{
    const LdapUrl url = taken(QStringLiteral("LDAP://%1/dc=x").arg(GetParam().address));
    EXPECT_EQ(url.userName, GetParam().userName);
    EXPECT_EQ(url.password, GetParam().password);
    EXPECT_EQ(url.host, GetParam().host);
    EXPECT_EQ(url.distinguishedName, "dc=x");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Addresses, ReadAddress, testing::Values(
    Address{"HostOnly",             "host",                  "",           "",      "host"},
    Address{"HostAndPort",          "host:636",              "",           "",      "host:636"},
    Address{"Empty",                "",                      "",           "",      ""},
    Address{"User",                 "user@host",             "user",       "",      "host"},
    Address{"UserAndPassword",      "user:pw@host:636",      "user",       "pw",    "host:636"},
    Address{"UserWithAt",           "user@realm@host",       "user@realm", "",      "host"},
    Address{"UserWithAtPassword",   "user@realm:pw@host",    "user@realm", "pw",    "host"},
    // Only the first colon is none of the password's.
    Address{"PasswordWithColon",    "user:p:w@host",         "user",       "p:w",   "host"},
    // The password must not end up in the name, which can be seen.
    Address{"PasswordWithAt",       "user:p@w@host",         "user",       "p@w",   "host"},
    Address{"EmptyPassword",        "user:@host",            "user",       "",      "host"},
    Address{"PasswordOnly",         ":pw@host",              "",           "pw",    "host"},
    Address{"EmptyAccount",         "@host",                 "",           "",      "host"},
    Address{"Name",                 "cn=a,dc=x:pw@host",     "cn=a,dc=x",  "pw",    "host"},
    Address{"Ipv6",                 "u:pw@[::1]:389",        "u",          "pw",    "[::1]:389"}
), [](const auto &tested) { return tested.param.tag; });
// clang-format on

TEST(LdapUrlTest, TheAddressEndsAtTheFirstSlash)
{
    const LdapUrl url = taken("LDAP://host/cn=a/b@c,dc=x");
    EXPECT_EQ(url.host, "host");
    EXPECT_EQ(url.userName, "");
    EXPECT_EQ(url.distinguishedName, "cn=a/b@c,dc=x");
    EXPECT_EQ(taken("LDAP://host").distinguishedName, "");
}

TEST(LdapUrlTest, TheQueryHasAttributesScopeAndFilter)
{
    const LdapUrl url = taken("LDAP://host/dc=x?cn,mail?one?(sn=a)");
    EXPECT_EQ(url.distinguishedName, "dc=x");
    ASSERT_TRUE(url.query);
    EXPECT_EQ(url.query->attributes, (QStringList{"cn", "mail"}));
    EXPECT_EQ(url.query->scope, "one");
    EXPECT_EQ(url.query->filter, "(sn=a)");
    EXPECT_FALSE(taken("LDAP://host/dc=x").query);
}

TEST(LdapUrlTest, AQueryMayEndBeforeItsEnd)
{
    ASSERT_TRUE(taken("LDAP://host/dc=x?").query);
    EXPECT_EQ(taken("LDAP://host/dc=x?").query->attributes, QStringList());
    EXPECT_FALSE(taken("LDAP://host/dc=x?cn").query->scope);
    EXPECT_EQ(taken("LDAP://host/dc=x?cn?").query->scope, "");
    EXPECT_EQ(taken("LDAP://host/dc=x??base").query->filter, "");
}

TEST(LdapUrlTest, AFilterKeepsItsQuestionMarks)
{
    EXPECT_EQ(taken("LDAP://host/dc=x??sub?(cn=a?b)?c").query->filter, "(cn=a?b)?c");
}

TEST(LdapUrlTest, AttributesHaveNoBlanksAroundThem)
{
    EXPECT_EQ(taken("LDAP://host/dc=x?cn , mail?sub").query->attributes, (QStringList{"cn", "mail"}));
    EXPECT_EQ(taken("LDAP://host/dc=x? ,cn,,?sub").query->attributes, QStringList{"cn"});
}

TEST(LdapUrlTest, ScopesAreKnownByTheirWordsWhateverTheCase)
{
    EXPECT_EQ(ldapScopeOf("sub"), LdapScope::Sub);
    EXPECT_EQ(ldapScopeOf("BASE"), LdapScope::Base);
    EXPECT_EQ(ldapScopeOf("One"), LdapScope::One);
    for (const char *word : {"", "subtree", "sub:", " sub", "su"})
        EXPECT_FALSE(ldapScopeOf(word)) << word;
}

TEST(LdapUrlTest, WritesWhatHasBeenChosen)
{
    LdapChoice choice;
    choice.path = "LDAP://host/dc=x,dc=com";
    choice.filter = "(objectclass=*)";
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://host/dc=x,dc=com??sub?(objectclass=*)");
    choice.attributes = QStringList{"cn", "mail"};
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://host/dc=x,dc=com?cn,mail?sub?(objectclass=*)");
    choice.attributes = QStringList();
    choice.filter.clear();
    choice.scope = LdapScope::Base;
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://host/dc=x,dc=com??base");
    choice.scope = LdapScope::One;
    choice.userName = "user@realm";
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://user@realm@host/dc=x,dc=com??one");
    choice.password = "scrambled";
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://user@realm:scrambled@host/dc=x,dc=com??one");
    choice.userName.clear();
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://host/dc=x,dc=com??one");
}

TEST(LdapUrlTest, APathThatDoesNotBeginAsOneIsKeptWhole)
{
    LdapChoice choice;
    choice.path = "cn=x,dc=y";
    choice.userName = "user";
    EXPECT_EQ(writeLdapUrl(choice), "LDAP://user@cn=x,dc=y??sub");
}

// Whatever is chosen is read again as it was written, unless it holds the characters that separate the parts: a slip in
// any rule of the reader or of the writer shows here.
TEST(LdapUrlTest, WhatIsWrittenIsReadAgain)
{
    Random random(53);
    const QStringList letters{"a", "B", "1", "=", ",", "+", "\\", "\"", " ", "#", ";", "%", ".", "\xC3\xA9"};
    const QStringList passwordLetters{"a", "B", "1", "=", ":", "@", "?", "\xC3\xA9"};
    const QStringList attributes{"cn", "mail", "objectClass", "a;lang-de", "1.2.3"};
    for (int run = 0; run < 5000; ++run) {
        LdapChoice choice;
        if (random.chance(60)) {
            choice.userName = "u" + random.text(letters, 5) + (random.chance(30) ? "@realm" : "");
            // With an "@" in the user name the first colon behind it begins the password, with none the first of all.
            if (random.chance(60))
                choice.password = "p" + random.text(choice.userName.contains(u'@') ? passwordLetters : letters, 6);
        }
        const QString host = "h" + QString(random.chance(30) ? ":636" : "");
        const QString name = random.text(letters + QStringList{"/", "@", ":"}, 10);
        choice.path = "LDAP://" + host + "/" + name;
        if (random.chance(50)) {
            choice.attributes = QStringList();
            for (int count = random.number(0, 3); count > 0; --count)
                *choice.attributes << random.oneOf(attributes);
        }
        choice.scope = random.oneOf(ldapScopes).scope;
        choice.filter = random.text(letters + QStringList{"?", "/", "(", ")", "*"}, 10);

        const QString text = writeLdapUrl(choice);
        SCOPED_TRACE(text.toStdString());
        const LdapUrl url = taken(text);
        EXPECT_EQ(url.userName, choice.userName);
        EXPECT_EQ(url.password, choice.password);
        EXPECT_EQ(url.host, host);
        EXPECT_EQ(url.distinguishedName, name);
        EXPECT_EQ(url.path(), choice.path);
        ASSERT_TRUE(url.query);
        EXPECT_EQ(url.query->attributes, choice.attributes.value_or(QStringList()));
        EXPECT_EQ(ldapScopeOf(url.query->scope.value_or("")), choice.scope);
        EXPECT_EQ(url.query->filter, choice.filter);
    }
}

} // namespace
