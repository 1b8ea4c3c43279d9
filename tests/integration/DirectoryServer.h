#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

/// Certificates made for a test by an issuer of its own.
class Certificates final
{
public:
    explicit Certificates(const QString &folder);

    /// The issuer's certificate, for those who trust it.
    [[nodiscard]] QString issuer() const { return file("issuer.pem"); }

    /// Makes a certificate and its key. @param names as "DNS:localhost,IP:127.0.0.1" @param days how long it is valid
    ///     from now on; below 0 for one that has expired
    void make(const QString &name, const QString &names, int days = 30) const;
    /// One that is its own issuer.
    void makeSelfSigned(const QString &name, const QString &names) const;

    [[nodiscard]] QString certificate(const QString &name) const { return file(name + ".pem"); }
    [[nodiscard]] QString key(const QString &name) const { return file(name + ".key"); }

private:
    [[nodiscard]] QString file(const QString &name) const { return m_folder + '/' + name; }
    void run(const QStringList &arguments) const;

    QString m_folder;
};

/// OpenLDAP's server on this machine, with data of its own in a temporary folder. It ends with this object.
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
    ~DirectoryServer();

    /// Before start(): entries in LDIF, parents first.
    void add(const QByteArray &ldif) { m_entries += ldif + "\n"; }
    /// Before start(): entries cn=0 ... below ou=many,dc=example,dc=com.
    void addMany(int count);
    /// Before start(): the certificate that the server shows; without one it does not encrypt.
    void setCertificate(const Certificates &certificates, const QString &name);

    /// Before start(), also before another one; "secret" otherwise.
    void setAdminPassword(const QByteArray &password) { m_adminPassword = password; }

    /// Starts the server and waits until it answers. A failure fails the test.
    void start();
    /// Ends the server as with the power switch. It may be started again, at the same ports.
    void kill();
    /// The server stands still until resume().
    void halt();
    void resume();

    [[nodiscard]] int port() const { return m_port; }
    [[nodiscard]] int encryptedPort() const { return m_encryptedPort; }
    /// "LDAP://127.0.0.1:port/" and a name.
    [[nodiscard]] QString path(const QString &name) const;

    /// What the server says it was asked.
    [[nodiscard]] QByteArray log() const;

    static constexpr const char *admin = "cn=admin,dc=example,dc=com";

private:
    void writeConfiguration() const;
    void load() const;

    QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_entries;
    QByteArray m_tls;
    QByteArray m_adminPassword = "secret";
    int m_port = 0;
    int m_encryptedPort = 0;
    bool m_isLoaded = false;
};

/// A server that takes connections and does nothing else, ends each at once, or begins an answer and never ends it.
class SilentServer final
{
public:
    enum class Manner { Waits, Drops, Begins };

    explicit SilentServer(Manner manner);
    SilentServer(const SilentServer &) = delete;
    SilentServer &operator=(const SilentServer &) = delete;
    ~SilentServer();

    [[nodiscard]] int port() const { return m_port; }

private:
    void serve(Manner manner) const;

    int m_port = 0;
    int m_socket = -1;
    std::atomic<bool> m_isEnding = false;
    std::thread m_serving;
};
