#include "tests/integration/BrokenPipes.h"
#include "tests/integration/DirectoryFixture.h"
#include "tests/integration/SilentServer.h"

#include <QElapsedTimer>
#include <QSet>

#include <gtest/gtest.h>

namespace {

using Code = DirectoryStatus::Code;
using std::chrono::milliseconds;

QStringList namesOf(const QList<DirectoryChild> &children)
{
    QStringList names;
    for (const DirectoryChild &child : children)
        names << child.Name;
    return names;
}

TEST_F(RealDirectory, RootDseNamesTheTreesOfTheServer)
{
    server.start();
    ASSERT_TRUE(open(server.path("RootDSE")).isSuccess());
    EXPECT_EQ(valuesOf("namingContexts"), (QList<QByteArray>{"dc=example,dc=com", "o=Second"}));
}

TEST_F(RealDirectory, TheBeginningOfAPathAndRootDseAreComparedWithoutRegardToCase)
{
    server.start();
    ASSERT_TRUE(open(server.path("rootdse").replace("LDAP", "ldap")).isSuccess());
    EXPECT_EQ(valuesOf("namingContexts").size(), 2);
}

TEST_F(RealDirectory, ATreeIsWalkedLevelByLevel)
{
    server.start();
    QString path = server.path("dc=example,dc=com");
    for (const char *name : {"ou=people", "ou=staff", "cn=Ann"}) {
        const QList<DirectoryChild> children = childrenOf(path);
        const qsizetype at = namesOf(children).indexOf(name);
        ASSERT_GE(at, 0) << name;
        EXPECT_FALSE(children[at].isElsewhere);
        path = children[at].path;
    }
    EXPECT_EQ(path, server.path("cn=Ann,ou=staff,ou=people,dc=example,dc=com"));
    EXPECT_EQ(childrenOf(path).size(), 0);
}

TEST_F(RealDirectory, APropertyListHasTheNamesOfAllPropertiesOfTheEntry)
{
    server.start();
    ASSERT_TRUE(open(server.path("cn=Ann,ou=staff,ou=people,dc=example,dc=com")).isSuccess());
    const QStringList names = object->propertyNames();
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()), (QSet<QString>{"objectClass", "cn", "sn"}));
}

TEST_F(RealDirectory, ValuesAreBytes)
{
    const QByteArray bytes = QByteArray::fromHex("00ff80000a41");
    server.add("dn: cn=photo,dc=example,dc=com\nobjectClass: inetOrgPerson\ncn: photo\nsn: x\njpegPhoto:: " +
               bytes.toBase64() + "\n");
    server.start();
    ASSERT_TRUE(open(server.path("cn=photo,dc=example,dc=com")).isSuccess());
    EXPECT_EQ(valuesOf("jpegPhoto"), QList<QByteArray>{bytes});
    EXPECT_EQ(valuesOf("description"), QList<QByteArray>());
}

TEST_F(RealDirectory, PropertiesThatTheServerAddsCanBeAskedFor)
{
    server.start();
    ASSERT_TRUE(open(server.path("dc=example,dc=com")).isSuccess());
    EXPECT_EQ(valuesOf("hasSubordinates"), QList<QByteArray>{"TRUE"});
}

// Odd names

struct OddName
{
    const char *tag;
    const char *value;
    /// As it may stand in a distinguished name.
    const char *escaped;
};

class OddlyNamedEntry : public RealDirectory, public testing::WithParamInterface<OddName>
{
};

