#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/// What became of an operation on a directory.
struct [[nodiscard]] DirectoryStatus
{
    enum class Code {
        Success,
        /// The server gave a part of what there is, and no more: one of its limits is reached.
        Incomplete,
        /// Whoever waited did not want to wait any longer.
        Cancelled,
        /// The password would leave this machine unencrypted; nothing has been sent.
        NotEncrypted,
        Failed,
    };

    Code code = Code::Success;
    /// A sentence for the user; empty with Success and Cancelled. It never holds the password.
    QString text;

    [[nodiscard]] bool isSuccess() const { return code == Code::Success; }
};

/// An entry below another one.
struct DirectoryChild
{
    /// The relative name, as the server gives it: "cn=Smith\, John".
    QString Name;
    QString path;
    /// The server says that the entry is to be found elsewhere. It is not looked for there.
    bool isElsewhere = false;
};

/// An entry of a directory. Its operations wait for the server.
class DirectoryObject
{
public:
    using TakeChildren = std::function<void(const QList<DirectoryChild> &)>;

    DirectoryObject() = default;
    DirectoryObject(const DirectoryObject &) = delete;
    DirectoryObject &operator=(const DirectoryObject &) = delete;
    virtual ~DirectoryObject() = default;

    /// The names of the entry's properties, as the server orders them.
    [[nodiscard]] virtual QStringList propertyNames() const = 0;

    /// Reads the values of one property; none when the entry does not have it. Properties that the server adds itself,
    /// and which propertyNames() does not list, can be asked for too.
    virtual DirectoryStatus property(const QString &name, QList<QByteArray> &values) = 0;

    /// Reads the entries directly below this one and hands them to take in the order in which the server gives them, a
    /// number at a time. What came before a failure has been handed over.
    virtual DirectoryStatus children(const TakeChildren &take) = 0;
};

/// The directory service. A path is "LDAP://host[:port]/name" with the distinguished name of an entry (RFC 4514), or
/// "RootDSE" for the server's entry about itself, whose property "namingContexts" names the trees that it holds. The
/// beginning and "RootDSE" are compared without regard to case.
class Directory
{
public:
    /// Asked again and again while something waits; false ends the waiting.
    using GoOn = std::function<bool()>;

    /// What OpenDSObject() may do.
    enum Flags : int {
        None = 0,
        /// The password may be sent unencrypted, also to another machine.
        MaySendUnencrypted = 1,
    };

    Directory() = default;
    Directory(const Directory &) = delete;
    Directory &operator=(const Directory &) = delete;
    virtual ~Directory() = default;

    /// Opens an entry. Nobody is logged in when userName and password are both empty. On port 636 everything is
    /// encrypted; on others that is tried as soon as there is somebody to log in. The server's certificate is checked
    /// then, and the text of the status says what is wrong with it.
    /// @param object the entry; set with Success only
    virtual DirectoryStatus OpenDSObject(const QString &path, const QString &userName, const QString &password,
                                         Flags flags, const GoOn &goOn, std::unique_ptr<DirectoryObject> &object) = 0;
};
