#include "browse/LdapUrl.h"

#include <algorithm>

namespace {

constexpr QChar questionMark = u'?';

/// Where the password begins in an account: behind its colon. Below 0 when there is none.
qsizetype passwordBegin(const QString &account)
{
    const qsizetype colon = account.indexOf(u':', account.indexOf(u'@') + 1);
    // Otherwise the "@" is the password's.
    return colon < 0 ? account.indexOf(u':') + 1 : colon + 1;
}

void readAddress(const QString &address, LdapUrl &url)
{
    const qsizetype at = address.lastIndexOf(u'@');
    url.host = address.mid(at + 1);
    if (at < 0)
        return;
    const QString account = address.left(at);
    const qsizetype begin = passwordBegin(account);
    url.userName = begin == 0 ? account : account.left(begin - 1);
    url.password = begin == 0 ? QString() : account.mid(begin);
}

LdapQuery readQuery(const QString &text)
{
    LdapQuery query;
    const QStringList parts = text.split(questionMark);
    for (const QString &attribute : parts[0].split(u',')) {
        if (!attribute.trimmed().isEmpty())
            query.attributes << attribute.trimmed();
    }
    if (parts.size() > 1)
        query.scope = parts[1];
    // A filter may hold question marks.
    query.filter = parts.mid(2).join(questionMark);
    return query;
}

QString wordOf(LdapScope scope)
{
    const auto *row = std::find_if(ldapScopes.begin(), ldapScopes.end(),
                                   [scope](const LdapScopeRow &each) { return each.scope == scope; });
    return QString(row->caption.left(4)).remove(u':');
}

} // namespace

QString LdapUrl::path() const
{
    return ldapUrlBegin + host + u'/' + distinguishedName;
}

std::optional<LdapUrl> readLdapUrl(const QString &text)
{
    if (!text.startsWith(ldapUrlBegin, Qt::CaseInsensitive))
        return std::nullopt;
    LdapUrl url;
    const QString rest = text.mid(ldapUrlBegin.size());
    const qsizetype slash = rest.indexOf(u'/');
    readAddress(slash < 0 ? rest : rest.left(slash), url);
    const QString path = slash < 0 ? QString() : rest.mid(slash + 1);
    const qsizetype end = path.indexOf(questionMark);
    url.distinguishedName = end < 0 ? path : path.left(end);
    if (end >= 0)
        url.query = readQuery(path.mid(end + 1));
    return url;
}

std::optional<LdapScope> ldapScopeOf(const QString &word)
{
    for (const LdapScopeRow &row : ldapScopes) {
        if (word.compare(wordOf(row.scope), Qt::CaseInsensitive) == 0)
            return row.scope;
    }
    return std::nullopt;
}

QString writeLdapUrl(const LdapChoice &choice)
{
    QString url = choice.path;
    if (!choice.userName.isEmpty()) {
        const bool hasBegin = url.startsWith(ldapUrlBegin, Qt::CaseInsensitive);
        const QString password = choice.password.isEmpty() ? QString() : u':' + choice.password;
        url = ldapUrlBegin + choice.userName + password + u'@' + (hasBegin ? url.mid(ldapUrlBegin.size()) : url);
    }
    url += questionMark + (choice.attributes ? choice.attributes->join(u',') : QString()) + questionMark;
    url += wordOf(choice.scope);
    if (!choice.filter.isEmpty())
        url += questionMark + choice.filter;
    return url;
}