TEST_P(OddlyNamedEntry, IsListedAndOpened)
{
    const QByteArray value = GetParam().value;
    const QByteArray name = QByteArray("ou=") + GetParam().escaped + ",dc=example,dc=com";
    // In Base64, because LDIF has rules of its own for such characters.
    server.add("dn:: " + name.toBase64() + "\nobjectClass: organizationalUnit\nou:: " + value.toBase64() + "\n");
    server.add("dn:: " + ("cn=below," + name).toBase64() + "\nobjectClass: person\ncn: below\nsn: below\n");
    server.start();

    // Beside it are only entries that begin with "cn=", and ou=people.
    QList<DirectoryChild> found;
    for (const DirectoryChild &child : childrenOf(server.path("dc=example,dc=com"))) {
        if (child.Name.startsWith("ou=") && child.Name != "ou=people")
            found << child;
    }
    ASSERT_EQ(found.size(), 1);
    // A name that is cut at the wrong comma would not be found, or would be another entry.
    ASSERT_EQ(open(found[0].path).text, QString());
    EXPECT_EQ(valuesOf("ou"), QList<QByteArray>{value});
    EXPECT_FALSE(found[0].path.contains('?') || found[0].path.contains('%')) << found[0].path.toStdString();

    const QList<DirectoryChild> below = childrenOf(found[0].path);
    ASSERT_EQ(namesOf(below), QStringList{"cn=below"});
    ASSERT_EQ(open(below[0].path).text, QString());
    EXPECT_EQ(valuesOf("cn"), QList<QByteArray>{"below"});
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Names, OddlyNamedEntry, testing::Values(
    OddName{"Comma",         "a,b",                "a\\,b"},
    OddName{"TwoCommas",     ",,",                 "\\,\\,"},
    OddName{"Plus",          "a+b",                "a\\+b"},
    OddName{"Quotes",        "\"a\"",              "\\\"a\\\""},
    OddName{"Backslash",     "a\\b",               "a\\\\b"},
    OddName{"LastBackslash", "a\\",                "a\\\\"},
    OddName{"LeadingBlank",  " a",                 "\\ a"},
    OddName{"NumberSign",    "#a",                 "\\#a"},
    OddName{"NonAscii",      "\xC3\xA9\xE6\x97\xA5\xF0\x9F\x99\x82", "\xC3\xA9\xE6\x97\xA5\xF0\x9F\x99\x82"},
    OddName{"Equals",        "a=b",                "a=b"},
    OddName{"LessSemicolon", "<a;b>",              "\\<a\\;b\\>"},
    OddName{"Slash",         "a/b",                "a/b"},
    OddName{"Question",      "a?b?c",              "a?b?c"},
    OddName{"Percent",       "100%41",             "100%41"},
    OddName{"At",            "a@b:c",              "a@b:c"},
    OddName{"Everything",    " ,+\"\\<>;#=/?%",    "\\ \\,\\+\\\"\\\\\\<\\>\\;#=/?%"}
), [](const auto &tested) { return tested.param.tag; });
// clang-format on

TEST_F(RealDirectory, ANameOfTwoPartsIsOneName)
{
    server.add("dn: cn=a+sn=b,dc=example,dc=com\nobjectClass: person\ncn: a\nsn: b\n");
    server.start();
    EXPECT_TRUE(namesOf(childrenOf(server.path("dc=example,dc=com"))).contains("cn=a+sn=b"));
    EXPECT_TRUE(open(server.path("cn=a+sn=b,dc=example,dc=com")).isSuccess());
}

// Large containers

