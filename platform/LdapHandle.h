#pragma once

#include "platform/Directory.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>

struct DirectoryPath;

/// How long things may take, and how much is asked for at a time.
struct LdapLimits
{
    std::chrono::milliseconds connect{10'000};
    /// One request and all of its answer.
    std::chrono::milliseconds operation{30'000};
    /// Entries a page. 1000 is the most that common servers give.
    int pageSize = 1000;
    /// On this port everything is encrypted from the beginning.
    int encryptedPort = 636;
    /// A file of certificates (PEM) that are trusted instead of the system's; empty for these. Not on Windows.
    QString trustedCertificates;
};

struct LdapAttribute
{
    QString name;
    QList<QByteArray> values;
};

struct LdapEntry
{
    QString distinguishedName;
    QList<LdapAttribute> attributes;
};

/// All that came for one request.
struct LdapAnswer
{
    /// The result codes of RFC 4511, section 4.1.9, that this program knows of, and what happens on this side, which is
    /// below 0.
    enum Code : int {
        Success = 0,
        ProtocolError = 2,
        TimeLimitExceeded = 3,
        SizeLimitExceeded = 4,
        Referral = 10,
        AdminLimitExceeded = 11,
        UnavailableCriticalExtension = 12,
        ConfidentialityRequired = 13,
        NoSuchObject = 32,
        InvalidDnSyntax = 34,
        InappropriateAuthentication = 48,
        InvalidCredentials = 49,
        InsufficientAccessRights = 50,
        Busy = 51,
        Unavailable = 52,
        UnwillingToPerform = 53,

        /// No connection came about; the text says why.
        Unreachable = -1,
        /// The server has ended the connection.
        Lost = -2,
        TimedOut = -3,
        Cancelled = -4,
        /// No encryption came about; the text says which check of the certificate failed, or what else is wrong.
        Unencryptable = -5,
        /// The library refused to do it.
        Local = -6,
        /// The password has been held back; see DirectoryStatus.
        NotEncrypted = -7,
    };

    /// An answer that is told by its code, with nothing read.
    [[nodiscard]] static LdapAnswer of(Code code, const QString &text = {})
    {
        LdapAnswer answer;
        answer.code = code;
        answer.text = text;
        return answer;
    }

    int code = Success;
    /// What the server or the library says about it.
    QString text;
    QStringList referrals;
    QList<LdapEntry> entries;
    /// The places of entries that the server has elsewhere, as URLs.
    QStringList references;
    /// Leads to the next page; empty after the last one.
    QByteArray cookie;
};

struct LdapSearch
{
    enum class Scope { Base, OneLevel };

    QString base;
    Scope scope = Scope::Base;
    QStringList attributes;
    bool isNamesOnly = false;
    /// 0 for all at once.
    int pageSize = 0;
    /// As the page before gave it.
    QByteArray cookie;
};

class LdapSession;

/// A connection to a directory server: the calls of the system's LDAP library (RFC 1823 and what became of it), in the
/// types of this program.
class LdapHandle final
{
public:
    explicit LdapHandle(const LdapLimits &limits);
    LdapHandle(const LdapHandle &) = delete;
    LdapHandle &operator=(const LdapHandle &) = delete;
    /// Ends the connection.
    ~LdapHandle();

    /// Connects, with LDAP version 3 and without following referrals; encrypted from the beginning on the port that
    /// LdapLimits::encryptedPort is.
    [[nodiscard]] LdapAnswer open(const DirectoryPath &path, const Directory::GoOn &goOn);
    /// Encrypts the connection from here on (StartTLS). A code above 0 when the server does not: it goes on as it is.
    [[nodiscard]] LdapAnswer startEncryption(const Directory::GoOn &goOn);
    /// Logs in by name and password.
    [[nodiscard]] LdapAnswer bind(const QString &userName, const QString &password, const Directory::GoOn &goOn);
    /// Entries that are referrals are given as entries (RFC 3296).
    [[nodiscard]] LdapAnswer search(const LdapSearch &search, const Directory::GoOn &goOn);

private:
    std::unique_ptr<LdapSession> m_session;
};
