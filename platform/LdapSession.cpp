#include "platform/LdapSession.h"

#include "platform/LdapPatience.h"

#include <QCoreApplication>

#include <memory>

namespace {

using LdapInterface::Character;
using LdapInterface::textOf;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdapSession)
};

struct FreeMessage
{
    void operator()(LDAPMessage *message) const { ldap_msgfree(message); }
};
using Message = std::unique_ptr<LDAPMessage, FreeMessage>;

struct FreeMemory
{
    void operator()(Character *memory) const { ldap_memfree(memory); }
};
using Text = std::unique_ptr<Character, FreeMemory>;

struct FreeTexts
{
    void operator()(Character **texts) const { LdapInterface::freeTexts(texts); }
};
using TextList = std::unique_ptr<Character *, FreeTexts>;

struct FreeControls
{
    void operator()(LDAPControl **controls) const { ldap_controls_free(controls); }
};
using ControlList = std::unique_ptr<LDAPControl *, FreeControls>;

struct FreeValues
{
    void operator()(berval **values) const { ldap_value_free_len(values); }
};
using Values = std::unique_ptr<berval *, FreeValues>;

struct FreeElement
{
    void operator()(BerElement *element) const { ber_free(element, 0); }
};
using Element = std::unique_ptr<BerElement, FreeElement>;

QStringList textsOf(Character *const *texts)
{
    QStringList result;
    for (; texts && *texts; ++texts)
        result << textOf(*texts);
    return result;
}

int codeOf(int code)
{
    switch (code) {
    case LDAP_SERVER_DOWN:
    case LDAP_CONNECT_ERROR:
        return LdapAnswer::Lost;
    case LDAP_TIMEOUT:
        return LdapAnswer::TimedOut;
    default:
        return LdapInterface::isOwnCode(code) ? int(LdapAnswer::Local) : code;
    }
}

LdapEntry entryOf(LDAP *session, LDAPMessage *message)
{
    LdapEntry entry;
    const Text name(ldap_get_dn(session, message));
    entry.distinguishedName = textOf(name.get());
    BerElement *position = nullptr;
    Text attribute(ldap_first_attribute(session, message, &position));
    const Element freed(position);
    for (; attribute; attribute.reset(ldap_next_attribute(session, message, position))) {
        LdapAttribute read{textOf(attribute.get()), {}};
        const Values values(ldap_get_values_len(session, message, attribute.get()));
        for (berval **value = values.get(); value && *value; ++value)
            read.values << QByteArray((*value)->bv_val, qsizetype((*value)->bv_len));
        entry.attributes << read;
    }
    return entry;
}

/// Takes apart what ends an answer. @return false when there is nothing of that kind
bool readResult(LDAP *session, LDAPMessage *message, LdapAnswer &answer)
{
    LdapInterface::Number code = 0;
    Character *said = nullptr;
    Character **referrals = nullptr;
    LDAPControl **controls = nullptr;
    if (ldap_parse_result(session, message, &code, nullptr, &said, &referrals, &controls, 0) != LDAP_SUCCESS)
        return false;
    const Text freedText(said);
    const TextList freedReferrals(referrals);
    const ControlList freedControls(controls);
    answer.code = codeOf(int(code));
    if (code != LDAP_SUCCESS)
        answer.text = textOf(said && *said ? said : ldap_err2string(code));
    answer.referrals = textsOf(referrals);
    answer.cookie = LdapInterface::pageCookie(session, controls);
    return true;
}

LdapAnswer readAnswer(LDAP *session, LDAPMessage *all)
{
    LdapAnswer answer;
    if (!readResult(session, all, answer))
        return LdapAnswer::of(LdapAnswer::Local, Texts::tr("The server's answer cannot be understood."));
    for (LDAPMessage *at = ldap_first_entry(session, all); at; at = ldap_next_entry(session, at))
        answer.entries << entryOf(session, at);
    for (LDAPMessage *at = ldap_first_reference(session, all); at; at = ldap_next_reference(session, at)) {
        Character **places = nullptr;
        if (LdapInterface::readReference(session, at, places)) {
            const TextList freed(places);
            // They name the same entry; the first will do.
            answer.references << textsOf(places).mid(0, 1);
        }
    }
    return answer;
}

} // namespace

LdapAnswer LdapSession::await(int message, const Directory::GoOn &goOn) const
{
    LDAPMessage *received = nullptr;
    int kind = 0;
    const LdapPatience::End end = LdapPatience(m_limits.operation, goOn).waitFor([&](std::chrono::milliseconds piece) {
        LdapInterface::Time time = LdapInterface::timeOf(piece);
        kind = int(ldap_result(m_session, LdapInterface::Number(message), LDAP_MSG_ALL, &time, &received));
        return kind != 0;
    });
    const Message all(received);
    if (end != LdapPatience::End::Done) {
        // The server need not go on.
        LdapInterface::abandon(m_session, message);
        return LdapAnswer::of(end == LdapPatience::End::TimedOut ? LdapAnswer::TimedOut : LdapAnswer::Cancelled);
    }
    if (kind >= 0)
        return readAnswer(m_session, all.get());
    return failed(LdapInterface::lastError(m_session));
}

LdapAnswer LdapSession::setOptions() const
{
    const LdapInterface::Number version = LDAP_VERSION3;
    const LdapInterface::Number noReference = LDAP_DEREF_NEVER;
    const LdapInterface::Number noLimit = LDAP_NO_LIMIT;
    const bool isSet = ldap_set_option(m_session, LDAP_OPT_PROTOCOL_VERSION, &version) == LDAP_SUCCESS &&
                       ldap_set_option(m_session, LDAP_OPT_REFERRALS, LDAP_OPT_OFF) == LDAP_SUCCESS &&
                       ldap_set_option(m_session, LDAP_OPT_DEREF, &noReference) == LDAP_SUCCESS &&
                       ldap_set_option(m_session, LDAP_OPT_SIZELIMIT, &noLimit) == LDAP_SUCCESS;
    if (isSet)
        return {};
    return LdapAnswer::of(LdapAnswer::Local, Texts::tr("The LDAP library does not know a setting."));
}

LdapAnswer LdapSession::failed(int code) const
{
    LdapAnswer answer;
    answer.code = codeOf(code);
    Character *said = nullptr;
    if (m_session)
        (void)ldap_get_option(m_session, LDAP_OPT_ERROR_STRING, &said);
    const Text freed(said);
    answer.text = textOf(said && *said ? said : ldap_err2string(LdapInterface::Number(code)));
    return answer;
}
