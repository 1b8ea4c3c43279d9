#include "platform/DirectoryPath.h"

#include "platform/DistinguishedName.h"

#include <QUrl>

#include <algorithm>

namespace {

constexpr QLatin1String scheme("LDAP://");

/// The digits behind the last ":", unless that one belongs to an IPv6 address.
std::optional<QString> takePort(QString &host)
{
    const qsizetype colon = host.lastIndexOf(u':');
    if (colon < 0 || host.endsWith(u']'))
        return std::nullopt;
    if (!host.contains(u']') && host.indexOf(u':') != colon)
        return std::nullopt;
    const QString port = host.mid(colon + 1);
    host.truncate(colon);
    return port;
}

QString withoutBrackets(const QString &host)
{
    return host.startsWith(u'[') && host.endsWith(u']') ? host.mid(1, host.size() - 2) : host;
}

} // namespace

std::optional<DirectoryPath> DirectoryPath::parse(const QString &path)
{
    if (!path.startsWith(scheme, Qt::CaseInsensitive) || path.contains(u'\0'))
        return std::nullopt;
    DirectoryPath result;
    const QString rest = path.mid(scheme.size());
    const qsizetype slash = rest.indexOf(u'/');
    result.address = slash < 0 ? rest : rest.left(slash);
    result.name = slash < 0 ? QString() : rest.mid(slash + 1);
    result.isRootDse = result.name.compare(QLatin1String("RootDSE"), Qt::CaseInsensitive) == 0;
    if (result.isRootDse)
        result.name.clear();
    if (result.address.isEmpty())
        result.address = QStringLiteral("localhost");

    QString host = result.address;
    if (const std::optional<QString> digits = takePort(host)) {
        bool isNumber = false;
        result.port = digits->toUShort(&isNumber);
        if (!isNumber || result.port == 0 || !digits->front().isDigit())
            return std::nullopt;
    }
    QUrl checked;
    checked.setScheme(QStringLiteral("ldap"));
    checked.setHost(withoutBrackets(host), QUrl::StrictMode);
    result.host = withoutBrackets(checked.host(QUrl::FullyEncoded));
    if (result.host.isEmpty())
        return std::nullopt;
    return result;
}

QString DirectoryPath::pathOf(const QString &distinguishedName) const
{
    return scheme + address + u'/' + nameForUrl(distinguishedName);
}

bool DirectoryPath::isThisMachine() const
{
    // A name may begin like an address: "127.example.com".
    const bool isAddress = std::all_of(host.begin(), host.end(), [](QChar c) { return c.isDigit() || c == u'.'; });
    return host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 || host == QLatin1String("::1") ||
           (isAddress && host.startsWith(QLatin1String("127.")));
}
