#include "tests/integration/DirectoryServer.h"

namespace {

QByteArray person(const QByteArray &name, const QByteArray &password = {})
{
    return "dn: cn=" + name + ",dc=example,dc=com\nobjectClass: person\ncn: " + name + "\nsn: " + name + "\n" +
           (password.isEmpty() ? QByteArray() : "userPassword: " + password + "\n") + "\n";
}

} // namespace

DirectoryServer::DirectoryServer()
    : m_port(m_server.freePort())
    , m_encryptedPort(m_server.freePort())
{
    m_entries = "dn: dc=example,dc=com\nobjectClass: domain\ndc: example\n\n"
                "dn: ou=people,dc=example,dc=com\nobjectClass: organizationalUnit\nou: people\n\n"
                "dn: ou=staff,ou=people,dc=example,dc=com\nobjectClass: organizationalUnit\nou: staff\n\n"
                "dn: cn=Ann,ou=staff,ou=people,dc=example,dc=com\nobjectClass: person\ncn: Ann\nsn: Ann\n\n";
    m_entries += person("limited", "secret") + person("unpaged", "secret") + person("hidden");
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

void DirectoryServer::setCertificate(const QString &certificate, const QString &key)
{
    m_tls = "TLSCertificateFile " + certificate.toUtf8() + "\nTLSCertificateKeyFile " + key.toUtf8() + "\n";
}

void DirectoryServer::start()
{
    writeConfiguration();
    if (!m_isLoaded) {
        load();
        m_isLoaded = true;
    }
    QString addresses = QStringLiteral("ldap://127.0.0.1:%1/").arg(m_port);
    QList<int> ports{m_port};
    if (!m_tls.isEmpty()) {
        addresses += QStringLiteral(" ldaps://127.0.0.1:%1/").arg(m_encryptedPort);
        ports << m_encryptedPort;
    }
    // What is asked is logged; with this the server stays in the foreground, too.
    m_server.start({"-f", file("slapd.conf"), "-h", addresses, "-d", "256"}, ports);
}

QString DirectoryServer::path(const QString &name) const
{
    return QStringLiteral("LDAP://127.0.0.1:%1/%2").arg(m_port).arg(name);
}

void DirectoryServer::writeConfiguration()
{
    QByteArray configuration;
    for (const char *schema : {"core", "cosine", "inetorgperson"})
        configuration += QByteArray("include /etc/ldap/schema/") + schema + ".schema\n";
    configuration += "modulepath /usr/lib/ldap\nmoduleload back_mdb\n" + m_tls;
    const auto database = [&](const QByteArray &suffix, const QString &folder) {
        m_server.makeFolder(folder);
        configuration += "\ndatabase mdb\nsuffix \"" + suffix + "\"\nmaxsize 268435456\ndbnosync\ndirectory " +
                         file(folder).toUtf8() + "\n";
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
    m_server.write("slapd.conf", configuration);
}

void DirectoryServer::load()
{
    const auto add = [&](const char *name, const char *suffix, const QByteArray &entries) {
        m_server.write(name, entries);
        m_server.load({"-q", "-f", file("slapd.conf"), "-b", suffix, "-l", file(name)});
    };
    add("example.ldif", "dc=example,dc=com", m_entries);
    add("second.ldif", "o=Second", "dn: o=Second\nobjectClass: organization\no: Second\n");
}
