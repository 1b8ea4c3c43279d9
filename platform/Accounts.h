#pragma once

#include <QString>

/// The users and groups of a server, by the network management functions of the Windows interface, with their levels,
/// filters and result codes. Names come in batches, each in a buffer that the caller releases.
class Accounts
{
public:
    /// Those that are looked at or made here; a system may answer with any other.
    enum Result : quint32 {
        Success = 0,
        AccessDenied = 5,
        NotEnoughMemory = 8,
        GeneralFailure = 31,
        BadNetworkPath = 53,
        InvalidParameter = 87,
        InvalidLevel = 124,
        MoreData = 234,
    };

    /// A record of level 0. The name ends with a zero.
    struct Record
    {
        const char16_t *name;
    };

    struct Batch
    {
        /// The records, one behind the other; to be handed to NetApiBufferFree(). None where there are no entries.
        Record *buffer = nullptr;
        quint32 entriesRead = 0;
        /// How many entries there are from where the call began, those read by it included. Servers may estimate.
        quint32 totalEntries = 0;
    };

    Accounts() = default;
    Accounts(const Accounts &) = delete;
    Accounts &operator=(const Accounts &) = delete;
    virtual ~Accounts() = default;

    /// Reads the next names of users.
    /// @param server a host behind "\\"; empty for this machine
    /// @param level what a record holds; here always 0, the name
    /// @param filter which kinds of users; 0 for all
    /// @param preferredLength how large the buffer should be at most, in bytes
    /// @param resumeHandle 0 at the beginning; each call leaves in it what the next one goes on with
    /// @return Success, MoreData when there are more, or why there is nothing in batch
    [[nodiscard]] virtual quint32 NetUserEnum(const QString &server, quint32 level, quint32 filter, Batch &batch,
                                              quint32 preferredLength, quintptr &resumeHandle) = 0;

    /// Reads the next names of the server's own groups, as NetUserEnum() reads users.
    [[nodiscard]] virtual quint32 NetLocalGroupEnum(const QString &server, quint32 level, Batch &batch,
                                                    quint32 preferredLength, quintptr &resumeHandle) = 0;

    /// Reads the next names of the global groups that the server keeps, as NetUserEnum() reads users.
    [[nodiscard]] virtual quint32 NetGroupEnum(const QString &server, quint32 level, Batch &batch,
                                               quint32 preferredLength, quintptr &resumeHandle) = 0;

    /// Releases the buffer of a batch. None is released with success.
    virtual quint32 NetApiBufferFree(Record *buffer) = 0;
};
