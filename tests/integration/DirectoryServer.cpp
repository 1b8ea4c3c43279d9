#include "tests/integration/DirectoryServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr int patienceMs = 60'000;

/// Servers are often where only an administrator's programs are looked for.
QString program(const QString &name)
{
    QString found = QStandardPaths::findExecutable(name);
    if (found.isEmpty())
        found = QStandardPaths::findExecutable(name, {"/usr/sbin", "/usr/local/sbin", "/usr/local/libexec"});
    EXPECT_FALSE(found.isEmpty()) << "the program " << name.toStdString() << " is missing";
    return found;
}

sockaddr_in loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(quint16(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// A socket that listens on a free port, which is then known.
int listenOnFreePort(int &port)
{
    const int listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(listening, reinterpret_cast<sockaddr *>(&address), size), 0);
    EXPECT_EQ(listen(listening, 8), 0);
    EXPECT_EQ(getsockname(listening, reinterpret_cast<sockaddr *>(&address), &size), 0);
    port = ntohs(address.sin_port);
    return listening;
}

int freePort()
{
    int port = 0;
    close(listenOnFreePort(port));
    return port;
}

bool isListening(int port)
{
    const int probe = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(port);
    const bool isThere = connect(probe, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    close(probe);
    return isThere;
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

void runToEnd(const QString &name, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program(name), arguments);
    EXPECT_TRUE(process.waitForFinished(patienceMs));
    EXPECT_EQ(process.exitCode(), 0) << name.toStdString() << ": " << process.readAll().toStdString();
}

QByteArray person(const QByteArray &name, const QByteArray &password = {})
{
    return "dn: cn=" + name + ",dc=example,dc=com\nobjectClass: person\ncn: " + name + "\nsn: " + name + "\n" +
           (password.isEmpty() ? QByteArray() : "userPassword: " + password + "\n") + "\n";
}

} // namespace

Certificates::Certificates(const QString &folder)
    : m_folder(folder)
{
    QDir().mkpath(folder);
    run({"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-keyout",
         key("issuer"), "-out", issuer(), "-days", "30", "-subj", "/CN=Test issuer"});
}

void Certificates::make(const QString &name, const QString &names, int days) const
{
    write(file(name + ".ext"), "subjectAltName=" + names.toUtf8() + "\n");
    run({"req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-keyout", key(name), "-out",
         file(name + ".csr"), "-subj", "/CN=" + name});
    run({"x509", "-req", "-in", file(name + ".csr"), "-CA", issuer(), "-CAkey", key("issuer"), "-CAcreateserial",
         "-days", QString::number(days), "-extfile", file(name + ".ext"), "-out", certificate(name)});
}

void Certificates::makeSelfSigned(const QString &name, const QString &names) const
{
    run({"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-keyout", key(name),
         "-out", certificate(name), "-days", "30", "-subj", "/CN=" + name, "-addext", "subjectAltName=" + names});
}

void Certificates::run(const QStringList &arguments) const
{
    runToEnd("openssl", arguments);
}

DirectoryServer::DirectoryServer()
    : m_port(freePort())
    , m_encryptedPort(freePort())
{
    EXPECT_TRUE(m_folder.isValid());
    m_entries = "dn: dc=example,dc=com\nobjectClass: domain\ndc: example\n\n"
                "dn: ou=people,dc=example,dc=com\nobjectClass: organizationalUnit\nou: people\n\n"
                "dn: ou=staff,ou=people,dc=example,dc=com\nobjectClass: organizationalUnit\nou: staff\n\n"
                "dn: cn=Ann,ou=staff,ou=people,dc=example,dc=com\nobjectClass: person\ncn: Ann\nsn: Ann\n\n";
    m_entries += person("limited", "secret") + person("unpaged", "secret") + person("hidden");
}

DirectoryServer::~DirectoryServer()
{
    kill();
}

void DirectoryServer::addMany(int count)
{
    m_entries += "dn: ou=many,dc=example,dc=com\nobjectClass: organizationalUnit\nou: many\n\n";
    for (int i = 0; i < count; ++i) {
        const QByteArray name = QByteArray::number(i);
        m_entries += "dn: cn=" + name + ",ou=many,dc=example,dc=com\nobjectClass: person\ncn: " + name +
                     "\nsn: " + name + "\n\n";
    }
}

void DirectoryServer::setCertificate(const Certificates &certificates, const QString &name)
{
    m_tls = "TLSCertificateFile " + certificates.certificate(name).toUtf8() + "\nTLSCertificateKeyFile " +
            certificates.key(name).toUtf8() + "\n";
}

void DirectoryServer::start()
{
    writeConfiguration();
    if (!m_isLoaded) {
        load();
        m_isLoaded = true;
    }
    QString addresses = QStringLiteral("ldap://127.0.0.1:%1/").arg(m_port);
    if (!m_tls.isEmpty())
        addresses += QStringLiteral(" ldaps://127.0.0.1:%1/").arg(m_encryptedPort);
    m_process.setStandardErrorFile(m_folder.filePath("log"));
    // What is asked is logged; with this the server stays in the foreground, too.
    m_process.start(program("slapd"), {"-f", m_folder.filePath("slapd.conf"), "-h", addresses, "-d", "256"});
    ASSERT_TRUE(m_process.waitForStarted());
    QElapsedTimer since;
    since.start();
    while (!isListening(m_port) || (!m_tls.isEmpty() && !isListening(m_encryptedPort))) {
        ASSERT_FALSE(m_process.waitForFinished(10)) << "the server has ended: " << log().toStdString();
        ASSERT_LT(since.elapsed(), patienceMs) << "the server does not answer: " << log().toStdString();
    }
}

void DirectoryServer::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    EXPECT_TRUE(m_process.waitForFinished(patienceMs));
}

