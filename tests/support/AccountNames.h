#pragma once

#include "platform/Accounts.h"

#include <QStringList>

#include <functional>

/// All that an enumeration of Accounts gives, read for a test as plainly as can be.
struct AccountNames
{
    QStringList names;
    /// What the last call answered.
    quint32 result = 0;
    int calls = 0;
    /// The most bytes that a buffer with more than one entry held, records and names with their zeros.
    size_t largestBuffer = 0;
};

/// Calls enumerate until it has nothing more, and releases every buffer.
[[nodiscard]] AccountNames readAccountNames(Accounts &accounts,
                                            const std::function<quint32(Accounts::Batch &, quintptr &)> &enumerate);

/// The whole enumeration of users on a server, in buffers of preferredLength bytes.
[[nodiscard]] AccountNames readUserNames(Accounts &accounts, const QString &server = {}, quint32 preferredLength = 255);
[[nodiscard]] AccountNames readLocalGroupNames(Accounts &accounts, const QString &server = {},
                                               quint32 preferredLength = 255);
[[nodiscard]] AccountNames readGroupNames(Accounts &accounts, const QString &server = {},
                                          quint32 preferredLength = 255);
