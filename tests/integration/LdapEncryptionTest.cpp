#include "tests/integration/Certificates.h"
#include "tests/integration/DirectoryFixture.h"

#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Code = DirectoryStatus::Code;

class EncryptedDirectory : public RealDirectory
{
protected:
    void startWith(const QString &names, int days = 30)
    {
        certificates.make("server", names, days);
        server.setCertificate(certificates.certificate("server"), certificates.key("server"));
        server.start();
        limits.trustedCertificates = certificates.issuer();
        limits.encryptedPort = server.encryptedPort();
    }

    [[nodiscard]] QString encryptedPath() const
    {
        return QStringLiteral("LDAP://127.0.0.1:%1/dc=example,dc=com").arg(server.encryptedPort());
    }

    /// By both ways: from the beginning, and on request. Neither may succeed, nor send the password.
    void expectRefused(const QString &reason)
    {
        for (const QString &path : {encryptedPath(), server.path("dc=example,dc=com")}) {
            const DirectoryStatus status = open(path, DirectoryServer::admin, "secret", Directory::MaySendUnencrypted);
            EXPECT_EQ(status.code, Code::Failed) << path.toStdString();
            EXPECT_TRUE(status.text.contains(reason)) << path.toStdString() << ": " << status.text.toStdString();
        }
        EXPECT_FALSE(server.log().contains(" BIND ")) << server.log().toStdString();
    }

    QTemporaryDir folder;
    Certificates certificates{folder.path()};
};

constexpr const char *loopbackNames = "DNS:localhost,IP:127.0.0.1,IP:0.0.0.0";

TEST_F(EncryptedDirectory, EverythingIsEncryptedOnTheEncryptedPort)
{
    startWith(loopbackNames);
    EXPECT_EQ(open(encryptedPath()).text, QString());
    EXPECT_EQ(open(encryptedPath(), DirectoryServer::admin, "secret").text, QString());
}

TEST_F(EncryptedDirectory, EncryptionIsRequestedBeforeSomebodyLogsIn)
{
    startWith(loopbackNames);
    // Not allowed to send it unencrypted, to an address that is not known to be this machine.
    const QString path = server.path("dc=example,dc=com").replace("127.0.0.1", "0.0.0.0");
    EXPECT_EQ(open(path, DirectoryServer::admin, "secret").text, QString());
    const QByteArray log = server.log();
    EXPECT_TRUE(log.contains("STARTTLS")) << log.toStdString();
    EXPECT_GT(log.indexOf(" BIND "), log.indexOf("STARTTLS"));
}

// Much more than fits into a piece of what is encrypted, or into the buffers of a socket.
TEST_F(EncryptedDirectory, TenThousandChildrenAreReadEncrypted)
{
    server.addMany(10'000);
    startWith(loopbackNames);
    ASSERT_EQ(open(encryptedPath().replace("dc=example", "ou=many,dc=example")).text, QString());
    QSet<QString> names;
    const DirectoryStatus status = object->children([&](const QList<DirectoryChild> &some) {
        for (const DirectoryChild &child : some)
            names << child.Name;
    });
    EXPECT_TRUE(status.isSuccess()) << status.text.toStdString();
    EXPECT_EQ(names.size(), 10'000);
}

TEST_F(EncryptedDirectory, AServerThatEndsInTheMiddleOfAnEncryptedConnectionIsAFailure)
{
    startWith(loopbackNames);
    ASSERT_EQ(open(encryptedPath()).text, QString());
    server.kill();
    EXPECT_EQ(object->children([](const auto &) { ADD_FAILURE(); }).code, Code::Failed);
}

TEST_F(EncryptedDirectory, ACertificateThatIsItsOwnIssuerIsGoodWhereItIsTrusted)
{
    certificates.makeSelfSigned("self", loopbackNames);
    server.setCertificate(certificates.certificate("self"), certificates.key("self"));
    server.start();
    limits.trustedCertificates = certificates.certificate("self");
    limits.encryptedPort = server.encryptedPort();
    EXPECT_EQ(open(encryptedPath()).text, QString());
}

TEST_F(EncryptedDirectory, AnExpiredCertificateIsRefused)
{
    startWith(loopbackNames, -1);
    expectRefused("has expired");
}

TEST_F(EncryptedDirectory, ACertificateOfAnotherHostIsRefused)
{
    startWith("DNS:other.example");
    expectRefused("for another host than \"127.0.0.1\"");
}

TEST_F(EncryptedDirectory, AnIssuerThatIsNotTrustedIsRefused)
{
    startWith(loopbackNames);
    const Certificates others(folder.filePath("others"));
    limits.trustedCertificates = others.issuer();
    expectRefused("The issuer of the server's certificate, \"CN=Test issuer\", is not trusted");
}

TEST_F(EncryptedDirectory, TheSystemDoesNotTrustTheIssuerOfATest)
{
    startWith(loopbackNames);
    limits.trustedCertificates.clear();
    expectRefused("is not trusted");
}

TEST_F(EncryptedDirectory, ACertificateThatIsItsOwnIssuerIsRefused)
{
    certificates.makeSelfSigned("self", loopbackNames);
    server.setCertificate(certificates.certificate("self"), certificates.key("self"));
    server.start();
    limits.trustedCertificates = certificates.issuer();
    limits.encryptedPort = server.encryptedPort();
    expectRefused("is its own issuer");
}

TEST_F(EncryptedDirectory, WhatAUserHasSetUpForTheLibraryDoesNotSwitchOffTheChecks)
{
    qputenv("LDAPTLS_REQCERT", "never");
    startWith("DNS:other.example");
    expectRefused("for another host");
    qunsetenv("LDAPTLS_REQCERT");
}

} // namespace