TEST_F(RealDirectory, TenThousandChildrenAreReadPageByPage)
{
    server.addMany(10'000);
    server.start();
    ASSERT_TRUE(open(server.path("ou=many,dc=example,dc=com")).isSuccess());
    QSet<QString> names;
    int pages = 0;
    const DirectoryStatus status = object->children([&](const QList<DirectoryChild> &some) {
        ++pages;
        EXPECT_LE(some.size(), limits.pageSize);
        for (const DirectoryChild &child : some) {
            EXPECT_FALSE(names.contains(child.Name)) << child.Name.toStdString() << " came twice";
            names << child.Name;
        }
    });
    EXPECT_TRUE(status.isSuccess()) << status.text.toStdString();
    EXPECT_EQ(names.size(), 10'000);
    EXPECT_EQ(pages, 10);
}

TEST_F(RealDirectory, AReachedSizeLimitIsToldAndWhatCameIsKept)
{
    server.addMany(1200);
    server.start();
    limits.pageSize = 100;
    ASSERT_TRUE(open(server.path("ou=many,dc=example,dc=com"), "cn=limited,dc=example,dc=com", "secret").isSuccess());
    int count = 0;
    const DirectoryStatus status =
        object->children([&](const QList<DirectoryChild> &some) { count += int(some.size()); });
    EXPECT_EQ(status.code, Code::Incomplete);
    EXPECT_TRUE(status.text.contains("does not give more entries")) << status.text.toStdString();
    EXPECT_EQ(count, 500);
}

TEST_F(RealDirectory, AServerWithoutPagesIsReadAtOnce)
{
    server.addMany(1200);
    server.start();
    ASSERT_TRUE(open(server.path("ou=many,dc=example,dc=com"), "cn=unpaged,dc=example,dc=com", "secret").isSuccess());
    int count = 0;
    const DirectoryStatus status =
        object->children([&](const QList<DirectoryChild> &some) { count += int(some.size()); });
    EXPECT_TRUE(status.isSuccess()) << status.text.toStdString();
    EXPECT_EQ(count, 1200);
}

// Referrals

TEST_F(RealDirectory, ReferralsAreEntriesAndNotFollowed)
{
    const QByteArray self = server.path("ou=loop,dc=example,dc=com").replace("LDAP", "ldap").toLatin1();
    const SilentServer elsewhere(SilentServer::Manner::Waits);
    server.add("dn: ou=loop,dc=example,dc=com\nobjectClass: referral\nobjectClass: extensibleObject\nou: loop\nref: " +
               self + "\n");
    server.add("dn: ou=away,dc=example,dc=com\nobjectClass: referral\nobjectClass: extensibleObject\nou: away\nref: "
               "ldap://127.0.0.1:" +
               QByteArray::number(elsewhere.port()) + "/dc=elsewhere\n");
    server.start();
    const QStringList names = namesOf(childrenOf(server.path("dc=example,dc=com")));
    EXPECT_TRUE(names.contains("ou=loop"));
    EXPECT_TRUE(names.contains("ou=away"));
    // To follow either would take until the end of a limit: one never ends, the other never answers.
    EXPECT_EQ(childrenOf(server.path("ou=loop,dc=example,dc=com")).size(), 0);
    EXPECT_EQ(childrenOf(server.path("ou=away,dc=example,dc=com")).size(), 0);
    EXPECT_EQ(valuesOf("ref").size(), 1);
}

TEST_F(RealDirectory, WhatIsBelowAReferralIsSaidToBeElsewhere)
{
    server.add("dn: ou=away,dc=example,dc=com\nobjectClass: referral\nobjectClass: extensibleObject\nou: away\nref: "
               "ldap://192.0.2.1/dc=elsewhere\n");
    server.start();
    const DirectoryStatus status = open(server.path("cn=x,ou=away,dc=example,dc=com"));
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_TRUE(status.text.contains("on another server")) << status.text.toStdString();
    EXPECT_TRUE(status.text.contains("ldap://192.0.2.1/")) << status.text.toStdString();
}

// Rights and accounts

TEST_F(RealDirectory, AnEntryThatMayNotBeReadIsNotOpened)
{
    server.start();
    const DirectoryStatus status = open(server.path("cn=hidden,dc=example,dc=com"));
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_FALSE(status.text.isEmpty());
    EXPECT_TRUE(open(server.path("cn=hidden,dc=example,dc=com"), DirectoryServer::admin, "secret").isSuccess());
}

TEST_F(RealDirectory, AMissingEntryIsNotOpened)
{
    server.start();
    const DirectoryStatus status = open(server.path("cn=nobody,dc=example,dc=com"));
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_TRUE(status.text.contains("no such entry")) << status.text.toStdString();
}

TEST_F(RealDirectory, AWrongPasswordIsSaidToBeWrong)
{
    server.start();
    const DirectoryStatus status = open(server.path("dc=example,dc=com"), DirectoryServer::admin, "guessed");
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_TRUE(status.text.contains("password is wrong")) << status.text.toStdString();
    // And the next one is not let in with what the one before had.
    EXPECT_FALSE(open(server.path("dc=example,dc=com"), DirectoryServer::admin, "again").isSuccess());
    EXPECT_TRUE(open(server.path("dc=example,dc=com"), DirectoryServer::admin, "secret").isSuccess());
}

TEST_F(RealDirectory, OneUserDoesNotReadWithTheRightsOfAnother)
{
    server.start();
    ASSERT_TRUE(open(server.path("cn=hidden,dc=example,dc=com"), DirectoryServer::admin, "secret").isSuccess());
    EXPECT_FALSE(open(server.path("cn=hidden,dc=example,dc=com")).isSuccess());
}

TEST_F(RealDirectory, ThePasswordIsNotSentUnencryptedToAnotherMachineUnlessThatIsAllowed)
{
    server.start();
    // The same server by an address that does not say so.
    const QString path = server.path("dc=example,dc=com").replace("127.0.0.1", "0.0.0.0");
    const DirectoryStatus status = open(path, DirectoryServer::admin, "secret");
    EXPECT_EQ(status.code, Code::NotEncrypted);
    EXPECT_TRUE(status.text.contains("0.0.0.0")) << status.text.toStdString();
    EXPECT_FALSE(server.log().contains(" BIND ")) << server.log().toStdString();
    EXPECT_TRUE(open(path, DirectoryServer::admin, "secret", Directory::MaySendUnencrypted).isSuccess());
    EXPECT_TRUE(server.log().contains(" BIND "));
}

TEST_F(RealDirectory, NobodyIsLoggedInWithoutAnAccountAndNothingIsEncrypted)
{
    server.start();
    EXPECT_TRUE(open(server.path("dc=example,dc=com").replace("127.0.0.1", "0.0.0.0")).isSuccess());
    EXPECT_FALSE(server.log().contains("STARTTLS")) << server.log().toStdString();
    EXPECT_FALSE(server.log().contains(" BIND "));
}

// Servers that fail

TEST_F(LdapDirectoryTest, APathThatIsNoneIsNotOpened)
{
    for (const char *path : {"", "LDAP:", "ldap:/x/y", "LDAP://a b/dc=x", "LDAP://host:0/dc=x", "LDAP://host:70000/",
                             "LDAP://host:x/", "LDAP://[::1/dc=x", "http://host/"}) {
        const DirectoryStatus status = open(path);
        EXPECT_EQ(status.code, Code::Failed) << path;
        EXPECT_TRUE(status.text.contains("is not the path of an entry")) << path << ": " << status.text.toStdString();
    }
}

TEST_F(LdapDirectoryTest, AHostThatIsNotThereIsSaidNotToBe)
{
    const DirectoryStatus status = open("LDAP://no-such-host.invalid/RootDSE");
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_FALSE(status.text.isEmpty());
}

TEST_F(LdapDirectoryTest, AServerThatNeverAnswersIsWaitedForUntilTheLimit)
{
    const SilentServer silent(SilentServer::Manner::Waits);
    limits.operation = milliseconds(300);
    const DirectoryStatus status = open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(silent.port()));
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_TRUE(status.text.contains("in time")) << status.text.toStdString();
}

TEST_F(LdapDirectoryTest, AServerThatNeverAnswersIsWaitedForUntilTheLimitAlsoForEncryption)
{
    const SilentServer silent(SilentServer::Manner::Waits);
    limits.operation = milliseconds(300);
    limits.connect = milliseconds(300);
    const DirectoryStatus onRequest =
        open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(silent.port()), "cn=x", "secret");
    EXPECT_TRUE(onRequest.text.contains("in time")) << onRequest.text.toStdString();
}

