#pragma once

#include "platform/ByteText.h"

#include <QByteArray>
#include <QString>

#include <ldap.h>

#include <chrono>

/// What the headers of this system's LDAP library say in another way than those of others. The rest of the calls is the
/// same, by name and by what it does.
namespace LdapInterface {

using Character = char;
using Time = timeval;
using Number = int;

[[nodiscard]] inline Time timeOf(std::chrono::milliseconds time)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {time_t(seconds.count()), suseconds_t((time - seconds).count() * 1000)};
}

[[nodiscard]] inline QString textOf(const Character *text)
{
    return text ? decodeBytes(text) : QString();
}

/// A text as the calls take it.
class Argument final
{
public:
    explicit Argument(const QString &text)
        : m_bytes(encodeText(text))
    {
    }

    [[nodiscard]] Character *data() { return m_bytes.data(); }
    /// For passwords.
    void clear() { m_bytes.fill('\0'); }

private:
    QByteArray m_bytes;
};

/// Whether a code comes from the library, and not from a server.
[[nodiscard]] inline bool isOwnCode(int code)
{
    return code < 0;
}

/// The code of the last call that failed.
[[nodiscard]] inline int lastError(LDAP *session)
{
    int code = LDAP_OTHER;
    (void)ldap_get_option(session, LDAP_OPT_ERROR_NUMBER, &code);
    return code;
}

inline void freeTexts(Character **texts)
{
    ber_memvfree(reinterpret_cast<void **>(texts));
}

[[nodiscard]] inline bool readReference(LDAP *session, LDAPMessage *message, Character **&places)
{
    return ldap_parse_reference(session, message, &places, nullptr, 0) == LDAP_SUCCESS;
}

/// What leads to the next page; empty when an answer is the last one, or none of pages.
[[nodiscard]] inline QByteArray pageCookie(LDAP *session, LDAPControl **controls)
{
    LDAPControl *page = ldap_control_find(LDAP_CONTROL_PAGEDRESULTS, controls, nullptr);
    ber_int_t estimate = 0;
    berval cookie{};
    if (!page || ldap_parse_pageresponse_control(session, page, &estimate, &cookie) != LDAP_SUCCESS)
        return {};
    const QByteArray bytes(cookie.bv_val, qsizetype(cookie.bv_len));
    ber_memfree(cookie.bv_val);
    return bytes;
}

inline void abandon(LDAP *session, int message)
{
    (void)ldap_abandon_ext(session, message, nullptr, nullptr);
}

inline void end(LDAP *session)
{
    (void)ldap_unbind_ext(session, nullptr, nullptr);
}

[[nodiscard]] inline int beginBind(LDAP *session, Argument &name, Argument &password, int &message)
{
    berval credentials{ber_len_t(qstrlen(password.data())), password.data()};
    return ldap_sasl_bind(session, name.data(), LDAP_SASL_SIMPLE, &credentials, nullptr, nullptr, &message);
}

/// @param limit what the server is told to keep to
[[nodiscard]] inline int beginSearch(LDAP *session, Argument &base, int scope, Argument &filter, Character **attributes,
                                     bool isNamesOnly, LDAPControl **controls, std::chrono::milliseconds limit,
                                     int &message)
{
    Time time = timeOf(limit);
    return ldap_search_ext(session, base.data(), scope, filter.data(), attributes, isNamesOnly ? 1 : 0, controls,
                           nullptr, &time, LDAP_NO_LIMIT, &message);
}

} // namespace LdapInterface
