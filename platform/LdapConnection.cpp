#include "platform/LdapConnection.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdapConnection)
};

struct Reason
{
    int code;
    const char *text;
};

// clang-format off
/// What codes mean to a user. For others the server's own words have to do.
constexpr std::array<Reason, 13> reasons {{
    {LdapAnswer::Lost,                         QT_TRANSLATE_NOOP("LdapConnection", "The server has ended the connection.")},
    {LdapAnswer::TimedOut,                     QT_TRANSLATE_NOOP("LdapConnection", "The server does not answer in time.")},
    {LdapAnswer::Referral,                     QT_TRANSLATE_NOOP("LdapConnection", "The entry is on another server, which is not asked.")},
    {LdapAnswer::ConfidentialityRequired,      QT_TRANSLATE_NOOP("LdapConnection", "The server wants an encrypted connection.")},
    {LdapAnswer::NoSuchObject,                 QT_TRANSLATE_NOOP("LdapConnection", "There is no such entry, or it may not be read.")},
    {LdapAnswer::InvalidDnSyntax,              QT_TRANSLATE_NOOP("LdapConnection", "This is not the name of an entry.")},
    {LdapAnswer::InappropriateAuthentication,  QT_TRANSLATE_NOOP("LdapConnection", "The user name cannot be used with a password.")},
    {LdapAnswer::InvalidCredentials,           QT_TRANSLATE_NOOP("LdapConnection", "The user name or the password is wrong.")},
    {LdapAnswer::InsufficientAccessRights,     QT_TRANSLATE_NOOP("LdapConnection", "The entry may not be read.")},
    {LdapAnswer::Busy,                         QT_TRANSLATE_NOOP("LdapConnection", "The server is too busy.")},
    {LdapAnswer::Unavailable,                  QT_TRANSLATE_NOOP("LdapConnection", "The server is not available.")},
    {LdapAnswer::SizeLimitExceeded,            QT_TRANSLATE_NOOP("LdapConnection", "The server does not give more entries at a time.")},
    {LdapAnswer::AdminLimitExceeded,           QT_TRANSLATE_NOOP("LdapConnection", "The server does not give more entries at a time.")},
}};
// clang-format on

bool isIncomplete(int code)
{
    return code == LdapAnswer::SizeLimitExceeded || code == LdapAnswer::AdminLimitExceeded ||
           code == LdapAnswer::TimeLimitExceeded;
}

} // namespace

LdapConnection::LdapConnection(const LdapLimits &limits, const DirectoryPath &path, const Account &account)
    : m_limits(limits)
    , m_path(path)
    , m_account(account)
{
}

DirectoryStatus LdapConnection::open(const Directory::GoOn &goOn)
{
    return statusOf(connectToServer(goOn));
}

LdapAnswer LdapConnection::search(const LdapSearch &search, const Directory::GoOn &goOn)
{
    // Without the login that belongs to it, the connection is not used.
    if (!m_isOpen)
        return LdapAnswer::of(LdapAnswer::Lost);
    LdapAnswer answer = m_handle->search(search, goOn);
    if (answer.code == LdapAnswer::Lost && m_hasWorked && search.cookie.isEmpty()) {
        m_hasWorked = false;
        const LdapAnswer again = connectToServer(goOn);
        if (again.code != LdapAnswer::Success)
            return again;
        answer = m_handle->search(search, goOn);
    }
    m_hasWorked = m_hasWorked || answer.code >= LdapAnswer::Success;
    return answer;
}

DirectoryStatus LdapConnection::statusOf(const LdapAnswer &answer) const
{
    using Code = DirectoryStatus::Code;
    if (answer.code == LdapAnswer::Success)
        return {};
    if (answer.code == LdapAnswer::Cancelled)
        return {Code::Cancelled, {}};
    if (answer.code == LdapAnswer::NotEncrypted)
        return {Code::NotEncrypted, Texts::tr("\"%1\" does not encrypt the connection.").arg(m_path.address)};

    const auto *reason =
        std::find_if(reasons.begin(), reasons.end(), [&](const Reason &each) { return each.code == answer.code; });
    QStringList sentences;
    if (reason != reasons.end())
        sentences << Texts::tr(reason->text);
    if (!answer.text.isEmpty())
        sentences << (answer.code > 0 ? Texts::tr("The server says: \"%1\"").arg(answer.text) : answer.text);
    for (const QString &place : answer.referrals)
        sentences << QStringLiteral("\"%1\"").arg(place);
    return {isIncomplete(answer.code) ? Code::Incomplete : Code::Failed, sentences.join(u' ')};
}

LdapAnswer LdapConnection::connectToServer(const Directory::GoOn &goOn)
{
    LdapAnswer answer = connectAndLogIn(goOn);
    m_isOpen = answer.code == LdapAnswer::Success;
    return answer;
}

LdapAnswer LdapConnection::connectAndLogIn(const Directory::GoOn &goOn)
{
    m_handle = std::make_unique<LdapHandle>(m_limits);
    LdapAnswer answer = m_handle->open(m_path, goOn);
    const bool isAnonymous = m_account.userName.isEmpty() && m_account.password.isEmpty();
    if (answer.code != LdapAnswer::Success || isAnonymous)
        return answer;
    bool isEncrypted = m_path.port == m_limits.encryptedPort;
    if (!isEncrypted) {
        answer = m_handle->startEncryption(goOn);
        if (answer.code < LdapAnswer::Success)
            return answer;
        isEncrypted = answer.code == LdapAnswer::Success;
    }
    if (!mayLogIn(isEncrypted))
        return LdapAnswer::of(LdapAnswer::NotEncrypted);
    return m_handle->bind(m_account.userName, m_account.password, goOn);
}

bool LdapConnection::mayLogIn(bool isEncrypted) const
{
    return isEncrypted || m_account.password.isEmpty() || m_path.isThisMachine() ||
           (m_account.flags & Directory::MaySendUnencrypted) != 0;
}