TEST_F(LdapDirectoryTest, AServerThatNeverAnswersIsWaitedForUntilTheLimitAlsoOnTheEncryptedPort)
{
    const SilentServer silent(SilentServer::Manner::Waits);
    limits.connect = milliseconds(1000);
    limits.encryptedPort = silent.port();
    const DirectoryStatus status = open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(silent.port()));
    EXPECT_TRUE(status.text.contains("in time")) << status.text.toStdString();
}

// A library that reads until it has all of a message would not come back.
TEST_F(LdapDirectoryTest, AServerThatNeverEndsItsAnswerIsWaitedForUntilTheLimit)
{
    const SilentServer server(SilentServer::Manner::Begins);
    limits.operation = milliseconds(300);
    const DirectoryStatus status = open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(server.port()));
    EXPECT_TRUE(status.text.contains("in time")) << status.text.toStdString();
}

TEST_F(LdapDirectoryTest, WaitingForEncryptionCanBeCancelled)
{
    const SilentServer silent(SilentServer::Manner::Waits);
    limits.connect = std::chrono::hours(1);
    limits.encryptedPort = silent.port();
    int asked = 0;
    goOn = [&] { return ++asked < 3; };
    const DirectoryStatus status = open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(silent.port()));
    EXPECT_EQ(status.code, Code::Cancelled);
}