void DirectoryServer::halt()
{
    const pid_t process = pid_t(m_process.processId());
    ASSERT_EQ(::kill(process, SIGSTOP), 0);
    // Its threads go on until each of them has seen the signal.
    siginfo_t state{};
    ASSERT_EQ(::waitid(P_PID, id_t(process), &state, WSTOPPED | WNOWAIT), 0);
}

void DirectoryServer::resume()
{
    ASSERT_EQ(::kill(pid_t(m_process.processId()), SIGCONT), 0);
}

QString DirectoryServer::path(const QString &name) const
{
    return QStringLiteral("LDAP://127.0.0.1:%1/%2").arg(m_port).arg(name);
}

QByteArray DirectoryServer::log() const
{
    QFile file(m_folder.filePath("log"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void DirectoryServer::writeConfiguration() const
{
    QByteArray configuration;
    for (const char *schema : {"core", "cosine", "inetorgperson"})
        configuration += QByteArray("include /etc/ldap/schema/") + schema + ".schema\n";
    configuration += "modulepath /usr/lib/ldap\nmoduleload back_mdb\n" + m_tls;
    const auto database = [&](const QByteArray &suffix, const QString &folder) {
        ASSERT_TRUE(QDir().mkpath(m_folder.filePath(folder)));
        configuration += "\ndatabase mdb\nsuffix \"" + suffix + "\"\nmaxsize 268435456\ndbnosync\ndirectory " +
                         m_folder.filePath(folder).toUtf8() + "\n";
    };
    database("dc=example,dc=com", "example");
    configuration += QByteArray("rootdn ") + admin + "\nrootpw " + m_adminPassword +
                     "\n"
                     "limits dn.exact=\"cn=limited,dc=example,dc=com\" size=500 size.prtotal=500\n"
                     "limits dn.exact=\"cn=unpaged,dc=example,dc=com\" size=unlimited size.prtotal=disabled\n"
                     "limits * size=unlimited\n"
                     "access to dn.base=\"cn=hidden,dc=example,dc=com\" attrs=entry by * search\n"
                     "access to dn.base=\"cn=hidden,dc=example,dc=com\" by * none\n"
                     "access to attrs=userPassword by anonymous auth by * none\n"
                     "access to * by * read\n";
    database("o=Second", "second");
    write(m_folder.filePath("slapd.conf"), configuration);
}

void DirectoryServer::load() const
{
    const auto add = [&](const char *name, const char *suffix, const QByteArray &entries) {
        const QString file = m_folder.filePath(name);
        write(file, entries);
        runToEnd("slapadd", {"-q", "-f", m_folder.filePath("slapd.conf"), "-b", suffix, "-l", file});
    };
    add("example.ldif", "dc=example,dc=com", m_entries);
    add("second.ldif", "o=Second", "dn: o=Second\nobjectClass: organization\no: Second\n");
}

SilentServer::SilentServer(Manner manner)
    : m_socket(listenOnFreePort(m_port))
{
    if (manner != Manner::Waits)
        m_serving = std::thread([this, manner] { serve(manner); });
}

SilentServer::~SilentServer()
{
    m_isEnding = true;
    if (m_serving.joinable())
        m_serving.join();
    close(m_socket);
}

void SilentServer::serve(Manner manner) const
{
    std::vector<int> connections;
    while (!m_isEnding) {
        pollfd polled{m_socket, POLLIN, 0};
        if (poll(&polled, 1, 20) <= 0)
            continue;
        const int connection = accept(m_socket, nullptr, nullptr);
        if (manner == Manner::Drops) {
            close(connection);
            continue;
        }
        // The head of a message of 4096 bytes.
        const char head[] = {0x30, char(0x82), 0x10, 0x00, 0x02};
        (void)send(connection, head, sizeof head, MSG_NOSIGNAL);
        connections.push_back(connection);
    }
    for (const int connection : connections)
        close(connection);
}
