#include "platform/LdapDirectory.h"

#include "platform/DistinguishedName.h"
#include "platform/LdapConnection.h"

#include <QCoreApplication>
#include <QUrl>

#include <optional>
#include <utility>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdapDirectory)
};

/// An entry that the server has elsewhere. @param url of RFC 4516, percent-encoded
DirectoryChild elsewhere(const QString &url)
{
    const QString name = QUrl(url).path(QUrl::FullyDecoded).mid(1);
    const QStringList names = relativeNames(name);
    const qsizetype address = url.indexOf(QLatin1String("://")) + 3;
    const qsizetype slash = url.indexOf(u'/', address);
    const QString host = slash < 0 ? url.mid(address) : url.mid(address, slash - address);
    return {names.isEmpty() ? url : names.first(), QStringLiteral("LDAP://") + host + u'/' + nameForUrl(name), true};
}

QList<DirectoryChild> childrenOf(const DirectoryPath &path, const LdapAnswer &answer)
{
    QList<DirectoryChild> children;
    children.reserve(answer.entries.size() + answer.references.size());
    for (const LdapEntry &entry : answer.entries) {
        const QStringList names = relativeNames(entry.distinguishedName);
        if (!names.isEmpty())
            children.append({names.first(), path.pathOf(entry.distinguishedName), false});
    }
    for (const QString &url : answer.references)
        children.append(elsewhere(url));
    return children;
}

/// Whether a server answers so because it does not read page by page.
bool refusesPages(const LdapAnswer &answer)
{
    if (!answer.entries.isEmpty())
        return false;
    switch (answer.code) {
    case LdapAnswer::UnavailableCriticalExtension:
    case LdapAnswer::UnwillingToPerform:
    case LdapAnswer::ProtocolError:
    case LdapAnswer::AdminLimitExceeded:
        return true;
    default:
        return false;
    }
}

class LdapObject final : public DirectoryObject
{
public:
    LdapObject(std::shared_ptr<LdapConnection> connection, DirectoryPath path, Directory::GoOn goOn,
               QStringList propertyNames)
        : m_connection(std::move(connection))
        , m_path(std::move(path))
        , m_goOn(std::move(goOn))
        , m_propertyNames(std::move(propertyNames))
    {
    }

    [[nodiscard]] QStringList propertyNames() const override { return m_propertyNames; }
    DirectoryStatus property(const QString &name, QList<QByteArray> &values) override;
    DirectoryStatus children(const TakeChildren &take) override;

private:
    std::shared_ptr<LdapConnection> m_connection;
    DirectoryPath m_path;
    Directory::GoOn m_goOn;
    QStringList m_propertyNames;
};

DirectoryStatus LdapObject::property(const QString &name, QList<QByteArray> &values)
{
    LdapSearch search;
    search.base = m_path.name;
    search.attributes << name;
    const LdapAnswer answer = m_connection->search(search, m_goOn);
    for (const LdapEntry &entry : answer.entries) {
        for (const LdapAttribute &attribute : entry.attributes)
            values << attribute.values;
    }
    return m_connection->statusOf(answer);
}

DirectoryStatus LdapObject::children(const TakeChildren &take)
{
    LdapSearch search;
    search.base = m_path.name;
    search.scope = LdapSearch::Scope::OneLevel;
    // No property at all (RFC 4511, section 4.5.1.8).
    search.attributes << QStringLiteral("1.1");
    search.pageSize = m_connection->limits().pageSize;
    for (;;) {
        LdapAnswer answer = m_connection->search(search, m_goOn);
        if (search.pageSize > 0 && search.cookie.isEmpty() && refusesPages(answer)) {
            search.pageSize = 0;
            answer = m_connection->search(search, m_goOn);
        }
        const QList<DirectoryChild> children = childrenOf(m_path, answer);
        if (!children.isEmpty())
            take(children);
        if (answer.code != LdapAnswer::Success || answer.cookie.isEmpty())
            return m_connection->statusOf(answer);
        search.cookie = answer.cookie;
    }
}

} // namespace

LdapDirectory::LdapDirectory(const LdapLimits &limits)
    : m_limits(limits)
{
}

LdapDirectory::~LdapDirectory() = default;

DirectoryStatus LdapDirectory::OpenDSObject(const QString &path, const QString &userName, const QString &password,
                                            Flags flags, const GoOn &goOn, std::unique_ptr<DirectoryObject> &object)
{
    using Code = DirectoryStatus::Code;
    const std::optional<DirectoryPath> parsed = DirectoryPath::parse(path);
    if (!parsed)
        return {Code::Failed, Texts::tr("\"%1\" is not the path of an entry.").arg(path)};

    const LdapConnection::Account account{parsed->address, userName, password, flags};
    if (!m_connection || m_connection->account() != account) {
        m_connection.reset();
        auto made = std::make_shared<LdapConnection>(m_limits, *parsed, account);
        DirectoryStatus opened = made->open(goOn);
        if (!opened.isSuccess())
            return opened;
        m_connection = made;
    }

    LdapSearch search;
    search.base = parsed->name;
    search.attributes << QStringLiteral("*");
    search.isNamesOnly = true;
    LdapAnswer answer = m_connection->search(search, goOn);
    // The entry is there, but not for this user.
    if (answer.code == LdapAnswer::Success && answer.entries.isEmpty())
        answer.code = LdapAnswer::NoSuchObject;
    // A server need not tell everybody about itself; it has answered nevertheless.
    const bool isHidden = parsed->isRootDse && answer.code > LdapAnswer::Success && m_connection->isOpen();
    if (answer.code != LdapAnswer::Success && !isHidden) {
        DirectoryStatus failed = m_connection->statusOf(answer);
        // A connection that has gone wrong is not used again.
        if (answer.code < LdapAnswer::Success || !m_connection->isOpen())
            m_connection.reset();
        return failed;
    }
    QStringList names;
    for (const LdapEntry &entry : answer.entries) {
        for (const LdapAttribute &attribute : entry.attributes)
            names << attribute.name;
    }
    object = std::make_unique<LdapObject>(m_connection, *parsed, goOn, names);
    return {};
}