TEST_F(LdapDirectoryTest, WaitingCanBeCancelled)
{
    const SilentServer silent(SilentServer::Manner::Waits);
    // Long enough for the test's own limit to come first.
    limits.operation = std::chrono::hours(1);
    int asked = 0;
    goOn = [&] { return ++asked < 3; };
    const DirectoryStatus status = open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(silent.port()));
    EXPECT_EQ(status.code, Code::Cancelled);
    EXPECT_EQ(asked, 3);
}

TEST_F(LdapDirectoryTest, AServerThatEndsTheConnectionIsSaidTo)
{
    const SilentServer dropping(SilentServer::Manner::Drops);
    const DirectoryStatus status = open(QStringLiteral("LDAP://127.0.0.1:%1/RootDSE").arg(dropping.port()));
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_TRUE(status.text.contains("ended the connection")) << status.text.toStdString();
}

TEST_F(RealDirectory, AServerThatStandsStillInTheMiddleIsWaitedForUntilTheLimit)
{
    limits.operation = milliseconds(1500);
    server.start();
    ASSERT_TRUE(open(server.path("dc=example,dc=com")).isSuccess());
    server.halt();
    const DirectoryStatus status = object->children([](const auto &) { ADD_FAILURE(); });
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_TRUE(status.text.contains("in time")) << status.text.toStdString();
    server.resume();
    EXPECT_FALSE(childrenOf(server.path("dc=example,dc=com")).isEmpty());
}

TEST_F(RealDirectory, AServerThatHasEndedInTheMiddleIsAFailure)
{
    server.start();
    ASSERT_TRUE(open(server.path("dc=example,dc=com")).isSuccess());
    server.kill();
    const DirectoryStatus status = object->children([](const auto &) { ADD_FAILURE(); });
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_FALSE(status.text.isEmpty());
}

// The library writes twice then: the request, and that it ends the connection.
TEST_F(RealDirectory, AConnectionThatIsCutOffDoesNotEndTheProgram)
{
    server.start();
    letBrokenPipesEndTheProgram();
    ASSERT_TRUE(open(server.path("dc=example,dc=com")).isSuccess());
    server.halt();
    const std::unique_ptr<DirectoryObject> kept = std::move(object);
    goOn = [] { return false; };
    ASSERT_EQ(open(server.path("dc=example,dc=com")).code, Code::Cancelled);
    // A request that it has not read yet makes the system cut the connection off.
    server.kill();
    const DirectoryStatus status = kept->children([](const auto &) { ADD_FAILURE(); });
    EXPECT_EQ(status.code, Code::Failed);
    EXPECT_FALSE(status.text.isEmpty());
}

TEST_F(RealDirectory, AServerThatHasComeBackIsReadAgain)
{
    server.start();
    ASSERT_TRUE(open(server.path("dc=example,dc=com"), DirectoryServer::admin, "secret").isSuccess());
    server.kill();
    server.start();
    int count = 0;
    const DirectoryStatus status =
        object->children([&](const QList<DirectoryChild> &some) { count += int(some.size()); });
    EXPECT_TRUE(status.isSuccess()) << status.text.toStdString();
    EXPECT_GT(count, 0);
}

// The connection is made again in between, and with a password that has become wrong nobody is logged in on it.
TEST_F(RealDirectory, ALoginThatIsRefusedMeanwhileDoesNotReadAsNobody)
{
    for (const char *name : {"RootDSE", "dc=example,dc=com"}) {
        server.setAdminPassword("secret");
        server.start();
        ASSERT_TRUE(open(server.path(name), DirectoryServer::admin, "secret").isSuccess());
        const std::unique_ptr<DirectoryObject> kept = std::move(object);
        server.kill();
        server.setAdminPassword("changed");
        server.start();
        for (int i = 0; i < 2; ++i) {
            const DirectoryStatus status = open(server.path(name), DirectoryServer::admin, "secret");
            EXPECT_TRUE(status.text.contains("password is wrong")) << name << ": " << status.text.toStdString();
        }
        EXPECT_EQ(kept->children([](const auto &) { ADD_FAILURE(); }).code, Code::Failed);
        server.kill();
    }
}

} // namespace
