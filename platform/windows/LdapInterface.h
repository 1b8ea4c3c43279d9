#pragma once

#include <QByteArray>
#include <QString>

#include <qt_windows.h>

#include <winldap.h>
// Needs what the one before declares.
#include <winber.h>

#include <algorithm>
#include <chrono>
#include <string>

/// What the headers of this system's LDAP library say in another way than those of others. The rest of the calls is the
/// same, by name and by what it does.
namespace LdapInterface {

using Character = wchar_t;
using Time = l_timeval;
using Number = ULONG;

[[nodiscard]] inline Time timeOf(std::chrono::milliseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {LONG(seconds.count()), LONG((time - seconds).count() * 1000)};
}

[[nodiscard]] inline QString textOf(const Character *text)
{
    return text ? QString::fromWCharArray(text) : QString();
}

/// A text as the calls take it.
class Argument final
{
public:
    explicit Argument(const QString &text)
        : m_text(text.toStdWString())
    {
    }

    [[nodiscard]] Character *data() { return m_text.data(); }
    /// For passwords.
    void clear() { std::fill(m_text.begin(), m_text.end(), L'\0'); }

private:
    std::wstring m_text;
};

/// Whether a code comes from the library, and not from a server.
[[nodiscard]] inline bool isOwnCode(int code)
{
    return code < 0 || code > LDAP_OTHER;
}

/// The code of the last call that failed.
[[nodiscard]] inline int lastError(LDAP *session)
{
    int code = LDAP_OTHER;
    (void)ldap_get_option(session, LDAP_OPT_ERROR_NUMBER, &code);
    // Wine's library is made of another one and gives its code, which is none here.
    return code == -1 ? LDAP_SERVER_DOWN : code;
}

inline void freeTexts(Character **texts)
{
    ldap_value_free(texts);
}

[[nodiscard]] inline bool readReference(LDAP *session, LDAPMessage *message, Character **&places)
{
    return ldap_parse_reference(session, message, &places) == LDAP_SUCCESS;
}

/// What leads to the next page; empty when an answer is the last one, or none of pages.
[[nodiscard]] inline QByteArray pageCookie(LDAP *session, LDAPControl **controls)
{
    ULONG estimate = 0;
    berval *cookie = nullptr;
    if (!controls || ldap_parse_page_control(session, controls, &estimate, &cookie) != LDAP_SUCCESS || !cookie)
        return {};
    const QByteArray bytes(cookie->bv_val, qsizetype(cookie->bv_len));
    ber_bvfree(cookie);
    return bytes;
}

inline void abandon(LDAP *session, int message)
{
    (void)ldap_abandon(session, ULONG(message));
}

inline void end(LDAP *session)
{
    (void)ldap_unbind(session);
}

[[nodiscard]] inline int beginBind(LDAP *session, Argument &name, Argument &password, int &message)
{
    const ULONG begun = ldap_simple_bind(session, name.data(), password.data());
    message = int(begun);
    return begun == ULONG(-1) ? int(LdapGetLastError()) : LDAP_SUCCESS;
}

/// @param limit what the server is told to keep to
[[nodiscard]] inline int beginSearch(LDAP *session, Argument &base, int scope, Argument &filter, Character **attributes,
                                     bool isNamesOnly, LDAPControl **controls, std::chrono::milliseconds limit,
                                     int &message)
{
    const auto seconds =
        std::max<std::chrono::seconds>(std::chrono::ceil<std::chrono::seconds>(limit), std::chrono::seconds(1));
    ULONG begun = 0;
    const ULONG code =
        ldap_search_ext(session, base.data(), ULONG(scope), filter.data(), attributes, isNamesOnly ? 1 : 0, controls,
                        nullptr, ULONG(seconds.count()), LDAP_NO_LIMIT, &begun);
    message = int(begun);
    return int(code);
}

} // namespace LdapInterface
