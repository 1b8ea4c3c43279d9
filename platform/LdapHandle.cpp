#include "platform/LdapHandle.h"

#include "platform/LdapSession.h"

#include <memory>
#include <vector>

namespace {

using LdapInterface::Argument;
using LdapInterface::Character;

/// Entries that are referrals are entries (RFC 3296).
constexpr const char *manageReferrals = "2.16.840.1.113730.3.4.2";

struct FreeControl
{
    void operator()(LDAPControl *control) const { ldap_control_free(control); }
};
using Control = std::unique_ptr<LDAPControl, FreeControl>;

Control pageControl(LDAP *session, const LdapSearch &search)
{
    QByteArray bytes = search.cookie;
    berval cookie{};
    cookie.bv_len = decltype(cookie.bv_len)(bytes.size());
    cookie.bv_val = bytes.data();
    LDAPControl *made = nullptr;
    const auto code = ldap_create_page_control(session, LdapInterface::Number(search.pageSize), &cookie, 0, &made);
    return code == LDAP_SUCCESS ? Control(made) : nullptr;
}

} // namespace

LdapHandle::LdapHandle(const LdapLimits &limits)
    : m_session(std::make_unique<LdapSession>(limits))
{
}

LdapHandle::~LdapHandle() = default;

LdapAnswer LdapHandle::open(const DirectoryPath &path, const Directory::GoOn &goOn)
{
    return m_session->open(path, goOn);
}

LdapAnswer LdapHandle::startEncryption(const Directory::GoOn &goOn)
{
    return m_session->startEncryption(goOn);
}

LdapAnswer LdapHandle::bind(const QString &userName, const QString &password, const Directory::GoOn &goOn)
{
    Argument name(userName);
    Argument secret(password);
    int message = 0;
    const int code = LdapInterface::beginBind(m_session->get(), name, secret, message);
    secret.clear();
    return code == LDAP_SUCCESS ? m_session->await(message, goOn) : m_session->failed(code);
}

LdapAnswer LdapHandle::search(const LdapSearch &search, const Directory::GoOn &goOn)
{
    LDAP *session = m_session->get();
    if (!session)
        return m_session->failed(LDAP_SERVER_DOWN);
    std::vector<Argument> names;
    for (const QString &attribute : search.attributes)
        names.emplace_back(attribute);
    std::vector<Character *> attributes;
    attributes.reserve(names.size() + 1);
    for (Argument &name : names)
        attributes.push_back(name.data());
    attributes.push_back(nullptr);

    Argument manageId{QString::fromLatin1(manageReferrals)};
    LDAPControl manage{manageId.data(), {}, 0};
    Control page;
    if (search.pageSize > 0) {
        page = pageControl(session, search);
        if (!page)
            return m_session->failed(LDAP_NO_MEMORY);
    }
    LDAPControl *controls[] = {&manage, page.get(), nullptr};
    Argument base(search.base);
    Argument filter(QStringLiteral("(objectClass=*)"));
    const int scope = search.scope == LdapSearch::Scope::Base ? LDAP_SCOPE_BASE : LDAP_SCOPE_ONELEVEL;
    int message = 0;
    const int code = LdapInterface::beginSearch(session, base, scope, filter, attributes.data(), search.isNamesOnly,
                                                controls, m_session->limits().operation, message);
    return code == LDAP_SUCCESS ? m_session->await(message, goOn) : m_session->failed(code);
}
