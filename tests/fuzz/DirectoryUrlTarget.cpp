#include "browse/LdapUrl.h"
#include "platform/ByteText.h"
#include "platform/DirectoryPath.h"
#include "platform/DistinguishedName.h"

#include <QDebug>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

// Not an assertion: it has to hold in every kind of build.
void require(bool holds, const char *what)
{
    if (!holds) {
        qCritical("%s", what);
        std::abort();
    }
}

void requireName(const QString &name)
{
    const QString safe = nameForUrl(name);
    require(!safe.contains(u'?') && !safe.contains(u'%'), "nothing in a name ends it");
    require(std::all_of(safe.begin(), safe.end(), [](QChar c) { return c >= u' ' && c <= u'~'; }),
            "a line of a configuration keeps a name as it is");
    require(nameForUrl(safe) == safe, "a safe name is left alone");
    for (const QString &part : relativeNames(name))
        require(comparableName(part) == comparableName(u' ' + part), "blanks in front of a name do not count");
}

/// What is put together of the pieces of a URL is read again as the same pieces.
void requireWritten(const LdapUrl &url)
{
    LdapChoice choice;
    choice.userName = url.userName;
    choice.password = url.password;
    choice.path = url.path();
    if (url.query) {
        choice.attributes = url.query->attributes;
        choice.scope = ldapScopeOf(url.query->scope.value_or(QString())).value_or(LdapScope::Sub);
        choice.filter = url.query->filter;
    }
    const std::optional<LdapUrl> again = readLdapUrl(writeLdapUrl(choice));
    require(again.has_value(), "what is written is a URL");
    require(again->path() == url.path(), "the entry stays the entry");
    require(again->query && again->query->filter == choice.filter, "the filter stays the filter");
    // A password without a user name is not written, and what follows a colon in a name is one when there is no other.
    if (!url.userName.isEmpty() && (!url.password.isEmpty() || !url.userName.contains(u':')))
        require(again->userName == url.userName && again->password == url.password, "the account stays the account");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text = decodeBytes(QByteArrayView(data, qsizetype(size)));
    requireName(text);
    if (const std::optional<DirectoryPath> path = DirectoryPath::parse(text))
        require(path->port > 0 && path->port < 65536 && !path->host.isEmpty(), "a path has an address");
    if (const std::optional<LdapUrl> url = readLdapUrl(text)) {
        requireName(url->distinguishedName);
        requireWritten(*url);
    }
    return 0;
}
