#pragma once

#include "tests/integration/LocalServer.h"

/// OpenLDAP's server, with data of its own. It ends with this object.
///
/// There are the trees "dc=example,dc=com" and "o=Second". "cn=admin,dc=example,dc=com" (password "secret") may read
/// everything, nobody else may read "cn=hidden,dc=example,dc=com". "cn=limited,..." gets 500 entries at most, and
/// "cn=unpaged,..." no pages, both with the password "secret".
class DirectoryServer final
{
public:
    DirectoryServer();
    DirectoryServer(const DirectoryServer &) = delete;
    DirectoryServer &operator=(const DirectoryServer &) = delete;
    ~DirectoryServer() = default;

    /// Before start(): entries in LDIF, parents first.
    void add(const QByteArray &ldif) { m_entries += ldif + "\n"; }
    /// Before start(): entries cn=0 ... below ou=many,dc=example,dc=com.
    void addMany(int count);
    /// Before start(): the files of the certificate that the server shows, and of its key; without one it does not
    /// encrypt.
    void setCertificate(const QString &certificate, const QString &key);

    /// Before start(), also before another one; "secret" otherwise.
    void setAdminPassword(const QByteArray &password) { m_adminPassword = password; }

    /// Starts the server and waits until it answers. A failure fails the test.
    void start();
    /// Ends the server as with the power switch. It may be started again, at the same ports.
    void kill() { m_server.kill(); }
    /// The server stands still until resume().
    void halt() { m_server.halt(); }
    void resume() { m_server.resume(); }

    [[nodiscard]] int port() const { return m_port; }
    [[nodiscard]] int encryptedPort() const { return m_encryptedPort; }
    /// "LDAP://127.0.0.1:port/" and a name.
    [[nodiscard]] QString path(const QString &name) const;

    /// What the server says it was asked.
    [[nodiscard]] QByteArray log() const { return m_server.read("log"); }

    static constexpr const char *admin = "cn=admin,dc=example,dc=com";

private:
    void writeConfiguration();
    void load();
    [[nodiscard]] QString file(const QString &name) const { return m_server.folder() + '/' + name; }

    LocalServer m_server;
    QByteArray m_entries;
    QByteArray m_tls;
    QByteArray m_adminPassword = "secret";
    int m_port = 0;
    int m_encryptedPort = 0;
    bool m_isLoaded = false;
};
