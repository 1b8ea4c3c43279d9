#pragma once

#include "platform/Directory.h"

#include <QMap>
#include <QStringList>

#include <functional>

/// A directory in memory. It keeps account of what was opened.
class FakeDirectory final : public Directory
{
public:
    struct Call
    {
        QString path;
        QString userName;
        QString password;
        Flags flags;
    };

    struct Entry
    {
        QStringList properties;
        QStringList children;
        /// What reading the children comes to.
        DirectoryStatus childrenStatus;
        /// Children that are on other servers, by name.
        QMap<QString, QString> elsewhere;
    };

    FakeDirectory();

    /// Adds an entry below the one that its name says, which has to be there, or as a context.
    Entry &add(const QString &distinguishedName, const QStringList &properties = {});

    DirectoryStatus OpenDSObject(const QString &path, const QString &userName, const QString &password, Flags flags,
                                 const GoOn &goOn, std::unique_ptr<DirectoryObject> &object) override;

    /// The server's address; another one does not answer.
    QString address = QStringLiteral("localhost");
    QStringList contexts;
    QMap<QString, Entry> entries;
    /// The password that is right; anybody without a name is let in.
    QString password;
    /// Whether a password is held back until that is allowed.
    bool isUnencrypted = false;
    /// Run in every call, with its number from 0 on, while it waits; the call waits as long as it says so.
    std::function<bool(qsizetype call)> stillWaits;

    QList<Call> calls;
    /// The paths that were opened.
    [[nodiscard]] QStringList paths() const;

    static const QString failure;
};
